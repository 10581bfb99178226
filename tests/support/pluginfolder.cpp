#include "support/pluginfolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const QString kPlugins = QStringLiteral("plugins");
const QString kTranslations = QStringLiteral("translations");

bool copyFiles(const QString &from, const QString &to)
{
    bool isDone = QDir().mkpath(to);
    const QStringList names = QDir(from).entryList(QDir::Files);
    for (const QString &name : names)
        isDone = QFile::copy(from + QLatin1Char('/') + name, to + QLatin1Char('/') + name) && isDone;
    return isDone && !names.isEmpty();
}

}  // namespace

PluginFolder::PluginFolder(const QString &name)
    : m_libraryPath(m_root.path() + QLatin1Char('/') + name)
    , m_path(name.endsWith(kPlugins, Qt::CaseInsensitive) ? m_libraryPath
                                                          : m_libraryPath + QLatin1Char('/') + kPlugins)
    , m_formerPaths(QCoreApplication::libraryPaths())
{
    QDir().mkpath(m_path);
    QCoreApplication::setLibraryPaths({m_libraryPath});
}

PluginFolder::~PluginFolder()
{
    QCoreApplication::setLibraryPaths(m_formerPaths);
}

QString PluginFolder::trialFile(const QString &trial)
{
    return QStringLiteral(CORVANE_TRIAL_PLUGINS "/%1.plugin").arg(trial);
}

QString PluginFolder::path() const
{
    return m_path;
}

QString PluginFolder::libraryPath() const
{
    return m_libraryPath;
}

bool PluginFolder::add(const QString &trial, const QString &fileName)
{
    const QString file = trialFile(trial);
    return QFile::copy(file, m_path + QLatin1Char('/') +
                                 (fileName.isEmpty() ? QFileInfo(file).fileName() : fileName));
}

bool PluginFolder::addSamples()
{
    const QString samples = QStringLiteral(CORVANE_SAMPLE_PLUGINS);
    return copyFiles(samples, m_path) &&
           copyFiles(samples + QLatin1Char('/') + kTranslations, m_path + QLatin1Char('/') + kTranslations);
}
