#ifndef ZEPHANSPLASH_H
#define ZEPHANSPLASH_H

#include <QColor>
#include <QFont>
#include <QSplashScreen>
#include <QTimer>

#include <functional>

class QPainter;

/// The start-up screen: a pixmap on which the program draws its logo, titles, version and legal texts, and
/// which stays up for at least the timer's interval.
///
/// Whatever is drawn becomes part of the pixmap. All places are fractions of its size in device-independent
/// pixels.
class ZephanSplash : public QSplashScreen
{
    Q_OBJECT

public:
    /// \param alignment  of the messages
    /// \param color      of the messages
    /// \param pixmap     the background; a null one gives a transparent square
    ZephanSplash(int alignment, const QColor &color, const QPixmap &pixmap, Qt::WindowFlags flags,
                 QWidget *parent);

    /// Draws an image in the top right corner. A missing one draws nothing.
    void drawLogo(const QString &path);
    /// The shortest time on screen, in milliseconds from `show`.
    void setTimerInterval(int ms);
    void drawTitles(const QString &mainTitle, const QString &subtitle, bool leftAligned);
    /// Draws the version from the first line of a file, on the right. A missing file draws nothing.
    void drawVersionFile(const QString &path);
    /// Draws a version, and a warning in red if it is one before the release. An empty text draws nothing.
    void drawVersion(const QString &version, bool leftAligned);
    /// Draws a text at the bottom.
    void drawNotice(const QString &text);
    /// Draws a text between the version and the notice.
    void drawDisclaimer(const QString &text);

public slots:
    void showMessage(QString message);
    /// Shows the window; the time on screen begins to count.
    void show();
    /// Waits until the time on screen is over, with events going on, and closes the window.
    void close();

private:
    QSizeF canvas() const;
    qreal margin() const;
    int lineHeight(const QFont &font) const;
    /// Top of the region below the version.
    qreal belowVersion() const;

    void paint(const std::function<void(QPainter &)> &draw);
    void drawLine(const QString &text, const QFont &font, const QColor &color, qreal baseline,
                  bool leftAligned);
    void drawBox(const QString &text, const QColor &color, qreal top, qreal bottom, int alignment);

    int m_alignment;
    QColor m_color;
    QFont m_titleFont;
    QFont m_subtitleFont;
    QFont m_versionFont;
    QFont m_smallFont;
    QTimer m_timer;
};

#endif
