#include "Corvane/accesscontrol/accesscontrolview.h"
#include "Corvane/accesscontrol/accessrights.h"
#include "Corvane/accesscontrol/accessrole.h"
#include "Corvane/accesscontrol/accessuser.h"
#include "ZephanShared/widgets/celltable.h"
#include "ZephanShared/widgets/columnbutton.h"
#include "ZephanShared/widgets/columnlineedit.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QPushButton>

namespace {

constexpr int kDeleteColumn = 80;  // pixels, or as wide as the text
constexpr int kLongestTip = 1000;  // characters

/// What a screen reader calls a check button: what stands at the head of its column and its row.
QString checkName(const QString &head, const QString &what)
{
    return QStringLiteral("%1: %2").arg(head, what);
}

void setLine(QTableWidgetItem *item, const QString &text)
{
    item->setText(text);
    item->setToolTip(QStringLiteral("<p>%1</p>").arg(text.left(kLongestTip).toHtmlEscaped()));
}

}  // namespace

void AccesscontrolView::updateTexts()
{
    m_saveButton->setText(tr("Save"));
    const QStringList views{tr("Users"), tr("Roles"), tr("Organisations"), tr("Departments")};
    for (int i = 0; i < views.size(); ++i)
        m_viewCombo->setItemText(i, views.at(i));
    const QStringList methods{tr("Internal users"), tr("Windows group based"), tr("Windows user based")};
    for (int i = 0; i < methods.size(); ++i)
        m_methodCombo->setItemText(i, methods.at(i));
    m_viewCombo->setAccessibleName(tr("View"));
    m_methodCombo->setAccessibleName(tr("Type of users"));
    m_userTable->setAccessibleName(views.at(UsersView));
    m_roleTable->setAccessibleName(views.at(RolesView));
    m_infoTable->setAccessibleName(views.at(qMax<int>(OrganizationsView, m_currentView)));
    m_addButton->setText(addButtonText());
    if (m_currentView == RolesView)
        updateRightLabels();
    updateInfoTexts();
}

QString AccesscontrolView::addButtonText() const
{
    switch (m_currentView) {
    case RolesView:
        return tr("Add new role");
    case OrganizationsView:
        return tr("Add new organisation");
    case DepartmentsView:
        return tr("Add new department");
    default:
        break;
    }
    if (operatorType() == OperatorModelData::WindowsUser)
        return tr("Add new Windows user");
    return operatorType() == OperatorModelData::WindowsGroup ? tr("Add new Windows group")
                                                             : tr("Add new internal user");
}

void AccesscontrolView::updateRightLabels()
{
    const QList<QPair<int, QString>> rights = accessRightRows();
    m_roleTable->growTo(rights.size() + 1, 1);
    int row = 0;
    for (const QPair<int, QString> &right : rights) {
        auto *label = new QTableWidgetItem(right.second);
        label->setFlags(Qt::ItemIsEnabled);
        if (!right.first) {
            QFont font = label->font();
            font.setWeight(QFont::Bold);
            label->setFont(font);
        }
        m_roleTable->setItem(++row, 0, label);
    }
    m_roleTable->resizeColumnToContents(0);
    for (int column = 1; column < m_roleColumns; ++column)
        nameRightChecks(column);
}

void AccesscontrolView::updateInfoTexts()
{
    if (m_infoTable->rowCount() == 0)
        return;
    if (m_currentView == OrganizationsView) {
        m_infoTable->item(0, OrganizationColumn)->setText(tr("Organisation"));
    } else if (m_currentView == DepartmentsView) {
        m_infoTable->item(0, DepartmentColumn)->setText(tr("Department"));
        m_infoTable->item(0, AddressColumn)->setText(tr("Address"));
    }
    int deleteWidth = kDeleteColumn;
    for (int row = 1; row < m_infoTable->rowCount(); ++row) {
        for (const int column : {OrganizationColumn, DepartmentColumn, AddressColumn}) {
            if (ColumnLineEdit *edit = infoEdit(row, column))
                nameInfoEdit(edit);
        }
        if (auto *button = qobject_cast<ColumnButton *>(m_infoTable->cellWidget(row, DeleteColumn))) {
            button->setText(tr("Delete"));
            deleteWidth = qMax(deleteWidth, button->sizeHint().width());
        }
    }
    m_infoTable->setColumnWidth(DeleteColumn, deleteWidth);
}

void AccesscontrolView::nameInfoEdit(ColumnLineEdit *edit) const
{
    const bool address = edit->column() == AddressColumn;
    edit->setPlaceholderText(address ? tr("Enter address") : tr("Enter name"));
    if (address)
        edit->setAccessibleName(tr("Address"));
    else
        edit->setAccessibleName(edit->column() == DepartmentColumn ? tr("Department") : tr("Organisation"));
}

void AccesscontrolView::nameRightChecks(int column)
{
    const AccessRole *role = m_roles.at(column);
    if (!role)
        return;
    int row = 0;
    for (const QPair<int, QString> &right : accessRightRows()) {
        if (QWidget *check = m_roleTable->cellWidget(++row, column))
            check->setAccessibleName(checkName(role->text(), right.second));
    }
}

void AccesscontrolView::nameUserChecks(int row, int column)
{
    if (QAbstractButton *check = m_userChecks.at(row).at(column))
        check->setAccessibleName(checkName(m_users.at(row)->text(), m_roles.at(column)->text()));
}

QTableWidgetItem *AccesscontrolView::makeCorner(const QString &text) const
{
    auto *item = new QTableWidgetItem(text);
    item->setFlags(Qt::NoItemFlags);
    item->setTextAlignment(Qt::AlignCenter);
    item->setForeground(palette().color(QPalette::Active, QPalette::Text));
    return item;
}

/// The name of a role at the head of its column.
QTableWidgetItem *AccesscontrolView::makeHeading(const QString &text) const
{
    auto *item = new QTableWidgetItem;
    item->setFlags(Qt::ItemIsEnabled);
    item->setTextAlignment(Qt::AlignCenter);
    setLine(item, text);
    return item;
}
