#include "ZephanShared/widgets/returnkey.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

/// \return  the press of Return or Enter; null for every other event
const QKeyEvent *pressOfReturn(const QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return nullptr;
    const auto *press = static_cast<const QKeyEvent *>(event);
    return press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter ? press : nullptr;
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
        const QKeyEvent *press = pressOfReturn(event);
        if (!press)
            return QObject::eventFilter(watched, event);
        // The view may have come up by this very key, which is still down.
        if (!press->isAutoRepeat())
            m_button->click();
        return true;
    }

private:
    QAbstractButton *m_button;
};

/// Keeps the repeats of a key that is held down from a field.
class HeldReturn : public QObject
{
public:
    explicit HeldReturn(QLineEdit *field)
        : QObject(field)
    {
        field->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const QKeyEvent *press = pressOfReturn(event);
        return (press && press->isAutoRepeat()) || QObject::eventFilter(watched, event);
    }
};

}  // namespace

void clickByReturn(QAbstractButton *button)
{
    new ReturnKey(button);
}

void takeReturnOnce(QLineEdit *field)
{
    new HeldReturn(field);
}
