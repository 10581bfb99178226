#ifndef WORKINGSETTINGS_H
#define WORKINGSETTINGS_H

#include <QObject>
#include <QString>

#include <memory>

class QSettings;

/// The file that holds the working settings at the moment, open.
///
/// What cannot be written is logged once and stays in memory.
class WorkingSettings : public QObject
{
    Q_OBJECT

public:
    /// Working settings that are on no disk, as before a first file is chosen.
    WorkingSettings();
    explicit WorkingSettings(const QString &path);
    /// Writes what is pending.
    ~WorkingSettings() override;

    /// The object that callers work with. They may have entered a group in it.
    QSettings *shared() const;
    /// The same content, always addressed by full keys.
    QSettings &absolute() const;

    /// Writes what is pending, and takes in what others wrote to the file.
    void sync();

    /// The events by which the two objects ask to be written.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void open(const QString &path);
    void reportFailure();

    QString m_path;
    bool m_failureReported = false;
    std::unique_ptr<QSettings> m_shared;
    std::unique_ptr<QSettings> m_absolute;
};

#endif
