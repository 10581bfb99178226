#ifndef SETTINGSUPDATE_H
#define SETTINGSUPDATE_H

#include <QMap>
#include <QString>
#include <QVariant>

/// What an application of the suite does with its settings when it starts: with
/// `application/settings_updating` on, it takes the active configuration of the settings database that the
/// group `supportdb` names.
///
/// The configuration replaces the file as a whole. What belongs to the workstation alone stays, and so does a
/// database group that the configuration leaves out, since without it nobody would find the database again.
/// The file is the former or the new one at every moment.
class SettingsUpdate
{
public:
    enum Outcome {
        Done = 0,  ///< taken over, or updating is off
        NoConnection = 2,
        NoActiveConfiguration = 3,
        NotFetched = 4,
        NotWritten = 5
    };

    /// \param path  the ini file of the application's settings
    explicit SettingsUpdate(const QString &path);
    ~SettingsUpdate();

    Outcome run();

    /// What came of it, one line.
    QString message() const
    {
        return m_message;
    }

private:
    using Settings = QMap<QString, QVariant>;

    bool isUpdatingOn() const;
    bool connectToDatabase() const;
    Outcome takeOver(int id);
    void keepWorkstation();
    bool replaceFile() const;
    Outcome end(Outcome outcome, const QString &message);

    const QString m_path;
    const QString m_stagingPath;
    Settings m_former;
    QString m_message;
};

#endif
