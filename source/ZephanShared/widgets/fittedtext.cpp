#include "ZephanShared/widgets/fittedtext.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLabel>

namespace {

constexpr int kSmallestLetters = 9;  // pixels

}  // namespace

QFont fittedFont(QFont font, const QSize &room, int flags, const QString &text)
{
    const QRect area(QPoint(), room);
    const auto fits = [&] {
        return area.contains(QFontMetrics(font).boundingRect(area, flags, text));
    };
    for (int size = QFontInfo(font).pixelSize(); size > kSmallestLetters && !fits(); --size)
        font.setPixelSize(size - 1);
    return font;
}

void showFitted(QLabel &label, const QString &text)
{
    label.setFont(fittedFont(QApplication::font(&label), label.size(), Qt::TextWordWrap, text));
    label.setText(text);
}
