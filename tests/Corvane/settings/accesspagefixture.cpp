#include "accesspagefixture.h"

#include "siteconnection.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QSqlDatabase>
#include <QTimer>

namespace {

constexpr int kPollInterval = 5;  // milliseconds
const QString kConnectionName = QStringLiteral("audit_trail_setting_db");

}  // namespace

ConnectionDialogs::ConnectionDialogs(QList<Visit> visits)
    : m_visits(std::move(visits))
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &ConnectionDialogs::answer);
    timer->start(kPollInterval);
}

void ConnectionDialogs::answer()
{
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible() || dialog->objectName() != QStringLiteral("audit_connection_dialog"))
        return;
    ++m_count;
    if (m_visits.isEmpty())
        dialog->reject();
    else
        m_visits.takeFirst()(*dialog);
}

ConnectionDialogs::Visit connectAs(const QString &user, const QString &password)
{
    return [user, password](QDialog &dialog) {
        SiteConnection::signInAs(dialog, user, password);
        QTest::mouseClick(SettingsTest::child<QPushButton>(dialog, "connect_button"), Qt::LeftButton);
    };
}

void AccessPageFixture::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void AccessPageFixture::init()
{
    QFile::remove(cacheFile());
    SettingsTest::useEmptySettings(m_workstation);
    m_warnings = std::make_unique<QtWarnings>();
}

void AccessPageFixture::cleanup()
{
    m_page.reset();
    QVERIFY(!QSqlDatabase::contains(kConnectionName));
    QVERIFY(!QApplication::overrideCursor());
    const QStringList warnings = m_warnings->seen();
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join(QLatin1Char(10))));
    m_warnings.reset();
}

QStringList AccessPageFixture::takeWarnings()
{
    const QStringList warnings = m_warnings->seen();
    m_warnings.reset();
    m_warnings = std::make_unique<QtWarnings>();
    return warnings;
}

void AccessPageFixture::show(int rights)
{
    m_page =
        std::make_unique<AccessSettingsView>(m_workstation.dataDirectory(), static_cast<AccessType>(rights));
    m_page->resize(800, 450);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
}

void AccessPageFixture::close()
{
    m_page.reset();
}
