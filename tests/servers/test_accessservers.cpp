#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/access/accessmethodsystem.h"
#include "CommunicationAndData/access/passwordhelper.h"
#include "CommunicationAndData/actionlog/communicationanddataengine.h"
#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/accesscontroloffline.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/views/audittrailquerystring.h"
#include "support/databaseserver.h"
#include "support/messageboxes.h"
#include "support/qtwarnings.h"
#include "support/workstation.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QSettings>
#include <QSignalSpy>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTcpServer>
#include <QTest>
#include <QThread>
#include <QTimer>

Q_DECLARE_METATYPE(DatabaseServer::Kind)

namespace {

const QString kDatabase = QStringLiteral("corvane");
const QString kEmptyDatabase = QStringLiteral("corvane_empty");
const QString kConsole = QStringLiteral("konsoli");
const QString kApplication = QStringLiteral("sovellus");
const QString kAuditor = QStringLiteral("tarkastaja");
/// Everything that means something in a connection text.
const QString kPassword = QString::fromUtf8("a;b=c}d {e\"f'g]h");

constexpr int kPatience = 4000;  // milliseconds; the default options allow two seconds

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// What the store writes of an operator.
bool insertRow(const QSqlDatabase &database, const QString &table, const QVariantMap &values)
{
    QStringList marks;
    for (int i = 0; i < values.size(); ++i)
        marks.append(QStringLiteral("?"));
    QSqlQuery query(database);
    query.prepare(
        QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(table, QStringList(values.keys()).join(QLatin1Char(',')), marks.join(QLatin1String(", "))));
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        qWarning("%s", qPrintable(query.lastError().text()));
    return query.isActive();
}

QVariantMap operatorRow(const QString &id, const QString &username, uint type, const QString &password = {})
{
    const QString salt = password.isEmpty() ? QString() : PasswordHelper::generateSalt(16);
    return {{text("operator_id"), UuidString(id).toString()},
            {text("username"), username},
            {text("first_name"), text("Yrjö")},
            {text("last_name"), text("Äkäslompolo")},
            {text("middle_name"), text("")},
            {text("organization_id"), QVariant(QVariant::String)},
            {text("department_id"), QVariant(QVariant::String)},
            {text("user_id"), text("")},
            {text("password"), password.isEmpty() ? text("") : PasswordHelper::hashPassword(password, salt)},
            {text("salt"), salt.isEmpty() ? text("") : salt},
            {text("date_updated"), text("2026-02-28 23:59:59")},
            {text("deleted"), 0},
            {text("operator_type"), type}};
}

QString idOf(int number)
{
    return QStringLiteral("%1").arg(number, UuidString::Length, 10, QLatin1Char('0'));
}

}  // namespace

/// The access database on real servers, through ODBC, with the accounts that the scripts provide for.
class TestAccessServers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void theScriptsCompleteWhatIsMissingAndKeepTheRest_data();
    void theScriptsCompleteWhatIsMissingAndKeepTheRest();
    void theTablesHaveTheColumnsOfTheOfflineFile_data();
    void theTablesHaveTheColumnsOfTheOfflineFile();
    void theConsoleConnects_data();
    void theConsoleConnects();
    void theGuideLeadsToAConnectedConsole_data();
    void theGuideLeadsToAConnectedConsole();
    void refusals_data();
    void refusals();
    void eachAccountMayDoWhatItNeedsAndNoMore_data();
    void eachAccountMayDoWhatItNeedsAndNoMore();
    void namesComeBackAsTheyWere_data();
    void namesComeBackAsTheyWere();
    void statementsOfTheStoreAreUnderstood_data();
    void statementsOfTheStoreAreUnderstood();
    void aConnectionLostInAStatementIsFoundAndMadeAgain_data();
    void aConnectionLostInAStatementIsFoundAndMadeAgain();
    void aConnectionLostInATransactionIsFoundAndMadeAgain_data();
    void aConnectionLostInATransactionIsFoundAndMadeAgain();
    void anInternalUserSignsIn_data();
    void anInternalUserSignsIn();
    void aGroupAndAUserOfTheSystemSignIn_data();
    void aGroupAndAUserOfTheSystemSignIn();
    void theAuditTrailIsWrittenAndFiltered_data();
    void theAuditTrailIsWrittenAndFiltered();

private:
    void addServers() const;
    void addServersProper() const;
    bool prepare();
    DatabaseServer &server()
    {
        return *m_servers.at(m_kind);
    }
    bool connectAs(const QString &account, const QString &password, const QVariantMap &params = {});
    QString errorText() const
    {
        return m_errors && !m_errors->isEmpty() ? m_errors->first().at(2).toString() : QString();
    }
    QSqlDatabase &database()
    {
        return *m_handler->database();
    }
    QStringList column(const QString &statement, const QVariantList &values = {});
    bool isUnderstood(const QString &statement, const QVariantList &values);
    uint signIn(const QString &method, const QString &user, const QString &password, int &rights);
    QString roleId(const QString &title);

    Workstation m_workstation;
    std::vector<std::unique_ptr<DatabaseServer>> m_servers;
    DatabaseServer::Kind m_kind = DatabaseServer::Sqlite;
    QSet<int> m_prepared;
    std::unique_ptr<QtWarnings> m_warnings;
    std::unique_ptr<SupportConnectionHandler> m_handler;
    std::unique_ptr<QSignalSpy> m_errors;
};

void TestAccessServers::initTestCase()
{
    qRegisterMetaType<ZephanError>("ZephanError");
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation.dataDirectory() + text("corvane.ini"));
    for (const auto kind : {DatabaseServer::MariaDb, DatabaseServer::PostgreSql, DatabaseServer::Sqlite})
        m_servers.push_back(std::make_unique<DatabaseServer>(kind));
}

/// Every test is run on each server; its databases and accounts are made when the first test needs them.
void TestAccessServers::init()
{
    m_warnings = std::make_unique<QtWarnings>();
    if (!QTest::currentDataTag())
        return;
    m_kind =
        *static_cast<DatabaseServer::Kind *>(QTest::qData("server", qMetaTypeId<DatabaseServer::Kind>()));
    if (!server().missing().isEmpty())
        QSKIP(qPrintable(server().missing()));
    QVERIFY2(prepare(), qPrintable(server().errorText()));
}

void TestAccessServers::cleanup()
{
    m_errors.reset();
    m_handler.reset();
    QFile::remove(m_workstation.dataDirectory() + text("local_cache"));
    for (const QString &warning : m_warnings->seen())
        QVERIFY2(!warning.startsWith(text("QSqlDatabase")), qPrintable(warning));
}

void TestAccessServers::addServers() const
{
    QTest::addColumn<DatabaseServer::Kind>("server");
    QTest::newRow("MariaDB") << DatabaseServer::MariaDb;
    QTest::newRow("PostgreSQL") << DatabaseServer::PostgreSql;
    QTest::newRow("SQLite") << DatabaseServer::Sqlite;
}

/// An SQLite file has no accounts, and no connection that could be lost.
void TestAccessServers::addServersProper() const
{
    QTest::addColumn<DatabaseServer::Kind>("server");
    QTest::newRow("MariaDB") << DatabaseServer::MariaDb;
    QTest::newRow("PostgreSQL") << DatabaseServer::PostgreSql;
}

bool TestAccessServers::prepare()
{
    if (m_prepared.contains(m_kind))
        return true;
    QStringList scripts{text("access"), text("action_log"), text("configurations")};
    if (m_kind != DatabaseServer::Sqlite)
        scripts.append(text("grants"));
    const bool made = server().makeDatabase(kDatabase, scripts) &&
                      server().makeDatabase(kEmptyDatabase, {}) &&
                      server().makeAccount(kDatabase, kConsole, kPassword, text("corvane_console")) &&
                      server().makeAccount(kDatabase, kApplication, kPassword, text("corvane_application")) &&
                      server().makeAccount(kDatabase, kAuditor, kPassword, text("corvane_auditor"));
    if (made)
        m_prepared.insert(m_kind);
    return made;
}

/// Starts the program's handler with the parameters of a former run and signs in by its options dialog.
bool TestAccessServers::connectAs(const QString &account, const QString &password, const QVariantMap &params)
{
    m_handler.reset();
    {
        const auto cache = openSettingsFile(m_workstation.dataDirectory() + text("local_cache"));
        cache->beginGroup(text("supportdb_online"));
        OdbcConnection::writeParameters(*cache, params.isEmpty() ? server().parameters(kDatabase) : params);
        cache->setValue(text("connectoptions"), OdbcConnection::defaultConnectOptions());
    }
    m_handler = std::make_unique<SupportConnectionHandler>(m_workstation.dataDirectory(), nullptr);
    m_errors = std::make_unique<QSignalSpy>(m_handler.get(),
                                            SIGNAL(logError(Actions::Action, ZephanError, QVariant)));
    QTimer timer;
    connect(&timer, &QTimer::timeout, m_handler.get(), [&] {
        if (QApplication::activeModalWidget() != m_handler.get() || !m_handler->isVisible())
            return;
        timer.stop();
        m_handler->findChild<QLineEdit *>(text("username_edit"))->setText(account);
        m_handler->findChild<QLineEdit *>(text("password_edit"))->setText(password);
        QTest::mouseClick(m_handler->findChild<QPushButton *>(text("connect_button")), Qt::LeftButton);
    });
    timer.start(10);
    MessageBoxes boxes;
    m_handler->connectionOptions();
    return m_handler->isConnected();
}

/// The first column of a query's rows; the error's text alone when it fails.
QStringList TestAccessServers::column(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        return {query.lastError().text()};
    QStringList list;
    while (query.next())
        list.append(query.value(0).toString());
    return list;
}

bool TestAccessServers::isUnderstood(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(database());
    query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        qWarning("%s", qPrintable(query.lastError().text()));
    return query.isActive();
}

QString TestAccessServers::roleId(const QString &title)
{
    return column(text("SELECT role_id FROM roles WHERE title = ?"), {title}).value(0);
}

/// Signs in and waits for the answer.
uint TestAccessServers::signIn(const QString &method, const QString &user, const QString &password,
                               int &rights)
{
    AccessControl access(nullptr, method, m_handler->database(), SqlStorage::UnknownType);
    QSignalSpy results(&access, SIGNAL(loginResult(uint, QVariant, QString)));
    access.login(user, password);
    if (results.isEmpty() && !results.wait())
        return 1;
    rights = access.allowedAccessTypes();
    return results.first().first().toUInt();
}

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

void TestAccessServers::theGuideLeadsToAConnectedConsole_data()
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
}

/// Runs the commands of the administrators' guide as they stand there, from an empty server on.
void TestAccessServers::theGuideLeadsToAConnectedConsole()
{
    QFETCH(QString, chapter);
    QFETCH(QString, removal);
    m_prepared.remove(m_kind);
    const QString maintenance = m_kind == DatabaseServer::PostgreSql ? text("postgres") : QString();
    QVERIFY2(server().run(maintenance, removal.arg(kDatabase)), qPrintable(server().errorText()));

    const QString guide = QString::fromUtf8(readFile(text(CORVANE_GUIDE)));
    const QString section = guide.section(chapter, 1).section(text("\n## "), 0, 0);
    const QStringList parts = section.split(text("```"));
    int blocks = 0;
    for (const QString &part : parts) {
        if (!part.startsWith(text("sh\n")))
            continue;
        ++blocks;
        QVERIFY2(server().runShell(part.mid(3)), qPrintable(server().errorText()));
    }
    QCOMPARE(blocks, 2);
    QVERIFY2(connectAs(text("console"), text("a password for the console")), qPrintable(errorText()));
    QCOMPARE(column(text("SELECT title FROM roles WHERE title = 'Admin'")), QStringList{text("Admin")});
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
            return qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(name), QLatin1String(what)));
        };
        QTest::newRow(row("a wrong password")) << kind << kConsole << text("wrong") << QVariantMap{};
        QTest::newRow(row("no password")) << kind << kConsole << QString() << QVariantMap{};
        QTest::newRow(row("an unknown account")) << kind << text("tuntematon") << kPassword << QVariantMap{};
        QTest::newRow(row("an account that sees no access table"))
            << kind << kAuditor << kPassword << QVariantMap{};
        QTest::newRow(row("a database without the tables"))
            << kind << QString() << QString() << QVariantMap{{text("Database"), kEmptyDatabase}};
        QTest::newRow(row("a database that is not there"))
            << kind << QString() << QString() << QVariantMap{{text("Database"), text("nowhere")}};
        QTest::newRow(row("a port where nobody listens"))
            << kind << kConsole << kPassword << QVariantMap{{text("Port"), text("1")}};
        QTest::newRow(row("a server that accepts and never answers"))
            << kind << kConsole << kPassword << QVariantMap{{text("Port"), text("silent")}};
        QTest::newRow(row("a host of no known name"))
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
        {"UPDATE operator SET deleted = 1 WHERE operator_id = '-'", true, false, false},
        {"DELETE FROM operator WHERE operator_id = '-'", false, false, false},
        {"SELECT role_id FROM operator_roles", true, true, false},
        {"DELETE FROM operator_roles WHERE operator_id = '-'", true, false, false},
        {"SELECT title FROM roles", true, true, false},
        {"INSERT INTO roles (title, actions, deleted) VALUES ('-', 0, 1)", true, false, false},
        {"DELETE FROM roles WHERE title = '-'", false, false, false},
        {"SELECT name FROM organization", true, true, false},
        {"UPDATE organization SET deleted = 1 WHERE id = '-'", true, false, false},
        {"SELECT name FROM department", true, true, false},
        {"UPDATE department SET deleted = 1 WHERE id = '-'", true, false, false},
        {"SELECT image FROM configurations", true, true, false},
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

void TestAccessServers::namesComeBackAsTheyWere_data()
{
    QTest::addColumn<DatabaseServer::Kind>("server");
    QTest::addColumn<QString>("name");
    const QList<QPair<const char *, QString>> names{
        {"Finnish", text("Äyräväinen-Ångström Öljymäki")},
        {"Greek", text("Παπαδόπουλος Άγγελος")},
        {"Thai", text("สมชาย ใจดี")},
        {"Chinese", text("欧阳 娜娜")},
        {"beyond the first plane", text("𠮷野家 🫁")},
        {"quotes", text("O'Brien \"Bob\" `x` \\ %s ? :a")},
        {"an injection", text("x'; DROP TABLE roles; --")},
        {"255 characters", QString(255, QChar(0x00e4))},
        {"255 characters of three bytes", QString(255, QChar(0x6b27))},
        {"a domain and a user", text("PÄÄMAA\\YRJÖ")},
        {"blanks inside", text("a  b")}};
    const QList<QPair<const char *, DatabaseServer::Kind>> kinds{{"MariaDB", DatabaseServer::MariaDb},
                                                                 {"PostgreSQL", DatabaseServer::PostgreSql},
                                                                 {"SQLite", DatabaseServer::Sqlite}};
    for (const auto &kind : kinds) {
        for (const auto &name : names) {
            QTest::newRow(qPrintable(text(kind.first) + text(": ") + text(name.first)))
                << kind.second << name.second;
        }
    }
}

void TestAccessServers::namesComeBackAsTheyWere()
{
    QFETCH(QString, name);
    QVERIFY(connectAs(kConsole, kPassword));
    const QString id = UuidString(idOf(qHash(name) % 1000000)).toString();
    QVERIFY(insertRow(database(), text("operator"), operatorRow(id, name, 1)));
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(column(text("SELECT username FROM operator WHERE operator_id = ?"), {id}), QStringList{name});
    QCOMPARE(column(text("SELECT operator_id FROM operator WHERE deleted = 0 AND username = ?"), {name}),
             QStringList{id});
    QCOMPARE(column(text("SELECT username FROM operator WHERE username = ?"), {name.toUpper()}),
             name.toUpper() == name ? QStringList{name} : QStringList());

    const QString freed = name + text("_deleted2147483647");
    QVERIFY(isUnderstood(text("UPDATE operator SET deleted = ?, username = ? WHERE operator_id = ?"),
                         {1, freed, id}));
    QCOMPARE(column(text("SELECT username FROM operator WHERE operator_id = ?"), {id}), QStringList{freed});

    const QString title = name.left(50);
    QVERIFY(insertRow(database(), text("organization"),
                      {{text("id"), id}, {text("name"), title}, {text("deleted"), 0}}));
    QCOMPARE(column(text("SELECT name FROM organization WHERE id = ?"), {id}), QStringList{title});
}

void TestAccessServers::statementsOfTheStoreAreUnderstood_data()
{
    addServers();
}

void TestAccessServers::statementsOfTheStoreAreUnderstood()
{
    QVERIFY(connectAs(kConsole, kPassword));
    const QString id = UuidString(idOf(7)).toString();
    QVERIFY(insertRow(database(), text("operator"), operatorRow(id, text("statements"), 1)));
    QVERIFY(isUnderstood(
        text("UPDATE operator SET date_created = ?, date_updated = ?, organization_id = ? "
             "WHERE operator_id = ?"),
        {text("2026-01-31 00:00:00"), text("2026-02-01 12:30:00"), QVariant(QVariant::String), id}));
    QVERIFY(m_handler->beginTransaction());
    QVERIFY(insertRow(database(), text("operator_roles"),
                      {{text("operator_id"), id}, {text("role_id"), roleId(text("Admin")).toUInt()}}));
    QVERIFY(m_handler->commitTransaction());
    QCOMPARE(column(text("SELECT title FROM operator_roles INNER JOIN roles on roles.role_id = "
                         "operator_roles.role_id WHERE operator_id ='%1'")
                        .arg(id)),
             QStringList{text("Admin")});
    QVERIFY(m_handler->beginTransaction());
    QVERIFY(isUnderstood(text("DELETE from operator_roles WHERE operator_id = ? AND role_id = ?"),
                         {id, roleId(text("Admin")).toUInt()}));
    QVERIFY(m_handler->rollbackTransaction());
    QCOMPARE(column(text("SELECT role_id from operator_roles WHERE operator_id = ?"), {id}),
             QStringList{roleId(text("Admin"))});
    QVERIFY(insertRow(database(), text("roles"),
                      {{text("title"), text("Fysiologi")}, {text("actions"), 0x1000}, {text("deleted"), 0}}));
    QVERIFY(roleId(text("Fysiologi")).toUInt() > 0);
    const QString unit = UuidString(idOf(8)).toString();
    QVERIFY(insertRow(database(), text("department"),
                      {{text("id"), unit},
                       {text("name"), text("Keuhkot")},
                       {text("address"), text("")},
                       {text("deleted"), 0}}));
    QCOMPARE(column(text("SELECT 1 FROM department WHERE id = ?"), {unit}), QStringList{text("1")});
    QVERIFY(isUnderstood(text("UPDATE department SET address = ?, deleted = ?, name = ? WHERE id = ?"),
                         {text("Kuja 1"), 1, text("_deleted123"), unit}));
    QCOMPARE(column(text("SELECT name FROM department WHERE deleted = 0")), QStringList());
}

void TestAccessServers::aConnectionLostInAStatementIsFoundAndMadeAgain_data()
{
    addServersProper();
}

void TestAccessServers::aConnectionLostInAStatementIsFoundAndMadeAgain()
{
    QVERIFY(connectAs(kConsole, kPassword));
    DatabaseServer &ender = server();
    const std::unique_ptr<QThread> thread(QThread::create([&ender] {
        QThread::msleep(500);
        DatabaseServer(ender.kind()).endConnections(kConsole);
    }));
    thread->start();
    QElapsedTimer time;
    time.start();
    QString cause;
    {
        QSqlQuery query(database());
        QVERIFY(!query.exec(m_kind == DatabaseServer::MariaDb ? text("SELECT SLEEP(20)")
                                                              : text("SELECT pg_sleep(20)")));
        cause = query.lastError().text();
    }
    QVERIFY(thread->wait());
    QVERIFY(!cause.isEmpty());
    QVERIFY(time.elapsed() < 10000);

    emit m_handler->logError(Actions::GetOperator, ZephanErrors::kStatementFailed,
                             text("Operator from access.supportdb :") + cause);
    QVERIFY(!m_handler->isConnected());
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(column(text("SELECT title FROM roles WHERE title = 'Admin'")), QStringList{text("Admin")});
}

void TestAccessServers::aConnectionLostInATransactionIsFoundAndMadeAgain_data()
{
    addServersProper();
}

void TestAccessServers::aConnectionLostInATransactionIsFoundAndMadeAgain()
{
    QVERIFY(connectAs(kConsole, kPassword));
    const QString id = UuidString(idOf(9)).toString();
    QVERIFY(m_handler->beginTransaction());
    QVERIFY(insertRow(database(), text("organization"),
                      {{text("id"), id}, {text("name"), text("Kesken")}, {text("deleted"), 0}}));
    QVERIFY2(server().endConnections(kConsole), qPrintable(server().errorText()));
    QVERIFY(!m_handler->commitTransaction());
    QCOMPARE(m_errors->last().at(2).toString(), text("Transaction commit failed in access.supportdb"));
    QVERIFY(!m_handler->isConnected());
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(column(text("SELECT name FROM organization WHERE id = ?"), {id}), QStringList());
}

void TestAccessServers::anInternalUserSignsIn_data()
{
    addServers();
}

void TestAccessServers::anInternalUserSignsIn()
{
    QVERIFY(connectAs(kConsole, kPassword));
    const QString id = UuidString(idOf(20)).toString();
    const QString user = text("Yrjö Ångström 欧阳");
    const QString password = text("sälä'sänä; \"ไทย\"");
    QVERIFY(insertRow(database(), text("operator"), operatorRow(id, user, 1, password)));
    for (const char *role : {"Doctor", "Admin"}) {
        QVERIFY(insertRow(database(), text("operator_roles"),
                          {{text("operator_id"), id}, {text("role_id"), roleId(text(role)).toUInt()}}));
    }
    int rights = 0;
    QCOMPARE(signIn(text("Internal users"), user, password, rights), 0u);
    QCOMPARE(rights, 331776 | 4190263);
    QVERIFY(signIn(text("Internal users"), user, password + text(" "), rights) != 0);
    QVERIFY(signIn(text("Internal users"), user.toUpper(), password, rights) != 0);
    QVERIFY(signIn(text("Internal users"), text("' OR '1' = '1"), password, rights) != 0);

    QVERIFY(connectAs(kApplication, kPassword));
    QCOMPARE(signIn(text("Internal users"), user, password, rights), 0u);
    QCOMPARE(rights, 331776 | 4190263);
}

void TestAccessServers::aGroupAndAUserOfTheSystemSignIn_data()
{
    addServers();
}

void TestAccessServers::aGroupAndAUserOfTheSystemSignIn()
{
    QString sid;
    QString error;
    const QString account = currentUsername(sid, error);
    QVERIFY2(!account.isEmpty(), qPrintable(error));
    const QStringList groups = currentUserGroups();
    QVERIFY(!groups.isEmpty());
    QVERIFY(connectAs(kConsole, kPassword));
    int rights = 0;
    QVERIFY(signIn(text("Windows group based"), account, QString(), rights) != 0);
    QVERIFY(signIn(text("Windows user based"), account, QString(), rights) != 0);

    const QString group = UuidString(idOf(30)).toString();
    QVERIFY(insertRow(database(), text("operator"), operatorRow(group, groups.first().toUpper(), 2)));
    QVERIFY(insertRow(database(), text("operator_roles"),
                      {{text("operator_id"), group}, {text("role_id"), roleId(text("Doctor")).toUInt()}}));
    QCOMPARE(signIn(text("Windows group based"), account, QString(), rights), 0u);
    QCOMPARE(rights, 331776);

    const QString user = UuidString(idOf(31)).toString();
    QVERIFY(insertRow(database(), text("operator"), operatorRow(user, account.toUpper(), 3)));
    QVERIFY(insertRow(database(), text("operator_roles"),
                      {{text("operator_id"), user}, {text("role_id"), roleId(text("Admin")).toUInt()}}));
    QCOMPARE(signIn(text("Windows user based"), account, QString(), rights), 0u);
    QCOMPARE(rights, 4190263);

    SettingsHandler::getInstance()->setSafeValue(text("accesscontrol/defaultrights"), -1);
    QCOMPARE(signIn(text("none"), account, QString(), rights), 0u);
    QCOMPARE(rights, -1);
    SettingsHandler::getInstance()->setSafeValue(text("accesscontrol/defaultrights"), 0);
}

void TestAccessServers::theAuditTrailIsWrittenAndFiltered_data()
{
    addServers();
}

void TestAccessServers::theAuditTrailIsWrittenAndFiltered()
{
    SettingsHandler *store = SettingsHandler::getInstance();
    store->setDatabaseSettings(text("actiondb"), {{text("params"), server().parameters(kDatabase)}});
    store->setSafeValue(text("actiondb/username"), kApplication);
    store->setSafeValue(text("actiondb/password"), kPassword);
    store->setValue(text("actionlog/activated"), false);
    const QString info =
        text("Kirjautui 'sisään' Ελλάς ไทย 中文 ") + idOf(qHash(QDateTime::currentMSecsSinceEpoch()) % 1000);
    {
        CommunicationAndDataEngine engine(nullptr);
        QSignalSpy initialized(&engine, SIGNAL(engineInitialized(ZephanError)));
        QCOMPARE(engine.initializeEngine(text("Corvane"), true), 0u);
        QVERIFY(initialized.wait());
        QCOMPARE(initialized.first().first().toUInt(), 0u);
        engine.logAction(Actions::Login, Actions::Human, UuidString(), QString(), text("WS1"), info);
        engine.logAction(Actions::Logout, Actions::Automatic, UuidString(), QString(), text("WS1"), info);
        QSignalSpy shutdown(&engine, SIGNAL(engineShutdown(ZephanError)));
        QCOMPARE(engine.shutdownEngine(), 0u);
        QVERIFY(shutdown.wait());
    }
    QVERIFY(connectAs(kConsole, kPassword));
    QSqlQuery query(database());
    query.setForwardOnly(true);
    const QString statement = AuditTrailQueryString::statement(
        {{AuditFilterKey::Action, QVariantList{int(Actions::Login), int(Actions::SearchAuditTrail)}},
         {AuditFilterKey::Type, int(Actions::Human)},
         {AuditFilterKey::Category, int(Actions::AccessCategory)},
         {AuditFilterKey::Level, QVariantList{int(Actions::HighLevel)}}},
        {0, Qt::DescendingOrder});
    QVERIFY2(query.exec(statement), qPrintable(query.lastError().text()));
    QStringList found;
    while (query.next())
        found.append(query.value(9).toString());
    QCOMPARE(found, QStringList{info});
}

QTEST_MAIN(TestAccessServers)
#include "test_accessservers.moc"
