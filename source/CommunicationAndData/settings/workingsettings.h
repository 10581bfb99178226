#ifndef WORKINGSETTINGS_H
#define WORKINGSETTINGS_H

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

class QSettings;
class SettingsObject;

/// The file that holds the working settings at the moment, open.
///
/// It is written from the event loop soon after a change, by `sync` and at destruction, whole or not at all
/// wherever the former file can be held meanwhile. What cannot be written is logged once, stays in memory and
/// is tried again every five seconds.
class WorkingSettings : public QObject
{
    Q_OBJECT

public:
    /// Working settings that are on no disk, as before a first file is chosen.
    WorkingSettings();
    /// The file's content as it is on disk now, or nothing where there is no file.
    explicit WorkingSettings(const QString &path);
    ~WorkingSettings() override;

    /// The object that callers work with. They may have entered a group in it.
    QSettings *shared() const;
    /// The same content, always addressed by full keys.
    QSettings &absolute() const;

    /// Writes what is pending, and takes in what others wrote to the file. False if it could not be written.
    bool sync();

    /// Lets changes stay in memory from now on, or writes them by itself again.
    void setHeld(bool held);

    /// False if the file has grown beyond what would be read of it again.
    bool isReadable() const;

    /// Notices the requests of the two objects to be written.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit WorkingSettings(std::unique_ptr<SettingsObject> absolute);

    void writeChanges();

    std::unique_ptr<SettingsObject> m_absolute;
    std::unique_ptr<QSettings> m_shared;
    QTimer m_retry;
    bool m_held = false;
};

#endif
