#include "ZephanShared/widgets/checkbutton.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr qreal kTickSize = 12;
constexpr qreal kTickWidth = 2;
constexpr int kLongestTip = 1000;  // characters

}  // namespace

CheckButton::CheckButton(QWidget *parent)
    : QPushButton(parent)
{
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
