#include "Corvane/views/productlabel.h"
#include "Corvane/views/zephansplash.h"

#include <QApplication>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr qreal kScale = 1.5;
constexpr QSize kSize(600, 400);
constexpr int kBearing = 4;  // pixels that a glyph may stay behind its origin or go beyond it

/// The smallest rectangle with all that is not white, in pixels.
QRect drawnOn(const QPixmap &pixmap)
{
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != Qt::white)
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

QPixmap whitePixmap(qreal ratio)
{
    QPixmap pixmap(kSize * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    return pixmap;
}

}  // namespace

/// What is drawn on a screen whose pixels are finer than the units that widgets are measured in.
class TestHighResolution : public QObject
{
    Q_OBJECT

private slots:
    void theSplashHasThePixelsOfTheScreen_data();
    void theSplashHasThePixelsOfTheScreen();
    void aMissingBackgroundKeepsItsSize();
    void textsOfTheSplashAreDrawnInThePixelsOfTheScreen();
    void theProductsImageHasThePixelsOfTheScreen();
};

void TestHighResolution::theSplashHasThePixelsOfTheScreen_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<qreal>("expected");

    QTest::newRow("a coarse background is refined") << 1.0 << kScale;
    QTest::newRow("a finer background stays") << 2.0 << 2.0;
}

void TestHighResolution::theSplashHasThePixelsOfTheScreen()
{
    QFETCH(qreal, ratio);
    QFETCH(qreal, expected);
    const ZephanSplash splash(0, Qt::black, whitePixmap(ratio), Qt::WindowFlags(), nullptr);
    QCOMPARE(splash.pixmap().devicePixelRatio(), expected);
    QCOMPARE(splash.pixmap().size(), (QSizeF(kSize) * expected).toSize());
    QCOMPARE(splash.size(), kSize);
}

void TestHighResolution::aMissingBackgroundKeepsItsSize()
{
    const ZephanSplash splash(0, Qt::black, QPixmap(), Qt::WindowFlags(), nullptr);
    QCOMPARE(splash.size(), QSize(400, 400));
    QVERIFY(splash.pixmap().hasAlphaChannel());
}

void TestHighResolution::textsOfTheSplashAreDrawnInThePixelsOfTheScreen()
{
    ZephanSplash splash(0, Qt::black, whitePixmap(1), Qt::WindowFlags(), nullptr);
    splash.drawTitles(QString(), QStringLiteral("HHHH"), false);
    const QRect drawn = drawnOn(splash.pixmap());
    QVERIFY(qAbs(drawn.bottom() - kSize.height() / 2 * kScale) <= kBearing);
    QVERIFY(qAbs(drawn.right() - kSize.width() * (1 - 0.065) * kScale) <= kBearing);
    const QFontMetricsF metrics(QFont(QStringLiteral("Arial"), 12, QFont::Normal));
    QVERIFY(qAbs(drawn.height() - metrics.capHeight() * kScale) <= kBearing);
}

void TestHighResolution::theProductsImageHasThePixelsOfTheScreen()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("logo.png"));
    QImage file(900, 300, QImage::Format_RGB32);
    file.fill(Qt::blue);
    QVERIFY(file.save(path));

    const ProductLabel label(path, QStringLiteral("Name"), 300, nullptr);
    const QPixmap shown =
        label.findChild<QLabel *>(QStringLiteral("product_image"))->pixmap(Qt::ReturnByValue);
    QCOMPARE(shown.devicePixelRatio(), kScale);
    QCOMPARE(shown.size(), QSize(450, 150));
}

int main(int argc, char *argv[])
{
    qputenv("QT_SCALE_FACTOR", "1.5");
    const QApplication app(argc, argv);
    TestHighResolution test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_highresolution.moc"
