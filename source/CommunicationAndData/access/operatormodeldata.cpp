#include "CommunicationAndData/access/operatormodeldata.h"

OperatorModelData::OperatorModelData(UuidString operatorID, const QString &userID, const QString &username,
                                     const QList<uint> &roleIDs, const QStringList &roleNames,
                                     const QString &firstName, const QString &middleName,
                                     const QString &lastName, const MappedStrings &organization,
                                     const MappedStrings &department, const QString &passwordHash,
                                     const QString &salt, const uint &operatorType, QObject *parent)
    : QObject(parent)
    , m_operatorID(std::move(operatorID))
    , m_userID(userID)
    , m_username(username)
    , m_roleIDs(roleIDs)
    , m_roleNames(roleNames)
    , m_firstName(firstName)
    , m_middleName(middleName)
    , m_lastName(lastName)
    , m_organization(organization)
    , m_department(department)
    , m_passwordHash(passwordHash)
    , m_salt(salt)
    , m_operatorType(operatorType)
{}

UuidString OperatorModelData::operatorID() const
{
    return m_operatorID;
}

void OperatorModelData::setOperatorID(const UuidString &operatorID)
{
    m_operatorID = operatorID;
}

QString OperatorModelData::userID() const
{
    return m_userID;
}

QString OperatorModelData::username() const
{
    return m_username;
}

void OperatorModelData::setUsername(const QString &username)
{
    m_username = username;
}

QString OperatorModelData::firstName() const
{
    return m_firstName;
}

void OperatorModelData::setFirstName(const QString &firstName)
{
    m_firstName = firstName;
}

QString OperatorModelData::middleName() const
{
    return m_middleName;
}

void OperatorModelData::setMiddleName(const QString &middleName)
{
    m_middleName = middleName;
}

QString OperatorModelData::lastName() const
{
    return m_lastName;
}

void OperatorModelData::setLastName(const QString &lastName)
{
    m_lastName = lastName;
}

QString OperatorModelData::passwordHash() const
{
    return m_passwordHash;
}

void OperatorModelData::setPasswordHash(const QString &passwordHash)
{
    m_passwordHash = passwordHash;
}

QString OperatorModelData::salt() const
{
    return m_salt;
}

void OperatorModelData::setSalt(const QString &salt)
{
    m_salt = salt;
}

uint OperatorModelData::operatorType() const
{
    return m_operatorType;
}

void OperatorModelData::setOperatorType(uint operatorType)
{
    m_operatorType = operatorType;
}

MappedStrings &OperatorModelData::organization()
{
    return m_organization;
}

void OperatorModelData::setOrganization(const MappedStrings &organization)
{
    m_organization = organization;
}

MappedStrings &OperatorModelData::department()
{
    return m_department;
}

void OperatorModelData::setDepartment(const MappedStrings &department)
{
    m_department = department;
}

QList<uint> OperatorModelData::operatorRoleIDList() const
{
    return m_roleIDs;
}

void OperatorModelData::setOperatorRoleIDList(const QList<uint> &roleIDs)
{
    m_roleIDs = roleIDs;
}

QStringList OperatorModelData::operatorRoleNames() const
{
    return m_roleNames;
}

void OperatorModelData::setOperatorRoleNames(const QStringList &roleNames)
{
    m_roleNames = roleNames;
}
