#ifndef ACCESSROLEMODELDATA_H
#define ACCESSROLEMODELDATA_H

#include <QObject>
#include <QSharedPointer>

/// The row of one role: a title and a mask of rights.
class AccessRoleModelData : public QObject
{
    Q_OBJECT

public:
    /// \param accessTypes  bits of `AccessType`
    AccessRoleModelData(uint roleID, QString roleName, int accessTypes, QObject *parent = nullptr);

    uint roleID() const;
    void setRoleID(uint roleID);
    QString roleName() const;
    int accessTypes() const;
    void setAccessTypes(int accessTypes);

public slots:
    void setRoleName(QString roleName);

private:
    uint m_roleID;
    QString m_roleName;
    int m_accessTypes;
};

#endif
