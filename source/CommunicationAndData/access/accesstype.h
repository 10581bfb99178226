#ifndef ACCESSTYPE_H
#define ACCESSTYPE_H

#include <QMetaType>

/// The rights of the suite: bits of a role's mask, as stored in the column `actions` of the table `roles`.
enum AccessType : int {
    NoAccess = 0,
    AccessControlManagement = 0x1,
    WriteLocalDbSettings = 0x2,
    AuditTrailManagement = 0x4,
    DistributeSettings = 0x10,
    DownloadSettings = 0x20,
    ReadPerson = 0x1000,
    CreatePerson = 0x2000,
    ModifyPerson = 0x4000,
    DeletePerson = 0x8000,
    ReadStudy = 0x10000,
    CreateStudy = 0x20000,
    ModifyStudy = 0x40000,
    DeleteStudy = 0x80000,
    ImportData = 0x100000,
    ExportData = 0x200000
};

Q_DECLARE_METATYPE(AccessType)

namespace SqlStorage {

/// The kind of database behind an ODBC connection, as stored in the settings.
enum SqlDatabaseType : unsigned { UnknownType = 0, MsSql = 1, MySql = 2, PostgreSql = 3, Sqlite = 4 };

}  // namespace SqlStorage

#endif
