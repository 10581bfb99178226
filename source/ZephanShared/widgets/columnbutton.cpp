#include "ZephanShared/widgets/columnbutton.h"

#include <QHelpEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QToolTip>

namespace {

constexpr int kMostTextWidth = 300;     // pixels
constexpr int kMostTipLength = 1000;    // characters
constexpr int kMostLineLength = 10000;  // characters that are measured at all

}  // namespace

ColumnButton::ColumnButton(QString text, QWidget *parent)
    : QPushButton(parent)
{
    setText(text);
}

void ColumnButton::setText(const QString &text)
{
    // Screen readers are told the name with its "&".
    if (text.contains(QLatin1Char('&')) || accessibleName() == this->text())
        setAccessibleName(text);
    QPushButton::setText(text);
    setShortcut(QKeySequence());
}

/// The text without line breaks and other controls.
QString ColumnButton::line() const
{
    QString line = text().left(kMostLineLength);
    for (QChar &character : line) {
        if (!character.isPrint() && character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    }
    return line.replace(QChar::LineSeparator, QLatin1Char(' '))
        .replace(QChar::ParagraphSeparator, QLatin1Char(' '));
}

QString ColumnButton::shownLine() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const int room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
    return fontMetrics().elidedText(line(), Qt::ElideRight, room);
}

QSize ColumnButton::sizeHint() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const QFontMetrics metrics = fontMetrics();
    const QSize contents(qMin(metrics.size(Qt::TextSingleLine, line()).width(), kMostTextWidth),
                         metrics.height());
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, contents, this);
}

bool ColumnButton::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || shownLine() == line())
        return QPushButton::event(event);
    const QString name = text().left(kMostTipLength).toHtmlEscaped();
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), QStringLiteral("<p>%1</p>").arg(name),
                       this);
    return true;
}

void ColumnButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = shownLine().replace(QLatin1Char('&'), QLatin1String("&&"));
    painter.drawControl(QStyle::CE_PushButton, option);
}

void ColumnButton::setDeleted()
{
    confirmDeletion(window());
}
