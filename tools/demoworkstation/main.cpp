#include "demosettings.h"
#include "demosite.h"

#include "ZephanShared/toolkit/filecommit.h"
#include "demoaudittrail/demofile.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

namespace {

constexpr int kFailed = 1;

// No line end: a version file with one shows its third part as 0.
bool writeVersion(const QString &path, const QString &version)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(version.toLatin1()) > 0 && commitWhole(file);
}

}  // namespace

/// Prepares a demonstration workstation: the data directory with its version, the local application settings
/// of a hospital that has been working with the suite for a while, its site database and its offline access
/// file. What is there already stays.
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prepares a demonstration workstation."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("data"),
                                 QStringLiteral("The data directory, as \"ProgramData/Halvorn\"."));
    parser.addPositionalArgument(QStringLiteral("settings"),
                                 QStringLiteral("The ini file of the local application settings."));
    parser.addPositionalArgument(QStringLiteral("version"),
                                 QStringLiteral("The product version, as \"1.2.3\"."));
    parser.process(application);
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 3)
        parser.showHelp(kFailed);

    const QString data = QDir(arguments.at(0)).absolutePath();
    const QString settings = QFileInfo(arguments.at(1)).absoluteFilePath();
    if (!QDir().mkpath(data) || !QDir().mkpath(QFileInfo(settings).path())) {
        QTextStream(stderr) << "The folders cannot be made: " << data << '\n';
        return kFailed;
    }
    if (!writeVersion(data + QStringLiteral("/version"), arguments.at(2))) {
        QTextStream(stderr) << "The version cannot be written in " << data << '\n';
        return kFailed;
    }
    QString error;
    const QString settingsName = QLatin1Char('/') + QFileInfo(settings).fileName();
    const auto writeSettings = [&](const QString &folder) {
        return writeDemoSettings(folder + settingsName);
    };
    if (!makeDemoFile(settings, writeSettings, error)) {
        QTextStream(stderr) << error << '\n';
        return kFailed;
    }
    if (!makeDemoSite(data, error)) {
        QTextStream(stderr) << "The site's databases cannot be made: " << error << '\n';
        return kFailed;
    }
    return 0;
}
