// From the start of the program to the sign-in view, beyond the second that the splash stays up, beside a
// bare Qt program that shows an empty main window. Both are processes of their own, in turn.

#include "ratios.h"
#include "support/workstation.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMainWindow>
#include <QProcess>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr double kSplashTime = 1000;  // milliseconds
constexpr int kTurns = 7;
constexpr int kPatience = 60000;  // milliseconds
constexpr char kPeer[] = "--bare-window";
constexpr char kShown[] = "shown";

/// Milliseconds until the program has logged that its first view is up; below 0 when it never did.
double timeToSignIn()
{
    const Workstation workstation;
    QProcess program;
    program.setProcessEnvironment(workstation.environment());
    program.setWorkingDirectory(QCoreApplication::applicationDirPath());
    QElapsedTimer timer;
    timer.start();
    program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/Corvane"), QStringList());
    double shown = -1;
    while (shown < 0 && timer.elapsed() < kPatience) {
        QThread::msleep(1);
        if (readFile(workstation.runtimeLog()).contains("Initialized."))
            shown = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }
    program.kill();
    program.waitForFinished();
    return shown;
}

double timeToBareWindow()
{
    QProcess program;
    QElapsedTimer timer;
    timer.start();
    program.start(QCoreApplication::applicationFilePath(), {QLatin1String(kPeer)});
    const bool hasShown = program.waitForReadyRead(kPatience);
    const double shown = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    program.kill();
    program.waitForFinished();
    return hasShown ? shown : -1;
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

int showBareWindow(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(800, 600);
    window.show();
    QApplication::processEvents();
    std::puts(kShown);
    std::fflush(stdout);
    return QApplication::exec();
}

}  // namespace

int main(int argc, char *argv[])
{
    if (argc > 1 && qstrcmp(argv[1], kPeer) == 0)
        return showBareWindow(argc, argv);
    const QCoreApplication application(argc, argv);
    std::vector<double> ours;
    std::vector<double> bare;
    for (int turn = 0; turn < kTurns; ++turn) {
        ours.push_back(timeToSignIn() - kSplashTime);
        bare.push_back(timeToBareWindow());
    }
    std::printf("Start to the sign-in view beyond the splash's %.0f ms: %.0f ms; bare window: %.0f ms\n",
                kSplashTime, median(ours), median(bare));
    Ratios::print("start beyond the splash / bare Qt window", median(ours), median(bare), "");
    return 0;
}
