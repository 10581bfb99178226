#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

// Draws one SVG drawing as an image of a fixed size, at build time, so that the program needs no SVG support.
//
// usage: rasterize drawing.svg width height image
//
// The image is a PNG, whatever its name.

namespace {

bool rasterize(const QString &drawing, const QSize &size, const QString &name)
{
    QSvgRenderer renderer(drawing);
    if (!renderer.isValid() || size.isEmpty())
        return false;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    renderer.render(&painter, QRectF(QPointF(), QSizeF(size)));
    painter.end();
    return image.save(name, "PNG");
}

}  // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5) {
        QTextStream(stderr) << "usage: rasterize drawing.svg width height image\n";
        return 2;
    }
    const QSize size(arguments.at(2).toInt(), arguments.at(3).toInt());
    if (!rasterize(arguments.at(1), size, arguments.at(4))) {
        QTextStream(stderr) << "Can't draw " << arguments.at(1) << " as " << arguments.at(4) << '\n';
        return 1;
    }
    return 0;
}
