#ifndef TESTS_PROGRAMWORKSTATION_H
#define TESTS_PROGRAMWORKSTATION_H

#include "support/workstation.h"

#include <QStringList>
#include <QVariant>

class RunningProgram;

/// A workstation on which the built program is started as its own process.
class ProgramWorkstation : public Workstation
{
public:
    ProgramWorkstation();

    /// For a program that runs here and disturbs no other one on this machine.
    QProcessEnvironment environment() const;
    QString actionLog() const;
    QString lockFile() const;
    /// The events in the action log, as `eventsOf` gives them.
    QStringList events() const;
    /// A value in an ini file of the data directory.
    QVariant setting(const QString &file, const QString &key) const;
    /// The lines of the run-time log that end in a message.
    QList<QByteArray> logLines(const QByteArray &message) const;
};

/// The events in an action log as "action|info" in their order, but for those of the access connection.
QStringList eventsOf(const QString &actionLog);

/// Waits for the sign-in view.
bool showsLogin(RunningProgram &program);

/// Signs in as the administrator who runs the test.
bool signIn(RunningProgram &program);

#endif
