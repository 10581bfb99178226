-- Operators, roles, organisations and departments on SQLite behind the ODBC driver.
-- Running the script again completes what is missing and leaves the rest as it is.
-- The encrypted file of a single workstation needs no script: the program makes its tables.

CREATE TABLE IF NOT EXISTS roles (
    role_id INTEGER PRIMARY KEY AUTOINCREMENT,
    title TEXT NOT NULL,
    actions INTEGER NOT NULL,  -- rights, one bit each
    deleted INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE IF NOT EXISTS organization (
    id VARCHAR(36) NOT NULL DEFAULT '00000000-0000-0000-0000-000000000000' PRIMARY KEY,
    deleted INTEGER NOT NULL DEFAULT 0,
    name VARCHAR(50) UNIQUE
);

CREATE TABLE IF NOT EXISTS department (
    id VARCHAR(36) NOT NULL DEFAULT '00000000-0000-0000-0000-000000000000' PRIMARY KEY,
    deleted INTEGER NOT NULL DEFAULT 0,
    name VARCHAR(50) UNIQUE,
    address VARCHAR(50)
);

CREATE TABLE IF NOT EXISTS operator (
    operator_id VARCHAR(36) NOT NULL DEFAULT '00000000-0000-0000-0000-000000000000' PRIMARY KEY,
    last_name VARCHAR(100),
    middle_name VARCHAR(100),
    first_name VARCHAR(100),
    organization_id VARCHAR(36),
    department_id VARCHAR(36),
    user_id VARCHAR(20),
    username VARCHAR(280),  -- 255, and the suffix that frees the name of a deleted operator
    password VARCHAR(255),  -- salted hash; empty for Windows users and groups
    salt VARCHAR(16),
    date_created VARCHAR(19) NULL,  -- UTC, as date_updated
    date_updated VARCHAR(19) NULL,
    deleted INTEGER NOT NULL DEFAULT 0,
    operator_type INTEGER NOT NULL  -- 1 internal user, 2 Windows group, 3 Windows user
);

CREATE INDEX IF NOT EXISTS operator_username ON operator (username);

CREATE TABLE IF NOT EXISTS operator_roles (
    operator_roles_id INTEGER PRIMARY KEY AUTOINCREMENT,
    operator_id VARCHAR(36) NOT NULL,
    role_id INTEGER NOT NULL,
    FOREIGN KEY (operator_id) REFERENCES operator (operator_id) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE INDEX IF NOT EXISTS operator_roles_operator ON operator_roles (operator_id);

-- Three roles to begin with. They can be renamed, changed and deleted in the program.
INSERT INTO roles (title, actions, deleted)
SELECT first_roles.title, first_roles.actions, 0
FROM (SELECT 'Nurse' AS title, 3633152 AS actions
      UNION ALL SELECT 'Doctor', 331776
      UNION ALL SELECT 'Admin', 4190263)
    AS first_roles
WHERE NOT EXISTS (SELECT 1 FROM roles);
