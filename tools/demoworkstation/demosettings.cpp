#include "demosettings.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"

#include <QVariant>

namespace {

using namespace SettingsKeys;

struct Entry
{
    const char *key;
    QVariant value;
};

QVariantList numbers(std::initializer_list<int> list)
{
    QVariantList result;
    for (const int number : list)
        result.append(number);
    return result;
}

QVector<Entry> plainEntries()
{
    return {
        {kLanguage, QStringLiteral("en_GB")},
        {kDateFormat, 0},
        {kDateSeparator, 0},
        {kTimeAmPm, false},
        {kSettingsUpdating, true},
        {kPersonalIdSystems, numbers({1, 2, 0})},
        {kDefaultPersonalIdSystem, 1},
        {kEthnicGroups, numbers({3, 2, 10, 15})},
        {kDefaultEthnic, 3},
        {kMandatoryFields, 58},
        {kVisibleFields, 186},
        {kCustomPersonFields,
         QStringLiteral("1:Occupation=0:true,2:Smoking history=1:true,3:Referring physician=0:true")},
        {kMinimumSearchCharacters, 3},
        {kSingleLinePersons, false},
        {kStudySpecific,
         QStringList{QStringLiteral("Ruvenka=hidden=-344530043=Brazil,36662987=China,-13244063=Japan"),
                     QStringLiteral("Ruvenka=default=2012=GLI2012")}},
        {kDefaultGeometry, 1},
        {kEnableStatusbar, true},
        {kGeometry, QByteArray("demonstration")},
        {kMeasurementUnits, 0},
        {kPersonNameFieldOrder, numbers({3, 1, 4})},
        {kPersonResultFields, QStringList{QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("5"),
                                          QStringLiteral("Occupation")}},
        {kPersonSummaryFields,
         QStringList{QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("5"), QStringLiteral("7")}},
        {kPrefillStudy, true},
        {kShowPersonDetailsSuggestion, true},
        {kStudyHiddenFields,
         QStringList{QStringLiteral("exe-id=weight"), QStringLiteral("NightOximetry=mask")}},
        {kStudyResultFields, QStringList{QStringLiteral("Ruvenka=appName,,Date,"),
                                         QStringLiteral("NightOximetry=appName,Date,nights,")}},
        {kDefaultSearchCustomFields, QStringList{QStringLiteral("Occupation")}},
        {kDefaultSearchParameters, numbers({2, 4, 6, 11})},
        {kDatabaseLocation, QStringLiteral("C:/Halvorn/Data")},
        {kSyncPersonIdentificationKeys, numbers({6, 4})},
        {kUseOffline, false},
        {kWarnUserExpiration, true},
        {kActionLogActivated, true},
        {kActionLogLocation, QStringLiteral("C:/Halvorn/AuditTrail")},
        {kHisSystem, 1},
        {kHisImportMode, 1},
        {kHisForceMatchDialog, true},
        {kHisImportKeys, 6},
        {kHisInputFiles, QStringList{QString(), QStringLiteral("C:\\Halvorn\\Datatransfer\\Input.gdt"),
                                     QStringLiteral("C:\\Halvorn\\Datatransfer\\Input.gdt"),
                                     QStringLiteral("C:\\Halvorn\\Datatransfer\\Input.xml")}},
        {kHisOutputFiles, QStringList{QString(), QStringLiteral("C:\\Halvorn\\Datatransfer\\Output.gdt"),
                                      QStringLiteral("C:\\Halvorn\\Datatransfer\\Output.gdt"),
                                      QStringLiteral("C:\\Halvorn\\Datatransfer\\Output.xml")}},
        {kHisAutoExportOption, 0},
        {kHisExportSessionData, 0},
        {kHisProceedMeasurementAutomatically, true},
        {kHisExportLocation, QStringLiteral("C:\\Halvorn\\Datatransfer")},
        {kHisImportLocation, QStringLiteral("C:\\Halvorn\\Datatransfer")},
        {kHisDefaultFilter, QStringLiteral("SpiroXML2 (*.xml)")},
    };
}

QVector<Entry> safeEntries()
{
    return {
        {kAccessMethod, QStringLiteral("Internal users")}, {kOfflineAuthentication, true},
        {kOfflineAuthenticationExpirationTime, 30},        {kSingleWorkstationAccessMethodSystem, false},
        {kSingleWorkstationDbLocation, QString()},         {kDefaultRights, 0},
    };
}

void writeDatabaseGroup(SettingsHandler *store, const char *group, const QString &database)
{
    const QString name = QLatin1String(group);
    const QString prefix = name + QLatin1Char('/');
    const QMap<QString, QVariant> parameters = {
        {QStringLiteral("Driver"), QStringLiteral("MariaDB Unicode")},
        {QStringLiteral("Server"), QStringLiteral("db.lungclinic.example")},
        {QStringLiteral("Port"), QStringLiteral("3306")},
        {QStringLiteral("Database"), database},
    };
    store->setDatabaseSettings(name, {{QLatin1String(kParams), parameters}});
    store->setSafeValue(prefix + QLatin1String(kUsername), QStringLiteral("halvorn_app"));
    store->setSafeValue(prefix + QLatin1String(kPassword), QStringLiteral("a-demonstration-password"));
    store->setValue(prefix + QLatin1String(kConnectOptions),
                    QStringList{QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2"),
                                QStringLiteral("SQL_ATTR_CONNECTION_TIMEOUT=2")});
    store->setValue(prefix + QLatin1String(kDriverParams), QString());
    store->setValue(prefix + QLatin1String(kSqlType), 2);
}

}  // namespace

bool writeDemoSettings(const QString &path)
{
    SettingsHandler *store = SettingsHandler::getInstance();
    store->changeSettingsFile(path);
    for (const Entry &entry : plainEntries())
        store->setValue(QLatin1String(entry.key), entry.value);
    for (const Entry &entry : safeEntries())
        store->setSafeValue(QLatin1String(entry.key), entry.value);
    writeDatabaseGroup(store, kActionDbGroup, QStringLiteral("halvorn_actions"));
    writeDatabaseGroup(store, kPersonDbGroup, QStringLiteral("halvorn_persons"));
    writeDatabaseGroup(store, kStudyDbGroup, QStringLiteral("halvorn_studies"));
    writeDatabaseGroup(store, kSupportDbGroup, QStringLiteral("halvorn_support"));
    return store->flushSettingsFile();
}
