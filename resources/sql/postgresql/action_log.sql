-- The audit trail on PostgreSQL.
-- Running the script again completes what is missing and leaves the rest as it is.

CREATE TABLE IF NOT EXISTS action_log (
    timestamp_action VARCHAR(19) NOT NULL,  -- UTC, as 2016-02-01 13:45:00
    category INTEGER NOT NULL,
    action_level INTEGER NOT NULL,
    action INTEGER NOT NULL,
    action_type INTEGER NOT NULL,
    operator VARCHAR(36) NOT NULL,
    operator_name VARCHAR(255) NOT NULL,
    system VARCHAR(255) NOT NULL,
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

INSERT INTO hash (hash)
SELECT replace(concat(gen_random_uuid(), gen_random_uuid()), '-', '') WHERE NOT EXISTS (SELECT 1 FROM hash);

-- The viewer filters numbers with LIKE, which PostgreSQL has for texts alone: between numbers it is equality.
CREATE OR REPLACE FUNCTION like_between_numbers(INTEGER, INTEGER) RETURNS BOOLEAN
    LANGUAGE sql IMMUTABLE STRICT AS 'SELECT $1 = $2';

DROP OPERATOR IF EXISTS ~~ (INTEGER, INTEGER);

CREATE OPERATOR ~~ (LEFTARG = INTEGER, RIGHTARG = INTEGER, FUNCTION = like_between_numbers);
