#include "Corvane/accesscontrol/accesscontrolview.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "ZephanShared/widgets/celltable.h"
#include "ZephanShared/widgets/columnbutton.h"
#include "ZephanShared/widgets/columnlineedit.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QMessageBox>
#include <QPushButton>

void AccesscontrolView::fillInformation()
{
    Organizations organizations;
    Departments departments;
    if (!m_handler->getOrganizationInfo(organizations, departments).isEmpty())
        return;
    m_infoTable->growTo(qMax(organizations.size(), departments.uniqueKeys().size()) + 1, InfoColumnCount);
    for (auto it = organizations.cbegin(); it != organizations.cend(); ++it) {
        const int row = ++m_organizationRows;
        putInfoEdit(new ColumnLineEdit(it.value(), it.key(), m_infoTable->viewport()), row,
                    OrganizationColumn)
            ->unsetUpdates();
        putDeleteButton(row);
    }
    for (const UuidString &id : departments.uniqueKeys()) {
        const QStringList values = departments.values(id);  // the address, then the name
        const int row = ++m_departmentRows;
        putInfoEdit(new ColumnLineEdit(values.last(), id, m_infoTable->viewport()), row, DepartmentColumn)
            ->unsetUpdates();
        putInfoEdit(
            new ColumnLineEdit(values.size() > 1 ? values.first() : QString(), id, m_infoTable->viewport()),
            row, AddressColumn)
            ->unsetUpdates();
        putDeleteButton(row);
    }
}

ColumnLineEdit *AccesscontrolView::infoEdit(int row, int column) const
{
    return qobject_cast<ColumnLineEdit *>(m_infoTable->cellWidget(row, column));
}

ColumnLineEdit *AccesscontrolView::putInfoEdit(ColumnLineEdit *edit, int row, int column)
{
    static const char *const names[] = {"organization_edit", "department_edit", "address_edit"};
    edit->setObjectName(QLatin1String(names[column]));
    edit->setRow(row);
    edit->setColumn(column);
    edit->setCursorPosition(0);
    nameInfoEdit(edit);
    connect(edit, SIGNAL(updated()), this, SLOT(updateButtonStates()));
    connect(edit, SIGNAL(textChanged(QString)), this, SLOT(updateButtonStates()));
    m_infoTable->setCell(row, column, edit);
    return edit;
}

/// The button of a row belongs to its organisation and to its department, whichever is shown.
void AccesscontrolView::putDeleteButton(int row)
{
    if (m_infoTable->cellWidget(row, DeleteColumn))
        return;
    auto *button = new ColumnButton(tr("Delete"), m_infoTable->viewport());
    button->setObjectName(QStringLiteral("delete_button"));
    button->setRow(row);
    button->setColumn(DeleteColumn);
    button->setEnabled(false);
    connect(button, SIGNAL(clicked()), this, SLOT(deleteInfo()));
    m_infoTable->setCell(row, DeleteColumn, button);
    if (button->sizeHint().width() > m_infoTable->columnWidth(DeleteColumn))
        m_infoTable->setColumnWidth(DeleteColumn, button->sizeHint().width());
}

int AccesscontrolView::nameColumn() const
{
    return m_currentView == OrganizationsView ? OrganizationColumn : DepartmentColumn;
}

int &AccesscontrolView::infoRows()
{
    return m_currentView == OrganizationsView ? m_organizationRows : m_departmentRows;
}

int AccesscontrolView::otherInfoRows() const
{
    return m_currentView == OrganizationsView ? m_departmentRows : m_organizationRows;
}

void AccesscontrolView::showInfoColumnsAndRows()
{
    if (m_currentView != OrganizationsView && m_currentView != DepartmentsView)
        return;
    const bool organizations = m_currentView == OrganizationsView;
    m_infoTable->setColumnHidden(OrganizationColumn, !organizations);
    m_infoTable->setColumnHidden(DepartmentColumn, organizations);
    m_infoTable->setColumnHidden(AddressColumn, organizations);
    for (int row = 1; row < m_infoTable->rowCount(); ++row) {
        const bool hidden = row > infoRows();
        if (m_infoTable->isRowHidden(row) != hidden)
            m_infoTable->setRowHidden(row, hidden);
    }
}

void AccesscontrolView::newOrganization()
{
    newInfoRow();
}

void AccesscontrolView::newDepartment()
{
    newInfoRow();
}

void AccesscontrolView::newInfoRow()
{
    const int column = nameColumn();
    auto *edit = new ColumnLineEdit(QString(), UuidString(), m_infoTable->viewport());
    for (int row = 1; row <= infoRows(); ++row) {
        const ColumnLineEdit *present = infoEdit(row, column);
        if (present && present->text() == edit->text()) {
            delete edit;
            m_infoTable->focusCell(row, column);
            return;
        }
    }
    const int row = ++infoRows();
    m_infoTable->growTo(row + 1, InfoColumnCount);
    putInfoEdit(edit, row, column);
    if (column == DepartmentColumn) {
        putInfoEdit(new ColumnLineEdit(QString(), UuidString(), m_infoTable->viewport()), row, AddressColumn);
    }
    putDeleteButton(row);
    m_infoTable->cellWidget(row, DeleteColumn)->setEnabled(false);  // the other list may have enabled it
    m_infoTable->setRowHidden(row, false);
    updateButtonStates();
    m_infoTable->focusCell(row, column);
}

// A row can be deleted unless its name is empty. The first row with a change makes the list one that can be
// saved; as nothing is deleted until then, the rows after it wait for the save.
void AccesscontrolView::updateInfoButtons()
{
    bool changed = false;
    for (int row = 1; row <= infoRows(); ++row) {
        const ColumnLineEdit *name = infoEdit(row, nameColumn());
        QWidget *button = m_infoTable->cellWidget(row, DeleteColumn);
        if (!name || !button)
            continue;
        button->setAccessibleDescription(name->text());
        if (changed)
            continue;
        button->setEnabled(!name->text().isEmpty());
        changed = isInfoRowChanged(row);
    }
    m_saveButton->setEnabled(changed);
}

/// Whether a row has an edit with a change that is not empty.
bool AccesscontrolView::isInfoRowChanged(int row) const
{
    const auto changed = [](const ColumnLineEdit *edit) {
        return edit && edit->isUpdated() && !edit->text().isEmpty();
    };
    return changed(infoEdit(row, nameColumn())) ||
           (m_currentView == DepartmentsView && changed(infoEdit(row, AddressColumn)));
}

void AccesscontrolView::saveInformation()
{
    m_saveButton->setEnabled(false);
    for (int row = 1; row <= infoRows(); ++row) {
        const ColumnLineEdit *name = infoEdit(row, nameColumn());
        if (name && !name->text().isEmpty() && !saveInfoRow(row))
            showFailure(tr("Save failed"), tr("Could not save ") + name->text());
    }
}

/// Stores a row with a name if it has a change. What was not stored stays a change.
bool AccesscontrolView::saveInfoRow(int row)
{
    ColumnLineEdit *name = infoEdit(row, nameColumn());
    ColumnLineEdit *address = m_currentView == DepartmentsView ? infoEdit(row, AddressColumn) : nullptr;
    if (!name->isUpdated() && !(address && address->isUpdated()))
        return true;
    bool saved = false;
    {
        const WaitCursor cursor;
        saved = m_currentView == OrganizationsView
                    ? m_handler->saveOrganization(name->id(), name->text())
                    : m_handler->saveDepartment(name->id(), name->text(),
                                                address ? address->text() : QStringLiteral(""));
    }
    if (!saved)
        return false;
    name->unsetUpdates();
    if (address)
        address->unsetUpdates();
    return true;
}

void AccesscontrolView::deleteInfo()
{
    if (m_saveButton->isEnabled()) {
        QMessageBox box(QMessageBox::Information, tr("Unsaved changes"), tr("Please save first"),
                        QMessageBox::Ok, window());
        box.button(QMessageBox::Ok)->setText(tr("Ok"));
        box.exec();
        return;
    }
    const auto *button = qobject_cast<ColumnButton *>(sender());
    if (!button || button->column() != DeleteColumn || button->row() <= 0)
        return;
    const int row = button->row();
    ColumnLineEdit *name = infoEdit(row, nameColumn());
    if (!name)
        return;
    name->setDeleted();
    if (!name->confirmed() || !m_handler)
        return;
    if (deleteInfoRow(name->id()))
        moveInfoRowsUp(row);
    else
        showFailure(tr("Delete failed"), tr("Could not delete."));
}

bool AccesscontrolView::deleteInfoRow(const UuidString &id)
{
    const WaitCursor cursor;
    return m_currentView == OrganizationsView ? m_handler->deleteOrganization(id)
                                              : m_handler->deleteDepartment(id);
}

/// Closes the gap of a deleted row. The other list's part of the rows stays where it is.
void AccesscontrolView::moveInfoRowsUp(int deletedRow)
{
    const int lastRow = infoRows()--;
    QVector<int> columns{nameColumn()};
    if (m_currentView == DepartmentsView)
        columns.append(AddressColumn);
    for (const int column : qAsConst(columns)) {
        for (int row = deletedRow; row < lastRow; ++row) {
            if (ColumnLineEdit *next = infoEdit(row + 1, column))
                putInfoEdit(new ColumnLineEdit(next), row, column);
        }
        m_infoTable->removeCellWidget(lastRow, column);
    }
    if (lastRow > otherInfoRows())
        m_infoTable->setRowCount(lastRow);
    else
        m_infoTable->setRowHidden(lastRow, true);
    updateButtonStates();
    if (infoRows() > 0)
        m_infoTable->focusCell(qMin(deletedRow, infoRows()), nameColumn());
    else
        m_addButton->setFocus();
}
