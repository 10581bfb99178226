#include "ZephanShared/toolkit/applicationhelper.h"

#include "ZephanShared/toolkit/languages.h"
#include "ZephanShared/toolkit/logger.h"

#include <QCoreApplication>
#include <QPluginLoader>
#include <QSettings>

namespace {

const QString kPluginFolder = QStringLiteral("plugins");
constexpr int kHexadecimal = 16;

/// Whether the folder holds plug-ins; one that doesn't itself is changed to its subfolder that does.
bool findPluginFolder(QDir &folder)
{
    return folder.dirName().toLower().endsWith(kPluginFolder) || folder.cd(kPluginFolder);
}

void translate(AbstractApplication &application, const QString &settingsFilePath)
{
    const QSettings settings(settingsFilePath, QSettings::IniFormat);
    QTranslator *translator =
        application.translator(settings.value(QLatin1String(kLanguageKey), QString()).toString());
    if (translator)
        QCoreApplication::installTranslator(translator);
}

}  // namespace

ApplicationHelper::ApplicationHelper(QObject *parent)
    : QObject(parent)
{}

const QMap<QString, AbstractApplication *> &ApplicationHelper::applications(const QString &settingsFilePath)
{
    if (m_applications.isEmpty())
        loadPlugins(settingsFilePath);
    return m_applications;
}

const QMap<QString, AbstractApplication *> &ApplicationHelper::replacedApplications() const
{
    return m_replacedApplications;
}

void ApplicationHelper::loadPlugins(const QString &settingsFilePath)
{
    const QStringList paths = QCoreApplication::libraryPaths();
    for (const QString &path : paths) {
        QDir folder(path);
        if (findPluginFolder(folder))
            loadFolder(folder, settingsFilePath);
    }
}

void ApplicationHelper::loadFolder(const QDir &folder, const QString &settingsFilePath)
{
    const QStringList fileNames = folder.entryList(QDir::Files);
    for (const QString &fileName : fileNames)
        loadPlugin(folder, fileName, settingsFilePath);
}

void ApplicationHelper::loadPlugin(const QDir &folder, const QString &fileName,
                                   const QString &settingsFilePath)
{
    QPluginLoader loader(folder.absoluteFilePath(fileName));
    // A plug-in that crashes is the one that the run-time log names last.
    if (!loader.metaData().isEmpty())
        CORVANE_LOG(Logger::Debug, Logger::Console, "ApplicationHelper::loadPlugins",
                    QStringLiteral("Loading ") + fileName);
    if (!loader.load())
        return;
    QObject *instance = loader.instance();
    if (!instance) {
        reportFailure(fileName);
        return;
    }
    auto *factory = qobject_cast<AbstractApplicationFactory *>(instance);
    if (!factory || !factory->application(AbstractApplicationFactory::Edition)) {
        loader.unload();
        return;
    }
    enter(*factory, folder);
    if (!settingsFilePath.isEmpty())
        translate(*factory->application(AbstractApplicationFactory::Edition), settingsFilePath);
}

void ApplicationHelper::reportFailure(const QString &fileName)
{
    emit logError(Actions::LoadPlugin, ZephanErrors::kPluginNotInstantiated,
                  QStringLiteral("Plugin failure: ") + fileName);
    CORVANE_LOG(Logger::Error, Logger::Console, "ApplicationHelper::loadPlugins",
                QStringLiteral("0x") + QString::number(ZephanErrors::kPluginNotInstantiated, kHexadecimal));
}

void ApplicationHelper::enter(AbstractApplicationFactory &factory, const QDir &folder)
{
    AbstractApplication *application = factory.application(AbstractApplicationFactory::Edition);
    application->setPluginPath(folder.absolutePath());
    const QString name = factory.applicationName();
    AbstractApplication *earlier = m_applications.value(name);
    if (earlier && earlier != application)
        m_replacedApplications.insert(name, earlier);
    m_applications.insert(name, application);
}
