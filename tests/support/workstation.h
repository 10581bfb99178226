#ifndef TESTS_SUPPORT_WORKSTATION_H
#define TESTS_SUPPORT_WORKSTATION_H

#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

/// A workstation of a test's own, in a temporary folder: its data directory, its temporary folder and its
/// system-scope settings.
///
/// The constructor points the process' environment there, so it has to exist before anything of the program
/// reads its environment: make it a static or the first line of `main`.
class Workstation
{
public:
    Workstation();

    /// The data directory with its trailing separator; it exists.
    QString dataDirectory() const;
    /// The temporary folder, without a trailing separator.
    QString temporaryDirectory() const;
    /// The ini file of the local application settings. The file is not made.
    QString localApplicationSettings() const;
    /// The run-time log.
    QString runtimeLog() const;
    /// A path inside the workstation's folder.
    QString path(const QString &name) const;
    /// The environment for a process of its own on this workstation.
    QProcessEnvironment environment() const;

private:
    QTemporaryDir m_root;
};

/// All of a file's bytes; empty when it can't be read.
QByteArray readFile(const QString &path);
/// Replaces a file's bytes, making the folders above it.
bool writeFile(const QString &path, const QByteArray &bytes);

#endif
