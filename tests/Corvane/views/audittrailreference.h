#ifndef TESTS_AUDITTRAILREFERENCE_H
#define TESTS_AUDITTRAILREFERENCE_H

#include "Corvane/views/audittrailquerystring.h"

#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QStringList>
#include <QVector>

/// Random events, and a plain evaluation of the filters on them, without any database.
///
/// The texts are lower-case letters and digits: how letters compare is the business of each database.
class ReferenceLog
{
public:
    ReferenceLog(quint32 seed, int rows);

    /// Writes the events through a connection, in one transaction.
    bool writeTo(QSqlDatabase &database) const;
    /// Adds an event that somebody else has written, as the texts of its twelve columns.
    void append(const QStringList &row);

    AuditFilterMap randomFilters();
    AuditSortOrder randomSort();

    /// Reads a database with the viewer's own statement.
    ///
    /// \return  empty when it gives exactly the rows that the filters leave, in the order of the sort column;
    ///          otherwise what is different
    QString difference(const QSqlDatabase &database, const AuditFilterMap &filters,
                       const AuditSortOrder &sort) const;

private:
    QString randomText();
    QString randomTerms();
    QVariantList randomNumbers(const QVector<int> &numbers);
    QDateTime randomDay();
    int below(int limit);
    template<typename T>
    T oneOf(const QVector<T> &values)
    {
        return values.at(below(values.size()));
    }

    QRandomGenerator m_random;
    QVector<QStringList> m_rows;
};

/// The texts of a query's rows.
QVector<QStringList> readRows(const QSqlDatabase &database, const QString &statement, QString &error);

#endif
