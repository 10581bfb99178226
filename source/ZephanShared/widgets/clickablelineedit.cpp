#include "ZephanShared/widgets/clickablelineedit.h"

ClickableLineEdit::ClickableLineEdit(QWidget *parent)
    : QLineEdit(parent)
{}

void ClickableLineEdit::enable()
{
    setEnabled(true);
}

void ClickableLineEdit::mousePressEvent(QMouseEvent *event)
{
    emit clicked();
    QLineEdit::mousePressEvent(event);
}
