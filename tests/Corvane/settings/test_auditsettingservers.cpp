#include "accesspagefixture.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/databaseserver.h"
#include "support/messageboxes.h"
#include "support/wire.h"

#include <QElapsedTimer>
#include <QTest>

using namespace SettingsTest;

Q_DECLARE_METATYPE(DatabaseServer::Kind)

namespace {

constexpr int kPatience = 8000;  // milliseconds; the options allow two seconds
const QString kDatabase = QStringLiteral("audit_setting");
const QString kAccount = QStringLiteral("audit_setter");
const QString kPassword = QString::fromUtf8("a;b=c}d {e\"f'g]h");
const QString kHash = QStringLiteral("5f0c1e");
const QString kAccepted = QStringLiteral("Setting accepted");
const QString kNotAccepted = QStringLiteral("Setting not accepted");

}  // namespace

/// The check box of the online audit trail, with a hospital's servers behind it.
class TestAuditSettingServers : public AccessPageFixture
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();

    void theStateIsReadAndBoundToTheServersDatabase_data();
    void theStateIsReadAndBoundToTheServersDatabase();
    void aWrongPasswordIsNotAccepted();
    void anAccountThatMayNotReadTheHashIsNotAccepted();
    void aServerThatIsGoneIsNotAcceptedAndTheNextPressReads();
    void aServerThatNeverAnswersIsGivenUpInTime();

private:
    void makeAccount(const QString &role);
    void remember(const QVariantMap &parameters) const;
    /// Puts a line between the page and the server.
    std::unique_ptr<Wire> useWire() const;

    std::unique_ptr<DatabaseServer> m_server;
};

void TestAuditSettingServers::initTestCase_data()
{
    QTest::addColumn<DatabaseServer::Kind>("kind");
    QTest::newRow("MariaDB") << DatabaseServer::MariaDb;
    QTest::newRow("PostgreSQL") << DatabaseServer::PostgreSql;
}

void TestAuditSettingServers::init()
{
    AccessPageFixture::init();
    QFETCH_GLOBAL(DatabaseServer::Kind, kind);
    m_server = std::make_unique<DatabaseServer>(kind);
    if (!m_server->missing().isEmpty())
        QSKIP(qPrintable(m_server->missing()));
    const QStringList scripts = {"access", "action_log", "configurations", "grants"};
    QVERIFY2(m_server->makeDatabase(kDatabase, scripts) &&
                 m_server->run(kDatabase, QStringLiteral("UPDATE hash SET hash = '%1';").arg(kHash)),
             qPrintable(m_server->errorText()));
    makeAccount(QStringLiteral("corvane_console"));
    remember(m_server->parameters(kDatabase));
}

void TestAuditSettingServers::makeAccount(const QString &role)
{
    QVERIFY2(m_server->makeAccount(kDatabase, kAccount, kPassword, role), qPrintable(m_server->errorText()));
}

void TestAuditSettingServers::remember(const QVariantMap &parameters) const
{
    SiteConnection::remember(cacheFile(), "actiondb_online", parameters,
                             QStringList{"SQL_ATTR_CONNECTION_TIMEOUT=2", "SQL_ATTR_LOGIN_TIMEOUT=2"});
}

std::unique_ptr<Wire> TestAuditSettingServers::useWire() const
{
    QVariantMap parameters = m_server->parameters(kDatabase);
    auto wire = std::make_unique<Wire>(static_cast<quint16>(parameters.value("Port").toUInt()));
    parameters.insert("Port", QString::number(wire->port()));
    remember(parameters);
    return wire;
}

void TestAuditSettingServers::theStateIsReadAndBoundToTheServersDatabase_data()
{
    QTest::addColumn<QString>("role");
    QTest::newRow("by the console's account") << "corvane_console";
    QTest::newRow("by an auditor's account") << "corvane_auditor";
}

void TestAuditSettingServers::theStateIsReadAndBoundToTheServersDatabase()
{
    QFETCH(QString, role);
    makeAccount(role);
    store()->enableAuditTrailSetting(kHash);
    show();
    const MessageBoxes boxes;
    const auto again = [](QDialog &dialog) {
        connectAs(SiteConnection::userOf(dialog), SiteConnection::passwordOf(dialog))(dialog);
    };
    ConnectionDialogs dialogs({connectAs(kAccount, kPassword), again, again});
    pressOnline();
    QCOMPARE(boxes.seen().last().title, QStringLiteral("Setting read"));
    QCOMPARE(online()->checkState(), Qt::Checked);

    pressOnline();
    QCOMPARE(boxes.seen().last().title, kAccepted);
    QCOMPARE(online()->checkState(), Qt::Unchecked);
    QCOMPARE(safe("actionlog/audittrailsettinghash"), QVariant(kHash));
    QVERIFY(!store()->isAuditTrailSettingEnabled(kHash));

    pressOnline();
    QCOMPARE(boxes.seen().last().title, kAccepted);
    QCOMPARE(online()->checkState(), Qt::Checked);
    QVERIFY(store()->isAuditTrailSettingEnabled(kHash));
    QCOMPARE(boxes.seen().size(), 3);
}

void TestAuditSettingServers::aWrongPasswordIsNotAccepted()
{
    show();
    const MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs(kAccount, "another-secret")});
    pressOnline();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, kNotAccepted);
    QCOMPARE(online()->checkState(), Qt::PartiallyChecked);
    QVERIFY(!readFile(m_workstation.runtimeLog()).contains("another-secret"));
    QVERIFY(!readFile(cacheFile()).contains("another-secret"));
}

void TestAuditSettingServers::anAccountThatMayNotReadTheHashIsNotAccepted()
{
    QVERIFY2(m_server->run(kDatabase, "REVOKE SELECT ON hash FROM corvane_console;"),
             qPrintable(m_server->errorText()));
    show();
    const MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs(kAccount, kPassword)});
    pressOnline();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, kNotAccepted);
    QCOMPARE(online()->checkState(), Qt::PartiallyChecked);
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
}

void TestAuditSettingServers::aServerThatIsGoneIsNotAcceptedAndTheNextPressReads()
{
    const auto wire = useWire();
    wire->cut();
    show();
    const MessageBoxes boxes;
    const auto connect = connectAs(kAccount, kPassword);
    ConnectionDialogs dialogs({connect, connect});
    pressOnline();
    QCOMPARE(boxes.seen().last().title, kNotAccepted);
    QCOMPARE(online()->checkState(), Qt::PartiallyChecked);
    wire->mend();
    pressOnline();
    QCOMPARE(boxes.seen().last().title, QStringLiteral("Setting read"));
    QCOMPARE(online()->checkState(), Qt::Unchecked);
}

void TestAuditSettingServers::aServerThatNeverAnswersIsGivenUpInTime()
{
    const auto wire = useWire();
    wire->hold();
    show();
    const MessageBoxes boxes;
    ConnectionDialogs dialogs({connectAs(kAccount, kPassword)});
    QElapsedTimer time;
    time.start();
    pressOnline();
    QVERIFY2(time.elapsed() < kPatience, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(boxes.seen().last().title, kNotAccepted);
    QCOMPARE(online()->checkState(), Qt::PartiallyChecked);
}

QTEST_MAIN(TestAuditSettingServers)
#include "test_auditsettingservers.moc"
