#ifndef STORECHECKS_H
#define STORECHECKS_H

#include <QFile>
#include <QMap>
#include <QStringList>
#include <QVariant>

class SettingsHandler;

SettingsHandler *store();

/// The text of a constant key.
QString key(const char *name);

/// The image of all settings, as `stash` gives it.
QMap<QString, QVariant> stashed();

/// The lines of a log that hold a text.
QStringList linesWith(const QString &log, const QString &text);

/// The kept copies of a file, full paths.
QStringList keptCopies(const QString &path);

/// For as long as it lives a file and its folder can be read and not written, by their owner neither. It
/// holds nobody back who has root's privileges.
class WriteProtection
{
public:
    explicit WriteProtection(const QString &file);
    ~WriteProtection();
    Q_DISABLE_COPY(WriteProtection)

private:
    const QString m_file;
    const QString m_folder;
    const QFile::Permissions m_ofFile;
    const QFile::Permissions m_ofFolder;
};

#endif
