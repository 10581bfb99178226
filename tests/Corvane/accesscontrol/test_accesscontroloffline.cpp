#include "Corvane/accesscontrol/offlinefixture.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>

namespace {

const QString kIndex = QStringLiteral("operator_roles_operator");
const QString kAddLink = QStringLiteral("INSERT INTO operator_roles (operator_id, role_id) VALUES (%1)");
const QString kRolesOfA = QStringLiteral("FROM operator_roles INNER JOIN roles on roles.role_id = "
                                         "operator_roles.role_id WHERE operator_id ='a'");

}  // namespace

/// The encrypted file of a single workstation: what a first open makes, what a later one completes, and
/// where.
class TestAccessControlOffline : public OfflineFixture
{
    Q_OBJECT

private slots:
    void aFirstOpenInAnEmptyDirectoryLeavesFiveTablesAndThreeRoles();
    void anExistingFileGetsNoDefaultRolesEvenWhenItsTableIsEmpty();
    void aMissingOperatorTableIsCreatedWithoutAddingRoles();
    void eachMissingTableIsCompletedAndNothingElseTouched_data();
    void eachMissingTableIsCompletedAndNothingElseTouched();
    void theStatementsAreTheSchema();
    void theDefaultRolesHaveTheirRights();
    void theFileOnDiskIsUnreadableWithoutTheKey();
    void aMissingDirectoryIsMade();
    void anEmptyLocationIsTheDefaultOne();
    void theDefaultLocationIsBelowProgramData();
    void closingAndOpeningAgainFindsTheRows();
    void closingFreesTheConnectionName();
    void twoConnectionNamesAreApart();
    void aLocationThatIsALinkIsFollowed();
    void aLocationInManyScriptsWorks();
    void anEmptyFileBecomesADatabase();
    void aNewerSchemaStaysAsItIs();
    void longAndForeignNamesComeBack();
    void theLinksOfAnOperatorAreFoundByAnIndexInTheOrderOfTheirRows();
    void anExistingFileGetsTheIndexAndKeepsItsLinks();
};

void TestAccessControlOffline::aFirstOpenInAnEmptyDirectoryLeavesFiveTablesAndThreeRoles()
{
    const QString location = folder();
    QVERIFY(QDir().mkpath(location));
    QVERIFY2(open(location), qPrintable(m_error));
    QVERIFY(m_error.isEmpty());
    QCOMPARE(m_offline->database().connectionName(), kConnection);
    QCOMPARE(m_offline->database().driverName(), QStringLiteral("QSQLCIPHER"));
    QCOMPARE(m_offline->database().databaseName(), QDir::toNativeSeparators(fileIn(location)));
    QCOMPARE(tables(m_offline->database()), kTables);
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT title FROM roles ORDER BY role_id")),
             kDefaultRoles);
}

void TestAccessControlOffline::anExistingFileGetsNoDefaultRolesEvenWhenItsTableIsEmpty()
{
    const QString location = folder();
    QVERIFY(open(location));
    rows(m_offline->database(), QStringLiteral("DELETE FROM roles"));
    m_offline->closeOfflineDatabase();
    QVERIFY(open(location));
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT count(*) FROM roles")),
             QStringList{QStringLiteral("0")});
}

void TestAccessControlOffline::aMissingOperatorTableIsCreatedWithoutAddingRoles()
{
    const QString location = folder();
    QVERIFY(open(location));
    rows(m_offline->database(), QStringLiteral("DROP TABLE operator"));
    rows(m_offline->database(), QStringLiteral("DELETE FROM roles WHERE title = 'Doctor'"));
    m_offline->closeOfflineDatabase();
    QVERIFY(open(location));
    QCOMPARE(tables(m_offline->database()), kTables);
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT title FROM roles ORDER BY role_id")),
             (QStringList{QStringLiteral("Nurse"), QStringLiteral("Admin")}));
}

void TestAccessControlOffline::eachMissingTableIsCompletedAndNothingElseTouched_data()
{
    QTest::addColumn<QString>("missing");
    for (const QString &table : kTables)
        QTest::newRow(qPrintable(table)) << table;
}

void TestAccessControlOffline::eachMissingTableIsCompletedAndNothingElseTouched()
{
    QFETCH(QString, missing);
    const QString location = folder();
    QVERIFY(open(location));
    const QStringList schema =
        rows(m_offline->database(), QStringLiteral("SELECT name, sql FROM sqlite_master ORDER BY name"));
    rows(m_offline->database(), QStringLiteral("INSERT INTO organization (id, name) VALUES ('1', 'North')"));
    rows(m_offline->database(), QStringLiteral("INSERT INTO department (id, name) VALUES ('2', 'Lungs')"));
    rows(m_offline->database(), QStringLiteral("DROP TABLE ") + missing);
    m_offline->closeOfflineDatabase();

    QVERIFY2(open(location), qPrintable(m_error));
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT name, sql FROM sqlite_master ORDER BY name")),
             schema);
    const bool keepsOrganization = missing != QLatin1String("organization");
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT name FROM organization")),
             keepsOrganization ? QStringList{QStringLiteral("North")} : QStringList());
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT count(*) FROM roles")),
             QStringList{QStringLiteral("3")});
}

void TestAccessControlOffline::theStatementsAreTheSchema()
{
    const QString nil = QStringLiteral("00000000-0000-0000-0000-000000000000");
    const QMap<QString, QString> statements = AccessControlOffline::offlineTableStatements();
    QCOMPARE(QStringList(statements.keys()), kTables);
    QCOMPARE(statements.value(QStringLiteral("roles")),
             QStringLiteral("CREATE TABLE roles (role_id INTEGER PRIMARY KEY AUTOINCREMENT,title TEXT,"
                            "actions INTEGER,deleted INTEGER)"));
    QCOMPARE(
        statements.value(QStringLiteral("operator")),
        QStringLiteral("CREATE TABLE operator (operator_id VARCHAR(36) PRIMARY KEY DEFAULT '%1' NOT NULL,"
                       "last_name VARCHAR(100),middle_name VARCHAR(100),first_name VARCHAR(100),"
                       "organization_id VARCHAR(36),department_id VARCHAR(36),user_id VARCHAR(20),"
                       "username VARCHAR(255),password TEXT,salt VARCHAR(16),date_created DATE NULL,"
                       "date_updated DATE NULL,deleted INTEGER NULL,operator_type INTEGER)")
            .arg(nil));
    QCOMPARE(
        statements.value(QStringLiteral("operator_roles")),
        QStringLiteral("CREATE TABLE operator_roles (operator_roles_id INTEGER PRIMARY KEY NOT NULL,"
                       "operator_id VARCHAR(36) NOT NULL,role_id INTEGER NOT NULL,FOREIGN KEY(operator_id) "
                       "REFERENCES operator(operator_id) ON DELETE CASCADE ON UPDATE CASCADE)"));
    QCOMPARE(
        statements.value(QStringLiteral("organization")),
        QStringLiteral("CREATE TABLE organization (id VARCHAR(36) PRIMARY KEY DEFAULT '%1' NOT NULL UNIQUE,"
                       "deleted INTEGER NULL,name VARCHAR(50) UNIQUE)")
            .arg(nil));
    QCOMPARE(
        statements.value(QStringLiteral("department")),
        QStringLiteral("CREATE TABLE department (id VARCHAR(36) PRIMARY KEY DEFAULT '%1' NOT NULL UNIQUE,"
                       "deleted INTEGER NULL,name VARCHAR(50) UNIQUE,address VARCHAR(50))")
            .arg(nil));
}

void TestAccessControlOffline::theDefaultRolesHaveTheirRights()
{
    QCOMPARE(
        AccessControlOffline::defaultRoleStatements(),
        (QStringList{
            QStringLiteral("INSERT INTO roles ([title], [actions], [deleted]) VALUES('Nurse',3633152,0)"),
            QStringLiteral("INSERT INTO roles ([title], [actions], [deleted]) VALUES('Doctor',331776,0)"),
            QStringLiteral("INSERT INTO roles ([title], [actions], [deleted]) VALUES('Admin',4190263,0)")}));
    QVERIFY(open(folder()));
    QCOMPARE(rows(m_offline->database(),
                  QStringLiteral("SELECT role_id, title, actions, deleted FROM roles ORDER BY role_id")),
             (QStringList{QStringLiteral("1|Nurse|%1|0").arg(0x377000),
                          QStringLiteral("2|Doctor|%1|0").arg(0x51000),
                          QStringLiteral("3|Admin|%1|0").arg(0x3ff037)}));
}

void TestAccessControlOffline::theFileOnDiskIsUnreadableWithoutTheKey()
{
    const QString location = folder();
    QVERIFY(open(location));
    m_offline->closeOfflineDatabase();
    const QByteArray bytes = readFile(fileIn(location));
    QVERIFY(!bytes.isEmpty());
    QVERIFY(!bytes.startsWith("SQLite format 3"));
    for (const char *word : {"Nurse", "CREATE TABLE", "operator"})
        QVERIFY2(!bytes.contains(word), word);
    QVERIFY(!prepare(fileIn(location), {QStringLiteral("SELECT * FROM roles")}, {}));
    QVERIFY(prepare(fileIn(location), {QStringLiteral("SELECT * FROM roles")}));
}

void TestAccessControlOffline::aMissingDirectoryIsMade()
{
    const QString location = folder() + QStringLiteral("/a/b/c");
    QVERIFY2(open(location), qPrintable(m_error));
    QVERIFY(QFile::exists(fileIn(location)));
}

void TestAccessControlOffline::anEmptyLocationIsTheDefaultOne()
{
    QVERIFY2(open(QString()), qPrintable(m_error));
    QVERIFY(QFile::exists(m_workstation.dataDirectory() + QStringLiteral("Databases/offline.access.db")));
}

void TestAccessControlOffline::theDefaultLocationIsBelowProgramData()
{
    QCOMPARE(AccessControlOffline::defaultOfflineLocation(),
             QDir::toNativeSeparators(m_workstation.path(QStringLiteral("ProgramData/Halvorn/Databases"))));
}

void TestAccessControlOffline::closingAndOpeningAgainFindsTheRows()
{
    const QString location = folder();
    QVERIFY(open(location));
    rows(m_offline->database(), QStringLiteral("INSERT INTO organization (id, name) VALUES ('1', 'North')"));
    QVERIFY(open(location));
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT name FROM organization")),
             QStringList{QStringLiteral("North")});
    QVERIFY(open(folder(QStringLiteral("another"))));
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT name FROM organization")), QStringList());
}

void TestAccessControlOffline::closingFreesTheConnectionName()
{
    QVERIFY(open(folder()));
    QVERIFY(QSqlDatabase::contains(kConnection));
    m_offline->closeOfflineDatabase();
    QVERIFY(!QSqlDatabase::contains(kConnection));
    QVERIFY(!m_offline->database().isValid());
    m_offline->closeOfflineDatabase();
}

void TestAccessControlOffline::twoConnectionNamesAreApart()
{
    AccessControlOffline other(QStringLiteral("test.other"), nullptr);
    QVERIFY(open(folder()));
    QString error;
    QVERIFY(other.openOfflineDatabase(folder(), error));
    rows(other.database(), QStringLiteral("INSERT INTO organization (id, name) VALUES ('1', 'North')"));
    other.closeOfflineDatabase();
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT name FROM organization")),
             QStringList{QStringLiteral("North")});
}

void TestAccessControlOffline::aLocationThatIsALinkIsFollowed()
{
    const QString target = folder(QStringLiteral("target"));
    QVERIFY(QDir().mkpath(target));
    QVERIFY(QFile::link(target, folder()));
    QVERIFY2(open(folder()), qPrintable(m_error));
    QVERIFY(QFile::exists(fileIn(target)));
}

void TestAccessControlOffline::aLocationInManyScriptsWorks()
{
    const QString location = folder(QString::fromUtf8("Käyttöoikeudet Πρόσβαση การเข้าถึง 访问 'quo\"ted'"));
    QVERIFY2(open(location), qPrintable(m_error));
    QVERIFY(QFile::exists(fileIn(location)));
    QVERIFY(open(location));
}

void TestAccessControlOffline::anEmptyFileBecomesADatabase()
{
    const QString location = folder();
    QVERIFY(writeFile(fileIn(location), QByteArray()));
    QVERIFY2(open(location), qPrintable(m_error));
    QCOMPARE(tables(m_offline->database()), kTables);
}

void TestAccessControlOffline::aNewerSchemaStaysAsItIs()
{
    const QString location = folder();
    QVERIFY(open(location));
    rows(m_offline->database(), QStringLiteral("ALTER TABLE operator ADD COLUMN badge TEXT"));
    rows(m_offline->database(), QStringLiteral("CREATE TABLE badge (id INTEGER, colour TEXT)"));
    rows(m_offline->database(), QStringLiteral("INSERT INTO badge VALUES (1, 'green')"));
    rows(m_offline->database(),
         QStringLiteral("INSERT INTO operator (operator_id, badge) VALUES ('1', 'green')"));
    const QStringList schema =
        rows(m_offline->database(), QStringLiteral("SELECT name, sql FROM sqlite_master ORDER BY name"));
    m_offline->closeOfflineDatabase();

    QVERIFY(open(location));
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT name, sql FROM sqlite_master ORDER BY name")),
             schema);
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT badge FROM operator")),
             QStringList{QStringLiteral("green")});
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT colour FROM badge")),
             QStringList{QStringLiteral("green")});
}

void TestAccessControlOffline::longAndForeignNamesComeBack()
{
    const QString location = folder();
    QVERIFY(open(location));
    const QStringList names{QString::fromUtf8("Äyräväinen-Ångström"),
                            QString::fromUtf8("Παπαδόπουλος"),
                            QString::fromUtf8("สมชาย ใจดี"),
                            QString::fromUtf8("欧阳 娜娜"),
                            QStringLiteral("O'Brien \"Bob\"; DROP TABLE roles; --"),
                            QString(255, QChar(0x00e4))};
    {
        QSqlQuery query(m_offline->database());
        QVERIFY(query.prepare(QStringLiteral("INSERT INTO operator (operator_id, username) VALUES (?, ?)")));
        for (const QString &name : names) {
            query.addBindValue(QString::number(names.indexOf(name)));
            query.addBindValue(name);
            QVERIFY(query.exec());
        }
    }
    QVERIFY(open(location));
    QCOMPARE(
        rows(m_offline->database(), QStringLiteral("SELECT username FROM operator ORDER BY operator_id")),
        names);
}

void TestAccessControlOffline::theLinksOfAnOperatorAreFoundByAnIndexInTheOrderOfTheirRows()
{
    QVERIFY(open(folder()));
    for (const char *link : {"'a', 3", "'b', 1", "'a', 1", "'b', 3", "'a', 2"})
        rows(m_offline->database(), kAddLink.arg(QLatin1String(link)));
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT operator_roles.role_id ") + kRolesOfA),
             (QStringList{QStringLiteral("3"), QStringLiteral("1"), QStringLiteral("2")}));
    const QString plan =
        rows(m_offline->database(), QStringLiteral("EXPLAIN QUERY PLAN SELECT * ") + kRolesOfA)
            .join(QLatin1Char('\n'));
    QVERIFY2(plan.contains(kIndex), qPrintable(plan));
}

void TestAccessControlOffline::anExistingFileGetsTheIndexAndKeepsItsLinks()
{
    const QString location = folder();
    QVERIFY(open(location));
    rows(m_offline->database(), kAddLink.arg(QStringLiteral("'a', 2")));
    rows(m_offline->database(), QStringLiteral("DROP INDEX ") + kIndex);
    QVERIFY2(open(location), qPrintable(m_error));
    QCOMPARE(rows(m_offline->database(),
                  QStringLiteral("SELECT tbl_name FROM sqlite_master WHERE type = 'index' AND name = '%1'")
                      .arg(kIndex)),
             QStringList{QStringLiteral("operator_roles")});
    QCOMPARE(rows(m_offline->database(), QStringLiteral("SELECT operator_id, role_id FROM operator_roles")),
             QStringList{QStringLiteral("a|2")});
}

QTEST_MAIN(TestAccessControlOffline)
#include "test_accesscontroloffline.moc"
