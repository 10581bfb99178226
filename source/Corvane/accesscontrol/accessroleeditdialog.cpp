#include "Corvane/accesscontrol/accessroleeditdialog.h"

#include "Corvane/accesscontrol/accessrole.h"
#include "Corvane/settings/formparts.h"
#include "ZephanShared/widgets/onelinevalidator.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kNameWidth = 200;

}  // namespace

AccessRoleEditDialog::AccessRoleEditDialog(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("role_editor"));
    setWindowTitle(tr("Role"));
    auto *layout = new QVBoxLayout(this);
    buildName(layout);
    buildButtons(layout);
}

void AccessRoleEditDialog::buildName(QVBoxLayout *layout)
{
    m_nameEdit = new QLineEdit(this);
    new OneLineValidator(m_nameEdit);
    m_nameEdit->setObjectName(QStringLiteral("role_name_edit"));
    m_nameEdit->setMinimumWidth(kNameWidth);
    m_nameEdit->setFixedHeight(FormParts::kFieldHeight);
    auto *label = new QLabel(this);
    label->setFixedHeight(FormParts::kLabelHeight);
    FormParts::setLabelText(label, m_nameEdit, tr("Name"));
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_nameEdit, 1);
    layout->addLayout(row);
}

void AccessRoleEditDialog::buildButtons(QVBoxLayout *layout)
{
    m_saveButton = makeButton("save_button", tr("Save"), SLOT(accept()));
    m_saveButton->setDefault(true);
    m_cancelButton = makeButton("cancel_button", tr("Cancel"), SLOT(reject()));
    m_deleteButton = makeButton("delete_button", tr("Delete role"), SLOT(accept()));
    m_deleteButton->setAutoDefault(false);
    m_deleteButton->hide();
    auto *row = new QHBoxLayout;
    row->addWidget(m_saveButton);
    row->addWidget(m_cancelButton);
    layout->addLayout(row);
    layout->addWidget(m_deleteButton);
}

QPushButton *AccessRoleEditDialog::makeButton(const char *name, const QString &text, const char *slot)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setFixedHeight(FormParts::kButtonHeight);
    connect(button, SIGNAL(clicked()), this, slot);
    return button;
}

// Save stays the default button while the one that deletes has the focus. Return presses that one all the
// same, unless the key is only still held down.
void AccessRoleEditDialog::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || !m_deleteButton->hasFocus())
        QDialog::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        m_deleteButton->click();
}

void AccessRoleEditDialog::setRole(const QSharedPointer<AccessRoleModelData> &role)
{
    takeRole(role);
}

void AccessRoleEditDialog::createRole()
{
    takeRole(QSharedPointer<AccessRoleModelData>::create(0u, QStringLiteral(""), 0));
}

void AccessRoleEditDialog::takeRole(const QSharedPointer<AccessRoleModelData> &role)
{
    if (m_role)
        m_nameEdit->disconnect(m_role.data());
    m_role = role;
    m_nameEdit->setText(m_role->roleName());
    connect(m_nameEdit, SIGNAL(textEdited(QString)), m_role.data(), SLOT(setRoleName(QString)));
}

void AccessRoleEditDialog::setDeleteButton(AccessRole *target, bool inUse)
{
    m_deleteButton->show();
    m_deleteButton->setEnabled(!inUse);
    if (inUse)
        m_deleteButton->setToolTip(tr("Role is in use. Deselect role from users to delete it"));
    else
        connect(m_deleteButton, SIGNAL(clicked()), target, SLOT(setDeleted()));
}

QSharedPointer<AccessRoleModelData> AccessRoleEditDialog::role() const
{
    return m_role;
}
