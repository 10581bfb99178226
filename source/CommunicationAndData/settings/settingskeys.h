#ifndef SETTINGSKEYS_H
#define SETTINGSKEYS_H

#include "ZephanShared/toolkit/languages.h"

/// Every key of the settings files, written once. The files are shared by all programs of the suite.
///
/// A key is its group, "/" and its name. Safe keys, which are stored in an unreadable form, are marked.
namespace SettingsKeys {

// application
constexpr char kCustomPersonFields[] = "application/custom_person_fields";
constexpr char kDateFormat[] = "application/date_format";        // int, 0 to 5
constexpr char kDateSeparator[] = "application/date_separator";  // int, 0 to 2
constexpr char kDefaultEthnic[] = "application/default_ethnic";
constexpr char kDefaultPersonalIdSystem[] = "application/default_personal_id_system";
constexpr char kEthnicGroups[] = "application/ethnic_groups";
constexpr char kLanguage[] = "application/language";  // translation code, or "system"
constexpr char kMandatoryFields[] = "application/mandatory_fields";
constexpr char kMinimumSearchCharacters[] = "application/minimum_search_characters";
constexpr char kPersonalIdSystems[] = "application/personal_id_systems";
constexpr char kSettingsUpdating[] = "application/settings_updating";
constexpr char kSingleLinePersons[] = "application/single_line_persons";
constexpr char kStudySpecific[] = "application/study_specific";
constexpr char kTimeAmPm[] = "application/time_ampm";
constexpr char kVisibleFields[] = "application/visible_fields";

// ui
constexpr char kDefaultGeometry[] = "ui/default_geometry";
constexpr char kEnableStatusbar[] = "ui/enable_statusbar";
constexpr char kGeometry[] = "ui/geometry";  // belongs to one workstation, never travels
constexpr char kMeasurementUnits[] = "ui/measurement_units";
constexpr char kPersonNameFieldOrder[] = "ui/person_name_field_order";
constexpr char kPersonResultFields[] = "ui/person_result_fields";
constexpr char kPersonSummaryFields[] = "ui/person_summary_fields";
constexpr char kPrefillStudy[] = "ui/prefill_study";
constexpr char kShowPersonDetailsSuggestion[] = "ui/show_person_details_suggestion";
constexpr char kStudyHiddenFields[] = "ui/study_hidden_fields";
constexpr char kStudyResultFields[] = "ui/study_result_fields";

// database; two names are older than the convention of lower case and "_"
constexpr char kDefaultSearchCustomFields[] = "database/defaultSearchCustomFields";
constexpr char kDefaultSearchParameters[] = "database/defaultsearchparameters";
constexpr char kDatabaseLocation[] = "database/location";
constexpr char kSyncPersonIdentificationKeys[] = "database/sync_person_identification_keys";
constexpr char kUseOffline[] = "database/useoffline";

// accesscontrol
constexpr char kDefaultRights[] = "accesscontrol/defaultrights";  // safe; one workstation's, never travels
constexpr char kAccessMethod[] = "accesscontrol/method";          // safe
constexpr char kOfflineAuthentication[] = "accesscontrol/offline_authentication";  // safe
constexpr char kOfflineAuthenticationExpirationTime[] =
    "accesscontrol/offline_authentication_expiration_time";  // safe
constexpr char kSingleWorkstationAccessMethodSystem[] =
    "accesscontrol/single_workstation_access_method_system";                                     // safe
constexpr char kSingleWorkstationDbLocation[] = "accesscontrol/single_workstation_db_location";  // safe
constexpr char kWarnUserExpiration[] = "accesscontrol/warn_user_expiration";

// actionlog
constexpr char kActionLogActivated[] = "actionlog/activated";
constexpr char kAuditTrailSetting[] = "actionlog/audittrailsetting";
constexpr char kAuditTrailSettingHash[] = "actionlog/audittrailsettinghash";  // safe
constexpr char kActionLogLocation[] = "actionlog/location";

// his: exchange with a hospital information system
constexpr char kHisAutoExportOption[] = "his/auto_export_option";
constexpr char kHisDefaultFilter[] = "his/defaultfilter";
constexpr char kHisExportSessionData[] = "his/export_session_data";
constexpr char kHisExportLocation[] = "his/exportlocation";
constexpr char kHisForceMatchDialog[] = "his/force_match_dialog";
constexpr char kHisImportKeys[] = "his/import_keys";
constexpr char kHisImportMode[] = "his/import_mode";
constexpr char kHisImportLocation[] = "his/importlocation";
constexpr char kHisInputFiles[] = "his/input_files";
constexpr char kHisOutputFiles[] = "his/output_files";
constexpr char kHisProceedMeasurementAutomatically[] = "his/proceed_measurement_automatically";
constexpr char kHisSystem[] = "his/system";

// The four database groups have the same names below them.
constexpr char kActionDbGroup[] = "actiondb";
constexpr char kPersonDbGroup[] = "persondb";
constexpr char kStudyDbGroup[] = "studydb";
constexpr char kSupportDbGroup[] = "supportdb";
constexpr char kUsername[] = "username";              // safe
constexpr char kPassword[] = "password";              // safe
constexpr char kParams[] = "params";                  // array of kParamKey and kParamValue
constexpr char kConnectOptions[] = "connectoptions";  // text list, or empty text
constexpr char kDriverParams[] = "driverparams";      // text list, or empty text
constexpr char kSqlType[] = "sqltype";
constexpr char kParamKey[] = "key";
constexpr char kParamValue[] = "value";

// supportdb alone
constexpr char kOnlineMode[] = "online_mode";
constexpr char kOfflineLocation[] = "offline_location";

}  // namespace SettingsKeys

/// Names in the data directory and in `local_cache`, the ini file of what belongs to this workstation's use
/// of this program and is no part of any configuration.
namespace LocalCache {

constexpr char kFileName[] = "local_cache";
inline constexpr auto &kLanguage = kLanguageKey;
constexpr char kAutosaveInfo[] = "autosaveinfo";
constexpr char kLocalSave[] = "localsave";
constexpr char kSupportDbOnlineGroup[] = "supportdb_online";
constexpr char kSupportDbOfflineGroup[] = "supportdb_offline";
constexpr char kActionDbOnlineGroup[] = "actiondb_online";
constexpr char kActionDbOfflineGroup[] = "actiondb_offline";
constexpr char kLocation[] = "location";
constexpr char kOnlineMode[] = "online_mode";

}  // namespace LocalCache

/// The working settings' file in the data directory.
constexpr char kSettingsFileName[] = "corvane.ini";

/// Organisation and application of the system-scope ini file that the suite's applications on this
/// workstation run with, the local application settings.
constexpr char kSuiteOrganisation[] = "Halvorn";
constexpr char kSuiteApplication[] = "Halvorn";

#endif
