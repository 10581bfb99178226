// From the call to the first painted picture of the comparison of settings with 10,000 differing lines,
// beside a bare dialog that holds the same lines in the same two panes.

#include "Corvane/settings/diffview.h"
#include "ratios.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int kLines = 10000;
constexpr int kTurns = 15;

/// Closes each dialog as soon as it has been painted.
class Closer : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *dialog = qobject_cast<QDialog *>(watched);
        if (dialog && event->type() == QEvent::Paint)
            QTimer::singleShot(0, dialog, &QDialog::close);
        return false;
    }
};

QStringList lines(const char *value)
{
    QStringList result;
    for (int i = 0; i < kLines; ++i)
        result.append(
            QStringLiteral("site/key_%1=%2 of the setting").arg(i, 5, 10, QLatin1Char('0')).arg(value));
    return result;
}

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double timeToComparison(const QStringList &initial, const QStringList &previous, const QStringList &current)
{
    QElapsedTimer timer;
    timer.start();
    DiffView::showDiff(initial, previous, current, QString(), false, false);
    return milliseconds(timer);
}

double timeToBareDialog(const QStringList &left, const QStringList &right)
{
    QElapsedTimer timer;
    timer.start();
    {
        QDialog dialog;
        QHBoxLayout layout(&dialog);
        for (const QStringList *side : {&left, &right}) {
            auto *pane = new QPlainTextEdit(side->join(QLatin1Char('\n')), &dialog);
            pane->setLineWrapMode(QPlainTextEdit::NoWrap);
            layout.addWidget(pane);
        }
        dialog.exec();
    }
    return milliseconds(timer);
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

}  // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    Closer closer;
    application.installEventFilter(&closer);
    const QStringList initial = lines("first");
    const QStringList previous = lines("second");
    const QStringList current = lines("third");
    std::vector<double> ours;
    std::vector<double> bare;
    for (int turn = 0; turn < kTurns; ++turn) {
        ours.push_back(timeToComparison(initial, previous, current));
        bare.push_back(timeToBareDialog(previous, current));
    }
    std::printf("%d differing lines from the call to the closed dialog: %.0f ms; bare dialog: %.0f ms\n",
                kLines, median(ours), median(bare));
    Ratios::print("comparison of 10,000 lines / bare dialog with the same", median(ours), median(bare),
                  "aim: at most 2");
    return 0;
}
