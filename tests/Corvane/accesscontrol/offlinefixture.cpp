#include "Corvane/accesscontrol/offlinefixture.h"

#include <QSqlError>
#include <QSqlQuery>

const QString kConnection = QStringLiteral("test.offline");
const QStringList kTables{QStringLiteral("department"), QStringLiteral("operator"),
                          QStringLiteral("operator_roles"), QStringLiteral("organization"),
                          QStringLiteral("roles")};
const QStringList kDefaultRoles{QStringLiteral("Nurse"), QStringLiteral("Doctor"), QStringLiteral("Admin")};

const QString kTableFailure = QStringLiteral("Failed to create offline access control table");
const QString kRolesFailure = QStringLiteral("Failed to add default roles to offline access control table");
const QString kLocationFailure =
    QStringLiteral("Offline access control Database location cannot be created.");
const QString kOpenFailure = QStringLiteral("Failed to open offline access control database");

namespace {

const QString kTools = QStringLiteral("test.tools");

}  // namespace

QStringList tables(QSqlDatabase &database)
{
    QStringList names = database.tables(QSql::Tables);
    names.removeAll(QStringLiteral("sqlite_sequence"));
    names.sort();
    return names;
}

QStringList rows(const QSqlDatabase &database, const QString &statement)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(statement))
        return {query.lastError().text()};
    QStringList lines;
    while (query.next()) {
        QStringList columns;
        for (int i = 0; query.value(i).isValid(); ++i)
            columns.append(query.value(i).toString());
        lines.append(columns.join(QLatin1Char('|')));
    }
    return lines;
}

bool prepare(const QString &file, const QStringList &statements, const QStringList &keys)
{
    bool done = true;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), kTools);
        database.setDatabaseName(file);
        done = database.open();
        QSqlQuery query(database);
        for (const QString &statement : keys + statements)
            done = query.exec(statement) && done;
    }
    QSqlDatabase::removeDatabase(kTools);
    return done;
}

void OfflineFixture::init()
{
    ++m_count;
    m_offline = std::make_unique<AccessControlOffline>(kConnection, nullptr);
    m_warnings = std::make_unique<QtWarnings>();
}

void OfflineFixture::cleanup()
{
    m_offline.reset();
    QVERIFY(!QSqlDatabase::contains(kConnection));
    QCOMPARE(m_warnings->seen(), QStringList());
    m_warnings.reset();
}

bool OfflineFixture::open(const QString &location)
{
    m_error.clear();
    return m_offline->openOfflineDatabase(location, m_error);
}
