#ifndef ACCESSCONTROL_H
#define ACCESSCONTROL_H

#include "CommunicationAndData/access/accesstype.h"
#include "CommunicationAndData/access/operatormodeldata.h"

#include <QObject>
#include <QVariant>

#include <memory>

class QSqlDatabase;

/// The login check, and afterwards the rights of who signed in.
///
/// Methods: "none" takes the given user as it is, with the rights that `accesscontrol/defaultrights` holds
/// during `login`; "Internal users" compares name and password with the access tables; "Windows group based"
/// and "Windows user based" look up the current account there. Default rights count for "none" alone.
///
/// A stored account name is compared without regard to case; one without a domain or computer in front means
/// the account of that name in any. All groups of the account count, and the operator is then the account
/// itself, with the id of its security identifier.
class AccessControl : public QObject
{
    Q_OBJECT

public:
    /// \param database  the handler's connection; borrowed, may be closed
    AccessControl(QObject *parent, QString method, QSqlDatabase *database, SqlStorage::SqlDatabaseType type);
    ~AccessControl() override;

    /// Authenticates. `loginResult` always follows from the event loop and never from inside the call, so
    /// that a listener may delete this object. A database that could not be asked is logged, a refusal is
    /// not.
    void login(const QString &user, const QString &password);

    /// The operator who signed in; null before.
    OperatorModel getOperator() const;

    /// Whether the rights include all bits of `type`.
    bool isAllowed(AccessType type) const;

    /// The union of the rights of the operator's live roles.
    AccessType allowedAccessTypes() const;

signals:
    /// \param errorCode     0 for success; `ZephanErrors::kLoginFailed` for a refusal; `kNoConnection` or
    ///                      `kStatementFailed` when the database could not be asked
    /// \param errorData     the user of a failed attempt; empty for success
    /// \param errorMessage  the cause, untranslated
    void loginResult(uint errorCode, const QVariant &errorData, const QString &errorMessage);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
