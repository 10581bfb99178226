#ifndef APPLICATIONHELPER_H
#define APPLICATIONHELPER_H

#include "ZephanShared/toolkit/abstractapplicationfactory.h"
#include "ZephanShared/toolkit/actions.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QDir>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

/// Finds, loads and indexes the study plug-ins of this workstation.
///
/// A helper is made where it is needed, asked and left; the plug-ins stay loaded, so that the application
/// objects outlive it. Main thread only. Plug-ins are code of the suite's makers and run in this process: one
/// that fails to load is passed over, one that crashes takes the program with it, and the run-time log names
/// it then.
class ApplicationHelper : public QObject
{
    Q_OBJECT

public:
    explicit ApplicationHelper(QObject *parent = nullptr);

    /// The application objects by their applications' names, after loading the plug-ins while there are none.
    ///
    /// \param settingsFilePath  an ini file whose value `language` is the language that the plug-ins' texts
    /// are
    ///                          translated into; empty to leave them as they are
    const QMap<QString, AbstractApplication *> &applications(const QString &settingsFilePath);

    /// Loads every plug-in of the folders that the application's library paths name, those that end in
    /// "plugins" themselves and of the others their `plugins`.
    void loadPlugins(const QString &settingsFilePath);

    /// Those that a later plug-in of the same name replaced, the last one of each name.
    const QMap<QString, AbstractApplication *> &replacedApplications() const;

signals:
    /// A plug-in that loads gives no object.
    void logError(Actions::Action action, ZephanError errorCode, QVariant errorData);

private:
    void loadFolder(const QDir &folder, const QString &settingsFilePath);
    void loadPlugin(const QDir &folder, const QString &fileName, const QString &settingsFilePath);
    void reportFailure(const QString &fileName);
    void enter(AbstractApplicationFactory &factory, const QDir &folder);

    QMap<QString, AbstractApplication *> m_applications;  ///< of the plug-ins
    QMap<QString, AbstractApplication *> m_replacedApplications;
};

#endif
