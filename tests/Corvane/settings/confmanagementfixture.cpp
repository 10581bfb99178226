#include "confmanagementfixture.h"

#include <QApplication>
#include <QFile>
#include <QSignalSpy>

using namespace SettingsTest;

void ConfManagementFixture::init()
{
    m_files.reset();
    m_site = m_workstation.path("site.db");
    QFile::remove(m_site);
    m_username = "reader";
    m_password = "secret";
}

void ConfManagementFixture::cleanup()
{
    if (m_dialog)
        m_dialog->close();
    QTRY_VERIFY(!m_dialog);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!QApplication::overrideCursor());
}

void ConfManagementFixture::addConfigurations(int count, int active, const QString &language)
{
    QSignalSpy connected(store(), &SettingsHandler::onlineReconnected);
    store()->callOnlineInit();
    emit store()->reconnectOnline({{"params", SiteConnection::params(m_site)}});
    QVERIFY(connected.wait(kAnswerTime));
    QVERIFY(connected.first().first().toBool());
    const QVariant former = store()->value("application/language");
    store()->setValue("application/language", language);
    for (int id = 1; id <= count; ++id) {
        QSignalSpy storedReady(store(), &SettingsHandler::settingsOnlineStoredReady);
        store()->setValue("site/number", id);
        store()->storeSettingsOnline({QStringLiteral("notes of %1").arg(id),
                                      QStringLiteral("2026-01-0%1 10:00:00").arg(id),
                                      QStringLiteral("user%1").arg(id)},
                                     0, false, id == active);
        QVERIFY(storedReady.wait(kAnswerTime));
        QCOMPARE(storedReady.first().first().value<OnlineSettings::QueryError>(), OnlineSettings::Success);
    }
    store()->generalSettings()->remove("site/number");
    if (former.isValid())
        store()->setValue("application/language", former);
    else
        store()->generalSettings()->remove("application/language");
}

void ConfManagementFixture::open()
{
    m_dialog = new ConfManagementDialog(m_workstation.dataDirectory(), &m_username, &m_password);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog));
}

void ConfManagementFixture::openConnected()
{
    rememberSite();
    open();
    QTRY_VERIFY_WITH_TIMEOUT(canChoose(), kAnswerTime);
}

void ConfManagementFixture::choose(int id)
{
    const int index = list()->findData(id);
    QVERIFY(index >= 0);
    list()->setCurrentIndex(index);
}

void ConfManagementFixture::openFromMenu(SettingsBench &bench)
{
    bench.choose("online_menu", "manage_action");
    m_dialog = bench.view().findChild<ConfManagementDialog *>();
}

void ConfManagementFixture::connectFromMenu(SettingsBench &bench)
{
    rememberSite();
    openFromMenu(bench);
    QVERIFY(m_dialog);
    if (SiteConnection::userOf(*m_dialog).isEmpty()) {
        SiteConnection::signInAs(*m_dialog, "reader", "secret");
        press("connect_button");
    }
    QTRY_VERIFY_WITH_TIMEOUT(canChoose(), kAnswerTime);
}
