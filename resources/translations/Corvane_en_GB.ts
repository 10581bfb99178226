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
    <name>AccessRights</name>
    <message>
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Distribute settings</source>
        <translation>Distribute settings</translation>
    </message>
    <message>
        <source>Download settings</source>
        <translation>Download settings</translation>
    </message>
    <message>
        <source>Write local DB settings</source>
        <translation>Write local DB settings</translation>
    </message>
    <message>
        <source>Audit Trail and Access Control</source>
        <translation>Audit Trail and Access Control</translation>
    </message>
    <message>
        <source>Access control management</source>
        <translation>Access control management</translation>
    </message>
    <message>
        <source>Audit trail management</source>
        <translation>Audit trail management</translation>
    </message>
    <message>
        <source>Person Access</source>
        <translation>Person Access</translation>
    </message>
    <message>
        <source>Read person</source>
        <translation>Read person</translation>
    </message>
    <message>
        <source>Modify person</source>
        <translation>Modify person</translation>
    </message>
    <message>
        <source>Create person</source>
        <translation>Create person</translation>
    </message>
    <message>
        <source>Delete person</source>
        <translation>Delete person</translation>
    </message>
    <message>
        <source>Study Access</source>
        <translation>Study Access</translation>
    </message>
    <message>
        <source>Read study</source>
        <translation>Read study</translation>
    </message>
    <message>
        <source>Modify study</source>
        <translation>Modify study</translation>
    </message>
    <message>
        <source>Create study</source>
        <translation>Create study</translation>
    </message>
    <message>
        <source>Delete study</source>
        <translation>Delete study</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>Transfer</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
</context>
<context>
    <name>AccessRoleEditDialog</name>
    <message>
        <source>Role</source>
        <translation>Role</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
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
        <source>Delete role</source>
        <translation>Delete role</translation>
    </message>
    <message>
        <source>Role is in use. Deselect role from users to delete it</source>
        <translation>Role is in use. Deselect role from users to delete it</translation>
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
    <name>AccessUserWizard</name>
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
        <source>Organisation</source>
        <translation>Organisation</translation>
    </message>
    <message>
        <source>Department</source>
        <translation>Department</translation>
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
        <source>Confirm Password</source>
        <translation>Confirm Password</translation>
    </message>
    <message>
        <source>Computer or domain</source>
        <translation>Computer or domain</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Remove user</source>
        <translation>Remove user</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Discard</translation>
    </message>
    <message>
        <source>Discard changes?</source>
        <translation>Discard changes?</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Windows group</source>
        <translation>Windows group</translation>
    </message>
    <message>
        <source>Windows user</source>
        <translation>Windows user</translation>
    </message>
    <message>
        <source>Enter name manually</source>
        <translation>Enter name manually</translation>
    </message>
    <message>
        <source>Local computer</source>
        <translation>Local computer</translation>
    </message>
    <message>
        <source>COMPUTER</source>
        <translation>COMPUTER</translation>
    </message>
    <message>
        <source>DOMAIN</source>
        <translation>DOMAIN</translation>
    </message>
    <message>
        <source>OR</source>
        <translation>OR</translation>
    </message>
    <message>
        <source>GROUP</source>
        <translation>GROUP</translation>
    </message>
    <message>
        <source>USER</source>
        <translation>USER</translation>
    </message>
    <message>
        <source>Select a Windows group</source>
        <translation>Select a Windows group</translation>
    </message>
    <message>
        <source>Select a Windows user</source>
        <translation>Select a Windows user</translation>
    </message>
    <message>
        <source>Internal user</source>
        <translation>Internal user</translation>
    </message>
    <message>
        <source>Username and Password cannot be empty</source>
        <translation>Username and Password cannot be empty</translation>
    </message>
    <message>
        <source>Remove group</source>
        <translation>Remove group</translation>
    </message>
    <message>
        <source>Associations to the roles will be removed.</source>
        <translation>Associations to the roles will be removed.</translation>
    </message>
    <message>
        <source>Password does not match with confirmation</source>
        <translation>Password does not match with confirmation</translation>
    </message>
    <message>
        <source>Username </source>
        <translation>Username </translation>
    </message>
    <message>
        <source>and </source>
        <translation>and </translation>
    </message>
    <message numerus="yes">
        <source>Password </source>
        <comment>If singular, the word starts the sentence, otherwise not.</comment>
        <translation>
            <numerusform>Password </numerusform>
            <numerusform>Password </numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>cannot be empty.</source>
        <comment>Before this can be: &quot;Username&quot; , &quot;Password&quot; or &quot;Username and password&quot;</comment>
        <translation>
            <numerusform>cannot be empty.</numerusform>
            <numerusform>cannot be empty.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AccesscontrolView</name>
    <message>
        <source>There are unsaved changes.
Save now?</source>
        <translation>There are unsaved changes.
Save now?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Not now</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>Access Control Management</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Save failed</source>
        <translation>Save failed</translation>
    </message>
    <message>
        <source>Could not save </source>
        <translation>Could not save </translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Unsaved changes</translation>
    </message>
    <message>
        <source>Please save first</source>
        <translation>Please save first</translation>
    </message>
    <message>
        <source>Delete failed</source>
        <translation>Delete failed</translation>
    </message>
    <message>
        <source>Could not delete.</source>
        <translation>Could not delete.</translation>
    </message>
    <message>
        <source>Load failed</source>
        <translation>Load failed</translation>
    </message>
    <message>
        <source>Could not load organisational information: </source>
        <translation>Could not load organisational information: </translation>
    </message>
    <message>
        <source>Name taken</source>
        <translation>Name taken</translation>
    </message>
    <message>
        <source>Please enter unique name.</source>
        <translation>Please enter unique name.</translation>
    </message>
    <message>
        <source>Could not save.</source>
        <translation>Could not save.</translation>
    </message>
    <message>
        <source>Username taken</source>
        <translation>Username taken</translation>
    </message>
    <message>
        <source>Please enter unique username.</source>
        <translation>Please enter unique username.</translation>
    </message>
    <message>
        <source>Username empty</source>
        <translation>Username empty</translation>
    </message>
    <message>
        <source>Please enter username.</source>
        <translation>Please enter username.</translation>
    </message>
    <message>
        <source>Name empty</source>
        <translation>Name empty</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>Users</translation>
    </message>
    <message>
        <source>Roles</source>
        <translation>Roles</translation>
    </message>
    <message>
        <source>Organisations</source>
        <translation>Organisations</translation>
    </message>
    <message>
        <source>Departments</source>
        <translation>Departments</translation>
    </message>
    <message>
        <source>Internal users</source>
        <translation>Internal users</translation>
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
        <source>View</source>
        <translation>View</translation>
    </message>
    <message>
        <source>Type of users</source>
        <translation>Type of users</translation>
    </message>
    <message>
        <source>Add new role</source>
        <translation>Add new role</translation>
    </message>
    <message>
        <source>Add new organisation</source>
        <translation>Add new organisation</translation>
    </message>
    <message>
        <source>Add new department</source>
        <translation>Add new department</translation>
    </message>
    <message>
        <source>Add new Windows user</source>
        <translation>Add new Windows user</translation>
    </message>
    <message>
        <source>Add new Windows group</source>
        <translation>Add new Windows group</translation>
    </message>
    <message>
        <source>Add new internal user</source>
        <translation>Add new internal user</translation>
    </message>
    <message>
        <source>Organisation</source>
        <translation>Organisation</translation>
    </message>
    <message>
        <source>Department</source>
        <translation>Department</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Address</translation>
    </message>
    <message>
        <source>Enter address</source>
        <translation>Enter address</translation>
    </message>
    <message>
        <source>Enter name</source>
        <translation>Enter name</translation>
    </message>
</context>
<context>
    <name>AuditTrailChartDialog</name>
    <message>
        <source>Events by hour (UTC)</source>
        <translation>Events by hour (UTC)</translation>
    </message>
    <message>
        <source>Events by day (UTC)</source>
        <translation>Events by day (UTC)</translation>
    </message>
    <message>
        <source>Events by week (UTC)</source>
        <translation>Events by week (UTC)</translation>
    </message>
    <message>
        <source>Events by month (UTC)</source>
        <translation>Events by month (UTC)</translation>
    </message>
    <message>
        <source>Events by year (UTC)</source>
        <translation>Events by year (UTC)</translation>
    </message>
    <message>
        <source>Events by decade (UTC)</source>
        <translation>Events by decade (UTC)</translation>
    </message>
    <message>
        <source>Events by century (UTC)</source>
        <translation>Events by century (UTC)</translation>
    </message>
    <message>
        <source>%1 events</source>
        <translation>%1 events</translation>
    </message>
    <message>
        <source>%1 more without a time</source>
        <translation>%1 more without a time</translation>
    </message>
    <message>
        <source>Audit events over time</source>
        <translation>Audit events over time</translation>
    </message>
    <message>
        <source>Save as picture...</source>
        <translation>Save as picture...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Save as picture</source>
        <translation>Save as picture</translation>
    </message>
    <message>
        <source>PNG (*.png)</source>
        <translation>PNG (*.png)</translation>
    </message>
    <message>
        <source>Events by millennium (UTC)</source>
        <translation>Events by millennium (UTC)</translation>
    </message>
</context>
<context>
    <name>AuditTrailExport</name>
    <message>
        <source>Saving the audit trail</source>
        <translation>Saving the audit trail</translation>
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
    <name>AuditTrailReader</name>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>%1: %2 rows</source>
        <translation>%1: %2 rows</translation>
    </message>
    <message>
        <source>%1: %2 of %3 rows</source>
        <translation>%1: %2 of %3 rows</translation>
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
    <message>
        <source>Copy rows with headers</source>
        <translation>Copy rows with headers</translation>
    </message>
    <message>
        <source>Copy cell</source>
        <translation>Copy cell</translation>
    </message>
    <message>
        <source>Save as CSV...</source>
        <translation>Save as CSV...</translation>
    </message>
    <message>
        <source>Show chart...</source>
        <translation>Show chart...</translation>
    </message>
    <message>
        <source>Save the audit trail</source>
        <translation>Save the audit trail</translation>
    </message>
    <message>
        <source>CSV (*.csv)</source>
        <translation>CSV (*.csv)</translation>
    </message>
    <message>
        <source>Reading the audit trail</source>
        <translation>Reading the audit trail</translation>
    </message>
    <message>
        <source>Copying the audit trail</source>
        <translation>Copying the audit trail</translation>
    </message>
    <message>
        <source>These are too many rows for the clipboard. Save them as CSV instead.</source>
        <translation>These are too many rows for the clipboard. Save them as CSV instead.</translation>
    </message>
    <message>
        <source>Reading failed</source>
        <translation>Reading failed</translation>
    </message>
    <message>
        <source>The audit trail could not be read to its end.</source>
        <translation>The audit trail could not be read to its end.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
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
    <message>
        <source>DB (*.db)</source>
        <translation>DB (*.db)</translation>
    </message>
</context>
<context>
    <name>CustomPersonField</name>
    <message>
        <source>Move up</source>
        <translation>Move up</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Move down</translation>
    </message>
    <message>
        <source>Name of the custom field</source>
        <translation>Name of the custom field</translation>
    </message>
    <message>
        <source>Visibility of the custom field</source>
        <translation>Visibility of the custom field</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>Visible</translation>
    </message>
    <message>
        <source>Not visible</source>
        <translation>Not visible</translation>
    </message>
    <message>
        <source>Lines of the custom field</source>
        <translation>Lines of the custom field</translation>
    </message>
    <message>
        <source>One line</source>
        <translation>One line</translation>
    </message>
    <message>
        <source>Multi line</source>
        <translation>Multi line</translation>
    </message>
    <message>
        <source>New field</source>
        <translation>New field</translation>
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
    <name>FieldSettingsView</name>
    <message>
        <source>Person information settings</source>
        <translation>Person information settings</translation>
    </message>
    <message>
        <source>Standard fields</source>
        <translation>Standard fields</translation>
    </message>
    <message>
        <source>Required by</source>
        <translation>Required by</translation>
    </message>
    <message>
        <source>Mandatory</source>
        <translation>Mandatory</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>Visible</translation>
    </message>
    <message>
        <source>Not visible</source>
        <translation>Not visible</translation>
    </message>
    <message>
        <source>Summary fields</source>
        <translation>Summary fields</translation>
    </message>
    <message>
        <source>Order of the full name</source>
        <translation>Order of the full name</translation>
    </message>
    <message>
        <source>Custom fields</source>
        <translation>Custom fields</translation>
    </message>
    <message>
        <source>Add new custom field</source>
        <translation>Add new custom field</translation>
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
    <name>QObject</name>
    <message>
        <source>Bergl_Z</source>
        <translation>Bergl_Z</translation>
    </message>
    <message>
        <source>Berglund for adults, Zapletal for children</source>
        <translation>Berglund for adults, Zapletal for children</translation>
    </message>
    <message>
        <source>Brazil</source>
        <translation>Brazil</translation>
    </message>
    <message>
        <source>Brazilian reference values</source>
        <translation>Brazilian reference values</translation>
    </message>
    <message>
        <source>China</source>
        <translation>China</translation>
    </message>
    <message>
        <source>Chinese reference values</source>
        <translation>Chinese reference values</translation>
    </message>
    <message>
        <source>Cra_Knu</source>
        <translation>Cra_Knu</translation>
    </message>
    <message>
        <source>Crapo for adults, Knudson for children</source>
        <translation>Crapo for adults, Knudson for children</translation>
    </message>
    <message>
        <source>ECSC_IGiChP</source>
        <translation>ECSC_IGiChP</translation>
    </message>
    <message>
        <source>Polish reference values: ECSC for adults, IGiChP for children</source>
        <translation>Polish reference values: ECSC for adults, IGiChP for children</translation>
    </message>
    <message>
        <source>ECSC_P</source>
        <translation>ECSC_P</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Polgar for children</source>
        <translation>European Coal and Steel Community for adults, Polgar for children</translation>
    </message>
    <message>
        <source>ECSC_PZ</source>
        <translation>ECSC_PZ</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Polgar and partly Zapletal for children</source>
        <translation>European Coal and Steel Community for adults, Polgar and partly Zapletal for children</translation>
    </message>
    <message>
        <source>ECSC_Qua</source>
        <translation>ECSC_Qua</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for children</source>
        <translation>European Coal and Steel Community for adults, Quanjer for children</translation>
    </message>
    <message>
        <source>ECSC_Qua_AT</source>
        <translation>ECSC_Qua_AT</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for Austrian children</source>
        <translation>European Coal and Steel Community for adults, Quanjer for Austrian children</translation>
    </message>
    <message>
        <source>ECSC_Qua_ES</source>
        <translation>ECSC_Qua_ES</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for Spanish children</source>
        <translation>European Coal and Steel Community for adults, Quanjer for Spanish children</translation>
    </message>
    <message>
        <source>ECSC_Qua_GB</source>
        <translation>ECSC_Qua_GB</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for English children</source>
        <translation>European Coal and Steel Community for adults, Quanjer for English children</translation>
    </message>
    <message>
        <source>ECSC_Z</source>
        <translation>ECSC_Z</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Zapletal for children</source>
        <translation>European Coal and Steel Community for adults, Zapletal for children</translation>
    </message>
    <message>
        <source>Forche2</source>
        <translation>Forche2</translation>
    </message>
    <message>
        <source>Austrian reference values: Forche for adults and children</source>
        <translation>Austrian reference values: Forche for adults and children</translation>
    </message>
    <message>
        <source>Garcia-Rio_Roca_SEP</source>
        <translation>Garcia-Rio_Roca_SEP</translation>
    </message>
    <message>
        <source>Spanish reference values: Garcia-Rio for elderly, Roca for adults, SEPAR for children</source>
        <translation>Spanish reference values: Garcia-Rio for elderly, Roca for adults, SEPAR for children</translation>
    </message>
    <message>
        <source>GLI2012</source>
        <translation>GLI2012</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for adults and children</source>
        <translation>Global Lung Function Initiative reference values for adults and children</translation>
    </message>
    <message>
        <source>GLI2012_African_American</source>
        <translation>GLI2012_African_American</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for African American adults and children</source>
        <translation>Global Lung Function Initiative reference values for African American adults and children</translation>
    </message>
    <message>
        <source>GLI2012_Caucasian</source>
        <translation>GLI2012_Caucasian</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for Caucasian adults and children</source>
        <translation>Global Lung Function Initiative reference values for Caucasian adults and children</translation>
    </message>
    <message>
        <source>GLI2012_North_East_Asians</source>
        <translation>GLI2012_North_East_Asians</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for North East Asians adults and children</source>
        <translation>Global Lung Function Initiative reference values for North East Asians adults and children</translation>
    </message>
    <message>
        <source>GLI2012_South_East_Asians</source>
        <translation>GLI2012_South_East_Asians</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for South East Asians adults and children</source>
        <translation>Global Lung Function Initiative reference values for South East Asians adults and children</translation>
    </message>
    <message>
        <source>GLI2012_Other/mixed</source>
        <translation>GLI2012_Other/mixed</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for Other/mixed adults and children</source>
        <translation>Global Lung Function Initiative reference values for Other/mixed adults and children</translation>
    </message>
    <message>
        <source>Gulsvik_Z</source>
        <translation>Gulsvik_Z</translation>
    </message>
    <message>
        <source>Norwegian reference values: Gulsvik for adults, Zapletal for children</source>
        <translation>Norwegian reference values: Gulsvik for adults, Zapletal for children</translation>
    </message>
    <message>
        <source>Hedenstrom_Sol</source>
        <translation>Hedenstrom_Sol</translation>
    </message>
    <message>
        <source>Swedish reference values: Hedenstrom for adults, Solymar for children</source>
        <translation>Swedish reference values: Hedenstrom for adults, Solymar for children</translation>
    </message>
    <message>
        <source>Hedenstrom_Z</source>
        <translation>Hedenstrom_Z</translation>
    </message>
    <message>
        <source> Swedish reference values: Hedenstrom for adults, Zapletal for children</source>
        <translation> Swedish reference values: Hedenstrom for adults, Zapletal for children</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>Japan</translation>
    </message>
    <message>
        <source> Japanese reference values</source>
        <translation> Japanese reference values</translation>
    </message>
    <message>
        <source>Jindal</source>
        <translation>Jindal</translation>
    </message>
    <message>
        <source>Indian reference values: Jindal for adults and adolescents</source>
        <translation>Indian reference values: Jindal for adults and adolescents</translation>
    </message>
    <message>
        <source>Kainu_Koillinen</source>
        <translation>Kainu_Koillinen</translation>
    </message>
    <message>
        <source>Finnish reference values: Kainu for adults and Koillinen for children</source>
        <translation>Finnish reference values: Kainu for adults and Koillinen for children</translation>
    </message>
    <message>
        <source>Klement</source>
        <translation>Klement</translation>
    </message>
    <message>
        <source> Russian reference values: Klement for adults and children</source>
        <translation> Russian reference values: Klement for adults and children</translation>
    </message>
    <message>
        <source>Knudson</source>
        <translation>Knudson</translation>
    </message>
    <message>
        <source> Knudson for adults and children</source>
        <translation> Knudson for adults and children</translation>
    </message>
    <message>
        <source>Langhammer_Z</source>
        <translation>Langhammer_Z</translation>
    </message>
    <message>
        <source>Norwegian reference values: Langhammer for adults, Zapletal for children</source>
        <translation>Norwegian reference values: Langhammer for adults, Zapletal for children</translation>
    </message>
    <message>
        <source>NHANES III_W</source>
        <translation>NHANES III_W</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds. Wang for children under 8 years</source>
        <translation>NHANES III (Hankinson) for 8-80-year-olds. Wang for children under 8 years</translation>
    </message>
    <message>
        <source>NHANES III_W_African_American</source>
        <translation>NHANES III_W_African_American</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years African American ethnics</source>
        <translation>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years African American ethnics</translation>
    </message>
    <message>
        <source>NHANES III_W_Mexican_American</source>
        <translation>NHANES III_W_Mexican_American</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years Mexican American ethnics</source>
        <translation>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years Mexican American ethnics</translation>
    </message>
    <message>
        <source>NHANES III_W_Other</source>
        <translation>NHANES III_W_Other</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years other ethnics</source>
        <translation>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years other ethnics</translation>
    </message>
    <message>
        <source>SEPAR</source>
        <translation>SEPAR</translation>
    </message>
    <message>
        <source>Spanish reference values: SEPAR for adults and children</source>
        <translation>Spanish reference values: SEPAR for adults and children</translation>
    </message>
    <message>
        <source>Udwadia</source>
        <translation>Udwadia</translation>
    </message>
    <message>
        <source>Indian reference values: Udwadia for adults and adolescents</source>
        <translation>Indian reference values: Udwadia for adults and adolescents</translation>
    </message>
    <message>
        <source>Vijayan</source>
        <translation>Vijayan</translation>
    </message>
    <message>
        <source>Indian reference values: Vijayan for adults and adolescents</source>
        <translation>Indian reference values: Vijayan for adults and adolescents</translation>
    </message>
    <message>
        <source>Viljanen_Kiv</source>
        <translation>Viljanen_Kiv</translation>
    </message>
    <message>
        <source>Estonian reference values: Viljanen for adults, Kivastik for children</source>
        <translation>Estonian reference values: Viljanen for adults, Kivastik for children</translation>
    </message>
    <message>
        <source>Viljanen_Koi</source>
        <translation>Viljanen_Koi</translation>
    </message>
    <message>
        <source>Finnish reference values: Viljanen for adults, Koillinen for children</source>
        <translation>Finnish reference values: Viljanen for adults, Koillinen for children</translation>
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
    <name>SaveFile</name>
    <message>
        <source>Saving failed</source>
        <translation>Saving failed</translation>
    </message>
    <message>
        <source>The file %1 could not be saved.</source>
        <translation>The file %1 could not be saved.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
</context>
<context>
    <name>SearchSettingsView</name>
    <message>
        <source>First name</source>
        <translation>First name</translation>
    </message>
    <message>
        <source>Middle name</source>
        <translation>Middle name</translation>
    </message>
    <message>
        <source>Last name</source>
        <translation>Last name</translation>
    </message>
    <message>
        <source>Personal ID</source>
        <translation>Personal ID</translation>
    </message>
    <message>
        <source>Person code</source>
        <translation>Person code</translation>
    </message>
    <message>
        <source>Minimum search characters</source>
        <translation>Minimum search characters</translation>
    </message>
    <message>
        <source>Search results in single row</source>
        <translation>Search results in single row</translation>
    </message>
    <message>
        <source>Person search result</source>
        <translation>Person search result</translation>
    </message>
    <message>
        <source>Search parameters</source>
        <translation>Search parameters</translation>
    </message>
    <message>
        <source>Custom fields to search:</source>
        <translation>Custom fields to search:</translation>
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
    <message>
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>Person fields</source>
        <translation>Person fields</translation>
    </message>
    <message>
        <source>Study fields</source>
        <translation>Study fields</translation>
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
    <name>StandardFields</name>
    <message>
        <source>Full Name</source>
        <translation>Full Name</translation>
    </message>
    <message>
        <source>First Name</source>
        <translation>First Name</translation>
    </message>
    <message>
        <source>Middle Name</source>
        <translation>Middle Name</translation>
    </message>
    <message>
        <source>Last Name</source>
        <translation>Last Name</translation>
    </message>
    <message>
        <source>Personal ID</source>
        <translation>Personal ID</translation>
    </message>
    <message>
        <source>Birthdate</source>
        <translation>Birthdate</translation>
    </message>
    <message>
        <source>Person code</source>
        <translation>Person code</translation>
    </message>
    <message>
        <source>Gender</source>
        <translation>Gender</translation>
    </message>
    <message>
        <source>Ethnic group</source>
        <translation>Ethnic group</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(empty)</translation>
    </message>
</context>
<context>
    <name>StudySettingsView</name>
    <message>
        <source>Study information settings for</source>
        <translation>Study information settings for</translation>
    </message>
    <message>
        <source>More study specific settings available when study plugins are installed</source>
        <translation>More study specific settings available when study plugins are installed</translation>
    </message>
    <message>
        <source>Hidden spirometry reference sets</source>
        <translation>Hidden spirometry reference sets</translation>
    </message>
    <message>
        <source>Default spirometry reference set</source>
        <translation>Default spirometry reference set</translation>
    </message>
    <message>
        <source>Spirometry</source>
        <translation>Spirometry</translation>
    </message>
    <message>
        <source>Select to hide</source>
        <translation>Select to hide</translation>
    </message>
    <message>
        <source>Application name</source>
        <translation>Application name</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Study list fields</source>
        <translation>Study list fields</translation>
    </message>
    <message>
        <source>Hidden study field editors</source>
        <translation>Hidden study field editors</translation>
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
    <name>TableHelper</name>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Are you sure?</source>
        <translation>Are you sure?</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
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
