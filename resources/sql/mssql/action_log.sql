-- The audit trail on Microsoft SQL Server.
-- Running the script again completes what is missing and leaves the rest as it is.

IF OBJECT_ID(N'action_log', N'U') IS NULL
CREATE TABLE action_log (
    timestamp_action NVARCHAR(19) NOT NULL,  -- UTC, as 2016-02-01 13:45:00
    category INTEGER NOT NULL,
    action_level INTEGER NOT NULL,
    action INTEGER NOT NULL,
    action_type INTEGER NOT NULL,
    operator NVARCHAR(36) NOT NULL,
    operator_name NVARCHAR(255) NOT NULL,
    system NVARCHAR(255) NOT NULL,
    database_key NVARCHAR(36) NOT NULL,
    info NVARCHAR(MAX) NOT NULL,
    target_database NVARCHAR(MAX) NOT NULL,
    target_server NVARCHAR(MAX) NOT NULL,
    INDEX action_log_time (timestamp_action)
);

-- One row: the random value that tells this audit database from every other.
IF OBJECT_ID(N'hash', N'U') IS NULL
CREATE TABLE hash (
    id INTEGER NOT NULL DEFAULT 1 PRIMARY KEY CHECK (id = 1),
    hash NVARCHAR(64) NOT NULL
);

INSERT INTO hash (hash)
SELECT LOWER(CONVERT(NVARCHAR(64), CRYPT_GEN_RANDOM(32), 2)) WHERE NOT EXISTS (SELECT 1 FROM hash);
