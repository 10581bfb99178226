#include "distributionfixture.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>

using namespace SettingsTest;

namespace {

constexpr int kAnswerTime = 20000;  // milliseconds

}  // namespace

void DistributionFixture::init()
{
    m_files.reset();
    m_site = m_workstation.path("site.db");
    QFile::remove(m_site);
    m_username.clear();
    m_password.clear();
}

void DistributionFixture::cleanup()
{
    if (m_dialog)
        m_dialog->close();
    QTRY_VERIFY(!m_dialog);
    QVERIFY(!QApplication::activeModalWidget());
}

void DistributionFixture::open(const QString &operatorName)
{
    m_dialog = new DistributionView(m_workstation.dataDirectory(), &m_username, &m_password, operatorName);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog));
}

DistributionView *DistributionFixture::openFromMenu(SettingsBench &bench)
{
    bench.choose("online_menu", "distribute_action");
    m_dialog = bench.view().findChild<DistributionView *>();
    return m_dialog;
}

void DistributionFixture::connectTo(const QString &file, const char *button)
{
    child<QLineEdit>(*m_dialog, "connection_setting_1")->setText("Driver=SQLite3;Database=" + file);
    press(*m_dialog, button);
}

void DistributionFixture::waitForTheEnd()
{
    QTRY_VERIFY_WITH_TIMEOUT(!m_dialog, kAnswerTime);
}
