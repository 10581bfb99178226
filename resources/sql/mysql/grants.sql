-- What each kind of account may do, on MySQL and MariaDB. To be run after the other scripts, in the same
-- database, by an account that may create roles. Running it again grants what is missing.
--
-- Nobody gets the right to change or remove what is in the audit trail.

CREATE ROLE IF NOT EXISTS corvane_console, corvane_application, corvane_auditor;

-- The administration console: manages operators, roles, organisations, departments and configurations, reads the
-- audit trail and adds to it.
GRANT SELECT, INSERT, UPDATE ON operator TO corvane_console;
GRANT SELECT, INSERT, DELETE ON operator_roles TO corvane_console;
GRANT SELECT, INSERT, UPDATE ON roles TO corvane_console;
GRANT SELECT, INSERT, UPDATE ON organization TO corvane_console;
GRANT SELECT, INSERT, UPDATE ON department TO corvane_console;
GRANT SELECT, INSERT, UPDATE, DELETE ON configurations TO corvane_console;
GRANT SELECT, INSERT ON action_log TO corvane_console;
GRANT SELECT ON hash TO corvane_console;

-- The suite's measurement applications: check who signs in, take the active configuration, and add to the audit
-- trail.
GRANT SELECT ON operator TO corvane_application;
GRANT SELECT ON operator_roles TO corvane_application;
GRANT SELECT ON roles TO corvane_application;
GRANT SELECT ON organization TO corvane_application;
GRANT SELECT ON department TO corvane_application;
GRANT SELECT ON configurations TO corvane_application;
GRANT INSERT ON action_log TO corvane_application;
GRANT SELECT ON hash TO corvane_application;

-- An auditor: reads the audit trail and nothing else.
GRANT SELECT ON action_log TO corvane_auditor;
GRANT SELECT ON hash TO corvane_auditor;
