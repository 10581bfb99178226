#include "settingsupdate.h"

#include "CommunicationAndData/settings/settingshandler.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSettings>
#include <QTextStream>

namespace {

constexpr int kWrongArguments = 1;

const char *const kDescription =
    "Updates the settings of this workstation's applications, as each of them does when it starts: with\n"
    "application/settings_updating on, the active configuration of the settings database that the group\n"
    "supportdb names replaces the settings. With it off they stay as they are.\n"
    "\n"
    "Ends with one line of text and with\n"
    "  0  when the active configuration was taken over, or updating is off\n"
    "  1  when the arguments are wrong\n"
    "  2  when there is no connection to the settings database\n"
    "  3  when no configuration is active\n"
    "  4  when the active configuration cannot be fetched, or is damaged\n"
    "  5  when the settings cannot be written\n"
    "In all but the first case the settings stay as they were.";

QString defaultPath()
{
    return openLocalApplicationSettings()->fileName();
}

}  // namespace

/// Stands in for the start of one of the suite's applications.
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(kDescription));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption settings(
        QStringLiteral("settings"),
        QStringLiteral("The ini file of the settings; without it the local application settings."),
        QStringLiteral("file"));
    parser.addOption(settings);
    if (!parser.parse(QCoreApplication::arguments()) || !parser.positionalArguments().isEmpty()) {
        QTextStream(stderr) << (parser.errorText().isEmpty() ? QStringLiteral("Too many arguments.")
                                                             : parser.errorText())
                            << '\n';
        return kWrongArguments;
    }
    if (parser.isSet(help))
        parser.showHelp();
    SettingsUpdate update(parser.isSet(settings) ? parser.value(settings) : defaultPath());
    const SettingsUpdate::Outcome outcome = update.run();
    QTextStream(outcome == SettingsUpdate::Done ? stdout : stderr) << update.message() << '\n';
    return outcome;
}
