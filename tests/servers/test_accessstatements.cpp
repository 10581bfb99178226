#include "CommunicationAndData/access/accessmethodsystem.h"
#include "CommunicationAndData/actionlog/communicationanddataengine.h"
#include "Corvane/views/audittrailquerystring.h"
#include "servers/serverfixture.h"

#include <QElapsedTimer>
#include <QSqlQuery>
#include <QThread>

/// The work on real servers: what the store and the sign-in say to them, and connections that are lost
/// meanwhile.
class TestAccessStatements : public ServerFixture
{
    Q_OBJECT

private slots:
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
};

void TestAccessStatements::namesComeBackAsTheyWere_data()
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

void TestAccessStatements::namesComeBackAsTheyWere()
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

void TestAccessStatements::statementsOfTheStoreAreUnderstood_data()
{
    addServers();
}

void TestAccessStatements::statementsOfTheStoreAreUnderstood()
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

void TestAccessStatements::aConnectionLostInAStatementIsFoundAndMadeAgain_data()
{
    addServersProper();
}

void TestAccessStatements::aConnectionLostInAStatementIsFoundAndMadeAgain()
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

void TestAccessStatements::aConnectionLostInATransactionIsFoundAndMadeAgain_data()
{
    addServersProper();
}

void TestAccessStatements::aConnectionLostInATransactionIsFoundAndMadeAgain()
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

void TestAccessStatements::anInternalUserSignsIn_data()
{
    addServers();
}

void TestAccessStatements::anInternalUserSignsIn()
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

void TestAccessStatements::aGroupAndAUserOfTheSystemSignIn_data()
{
    addServers();
}

void TestAccessStatements::aGroupAndAUserOfTheSystemSignIn()
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

void TestAccessStatements::theAuditTrailIsWrittenAndFiltered_data()
{
    addServers();
}

void TestAccessStatements::theAuditTrailIsWrittenAndFiltered()
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

QTEST_MAIN(TestAccessStatements)
#include "test_accessstatements.moc"
