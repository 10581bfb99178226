#include "ZephanShared/widgets/wrappingcheckbox.h"

#include <QEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace {

constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;
constexpr int kNarrowText = 160;  // pixels; a text that is shorter is never wrapped
constexpr int kAnyHeight = 10000;

}  // namespace

WrappingCheckBox::WrappingCheckBox(QWidget *parent)
    : QCheckBox(parent)
{
    QSizePolicy policy = sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Preferred);
    policy.setVerticalPolicy(QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int WrappingCheckBox::widthBesideText() const
{
    return sizeHint().width() - textSize(kAnyHeight).width();
}

QSize WrappingCheckBox::textSize(int textWidth) const
{
    return fontMetrics().boundingRect(QRect(0, 0, textWidth, kAnyHeight), kTextFlags, text()).size();
}

QSize WrappingCheckBox::minimumSizeHint() const
{
    const QSize oneLine = sizeHint();
    const int narrow = widthBesideText() + textSize(kNarrowText).width();
    return QSize(std::min(oneLine.width(), narrow), oneLine.height());
}

bool WrappingCheckBox::hasHeightForWidth() const
{
    return true;
}

int WrappingCheckBox::heightForWidth(int width) const
{
    const QSize oneLine = sizeHint();
    if (width >= oneLine.width())
        return oneLine.height();
    const int lineHeight = textSize(kAnyHeight).height();
    return oneLine.height() - lineHeight + textSize(width - widthBesideText()).height();
}

void WrappingCheckBox::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect textRect = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
    option.text.clear();
    painter.drawControl(QStyle::CE_CheckBox, option);
    painter.drawItemText(textRect, kTextFlags, palette(), isEnabled(), text(), QPalette::WindowText);
}

void WrappingCheckBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
    QCheckBox::changeEvent(event);
}
