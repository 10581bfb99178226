#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/access/passwordhelper.h"
#include "Corvane/accesscontrol/accesscontroloffline.h"
#include "Corvane/views/loginview.h"
#include "servers/serverfixture.h"
#include "support/userinput.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTcpServer>

namespace {

const QString kFirstOperator = QStringLiteral("ensimmainen");
const QString kFirstPassword = QStringLiteral("kolme sanaa");

}  // namespace

/// The way to the access database on real servers: scripts, accounts, connections and refusals.
class TestAccessServers : public ServerFixture
{
    Q_OBJECT

private slots:
    void theScriptsCompleteWhatIsMissingAndKeepTheRest_data();
    void theScriptsCompleteWhatIsMissingAndKeepTheRest();
    void theTablesHaveTheColumnsOfTheOfflineFile_data();
    void theTablesHaveTheColumnsOfTheOfflineFile();
    void theConsoleConnects_data();
    void theConsoleConnects();
    void theGuideLeadsFromAnEmptyServerToAnOperatorWhoSignsIn_data();
    void theGuideLeadsFromAnEmptyServerToAnOperatorWhoSignsIn();
    void refusals_data();
    void refusals();
    void eachAccountMayDoWhatItNeedsAndNoMore_data();
    void eachAccountMayDoWhatItNeedsAndNoMore();

private:
    static QStringList commandsOf(const QString &chapter);
    bool saveFirstOperator();
};

void TestAccessServers::theScriptsCompleteWhatIsMissingAndKeepTheRest_data()
{
    addServers();
}

void TestAccessServers::theScriptsCompleteWhatIsMissingAndKeepTheRest()
{
    QVERIFY(connectAs(kConsole, kPassword));
    const QStringList hash = column(text("SELECT hash FROM hash"));
    QCOMPARE(hash.value(0).size(), 64);
    QCOMPARE(column(text("SELECT title FROM roles WHERE deleted = 0 ORDER BY role_id")),
             (QStringList{text("Nurse"), text("Doctor"), text("Admin")}));
    QCOMPARE(column(text("SELECT actions FROM roles ORDER BY role_id")),
             (QStringList{text("3633152"), text("331776"), text("4190263")}));
    QVERIFY(isUnderstood(text("UPDATE roles SET title = ? WHERE title = ?"),
                         {text("Sairaanhoitaja"), text("Nurse")}));

    for (const QString &script :
         {text("access"), text("action_log"), text("configurations"), text("grants")}) {
        if (m_kind != DatabaseServer::Sqlite || script != text("grants"))
            QVERIFY2(server().runScript(kDatabase, script), qPrintable(server().errorText()));
    }
    QVERIFY(connectAs(kConsole, kPassword));
    QCOMPARE(column(text("SELECT hash FROM hash")), hash);
    QCOMPARE(column(text("SELECT title FROM roles ORDER BY role_id")),
             (QStringList{text("Sairaanhoitaja"), text("Doctor"), text("Admin")}));
}

void TestAccessServers::theTablesHaveTheColumnsOfTheOfflineFile_data()
{
    addServers();
}

void TestAccessServers::theTablesHaveTheColumnsOfTheOfflineFile()
{
    QVERIFY(connectAs(kConsole, kPassword));
    AccessControlOffline offline(text("columns"), nullptr);
    QString error;
    QVERIFY2(offline.openOfflineDatabase(m_workstation.path(text("columns")), error), qPrintable(error));
    for (const QString &table : AccessControlOffline::offlineTableStatements().keys()) {
        const auto names = [&table](const QSqlDatabase &database) {
            QSqlQuery query(QStringLiteral("SELECT * FROM %1").arg(table), database);
            QSet<QString> set;
            for (int i = 0; i < query.record().count(); ++i)
                set.insert(query.record().fieldName(i));
            return set;
        };
        QVERIFY(!names(database()).isEmpty());
        QCOMPARE(names(database()), names(offline.database()));
    }
}

void TestAccessServers::theConsoleConnects_data()
{
    addServers();
}

void TestAccessServers::theConsoleConnects()
{
    QElapsedTimer time;
    time.start();
    QVERIFY2(connectAs(kConsole, kPassword), qPrintable(errorText()));
    QVERIFY(time.elapsed() < kPatience);
    QCOMPARE(database().databaseName(), OdbcConnection::databaseName(server().parameters(kDatabase)));
    QVERIFY(m_handler->connectOnline());
    QVERIFY(m_errors->isEmpty());
}

void TestAccessServers::theGuideLeadsFromAnEmptyServerToAnOperatorWhoSignsIn_data()
{
    QTest::addColumn<DatabaseServer::Kind>("server");
    QTest::addColumn<QString>("chapter");
    QTest::addColumn<QString>("removal");

    QTest::newRow("MariaDB") << DatabaseServer::MariaDb << text("## MariaDB and MySQL\n")
                             << text("DROP DATABASE %1; DROP USER IF EXISTS console, application, auditor; "
                                     "DROP ROLE corvane_console, corvane_application, corvane_auditor;");
    QTest::newRow("PostgreSQL") << DatabaseServer::PostgreSql << text("## PostgreSQL\n")
                                << text("DROP DATABASE %1 WITH (FORCE);\n"
                                        "DROP ROLE IF EXISTS console, application, auditor;"
                                        "DROP ROLE corvane_console, corvane_application, corvane_auditor;");
    QTest::newRow("SQLite") << DatabaseServer::Sqlite << text("## SQLite\n") << QString();
}

/// Runs the commands of the administrators' guide as they stand there, from an empty server on, and follows
/// its steps up to the sign-in of the first operator.
void TestAccessServers::theGuideLeadsFromAnEmptyServerToAnOperatorWhoSignsIn()
{
    QFETCH(QString, chapter);
    QFETCH(QString, removal);
    const bool isFile = m_kind == DatabaseServer::Sqlite;
    const QString maintenance = m_kind == DatabaseServer::PostgreSql ? text("postgres") : QString();
    if (!isFile) {
        m_prepared.remove(m_kind);
        QVERIFY2(server().run(maintenance, removal.arg(kDatabase)), qPrintable(server().errorText()));
    }
    // Beside the sources, where nothing of theirs is changed.
    const QString folder = m_workstation.path(text("guide"));
    const QString prologue =
        QStringLiteral("mkdir -p '%1'; ln -sfn \"$PWD/resources\" '%1/resources'; cd '%1'\n").arg(folder);
    const QStringList blocks = commandsOf(chapter);
    QCOMPARE(blocks.size(), isFile ? 1 : 2);
    for (const QString &block : blocks)
        QVERIFY2(server().runShell(prologue + block), qPrintable(server().errorText()));

    QVariantMap params = server().parameters(kDatabase);
    if (isFile)
        params.insert(text("Database"), folder + text("/corvane.db"));
    const QString account = isFile ? QString() : text("console");
    const QString password = isFile ? QString() : text("a password for the console");
    QVERIFY2(connectAs(account, password, params), qPrintable(errorText()));
    QVERIFY(saveFirstOperator());

    QVERIFY2(connectAs(account, password, params), qPrintable(errorText()));
    LoginView view(m_handler.get(), nullptr);
    QSignalSpy loggedIn(&view, SIGNAL(loggedIn(AccessControl *)));
    view.show();
    chooseEntry(view.findChild<QComboBox *>(text("authenticated_user_combo")), 1);
    QTest::keyClicks(view.findChild<QLineEdit *>(text("username_edit")), kFirstOperator);
    QTest::keyClicks(view.findChild<QLineEdit *>(text("password_edit")), kFirstPassword);
    QTest::mouseClick(view.findChild<QPushButton *>(text("sign_in_button")), Qt::LeftButton);
    QTRY_COMPARE(loggedIn.size(), 1);
    const auto *access = view.findChild<AccessControl *>();
    QCOMPARE(access->getOperator()->username(), kFirstOperator);
    QCOMPARE(int(access->allowedAccessTypes()), 0x3ff037);
}

/// The shell commands of a chapter of the guide, one text a block.
QStringList TestAccessServers::commandsOf(const QString &chapter)
{
    const QString guide = QString::fromUtf8(readFile(text(CORVANE_GUIDE)));
    const QString section = guide.section(chapter, 1).section(text("\n## "), 0, 0);
    QStringList blocks;
    for (const QString &part : section.split(text("```"))) {
        if (part.startsWith(text("sh\n")))
            blocks.append(part.mid(3));
    }
    return blocks;
}

/// An internal user with the role Admin, as the console keeps it.
bool TestAccessServers::saveFirstOperator()
{
    const auto admin = m_handler->getRoleByTitle(text("Admin"));
    const QString salt = PasswordHelper::generateSalt(PasswordHelper::SaltLength);
    const auto first = OperatorModel::create(
        UuidString(idOf(1)), QString(), kFirstOperator, QList<uint>{admin ? admin->roleID() : 0},
        QStringList(), text("Ensi"), QString(), text("Käyttäjä"), MappedStrings(), MappedStrings(),
        PasswordHelper::hashPassword(kFirstPassword, salt), salt, OperatorModelData::InternalUser);
    return admin && m_handler->saveOperator(first);
}

void TestAccessServers::refusals_data()
{
    QTest::addColumn<DatabaseServer::Kind>("server");
    QTest::addColumn<QString>("account");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QVariantMap>("changes");

    for (const auto kind : {DatabaseServer::MariaDb, DatabaseServer::PostgreSql}) {
        const char *const name = kind == DatabaseServer::MariaDb ? "MariaDB" : "PostgreSQL";
        const auto row = [name](const char *what) {
            return QByteArray(name) + ": " + what;
        };
        QTest::newRow(row("a wrong password").constData())
            << kind << kConsole << text("wrong") << QVariantMap{};
        QTest::newRow(row("no password").constData()) << kind << kConsole << QString() << QVariantMap{};
        QTest::newRow(row("an unknown account").constData())
            << kind << text("tuntematon") << kPassword << QVariantMap{};
        QTest::newRow(row("an account that sees no access table").constData())
            << kind << kAuditor << kPassword << QVariantMap{};
        QTest::newRow(row("a database without the tables").constData())
            << kind << QString() << QString() << QVariantMap{{text("Database"), kEmptyDatabase}};
        QTest::newRow(row("a database that is not there").constData())
            << kind << QString() << QString() << QVariantMap{{text("Database"), text("nowhere")}};
        QTest::newRow(row("a port where nobody listens").constData())
            << kind << kConsole << kPassword << QVariantMap{{text("Port"), text("1")}};
        QTest::newRow(row("a server that accepts and never answers").constData())
            << kind << kConsole << kPassword << QVariantMap{{text("Port"), text("silent")}};
        QTest::newRow(row("a host of no known name").constData())
            << kind << kConsole << kPassword << QVariantMap{{text("Server"), text("no-such-host.invalid")}};
    }
    const auto sqlite = DatabaseServer::Sqlite;
    QTest::newRow("SQLite: a database without the tables")
        << sqlite << QString() << QString() << QVariantMap{{text("Database"), text("empty")}};
    QTest::newRow("SQLite: a folder that is not there")
        << sqlite << QString() << QString() << QVariantMap{{text("Database"), text("/nowhere/corvane.db")}};
    QTest::newRow("a driver that is not there")
        << sqlite << QString() << QString() << QVariantMap{{text("Driver"), text("No such driver")}};
}

void TestAccessServers::refusals()
{
    QFETCH(QString, account);
    QFETCH(QString, password);
    QFETCH(QVariantMap, changes);
    if (account.isEmpty() && m_kind != DatabaseServer::Sqlite) {
        account = server().admin();
        password = server().adminPassword();
    }
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    QVariantMap params = server().parameters(kDatabase);
    for (auto it = changes.begin(); it != changes.end(); ++it) {
        const bool isSilent = it.value() == QVariant(text("silent"));
        params.insert(it.key(), isSilent ? QVariant(QString::number(silent.serverPort())) : it.value());
    }
    if (params.value(text("Database")) == QVariant(text("empty")))
        params.insert(text("Database"), m_workstation.path(text("empty.db")));

    QElapsedTimer time;
    time.start();
    QVERIFY(!connectAs(account, password, params));
    QVERIFY2(time.elapsed() < kPatience, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(m_errors->size(), 2);
    QVERIFY2(errorText().startsWith(
                 QStringLiteral("Database: %1 ErrorInfo: ").arg(OdbcConnection::databaseName(params))),
             qPrintable(errorText()));
    QVERIFY2(!errorText().contains(kPassword), qPrintable(errorText()));

    QVERIFY2(connectAs(kConsole, kPassword), "Afterwards the right parameters connect");
}

void TestAccessServers::eachAccountMayDoWhatItNeedsAndNoMore_data()
{
    addServersProper();
}

void TestAccessServers::eachAccountMayDoWhatItNeedsAndNoMore()
{
    struct Attempt
    {
        const char *statement;
        bool console;
        bool application;
        bool auditor;
    };
    constexpr Attempt attempts[] = {
        {"SELECT username, password, salt FROM operator", true, true, false},
        {"INSERT INTO operator (operator_id, deleted, operator_type) VALUES ('least', 1, 1)", true, false,
         false},
        {"UPDATE operator SET deleted = 1 WHERE operator_id = '-'", true, false, false},
        {"DELETE FROM operator WHERE operator_id = '-'", false, false, false},
        {"SELECT role_id FROM operator_roles", true, true, false},
        {"INSERT INTO operator_roles (operator_id, role_id) VALUES ('least', 1)", true, false, false},
        {"UPDATE operator_roles SET role_id = 2 WHERE operator_id = '-'", false, false, false},
        {"DELETE FROM operator_roles WHERE operator_id = '-'", true, false, false},
        {"SELECT title FROM roles", true, true, false},
        {"INSERT INTO roles (title, actions, deleted) VALUES ('-', 0, 1)", true, false, false},
        {"DELETE FROM roles WHERE title = '-'", false, false, false},
        {"SELECT name FROM organization", true, true, false},
        {"INSERT INTO organization (id, name, deleted) VALUES ('least', 'least', 1)", true, false, false},
        {"UPDATE organization SET deleted = 1 WHERE id = '-'", true, false, false},
        {"DELETE FROM organization WHERE id = '-'", false, false, false},
        {"SELECT name FROM department", true, true, false},
        {"INSERT INTO department (id, name, deleted) VALUES ('least', 'least', 1)", true, false, false},
        {"UPDATE department SET deleted = 1 WHERE id = '-'", true, false, false},
        {"DELETE FROM department WHERE id = '-'", false, false, false},
        {"SELECT image FROM configurations", true, true, false},
        {"INSERT INTO configurations (notes, created, creator, inform_users, checksum, image) "
         "VALUES ('', '', '', 0, '', '')",
         true, false, false},
        {"UPDATE configurations SET active = NULL", true, false, false},
        {"DELETE FROM configurations", true, false, false},
        {"SELECT info FROM action_log", true, false, true},
        {"INSERT INTO action_log VALUES ('2026-01-01 00:00:00', 1, 1, 1, 1, '', '', '', '', '', '', '')",
         true, true, false},
        {"UPDATE action_log SET info = ''", false, false, false},
        {"DELETE FROM action_log", false, false, false},
        {"SELECT hash FROM hash", true, true, true},
        {"UPDATE hash SET hash = ''", false, false, false},
        {"CREATE TABLE mine (id INTEGER)", false, false, false},
        {"DROP TABLE roles", false, false, false},
    };
    const QList<QPair<QString, bool Attempt::*>> accounts{
        {kConsole, &Attempt::console}, {kApplication, &Attempt::application}, {kAuditor, &Attempt::auditor}};
    for (const auto &account : accounts) {
        {
            QSqlDatabase connection = QSqlDatabase::addDatabase(text("QODBC3"), text("grants"));
            connection.setDatabaseName(OdbcConnection::databaseName(server().parameters(kDatabase)));
            QVERIFY(OdbcConnection::open(connection, OdbcConnection::defaultConnectOptions(), account.first,
                                         kPassword));
            for (const Attempt &attempt : attempts) {
                QSqlQuery query(connection);
                const bool done = query.exec(QLatin1String(attempt.statement));
                QVERIFY2(done == attempt.*account.second,
                         qPrintable(account.first + text(": ") + QLatin1String(attempt.statement) +
                                    text(" ") + query.lastError().text()));
            }
        }
        QSqlDatabase::removeDatabase(text("grants"));
    }
}

QTEST_MAIN(TestAccessServers)
#include "test_accessservers.moc"
