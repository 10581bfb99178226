#ifndef SETTINGSPARKING_H
#define SETTINGSPARKING_H

#include <QString>

/// Gets the file of the working settings out of the store's hands while it is replaced: the store points at a
/// parking file in a temporary directory, where the former file is kept for recovery.
class SettingsParking
{
public:
    /// The temporary directory in the data directory; it exists only during an operation.
    static constexpr char kDirectory[] = "tmp_ini/";

    /// Makes the temporary directory. What is stuck there from an earlier run is left alone: the files get
    /// fresh names. So is a former working file that no newer one on disk has replaced yet.
    ///
    /// \param dataPath  the data directory with its trailing separator
    explicit SettingsParking(const QString &dataPath);

    /// Points the store at the parking file and moves the working file aside, if there is one.
    void park();
    /// Makes a copy of this file the working file, at once and whole. A copy of a protected file is not
    /// protected.
    ///
    /// \return  false if it cannot be copied, or if something stands in its place
    bool place(const QString &source);
    /// Points the store at whatever is the working file now.
    void unpark();
    /// Puts the former working file back in place of what stands there, if it was moved aside.
    void recover();
    /// Writes the working settings and then removes the temporary directory with all that is in it. It stays
    /// where they cannot be written, so that the former file is there at the next start.
    void clear();
    /// The same for an operation that keeps its parking file elsewhere.
    static void clear(const QString &dataPath);

    /// What the start of the program does about an operation that a killed process has left: puts the former
    /// working file back if there is no other, and removes the temporary directory. Nobody may have opened
    /// the working file yet.
    static void recoverAbandoned(const QString &dataPath);

    /// The file of the working settings.
    static QString workingFile(const QString &dataPath);

private:
    bool isLastOnDisk() const;

    QString m_workingFile;
    QString m_directory;
    QString m_parkingFile;
    QString m_recoveryFile;
};

#endif
