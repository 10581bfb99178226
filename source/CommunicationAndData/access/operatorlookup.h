#ifndef OPERATORLOOKUP_H
#define OPERATORLOOKUP_H

#include "CommunicationAndData/access/operatormodeldata.h"

#include <QList>
#include <QString>

class QSqlDatabase;
class QSqlQuery;

/// Reads the access tables for a sign-in: live operators, and the live roles that are linked to them.
class OperatorLookup
{
public:
    /// \param database  open, and outlives this object
    explicit OperatorLookup(const QSqlDatabase &database);

    /// All live operators of a type, ordered by their ids; empty after a failure too.
    QList<OperatorModel> operators(OperatorModelData::OperatorType type);
    /// The live operators of a type with exactly this name.
    QList<OperatorModel> operators(OperatorModelData::OperatorType type, const QString &username);

    /// The union of the rights of all live roles of these operators.
    ///
    /// \param bearer  gets the ids and titles of the roles, each once
    int rights(const QList<OperatorModel> &operators, const OperatorModel &bearer);

    /// Whether a statement failed; `errorText` then holds the words of the database.
    bool failed() const;
    QString errorText() const;

private:
    QList<OperatorModel> readOperators(QSqlQuery &query, OperatorModelData::OperatorType type);
    bool run(QSqlQuery &query, const QString &statement, const QVariantList &values);

    /// Whether the rows ended because there are no more, and not by a failure.
    bool readToTheEnd(const QSqlQuery &query);
    void fail(const QSqlQuery &query);

    const QSqlDatabase &m_database;
    bool m_failed = false;
    QString m_errorText;
};

#endif
