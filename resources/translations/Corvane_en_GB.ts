<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="en_GB">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About</source>
        <translation>About</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>&amp;Ok</translation>
    </message>
    <message>
        <source>THIS IS PRE-RELEASE VERSION OF THE SOFTWARE.</source>
        <translation>THIS IS PRE-RELEASE VERSION OF THE SOFTWARE.</translation>
    </message>
    <message>
        <source>NOT TO BE USED IN ANY CLINICAL WORK!</source>
        <translation>NOT TO BE USED IN ANY CLINICAL WORK!</translation>
    </message>
    <message>
        <source>Cannot fetch about information</source>
        <translation>Cannot fetch about information</translation>
    </message>
</context>
<context>
    <name>AccessSettingsView</name>
    <message>
        <source>None</source>
        <translation>None</translation>
    </message>
    <message>
        <source>Windows group based</source>
        <translation>Windows group based</translation>
    </message>
    <message>
        <source>Windows user based</source>
        <translation>Windows user based</translation>
    </message>
    <message>
        <source>Internal users</source>
        <translation>Internal users</translation>
    </message>
    <message>
        <source>Access control settings</source>
        <translation>Access control settings</translation>
    </message>
    <message>
        <source>Access control method</source>
        <translation>Access control method</translation>
    </message>
    <message>
        <source>Offline Cache</source>
        <translation>Offline Cache</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Enabled</translation>
    </message>
    <message>
        <source>Expiration time</source>
        <translation>Expiration time</translation>
    </message>
    <message>
        <source>Warn user of expiration</source>
        <translation>Warn user of expiration</translation>
    </message>
    <message>
        <source>Local access control system</source>
        <translation>Local access control system</translation>
    </message>
    <message>
        <source>Path to local access control database</source>
        <translation>Path to local access control database</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <source>Audit trail settings</source>
        <translation>Audit trail settings</translation>
    </message>
    <message>
        <source>Offline audit trail enabled</source>
        <translation>Offline audit trail enabled</translation>
    </message>
    <message>
        <source>Audit trail offline database location</source>
        <translation>Audit trail offline database location</translation>
    </message>
    <message>
        <source>Online audit trail</source>
        <translation>Online audit trail</translation>
    </message>
    <message>
        <source>Unknown. Click to read state from database.</source>
        <translation>Unknown. Click to read state from database.</translation>
    </message>
    <message>
        <source> Days</source>
        <translation> Days</translation>
    </message>
    <message>
        <source> Days (No expiration)</source>
        <translation> Days (No expiration)</translation>
    </message>
    <message>
        <source>Select offline database location directory</source>
        <translation>Select offline database location directory</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connect</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Please enter username.</source>
        <translation>Please enter username.</translation>
    </message>
    <message>
        <source>Setting not accepted</source>
        <translation>Setting not accepted</translation>
    </message>
    <message>
        <source>Setting was not loaded nor written.</source>
        <translation>Setting was not loaded nor written.</translation>
    </message>
    <message>
        <source>Setting read</source>
        <translation>Setting read</translation>
    </message>
    <message>
        <source>Setting value for connected database is now shown.</source>
        <translation>Setting value for connected database is now shown.</translation>
    </message>
    <message>
        <source>Setting accepted</source>
        <translation>Setting accepted</translation>
    </message>
    <message>
        <source>Setting is now bound to the connected database. Please save or distribute to bring into effect.</source>
        <translation>Setting is now bound to the connected database. Please save or distribute to bring into effect.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
</context>
<context>
    <name>AuditTrailQueryModel</name>
    <message>
        <source>Unknown</source>
        <translation>Unknown</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Access</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Database</translation>
    </message>
    <message>
        <source>User</source>
        <translation>User</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>Transfer</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Low</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>High</source>
        <translation>High</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatic</translation>
    </message>
    <message>
        <source>Human</source>
        <translation>Human</translation>
    </message>
</context>
<context>
    <name>AuditTrailQueryString</name>
    <message>
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Category</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Level</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Action</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Operator ID</source>
        <translation>Operator ID</translation>
    </message>
    <message>
        <source>Operator username</source>
        <translation>Operator username</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Database key</source>
        <translation>Database key</translation>
    </message>
    <message>
        <source>Additional Information</source>
        <translation>Additional Information</translation>
    </message>
    <message>
        <source>Target Database</source>
        <translation>Target Database</translation>
    </message>
    <message>
        <source>Target Server</source>
        <translation>Target Server</translation>
    </message>
</context>
<context>
    <name>AuditTrailView</name>
    <message>
        <source>Filter by:</source>
        <translation>Filter by:</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>Audit Trail Viewer</translation>
    </message>
    <message>
        <source>Connect to database</source>
        <translation>Connect to database</translation>
    </message>
    <message>
        <source>Connection options</source>
        <translation>Connection options</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Disconnect</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Action</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Category</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Level</translation>
    </message>
    <message>
        <source>Operator ID or username</source>
        <translation>Operator ID or username</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Date from</source>
        <translation>Date from</translation>
    </message>
    <message>
        <source>Date to</source>
        <translation>Date to</translation>
    </message>
    <message>
        <source>Database Key</source>
        <translation>Database Key</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unknown</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Select</translation>
    </message>
    <message>
        <source>Connection failed</source>
        <translation>Connection failed</translation>
    </message>
    <message>
        <source>Error code: %1</source>
        <translation>Error code: %1</translation>
    </message>
    <message>
        <source>Do you want to edit connection settings?</source>
        <translation>Do you want to edit connection settings?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Login information for audit trail database</source>
        <translation>Login information for audit trail database</translation>
    </message>
    <message>
        <source>Deselect</source>
        <translation>Deselect</translation>
    </message>
</context>
<context>
    <name>CentralElement</name>
    <message>
        <source>Critical error</source>
        <translation>Critical error</translation>
    </message>
    <message>
        <source>The program will be closed.</source>
        <translation>The program will be closed.</translation>
    </message>
    <message>
        <source>Error code</source>
        <translation>Error code</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Application ran into a problem and cannot start.</source>
        <translation>Application ran into a problem and cannot start.</translation>
    </message>
    <message>
        <source>Initialisation failed</source>
        <translation>Initialisation failed</translation>
    </message>
    <message>
        <source>Could not start program. Error code %1</source>
        <translation>Could not start program. Error code %1</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>Settings Management</source>
        <translation>Settings Management</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>Access Control Management</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>Audit Trail Viewer</translation>
    </message>
    <message>
        <source>About</source>
        <translation>About</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
</context>
<context>
    <name>CommunicationAndDataEngine</name>
    <message>
        <source>The audit trail can no longer be written.</source>
        <translation>The audit trail can no longer be written.</translation>
    </message>
</context>
<context>
    <name>ConfManagementDialog</name>
    <message>
        <source>Settings configuration management</source>
        <translation>Settings configuration management</translation>
    </message>
    <message>
        <source>Select settings configuration</source>
        <translation>Select settings configuration</translation>
    </message>
    <message>
        <source>Configuration notes</source>
        <translation>Configuration notes</translation>
    </message>
    <message>
        <source>Connected - reconnect</source>
        <translation>Connected - reconnect</translation>
    </message>
    <message>
        <source>No connection - connect</source>
        <translation>No connection - connect</translation>
    </message>
    <message>
        <source>Load configuration</source>
        <translation>Load configuration</translation>
    </message>
    <message>
        <source>Delete configuration</source>
        <translation>Delete configuration</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Show connection options</source>
        <translation>Show connection options</translation>
    </message>
    <message>
        <source>Hide connection options</source>
        <translation>Hide connection options</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Connecting...</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Connecting</translation>
    </message>
    <message>
        <source>%1 Created %2 by %3</source>
        <translation>%1 Created %2 by %3</translation>
    </message>
    <message>
        <source>Active in database</source>
        <translation>Active in database</translation>
    </message>
    <message>
        <source>Deleting settings</source>
        <translation>Deleting settings</translation>
    </message>
    <message>
        <source>Deleting from database:</source>
        <translation>Deleting from database:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cannot delete active configuration</source>
        <translation>Cannot delete active configuration</translation>
    </message>
    <message>
        <source>Settings configuration was not deleted</source>
        <translation>Settings configuration was not deleted</translation>
    </message>
    <message>
        <source>Could not delete settings configuration</source>
        <translation>Could not delete settings configuration</translation>
    </message>
    <message>
        <source>Check connection options and try again</source>
        <translation>Check connection options and try again</translation>
    </message>
    <message>
        <source>Deleting configuration failed</source>
        <translation>Deleting configuration failed</translation>
    </message>
    <message>
        <source>Deleting settings configuration from database was unsuccessful.</source>
        <translation>Deleting settings configuration from database was unsuccessful.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
</context>
<context>
    <name>ConnectionOptionsDialog</name>
    <message>
        <source>Audit trail connection options</source>
        <translation>Audit trail connection options</translation>
    </message>
    <message>
        <source>Select connection configuration</source>
        <translation>Select connection configuration</translation>
    </message>
    <message>
        <source>online</source>
        <translation>online</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>offline</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Username</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Connection settings</source>
        <translation>Connection settings</translation>
    </message>
    <message>
        <source>Connection parameters</source>
        <translation>Connection parameters</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Location</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Choose database file</source>
        <translation>Choose database file</translation>
    </message>
</context>
<context>
    <name>DatabaseGroupSettings</name>
    <message>
        <source>Connection mode</source>
        <translation>Connection mode</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Database</translation>
    </message>
    <message>
        <source>SQL type</source>
        <translation>SQL type</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Username</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Connection settings</source>
        <translation>Connection settings</translation>
    </message>
    <message>
        <source>Connection parameters</source>
        <translation>Connection parameters</translation>
    </message>
    <message>
        <source>Offline database Location</source>
        <translation>Offline database Location</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <source>Create new database</source>
        <translation>Create new database</translation>
    </message>
    <message>
        <source>Select offline database location directory</source>
        <translation>Select offline database location directory</translation>
    </message>
    <message>
        <source>Select offline database location</source>
        <translation>Select offline database location</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Select</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>DatabaseSettingsView</name>
    <message>
        <source>General storage settings</source>
        <translation>General storage settings</translation>
    </message>
    <message>
        <source>Offline database</source>
        <translation>Offline database</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Location</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <source>Use offline database exclusively</source>
        <translation>Use offline database exclusively</translation>
    </message>
    <message>
        <source>Synchronisation</source>
        <translation>Synchronisation</translation>
    </message>
    <message>
        <source>Identification criteria</source>
        <translation>Identification criteria</translation>
    </message>
    <message>
        <source>Database connection settings</source>
        <translation>Database connection settings</translation>
    </message>
    <message>
        <source>Select offline database location directory</source>
        <translation>Select offline database location directory</translation>
    </message>
</context>
<context>
    <name>DateEdit</name>
    <message>
        <source>Open calendar</source>
        <translation>Open calendar</translation>
    </message>
    <message>
        <source>This field is mandatory</source>
        <translation>This field is mandatory</translation>
    </message>
    <message>
        <source>Enter valid date</source>
        <translation>Enter valid date</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Calendar</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Time</translation>
    </message>
</context>
<context>
    <name>DiffView</name>
    <message>
        <source>Settings changes</source>
        <translation>Settings changes</translation>
    </message>
    <message>
        <source>Initially loaded settings:</source>
        <translation>Initially loaded settings:</translation>
    </message>
    <message>
        <source>Current modified settings:</source>
        <translation>Current modified settings:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Switch to compare to initially loaded settings</source>
        <translation>Switch to compare to initially loaded settings</translation>
    </message>
    <message>
        <source>Previously loaded settings:</source>
        <translation>Previously loaded settings:</translation>
    </message>
    <message>
        <source>Switch to compare to previously loaded settings</source>
        <translation>Switch to compare to previously loaded settings</translation>
    </message>
</context>
<context>
    <name>DistributionView</name>
    <message>
        <source>Check user rights and try again.</source>
        <translation>Check user rights and try again.</translation>
    </message>
    <message>
        <source>Check configuration ID and try again.</source>
        <translation>Check configuration ID and try again.</translation>
    </message>
    <message>
        <source>Check connection options and try again.</source>
        <translation>Check connection options and try again.</translation>
    </message>
    <message>
        <source>Distribute settings</source>
        <translation>Distribute settings</translation>
    </message>
    <message>
        <source>Options to connect settings database</source>
        <translation>Options to connect settings database</translation>
    </message>
    <message>
        <source>Insert additional configuration information</source>
        <translation>Insert additional configuration information</translation>
    </message>
    <message>
        <source>Inform user about settings change</source>
        <translation>Inform user about settings change</translation>
    </message>
    <message>
        <source>Add configuration release notes</source>
        <translation>Add configuration release notes</translation>
    </message>
    <message>
        <source>Save to database</source>
        <translation>Save to database</translation>
    </message>
    <message>
        <source>Distribute to users</source>
        <translation>Distribute to users</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Connecting...</translation>
    </message>
    <message>
        <source>Sending settings...</source>
        <translation>Sending settings...</translation>
    </message>
    <message>
        <source>Could not connect to database.</source>
        <translation>Could not connect to database.</translation>
    </message>
    <message>
        <source>Settings could not be inserted to database.</source>
        <translation>Settings could not be inserted to database.</translation>
    </message>
</context>
<context>
    <name>FieldEdit</name>
    <message>
        <source>male</source>
        <translation>male</translation>
    </message>
    <message>
        <source>female</source>
        <translation>female</translation>
    </message>
    <message>
        <source>undefined</source>
        <translation>undefined</translation>
    </message>
    <message>
        <source>African American</source>
        <translation>African American</translation>
    </message>
    <message>
        <source>Asian</source>
        <translation>Asian</translation>
    </message>
    <message>
        <source>Caucasian</source>
        <translation>Caucasian</translation>
    </message>
    <message>
        <source>Hispanic</source>
        <translation>Hispanic</translation>
    </message>
    <message>
        <source>Hong Kong Chinese</source>
        <translation>Hong Kong Chinese</translation>
    </message>
    <message>
        <source>Japanese American</source>
        <translation>Japanese American</translation>
    </message>
    <message>
        <source>Polynesian</source>
        <translation>Polynesian</translation>
    </message>
    <message>
        <source>North Indian and Pakistani</source>
        <translation>North Indian and Pakistani</translation>
    </message>
    <message>
        <source>South Indian</source>
        <translation>South Indian</translation>
    </message>
    <message>
        <source>African Descent</source>
        <translation>African Descent</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japanese</translation>
    </message>
    <message>
        <source>Mexican American</source>
        <translation>Mexican American</translation>
    </message>
    <message>
        <source>North East Asian</source>
        <translation>North East Asian</translation>
    </message>
    <message>
        <source>South East Asian</source>
        <translation>South East Asian</translation>
    </message>
    <message>
        <source>Mixed / Other</source>
        <translation>Mixed / Other</translation>
    </message>
    <message>
        <source>No Information</source>
        <translation>No Information</translation>
    </message>
</context>
<context>
    <name>FormParts</name>
    <message>
        <source>Select</source>
        <translation>Select</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>IdentificationBoxes</name>
    <message>
        <source>Personal ID</source>
        <translation>Personal ID</translation>
    </message>
    <message>
        <source>Person code</source>
        <translation>Person code</translation>
    </message>
    <message>
        <source>Last Name</source>
        <translation>Last Name</translation>
    </message>
    <message>
        <source>Middle Name</source>
        <translation>Middle Name</translation>
    </message>
    <message>
        <source>First Name</source>
        <translation>First Name</translation>
    </message>
    <message>
        <source>Birthdate</source>
        <translation>Birthdate</translation>
    </message>
    <message>
        <source>Gender</source>
        <translation>Gender</translation>
    </message>
    <message>
        <source>Ethnic Group</source>
        <translation>Ethnic Group</translation>
    </message>
</context>
<context>
    <name>ImportExportSettings</name>
    <message>
        <source>Automatic Import/Export</source>
        <translation>Automatic Import/Export</translation>
    </message>
    <message>
        <source>HIS system file format</source>
        <translation>HIS system file format</translation>
    </message>
    <message>
        <source>None</source>
        <translation>None</translation>
    </message>
    <message>
        <source>GDT</source>
        <translation>GDT</translation>
    </message>
    <message>
        <source>GDT 3.0</source>
        <translation>GDT 3.0</translation>
    </message>
    <message>
        <source>XML</source>
        <translation>XML</translation>
    </message>
    <message>
        <source>Import mode</source>
        <translation>Import mode</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insert</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Show dialogue if single matching person found</source>
        <translation>Show dialogue if single matching person found</translation>
    </message>
    <message>
        <source>Person identification</source>
        <translation>Person identification</translation>
    </message>
    <message>
        <source>Identification criteria</source>
        <translation>Identification criteria</translation>
    </message>
    <message>
        <source>Input file</source>
        <translation>Input file</translation>
    </message>
    <message>
        <source>Output file</source>
        <translation>Output file</translation>
    </message>
    <message>
        <source>Export options</source>
        <translation>Export options</translation>
    </message>
    <message>
        <source>Autoexport</source>
        <translation>Autoexport</translation>
    </message>
    <message>
        <source>No autoexport</source>
        <translation>No autoexport</translation>
    </message>
    <message>
        <source>No Export</source>
        <translation>No Export</translation>
    </message>
    <message>
        <source>Export Study Data</source>
        <translation>Export Study Data</translation>
    </message>
    <message>
        <source>Current study</source>
        <translation>Current study</translation>
    </message>
    <message>
        <source>All studies</source>
        <translation>All studies</translation>
    </message>
    <message>
        <source>Proceed into measurement automatically</source>
        <translation>Proceed into measurement automatically</translation>
    </message>
    <message>
        <source>Default locations:</source>
        <translation>Default locations:</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Default file format</source>
        <translation>Default file format</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <source>Select default import location</source>
        <translation>Select default import location</translation>
    </message>
    <message>
        <source>Select default export location</source>
        <translation>Select default export location</translation>
    </message>
    <message>
        <source>GDT File (*.gdt);;Any file (*.*)</source>
        <translation>GDT File (*.gdt);;Any file (*.*)</translation>
    </message>
    <message>
        <source>XML File (*.xml);;Any file (*.*)</source>
        <translation>XML File (*.xml);;Any file (*.*)</translation>
    </message>
</context>
<context>
    <name>IntroductionView</name>
    <message>
        <source>Corvane</source>
        <translation>Corvane</translation>
    </message>
    <message>
        <source>Settings Management</source>
        <translation>Settings Management</translation>
    </message>
    <message>
        <source>Database Management</source>
        <translation>Database Management</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>Access Control Management</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>Audit Trail Viewer</translation>
    </message>
</context>
<context>
    <name>LoginDialog</name>
    <message>
        <source>Username</source>
        <translation>Username</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>LoginView</name>
    <message>
        <source>Corvane</source>
        <translation>Corvane</translation>
    </message>
    <message>
        <source>Sign in</source>
        <translation>Sign in</translation>
    </message>
    <message>
        <source>Enter username</source>
        <translation>Enter username</translation>
    </message>
    <message>
        <source>Enter password</source>
        <translation>Enter password</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Username</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Go back</translation>
    </message>
    <message>
        <source>Select to login as</source>
        <translation>Select to login as</translation>
    </message>
    <message>
        <source>Windows administrator</source>
        <translation>Windows administrator</translation>
    </message>
    <message>
        <source>Current user</source>
        <translation>Current user</translation>
    </message>
    <message>
        <source>Other user</source>
        <translation>Other user</translation>
    </message>
    <message>
        <source>Authenticated user</source>
        <translation>Authenticated user</translation>
    </message>
    <message>
        <source>Windows user</source>
        <translation>Windows user</translation>
    </message>
    <message>
        <source>Application internal user</source>
        <translation>Application internal user</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Language:</translation>
    </message>
    <message>
        <source>Username needed.</source>
        <translation>Username needed.</translation>
    </message>
    <message>
        <source>Password needed.</source>
        <translation>Password needed.</translation>
    </message>
    <message>
        <source>Signing in.</source>
        <translation>Signing in.</translation>
    </message>
    <message>
        <source>Sign in failed!</source>
        <translation>Sign in failed!</translation>
    </message>
    <message>
        <source>Czech</source>
        <translation>Czech</translation>
    </message>
    <message>
        <source>German (Austria)</source>
        <translation>German (Austria)</translation>
    </message>
    <message>
        <source>German</source>
        <translation>German</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Danish</translation>
    </message>
    <message>
        <source>Greek</source>
        <translation>Greek</translation>
    </message>
    <message>
        <source>English (UK)</source>
        <translation>English (UK)</translation>
    </message>
    <message>
        <source>English (US)</source>
        <translation>English (US)</translation>
    </message>
    <message>
        <source>Estonian</source>
        <translation>Estonian</translation>
    </message>
    <message>
        <source>Finnish</source>
        <translation>Finnish</translation>
    </message>
    <message>
        <source>French</source>
        <translation>French</translation>
    </message>
    <message>
        <source>Hungarian</source>
        <translation>Hungarian</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italian</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japanese</translation>
    </message>
    <message>
        <source>Norwegian (Bokmål)</source>
        <translation>Norwegian (Bokmål)</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Dutch</translation>
    </message>
    <message>
        <source>Flemish</source>
        <translation>Flemish</translation>
    </message>
    <message>
        <source>Polish</source>
        <translation>Polish</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portuguese</translation>
    </message>
    <message>
        <source>Portuguese (Brazil)</source>
        <translation>Portuguese (Brazil)</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russian</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spanish</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Swedish</translation>
    </message>
    <message>
        <source>Turkish</source>
        <translation>Turkish</translation>
    </message>
    <message>
        <source>Thai</source>
        <translation>Thai</translation>
    </message>
    <message>
        <source>Chinese (PRC Simpl.)</source>
        <translation>Chinese (PRC Simpl.)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong Simpl.)</source>
        <translation>Chinese (Hong Kong Simpl.)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan Simpl.)</source>
        <translation>Chinese (Taiwan Simpl.)</translation>
    </message>
    <message>
        <source>Chinese (PRC Trad.)</source>
        <translation>Chinese (PRC Trad.)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong trad.)</source>
        <translation>Chinese (Hong Kong trad.)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan trad.)</source>
        <translation>Chinese (Taiwan trad.)</translation>
    </message>
</context>
<context>
    <name>PersonBrowserSettingsView</name>
    <message>
        <source>Finnish</source>
        <translation>Finnish</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Swedish</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japanese</translation>
    </message>
    <message>
        <source>Import/Export settings</source>
        <translation>Import/Export settings</translation>
    </message>
    <message>
        <source>Application settings</source>
        <translation>Application settings</translation>
    </message>
    <message>
        <source>Update settings when %1 starts</source>
        <translation>Update settings when %1 starts</translation>
    </message>
    <message>
        <source>Persons and Studies</source>
        <translation>Persons and Studies</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Date format</source>
        <translation>Date format</translation>
    </message>
    <message>
        <source>12 hour clock</source>
        <translation>12 hour clock</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Units</translation>
    </message>
    <message>
        <source>Metric (kg, cm , °C)</source>
        <translation>Metric (kg, cm , °C)</translation>
    </message>
    <message>
        <source>Imperial (lb, ft, in, °F)</source>
        <translation>Imperial (lb, ft, in, °F)</translation>
    </message>
    <message>
        <source>Default application size</source>
        <translation>Default application size</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Saved</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>Full</translation>
    </message>
    <message>
        <source>Enable notification messages</source>
        <translation>Enable notification messages</translation>
    </message>
    <message>
        <source>Pre-fill study information</source>
        <translation>Pre-fill study information</translation>
    </message>
    <message>
        <source>Personal ID systems</source>
        <translation>Personal ID systems</translation>
    </message>
    <message>
        <source>Used systems</source>
        <translation>Used systems</translation>
    </message>
    <message>
        <source>Default personal ID system</source>
        <translation>Default personal ID system</translation>
    </message>
    <message>
        <source>Ethnic groups</source>
        <translation>Ethnic groups</translation>
    </message>
    <message>
        <source>Shown ethnic groups</source>
        <translation>Shown ethnic groups</translation>
    </message>
    <message>
        <source>Default ethnic group</source>
        <translation>Default ethnic group</translation>
    </message>
    <message>
        <source>System locale</source>
        <translation>System locale</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Select</translation>
    </message>
    <message>
        <source>Czech</source>
        <translation>Czech</translation>
    </message>
    <message>
        <source>German (Austria)</source>
        <translation>German (Austria)</translation>
    </message>
    <message>
        <source>German</source>
        <translation>German</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Danish</translation>
    </message>
    <message>
        <source>Greek</source>
        <translation>Greek</translation>
    </message>
    <message>
        <source>English (UK)</source>
        <translation>English (UK)</translation>
    </message>
    <message>
        <source>English (US)</source>
        <translation>English (US)</translation>
    </message>
    <message>
        <source>Estonian</source>
        <translation>Estonian</translation>
    </message>
    <message>
        <source>French</source>
        <translation>French</translation>
    </message>
    <message>
        <source>Hungarian</source>
        <translation>Hungarian</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italian</translation>
    </message>
    <message>
        <source>Norwegian (Bokmål)</source>
        <translation>Norwegian (Bokmål)</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Dutch</translation>
    </message>
    <message>
        <source>Flemish</source>
        <translation>Flemish</translation>
    </message>
    <message>
        <source>Polish</source>
        <translation>Polish</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portuguese</translation>
    </message>
    <message>
        <source>Portuguese (Brazil)</source>
        <translation>Portuguese (Brazil)</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russian</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spanish</translation>
    </message>
    <message>
        <source>Turkish</source>
        <translation>Turkish</translation>
    </message>
    <message>
        <source>Thai</source>
        <translation>Thai</translation>
    </message>
    <message>
        <source>Chinese (PRC Simpl.)</source>
        <translation>Chinese (PRC Simpl.)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong Simpl.)</source>
        <translation>Chinese (Hong Kong Simpl.)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan Simpl.)</source>
        <translation>Chinese (Taiwan Simpl.)</translation>
    </message>
    <message>
        <source>Chinese (PRC Trad.)</source>
        <translation>Chinese (PRC Trad.)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong trad.)</source>
        <translation>Chinese (Hong Kong trad.)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan trad.)</source>
        <translation>Chinese (Taiwan trad.)</translation>
    </message>
    <message>
        <source>Unknown</source>
        <comment>personal ID system</comment>
        <translation>Unknown</translation>
    </message>
    <message>
        <source>Finnish</source>
        <comment>personal ID system</comment>
        <translation>Finnish</translation>
    </message>
    <message>
        <source>Swedish</source>
        <comment>personal ID system</comment>
        <translation>Swedish</translation>
    </message>
    <message>
        <source>No Information</source>
        <comment>ethnic group</comment>
        <translation>No Information</translation>
    </message>
    <message>
        <source>African American</source>
        <comment>ethnic group</comment>
        <translation>African American</translation>
    </message>
    <message>
        <source>Asian</source>
        <comment>ethnic group</comment>
        <translation>Asian</translation>
    </message>
    <message>
        <source>Caucasian</source>
        <comment>ethnic group</comment>
        <translation>Caucasian</translation>
    </message>
    <message>
        <source>Hispanic</source>
        <comment>ethnic group</comment>
        <translation>Hispanic</translation>
    </message>
    <message>
        <source>Hong Kong Chinese</source>
        <comment>ethnic group</comment>
        <translation>Hong Kong Chinese</translation>
    </message>
    <message>
        <source>Japanese American</source>
        <comment>ethnic group</comment>
        <translation>Japanese American</translation>
    </message>
    <message>
        <source>Polynesian</source>
        <comment>ethnic group</comment>
        <translation>Polynesian</translation>
    </message>
    <message>
        <source>North Indian and Pakistani</source>
        <comment>ethnic group</comment>
        <translation>North Indian and Pakistani</translation>
    </message>
    <message>
        <source>South Indian</source>
        <comment>ethnic group</comment>
        <translation>South Indian</translation>
    </message>
    <message>
        <source>African Descent</source>
        <comment>ethnic group</comment>
        <translation>African Descent</translation>
    </message>
    <message>
        <source>Japanese</source>
        <comment>ethnic group</comment>
        <translation>Japanese</translation>
    </message>
    <message>
        <source>Mexican American</source>
        <comment>ethnic group</comment>
        <translation>Mexican American</translation>
    </message>
    <message>
        <source>North East Asian</source>
        <comment>ethnic group</comment>
        <translation>North East Asian</translation>
    </message>
    <message>
        <source>South East Asian</source>
        <comment>ethnic group</comment>
        <translation>South East Asian</translation>
    </message>
    <message>
        <source>Mixed / Other</source>
        <comment>ethnic group</comment>
        <translation>Mixed / Other</translation>
    </message>
</context>
<context>
    <name>ProductTexts</name>
    <message>
        <source>© 2026 Halvorn. All rights reserved.</source>
        <translation>© 2026 Halvorn. All rights reserved.</translation>
    </message>
    <message>
        <source>Using this program means accepting the terms in the file Disclaimer.txt, which is delivered with it.</source>
        <translation>Using this program means accepting the terms in the file Disclaimer.txt, which is delivered with it.</translation>
    </message>
</context>
<context>
    <name>RemoveButton</name>
    <message>
        <source>Remove custom field</source>
        <translation>Remove custom field</translation>
    </message>
    <message>
        <source>Removing custom field</source>
        <translation>Removing custom field</translation>
    </message>
    <message>
        <source>Removing custom field will delete it permanently</source>
        <translation>Removing custom field will delete it permanently</translation>
    </message>
    <message>
        <source>Removing custom field will delete it permanently.</source>
        <translation>Removing custom field will delete it permanently.</translation>
    </message>
    <message>
        <source>Continue?</source>
        <translation>Continue?</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Select settings source from menu below</source>
        <translation>Select settings source from menu below</translation>
    </message>
    <message>
        <source>Manage local application</source>
        <translation>Manage local application</translation>
    </message>
    <message>
        <source>Enable autosaving to local application</source>
        <translation>Enable autosaving to local application</translation>
    </message>
    <message>
        <source>Save settings to local application</source>
        <translation>Save settings to local application</translation>
    </message>
    <message>
        <source>Load settings from local application</source>
        <translation>Load settings from local application</translation>
    </message>
    <message>
        <source>Manage online configurations</source>
        <translation>Manage online configurations</translation>
    </message>
    <message>
        <source>See changes made in settings</source>
        <translation>See changes made in settings</translation>
    </message>
    <message>
        <source>Manage settings configurations</source>
        <translation>Manage settings configurations</translation>
    </message>
    <message>
        <source>Distribute settings</source>
        <translation>Distribute settings</translation>
    </message>
    <message>
        <source>Transfer settings</source>
        <translation>Transfer settings</translation>
    </message>
    <message>
        <source>Import settings</source>
        <translation>Import settings</translation>
    </message>
    <message>
        <source>Export settings</source>
        <translation>Export settings</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Lacking privileges to save database settings.</source>
        <translation>Lacking privileges to save database settings.</translation>
    </message>
    <message>
        <source>Lacking privileges to save local audit trail settings.</source>
        <translation>Lacking privileges to save local audit trail settings.</translation>
    </message>
    <message>
        <source>Lacking privileges to save local access control settings.</source>
        <translation>Lacking privileges to save local access control settings.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Autosaving settings to local application settings file. This message is only shown once.</source>
        <translation>Autosaving settings to local application settings file. This message is only shown once.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Cannot write to local settings file.</source>
        <translation>Cannot write to local settings file.</translation>
    </message>
    <message>
        <source>Not all settings were saved.</source>
        <translation>Not all settings were saved.</translation>
    </message>
    <message>
        <source>Saving succeeded.</source>
        <translation>Saving succeeded.</translation>
    </message>
    <message>
        <source>Not all settings were loaded.</source>
        <translation>Not all settings were loaded.</translation>
    </message>
    <message>
        <source>Local settings</source>
        <translation>Local settings</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Database</translation>
    </message>
    <message>
        <source>Loading settings failed</source>
        <translation>Loading settings failed</translation>
    </message>
    <message>
        <source>Loading settings configuration from database was unsuccessful.
Previous settings restored.</source>
        <translation>Loading settings configuration from database was unsuccessful.
Previous settings restored.</translation>
    </message>
    <message>
        <source>INI (*.ini)</source>
        <translation>INI (*.ini)</translation>
    </message>
    <message>
        <source>Export to a file</source>
        <translation>Export to a file</translation>
    </message>
    <message>
        <source>File existed and could not be overwritten!</source>
        <translation>File existed and could not be overwritten!</translation>
    </message>
    <message>
        <source> File copying failed!</source>
        <translation> File copying failed!</translation>
    </message>
    <message>
        <source>Import from a file</source>
        <translation>Import from a file</translation>
    </message>
    <message>
        <source>Imported settings</source>
        <translation>Imported settings</translation>
    </message>
    <message>
        <source>File %1 not found! Please select existing file to import!</source>
        <translation>File %1 not found! Please select existing file to import!</translation>
    </message>
    <message>
        <source>Importing settings from %1 did not succeed. Please try again.</source>
        <translation>Importing settings from %1 did not succeed. Please try again.</translation>
    </message>
    <message>
        <source>Access control</source>
        <translation>Access control</translation>
    </message>
    <message>
        <source>and</source>
        <translation>and</translation>
    </message>
    <message>
        <source>Audit trail</source>
        <translation>Audit trail</translation>
    </message>
    <message>
        <source>Notice.</source>
        <translation>Notice.</translation>
    </message>
</context>
<context>
    <name>SqlCipherDriver</name>
    <message>
        <source>Error opening database</source>
        <translation>Error opening database</translation>
    </message>
    <message>
        <source>Error closing database</source>
        <translation>Error closing database</translation>
    </message>
    <message>
        <source>Unable to begin transaction</source>
        <translation>Unable to begin transaction</translation>
    </message>
    <message>
        <source>Unable to commit transaction</source>
        <translation>Unable to commit transaction</translation>
    </message>
    <message>
        <source>Unable to rollback transaction</source>
        <translation>Unable to rollback transaction</translation>
    </message>
</context>
<context>
    <name>SqlCipherResult</name>
    <message>
        <source>Unable to execute statement</source>
        <translation>Unable to execute statement</translation>
    </message>
    <message>
        <source>Unable to execute multiple statements at a time</source>
        <translation>Unable to execute multiple statements at a time</translation>
    </message>
    <message>
        <source>Unable to fetch row</source>
        <translation>Unable to fetch row</translation>
    </message>
    <message>
        <source>No query</source>
        <translation>No query</translation>
    </message>
    <message>
        <source>Parameter count mismatch</source>
        <translation>Parameter count mismatch</translation>
    </message>
    <message>
        <source>Unable to bind parameters</source>
        <translation>Unable to bind parameters</translation>
    </message>
    <message>
        <source>The connection is closed</source>
        <translation>The connection is closed</translation>
    </message>
</context>
<context>
    <name>SupportConnectionHandler</name>
    <message>
        <source>Connected to authentication database</source>
        <translation>Connected to authentication database</translation>
    </message>
    <message>
        <source>No connection to authentication database</source>
        <translation>No connection to authentication database</translation>
    </message>
    <message>
        <source>Connection options</source>
        <translation>Connection options</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>Reconnect</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connect</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Connection failed</source>
        <translation>Connection failed</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
</context>
<context>
    <name>ViewStacker</name>
    <message>
        <source>Settings Management</source>
        <translation>Settings Management</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>Access Control Management</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>Audit Trail Viewer</translation>
    </message>
</context>
<context>
    <name>ZephanSplash</name>
    <message>
        <source>THIS IS PRE-RELEASE VERSION OF THE SOFTWARE. NOT TO BE USED IN ANY CLINICAL WORK!</source>
        <translation>THIS IS PRE-RELEASE VERSION OF THE SOFTWARE. NOT TO BE USED IN ANY CLINICAL WORK!</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
</TS>
