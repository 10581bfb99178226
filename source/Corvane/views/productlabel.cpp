#include "Corvane/views/productlabel.h"

#include "ZephanShared/widgets/styleprinter.h"

#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

namespace {

constexpr int kEqualStretch = 5;

/// The image in this width, with as many pixels as the screen has.
QPixmap scaledImage(const QString &path, int width, qreal ratio)
{
    QPixmap image(path);
    if (image.isNull())
        return image;
    image = image.scaledToWidth(qRound(width * ratio), Qt::SmoothTransformation);
    image.setDevicePixelRatio(ratio);
    return image;
}

}  // namespace

ProductLabel::ProductLabel(const QString &imagePath, const QString &text, int width, QWidget *parent)
    : QWidget(parent)
{
    auto *image = new QLabel;
    image->setObjectName(QStringLiteral("product_image"));
    image->setAlignment(Qt::AlignCenter);
    image->setFixedWidth(width);
    image->setPixmap(scaledImage(imagePath, width, devicePixelRatioF()));

    auto *name = new QLabel(text);
    name->setObjectName(QStringLiteral("product_name"));
    name->setAlignment(Qt::AlignCenter);
    name->setStyleSheet(StylePrinter::titleLabelStyle());
    name->setFixedWidth(image->width());

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(image, kEqualStretch, Qt::AlignHCenter | Qt::AlignBottom);
    layout->addWidget(name, kEqualStretch, Qt::AlignHCenter | Qt::AlignTop);
}
