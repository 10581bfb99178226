-- The audit trail on MySQL and MariaDB.
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
    info LONGTEXT NOT NULL,
    target_database TEXT NOT NULL,
    target_server TEXT NOT NULL,
    INDEX action_log_time (timestamp_action)
) ENGINE = InnoDB CHARACTER SET utf8mb4;

-- One row: the random value that tells this audit database from every other.
CREATE TABLE IF NOT EXISTS hash (
    id INTEGER NOT NULL DEFAULT 1 PRIMARY KEY CHECK (id = 1),
    hash VARCHAR(64) NOT NULL
) ENGINE = InnoDB CHARACTER SET utf8mb4;

INSERT INTO hash (hash)
SELECT SHA2(CONCAT(UUID(), RAND(), NOW(6)), 256) FROM DUAL WHERE NOT EXISTS (SELECT 1 FROM hash);
