#include "Corvane/accesscontrol/accesscontrolview.h"
#include "Corvane/accesscontrol/accessuser.h"
#include "Corvane/accesscontrol/accessuserwizard.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "ZephanShared/widgets/celltable.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QPushButton>

void AccesscontrolView::newManagedUser()
{
    Organizations organizations;
    Departments departments;
    loadInformation(organizations, departments);
    addOperator(AccessUserWizard::newInternalUser(organizations, departments, window()),
                OperatorModelData::InternalUser);
}

void AccesscontrolView::newSystemUser()
{
    Organizations organizations;
    Departments departments;
    loadInformation(organizations, departments);
    addOperator(AccessUserWizard::newWindowsUser(m_domainList, organizations, departments, window()),
                OperatorModelData::WindowsUser);
}

void AccesscontrolView::newSystemGroup()
{
    addOperator(AccessUserWizard::newWindowsGroup(m_domainList, window()), OperatorModelData::WindowsGroup);
}

void AccesscontrolView::editManagedUser()
{
    auto *user = qobject_cast<AccessUser *>(sender());
    if (user && !user->text().isEmpty() && user->oper())
        editUser(user, false);
}

/// Loads the lists that an operator's organisation and department are chosen from. What can't be loaded is
/// told, and the flow goes on with what came.
void AccesscontrolView::loadInformation(Organizations &organizations, Departments &departments)
{
    if (!m_handler)
        return;
    QString errors;
    {
        const WaitCursor cursor;
        errors = m_handler->getOrganizationInfo(organizations, departments);
    }
    if (!errors.isEmpty())
        showFailure(tr("Load failed"), tr("Could not load organisational information: ") + errors);
}

void AccesscontrolView::addOperator(const OperatorModel &op, OperatorModelData::OperatorType type)
{
    if (!op || op->username().isEmpty())
        return;
    AccessUser *user = addUserRow(op);
    op->setOperatorType(type);
    filterRow(user->row());
    bool kept = true;
    if (isUsernameTaken(user)) {
        showFailure(tr("Name taken"), tr("Please enter unique name."));
        kept = type == OperatorModelData::InternalUser;
        if (kept) {
            op->setUsername(QString());
            kept = editUser(user, true);
        }
    } else if (!storeOperator(op)) {
        showFailure(tr("Save failed"), tr("Could not save."));
        kept = false;
    }
    if (!kept)
        removeUserRow(user);
    else if (m_users.at(user->row()))
        m_userTable->focusCell(user->row(), 0);
    fitUserColumn();
    updateButtonStates();
}

/// Runs the editor of a user until its name is one that it can have, and stores it.
///
/// \return  false when the person gave up
bool AccesscontrolView::editUser(AccessUser *user, bool isNew)
{
    Organizations organizations;
    Departments departments;
    loadInformation(organizations, departments);
    const OperatorModel op = user->oper();
    const QString oldName = user->text();
    if (user->editOperator(organizations, departments, !isNew) != QDialog::Accepted)
        return false;
    if (user->deleted()) {
        deleteUser(user, oldName);
        return true;
    }
    if (isUsernameTaken(user)) {
        showFailure(tr("Username taken"), tr("Please enter unique username."));
        op->setUsername(isNew ? QString() : oldName);
        return editUser(user, isNew);
    }
    if (op->username().isEmpty()) {
        showFailure(tr("Username empty"), tr("Please enter username."));
        op->setUsername(oldName);
        return editUser(user, isNew);
    }
    storeUser(user);
    return true;
}

// The store gives the name of a deleted operator to the object, also where it then fails.
void AccesscontrolView::deleteUser(AccessUser *user, const QString &name)
{
    bool deleted = false;
    if (m_handler) {
        const WaitCursor cursor;
        deleted = m_handler->deleteOperator(user->oper());
    }
    if (deleted) {
        removeUserRow(user);
        if (!m_userTable->focusNeighbour(user->row(), 0, Qt::Vertical))
            m_addButton->setFocus();
    } else {
        user->oper()->setUsername(name);
        showFailure(tr("Delete failed"), tr("Could not delete."));
    }
    fitUserColumn();
    updateButtonStates();
}

void AccesscontrolView::storeUser(AccessUser *user)
{
    user->setText(user->oper()->username());
    for (int column = 1; column < m_userChecks.at(user->row()).size(); ++column)
        nameUserChecks(user->row(), column);
    fitUserColumn();
    if (!storeOperator(user->oper()))
        showFailure(tr("Save failed"), tr("Could not save."));
}

bool AccesscontrolView::isUsernameTaken(const AccessUser *user) const
{
    const QString name = user->oper()->username();
    for (const AccessUser *other : m_users) {
        if (other && other != user && other->oper()->username() == name)
            return true;
    }
    return false;
}

bool AccesscontrolView::storeOperator(const OperatorModel &op)
{
    if (!m_handler)
        return false;
    const WaitCursor cursor;
    return m_handler->saveOperator(op);
}
