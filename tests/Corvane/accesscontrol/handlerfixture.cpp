#include "Corvane/accesscontrol/handlerfixture.h"

#include "Corvane/accesscontrol/accesscontroloffline.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QPushButton>
#include <QSettings>
#include <QSqlQuery>

const QString kOnlineName = QStringLiteral("access.supportdb");
const QString kOfflineName = QStringLiteral("supportConnectionHandler");
const QString kInfo = QStringLiteral("Corvane access connection");
const QString kConnectedText = QStringLiteral("Connected to authentication database");
const QString kNoConnectionText = QStringLiteral("No connection to authentication database");
const QStringList kDefaultOptions{QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2"),
                                  QStringLiteral("SQL_ATTR_CONNECTION_TIMEOUT=2")};

namespace {

constexpr int kPollInterval = 10;  // milliseconds

void press(QDialog &dialog, const char *button)
{
    QTest::mouseClick(find<QPushButton>(dialog, button), Qt::LeftButton);
}

}  // namespace

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

DialogSteps::DialogSteps(QList<Step> steps)
    : m_steps(std::move(steps))
{
    connect(&m_timer, &QTimer::timeout, this, &DialogSteps::runNext);
    m_timer.start(kPollInterval);
}

void DialogSteps::runNext()
{
    auto *dialog = qobject_cast<SupportConnectionHandler *>(QApplication::activeModalWidget());
    if (dialog && dialog->isVisible() && !m_steps.isEmpty())
        m_steps.takeFirst()(*dialog);
}

void pressConnect(QDialog &dialog)
{
    press(dialog, "connect_button");
}

void pressCancel(QDialog &dialog)
{
    press(dialog, "cancel_button");
}

DialogSteps::Step chooseOffline(const QString &location)
{
    return [location](QDialog &dialog) {
        find<QComboBox>(dialog, "online_mode_combo")->setCurrentIndex(1);
        find<QLineEdit>(dialog, "offline_location_edit")->setText(location);
    };
}

char *toString(const Event &event)
{
    return QTest::toString(QStringLiteral("%1 type %2, \"%3\", \"%4\", \"%5\"")
                               .arg(event.action, 0, 16)
                               .arg(event.type)
                               .arg(event.key, event.database, event.info));
}

Event started(const QString &database)
{
    return {Actions::Started, Actions::Automatic, kOnlineName, database, kInfo};
}

Event stopping(const QString &key, const QString &database)
{
    return {Actions::Stopping, Actions::Automatic, key, database, kInfo};
}

void HandlerFixture::initTestCase()
{
    qRegisterMetaType<ZephanError>("ZephanError");
}

void HandlerFixture::init()
{
    ++m_count;
    QFile::remove(localCache());
    QFile::remove(m_workstation.localApplicationSettings());
    store()->changeSettingsFile(m_workstation.dataDirectory() +
                                QStringLiteral("working_%1.ini").arg(m_count));
    m_warnings = std::make_unique<QtWarnings>();
}

void HandlerFixture::cleanup()
{
    m_handler.reset();
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
    QVERIFY(!QSqlDatabase::contains(kOfflineName));
    for (const QString &warning : m_warnings->seen())
        QVERIFY2(!warning.startsWith(text("QSqlDatabase")), qPrintable(warning));
    QVERIFY(!QApplication::overrideCursor());
}

/// An access database without encryption, as it stands behind the ODBC driver.
QString HandlerFixture::makeDatabase(const QString &name, const QStringList &missing,
                                     const QStringList &statements) const
{
    const QString file = database(name);
    {
        QSqlDatabase maker = QSqlDatabase::addDatabase(text("QODBC3"), text("maker"));
        maker.setDatabaseName(text("Driver=SQLite3;Database=") + file);
        if (!maker.open())
            qFatal("SQLite's ODBC driver is not there");
        QSqlQuery query(maker);
        const QMap<QString, QString> tables = AccessControlOffline::offlineTableStatements();
        for (auto table = tables.begin(); table != tables.end(); ++table) {
            if (!missing.contains(table.key()) && !query.exec(table.value()))
                qFatal("The database is not made");
        }
        for (const QString &statement : statements)
            query.exec(statement);
    }
    QSqlDatabase::removeDatabase(text("maker"));
    return file;
}

void HandlerFixture::writeLocalCache(const QVariantMap &params, const QStringList &options) const
{
    QSettings cache(localCache(), QSettings::IniFormat);
    cache.setIniCodec("UTF-8");
    cache.beginGroup(text("supportdb_online"));
    cache.beginWriteArray(text("params"), params.size());
    int index = 0;
    for (auto it = params.begin(); it != params.end(); ++it) {
        cache.setArrayIndex(index++);
        cache.setValue(text("key"), it.key());
        cache.setValue(text("value"), it.value());
    }
    cache.endArray();
    cache.setValue(text("connectoptions"), options);
    cache.setValue(text("driverparams"), QString());
    cache.setValue(text("sqltype"), 2);
}

void HandlerFixture::makeHandler()
{
    m_handler = std::make_unique<SupportConnectionHandler>(m_workstation.dataDirectory(), nullptr);
    m_actions = std::make_unique<QSignalSpy>(
        m_handler.get(),
        SIGNAL(logAction(Actions::Action, Actions::ActionType, UuidString, QString, QString, QVariant)));
    m_errors = std::make_unique<QSignalSpy>(m_handler.get(),
                                            SIGNAL(logError(Actions::Action, ZephanError, QVariant)));
    m_reconnected = std::make_unique<QSignalSpy>(m_handler.get(), SIGNAL(reconnected()));
    QVERIFY(m_actions->isValid() && m_errors->isValid() && m_reconnected->isValid());
}

QList<Event> HandlerFixture::events() const
{
    QList<Event> list;
    for (const QList<QVariant> &arguments : *m_actions) {
        if (!arguments.at(2).value<UuidString>().isNull())
            qFatal("These events belong to no operator");
        list.append({arguments.at(0).value<Actions::Action>(), arguments.at(1).value<Actions::ActionType>(),
                     arguments.at(3).toString(), arguments.at(4).toString(), arguments.at(5).toString()});
    }
    return list;
}

/// The logged failures, as "action number: text" in hexadecimal.
QStringList HandlerFixture::errors() const
{
    QStringList list;
    for (const QList<QVariant> &arguments : *m_errors)
        list.append(QStringLiteral("%1 %2: %3")
                        .arg(arguments.at(0).value<Actions::Action>(), 0, 16)
                        .arg(arguments.at(1).toUInt(), 0, 16)
                        .arg(arguments.at(2).toString()));
    return list;
}

QStringList HandlerFixture::lines(QDialog &dialog, const QString &prefix)
{
    QStringList list;
    for (int i = 1; auto *row = dialog.findChild<QLineEdit *>(prefix + QString::number(i)); ++i)
        list.append(row->text());
    return list;
}

/// What the options dialog shows in one of its lists, less the spare line.
QStringList HandlerFixture::shownRows(const char *prefix)
{
    QStringList list;
    DialogSteps steps({[&](QDialog &dialog) {
        list = lines(dialog, text(prefix));
        list.removeAll(QString());
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    return list;
}
