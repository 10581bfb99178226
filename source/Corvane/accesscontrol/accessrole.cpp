#include "Corvane/accesscontrol/accessrole.h"

#include "Corvane/accesscontrol/accessrights.h"
#include "Corvane/accesscontrol/accessroleeditdialog.h"

#include <QAbstractButton>

namespace {

bool includes(int mask, int rights)
{
    return (mask & rights) == rights;
}

}  // namespace

AccessRole::AccessRole(QSharedPointer<AccessRoleModelData> role, QWidget *parent)
    : ColumnButton(role->roleName(), parent)
    , m_role(std::move(role))
{}

QSharedPointer<AccessRoleModelData> AccessRole::newRole(QWidget *parent)
{
    AccessRoleEditDialog dialog(parent);
    dialog.createRole();
    return dialog.exec() == QDialog::Accepted ? dialog.role() : QSharedPointer<AccessRoleModelData>();
}

QSharedPointer<AccessRoleModelData> AccessRole::role() const
{
    return m_role;
}

void AccessRole::setRightButtons(const QMap<QAbstractButton *, int> &rightButtons)
{
    m_rightButtons = rightButtons;
}

QMap<QAbstractButton *, int> AccessRole::rightButtons() const
{
    return m_rightButtons;
}

bool AccessRole::roleChanged() const
{
    const int rights = m_role->accessTypes();
    for (auto entry = m_rightButtons.cbegin(); entry != m_rightButtons.cend(); ++entry) {
        if (includes(rights, entry.value()) != entry.key()->isChecked())
            return true;
    }
    return false;
}

void AccessRole::applyRights()
{
    if (m_rightButtons.isEmpty())
        return;
    int rights = 0;
    for (auto entry = m_rightButtons.cbegin(); entry != m_rightButtons.cend(); ++entry)
        rights |= entry.key()->isChecked() ? entry.value() : 0;
    m_role->setAccessTypes(rights);
}

void AccessRole::applyDependentRights(QAbstractButton *clicked)
{
    if (!m_rightButtons.contains(clicked))
        return;
    const bool checked = clicked->isChecked();
    const int followers = dependentRights(m_rightButtons.value(clicked), checked);
    for (auto entry = m_rightButtons.cbegin(); entry != m_rightButtons.cend(); ++entry) {
        if (includes(followers, entry.value()))
            entry.key()->setChecked(checked);
    }
}

int AccessRole::editRole(bool inUse)
{
    AccessRoleEditDialog dialog(window());
    dialog.setDeleteButton(this, inUse);
    dialog.setRole(m_role);
    return dialog.exec();
}
