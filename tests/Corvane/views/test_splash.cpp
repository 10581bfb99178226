#include "Corvane/views/zephansplash.h"
#include "support/workstation.h"

#include <QElapsedTimer>
#include <QPainter>
#include <QTest>

namespace {

constexpr QSize kSize(600, 400);
constexpr int kBearing = 3;  // pixels that a glyph may stay behind its origin or go beyond it

QPixmap whitePixmap(qreal ratio = 1)
{
    QPixmap pixmap(kSize * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    return pixmap;
}

class Splash : public ZephanSplash
{
public:
    explicit Splash(const QPixmap &background = whitePixmap())
        : ZephanSplash(Qt::AlignBottom, Qt::black, background, Qt::WindowFlags(), nullptr)
    {}

    QImage image() const
    {
        return pixmap().toImage().convertToFormat(QImage::Format_ARGB32);
    }

    /// The smallest rectangle with all that was drawn on white, in pixels.
    QRect drawn() const
    {
        return bounds([](QColor color) { return color != Qt::white; });
    }

    /// The same for what was drawn in red.
    QRect drawnRed() const
    {
        return bounds([](QColor color) { return color.red() > 200 && color.green() < 120; });
    }

private:
    template<typename Wanted>
    QRect bounds(Wanted wanted) const
    {
        const QImage picture = image();
        QRect found;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (wanted(picture.pixelColor(x, y)))
                    found |= QRect(x, y, 1, 1);
            }
        }
        return found;
    }
};

int lineHeight(int pointSize, int weight = 50)
{
    return QFontMetrics(QFont(QStringLiteral("Arial"), pointSize, weight)).height();
}

}  // namespace

class TestSplash : public QObject
{
    Q_OBJECT

private slots:
    void aMissingBackgroundGivesATransparentSquare();
    void whatIsDrawnBecomesPartOfThePixmap();

    void titlesStandAtTheirBaselines_data();
    void titlesStandAtTheirBaselines();
    void theLogoStandsInTheTopRightCorner_data();
    void theLogoStandsInTheTopRightCorner();
    void aMissingLogoDrawsNothing();
    void noticeStandsAtTheBottom();
    void disclaimerStandsBetweenVersionAndNotice();
    void emptyTextsDrawNothing();
    void placesAreTheSameOnAPixmapOfTwiceTheDensity();

    void versionFile_data();
    void versionFile();
    void aMissingVersionFileDrawsNothing();
    void banner_data();
    void banner();
    void theBannerStandsBelowTheVersion();

    void staysUpAtLeastTheInterval();
    void finishDoesNotWaitForATimerThatIsOver();
    void finishDoesNotWaitWithoutAnInterval();
    void finishDoesNotWaitForASplashThatWasNeverShown();
    void eventsGoOnWhileTheFinishWaits();
    void messagesAreShownInTheGivenAlignmentAndColour();

private:
    QTemporaryDir m_folder;
};

void TestSplash::aMissingBackgroundGivesATransparentSquare()
{
    const Splash splash{QPixmap(QStringLiteral(":/no/such/background.png"))};
    QCOMPARE(splash.pixmap().size(), QSize(400, 400));
    QImage expected(400, 400, QImage::Format_ARGB32);
    expected.fill(Qt::transparent);
    QCOMPARE(splash.image(), expected);
}

void TestSplash::whatIsDrawnBecomesPartOfThePixmap()
{
    Splash splash;
    QVERIFY(splash.drawn().isEmpty());
    splash.drawTitles(QStringLiteral("Title"), QStringLiteral("Subtitle"), false);
    const QRect titles = splash.drawn();
    QVERIFY(!titles.isEmpty());
    splash.drawNotice(QStringLiteral("Notice"));
    QVERIFY(splash.drawn().contains(titles));
    QVERIFY(splash.drawn() != titles);
}

void TestSplash::titlesStandAtTheirBaselines_data()
{
    QTest::addColumn<bool>("leftAligned");

    QTest::newRow("right-aligned to the margin") << false;
    QTest::newRow("left-aligned by a part of the height") << true;
}

void TestSplash::titlesStandAtTheirBaselines()
{
    QFETCH(bool, leftAligned);
    const QString text = QStringLiteral("HHHH");  // no descenders, straight sides
    Splash main;
    main.drawTitles(text, QString(), leftAligned);
    Splash sub;
    sub.drawTitles(QString(), text, leftAligned);
    QCOMPARE(main.drawn().bottom() + 1, kSize.height() / 2 - lineHeight(16, 63));
    QCOMPARE(sub.drawn().bottom() + 1, kSize.height() / 2);
    for (const QRect &drawn : {main.drawn(), sub.drawn()}) {
        if (leftAligned)
            QVERIFY(qAbs(drawn.left() - qRound(0.05 * kSize.height())) <= kBearing);
        else
            QVERIFY(qAbs(drawn.right() - qRound(kSize.width() * (1 - 0.065))) <= kBearing);
    }
}

void TestSplash::theLogoStandsInTheTopRightCorner_data()
{
    QTest::addColumn<QSize>("logo");
    QTest::addColumn<QSize>("drawn");

    QTest::newRow("a wide logo is limited by the width") << QSize(840, 84) << QSize(210, 21);
    QTest::newRow("a high logo is limited by the height") << QSize(100, 200) << QSize(20, 40);
}

void TestSplash::theLogoStandsInTheTopRightCorner()
{
    QFETCH(QSize, logo);
    QFETCH(QSize, drawn);
    QImage image(logo, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const QString path = m_folder.filePath(QStringLiteral("logo.png"));
    QVERIFY(image.save(path));

    Splash splash;
    splash.drawLogo(path);
    QCOMPARE(splash.drawn().size(), drawn);
    QCOMPARE(splash.drawn().top(), 20);
    QCOMPARE(splash.drawn().right() + 1, 561);
}

void TestSplash::aMissingLogoDrawsNothing()
{
    Splash splash;
    splash.drawLogo(QStringLiteral(":/no/such/logo.png"));
    QVERIFY(splash.drawn().isEmpty());
}

void TestSplash::noticeStandsAtTheBottom()
{
    Splash splash;
    splash.drawNotice(QStringLiteral("© 2026 Maker. All rights reserved."));
    const int line = lineHeight(8);
    const QRect drawn = splash.drawn();
    QVERIFY(drawn.bottom() < kSize.height() - line);
    QVERIFY(drawn.top() >= kSize.height() - 2 * line);
    QVERIFY(qAbs(drawn.center().x() - kSize.width() / 2) <= kBearing);
}

void TestSplash::disclaimerStandsBetweenVersionAndNotice()
{
    Splash splash;
    splash.drawDisclaimer(
        QString(40, QLatin1Char('x')).replace(QLatin1String("xxxx"), QStringLiteral("note ")));
    const QRect drawn = splash.drawn();
    const int top = kSize.height() / 2 + lineHeight(12) + lineHeight(10) + lineHeight(8);
    const int bottom = kSize.height() - 3 * lineHeight(8);
    QVERIFY(drawn.top() >= top && drawn.bottom() < bottom);
    QVERIFY(qAbs(drawn.center().x() - kSize.width() / 2) <= kBearing);
    QVERIFY(qAbs(drawn.center().y() - (top + bottom) / 2) <= lineHeight(8) / 2);

    Splash wrapped;
    wrapped.drawDisclaimer(QStringLiteral("note ").repeated(60));
    QVERIFY(wrapped.drawn().height() > 2 * drawn.height());
    QVERIFY(wrapped.drawn().left() >= qRound(0.065 * kSize.width()) - kBearing);
    QVERIFY(wrapped.drawn().right() <= qRound((1 - 0.065) * kSize.width()) + kBearing);
}

void TestSplash::emptyTextsDrawNothing()
{
    Splash splash;
    splash.drawNotice(QString());
    splash.drawDisclaimer(QString());
    splash.drawVersion(QString(), false);
    splash.drawTitles(QString(), QString(), false);
    QVERIFY(splash.drawn().isEmpty());
}

void TestSplash::placesAreTheSameOnAPixmapOfTwiceTheDensity()
{
    const QString text = QStringLiteral("HHHH");
    Splash single;
    Splash twice{whitePixmap(2)};
    for (Splash *splash : {&single, &twice}) {
        splash->drawTitles(text, text, false);
        splash->drawNotice(text);
    }
    QCOMPARE(twice.pixmap().size(), kSize * 2);
    QCOMPARE(twice.size(), kSize);
    const QRect expected = single.drawn();
    const QRect drawn = twice.drawn();
    QVERIFY(qAbs(drawn.right() / 2 - expected.right()) <= kBearing);
    QVERIFY(qAbs(drawn.top() / 2 - expected.top()) <= kBearing);
    QVERIFY(qAbs(drawn.bottom() / 2 - expected.bottom()) <= kBearing);
}

void TestSplash::versionFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("version");

    QTest::newRow("a version file holding 6.0p3 without a line end shows 6.0p3")
        << QByteArray("6.0p3") << "6.0p3";
    QTest::newRow("a version file holding letters only gives the version 0") << QByteArray("letters") << "0";
    QTest::newRow("three parts and a line end show the third as 0") << QByteArray("5.1.2\n") << "5.1.0.9";
    QTest::newRow("only what readLine(10) delivers of a line counts")
        << QByteArray("11.22.3p44x") << "11.22.3p4";
    QTest::newRow("what stands on further lines has no effect") << QByteArray("5.1.2.3\n6.0p3") << "5.1.2";
}

void TestSplash::versionFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, version);
    const QString path = m_folder.filePath(QStringLiteral("version"));
    QVERIFY(writeFile(path, content));
    Splash fromFile;
    fromFile.drawVersionFile(path);
    Splash expected;
    expected.drawVersion(version, false);
    QVERIFY(!fromFile.drawn().isEmpty());
    QCOMPARE(fromFile.image(), expected.image());
}

void TestSplash::aMissingVersionFileDrawsNothing()
{
    Splash splash;
    splash.drawVersionFile(m_folder.filePath(QStringLiteral("missing")));
    QVERIFY(splash.drawn().isEmpty());
}

void TestSplash::banner_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<bool>("shown");

    QTest::newRow("a version with a patch shows the banner in red") << "6.0p3" << true;
    QTest::newRow("a version without a patch shows none") << "6.0.3" << false;
    QTest::newRow("a patch that is not shown brings no banner") << "6.0.3.1p1" << false;
    QTest::newRow("letters with a p bring no banner") << "prepared" << false;
}

void TestSplash::banner()
{
    QFETCH(QString, version);
    QFETCH(bool, shown);
    Splash splash;
    splash.drawVersion(version, false);
    QCOMPARE(!splash.drawnRed().isEmpty(), shown);
}

void TestSplash::theBannerStandsBelowTheVersion()
{
    Splash splash;
    splash.drawVersion(QStringLiteral("6.0p3"), false);
    const int top = kSize.height() / 2 + lineHeight(12) + lineHeight(10);
    const QRect red = splash.drawnRed();
    QVERIFY(red.top() >= top);
    QVERIFY(red.bottom() < top + 2 * lineHeight(8));
    QVERIFY(qAbs(red.center().x() - kSize.width() / 2) <= kBearing);
}

void TestSplash::staysUpAtLeastTheInterval()
{
    Splash splash;
    splash.setTimerInterval(300);
    QElapsedTimer elapsed;
    elapsed.start();
    QVERIFY(QMetaObject::invokeMethod(&splash, "show"));
    QVERIFY(splash.isVisible());
    QVERIFY(QMetaObject::invokeMethod(&splash, "close"));
    QVERIFY(elapsed.elapsed() >= 299);
    QVERIFY(!splash.isVisible());
}

void TestSplash::finishDoesNotWaitForATimerThatIsOver()
{
    Splash splash;
    splash.setTimerInterval(20);
    splash.show();
    QTest::qWait(100);
    splash.setTimerInterval(60000);
    splash.close();
    QVERIFY(!splash.isVisible());
}

void TestSplash::finishDoesNotWaitWithoutAnInterval()
{
    Splash splash;
    splash.show();
    QElapsedTimer elapsed;
    elapsed.start();
    splash.close();
    QVERIFY(elapsed.elapsed() < 5000);
    QVERIFY(!splash.isVisible());
}

void TestSplash::finishDoesNotWaitForASplashThatWasNeverShown()
{
    Splash splash;
    splash.setTimerInterval(60000);
    QElapsedTimer elapsed;
    elapsed.start();
    splash.close();
    QVERIFY(elapsed.elapsed() < 5000);
}

void TestSplash::eventsGoOnWhileTheFinishWaits()
{
    Splash splash;
    splash.setTimerInterval(200);
    splash.show();
    bool seen = false;
    bool visibleThen = false;
    QTimer::singleShot(20, &splash, [&] {
        seen = true;
        visibleThen = splash.isVisible();
    });
    splash.close();
    QVERIFY(seen);
    QVERIFY(visibleThen);
}

void TestSplash::messagesAreShownInTheGivenAlignmentAndColour()
{
    ZephanSplash splash(Qt::AlignBottom | Qt::AlignRight, Qt::blue, whitePixmap(), Qt::WindowFlags(),
                        nullptr);
    QVERIFY(
        QMetaObject::invokeMethod(&splash, "showMessage", Q_ARG(QString, QStringLiteral("Starting HHHH"))));
    QCOMPARE(splash.message(), QStringLiteral("Starting HHHH"));
    const QImage shown = splash.grab().toImage();
    QRect drawn;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            const QColor color = shown.pixelColor(x, y);
            if (color.blue() > 200 && color.red() < 120)
                drawn |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(drawn.left() > kSize.width() / 2);
    QVERIFY(drawn.top() > kSize.height() / 2);
}

QTEST_MAIN(TestSplash)
#include "test_splash.moc"
