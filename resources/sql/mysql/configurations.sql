-- The online configurations on MySQL and MariaDB.
-- Running the script again completes what is missing and leaves the rest as it is.

CREATE TABLE IF NOT EXISTS configurations (
    id INTEGER NOT NULL AUTO_INCREMENT PRIMARY KEY,
    notes LONGTEXT NOT NULL,           -- release notes
    created VARCHAR(19) NOT NULL,      -- UTC, as 2016-02-01 13:45:00
    creator VARCHAR(255) NOT NULL,
    inform_users SMALLINT NOT NULL CHECK (inform_users IN (0, 1)),
    active SMALLINT NULL CHECK (active = 1),  -- null, or 1 in the one that the applications take
    checksum VARCHAR(64) NOT NULL,     -- of the image, SHA-256 in lower-case hexadecimal
    image LONGTEXT NOT NULL,
    UNIQUE INDEX configurations_active (active)
) ENGINE = InnoDB CHARACTER SET utf8mb4;
