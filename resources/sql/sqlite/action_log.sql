-- The audit trail on SQLite: of one workstation, or behind the ODBC driver.
-- Running the script again completes what is missing and leaves the rest as it is.

CREATE TABLE IF NOT EXISTS action_log (
    timestamp_action VARCHAR(19) NOT NULL,  -- UTC, as 2016-02-01 13:45:00
    category INTEGER NOT NULL,
    action_level INTEGER NOT NULL,
    action INTEGER NOT NULL,
    action_type INTEGER NOT NULL,
    operator VARCHAR(36) NOT NULL,
    operator_name TEXT NOT NULL,
    system TEXT NOT NULL,
    database_key VARCHAR(36) NOT NULL,
    info TEXT NOT NULL,
    target_database TEXT NOT NULL,
    target_server TEXT NOT NULL
);

CREATE INDEX IF NOT EXISTS action_log_time ON action_log (timestamp_action);

-- One row: the random value that tells this audit database from every other.
CREATE TABLE IF NOT EXISTS hash (
    id INTEGER NOT NULL DEFAULT 1 PRIMARY KEY CHECK (id = 1),
    hash VARCHAR(64) NOT NULL
);

INSERT INTO hash (hash) SELECT lower(hex(randomblob(32))) WHERE NOT EXISTS (SELECT 1 FROM hash);
