-- The online configurations on SQLite: behind the ODBC driver, in place of a server.
-- Running the script again completes what is missing and leaves the rest as it is.

CREATE TABLE IF NOT EXISTS configurations (
    id INTEGER NOT NULL PRIMARY KEY AUTOINCREMENT,
    notes TEXT NOT NULL,               -- release notes
    created VARCHAR(19) NOT NULL,      -- UTC, as 2016-02-01 13:45:00
    creator VARCHAR(255) NOT NULL,
    inform_users SMALLINT NOT NULL CHECK (inform_users IN (0, 1)),
    active SMALLINT CHECK (active = 1),  -- null, or 1 in the one that the applications take
    checksum VARCHAR(64) NOT NULL,     -- of the image, SHA-256 in lower-case hexadecimal
    image TEXT NOT NULL
);

CREATE UNIQUE INDEX IF NOT EXISTS configurations_active ON configurations (active);
