#include "Corvane/settings/databasegroupfixture.h"

#include <QVBoxLayout>

const QStringList kDefaultOptions{QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2"),
                                  QStringLiteral("SQL_ATTR_CONNECTION_TIMEOUT=2")};

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

QStringList parameters(const QVariantMap &map)
{
    QStringList lines;
    const QVariantMap params = map.value(text("params")).toMap();
    for (auto it = params.begin(); it != params.end(); ++it)
        lines.append(it.key() + QLatin1Char('=') + it.value().toString());
    return lines;
}

QVariantMap supportMap(const QVariantMap &params, const QVariant &options)
{
    return {{text("params"), params},
            {text("supportdb/username"), text("reader")},
            {text("supportdb/password"), text("secret")},
            {text("supportdb/connectoptions"), options},
            {text("supportdb/driverparams"), QString()},
            {text("supportdb/sqltype"), 2}};
}

void DatabaseGroupFixture::init()
{
    store()->changeSettingsFile(m_workstation.dataDirectory() +
                                QStringLiteral("working_%1.ini").arg(++m_count));
}

void DatabaseGroupFixture::cleanup()
{
    m_window.reset();
}

DatabaseGroupSettings *DatabaseGroupFixture::show(int database, bool editable, bool actionDb, bool onlineMode,
                                                  QVariantMap *map)
{
    m_window = std::make_unique<QDialog>();
    auto *layout = new QVBoxLayout(m_window.get());
    auto *editor = new DatabaseGroupSettings(database, editable, actionDb, onlineMode, map, m_window.get());
    layout->addWidget(editor);
    m_window->show();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("The window does not become active");
    return editor;
}

/// The texts of a list's rows from the first to the last.
QStringList DatabaseGroupFixture::rows(const QString &prefix) const
{
    QStringList lines;
    for (int i = 1; auto *row = m_window->findChild<QLineEdit *>(prefix + QString::number(i)); ++i)
        lines.append(row->text());
    return lines;
}

/// Replaces a row's text by hand, without leaving the row.
void DatabaseGroupFixture::type(QLineEdit *edit, const QString &line) const
{
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, line);
}
