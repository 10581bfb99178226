#ifndef ACTIONLOGTABLE_H
#define ACTIONLOGTABLE_H

#include "ZephanShared/toolkit/uuidstring.h"

#include <QDateTime>
#include <QStringList>
#include <QVariantList>

/// One row of the audit trail.
struct ActionLogEntry
{
    QDateTime time;  ///< stored in UTC
    int category = 0;
    int level = 0;
    int action = 0;
    int actionType = 0;
    UuidString operatorId;
    QString operatorName;
    QString system;  ///< the workstation
    UuidString databaseKey;
    QString info;
    QString targetDatabase;
    QString targetServer;

    /// The values of the row in the order of `ActionLogTable::columns`.
    QVariantList values() const;
};

/// Names and statements of the tables in which the audit trail is kept.
namespace ActionLogTable {

/// The encrypted file of one workstation.
constexpr char kFileName[] = "actionlog.db";
constexpr char kTable[] = "action_log";
/// Times are text of this form in UTC, so that they sort, compare and read alike on every database.
constexpr char kTimeFormat[] = "yyyy-MM-dd hh:mm:ss";

/// The twelve columns in the order in which they are stored, read and shown.
const QStringList &columns();

/// An insert of one row with a placeholder for each column.
QString insertStatement();

/// An insert of no row. It fails where a column or the right to insert is missing.
QString probeStatement();

}  // namespace ActionLogTable

#endif
