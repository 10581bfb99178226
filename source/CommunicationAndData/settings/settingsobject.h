#ifndef SETTINGSOBJECT_H
#define SETTINGSOBJECT_H

#include "CommunicationAndData/settings/filestamp.h"

#include <QMap>
#include <QSettings>
#include <QVariant>

class FormerCopy;

/// An ini file in UTF-8, open, that does not swallow what it cannot write: that is logged, once for each
/// file.
class SettingsObject : public QSettings
{
    Q_OBJECT

public:
    /// A file in a state that `SettingsFile::secure` is content with.
    explicit SettingsObject(const QString &path);
    /// Such a file in the system scope.
    SettingsObject(const QString &organisation, const QString &application);
    /// Settings in memory.
    ///
    /// \param path     the file in whose stead they are, which must not be written; empty if there is none
    /// \param content  what could be read of it
    SettingsObject(const QString &path, const QMap<QString, QVariant> &content);
    ~SettingsObject() override;

    /// Writes what is pending, and takes in what others wrote. False if anything could not be written; it
    /// stays pending, and the file stays as it was wherever a copy of it could be held meanwhile.
    bool syncAndReport();
    /// The same for the last time: what could not be written is given up.
    bool close();

    /// False for settings in memory.
    bool isOnDisk() const;

protected:
    /// A change is written from the event loop with the same care.
    bool event(QEvent *event) override;

private:
    bool write();
    bool isWritten() const;
    bool takeBackPart(FormerCopy &former);
    void makePending();
    QStringList ownKeys();
    void report();

    const QString m_path;
    const bool m_onDisk;
    QMap<QString, QVariant> m_start;  // in memory: what was there before anything was changed
    FileStamp m_stamp;
    bool m_isClosing = false;
    bool m_isSaved = false;
};

#endif
