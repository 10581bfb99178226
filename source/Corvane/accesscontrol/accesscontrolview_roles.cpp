#include "Corvane/accesscontrol/accesscontrolview.h"
#include "Corvane/accesscontrol/accessrole.h"
#include "Corvane/accesscontrol/accessuser.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "ZephanShared/widgets/celltable.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QDialog>
#include <QPushButton>

void AccesscontrolView::newRole()
{
    const Role role = AccessRole::newRole(window());
    if (!role)
        return;
    if (role->roleName().isEmpty()) {
        showFailure(tr("Name empty"), tr("Please enter unique name."));
        return;
    }
    AccessRole *button = addRoleColumn(role);
    const int column = button->column();
    if (isRoleNameTaken(button, role->roleName())) {
        showFailure(tr("Name taken"), tr("Please enter unique name."));
        editRoleColumn(button);
    } else if (!storeRole(role)) {
        removeRoleColumn(column);
        showFailure(tr("Save failed"), tr("Could not save."));
    }
    if (m_roles.at(column))
        m_roleTable->focusCell(0, column);
    updateButtonStates();
}

void AccesscontrolView::editRole()
{
    if (auto *button = qobject_cast<AccessRole *>(sender()))
        editRoleColumn(button);
}

/// Runs the editor of a role until its name is one that it can have, and stores it.
void AccesscontrolView::editRoleColumn(AccessRole *button)
{
    if (button->editRole(isRoleInUse(button)) != QDialog::Accepted) {
        discardRoleEdit(button);
        return;
    }
    const QString name = button->role()->roleName();
    if (button->deleted()) {
        deleteRoleColumn(button);
    } else if (name.isEmpty()) {
        showFailure(tr("Name empty"), tr("Please enter unique name."));
        editRoleColumn(button);
    } else if (isRoleNameTaken(button, name)) {
        showFailure(tr("Name taken"), tr("Please enter unique name."));
        editRoleColumn(button);
    } else {
        storeRoleColumn(button);
    }
}

/// Gives the role its name back. A new role whose name is taken has none to go back to, and goes.
void AccesscontrolView::discardRoleEdit(AccessRole *button)
{
    if (button->role()->roleID() == 0 && isRoleNameTaken(button, button->text())) {
        removeRoleColumn(button->column());
        updateButtonStates();
    } else {
        button->role()->setRoleName(button->text());
    }
}

void AccesscontrolView::deleteRoleColumn(AccessRole *button)
{
    bool deleted = false;
    if (m_handler) {
        const WaitCursor cursor;
        deleted = m_handler->deleteRole(button->role());
    }
    if (deleted) {
        removeRoleColumn(button->column());
        if (!m_roleTable->focusNeighbour(0, button->column(), Qt::Horizontal))
            m_addButton->setFocus();
    } else {
        showFailure(tr("Delete failed"), tr("Could not delete."));
    }
    updateButtonStates();
}

void AccesscontrolView::storeRoleColumn(AccessRole *button)
{
    const QString name = button->role()->roleName();
    const int column = button->column();
    button->setText(name);
    m_userTable->setItem(0, column, makeHeading(name));
    nameRightChecks(column);
    for (int row = 1; row < m_userRows; ++row) {
        if (m_users.at(row))
            nameUserChecks(row, column);
    }
    fitRoleColumn(column);
    if (!storeRole(button->role()))
        showFailure(tr("Save failed"), tr("Could not save."));
}

bool AccesscontrolView::isRoleInUse(const AccessRole *button) const
{
    const uint id = button->role()->roleID();
    for (const AccessUser *user : m_users) {
        if (user && user->oper()->operatorRoleIDList().contains(id))
            return true;
    }
    return false;
}

/// Whether another shown column has the name.
bool AccesscontrolView::isRoleNameTaken(const AccessRole *button, const QString &name) const
{
    for (const AccessRole *other : m_roles) {
        if (other && other != button && other->role()->roleName() == name)
            return true;
    }
    return false;
}

bool AccesscontrolView::storeRole(const Role &role)
{
    if (!m_handler)
        return false;
    const WaitCursor cursor;
    return m_handler->saveRole(role);
}

void AccesscontrolView::checkIncrementalAccessTypes()
{
    auto *check = qobject_cast<QAbstractButton *>(sender());
    for (AccessRole *role : qAsConst(m_roles)) {
        if (check && role && role->rightButtons().contains(check)) {
            role->applyDependentRights(check);
            updateButtonStates();
            return;
        }
    }
}
