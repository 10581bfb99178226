#include "ZephanShared/widgets/styleprinter.h"

#include <QDirIterator>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QImageReader>
#include <QRegularExpression>
#include <QTest>
#include <QTimeEdit>

namespace {

QImage image(const QString &name)
{
    return QImage(name);
}

/// How many of an image's pixels are more blue than red.
int bluePixels(const QImage &picture)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            count += pixel.blue() - pixel.red() > 80;
        }
    }
    return count;
}

}  // namespace

class TestImages : public QObject
{
    Q_OBJECT

private slots:
    void everyImageIsThereInItsSize_data();
    void everyImageIsThereInItsSize();
    void everyNameInTheSourcesIsThere();
    void noDrawingIsCutAtTheEdge_data();
    void noDrawingIsCutAtTheEdge();
    void straightLinesStandOnWholePixels_data();
    void straightLinesStandOnWholePixels();
    void theLogoReachesFromEdgeToEdge();
    void theArrowsOfATimeFieldAreDrawn();
};

void TestImages::everyImageIsThereInItsSize_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");

    const QSize header(48, 48);
    const QSize home(144, 144);
    const QSize small(24, 24);
    const QSize arrow(15, 5);
    const QList<QPair<const char *, QSize>> images{
        {"icons/corvane/home_small.png", header},
        {"icons/corvane/manage_settings_small.png", header},
        {"icons/corvane/manage_access_control_small.png", header},
        {"icons/corvane/audit_trail_small.png", header},
        {"icons/menu.png", header},
        {"icons/corvane/manage_settings.png", home},
        {"icons/corvane/manage_database.png", home},
        {"icons/corvane/manage_access_control.png", home},
        {"icons/corvane/audit_trail.png", home},
        {"icons/calendar.png", small},
        {"icons/delete.png", small},
        {"icons/up_arrow.gif", arrow},
        {"icons/down_arrow.gif", arrow},
        {"icons/toolbar/add.png", small},
        {"icons/toolbar/refresh.png", small},
        {"icons/toolbar/save.png", small},
        {"icons/toolbar/search.png", small},
        {"icons/navigation/back.png", small},
        {"icons/navigation/forward.png", small},
        {"icons/corvane/corvane_16.png", QSize(16, 16)},
        {"icons/corvane/corvane_32.png", QSize(32, 32)},
        {"icons/corvane/corvane_48.png", QSize(48, 48)},
        {"icons/corvane/corvane_128.png", QSize(128, 128)},
        {"icons/corvane/corvane.png", QSize(256, 256)},
        {"resources/splash_background.png", QSize(640, 400)},
        {"resources/halvorn_logo.png", QSize(858, 198)},
    };
    for (const auto &entry : images)
        QTest::newRow(entry.first) << QStringLiteral(":/") + QLatin1String(entry.first) << entry.second;
}

void TestImages::everyImageIsThereInItsSize()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QCOMPARE(image(name).size(), size);

    const int ending = name.lastIndexOf(QLatin1Char('.'));
    const QImage fine = image(QString(name).insert(ending, QStringLiteral("@2x")));
    QCOMPARE(fine.size(), size * 2);
    QCOMPARE(fine.devicePixelRatio(), 2.0);
}

void TestImages::everyNameInTheSourcesIsThere()
{
    const QRegularExpression pattern(QStringLiteral("\"(:/(icons|resources)/[\\w/.@]+)\""));
    int names = 0;
    QDirIterator files(QStringLiteral(CORVANE_SOURCES), {QStringLiteral("*.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        auto matches = pattern.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext()) {
            const QString name = matches.next().captured(1);
            QVERIFY2(QFile::exists(name), qPrintable(name + QStringLiteral(" of ") + file.fileName()));
            ++names;
        }
    }
    QVERIFY(names >= 10);
}

void TestImages::noDrawingIsCutAtTheEdge_data()
{
    QTest::addColumn<QString>("name");

    QDirIterator icons(QStringLiteral(":/icons"), {QStringLiteral("*.png")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (icons.hasNext()) {
        const QString name = icons.next();
        if (!name.contains(QLatin1String("/corvane_")) && !name.contains(QLatin1String("/corvane.")) &&
            !name.contains(QLatin1String("/corvane@")))
            QTest::newRow(qPrintable(name)) << name;
    }
}

void TestImages::noDrawingIsCutAtTheEdge()
{
    QFETCH(QString, name);
    const QImage picture = image(name);
    for (int i = 0; i < picture.width(); ++i) {
        QCOMPARE(picture.pixelColor(i, 0).alpha(), 0);
        QCOMPARE(picture.pixelColor(i, picture.height() - 1).alpha(), 0);
        QCOMPARE(picture.pixelColor(0, i).alpha(), 0);
        QCOMPARE(picture.pixelColor(picture.width() - 1, i).alpha(), 0);
    }
}

void TestImages::straightLinesStandOnWholePixels_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QPoint>("outside");
    QTest::addColumn<QPoint>("inside");

    const QString header = QStringLiteral(":/icons/corvane/%1_small.png");
    QTest::newRow("wall of the house") << header.arg("home") << QPoint(8, 32) << QPoint(9, 32);
    QTest::newRow("ground of the house") << header.arg("home") << QPoint(24, 43) << QPoint(24, 42);
    QTest::newRow("tooth of the wheel") << header.arg("manage_settings") << QPoint(24, 2) << QPoint(24, 3);
    QTest::newRow("side of the padlock")
        << header.arg("manage_access_control") << QPoint(44, 36) << QPoint(43, 36);
    QTest::newRow("side of the page") << header.arg("audit_trail") << QPoint(7, 24) << QPoint(8, 24);
    QTest::newRow("top of the page") << header.arg("audit_trail") << QPoint(18, 4) << QPoint(18, 5);
    QTest::newRow("menu") << QStringLiteral(":/icons/menu.png") << QPoint(24, 10) << QPoint(24, 11);
    QTest::newRow("calendar") << QStringLiteral(":/icons/calendar.png") << QPoint(1, 14) << QPoint(2, 14);
    QTest::newRow("lid of the bin") << QStringLiteral(":/icons/delete.png") << QPoint(6, 4) << QPoint(6, 5);
    QTest::newRow("head of the refreshing arrow")
        << QStringLiteral(":/icons/toolbar/refresh.png") << QPoint(21, 7) << QPoint(20, 7);
}

void TestImages::straightLinesStandOnWholePixels()
{
    QFETCH(QString, name);
    QFETCH(QPoint, outside);
    QFETCH(QPoint, inside);
    constexpr int kHardlySeen = 8;  // of 255
    const QImage picture = image(name);
    QVERIFY(picture.pixelColor(outside).alpha() <= kHardlySeen);
    QVERIFY(picture.pixelColor(inside).alpha() >= 255 - kHardlySeen);
}

/// So that it ends where the texts below it end.
void TestImages::theLogoReachesFromEdgeToEdge()
{
    constexpr int kEdge = 4;  // pixels of 858
    const QImage logo = image(QStringLiteral(":/resources/halvorn_logo.png"));
    const auto drawn = [&logo](int x) {
        for (int y = 0; y < logo.height(); ++y) {
            if (logo.pixelColor(x, y).alpha() > 0)
                return true;
        }
        return false;
    };
    QVERIFY(drawn(kEdge));
    QVERIFY(drawn(logo.width() - 1 - kEdge));
}

void TestImages::theArrowsOfATimeFieldAreDrawn()
{
    QTimeEdit field;
    field.setStyleSheet(StylePrinter::timeEditStyle());
    field.setFixedSize(100, 30);
    const QImage picture = field.grab().toImage();
    const QRect arrows(82, 2, 16, picture.height() / 2 - 2);
    QVERIFY(bluePixels(picture.copy(arrows)) > 10);
    QVERIFY(bluePixels(picture.copy(arrows.translated(0, picture.height() / 2))) > 10);
}

QTEST_MAIN(TestImages)
#include "test_images.moc"
