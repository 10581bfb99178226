#ifndef ACTIONS_H
#define ACTIONS_H

#include <QMetaType>
#include <QString>
#include <QVector>

/// The vocabulary of the audit trail.
///
/// The numbers are a stored format that all programs of the suite share: none may be changed or renumbered.
/// In an action's number the highest hexadecimal digit tells the category, the next one the level, and the
/// low byte counts the actions of that family from 0.
namespace Actions {

enum Action : int {
    // Access, high
    Login = 0x1300,
    Logout,

    // Database, low
    FetchPersonCustomFields = 0x2100,
    FetchPersonStudies,

    // Database, normal
    AddPerson = 0x2200,
    UpdatePerson,
    SearchPerson,
    MatchPerson,
    MergePerson,
    DeletePerson,
    AddStudy,
    UpdateStudy,
    SearchStudy,
    MatchStudy,
    MergeStudy,
    DeleteStudy,
    SetActiveSettings,
    LoadSettings,
    SaveSettings,
    DeleteSettings,
    SearchAuditTrail,
    GetOperator,
    AddOperator,
    UpdateOperator,
    DeleteOperator,
    LoadRoles,
    AddRole,
    ModifyRole,
    DeleteRole,
    LoadOperatorRoles,
    AddOperatorRole,
    DeleteOperatorRole,
    AddOperation,
    SearchOperation,
    AddOrganization,
    UpdateOrganization,
    LoadOrganization,
    AddDepartment,
    UpdateDepartment,
    LoadDepartment,
    Transaction,

    // User, normal
    ModifyPerson = 0x3200,
    ViewPerson,
    ModifyStudy,
    ViewStudy,
    ViewSettingsDiff,

    // Transfer, low
    AutomaticImport = 0x4100,
    AutomaticExport,

    // Transfer, normal
    Import = 0x4200,
    Export,

    // System, low
    Started = 0x5100,
    Stopping,
    Initialize,
    Deinitialize,
    LoadPlugin,
    PluginAction,

    // System, normal
    Synchronization = 0x5200,
    ActionLogSynchronization,
    SynchronizationStarted,
    SynchronizationStopped,
    ConnectionChange
};

enum ActionType : int { Automatic = 0, Human = 1 };

enum Category : int {
    AccessCategory = 0x1000,
    DatabaseCategory = 0x2000,
    UserCategory = 0x3000,
    TransferCategory = 0x4000,
    SystemCategory = 0x5000,
    ErrorCategory = 0x6000  ///< of no action: of the rows that `logError` writes
};

enum Level : int { LowLevel = 0x100, NormalLevel = 0x200, HighLevel = 0x300 };

constexpr int kCategoryMask = 0xf000;
constexpr int kLevelMask = 0x0f00;

constexpr Category category(Action action)
{
    return static_cast<Category>(action & kCategoryMask);
}

constexpr Level level(Action action)
{
    return static_cast<Level>(action & kLevelMask);
}

/// All actions in ascending order of their numbers.
const QVector<Action> &allActions();

/// The fixed identifier of an action, as "SearchAuditTrail"; empty for a number that is no action.
QString name(int action);

}  // namespace Actions

Q_DECLARE_METATYPE(Actions::Action)
Q_DECLARE_METATYPE(Actions::ActionType)

#endif
