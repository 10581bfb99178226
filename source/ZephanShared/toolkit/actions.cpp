#include "ZephanShared/toolkit/actions.h"

#include <QHash>

namespace {

struct Family
{
    Actions::Action first;
    QVector<const char *> names;  // in order of value, without a gap
};

const QVector<Family> &families()
{
    static const QVector<Family> table = {
        {Actions::Login, {"Login", "Logout"}},
        {Actions::FetchPersonCustomFields, {"FetchPersonCustomFields", "FetchPersonStudies"}},
        {Actions::AddPerson,
         {"AddPerson",         "UpdatePerson",      "SearchPerson",     "MatchPerson",
          "MergePerson",       "DeletePerson",      "AddStudy",         "UpdateStudy",
          "SearchStudy",       "MatchStudy",        "MergeStudy",       "DeleteStudy",
          "SetActiveSettings", "LoadSettings",      "SaveSettings",     "DeleteSettings",
          "SearchAuditTrail",  "GetOperator",       "AddOperator",      "UpdateOperator",
          "DeleteOperator",    "LoadRoles",         "AddRole",          "ModifyRole",
          "DeleteRole",        "LoadOperatorRoles", "AddOperatorRole",  "DeleteOperatorRole",
          "AddOperation",      "SearchOperation",   "AddOrganization",  "UpdateOrganization",
          "LoadOrganization",  "AddDepartment",     "UpdateDepartment", "LoadDepartment",
          "Transaction"}},
        {Actions::ModifyPerson,
         {"ModifyPerson", "ViewPerson", "ModifyStudy", "ViewStudy", "ViewSettingsDiff"}},
        {Actions::AutomaticImport, {"AutomaticImport", "AutomaticExport"}},
        {Actions::Import, {"Import", "Export"}},
        {Actions::Started,
         {"Started", "Stopping", "Initialize", "Deinitialize", "LoadPlugin", "PluginAction"}},
        {Actions::Synchronization,
         {"Synchronization", "ActionLogSynchronization", "SynchronizationStarted", "SynchronizationStopped",
          "ConnectionChange"}},
    };
    return table;
}

}  // namespace

namespace Actions {

const QVector<Action> &allActions()
{
    static const QVector<Action> all = [] {
        QVector<Action> actions;
        for (const Family &family : families()) {
            for (int i = 0; i < family.names.size(); ++i)
                actions.append(static_cast<Action>(family.first + i));
        }
        return actions;
    }();
    return all;
}

QString name(int action)
{
    for (const Family &family : families()) {
        if (action >= family.first && action < family.first + family.names.size())
            return QLatin1String(family.names.at(action - family.first));
    }
    return QString();
}

}  // namespace Actions
