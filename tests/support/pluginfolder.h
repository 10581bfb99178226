#ifndef TESTS_SUPPORT_PLUGINFOLDER_H
#define TESTS_SUPPORT_PLUGINFOLDER_H

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A folder of study plug-ins of a test's own. While it lives it is all that the application's library paths
/// name.
///
/// A plug-in's code stays loaded when the folder is gone, and each folder has its own: a plug-in never
/// remembers an earlier test.
class PluginFolder
{
public:
    /// \param name  of the folder; one that doesn't end in "plugins" has a subfolder `plugins` that does
    explicit PluginFolder(const QString &name = QStringLiteral("plugins"));
    ~PluginFolder();
    Q_DISABLE_COPY(PluginFolder)

    /// The built file of a trial plug-in, as "alpha".
    static QString trialFile(const QString &trial);

    /// The folder that the plug-ins lie in.
    QString path() const;
    /// What the library paths name.
    QString libraryPath() const;

    /// Adds a trial plug-in.
    ///
    /// \param fileName  under which it lies in the folder; its own name when empty
    bool add(const QString &trial, const QString &fileName = QString());
    /// Adds the plug-ins of the demonstration with their translations.
    bool addSamples();

private:
    QTemporaryDir m_root;
    QString m_libraryPath;
    QString m_path;
    QStringList m_formerPaths;
};

#endif
