#include "CommunicationAndData/settings/settingskeys.h"
#include "onlinestore.h"
#include "support/workstation.h"

#include <QTest>

namespace {

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

}  // namespace

class TestOnlineWorker : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void whatIsStoredCanBeLoaded();
    void theActiveOneCannotBeDeleted();

private:
    QMap<QString, QVariant> m_connection;
    Workstation m_workstation;
};

void TestOnlineWorker::initTestCase()
{
    store()->changeSettingsFile(m_workstation.dataDirectory() + QStringLiteral("corvane.ini"));
}

void TestOnlineWorker::init()
{
    const QString file = m_workstation.path(QStringLiteral("site.db"));
    QFile::remove(file);
    const QVariantMap params{{QStringLiteral("Driver"), QStringLiteral("SQLite3")},
                             {QStringLiteral("Database"), file}};
    m_connection = {{QLatin1String(SettingsKeys::kParams), params}};
    QVERIFY(OnlineStore::connectTo(m_connection));
}

void TestOnlineWorker::whatIsStoredCanBeLoaded()
{
    store()->setValue(QStringLiteral("ui/number"), 5);
    store()->setSafeValue(QStringLiteral("supportdb/password"), QStringLiteral("secret"));
    const auto before = OnlineStore::content();
    QCOMPARE(OnlineStore::send(
                 {QStringLiteral("first"), QStringLiteral("2024-02-29 08:15:00"), QStringLiteral("Ann")},
                 true, false),
             OnlineSettings::Success);
    QCOMPARE(OnlineStore::activeId(), 0);
    const auto list = OnlineStore::list();
    QCOMPARE(list.size(), 1);
    OnlineStore::setContent({{QStringLiteral("ui/other"), 1}});
    QVERIFY(OnlineStore::load(list.firstKey()));
    QCOMPARE(OnlineStore::content(), before);
    QVERIFY(store()->restore());
    QCOMPARE(OnlineStore::content().keys(), QStringList{QStringLiteral("ui/other")});
}

void TestOnlineWorker::theActiveOneCannotBeDeleted()
{
    QCOMPARE(OnlineStore::send({}, true, true), OnlineSettings::Success);
    QCOMPARE(OnlineStore::send({}, true, true), OnlineSettings::Success);
    QCOMPARE(OnlineStore::activeId(), 2);
    QCOMPARE(OnlineStore::remove(2), OnlineSettings::ConfigurationActive);
    QCOMPARE(OnlineStore::remove(1), OnlineSettings::Success);
    QCOMPARE(OnlineStore::remove(1), OnlineSettings::UnusableId);
}

QTEST_GUILESS_MAIN(TestOnlineWorker)
#include "test_onlineworker.moc"
