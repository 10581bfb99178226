#include "onlinesite.h"
#include "onlinestore.h"
#include "storechecks.h"
#include "support/ordinaryuser.h"
#include "support/workstation.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTcpServer>
#include <QTest>

namespace {

using Settings = QMap<QString, QVariant>;

constexpr int kPatience = 8000;  // milliseconds; the options allow two seconds

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

SettingsAdditionalData data()
{
    return {text("notes"), text("2024-02-29 08:15:00"), text("Ann")};
}

OnlineSettings::QueryError stored(bool distribute = false)
{
    return OnlineStore::send(data(), false, distribute);
}

}  // namespace

/// What the store answers to those who may not, and where there is nothing to connect to.
class TestOnlineRights : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase();
    void init();

    void accountThatMayOnlyReadReadsAndChangesNothing();
    void distributingWithHalfTheRightsStoresNothing();
    void accountThatMayNotReadGetsNothing();
    void missingTableIsMade();
    void missingTableThatMayNotBeMadeIsALackOfRights();
    void fileThatCannotBeWrittenIsALackOfRights();
    void connectionThatCannotBeMadeIsRefused_data();
    void connectionThatCannotBeMadeIsRefused();
    void serverThatNeverAnswersIsGivenUp();
    void failedConnectionLeavesNoFormerOne();
    void passwordsStandInNoLog();

private:
    Settings withParameter(const char *name, const QString &value) const;

    Workstation m_workstation;
    OnlineSite m_site{QStringLiteral("corvane_rights")};
};

void TestOnlineRights::initTestCase_data()
{
    OnlineSite::addServers();
}

void TestOnlineRights::initTestCase()
{
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("corvane.ini"));
    store()->setValue(text("ui/number"), 5);
}

void TestOnlineRights::init()
{
    const bool ready = m_site.use();
    if (!m_site.missing().isEmpty())
        QSKIP(qPrintable(m_site.missing()));
    QVERIFY2(ready, qPrintable(m_site.errorText()));
}

/// The administrator's connection with one parameter changed.
Settings TestOnlineRights::withParameter(const char *name, const QString &value) const
{
    QVariantMap parameters = m_site.server().parameters(m_site.database());
    parameters.insert(text(name), value);
    return m_site.connection(OnlineSite::Administrator, parameters);
}

void TestOnlineRights::accountThatMayOnlyReadReadsAndChangesNothing()
{
    if (!m_site.hasAccounts())
        return;
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
    QCOMPARE(stored(), OnlineSettings::Success);
    QCOMPARE(stored(true), OnlineSettings::Success);
    const QList<int> ids = OnlineStore::list().keys();

    QVERIFY(OnlineStore::connectTo(m_site.connection(OnlineSite::Application)));
    QCOMPARE(stored(), OnlineSettings::NoRights);
    QCOMPARE(stored(true), OnlineSettings::NoRights);
    for (const int id : ids)
        QCOMPARE(OnlineStore::remove(id), OnlineSettings::NoRights);
    QCOMPARE(OnlineStore::list().keys(), ids);
    QCOMPARE(OnlineStore::activeId(), ids.last());
    QVERIFY(OnlineStore::load(ids.first()));
}

void TestOnlineRights::distributingWithHalfTheRightsStoresNothing()
{
    if (!m_site.hasAccounts())
        return;
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
    QCOMPARE(stored(true), OnlineSettings::Success);
    const QList<int> ids = OnlineStore::list().keys();

    const char *const grants[] = {"GRANT INSERT ON configurations TO '%1'@'127.0.0.1', '%1'@'localhost'",
                                  "GRANT INSERT ON configurations TO \"%1\""};
    const QString account = m_site.accountName(OnlineSite::Application);
    QVERIFY2(m_site.run(text(grants[m_site.server().kind()]).arg(account)), qPrintable(m_site.errorText()));
    QVERIFY(OnlineStore::connectTo(m_site.connection(OnlineSite::Application)));
    QCOMPARE(stored(true), OnlineSettings::NoRights);
    QCOMPARE(OnlineStore::list().keys(), ids);
    QCOMPARE(OnlineStore::activeId(), ids.last());
    QCOMPARE(stored(), OnlineSettings::Success);
    m_site.forget();
}

void TestOnlineRights::accountThatMayNotReadGetsNothing()
{
    if (!m_site.hasAccounts())
        return;
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
    QCOMPARE(stored(true), OnlineSettings::Success);
    const int id = OnlineStore::activeId();

    QVERIFY(OnlineStore::connectTo(m_site.connection(OnlineSite::Auditor)));
    QVERIFY(!OnlineStore::isListReadable());
    QVERIFY(store()->getOnlineNotesList().isEmpty());
    QCOMPARE(OnlineStore::activeId(), 0);
    QVERIFY(!OnlineStore::load(id));
    QCOMPARE(OnlineStore::remove(id), OnlineSettings::NoRights);
}

void TestOnlineRights::missingTableIsMade()
{
    QVERIFY(m_site.server().makeDatabase(m_site.emptyDatabase(), {}));
    const auto parameters = m_site.server().parameters(m_site.emptyDatabase());
    for (int round = 0; round < 2; ++round) {
        QVERIFY(OnlineStore::connectTo(m_site.connection(OnlineSite::Owner, parameters)));
        QCOMPARE(OnlineStore::list().size(), round);
        QCOMPARE(stored(true), OnlineSettings::Success);
    }
    QCOMPARE(OnlineStore::activeId(), OnlineStore::list().lastKey());
    QVERIFY2(m_site.server().runScript(m_site.emptyDatabase(), text("configurations")),
             qPrintable(m_site.errorText()));
}

void TestOnlineRights::missingTableThatMayNotBeMadeIsALackOfRights()
{
    if (!m_site.hasAccounts())
        return;
    QVERIFY(m_site.server().makeDatabase(m_site.emptyDatabase(), {}));
    if (m_site.server().kind() == DatabaseServer::MariaDb) {
        const QString grant = text("GRANT SELECT, INSERT, UPDATE, DELETE ON %1.* TO '%2'@'127.0.0.1', "
                                   "'%2'@'localhost'")
                                  .arg(m_site.emptyDatabase(), m_site.accountName(OnlineSite::Auditor));
        QVERIFY2(m_site.run(grant), qPrintable(m_site.errorText()));
    }
    const auto parameters = m_site.server().parameters(m_site.emptyDatabase());
    QVERIFY(OnlineStore::connectTo(m_site.connection(OnlineSite::Auditor, parameters)));
    QVERIFY(!OnlineStore::isListReadable());
    QCOMPARE(stored(), OnlineSettings::NoRights);
    QCOMPARE(stored(true), OnlineSettings::NoRights);
    QCOMPARE(OnlineStore::remove(1), OnlineSettings::UnusableId);
    QVERIFY(!OnlineStore::load(1));
    m_site.forget();
}

/// An SQLite file has no accounts, but it has an owner.
void TestOnlineRights::fileThatCannotBeWrittenIsALackOfRights()
{
    if (m_site.hasAccounts())
        return;
    const QString path = m_workstation.path(text("guarded.db"));
    QVERIFY(OnlineStore::connectTo(withParameter("Database", path)));
    QCOMPARE(stored(true), OnlineSettings::Success);
    const int id = OnlineStore::activeId();
    const auto everybodyReads = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const auto everybodyEnters = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    QVERIFY(
        QFile::setPermissions(QFileInfo(path).path(), everybodyReads | everybodyEnters | QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(path, everybodyReads));

    const OrdinaryUser asNobody;
    QVERIFY(OnlineStore::connectTo(withParameter("Database", path)));
    QCOMPARE(stored(true), OnlineSettings::NoRights);
    QCOMPARE(OnlineStore::remove(id), OnlineSettings::NoRights);
    QCOMPARE(OnlineStore::activeId(), id);
}

void TestOnlineRights::connectionThatCannotBeMadeIsRefused_data()
{
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QString>("value");

    QTest::newRow("to a driver that is not there") << "Driver"
                                                   << "No Such Driver";
    QTest::newRow("to a file or database that is not there") << "Database"
                                                             << "/no/such/database";
    QTest::newRow("to a port that nobody listens on") << "Port"
                                                      << "1";
    QTest::newRow("with a wrong password") << QString() << QString();
}

void TestOnlineRights::connectionThatCannotBeMadeIsRefused()
{
    QFETCH(QString, parameter);
    QFETCH(QString, value);
    if (!m_site.hasAccounts() && parameter != text("Driver") && parameter != text("Database"))
        return;
    Settings connection = withParameter(qPrintable(parameter), value);
    if (parameter.isEmpty()) {
        connection = m_site.connection();
        connection.insert(text("supportdb/password"), text("not the password"));
    }
    QElapsedTimer time;
    time.start();
    QVERIFY(!OnlineStore::connectTo(connection));
    QVERIFY(time.elapsed() < kPatience);
}

void TestOnlineRights::serverThatNeverAnswersIsGivenUp()
{
    if (!m_site.hasAccounts())
        return;
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    QElapsedTimer time;
    time.start();
    QVERIFY(!OnlineStore::connectTo(withParameter("Port", QString::number(silent.serverPort()))));
    QVERIFY(time.elapsed() < kPatience);
}

void TestOnlineRights::failedConnectionLeavesNoFormerOne()
{
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
    QCOMPARE(stored(true), OnlineSettings::Success);
    QVERIFY(!OnlineStore::connectTo(withParameter("Driver", text("No Such Driver"))));
    QVERIFY(!OnlineStore::isListReadable());
    QCOMPARE(OnlineStore::activeId(), 0);
    QCOMPARE(stored(), OnlineSettings::ConnectionFailure);
    QCOMPARE(OnlineStore::remove(1), OnlineSettings::ConnectionFailure);
    QVERIFY(!OnlineStore::load(1));
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
    QCOMPARE(OnlineStore::list().size(), 1);
}

void TestOnlineRights::passwordsStandInNoLog()
{
    Settings connection = withParameter("PWD", text("parameter-secret"));
    connection.insert(text("supportdb/password"), text("account-secret"));
    for (const QString &driver :
         {text("No Such Driver"),
          m_site.connection().value(text("params")).toMap().value(text("Driver")).toString()}) {
        QVariantMap parameters = connection.value(text("params")).toMap();
        parameters.insert(text("Driver"), driver);
        connection.insert(text("params"), parameters);
        OnlineStore::connectTo(connection);
    }
    const QByteArray log = readFile(m_workstation.runtimeLog());
    QVERIFY(log.contains("No Such Driver"));
    QVERIFY(!log.contains("parameter-secret"));
    QVERIFY(!log.contains("account-secret"));
}

QTEST_GUILESS_MAIN(TestOnlineRights)
#include "test_onlinerights.moc"
