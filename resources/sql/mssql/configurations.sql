-- The online configurations on Microsoft SQL Server.
-- Running the script again completes what is missing and leaves the rest as it is.

-- `sqlcmd` has it off, and an index over a part of the rows needs it.
SET QUOTED_IDENTIFIER ON;

IF OBJECT_ID(N'configurations', N'U') IS NULL
CREATE TABLE configurations (
    id INTEGER NOT NULL IDENTITY (1, 1) PRIMARY KEY,
    notes NVARCHAR(MAX) NOT NULL,      -- release notes
    created NVARCHAR(19) NOT NULL,     -- UTC, as 2016-02-01 13:45:00
    creator NVARCHAR(255) NOT NULL,
    inform_users SMALLINT NOT NULL CHECK (inform_users IN (0, 1)),
    active SMALLINT NULL CHECK (active = 1),  -- null, or 1 in the one that the applications take
    checksum NVARCHAR(64) NOT NULL,    -- of the image, SHA-256 in lower-case hexadecimal
    image NVARCHAR(MAX) NOT NULL,
    INDEX configurations_active UNIQUE (active) WHERE active = 1
);
