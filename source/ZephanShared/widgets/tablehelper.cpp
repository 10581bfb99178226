#include "ZephanShared/widgets/tablehelper.h"

#include <QMessageBox>
#include <QPushButton>

int TableHelper::column() const
{
    return m_column;
}

void TableHelper::setColumn(int column)
{
    m_column = column;
}

int TableHelper::row() const
{
    return m_row;
}

void TableHelper::setRow(int row)
{
    m_row = row;
}

bool TableHelper::deleted() const
{
    return m_deleted;
}

bool TableHelper::confirmed() const
{
    return m_confirmed;
}

void TableHelper::confirmDeletion(QWidget *asking)
{
    QMessageBox box(QMessageBox::Question, tr("Delete"), tr("Are you sure?"),
                    QMessageBox::Ok | QMessageBox::No, asking);
    box.button(QMessageBox::Ok)->setText(tr("Ok"));
    box.button(QMessageBox::No)->setText(tr("No"));
    m_confirmed = box.exec() != QMessageBox::No;
    m_deleted = m_deleted || m_confirmed;
}
