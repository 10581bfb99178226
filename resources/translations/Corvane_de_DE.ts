<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_GB">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>THIS IS PRE-RELEASE VERSION OF THE SOFTWARE.</source>
        <translation>DIES IST EINE VORABVERSION DER SOFTWARE.</translation>
    </message>
    <message>
        <source>NOT TO BE USED IN ANY CLINICAL WORK!</source>
        <translation>NICHT FÜR DEN KLINISCHEN EINSATZ!</translation>
    </message>
    <message>
        <source>Cannot fetch about information</source>
        <translation>Die Programminformationen können nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>AccessRights</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Distribute settings</source>
        <translation>Einstellungen verteilen</translation>
    </message>
    <message>
        <source>Download settings</source>
        <translation>Einstellungen herunterladen</translation>
    </message>
    <message>
        <source>Write local DB settings</source>
        <translation>Lokale Datenbankeinstellungen schreiben</translation>
    </message>
    <message>
        <source>Audit Trail and Access Control</source>
        <translation>Audit-Trail und Zugriffskontrolle</translation>
    </message>
    <message>
        <source>Access control management</source>
        <translation>Zugriffsverwaltung</translation>
    </message>
    <message>
        <source>Audit trail management</source>
        <translation>Audit-Trail-Verwaltung</translation>
    </message>
    <message>
        <source>Person Access</source>
        <translation>Zugriff auf Personen</translation>
    </message>
    <message>
        <source>Read person</source>
        <translation>Personen lesen</translation>
    </message>
    <message>
        <source>Modify person</source>
        <translation>Personen ändern</translation>
    </message>
    <message>
        <source>Create person</source>
        <translation>Personen anlegen</translation>
    </message>
    <message>
        <source>Delete person</source>
        <translation>Personen löschen</translation>
    </message>
    <message>
        <source>Study Access</source>
        <translation>Zugriff auf Untersuchungen</translation>
    </message>
    <message>
        <source>Read study</source>
        <translation>Untersuchungen lesen</translation>
    </message>
    <message>
        <source>Modify study</source>
        <translation>Untersuchungen ändern</translation>
    </message>
    <message>
        <source>Create study</source>
        <translation>Untersuchungen anlegen</translation>
    </message>
    <message>
        <source>Delete study</source>
        <translation>Untersuchungen löschen</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>Übertragung</translation>
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
        <translation>Rolle</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Delete role</source>
        <translation>Rolle löschen</translation>
    </message>
    <message>
        <source>Role is in use. Deselect role from users to delete it</source>
        <translation>Die Rolle wird verwendet. Entziehen Sie sie den Benutzern, um sie zu löschen</translation>
    </message>
</context>
<context>
    <name>AccessSettingsView</name>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Windows group based</source>
        <translation>Windows-Gruppen</translation>
    </message>
    <message>
        <source>Windows user based</source>
        <translation>Windows-Benutzer</translation>
    </message>
    <message>
        <source>Internal users</source>
        <translation>Interne Benutzer</translation>
    </message>
    <message>
        <source>Access control settings</source>
        <translation>Einstellungen der Zugriffskontrolle</translation>
    </message>
    <message>
        <source>Access control method</source>
        <translation>Methode der Zugriffskontrolle</translation>
    </message>
    <message>
        <source>Offline Cache</source>
        <translation>Offline-Zwischenspeicher</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>Expiration time</source>
        <translation>Ablaufzeit</translation>
    </message>
    <message>
        <source>Warn user of expiration</source>
        <translation>Benutzer vor dem Ablauf warnen</translation>
    </message>
    <message>
        <source>Local access control system</source>
        <translation>Lokale Zugriffskontrolle</translation>
    </message>
    <message>
        <source>Path to local access control database</source>
        <translation>Pfad der lokalen Zugriffskontrolldatenbank</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Audit trail settings</source>
        <translation>Einstellungen des Audit-Trails</translation>
    </message>
    <message>
        <source>Offline audit trail enabled</source>
        <translation>Offline-Audit-Trail aktiviert</translation>
    </message>
    <message>
        <source>Audit trail offline database location</source>
        <translation>Speicherort der Offline-Datenbank des Audit-Trails</translation>
    </message>
    <message>
        <source>Online audit trail</source>
        <translation>Online-Audit-Trail</translation>
    </message>
    <message>
        <source>Unknown. Click to read state from database.</source>
        <translation>Unbekannt. Klicken Sie, um den Zustand aus der Datenbank zu lesen.</translation>
    </message>
    <message>
        <source> Days</source>
        <translation> Tage</translation>
    </message>
    <message>
        <source> Days (No expiration)</source>
        <translation> Tage (kein Ablauf)</translation>
    </message>
    <message>
        <source>Select offline database location directory</source>
        <translation>Ordner der Offline-Datenbank auswählen</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Please enter username.</source>
        <translation>Bitte geben Sie einen Benutzernamen ein.</translation>
    </message>
    <message>
        <source>Setting not accepted</source>
        <translation>Einstellung nicht übernommen</translation>
    </message>
    <message>
        <source>Setting was not loaded nor written.</source>
        <translation>Die Einstellung wurde weder geladen noch geschrieben.</translation>
    </message>
    <message>
        <source>Setting read</source>
        <translation>Einstellung gelesen</translation>
    </message>
    <message>
        <source>Setting value for connected database is now shown.</source>
        <translation>Der Wert der Einstellung für die verbundene Datenbank wird nun angezeigt.</translation>
    </message>
    <message>
        <source>Setting accepted</source>
        <translation>Einstellung übernommen</translation>
    </message>
    <message>
        <source>Setting is now bound to the connected database. Please save or distribute to bring into effect.</source>
        <translation>Die Einstellung ist nun an die verbundene Datenbank gebunden. Bitte speichern oder verteilen Sie sie, damit sie wirksam wird.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>AccessUserWizard</name>
    <message>
        <source>Last Name</source>
        <translation>Nachname</translation>
    </message>
    <message>
        <source>Middle Name</source>
        <translation>Zweiter Vorname</translation>
    </message>
    <message>
        <source>First Name</source>
        <translation>Vorname</translation>
    </message>
    <message>
        <source>Organisation</source>
        <translation>Organisation</translation>
    </message>
    <message>
        <source>Department</source>
        <translation>Abteilung</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Confirm Password</source>
        <translation>Passwort bestätigen</translation>
    </message>
    <message>
        <source>Computer or domain</source>
        <translation>Computer oder Domäne</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Remove user</source>
        <translation>Benutzer entfernen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Discard changes?</source>
        <translation>Änderungen verwerfen?</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Windows group</source>
        <translation>Windows-Gruppe</translation>
    </message>
    <message>
        <source>Windows user</source>
        <translation>Windows-Benutzer</translation>
    </message>
    <message>
        <source>Enter name manually</source>
        <translation>Namen manuell eingeben</translation>
    </message>
    <message>
        <source>Local computer</source>
        <translation>Lokaler Computer</translation>
    </message>
    <message>
        <source>COMPUTER</source>
        <translation>COMPUTER</translation>
    </message>
    <message>
        <source>DOMAIN</source>
        <translation>DOMÄNE</translation>
    </message>
    <message>
        <source>OR</source>
        <translation>ODER</translation>
    </message>
    <message>
        <source>GROUP</source>
        <translation>GRUPPE</translation>
    </message>
    <message>
        <source>USER</source>
        <translation>BENUTZER</translation>
    </message>
    <message>
        <source>Select a Windows group</source>
        <translation>Windows-Gruppe auswählen</translation>
    </message>
    <message>
        <source>Select a Windows user</source>
        <translation>Windows-Benutzer auswählen</translation>
    </message>
    <message>
        <source>Internal user</source>
        <translation>Interner Benutzer</translation>
    </message>
    <message>
        <source>Username and Password cannot be empty</source>
        <translation>Benutzername und Passwort dürfen nicht leer sein</translation>
    </message>
    <message>
        <source>Remove group</source>
        <translation>Gruppe entfernen</translation>
    </message>
    <message>
        <source>Associations to the roles will be removed.</source>
        <translation>Die Zuordnungen zu den Rollen werden entfernt.</translation>
    </message>
    <message>
        <source>Password does not match with confirmation</source>
        <translation>Das Passwort stimmt nicht mit der Bestätigung überein</translation>
    </message>
    <message>
        <source>Username </source>
        <translation>Benutzername </translation>
    </message>
    <message>
        <source>and </source>
        <translation>und </translation>
    </message>
    <message numerus="yes">
        <source>Password </source>
        <comment>If singular, the word starts the sentence, otherwise not.</comment>
        <translation>
            <numerusform>Passwort </numerusform>
            <numerusform>Passwort </numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>cannot be empty.</source>
        <comment>Before this can be: &quot;Username&quot; , &quot;Password&quot; or &quot;Username and password&quot;</comment>
        <translation>
            <numerusform>darf nicht leer sein.</numerusform>
            <numerusform>dürfen nicht leer sein.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AccesscontrolView</name>
    <message>
        <source>There are unsaved changes.
Save now?</source>
        <translation>Es gibt ungespeicherte Änderungen.
Jetzt speichern?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>Zugriffsverwaltung</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Save failed</source>
        <translation>Speichern fehlgeschlagen</translation>
    </message>
    <message>
        <source>Could not save </source>
        <translation>Nicht gespeichert werden konnte </translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>Please save first</source>
        <translation>Bitte speichern Sie zuerst</translation>
    </message>
    <message>
        <source>Delete failed</source>
        <translation>Löschen fehlgeschlagen</translation>
    </message>
    <message>
        <source>Could not delete.</source>
        <translation>Das Löschen ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Load failed</source>
        <translation>Laden fehlgeschlagen</translation>
    </message>
    <message>
        <source>Could not load organisational information: </source>
        <translation>Die Organisationsdaten konnten nicht geladen werden: </translation>
    </message>
    <message>
        <source>Name taken</source>
        <translation>Name bereits vergeben</translation>
    </message>
    <message>
        <source>Please enter unique name.</source>
        <translation>Bitte geben Sie einen eindeutigen Namen ein.</translation>
    </message>
    <message>
        <source>Could not save.</source>
        <translation>Das Speichern ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Username taken</source>
        <translation>Benutzername bereits vergeben</translation>
    </message>
    <message>
        <source>Please enter unique username.</source>
        <translation>Bitte geben Sie einen eindeutigen Benutzernamen ein.</translation>
    </message>
    <message>
        <source>Username empty</source>
        <translation>Benutzername fehlt</translation>
    </message>
    <message>
        <source>Please enter username.</source>
        <translation>Bitte geben Sie einen Benutzernamen ein.</translation>
    </message>
    <message>
        <source>Name empty</source>
        <translation>Name fehlt</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Roles</source>
        <translation>Rollen</translation>
    </message>
    <message>
        <source>Organisations</source>
        <translation>Organisationen</translation>
    </message>
    <message>
        <source>Departments</source>
        <translation>Abteilungen</translation>
    </message>
    <message>
        <source>Internal users</source>
        <translation>Interne Benutzer</translation>
    </message>
    <message>
        <source>Windows group based</source>
        <translation>Windows-Gruppen</translation>
    </message>
    <message>
        <source>Windows user based</source>
        <translation>Windows-Benutzer</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Type of users</source>
        <translation>Art der Benutzer</translation>
    </message>
    <message>
        <source>Add new role</source>
        <translation>Neue Rolle hinzufügen</translation>
    </message>
    <message>
        <source>Add new organisation</source>
        <translation>Neue Organisation hinzufügen</translation>
    </message>
    <message>
        <source>Add new department</source>
        <translation>Neue Abteilung hinzufügen</translation>
    </message>
    <message>
        <source>Add new Windows user</source>
        <translation>Neuen Windows-Benutzer hinzufügen</translation>
    </message>
    <message>
        <source>Add new Windows group</source>
        <translation>Neue Windows-Gruppe hinzufügen</translation>
    </message>
    <message>
        <source>Add new internal user</source>
        <translation>Neuen internen Benutzer hinzufügen</translation>
    </message>
    <message>
        <source>Organisation</source>
        <translation>Organisation</translation>
    </message>
    <message>
        <source>Department</source>
        <translation>Abteilung</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Enter address</source>
        <translation>Adresse eingeben</translation>
    </message>
    <message>
        <source>Enter name</source>
        <translation>Namen eingeben</translation>
    </message>
</context>
<context>
    <name>AuditTrailChartDialog</name>
    <message>
        <source>Events by hour (UTC)</source>
        <translation>Ereignisse je Stunde (UTC)</translation>
    </message>
    <message>
        <source>Events by day (UTC)</source>
        <translation>Ereignisse je Tag (UTC)</translation>
    </message>
    <message>
        <source>Events by week (UTC)</source>
        <translation>Ereignisse je Woche (UTC)</translation>
    </message>
    <message>
        <source>Events by month (UTC)</source>
        <translation>Ereignisse je Monat (UTC)</translation>
    </message>
    <message>
        <source>Events by year (UTC)</source>
        <translation>Ereignisse je Jahr (UTC)</translation>
    </message>
    <message>
        <source>Events by decade (UTC)</source>
        <translation>Ereignisse je Jahrzehnt (UTC)</translation>
    </message>
    <message>
        <source>Events by century (UTC)</source>
        <translation>Ereignisse je Jahrhundert (UTC)</translation>
    </message>
    <message>
        <source>%1 events</source>
        <translation>%1 Ereignisse</translation>
    </message>
    <message>
        <source>%1 more without a time</source>
        <translation>%1 weitere ohne Zeitangabe</translation>
    </message>
    <message>
        <source>Audit events over time</source>
        <translation>Audit-Ereignisse im Zeitverlauf</translation>
    </message>
    <message>
        <source>Save as picture...</source>
        <translation>Als Bild speichern...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Save as picture</source>
        <translation>Als Bild speichern</translation>
    </message>
    <message>
        <source>PNG (*.png)</source>
        <translation>PNG (*.png)</translation>
    </message>
    <message>
        <source>Events by millennium (UTC)</source>
        <translation>Ereignisse je Jahrtausend (UTC)</translation>
    </message>
</context>
<context>
    <name>AuditTrailExport</name>
    <message>
        <source>Saving the audit trail</source>
        <translation>Audit-Trail wird gespeichert</translation>
    </message>
</context>
<context>
    <name>AuditTrailQueryModel</name>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Zugriff</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Datenbank</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>Übertragung</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Niedrig</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Human</source>
        <translation>Person</translation>
    </message>
</context>
<context>
    <name>AuditTrailQueryString</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Stufe</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Operator ID</source>
        <translation>Bediener-ID</translation>
    </message>
    <message>
        <source>Operator username</source>
        <translation>Benutzername des Bedieners</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Database key</source>
        <translation>Datenbankschlüssel</translation>
    </message>
    <message>
        <source>Additional Information</source>
        <translation>Zusätzliche Informationen</translation>
    </message>
    <message>
        <source>Target Database</source>
        <translation>Zieldatenbank</translation>
    </message>
    <message>
        <source>Target Server</source>
        <translation>Zielserver</translation>
    </message>
</context>
<context>
    <name>AuditTrailReader</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1: %2 rows</source>
        <translation>%1: %2 Zeilen</translation>
    </message>
    <message>
        <source>%1: %2 of %3 rows</source>
        <translation>%1: %2 von %3 Zeilen</translation>
    </message>
</context>
<context>
    <name>AuditTrailView</name>
    <message>
        <source>Filter by:</source>
        <translation>Filtern nach:</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>Audit-Trail-Anzeige</translation>
    </message>
    <message>
        <source>Connect to database</source>
        <translation>Mit Datenbank verbinden</translation>
    </message>
    <message>
        <source>Connection options</source>
        <translation>Verbindungsoptionen</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Trennen</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Stufe</translation>
    </message>
    <message>
        <source>Operator ID or username</source>
        <translation>Bediener-ID oder Benutzername</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Date from</source>
        <translation>Datum von</translation>
    </message>
    <message>
        <source>Date to</source>
        <translation>Datum bis</translation>
    </message>
    <message>
        <source>Database Key</source>
        <translation>Datenbankschlüssel</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Connection failed</source>
        <translation>Verbindung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Error code: %1</source>
        <translation>Fehlercode: %1</translation>
    </message>
    <message>
        <source>Do you want to edit connection settings?</source>
        <translation>Möchten Sie die Verbindungseinstellungen bearbeiten?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Login information for audit trail database</source>
        <translation>Anmeldedaten für die Audit-Trail-Datenbank</translation>
    </message>
    <message>
        <source>Deselect</source>
        <translation>Abwählen</translation>
    </message>
    <message>
        <source>Copy rows with headers</source>
        <translation>Zeilen mit Überschriften kopieren</translation>
    </message>
    <message>
        <source>Copy cell</source>
        <translation>Zelle kopieren</translation>
    </message>
    <message>
        <source>Save as CSV...</source>
        <translation>Als CSV speichern...</translation>
    </message>
    <message>
        <source>Show chart...</source>
        <translation>Diagramm anzeigen...</translation>
    </message>
    <message>
        <source>Save the audit trail</source>
        <translation>Audit-Trail speichern</translation>
    </message>
    <message>
        <source>CSV (*.csv)</source>
        <translation>CSV (*.csv)</translation>
    </message>
    <message>
        <source>Reading the audit trail</source>
        <translation>Audit-Trail wird gelesen</translation>
    </message>
    <message>
        <source>Copying the audit trail</source>
        <translation>Audit-Trail wird kopiert</translation>
    </message>
    <message>
        <source>These are too many rows for the clipboard. Save them as CSV instead.</source>
        <translation>Das sind zu viele Zeilen für die Zwischenablage. Speichern Sie sie stattdessen als CSV.</translation>
    </message>
    <message>
        <source>Reading failed</source>
        <translation>Lesen fehlgeschlagen</translation>
    </message>
    <message>
        <source>The audit trail could not be read to its end.</source>
        <translation>Der Audit-Trail konnte nicht bis zum Ende gelesen werden.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>CentralElement</name>
    <message>
        <source>Critical error</source>
        <translation>Kritischer Fehler</translation>
    </message>
    <message>
        <source>The program will be closed.</source>
        <translation>Das Programm wird beendet.</translation>
    </message>
    <message>
        <source>Error code</source>
        <translation>Fehlercode</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Application ran into a problem and cannot start.</source>
        <translation>In der Anwendung ist ein Problem aufgetreten. Sie kann nicht gestartet werden.</translation>
    </message>
    <message>
        <source>Initialisation failed</source>
        <translation>Initialisierung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Could not start program. Error code %1</source>
        <translation>Das Programm konnte nicht gestartet werden. Fehlercode %1</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Startseite</translation>
    </message>
    <message>
        <source>Settings Management</source>
        <translation>Einstellungsverwaltung</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>Zugriffsverwaltung</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>Audit-Trail-Anzeige</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>CommunicationAndDataEngine</name>
    <message>
        <source>The audit trail can no longer be written.</source>
        <translation>Der Audit-Trail kann nicht mehr geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>ConfManagementDialog</name>
    <message>
        <source>Settings configuration management</source>
        <translation>Verwaltung der Einstellungskonfigurationen</translation>
    </message>
    <message>
        <source>Select settings configuration</source>
        <translation>Einstellungskonfiguration auswählen</translation>
    </message>
    <message>
        <source>Configuration notes</source>
        <translation>Hinweise zur Konfiguration</translation>
    </message>
    <message>
        <source>Connected - reconnect</source>
        <translation>Verbunden - neu verbinden</translation>
    </message>
    <message>
        <source>No connection - connect</source>
        <translation>Keine Verbindung - verbinden</translation>
    </message>
    <message>
        <source>Load configuration</source>
        <translation>Konfiguration laden</translation>
    </message>
    <message>
        <source>Delete configuration</source>
        <translation>Konfiguration löschen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Show connection options</source>
        <translation>Verbindungsoptionen anzeigen</translation>
    </message>
    <message>
        <source>Hide connection options</source>
        <translation>Verbindungsoptionen ausblenden</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Verbindung wird hergestellt...</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Verbindung wird hergestellt</translation>
    </message>
    <message>
        <source>%1 Created %2 by %3</source>
        <translation>%1 Erstellt am %2 von %3</translation>
    </message>
    <message>
        <source>Active in database</source>
        <translation>In der Datenbank aktiv</translation>
    </message>
    <message>
        <source>Deleting settings</source>
        <translation>Einstellungen löschen</translation>
    </message>
    <message>
        <source>Deleting from database:</source>
        <translation>Aus der Datenbank wird gelöscht:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cannot delete active configuration</source>
        <translation>Die aktive Konfiguration kann nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Settings configuration was not deleted</source>
        <translation>Die Einstellungskonfiguration wurde nicht gelöscht</translation>
    </message>
    <message>
        <source>Could not delete settings configuration</source>
        <translation>Die Einstellungskonfiguration konnte nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Check connection options and try again</source>
        <translation>Prüfen Sie die Verbindungsoptionen und versuchen Sie es erneut</translation>
    </message>
    <message>
        <source>Deleting configuration failed</source>
        <translation>Löschen der Konfiguration fehlgeschlagen</translation>
    </message>
    <message>
        <source>Deleting settings configuration from database was unsuccessful.</source>
        <translation>Die Einstellungskonfiguration konnte nicht aus der Datenbank gelöscht werden.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>ConnectionOptionsDialog</name>
    <message>
        <source>Audit trail connection options</source>
        <translation>Verbindungsoptionen für den Audit-Trail</translation>
    </message>
    <message>
        <source>Select connection configuration</source>
        <translation>Verbindungskonfiguration auswählen</translation>
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
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Connection settings</source>
        <translation>Verbindungseinstellungen</translation>
    </message>
    <message>
        <source>Connection parameters</source>
        <translation>Verbindungsparameter</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Speicherort</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Choose database file</source>
        <translation>Datenbankdatei auswählen</translation>
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
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Name of the custom field</source>
        <translation>Name des benutzerdefinierten Feldes</translation>
    </message>
    <message>
        <source>Visibility of the custom field</source>
        <translation>Sichtbarkeit des benutzerdefinierten Feldes</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>Not visible</source>
        <translation>Nicht sichtbar</translation>
    </message>
    <message>
        <source>Lines of the custom field</source>
        <translation>Zeilen des benutzerdefinierten Feldes</translation>
    </message>
    <message>
        <source>One line</source>
        <translation>Einzeilig</translation>
    </message>
    <message>
        <source>Multi line</source>
        <translation>Mehrzeilig</translation>
    </message>
    <message>
        <source>New field</source>
        <translation>Neues Feld</translation>
    </message>
</context>
<context>
    <name>DatabaseGroupSettings</name>
    <message>
        <source>Connection mode</source>
        <translation>Verbindungsmodus</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Datenbank</translation>
    </message>
    <message>
        <source>SQL type</source>
        <translation>SQL-Typ</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Connection settings</source>
        <translation>Verbindungseinstellungen</translation>
    </message>
    <message>
        <source>Connection parameters</source>
        <translation>Verbindungsparameter</translation>
    </message>
    <message>
        <source>Offline database Location</source>
        <translation>Speicherort der Offline-Datenbank</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Create new database</source>
        <translation>Neue Datenbank anlegen</translation>
    </message>
    <message>
        <source>Select offline database location directory</source>
        <translation>Ordner der Offline-Datenbank auswählen</translation>
    </message>
    <message>
        <source>Select offline database location</source>
        <translation>Speicherort der Offline-Datenbank auswählen</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>DatabaseSettingsView</name>
    <message>
        <source>General storage settings</source>
        <translation>Allgemeine Speichereinstellungen</translation>
    </message>
    <message>
        <source>Offline database</source>
        <translation>Offline-Datenbank</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Speicherort</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Use offline database exclusively</source>
        <translation>Ausschließlich die Offline-Datenbank verwenden</translation>
    </message>
    <message>
        <source>Synchronisation</source>
        <translation>Synchronisierung</translation>
    </message>
    <message>
        <source>Identification criteria</source>
        <translation>Identifikationskriterien</translation>
    </message>
    <message>
        <source>Database connection settings</source>
        <translation>Datenbankverbindungen</translation>
    </message>
    <message>
        <source>Select offline database location directory</source>
        <translation>Ordner der Offline-Datenbank auswählen</translation>
    </message>
</context>
<context>
    <name>DateEdit</name>
    <message>
        <source>Open calendar</source>
        <translation>Kalender öffnen</translation>
    </message>
    <message>
        <source>This field is mandatory</source>
        <translation>Dieses Feld ist ein Pflichtfeld</translation>
    </message>
    <message>
        <source>Enter valid date</source>
        <translation>Gültiges Datum eingeben</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
</context>
<context>
    <name>DiffView</name>
    <message>
        <source>Settings changes</source>
        <translation>Änderungen an den Einstellungen</translation>
    </message>
    <message>
        <source>Initially loaded settings:</source>
        <translation>Ursprünglich geladene Einstellungen:</translation>
    </message>
    <message>
        <source>Current modified settings:</source>
        <translation>Aktuelle geänderte Einstellungen:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Switch to compare to initially loaded settings</source>
        <translation>Mit zuerst geladenen vergleichen</translation>
    </message>
    <message>
        <source>Previously loaded settings:</source>
        <translation>Zuvor geladene Einstellungen:</translation>
    </message>
    <message>
        <source>Switch to compare to previously loaded settings</source>
        <translation>Mit zuvor geladenen vergleichen</translation>
    </message>
</context>
<context>
    <name>DistributionView</name>
    <message>
        <source>Check user rights and try again.</source>
        <translation>Prüfen Sie die Benutzerrechte und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Check configuration ID and try again.</source>
        <translation>Prüfen Sie die Konfigurations-ID und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Check connection options and try again.</source>
        <translation>Prüfen Sie die Verbindungsoptionen und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Distribute settings</source>
        <translation>Einstellungen verteilen</translation>
    </message>
    <message>
        <source>Options to connect settings database</source>
        <translation>Optionen für die Verbindung zur Einstellungsdatenbank</translation>
    </message>
    <message>
        <source>Insert additional configuration information</source>
        <translation>Zusätzliche Angaben zur Konfiguration eingeben</translation>
    </message>
    <message>
        <source>Inform user about settings change</source>
        <translation>Benutzer über die Änderung der Einstellungen informieren</translation>
    </message>
    <message>
        <source>Add configuration release notes</source>
        <translation>Versionshinweise zur Konfiguration hinzufügen</translation>
    </message>
    <message>
        <source>Save to database</source>
        <translation>In der Datenbank speichern</translation>
    </message>
    <message>
        <source>Distribute to users</source>
        <translation>An Benutzer verteilen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Verbindung wird hergestellt...</translation>
    </message>
    <message>
        <source>Sending settings...</source>
        <translation>Einstellungen werden gesendet...</translation>
    </message>
    <message>
        <source>Could not connect to database.</source>
        <translation>Es konnte keine Verbindung zur Datenbank hergestellt werden.</translation>
    </message>
    <message>
        <source>Settings could not be inserted to database.</source>
        <translation>Die Einstellungen konnten nicht in die Datenbank eingefügt werden.</translation>
    </message>
</context>
<context>
    <name>FieldEdit</name>
    <message>
        <source>male</source>
        <translation>männlich</translation>
    </message>
    <message>
        <source>female</source>
        <translation>weiblich</translation>
    </message>
    <message>
        <source>undefined</source>
        <translation>nicht festgelegt</translation>
    </message>
    <message>
        <source>African American</source>
        <translation>Afroamerikanisch</translation>
    </message>
    <message>
        <source>Asian</source>
        <translation>Asiatisch</translation>
    </message>
    <message>
        <source>Caucasian</source>
        <translation>Kaukasisch</translation>
    </message>
    <message>
        <source>Hispanic</source>
        <translation>Hispanisch</translation>
    </message>
    <message>
        <source>Hong Kong Chinese</source>
        <translation>Hongkong-chinesisch</translation>
    </message>
    <message>
        <source>Japanese American</source>
        <translation>Japanisch-amerikanisch</translation>
    </message>
    <message>
        <source>Polynesian</source>
        <translation>Polynesisch</translation>
    </message>
    <message>
        <source>North Indian and Pakistani</source>
        <translation>Nordindisch und pakistanisch</translation>
    </message>
    <message>
        <source>South Indian</source>
        <translation>Südindisch</translation>
    </message>
    <message>
        <source>African Descent</source>
        <translation>Afrikanische Abstammung</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japanisch</translation>
    </message>
    <message>
        <source>Mexican American</source>
        <translation>Mexikanisch-amerikanisch</translation>
    </message>
    <message>
        <source>North East Asian</source>
        <translation>Nordostasiatisch</translation>
    </message>
    <message>
        <source>South East Asian</source>
        <translation>Südostasiatisch</translation>
    </message>
    <message>
        <source>Mixed / Other</source>
        <translation>Gemischt / Andere</translation>
    </message>
    <message>
        <source>No Information</source>
        <translation>Keine Angabe</translation>
    </message>
</context>
<context>
    <name>FieldSettingsView</name>
    <message>
        <source>Person information settings</source>
        <translation>Einstellungen der Personendaten</translation>
    </message>
    <message>
        <source>Standard fields</source>
        <translation>Standardfelder</translation>
    </message>
    <message>
        <source>Required by</source>
        <translation>Erforderlich für</translation>
    </message>
    <message>
        <source>Mandatory</source>
        <translation>Pflichtfeld</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>Not visible</source>
        <translation>Nicht sichtbar</translation>
    </message>
    <message>
        <source>Summary fields</source>
        <translation>Übersichtsfelder</translation>
    </message>
    <message>
        <source>Order of the full name</source>
        <translation>Reihenfolge des vollständigen Namens</translation>
    </message>
    <message>
        <source>Custom fields</source>
        <translation>Benutzerdefinierte Felder</translation>
    </message>
    <message>
        <source>Add new custom field</source>
        <translation>Neues benutzerdefiniertes Feld hinzufügen</translation>
    </message>
</context>
<context>
    <name>FormParts</name>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>IdentificationBoxes</name>
    <message>
        <source>Personal ID</source>
        <translation>Personenkennung</translation>
    </message>
    <message>
        <source>Person code</source>
        <translation>Personencode</translation>
    </message>
    <message>
        <source>Last Name</source>
        <translation>Nachname</translation>
    </message>
    <message>
        <source>Middle Name</source>
        <translation>Zweiter Vorname</translation>
    </message>
    <message>
        <source>First Name</source>
        <translation>Vorname</translation>
    </message>
    <message>
        <source>Birthdate</source>
        <translation>Geburtsdatum</translation>
    </message>
    <message>
        <source>Gender</source>
        <translation>Geschlecht</translation>
    </message>
    <message>
        <source>Ethnic Group</source>
        <translation>Ethnische Gruppe</translation>
    </message>
</context>
<context>
    <name>ImportExportSettings</name>
    <message>
        <source>Automatic Import/Export</source>
        <translation>Automatischer Import/Export</translation>
    </message>
    <message>
        <source>HIS system file format</source>
        <translation>KIS-Dateiformat</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keines</translation>
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
        <translation>Importmodus</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Show dialogue if single matching person found</source>
        <translation>Dialog anzeigen, wenn genau eine passende Person gefunden wird</translation>
    </message>
    <message>
        <source>Person identification</source>
        <translation>Personenidentifikation</translation>
    </message>
    <message>
        <source>Identification criteria</source>
        <translation>Identifikationskriterien</translation>
    </message>
    <message>
        <source>Input file</source>
        <translation>Eingabedatei</translation>
    </message>
    <message>
        <source>Output file</source>
        <translation>Ausgabedatei</translation>
    </message>
    <message>
        <source>Export options</source>
        <translation>Exportoptionen</translation>
    </message>
    <message>
        <source>Autoexport</source>
        <translation>Automatischer Export</translation>
    </message>
    <message>
        <source>No autoexport</source>
        <translation>Kein automatischer Export</translation>
    </message>
    <message>
        <source>No Export</source>
        <translation>Kein Export</translation>
    </message>
    <message>
        <source>Export Study Data</source>
        <translation>Untersuchungsdaten exportieren</translation>
    </message>
    <message>
        <source>Current study</source>
        <translation>Aktuelle Untersuchung</translation>
    </message>
    <message>
        <source>All studies</source>
        <translation>Alle Untersuchungen</translation>
    </message>
    <message>
        <source>Proceed into measurement automatically</source>
        <translation>Automatisch mit der Messung fortfahren</translation>
    </message>
    <message>
        <source>Default locations:</source>
        <translation>Standardordner:</translation>
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
        <translation>Standarddateiformat</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Select default import location</source>
        <translation>Standardordner für den Import auswählen</translation>
    </message>
    <message>
        <source>Select default export location</source>
        <translation>Standardordner für den Export auswählen</translation>
    </message>
    <message>
        <source>GDT File (*.gdt);;Any file (*.*)</source>
        <translation>GDT-Datei (*.gdt);;Beliebige Datei (*.*)</translation>
    </message>
    <message>
        <source>XML File (*.xml);;Any file (*.*)</source>
        <translation>XML-Datei (*.xml);;Beliebige Datei (*.*)</translation>
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
        <translation>Einstellungsverwaltung</translation>
    </message>
    <message>
        <source>Database Management</source>
        <translation>Datenbankverwaltung</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>Zugriffsverwaltung</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>Audit-Trail-Anzeige</translation>
    </message>
</context>
<context>
    <name>LoginDialog</name>
    <message>
        <source>Username</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
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
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>Enter username</source>
        <translation>Benutzernamen eingeben</translation>
    </message>
    <message>
        <source>Enter password</source>
        <translation>Passwort eingeben</translation>
    </message>
    <message>
        <source>Username</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Select to login as</source>
        <translation>Anmelden als</translation>
    </message>
    <message>
        <source>Windows administrator</source>
        <translation>Windows-Administrator</translation>
    </message>
    <message>
        <source>Current user</source>
        <translation>Aktueller Benutzer</translation>
    </message>
    <message>
        <source>Other user</source>
        <translation>Anderer Benutzer</translation>
    </message>
    <message>
        <source>Authenticated user</source>
        <translation>Authentifizierter Benutzer</translation>
    </message>
    <message>
        <source>Windows user</source>
        <translation>Windows-Benutzer</translation>
    </message>
    <message>
        <source>Application internal user</source>
        <translation>Anwendungsinterner Benutzer</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Sprache:</translation>
    </message>
    <message>
        <source>Username needed.</source>
        <translation>Benutzername erforderlich.</translation>
    </message>
    <message>
        <source>Password needed.</source>
        <translation>Ein Passwort ist erforderlich.</translation>
    </message>
    <message>
        <source>Signing in.</source>
        <translation>Anmeldung läuft.</translation>
    </message>
    <message>
        <source>Sign in failed!</source>
        <translation>Anmeldung fehlgeschlagen!</translation>
    </message>
    <message>
        <source>Czech</source>
        <translation>Tschechisch</translation>
    </message>
    <message>
        <source>German (Austria)</source>
        <translation>Deutsch (Österreich)</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Dänisch</translation>
    </message>
    <message>
        <source>Greek</source>
        <translation>Griechisch</translation>
    </message>
    <message>
        <source>English (UK)</source>
        <translation>Englisch (UK)</translation>
    </message>
    <message>
        <source>English (US)</source>
        <translation>Englisch (USA)</translation>
    </message>
    <message>
        <source>Estonian</source>
        <translation>Estnisch</translation>
    </message>
    <message>
        <source>Finnish</source>
        <translation>Finnisch</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Französisch</translation>
    </message>
    <message>
        <source>Hungarian</source>
        <translation>Ungarisch</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italienisch</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japanisch</translation>
    </message>
    <message>
        <source>Norwegian (Bokmål)</source>
        <translation>Norwegisch (Bokmål)</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Niederländisch</translation>
    </message>
    <message>
        <source>Flemish</source>
        <translation>Flämisch</translation>
    </message>
    <message>
        <source>Polish</source>
        <translation>Polnisch</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portugiesisch</translation>
    </message>
    <message>
        <source>Portuguese (Brazil)</source>
        <translation>Portugiesisch (Brasilien)</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russisch</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spanisch</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Schwedisch</translation>
    </message>
    <message>
        <source>Turkish</source>
        <translation>Türkisch</translation>
    </message>
    <message>
        <source>Thai</source>
        <translation>Thailändisch</translation>
    </message>
    <message>
        <source>Chinese (PRC Simpl.)</source>
        <translation>Chinesisch (VR China, vereinf.)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong Simpl.)</source>
        <translation>Chinesisch (Hongkong, vereinf.)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan Simpl.)</source>
        <translation>Chinesisch (Taiwan, vereinf.)</translation>
    </message>
    <message>
        <source>Chinese (PRC Trad.)</source>
        <translation>Chinesisch (VR China, trad.)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong trad.)</source>
        <translation>Chinesisch (Hongkong, trad.)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan trad.)</source>
        <translation>Chinesisch (Taiwan, trad.)</translation>
    </message>
</context>
<context>
    <name>PersonBrowserSettingsView</name>
    <message>
        <source>Finnish</source>
        <translation>Finnisch</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Schwedisch</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japanisch</translation>
    </message>
    <message>
        <source>Import/Export settings</source>
        <translation>Import-/Exporteinstellungen</translation>
    </message>
    <message>
        <source>Application settings</source>
        <translation>Anwendungseinstellungen</translation>
    </message>
    <message>
        <source>Update settings when %1 starts</source>
        <translation>Einstellungen beim Start von %1 aktualisieren</translation>
    </message>
    <message>
        <source>Persons and Studies</source>
        <translation>Personen und Untersuchungen</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Date format</source>
        <translation>Datumsformat</translation>
    </message>
    <message>
        <source>12 hour clock</source>
        <translation>12-Stunden-Format</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Einheiten</translation>
    </message>
    <message>
        <source>Metric (kg, cm , °C)</source>
        <translation>Metrisch (kg, cm, °C)</translation>
    </message>
    <message>
        <source>Imperial (lb, ft, in, °F)</source>
        <translation>Imperial (lb, ft, in, °F)</translation>
    </message>
    <message>
        <source>Default application size</source>
        <translation>Standardgröße der Anwendung</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Enable notification messages</source>
        <translation>Benachrichtigungen aktivieren</translation>
    </message>
    <message>
        <source>Pre-fill study information</source>
        <translation>Untersuchungsangaben vorausfüllen</translation>
    </message>
    <message>
        <source>Personal ID systems</source>
        <translation>Systeme für Personenkennungen</translation>
    </message>
    <message>
        <source>Used systems</source>
        <translation>Verwendete Systeme</translation>
    </message>
    <message>
        <source>Default personal ID system</source>
        <translation>Standardsystem für Personenkennungen</translation>
    </message>
    <message>
        <source>Ethnic groups</source>
        <translation>Ethnische Gruppen</translation>
    </message>
    <message>
        <source>Shown ethnic groups</source>
        <translation>Angezeigte ethnische Gruppen</translation>
    </message>
    <message>
        <source>Default ethnic group</source>
        <translation>Standardmäßige ethnische Gruppe</translation>
    </message>
    <message>
        <source>System locale</source>
        <translation>Systemsprache</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Czech</source>
        <translation>Tschechisch</translation>
    </message>
    <message>
        <source>German (Austria)</source>
        <translation>Deutsch (Österreich)</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Dänisch</translation>
    </message>
    <message>
        <source>Greek</source>
        <translation>Griechisch</translation>
    </message>
    <message>
        <source>English (UK)</source>
        <translation>Englisch (UK)</translation>
    </message>
    <message>
        <source>English (US)</source>
        <translation>Englisch (USA)</translation>
    </message>
    <message>
        <source>Estonian</source>
        <translation>Estnisch</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Französisch</translation>
    </message>
    <message>
        <source>Hungarian</source>
        <translation>Ungarisch</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italienisch</translation>
    </message>
    <message>
        <source>Norwegian (Bokmål)</source>
        <translation>Norwegisch (Bokmål)</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Niederländisch</translation>
    </message>
    <message>
        <source>Flemish</source>
        <translation>Flämisch</translation>
    </message>
    <message>
        <source>Polish</source>
        <translation>Polnisch</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portugiesisch</translation>
    </message>
    <message>
        <source>Portuguese (Brazil)</source>
        <translation>Portugiesisch (Brasilien)</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russisch</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spanisch</translation>
    </message>
    <message>
        <source>Turkish</source>
        <translation>Türkisch</translation>
    </message>
    <message>
        <source>Thai</source>
        <translation>Thailändisch</translation>
    </message>
    <message>
        <source>Chinese (PRC Simpl.)</source>
        <translation>Chinesisch (VR China, vereinf.)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong Simpl.)</source>
        <translation>Chinesisch (Hongkong, vereinf.)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan Simpl.)</source>
        <translation>Chinesisch (Taiwan, vereinf.)</translation>
    </message>
    <message>
        <source>Chinese (PRC Trad.)</source>
        <translation>Chinesisch (VR China, trad.)</translation>
    </message>
    <message>
        <source>Chinese (Hong Kong trad.)</source>
        <translation>Chinesisch (Hongkong, trad.)</translation>
    </message>
    <message>
        <source>Chinese (Taiwan trad.)</source>
        <translation>Chinesisch (Taiwan, trad.)</translation>
    </message>
    <message>
        <source>Unknown</source>
        <comment>personal ID system</comment>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Finnish</source>
        <comment>personal ID system</comment>
        <translation>Finnisch</translation>
    </message>
    <message>
        <source>Swedish</source>
        <comment>personal ID system</comment>
        <translation>Schwedisch</translation>
    </message>
    <message>
        <source>No Information</source>
        <comment>ethnic group</comment>
        <translation>Keine Angabe</translation>
    </message>
    <message>
        <source>African American</source>
        <comment>ethnic group</comment>
        <translation>Afroamerikanisch</translation>
    </message>
    <message>
        <source>Asian</source>
        <comment>ethnic group</comment>
        <translation>Asiatisch</translation>
    </message>
    <message>
        <source>Caucasian</source>
        <comment>ethnic group</comment>
        <translation>Kaukasisch</translation>
    </message>
    <message>
        <source>Hispanic</source>
        <comment>ethnic group</comment>
        <translation>Hispanisch</translation>
    </message>
    <message>
        <source>Hong Kong Chinese</source>
        <comment>ethnic group</comment>
        <translation>Hongkong-chinesisch</translation>
    </message>
    <message>
        <source>Japanese American</source>
        <comment>ethnic group</comment>
        <translation>Japanisch-amerikanisch</translation>
    </message>
    <message>
        <source>Polynesian</source>
        <comment>ethnic group</comment>
        <translation>Polynesisch</translation>
    </message>
    <message>
        <source>North Indian and Pakistani</source>
        <comment>ethnic group</comment>
        <translation>Nordindisch und pakistanisch</translation>
    </message>
    <message>
        <source>South Indian</source>
        <comment>ethnic group</comment>
        <translation>Südindisch</translation>
    </message>
    <message>
        <source>African Descent</source>
        <comment>ethnic group</comment>
        <translation>Afrikanische Abstammung</translation>
    </message>
    <message>
        <source>Japanese</source>
        <comment>ethnic group</comment>
        <translation>Japanisch</translation>
    </message>
    <message>
        <source>Mexican American</source>
        <comment>ethnic group</comment>
        <translation>Mexikanisch-amerikanisch</translation>
    </message>
    <message>
        <source>North East Asian</source>
        <comment>ethnic group</comment>
        <translation>Nordostasiatisch</translation>
    </message>
    <message>
        <source>South East Asian</source>
        <comment>ethnic group</comment>
        <translation>Südostasiatisch</translation>
    </message>
    <message>
        <source>Mixed / Other</source>
        <comment>ethnic group</comment>
        <translation>Gemischt / Andere</translation>
    </message>
</context>
<context>
    <name>ProductTexts</name>
    <message>
        <source>© 2026 Halvorn. All rights reserved.</source>
        <translation>© 2026 Halvorn. Alle Rechte vorbehalten.</translation>
    </message>
    <message>
        <source>Using this program means accepting the terms in the file Disclaimer.txt, which is delivered with it.</source>
        <translation>Mit der Benutzung dieses Programms werden die Bedingungen der mitgelieferten Datei Disclaimer.txt anerkannt.</translation>
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
        <translation>Berglund für Erwachsene, Zapletal für Kinder</translation>
    </message>
    <message>
        <source>Brazil</source>
        <translation>Brasilien</translation>
    </message>
    <message>
        <source>Brazilian reference values</source>
        <translation>Brasilianische Referenzwerte</translation>
    </message>
    <message>
        <source>China</source>
        <translation>China</translation>
    </message>
    <message>
        <source>Chinese reference values</source>
        <translation>Chinesische Referenzwerte</translation>
    </message>
    <message>
        <source>Cra_Knu</source>
        <translation>Cra_Knu</translation>
    </message>
    <message>
        <source>Crapo for adults, Knudson for children</source>
        <translation>Crapo für Erwachsene, Knudson für Kinder</translation>
    </message>
    <message>
        <source>ECSC_IGiChP</source>
        <translation>ECSC_IGiChP</translation>
    </message>
    <message>
        <source>Polish reference values: ECSC for adults, IGiChP for children</source>
        <translation>Polnische Referenzwerte: ECSC für Erwachsene, IGiChP für Kinder</translation>
    </message>
    <message>
        <source>ECSC_P</source>
        <translation>ECSC_P</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Polgar for children</source>
        <translation>Europäische Gemeinschaft für Kohle und Stahl für Erwachsene, Polgar für Kinder</translation>
    </message>
    <message>
        <source>ECSC_PZ</source>
        <translation>ECSC_PZ</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Polgar and partly Zapletal for children</source>
        <translation>Europäische Gemeinschaft für Kohle und Stahl für Erwachsene, Polgar und teilweise Zapletal für Kinder</translation>
    </message>
    <message>
        <source>ECSC_Qua</source>
        <translation>ECSC_Qua</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for children</source>
        <translation>Europäische Gemeinschaft für Kohle und Stahl für Erwachsene, Quanjer für Kinder</translation>
    </message>
    <message>
        <source>ECSC_Qua_AT</source>
        <translation>ECSC_Qua_AT</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for Austrian children</source>
        <translation>Europäische Gemeinschaft für Kohle und Stahl für Erwachsene, Quanjer für österreichische Kinder</translation>
    </message>
    <message>
        <source>ECSC_Qua_ES</source>
        <translation>ECSC_Qua_ES</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for Spanish children</source>
        <translation>Europäische Gemeinschaft für Kohle und Stahl für Erwachsene, Quanjer für spanische Kinder</translation>
    </message>
    <message>
        <source>ECSC_Qua_GB</source>
        <translation>ECSC_Qua_GB</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Quanjer for English children</source>
        <translation>Europäische Gemeinschaft für Kohle und Stahl für Erwachsene, Quanjer für englische Kinder</translation>
    </message>
    <message>
        <source>ECSC_Z</source>
        <translation>ECSC_Z</translation>
    </message>
    <message>
        <source>European Coal and Steel Community for adults, Zapletal for children</source>
        <translation>Europäische Gemeinschaft für Kohle und Stahl für Erwachsene, Zapletal für Kinder</translation>
    </message>
    <message>
        <source>Forche2</source>
        <translation>Forche2</translation>
    </message>
    <message>
        <source>Austrian reference values: Forche for adults and children</source>
        <translation>Österreichische Referenzwerte: Forche für Erwachsene und Kinder</translation>
    </message>
    <message>
        <source>Garcia-Rio_Roca_SEP</source>
        <translation>Garcia-Rio_Roca_SEP</translation>
    </message>
    <message>
        <source>Spanish reference values: Garcia-Rio for elderly, Roca for adults, SEPAR for children</source>
        <translation>Spanische Referenzwerte: Garcia-Rio für Senioren, Roca für Erwachsene, SEPAR für Kinder</translation>
    </message>
    <message>
        <source>GLI2012</source>
        <translation>GLI2012</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for adults and children</source>
        <translation>Referenzwerte der Global Lung Function Initiative für Erwachsene und Kinder</translation>
    </message>
    <message>
        <source>GLI2012_African_American</source>
        <translation>GLI2012_African_American</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for African American adults and children</source>
        <translation>Referenzwerte der Global Lung Function Initiative für afroamerikanische Erwachsene und Kinder</translation>
    </message>
    <message>
        <source>GLI2012_Caucasian</source>
        <translation>GLI2012_Caucasian</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for Caucasian adults and children</source>
        <translation>Referenzwerte der Global Lung Function Initiative für kaukasische Erwachsene und Kinder</translation>
    </message>
    <message>
        <source>GLI2012_North_East_Asians</source>
        <translation>GLI2012_North_East_Asians</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for North East Asians adults and children</source>
        <translation>Referenzwerte der Global Lung Function Initiative für nordostasiatische Erwachsene und Kinder</translation>
    </message>
    <message>
        <source>GLI2012_South_East_Asians</source>
        <translation>GLI2012_South_East_Asians</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for South East Asians adults and children</source>
        <translation>Referenzwerte der Global Lung Function Initiative für südostasiatische Erwachsene und Kinder</translation>
    </message>
    <message>
        <source>GLI2012_Other/mixed</source>
        <translation>GLI2012_Other/mixed</translation>
    </message>
    <message>
        <source>Global Lung Function Initiative reference values for Other/mixed adults and children</source>
        <translation>Referenzwerte der Global Lung Function Initiative für andere/gemischte Erwachsene und Kinder</translation>
    </message>
    <message>
        <source>Gulsvik_Z</source>
        <translation>Gulsvik_Z</translation>
    </message>
    <message>
        <source>Norwegian reference values: Gulsvik for adults, Zapletal for children</source>
        <translation>Norwegische Referenzwerte: Gulsvik für Erwachsene, Zapletal für Kinder</translation>
    </message>
    <message>
        <source>Hedenstrom_Sol</source>
        <translation>Hedenstrom_Sol</translation>
    </message>
    <message>
        <source>Swedish reference values: Hedenstrom for adults, Solymar for children</source>
        <translation>Schwedische Referenzwerte: Hedenstrom für Erwachsene, Solymar für Kinder</translation>
    </message>
    <message>
        <source>Hedenstrom_Z</source>
        <translation>Hedenstrom_Z</translation>
    </message>
    <message>
        <source> Swedish reference values: Hedenstrom for adults, Zapletal for children</source>
        <translation> Schwedische Referenzwerte: Hedenstrom für Erwachsene, Zapletal für Kinder</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>Japan</translation>
    </message>
    <message>
        <source> Japanese reference values</source>
        <translation> Japanische Referenzwerte</translation>
    </message>
    <message>
        <source>Jindal</source>
        <translation>Jindal</translation>
    </message>
    <message>
        <source>Indian reference values: Jindal for adults and adolescents</source>
        <translation>Indische Referenzwerte: Jindal für Erwachsene und Jugendliche</translation>
    </message>
    <message>
        <source>Kainu_Koillinen</source>
        <translation>Kainu_Koillinen</translation>
    </message>
    <message>
        <source>Finnish reference values: Kainu for adults and Koillinen for children</source>
        <translation>Finnische Referenzwerte: Kainu für Erwachsene und Koillinen für Kinder</translation>
    </message>
    <message>
        <source>Klement</source>
        <translation>Klement</translation>
    </message>
    <message>
        <source> Russian reference values: Klement for adults and children</source>
        <translation> Russische Referenzwerte: Klement für Erwachsene und Kinder</translation>
    </message>
    <message>
        <source>Knudson</source>
        <translation>Knudson</translation>
    </message>
    <message>
        <source> Knudson for adults and children</source>
        <translation> Knudson für Erwachsene und Kinder</translation>
    </message>
    <message>
        <source>Langhammer_Z</source>
        <translation>Langhammer_Z</translation>
    </message>
    <message>
        <source>Norwegian reference values: Langhammer for adults, Zapletal for children</source>
        <translation>Norwegische Referenzwerte: Langhammer für Erwachsene, Zapletal für Kinder</translation>
    </message>
    <message>
        <source>NHANES III_W</source>
        <translation>NHANES III_W</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds. Wang for children under 8 years</source>
        <translation>NHANES III (Hankinson) für 8- bis 80-Jährige. Wang für Kinder unter 8 Jahren</translation>
    </message>
    <message>
        <source>NHANES III_W_African_American</source>
        <translation>NHANES III_W_African_American</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years African American ethnics</source>
        <translation>NHANES III (Hankinson) für 8- bis 80-Jährige und Wang für Kinder unter 8 Jahren, afroamerikanisch</translation>
    </message>
    <message>
        <source>NHANES III_W_Mexican_American</source>
        <translation>NHANES III_W_Mexican_American</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years Mexican American ethnics</source>
        <translation>NHANES III (Hankinson) für 8- bis 80-Jährige und Wang für Kinder unter 8 Jahren, mexikanisch-amerikanisch</translation>
    </message>
    <message>
        <source>NHANES III_W_Other</source>
        <translation>NHANES III_W_Other</translation>
    </message>
    <message>
        <source>NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years other ethnics</source>
        <translation>NHANES III (Hankinson) für 8- bis 80-Jährige und Wang für Kinder unter 8 Jahren, andere ethnische Gruppen</translation>
    </message>
    <message>
        <source>SEPAR</source>
        <translation>SEPAR</translation>
    </message>
    <message>
        <source>Spanish reference values: SEPAR for adults and children</source>
        <translation>Spanische Referenzwerte: SEPAR für Erwachsene und Kinder</translation>
    </message>
    <message>
        <source>Udwadia</source>
        <translation>Udwadia</translation>
    </message>
    <message>
        <source>Indian reference values: Udwadia for adults and adolescents</source>
        <translation>Indische Referenzwerte: Udwadia für Erwachsene und Jugendliche</translation>
    </message>
    <message>
        <source>Vijayan</source>
        <translation>Vijayan</translation>
    </message>
    <message>
        <source>Indian reference values: Vijayan for adults and adolescents</source>
        <translation>Indische Referenzwerte: Vijayan für Erwachsene und Jugendliche</translation>
    </message>
    <message>
        <source>Viljanen_Kiv</source>
        <translation>Viljanen_Kiv</translation>
    </message>
    <message>
        <source>Estonian reference values: Viljanen for adults, Kivastik for children</source>
        <translation>Estnische Referenzwerte: Viljanen für Erwachsene, Kivastik für Kinder</translation>
    </message>
    <message>
        <source>Viljanen_Koi</source>
        <translation>Viljanen_Koi</translation>
    </message>
    <message>
        <source>Finnish reference values: Viljanen for adults, Koillinen for children</source>
        <translation>Finnische Referenzwerte: Viljanen für Erwachsene, Koillinen für Kinder</translation>
    </message>
</context>
<context>
    <name>RemoveButton</name>
    <message>
        <source>Remove custom field</source>
        <translation>Benutzerdefiniertes Feld entfernen</translation>
    </message>
    <message>
        <source>Removing custom field</source>
        <translation>Benutzerdefiniertes Feld entfernen</translation>
    </message>
    <message>
        <source>Removing custom field will delete it permanently</source>
        <translation>Das benutzerdefinierte Feld wird dauerhaft gelöscht</translation>
    </message>
    <message>
        <source>Removing custom field will delete it permanently.</source>
        <translation>Das benutzerdefinierte Feld wird dauerhaft gelöscht.</translation>
    </message>
    <message>
        <source>Continue?</source>
        <translation>Fortfahren?</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>SaveFile</name>
    <message>
        <source>Saving failed</source>
        <translation>Speichern fehlgeschlagen</translation>
    </message>
    <message>
        <source>The file %1 could not be saved.</source>
        <translation>Die Datei %1 konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>SearchSettingsView</name>
    <message>
        <source>First name</source>
        <translation>Vorname</translation>
    </message>
    <message>
        <source>Middle name</source>
        <translation>Zweiter Vorname</translation>
    </message>
    <message>
        <source>Last name</source>
        <translation>Nachname</translation>
    </message>
    <message>
        <source>Personal ID</source>
        <translation>Personenkennung</translation>
    </message>
    <message>
        <source>Person code</source>
        <translation>Personencode</translation>
    </message>
    <message>
        <source>Minimum search characters</source>
        <translation>Mindestanzahl der Zeichen für die Suche</translation>
    </message>
    <message>
        <source>Search results in single row</source>
        <translation>Suchergebnisse in einer Zeile</translation>
    </message>
    <message>
        <source>Person search result</source>
        <translation>Ergebnis der Personensuche</translation>
    </message>
    <message>
        <source>Search parameters</source>
        <translation>Suchparameter</translation>
    </message>
    <message>
        <source>Custom fields to search:</source>
        <translation>Zu durchsuchende benutzerdefinierte Felder:</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Select settings source from menu below</source>
        <translation>Wählen Sie unten im Menü die Quelle der Einstellungen</translation>
    </message>
    <message>
        <source>Manage local application</source>
        <translation>Lokale Anwendung verwalten</translation>
    </message>
    <message>
        <source>Enable autosaving to local application</source>
        <translation>Automatisches Speichern in die lokale Anwendung aktivieren</translation>
    </message>
    <message>
        <source>Save settings to local application</source>
        <translation>Einstellungen in der lokalen Anwendung speichern</translation>
    </message>
    <message>
        <source>Load settings from local application</source>
        <translation>Einstellungen aus der lokalen Anwendung laden</translation>
    </message>
    <message>
        <source>Manage online configurations</source>
        <translation>Online-Konfigurationen verwalten</translation>
    </message>
    <message>
        <source>See changes made in settings</source>
        <translation>Änderungen an den Einstellungen anzeigen</translation>
    </message>
    <message>
        <source>Manage settings configurations</source>
        <translation>Einstellungskonfigurationen verwalten</translation>
    </message>
    <message>
        <source>Distribute settings</source>
        <translation>Einstellungen verteilen</translation>
    </message>
    <message>
        <source>Transfer settings</source>
        <translation>Einstellungen übertragen</translation>
    </message>
    <message>
        <source>Import settings</source>
        <translation>Einstellungen importieren</translation>
    </message>
    <message>
        <source>Export settings</source>
        <translation>Einstellungen exportieren</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Lacking privileges to save database settings.</source>
        <translation>Keine Berechtigung zum Speichern der Datenbankeinstellungen.</translation>
    </message>
    <message>
        <source>Lacking privileges to save local audit trail settings.</source>
        <translation>Keine Berechtigung zum Speichern der lokalen Audit-Trail-Einstellungen.</translation>
    </message>
    <message>
        <source>Lacking privileges to save local access control settings.</source>
        <translation>Keine Berechtigung zum Speichern der lokalen Zugriffskontrolleinstellungen.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Autosaving settings to local application settings file. This message is only shown once.</source>
        <translation>Die Einstellungen werden automatisch in die Einstellungsdatei der lokalen Anwendung gespeichert. Diese Meldung wird nur einmal angezeigt.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Cannot write to local settings file.</source>
        <translation>Die lokale Einstellungsdatei kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Not all settings were saved.</source>
        <translation>Es wurden nicht alle Einstellungen gespeichert.</translation>
    </message>
    <message>
        <source>Saving succeeded.</source>
        <translation>Das Speichern war erfolgreich.</translation>
    </message>
    <message>
        <source>Not all settings were loaded.</source>
        <translation>Es wurden nicht alle Einstellungen geladen.</translation>
    </message>
    <message>
        <source>Local settings</source>
        <translation>Lokale Einstellungen</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Datenbank</translation>
    </message>
    <message>
        <source>Loading settings failed</source>
        <translation>Laden der Einstellungen fehlgeschlagen</translation>
    </message>
    <message>
        <source>Loading settings configuration from database was unsuccessful.
Previous settings restored.</source>
        <translation>Die Einstellungskonfiguration konnte nicht aus der Datenbank geladen werden.
Die vorherigen Einstellungen wurden wiederhergestellt.</translation>
    </message>
    <message>
        <source>INI (*.ini)</source>
        <translation>INI (*.ini)</translation>
    </message>
    <message>
        <source>Export to a file</source>
        <translation>In eine Datei exportieren</translation>
    </message>
    <message>
        <source>File existed and could not be overwritten!</source>
        <translation>Die vorhandene Datei konnte nicht überschrieben werden!</translation>
    </message>
    <message>
        <source> File copying failed!</source>
        <translation> Das Kopieren der Datei ist fehlgeschlagen!</translation>
    </message>
    <message>
        <source>Import from a file</source>
        <translation>Aus einer Datei importieren</translation>
    </message>
    <message>
        <source>Imported settings</source>
        <translation>Importierte Einstellungen</translation>
    </message>
    <message>
        <source>File %1 not found! Please select existing file to import!</source>
        <translation>Die Datei %1 wurde nicht gefunden! Bitte wählen Sie eine vorhandene Datei für den Import!</translation>
    </message>
    <message>
        <source>Importing settings from %1 did not succeed. Please try again.</source>
        <translation>Der Import der Einstellungen aus %1 ist fehlgeschlagen. Bitte versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Access control</source>
        <translation>Zugriffskontrolle</translation>
    </message>
    <message>
        <source>and</source>
        <translation>und</translation>
    </message>
    <message>
        <source>Audit trail</source>
        <translation>Audit-Trail</translation>
    </message>
    <message>
        <source>Notice.</source>
        <translation>Hinweis.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>Person fields</source>
        <translation>Personenfelder</translation>
    </message>
    <message>
        <source>Study fields</source>
        <translation>Untersuchungsfelder</translation>
    </message>
</context>
<context>
    <name>SqlCipherDriver</name>
    <message>
        <source>Error opening database</source>
        <translation>Fehler beim Öffnen der Datenbank</translation>
    </message>
    <message>
        <source>Error closing database</source>
        <translation>Fehler beim Schließen der Datenbank</translation>
    </message>
    <message>
        <source>Unable to begin transaction</source>
        <translation>Die Transaktion kann nicht begonnen werden</translation>
    </message>
    <message>
        <source>Unable to commit transaction</source>
        <translation>Die Transaktion kann nicht abgeschlossen werden</translation>
    </message>
    <message>
        <source>Unable to rollback transaction</source>
        <translation>Die Transaktion kann nicht zurückgenommen werden</translation>
    </message>
</context>
<context>
    <name>SqlCipherResult</name>
    <message>
        <source>Unable to execute statement</source>
        <translation>Die Anweisung kann nicht ausgeführt werden</translation>
    </message>
    <message>
        <source>Unable to execute multiple statements at a time</source>
        <translation>Mehrere Anweisungen können nicht auf einmal ausgeführt werden</translation>
    </message>
    <message>
        <source>Unable to fetch row</source>
        <translation>Die Zeile kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>No query</source>
        <translation>Keine Abfrage</translation>
    </message>
    <message>
        <source>Parameter count mismatch</source>
        <translation>Die Anzahl der Parameter stimmt nicht</translation>
    </message>
    <message>
        <source>Unable to bind parameters</source>
        <translation>Die Parameter können nicht gebunden werden</translation>
    </message>
    <message>
        <source>The connection is closed</source>
        <translation>Die Verbindung ist geschlossen</translation>
    </message>
</context>
<context>
    <name>StandardFields</name>
    <message>
        <source>Full Name</source>
        <translation>Vollständiger Name</translation>
    </message>
    <message>
        <source>First Name</source>
        <translation>Vorname</translation>
    </message>
    <message>
        <source>Middle Name</source>
        <translation>Zweiter Vorname</translation>
    </message>
    <message>
        <source>Last Name</source>
        <translation>Nachname</translation>
    </message>
    <message>
        <source>Personal ID</source>
        <translation>Personenkennung</translation>
    </message>
    <message>
        <source>Birthdate</source>
        <translation>Geburtsdatum</translation>
    </message>
    <message>
        <source>Person code</source>
        <translation>Personencode</translation>
    </message>
    <message>
        <source>Gender</source>
        <translation>Geschlecht</translation>
    </message>
    <message>
        <source>Ethnic group</source>
        <translation>Ethnische Gruppe</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(leer)</translation>
    </message>
</context>
<context>
    <name>StudySettingsView</name>
    <message>
        <source>Study information settings for</source>
        <translation>Untersuchungsangaben für</translation>
    </message>
    <message>
        <source>More study specific settings available when study plugins are installed</source>
        <translation>Weitere untersuchungsspezifische Einstellungen sind verfügbar, wenn Untersuchungs-Plug-ins installiert sind</translation>
    </message>
    <message>
        <source>Hidden spirometry reference sets</source>
        <translation>Ausgeblendete Spirometrie-Referenzsätze</translation>
    </message>
    <message>
        <source>Default spirometry reference set</source>
        <translation>Standard-Referenzsatz für die Spirometrie</translation>
    </message>
    <message>
        <source>Spirometry</source>
        <translation>Spirometrie</translation>
    </message>
    <message>
        <source>Select to hide</source>
        <translation>Zum Ausblenden auswählen</translation>
    </message>
    <message>
        <source>Application name</source>
        <translation>Anwendungsname</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Study list fields</source>
        <translation>Felder der Untersuchungsliste</translation>
    </message>
    <message>
        <source>Hidden study field editors</source>
        <translation>Ausgeblendete Eingabefelder der Untersuchung</translation>
    </message>
</context>
<context>
    <name>SupportConnectionHandler</name>
    <message>
        <source>Connected to authentication database</source>
        <translation>Mit der Authentifizierungsdatenbank verbunden</translation>
    </message>
    <message>
        <source>No connection to authentication database</source>
        <translation>Keine Verbindung zur Authentifizierungsdatenbank</translation>
    </message>
    <message>
        <source>Connection options</source>
        <translation>Verbindungsoptionen</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>Neu verbinden</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Connection failed</source>
        <translation>Verbindung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>TableHelper</name>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Are you sure?</source>
        <translation>Sind Sie sicher?</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>ViewStacker</name>
    <message>
        <source>Settings Management</source>
        <translation>Einstellungsverwaltung</translation>
    </message>
    <message>
        <source>Access Control Management</source>
        <translation>Zugriffsverwaltung</translation>
    </message>
    <message>
        <source>Audit Trail Viewer</source>
        <translation>Audit-Trail-Anzeige</translation>
    </message>
</context>
<context>
    <name>ZephanSplash</name>
    <message>
        <source>THIS IS PRE-RELEASE VERSION OF THE SOFTWARE. NOT TO BE USED IN ANY CLINICAL WORK!</source>
        <translation>DIES IST EINE VORABVERSION DER SOFTWARE. NICHT FÜR DEN KLINISCHEN EINSATZ!</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
</TS>
