#include "demosite.h"

#include "CommunicationAndData/access/accessmethodsystem.h"
#include "CommunicationAndData/access/accesstype.h"
#include "CommunicationAndData/access/operatormodeldata.h"
#include "CommunicationAndData/access/passwordhelper.h"
#include "CommunicationAndData/actionlog/actionlogtable.h"
#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/settings/sqlschema.h"
#include "Corvane/accesscontrol/accesscontroloffline.h"
#include "ZephanShared/toolkit/nativepath.h"
#include "ZephanShared/toolkit/plaintime.h"
#include "demoaudittrail/demoactionlog.h"
#include "demoaudittrail/demofile.h"

#include <QDateTime>
#include <QDir>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVector>

namespace {

const QString kConnection = QStringLiteral("demosite");
constexpr char kActionLogFolder[] =
    "/CorvaneActions";  // in the data directory, where the console keeps its own

struct DemoOperator
{
    OperatorModelData::OperatorType type;
    QString name;
    QString password;  // of internal users
    QString firstName;
    QString lastName;
    QString role;
};

struct DemoPlace
{
    QString name;
    QString address;  // of departments
};

QVector<DemoPlace> organizations()
{
    return {{QStringLiteral("Northern Lung Clinic"), QString()},
            {QStringLiteral("Harbour Health Centre"), QString()},
            {QStringLiteral("Lakeside Children's Hospital"), QString()}};
}

QVector<DemoPlace> departments()
{
    return {{QStringLiteral("Lung function laboratory"), QStringLiteral("Harbour Road 12, ground floor")},
            {QStringLiteral("Outpatient clinic"), QStringLiteral("Harbour Road 12, second floor")},
            {QStringLiteral("Occupational health"), QStringLiteral("Quayside 3")},
            {QStringLiteral("Paediatrics"), QStringLiteral("Lake Avenue 48")}};
}

/// The groups are those of whoever prepares the demonstration, so that this account can sign in by its group.
QVector<DemoOperator> operators()
{
    QString sid;
    QString error;
    QVector<DemoOperator> all = {
        {OperatorModelData::InternalUser, QStringLiteral("anna.admin"), QStringLiteral("demo-anna"),
         QStringLiteral("Anna"), QStringLiteral("Virtanen"), QStringLiteral("Admin")},
        {OperatorModelData::InternalUser, QStringLiteral("dora.doctor"), QStringLiteral("demo-dora"),
         QStringLiteral("Dora"), QStringLiteral("Lindqvist"), QStringLiteral("Doctor")},
        {OperatorModelData::InternalUser, QStringLiteral("nils.nurse"), QStringLiteral("demo-nils"),
         QStringLiteral("Nils"), QStringLiteral("Mäkelä"), QStringLiteral("Nurse")},
        {OperatorModelData::InternalUser, QStringLiteral("niamh.nurse"), QStringLiteral("demo-niamh"),
         QStringLiteral("Niamh"), QStringLiteral("O'Sullivan"), QStringLiteral("Nurse")},
        {OperatorModelData::InternalUser, QStringLiteral("audrey.auditor"), QStringLiteral("demo-audrey"),
         QStringLiteral("Audrey"), QStringLiteral("Okafor"), QStringLiteral("Auditor")},
        {OperatorModelData::WindowsUser, currentUsername(sid, error), QString(), QString(), QString(),
         QStringLiteral("Admin")},
    };
    const QStringList groups = currentUserGroups();
    if (!groups.isEmpty()) {
        all.append({OperatorModelData::WindowsGroup, groups.first(), QString(), QString(), QString(),
                    QStringLiteral("Admin")});
    }
    return all;
}

class DemoTables
{
public:
    explicit DemoTables(const QSqlDatabase &database)
        : m_database(database)
    {}

    QString error() const
    {
        return m_error;
    }

    bool run(const QStringList &statements)
    {
        for (const QString &statement : statements) {
            if (!run(statement))
                return false;
        }
        return true;
    }

    bool addOperators()
    {
        if (!run(QStringLiteral("INSERT INTO roles (title, actions, deleted) VALUES (?, ?, 0)"),
                 {QStringLiteral("Auditor"), int(AuditTrailManagement)}))
            return false;
        // The operators work at the first of each.
        QStringList organizationIds;
        for (const DemoPlace &place : organizations()) {
            organizationIds.append(newId());
            if (!run(QStringLiteral("INSERT INTO organization (id, deleted, name) VALUES (?, 0, ?)"),
                     {organizationIds.last(), place.name}))
                return false;
        }
        QStringList departmentIds;
        for (const DemoPlace &place : departments()) {
            departmentIds.append(newId());
            if (!run(
                    QStringLiteral("INSERT INTO department (id, deleted, name, address) VALUES (?, 0, ?, ?)"),
                    {departmentIds.last(), place.name, place.address}))
                return false;
        }
        for (const DemoOperator &demo : operators()) {
            if (!addOperator(demo, organizationIds.first(), departmentIds.first()))
                return false;
        }
        return true;
    }

private:
    static QString newId()
    {
        return QUuid::createUuid().toString(QUuid::WithoutBraces);
    }

    bool addOperator(const DemoOperator &demo, const QString &organization, const QString &department)
    {
        const bool isInternal = demo.type == OperatorModelData::InternalUser;
        const QString salt =
            isInternal ? PasswordHelper::generateSalt(PasswordHelper::SaltLength) : QString();
        const QString hash = isInternal ? PasswordHelper::hashPassword(demo.password, salt) : QString();
        const QString now = plainText(QDateTime::currentDateTimeUtc(), QStringLiteral("yyyy-MM-dd hh:mm:ss"));
        const QString id = newId();
        return run(QStringLiteral("INSERT INTO operator (operator_id, last_name, middle_name, first_name, "
                                  "organization_id, department_id, user_id, username, password, salt, "
                                  "date_created, date_updated, deleted, operator_type) VALUES "
                                  "(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, ?)"),
                   {id, demo.lastName, QString(), demo.firstName, organization, department, QString(),
                    demo.name, hash, salt, now, now, uint(demo.type)}) &&
               run(QStringLiteral("INSERT INTO operator_roles (operator_id, role_id) "
                                  "SELECT ?, role_id FROM roles WHERE title = ? AND deleted = 0"),
                   {id, demo.role});
    }

    bool run(const QString &statement, const QVariantList &values = {})
    {
        QSqlQuery query(m_database);
        query.prepare(statement);
        for (const QVariant &value : values)
            query.addBindValue(value);
        if (query.exec())
            return true;
        m_error = query.lastError().text();
        return false;
    }

    QSqlDatabase m_database;
    QString m_error;
};

QVariantMap siteParameters(const QString &path)
{
    return {{QStringLiteral("Driver"), QStringLiteral("SQLite3")}, {QStringLiteral("Database"), path}};
}

bool makeSiteDatabase(const QString &path, QString &error)
{
    bool made = false;
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QLatin1String(OdbcConnection::kDriver), kConnection);
        database.setDatabaseName(OdbcConnection::databaseName(siteParameters(path)));
        DemoTables tables(database);
        made = database.open() &&
               tables.run(SqlSchema::statements(QSqlDriver::SQLite, QStringLiteral("access"))) &&
               tables.run(SqlSchema::statements(QSqlDriver::SQLite, QStringLiteral("action_log"))) &&
               tables.run(SqlSchema::statements(QSqlDriver::SQLite, QStringLiteral("configurations"))) &&
               tables.addOperators();
        error = database.lastError().text() + tables.error();
    }
    QSqlDatabase::removeDatabase(kConnection);
    return made;
}

bool makeOfflineFile(const QString &folder, QString &error)
{
    AccessControlOffline offline(QStringLiteral("demooffline"));
    if (!offline.openOfflineDatabase(nativePath(folder), error))
        return false;
    DemoTables tables(offline.database());
    const bool made = tables.addOperators();
    error = tables.error();
    return made;
}

/// Where the console finds both, as if somebody had entered it in the connection options.
bool writeConnections(const QString &data, const QString &site, const QString &offline)
{
    const auto cache = openSettingsFile(data + QLatin1Char('/') + QLatin1String(LocalCache::kFileName));
    if (cache->childGroups().contains(QLatin1String(LocalCache::kSupportDbOnlineGroup)))
        return true;
    for (const char *group : {LocalCache::kSupportDbOnlineGroup, LocalCache::kActionDbOnlineGroup}) {
        cache->beginGroup(QLatin1String(group));
        OdbcConnection::writeParameters(*cache, siteParameters(site));
        cache->setValue(QLatin1String(SettingsKeys::kConnectOptions),
                        OdbcConnection::defaultConnectOptions());
        cache->setValue(QLatin1String(SettingsKeys::kDriverParams), QString());
        cache->setValue(QLatin1String(SettingsKeys::kSqlType), uint(SqlStorage::Sqlite));
        cache->endGroup();
    }
    cache->beginGroup(QLatin1String(LocalCache::kSupportDbOfflineGroup));
    cache->setValue(QLatin1String(LocalCache::kLocation),
                    nativePath(offline + QLatin1Char('/') + QLatin1String(kOfflineAccessFile)));
    cache->setValue(QLatin1String(LocalCache::kOnlineMode), true);
    cache->endGroup();
    cache->beginGroup(QLatin1String(LocalCache::kActionDbOnlineGroup));
    cache->setValue(QLatin1String(LocalCache::kOnlineMode), false);
    cache->endGroup();
    cache->beginGroup(QLatin1String(LocalCache::kActionDbOfflineGroup));
    cache->setValue(QLatin1String(LocalCache::kLocation),
                    nativePath(data + QLatin1String(kActionLogFolder) + QLatin1Char('/') +
                               QLatin1String(ActionLogTable::kFileName)));
    cache->endGroup();
    return syncSettingsFile(*cache);
}

}  // namespace

bool makeDemoSite(const QString &data, QString &error)
{
    const QString siteName = QStringLiteral("/site.db");
    const QString site = data + siteName;
    const QString offline = data + QStringLiteral("/Databases");
    const QString offlineFile = offline + QLatin1Char('/') + QLatin1String(kOfflineAccessFile);
    DemoTrail trail;
    trail.lastDay = QDate::currentDate().addDays(-1);
    if (!makeDemoActionLog(data + QLatin1String(kActionLogFolder), trail, error))
        return false;
    const auto makeSite = [&](const QString &folder) {
        return makeSiteDatabase(folder + siteName, error);
    };
    const auto makeOffline = [&](const QString &folder) {
        return makeOfflineFile(folder, error);
    };
    if (!makeDemoFile(site, makeSite, error) || !makeDemoFile(offlineFile, makeOffline, error))
        return false;
    if (!writeConnections(data, site, offline)) {
        error = QStringLiteral("The connections cannot be written.");
        return false;
    }
    return true;
}
