#include "ZephanShared/widgets/checkbutton.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr qreal kTickSize = 12;
constexpr qreal kTickWidth = 2;
constexpr int kLongestTip = 1000;  // characters

/// What assistive technology is told of a check button. Its own way to toggle a button would change the tick
/// without a click, and so without anybody hearing of it.
class AccessibleCheckButton : public QAccessibleWidget
{
public:
    explicit AccessibleCheckButton(CheckButton *button)
        : QAccessibleWidget(button, QAccessible::CheckBox)
        , m_button(button)
    {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = m_button->isChecked();
        state.pressed = m_button->isDown();
        return state;
    }

    QStringList actionNames() const override
    {
        const QStringList names = QAccessibleWidget::actionNames();
        return m_button->isEnabled() ? QStringList{toggleAction()} + names : names;
    }

    void doAction(const QString &name) override
    {
        if (name == toggleAction())
            m_button->click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    CheckButton *m_button;
};

QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *button = qobject_cast<CheckButton *>(object);
    return button ? new AccessibleCheckButton(button) : nullptr;
}

void makeCheckButtonsAccessible()
{
    static const bool once = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
    Q_UNUSED(once)
}

}  // namespace

CheckButton::CheckButton(QWidget *parent)
    : QPushButton(parent)
{
    makeCheckButtonsAccessible();
    setCheckable(true);
}

bool CheckButton::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || accessibleName().isEmpty())
        return QPushButton::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                       QStringLiteral("<p>%1</p>").arg(accessibleName().left(kLongestTip).toHtmlEscaped()),
                       this);
    return true;
}

void CheckButton::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);
    if (!isChecked())
        return;
    const QPointF tick[] = {{-0.5, 0.0}, {-0.15, 0.35}, {0.5, -0.4}};
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    painter.scale(kTickSize, kTickSize);
    painter.setPen(QPen(palette().color(QPalette::ButtonText), kTickWidth / kTickSize, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(tick, 3);
}
