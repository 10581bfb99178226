#ifndef AUDITTRAILQUERYSTRING_H
#define AUDITTRAILQUERYSTRING_H

#include <QCoreApplication>
#include <QMap>
#include <QPair>
#include <QStringList>
#include <QVariant>

/// What the audit trail can be filtered by. The numbers fix the order of the clauses.
enum class AuditFilterKey : int {
    Action = 0,       ///< list of integers, or a single integer
    Type = 1,         ///< integer
    Category = 2,     ///< integer
    Level = 3,        ///< list of integers, or a single integer
    Operator = 4,     ///< text, several terms separated by commas
    System = 5,       ///< the same
    DateFrom = 6,     ///< date and time
    DateTo = 7,       ///< date and time
    DatabaseKey = 8,  ///< text, several terms separated by commas
};

/// The active filters; a key is present only while its filter is active.
using AuditFilterMap = QMap<AuditFilterKey, QVariant>;

/// Column index in the shared list, and direction.
using AuditSortOrder = QPair<int, Qt::SortOrder>;

/// Turns the viewer's filters and sort choice into the one statement that reads the action log.
///
/// Pure text: the same statement runs on every database and is recorded in the audit trail as it stands.
/// Terms are prefix matches and go into the statement without any escaping, so "%" and "_" keep their
/// meaning.
class AuditTrailQueryString
{
    Q_DECLARE_TR_FUNCTIONS(AuditTrailQueryString)

public:
    /// The columns of `action_log`, in the order of the table, the result and the sort index.
    static const QStringList &columns();

    /// The translated header of a column; empty for an index outside the list.
    static QString headerText(int columnIndex);

    /// The statement. A sort column outside the list leaves it without an order and without a semicolon.
    static QString statement(const AuditFilterMap &filters, const AuditSortOrder &sort);

    /// The statement that counts the rows which the filters leave.
    static QString countStatement(const AuditFilterMap &filters);

    /// The statement that reads the time and the category of the rows which the filters leave, in any order.
    static QString timelineStatement(const AuditFilterMap &filters);
};

Q_DECLARE_METATYPE(AuditFilterMap)

#endif
