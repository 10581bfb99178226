#include "Corvane/accesscontrol/accesscontrolview.h"
#include "Corvane/accesscontrol/accessrights.h"
#include "Corvane/accesscontrol/accessrole.h"
#include "Corvane/accesscontrol/accessuser.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "ZephanShared/widgets/celltable.h"
#include "ZephanShared/widgets/checkbutton.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QPushButton>
#include <QScrollBar>

namespace {

constexpr int kLeastColumn = 90;  // pixels
constexpr int kMostColumn = 320;
// A department, its address and the button for deleting it stand side by side in the smallest window.
constexpr int kOrganizationColumn = 300;
constexpr int kDepartmentColumn = 160;
constexpr int kAddressColumn = 500;

bool includes(int mask, int rights)
{
    return (mask & rights) == rights;
}

}  // namespace

void AccesscontrolView::resetTables()
{
    if (!m_handler || !m_handler->isConnected())
        return;
    m_filled = true;
    const WaitCursor cursor;
    const CellTable::Filling users(m_userTable);
    const CellTable::Filling roles(m_roleTable);
    const CellTable::Filling information(m_infoTable);
    clearTables();
    fillTables();
    showInfoColumnsAndRows();
    updateTexts();
    filterRows();
    updateButtonStates();
}

void AccesscontrolView::clearTables()
{
    for (CellTable *table : {m_userTable, m_roleTable, m_infoTable}) {
        table->clear();
        table->setRowCount(0);
        table->setColumnCount(0);
    }
    m_userRows = 1;
    m_roleColumns = 1;
    m_organizationRows = 0;
    m_departmentRows = 0;
    m_users = {nullptr};
    m_roles = {nullptr};
    m_userChecks = QVector<QVector<QAbstractButton *>>(1);

    m_roleTable->growTo(accessRightRows().size() + 1, 1);
    m_roleTable->setItem(0, 0, makeCorner(QString()));
    m_userTable->growTo(1, 1);
    m_userTable->setItem(0, 0, makeCorner(QStringLiteral("-")));
    m_infoTable->growTo(1, InfoColumnCount);
    for (int column = 0; column < InfoColumnCount; ++column)
        m_infoTable->setItem(0, column, makeCorner(QStringLiteral("-")));
    m_infoTable->setColumnWidth(OrganizationColumn, kOrganizationColumn);
    m_infoTable->setColumnWidth(DepartmentColumn, kDepartmentColumn);
    m_infoTable->setColumnWidth(AddressColumn, kAddressColumn);
}

// The tables get their size at once: with each row or column that is added they look through all of their
// widgets.
void AccesscontrolView::fillTables()
{
    const QList<Role> roles = m_handler->getRoles();
    const QList<OperatorModel> operators = m_handler->getOperators();
    m_roleTable->growTo(1, roles.size() + 1);
    m_userTable->growTo(operators.size() + 1, roles.size() + 1);
    for (const Role &role : roles)
        addRoleColumn(role);
    for (const OperatorModel &op : operators)
        addUserRow(op);
    fitUserColumn();
    fillInformation();
}

AccessRole *AccesscontrolView::addRoleColumn(const Role &role)
{
    if (!role)
        return nullptr;
    const int column = m_roleColumns++;
    m_roleTable->growTo(accessRightRows().size() + 1, m_roleColumns);
    m_userTable->growTo(1, m_roleColumns);
    auto *head = new AccessRole(role, m_roleTable->viewport());
    head->setObjectName(QStringLiteral("role_button"));
    head->setColumn(column);
    connect(head, SIGNAL(clicked()), this, SLOT(editRole()));
    m_roleTable->setCell(0, column, head);
    m_roles.append(head);
    m_userTable->setItem(0, column, makeHeading(role->roleName()));
    for (int row = 1; row < m_userRows; ++row) {
        if (m_users.at(row))
            addUserCheck(row, column, false);
    }
    addRightChecks(head);
    fitRoleColumn(column);
    return head;
}

void AccesscontrolView::addRightChecks(AccessRole *role)
{
    QMap<QAbstractButton *, int> checks;
    int row = 0;
    for (const QPair<int, QString> &right : accessRightRows()) {
        ++row;
        if (!right.first) {
            m_roleTable->setItem(row, role->column(), makeCorner(QString()));
            continue;
        }
        auto *check = new CheckButton(m_roleTable->viewport());
        check->setObjectName(QStringLiteral("right_check"));
        check->setChecked(includes(role->role()->accessTypes(), right.first));
        connect(check, SIGNAL(clicked()), this, SLOT(checkIncrementalAccessTypes()));
        m_roleTable->setCell(row, role->column(), check);
        checks.insert(check, right.first);
    }
    role->setRightButtons(checks);
    nameRightChecks(role->column());
}

// A removed column stays as a hidden one, so that the others keep their numbers.
void AccesscontrolView::removeRoleColumn(int column)
{
    m_roleTable->setColumnHidden(column, true);
    m_userTable->setColumnHidden(column, true);
    m_roles[column] = nullptr;
    m_roleTable->removeCellWidget(0, column);
    for (int row = 1; row < m_userRows; ++row) {
        if (!m_users.at(row))
            continue;
        m_userChecks[row][column] = nullptr;
        m_userTable->removeCellWidget(row, column);
    }
}

/// Makes the role's column in both tables wide enough for its name, unless that is very long.
void AccesscontrolView::fitRoleColumn(int column)
{
    const int width = qBound(kLeastColumn, m_roles.at(column)->sizeHint().width(), kMostColumn);
    m_roleTable->setColumnWidth(column, width);
    m_userTable->setColumnWidth(column, width);
}

AccessUser *AccesscontrolView::addUserRow(const OperatorModel &op)
{
    if (!op)
        return nullptr;
    const int row = m_userRows++;
    m_userTable->growTo(m_userRows, 1);
    auto *head = new AccessUser(op, m_userTable->viewport());
    head->setObjectName(QStringLiteral("user_button"));
    head->setRow(row);
    connect(head, SIGNAL(clicked()), this, SLOT(editManagedUser()));
    m_userTable->setCell(row, 0, head);
    m_users.append(head);
    m_userChecks.append(QVector<QAbstractButton *>(m_roleColumns));
    const QList<uint> roleIds = op->operatorRoleIDList();
    for (int column = 1; column < m_roleColumns; ++column) {
        if (const AccessRole *role = shownRole(column))
            addUserCheck(row, column, roleIds.contains(role->role()->roleID()));
    }
    return head;
}

void AccesscontrolView::addUserCheck(int row, int column, bool checked)
{
    auto *check = new CheckButton(m_userTable->viewport());
    check->setObjectName(QStringLiteral("user_role_check"));
    check->setChecked(checked);
    connect(check, SIGNAL(clicked()), this, SLOT(userRoleChanged()));
    m_userTable->setCell(row, column, check);
    QVector<QAbstractButton *> &checks = m_userChecks[row];
    if (checks.size() <= column)
        checks.resize(column + 1);
    checks[column] = check;
    nameUserChecks(row, column);
}

// A removed row stays as a hidden one.
void AccesscontrolView::removeUserRow(AccessUser *user)
{
    const int row = user->row();
    m_userTable->setRowHidden(row, true);
    m_users[row] = nullptr;
    m_userChecks[row].fill(nullptr);
    for (int column = 0; column < m_userTable->columnCount(); ++column)
        m_userTable->removeCellWidget(row, column);
}

void AccesscontrolView::fitUserColumn()
{
    int width = kLeastColumn;
    for (const AccessUser *user : qAsConst(m_users))
        width = user ? qMax(width, user->sizeHint().width()) : width;
    m_userTable->setColumnWidth(0, width);
}

void AccesscontrolView::filterRows()
{
    for (int row = 1; row < m_userRows; ++row)
        filterRow(row);
    m_userTable->doItemsLayout();
}

void AccesscontrolView::filterRow(int row)
{
    const AccessUser *user = m_users.at(row);
    const bool hidden = !user || user->oper()->operatorType() != operatorType();
    if (m_userTable->isRowHidden(row) != hidden)
        m_userTable->setRowHidden(row, hidden);
}

/// The role of a column; null for a removed one.
AccessRole *AccesscontrolView::shownRole(int column) const
{
    return m_roles.at(column);
}

void AccesscontrolView::userRoleChanged()
{
    updateButtonStates();
}

void AccesscontrolView::updateButtonStates()
{
    if (m_currentView == UsersView)
        m_saveButton->setEnabled(isAnyUserChanged());
    else if (m_currentView == RolesView)
        m_saveButton->setEnabled(isAnyRoleChanged());
    else
        updateInfoButtons();
}

bool AccesscontrolView::isAnyUserChanged() const
{
    for (int row = 1; row < m_userRows; ++row) {
        if (isUserRowChanged(row))
            return true;
    }
    return false;
}

/// Whether a shown user has other roles in the table than in the operator.
bool AccesscontrolView::isUserRowChanged(int row) const
{
    const AccessUser *user = m_users.at(row);
    if (!user || m_userTable->isRowHidden(row))
        return false;
    const QList<uint> roleIds = user->oper()->operatorRoleIDList();
    const QVector<QAbstractButton *> &checks = m_userChecks.at(row);
    for (int column = 1; column < checks.size(); ++column) {
        const QAbstractButton *check = checks.at(column);
        const AccessRole *role = shownRole(column);
        if (check && role && check->isChecked() != roleIds.contains(role->role()->roleID()))
            return true;
    }
    return false;
}

bool AccesscontrolView::isAnyRoleChanged() const
{
    for (const AccessRole *role : m_roles) {
        if (role && role->roleChanged())
            return true;
    }
    return false;
}

void AccesscontrolView::save()
{
    if (!m_handler)
        return;
    const bool buttonHadFocus = m_saveButton->hasFocus();
    if (m_currentView == UsersView)
        saveUsers();
    else if (m_currentView == RolesView)
        saveRoles();
    else
        saveInformation();
    updateButtonStates();
    if (buttonHadFocus)
        giveFocusBack();
}

/// A button that is turned off hands the focus to whatever comes next. The work goes on in the table, or with
/// another try; the table stays where it was scrolled to.
void AccesscontrolView::giveFocusBack()
{
    if (m_saveButton->isEnabled()) {
        m_saveButton->setFocus();
        return;
    }
    CellTable *table = tableOf(m_currentView);
    const QPoint scrolled(table->horizontalScrollBar()->value(), table->verticalScrollBar()->value());
    table->setFocus();
    table->horizontalScrollBar()->setValue(scrolled.x());
    table->verticalScrollBar()->setValue(scrolled.y());
}

void AccesscontrolView::saveRoles()
{
    const QVector<AccessRole *> roles = m_roles;
    for (AccessRole *role : roles) {
        if (role && role->roleChanged() && !saveRights(role))
            showFailure(tr("Save failed"), tr("Could not save."));
    }
}

// What was not stored stays a change.
bool AccesscontrolView::saveRights(AccessRole *role)
{
    const int storedRights = role->role()->accessTypes();
    role->applyRights();
    if (storeRole(role->role()))
        return true;
    role->role()->setAccessTypes(storedRights);
    return false;
}

void AccesscontrolView::saveUsers()
{
    for (int row = 1; row < m_userRows; ++row) {
        if (isUserRowChanged(row) && !saveUserRoles(row))
            showFailure(tr("Save failed"), tr("Could not save."));
    }
}

// The store tells of a failure in the links of an operator that it has stored by nothing but the connection
// that is gone. A role that is not stored yet can't be linked to.
bool AccesscontrolView::saveUserRoles(int row)
{
    const OperatorModel op = m_users.at(row)->oper();
    const QList<uint> storedIds = op->operatorRoleIDList();
    QList<uint> roleIds;
    for (int column = 1; column < m_userChecks.at(row).size(); ++column) {
        const QAbstractButton *check = m_userChecks.at(row).at(column);
        const AccessRole *role = shownRole(column);
        if (check && role && check->isChecked() && role->role()->roleID() != 0)
            roleIds.append(role->role()->roleID());
    }
    op->setOperatorRoleIDList(roleIds);
    if (storeOperator(op) && m_handler->isConnected())
        return true;
    op->setOperatorRoleIDList(storedIds);
    return false;
}
