#include "Corvane/views/zephansplash.h"

#include "Corvane/views/versiontext.h"
#include "ZephanShared/widgets/styleprinter.h"

#include <QEventLoop>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>

namespace {

constexpr int kMissingPixmapSize = 400;

// Fractions of the pixmap's width or height.
constexpr qreal kMargin = 0.065;
constexpr qreal kLogoWidth = 0.35;
constexpr qreal kLogoHeight = 0.1;
constexpr qreal kLogoTop = 0.05;
constexpr qreal kLeftOfHeight = 0.05;

// The notice takes two lines and keeps one free below it.
constexpr int kNoticeTopLines = 3;
constexpr int kNoticeBottomLines = 1;
constexpr int kBannerLines = 2;

const auto kFamily = QLatin1String("Arial");

QPixmap transparentPixmap()
{
    QPixmap pixmap(kMissingPixmapSize, kMissingPixmapSize);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

/// The same picture with as many pixels as the screen has, so that what is drawn on it comes out sharp.
QPixmap forScreen(const QPixmap &pixmap)
{
    const qreal ratio = qApp->devicePixelRatio();
    if (pixmap.devicePixelRatio() >= ratio)
        return pixmap;
    const QSizeF size = QSizeF(pixmap.size()) / pixmap.devicePixelRatio();
    QPixmap scaled = pixmap.scaled((size * ratio).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    return scaled;
}

}  // namespace

ZephanSplash::ZephanSplash(int alignment, const QColor &color, const QPixmap &pixmap, Qt::WindowFlags flags,
                           QWidget *parent)
    : QSplashScreen(forScreen(pixmap.isNull() ? transparentPixmap() : pixmap), flags)
    , m_alignment(alignment)
    , m_color(color)
    , m_titleFont(kFamily, 16, QFont::DemiBold)
    , m_subtitleFont(kFamily, 12, QFont::Normal)
    , m_versionFont(kFamily, 10, QFont::Normal)
    , m_smallFont(kFamily, 8, QFont::Normal)
{
    setObjectName(QStringLiteral("splash"));
    if (parent)
        setParent(parent, windowFlags());
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);  // others may be early, and the interval is the least time
}

void ZephanSplash::drawLogo(const QString &path)
{
    const QPixmap logo(path);
    if (logo.isNull())
        return;
    const QSizeF size = canvas();
    const qreal ratio = pixmap().devicePixelRatio();
    const QSizeF room(kLogoWidth * size.width(), kLogoHeight * size.height());
    QPixmap scaled = logo.scaled((room * ratio).toSize(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    const QPointF topLeft(size.width() - margin() - scaled.width() / ratio, kLogoTop * size.height());
    paint([&](QPainter &painter) { painter.drawPixmap(topLeft, scaled); });
}

void ZephanSplash::setTimerInterval(int ms)
{
    m_timer.setInterval(ms);
}

void ZephanSplash::drawTitles(const QString &mainTitle, const QString &subtitle, bool leftAligned)
{
    const qreal middle = canvas().height() / 2;
    drawLine(mainTitle, m_titleFont, QColor(Palette::roleDisabledText), middle - lineHeight(m_titleFont),
             leftAligned);
    drawLine(subtitle, m_subtitleFont, Qt::black, middle, leftAligned);
}

void ZephanSplash::drawVersionFile(const QString &path)
{
    drawVersion(readVersionLine(path), false);
}

void ZephanSplash::drawVersion(const QString &version, bool leftAligned)
{
    if (version.isEmpty())
        return;
    const QString formatted = formatVersion(version);
    if (isPreRelease(formatted)) {
        drawBox(tr("THIS IS PRE-RELEASE VERSION OF THE SOFTWARE. NOT TO BE USED IN ANY CLINICAL WORK!"),
                Qt::red, belowVersion(), belowVersion() + kBannerLines * lineHeight(m_smallFont),
                Qt::AlignCenter);
    }
    drawLine(tr("Version %1").arg(formatted), m_versionFont, Qt::black,
             canvas().height() / 2 + lineHeight(m_subtitleFont), leftAligned);
}

void ZephanSplash::drawNotice(const QString &text)
{
    const int line = lineHeight(m_smallFont);
    const qreal height = canvas().height();
    drawBox(text, Qt::black, height - kNoticeTopLines * line, height - kNoticeBottomLines * line,
            Qt::AlignHCenter | Qt::AlignBottom);
}

void ZephanSplash::drawDisclaimer(const QString &text)
{
    const int line = lineHeight(m_smallFont);
    drawBox(text, Qt::black, belowVersion() + line, canvas().height() - kNoticeTopLines * line,
            Qt::AlignCenter);
}

void ZephanSplash::showMessage(QString message)
{
    QSplashScreen::showMessage(message, m_alignment, m_color);
}

void ZephanSplash::show()
{
    m_timer.start();
    QSplashScreen::show();
}

void ZephanSplash::close()
{
    if (m_timer.interval() > 0 && m_timer.isActive()) {
        QEventLoop loop;
        connect(&m_timer, SIGNAL(timeout()), &loop, SLOT(quit()));
        loop.exec();
    }
    QSplashScreen::close();
}

QSizeF ZephanSplash::canvas() const
{
    return QSizeF(pixmap().size()) / pixmap().devicePixelRatio();
}

qreal ZephanSplash::margin() const
{
    return kMargin * canvas().width();
}

int ZephanSplash::lineHeight(const QFont &font) const
{
    return QFontMetrics(font).height();
}

qreal ZephanSplash::belowVersion() const
{
    return canvas().height() / 2 + lineHeight(m_subtitleFont) + lineHeight(m_versionFont);
}

void ZephanSplash::paint(const std::function<void(QPainter &)> &draw)
{
    QPixmap drawn = pixmap();
    QPainter painter(&drawn);
    painter.setRenderHint(QPainter::TextAntialiasing);
    draw(painter);
    painter.end();
    setPixmap(drawn);
}

void ZephanSplash::drawLine(const QString &text, const QFont &font, const QColor &color, qreal baseline,
                            bool leftAligned)
{
    const QSizeF size = canvas();
    const qreal left = leftAligned ? kLeftOfHeight * size.height()
                                   : size.width() - margin() - QFontMetricsF(font).horizontalAdvance(text);
    paint([&](QPainter &painter) {
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(QPointF(left, baseline), text);
    });
}

void ZephanSplash::drawBox(const QString &text, const QColor &color, qreal top, qreal bottom, int alignment)
{
    if (text.isEmpty())
        return;
    const QRectF box(QPointF(margin(), top), QPointF(canvas().width() - margin(), bottom));
    paint([&](QPainter &painter) {
        painter.setFont(m_smallFont);
        painter.setPen(color);
        painter.drawText(box, alignment | Qt::TextWordWrap, text);
    });
}
