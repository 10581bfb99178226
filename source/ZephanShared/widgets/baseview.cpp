#include "ZephanShared/widgets/baseview.h"

#include <QEvent>

BaseView::BaseView(QWidget *parent)
    : QWidget(parent)
{
    // So that the signals can be queued.
    qRegisterMetaType<Actions::Action>("Actions::Action");
    qRegisterMetaType<Actions::ActionType>("Actions::ActionType");
    qRegisterMetaType<UuidString>("UuidString");
    qRegisterMetaType<ZephanError>("ZephanError");
}

void BaseView::updateTexts() {}

void BaseView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    QWidget::changeEvent(event);
}
