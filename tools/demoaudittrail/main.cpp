#include "demoaudittrail/demoactionlog.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

namespace {

constexpr int kFailed = 1;

}  // namespace

/// Makes an audit trail to look at: the encrypted file `actionlog.db` of a small hospital that has been
/// working with the suite for two years.
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    DemoTrail trail;
    trail.lastDay = QDate::currentDate().addDays(-1);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Makes an audit trail to look at."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("directory"),
                                 QStringLiteral("Where the file actionlog.db is made."));
    const QCommandLineOption events(QStringLiteral("events"), QStringLiteral("Number of events."),
                                    QStringLiteral("number"), QString::number(trail.events));
    const QCommandLineOption days(QStringLiteral("days"), QStringLiteral("Number of days that they lie in."),
                                  QStringLiteral("number"), QString::number(trail.days));
    const QCommandLineOption lastDay(QStringLiteral("last-day"),
                                     QStringLiteral("The last of these days, as 2016-02-01."),
                                     QStringLiteral("date"), trail.lastDay.toString(Qt::ISODate));
    const QCommandLineOption seed(QStringLiteral("seed"),
                                  QStringLiteral("The same seed gives the same events."),
                                  QStringLiteral("number"), QString::number(trail.seed));
    parser.addOptions({events, days, lastDay, seed});
    parser.process(application);
    trail.events = parser.value(events).toInt();
    trail.days = parser.value(days).toInt();
    trail.lastDay = QDate::fromString(parser.value(lastDay), Qt::ISODate);
    trail.seed = parser.value(seed).toUInt();
    if (parser.positionalArguments().size() != 1 || trail.events <= 0 || trail.days <= 0 ||
        !trail.lastDay.isValid())
        parser.showHelp(kFailed);

    QString error;
    if (!makeDemoActionLog(QDir(parser.positionalArguments().constFirst()).absolutePath(), trail, error)) {
        QTextStream(stderr) << "The audit trail cannot be made: " << error << '\n';
        return kFailed;
    }
    return 0;
}
