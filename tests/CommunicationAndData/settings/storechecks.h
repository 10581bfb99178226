#ifndef STORECHECKS_H
#define STORECHECKS_H

#include <QStringList>

#include <unistd.h>

class SettingsHandler;

SettingsHandler *store();

/// The text of a constant key.
QString key(const char *name);

/// The lines of a log that hold a text.
QStringList linesWith(const QString &log, const QString &text);

/// The kept copies of a file, full paths.
QStringList keptCopies(const QString &path);

/// For as long as it lives the process may do no more than anybody may.
class WithoutPrivileges
{
public:
    WithoutPrivileges();
    ~WithoutPrivileges();

private:
    uid_t m_user;
};

#endif
