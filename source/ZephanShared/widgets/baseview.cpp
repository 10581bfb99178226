#include "ZephanShared/widgets/baseview.h"

#include <QEvent>

BaseView::BaseView(QWidget *parent)
    : QWidget(parent)
{}

void BaseView::updateTexts() {}

void BaseView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    QWidget::changeEvent(event);
}
