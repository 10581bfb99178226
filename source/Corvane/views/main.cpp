#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/settingsparking.h"
#include "Corvane/views/centralelement.h"
#include "Corvane/views/producttexts.h"
#include "Corvane/views/startlanguage.h"
#include "Corvane/views/zephansplash.h"
#include "ZephanShared/toolkit/nativepath.h"
#include "ZephanShared/toolkit/standardstreams.h"

#include <QApplication>
#include <QIcon>
#include <QLockFile>
#include <QMainWindow>
#include <QPixmap>
#include <QPointer>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>
#include <QTranslator>

namespace {

constexpr int kFailure = 1;         // exit code
constexpr int kLockPatience = 500;  // milliseconds
constexpr int kSplashTime = 1000;   // milliseconds
constexpr QSize kWindowSize(800, 600);

void prepareHighResolution()
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

/// The separator is doubled, since the data directory ends in one: the path under which all versions of the
/// program look for each other.
QString lockPath(const QString &dataDirectory)
{
    const QString folder =
        dataDirectory.isEmpty() ? QString() : dataDirectory + nativePath(QStringLiteral("/"));
    return folder + QStringLiteral("cv.lock");
}

/// Whether no other copy is running.
bool isOnlyCopy(QLockFile &lock)
{
    lock.setStaleLockTime(0);
    return lock.tryLock(kLockPatience) || lock.removeStaleLockFile();
}

/// The splash's background with as many pixels as the screen has.
QPixmap splashBackground()
{
    const bool fine = qApp->devicePixelRatio() > 1;
    return QPixmap(fine ? QStringLiteral(":/resources/splash_background@2x.png")
                        : QStringLiteral(":/resources/splash_background.png"));
}

QIcon programIcon()
{
    QIcon icon(QStringLiteral(":/icons/corvane/corvane.png"));
    for (const int size : {16, 32, 48, 128})
        icon.addFile(QStringLiteral(":/icons/corvane/corvane_%1.png").arg(size));
    return icon;
}

/// The splash is only closed and never deleted, since whatever goes wrong up to the end may still hide it.
ZephanSplash *createSplash(const QPixmap &background, const QString &versionPath)
{
    static auto *const splash =
        new ZephanSplash(Qt::AlignBottom, Qt::black, background,
                         Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint, nullptr);
    splash->drawLogo(QStringLiteral(":/resources/halvorn_logo.png"));
    splash->setTimerInterval(kSplashTime);
    splash->drawVersionFile(versionPath);
    return splash;
}

void showSplash(ZephanSplash *splash)
{
    splash->drawTitles(QString::fromLatin1(ProductTexts::kSuiteName),
                       QString::fromLatin1(ProductTexts::kProgramName), false);
    splash->show();
}

void prepareWindow(QMainWindow &window)
{
    window.hide();
    window.resize(kWindowSize);
    window.setMinimumSize(kWindowSize);
}

/// Runs the program until its window is closed, or until the central element deletes itself because the
/// engine could not be started: a process without a window must not go on and keep the lock.
int run(QMainWindow &window, CentralElement *element)
{
    const QPointer<CentralElement> central(element);
    QObject::connect(element, &QObject::destroyed, qApp, &QCoreApplication::quit);
    window.setCentralWidget(element);
    const int code = QApplication::exec();
    if (!central)
        return kFailure;
    delete central.data();
    return code;
}

}  // namespace

int main(int argc, char *argv[])
{
    secureStandardStreams();
    const QString dataDirectory = suiteDataDirectory();
    const QString lockFile = lockPath(dataDirectory);

    prepareHighResolution();
    // There is no help that a "?" in the title of a dialog could ask for.
    QCoreApplication::setAttribute(Qt::AA_DisableWindowContextHelpButton);
    QApplication application(argc, argv);
    QLockFile lock(lockFile);
    if (!isOnlyCopy(lock))
        return kFailure;

    SettingsParking::recoverAbandoned(dataDirectory);
    SettingsHandler::getInstance()->changeSettingsFile(dataDirectory + kSettingsFileName);

    const QPixmap background = splashBackground();
    ZephanSplash *splash = createSplash(background, dataDirectory + QStringLiteral("version"));

    const auto localCache = openSettingsFile(dataDirectory + LocalCache::kFileName);
    const QString language = startLanguage(*localCache);
    QTranslator translator;
    installTranslation(translator, language);
    showSplash(splash);

    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    // Style sheets, logo and icons are made for light ground, so a dark desktop does not lend its colours.
    QApplication::setPalette(QApplication::style()->standardPalette());
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Halvorn Corvane"));
    QGuiApplication::setWindowIcon(programIcon());

    QMainWindow window;
    prepareWindow(window);
    return run(window, new CentralElement(dataDirectory, splash, &translator));
}
