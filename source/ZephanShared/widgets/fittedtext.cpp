#include "ZephanShared/widgets/fittedtext.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLabel>

namespace {

constexpr int kSmallestLetters = 9;  // pixels

}  // namespace

void showFitted(QLabel &label, const QString &text)
{
    QFont font = QApplication::font(&label);
    const QRect room(0, 0, label.width(), label.height());
    const auto fits = [&] {
        return room.contains(QFontMetrics(font).boundingRect(room, Qt::TextWordWrap, text));
    };
    for (int size = QFontInfo(font).pixelSize(); size > kSmallestLetters && !fits(); --size)
        font.setPixelSize(size - 1);
    label.setFont(font);
    label.setText(text);
}
