#include "CommunicationAndData/access/accessrolemodeldata.h"

AccessRoleModelData::AccessRoleModelData(uint roleID, QString roleName, int accessTypes, QObject *parent)
    : QObject(parent)
    , m_roleID(roleID)
    , m_roleName(std::move(roleName))
    , m_accessTypes(accessTypes)
{}

uint AccessRoleModelData::roleID() const
{
    return m_roleID;
}

void AccessRoleModelData::setRoleID(uint roleID)
{
    m_roleID = roleID;
}

QString AccessRoleModelData::roleName() const
{
    return m_roleName;
}

int AccessRoleModelData::accessTypes() const
{
    return m_accessTypes;
}

void AccessRoleModelData::setAccessTypes(int accessTypes)
{
    m_accessTypes = accessTypes;
}

void AccessRoleModelData::setRoleName(QString roleName)
{
    m_roleName = std::move(roleName);
}
