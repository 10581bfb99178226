#include "ZephanShared/widgets/returnkey.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace {

bool isReturn(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// Sees the keys of a button before it does.
class ReturnKey : public QObject
{
public:
    explicit ReturnKey(QAbstractButton *button)
        : QObject(button)
        , m_button(button)
    {
        m_button->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress || !isReturn(*static_cast<QKeyEvent *>(event)))
            return QObject::eventFilter(watched, event);
        // The view may have come up by this very key, which is still down.
        if (!static_cast<QKeyEvent *>(event)->isAutoRepeat())
            m_button->click();
        return true;
    }

private:
    QAbstractButton *m_button;
};

}  // namespace

void clickByReturn(QAbstractButton *button)
{
    new ReturnKey(button);
}
