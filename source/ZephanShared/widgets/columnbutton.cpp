#include "ZephanShared/widgets/columnbutton.h"

ColumnButton::ColumnButton(QString text, QWidget *parent)
    : QPushButton(text, parent)
{}

void ColumnButton::setDeleted()
{
    confirmDeletion(window());
}
