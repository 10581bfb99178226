#ifndef OPERATORMODELDATA_H
#define OPERATORMODELDATA_H

#include "ZephanShared/toolkit/mappedstrings.h"
#include "ZephanShared/toolkit/uuidstring.h"

#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QStringList>

/// The row of one operator: an internal user, a Windows group or a Windows user.
class OperatorModelData : public QObject
{
    Q_OBJECT

public:
    enum OperatorType : uint { InternalUser = 1, WindowsGroup = 2, WindowsUser = 3 };

    OperatorModelData(UuidString operatorID, const QString &userID, const QString &username,
                      const QList<uint> &roleIDs, const QStringList &roleNames, const QString &firstName,
                      const QString &middleName, const QString &lastName, const MappedStrings &organization,
                      const MappedStrings &department, const QString &passwordHash, const QString &salt,
                      const uint &operatorType, QObject *parent = nullptr);

    UuidString operatorID() const;
    void setOperatorID(const UuidString &operatorID);
    QString userID() const;
    QString username() const;
    void setUsername(const QString &username);
    QString firstName() const;
    void setFirstName(const QString &firstName);
    QString middleName() const;
    void setMiddleName(const QString &middleName);
    QString lastName() const;
    void setLastName(const QString &lastName);
    MappedStrings &organization();
    void setOrganization(const MappedStrings &organization);
    MappedStrings &department();
    void setDepartment(const MappedStrings &department);
    QString passwordHash() const;
    void setPasswordHash(const QString &passwordHash);
    QString salt() const;
    void setSalt(const QString &salt);
    uint operatorType() const;
    void setOperatorType(uint operatorType);
    QList<uint> operatorRoleIDList() const;
    void setOperatorRoleIDList(const QList<uint> &roleIDs);
    QStringList operatorRoleNames() const;
    void setOperatorRoleNames(const QStringList &roleNames);

private:
    UuidString m_operatorID;
    QString m_userID;
    QString m_username;
    QList<uint> m_roleIDs;
    QStringList m_roleNames;
    QString m_firstName;
    QString m_middleName;
    QString m_lastName;
    MappedStrings m_organization;
    MappedStrings m_department;
    QString m_passwordHash;
    QString m_salt;
    uint m_operatorType;
};

using OperatorModel = QSharedPointer<OperatorModelData>;
Q_DECLARE_METATYPE(OperatorModel)

#endif
