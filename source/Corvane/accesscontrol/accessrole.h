#ifndef ACCESSROLE_H
#define ACCESSROLE_H

#include "CommunicationAndData/access/accessrolemodeldata.h"
#include "ZephanShared/widgets/columnbutton.h"

#include <QMap>
#include <QSharedPointer>

class QAbstractButton;

/// The head of a role's column in the table of rights: a button with the role's name that opens the editor.
class AccessRole : public ColumnButton
{
    Q_OBJECT

public:
    /// \param role  the role, not null
    AccessRole(QSharedPointer<AccessRoleModelData> role, QWidget *parent);

    /// Lets a person name a new role, which has no id and no rights yet.
    ///
    /// \return  null when cancelled; the name may be empty or taken
    static QSharedPointer<AccessRoleModelData> newRole(QWidget *parent = nullptr);

    QSharedPointer<AccessRoleModelData> role() const;

    /// \param rightButtons  the column's check buttons with the mask that each stands for; not owned
    void setRightButtons(const QMap<QAbstractButton *, int> &rightButtons);
    QMap<QAbstractButton *, int> rightButtons() const;

    /// Whether a check button says another thing than the role. False without check buttons.
    bool roleChanged() const;
    /// Gives the role the rights that are checked and no others. Does nothing without check buttons.
    void applyRights();
    /// Checks or unchecks the rights that follow one that was just clicked, one step far.
    ///
    /// \param clicked  one of the check buttons, in its new state; others are ignored
    void applyDependentRights(QAbstractButton *clicked);

    /// Lets a person rename or delete the role. The name in the role changes while it is typed, also when the
    /// dialog is cancelled in the end; `deleted()` tells of a confirmed deletion.
    ///
    /// \param inUse  whether a user has the role, which then can't be deleted
    /// \return       the result of the dialog
    int editRole(bool inUse);

private:
    QSharedPointer<AccessRoleModelData> m_role;
    QMap<QAbstractButton *, int> m_rightButtons;
};

#endif
