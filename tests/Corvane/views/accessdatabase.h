#ifndef TESTS_ACCESSDATABASE_H
#define TESTS_ACCESSDATABASE_H

#include "CommunicationAndData/access/operatormodeldata.h"

#include <QString>

#include <memory>

class AccessControl;

/// The access control of somebody named "tester" who signed in with these rights.
std::unique_ptr<AccessControl> accessControlWith(int rights);

/// An online access database on this computer, an SQLite file that is reached over ODBC, with the operators
/// that a test puts into it.
class AccessDatabase
{
public:
    explicit AccessDatabase(const QString &path);
    ~AccessDatabase();
    Q_DISABLE_COPY(AccessDatabase)

    /// Makes this the database that a connection handler with that data directory connects to.
    void configure(const QString &dataDirectory) const;

    /// \param rights    the mask of the operator's one role
    /// \param password  of an internal user
    /// \return          the operator's id
    UuidString addOperator(OperatorModelData::OperatorType type, const QString &name, int rights,
                           const QString &password = QString());
    /// Runs a statement on the file, beside the program's connection.
    void run(const QString &statement, const QVariantList &values = {});

private:
    QString m_path;
    int m_operators = 0;
};

#endif
