-- Operators, roles, organisations and departments on Microsoft SQL Server.
-- Running the script again completes what is missing and leaves the rest as it is.
--
-- Texts are compared letter by letter, as in the file of a single workstation: "Anna" and "anna" are two names.

IF OBJECT_ID(N'roles', N'U') IS NULL
CREATE TABLE roles (
    role_id INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
    title NVARCHAR(255) COLLATE Latin1_General_100_BIN2 NOT NULL,
    actions INTEGER NOT NULL,  -- rights, one bit each
    deleted INTEGER NOT NULL DEFAULT 0
);

IF OBJECT_ID(N'organization', N'U') IS NULL
CREATE TABLE organization (
    id NVARCHAR(36) NOT NULL DEFAULT '00000000-0000-0000-0000-000000000000' PRIMARY KEY,
    deleted INTEGER NOT NULL DEFAULT 0,
    name NVARCHAR(50) COLLATE Latin1_General_100_BIN2 UNIQUE
);

IF OBJECT_ID(N'department', N'U') IS NULL
CREATE TABLE department (
    id NVARCHAR(36) NOT NULL DEFAULT '00000000-0000-0000-0000-000000000000' PRIMARY KEY,
    deleted INTEGER NOT NULL DEFAULT 0,
    name NVARCHAR(50) COLLATE Latin1_General_100_BIN2 UNIQUE,
    address NVARCHAR(50)
);

IF OBJECT_ID(N'operator', N'U') IS NULL
CREATE TABLE operator (
    operator_id NVARCHAR(36) NOT NULL DEFAULT '00000000-0000-0000-0000-000000000000' PRIMARY KEY,
    last_name NVARCHAR(100),
    middle_name NVARCHAR(100),
    first_name NVARCHAR(100),
    organization_id NVARCHAR(36),
    department_id NVARCHAR(36),
    user_id NVARCHAR(20),
    username NVARCHAR(280) COLLATE Latin1_General_100_BIN2,  -- 255, and the suffix of a deleted operator's name
    password NVARCHAR(255) COLLATE Latin1_General_100_BIN2,  -- salted hash; empty for Windows users and groups
    salt NVARCHAR(16) COLLATE Latin1_General_100_BIN2,
    date_created DATETIME2(0) NULL,  -- UTC, as date_updated
    date_updated DATETIME2(0) NULL,
    deleted INTEGER NOT NULL DEFAULT 0,
    operator_type INTEGER NOT NULL,  -- 1 internal user, 2 Windows group, 3 Windows user
    INDEX operator_username (username)
);

IF OBJECT_ID(N'operator_roles', N'U') IS NULL
CREATE TABLE operator_roles (
    operator_roles_id INTEGER IDENTITY(1, 1) NOT NULL PRIMARY KEY,
    operator_id NVARCHAR(36) NOT NULL,
    role_id INTEGER NOT NULL,
    INDEX operator_roles_operator (operator_id),
    FOREIGN KEY (operator_id) REFERENCES operator (operator_id) ON DELETE CASCADE ON UPDATE CASCADE
);

-- Three roles to begin with. They can be renamed, changed and deleted in the program.
INSERT INTO roles (title, actions, deleted)
SELECT first_roles.title, first_roles.actions, 0
FROM (VALUES (N'Nurse', 3633152), (N'Doctor', 331776), (N'Admin', 4190263)) AS first_roles (title, actions)
WHERE NOT EXISTS (SELECT 1 FROM roles);
