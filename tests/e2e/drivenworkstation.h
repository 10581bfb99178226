#ifndef TESTS_E2E_DRIVENWORKSTATION_H
#define TESTS_E2E_DRIVENWORKSTATION_H

#include "support/workstation.h"

#include <QDateTime>
#include <QStringList>
#include <QVariant>
#include <QVector>

/// How a script that drives the window ended.
struct Output
{
    int exitCode;  ///< -1 if it took too long
    QByteArray text;
};

/// What of an audit row tells a road. The row's other columns follow from it and from who works.
struct Event
{
    int action;
    int type;
    QString info;
    QString database;  ///< the target's name
    QString server;    ///< the target's place

    friend bool operator==(const Event &a, const Event &b);
};

/// An event of the program itself, which names this computer as its target.
Event ownEvent(int action, const QString &info, int type = 1);
QByteArray describe(const QVector<Event> &events);

/// A workstation with the settings of a suite, on which the built program is worked through its window.
class DrivenWorkstation
{
public:
    /// Nothing but the local application settings and the version.
    DrivenWorkstation();

    /// Adds the databases of a site, with its users and two years of audit trail. False if that fails.
    bool makeSite() const;

    /// Runs a script of this folder, or of the driver's own, with the program's launcher and a folder for its
    /// screenshots.
    Output drive(const QString &script, const QString &screenshots) const;

    /// All events, the oldest first.
    QVector<Event> recorded() const;
    /// Compares what is in the columns of each row that do not tell the road: the category and level of its
    /// action, the time, the operator from each sign-in on, this computer, and no database key.
    ///
    /// \param begin  of the run, UTC
    /// \return       what is wrong; empty if nothing is
    QString wrongColumns(const QDateTime &begin, const QString &operatorId,
                         const QString &operatorName) const;

    /// What the shell has written to the run-time log, as "INF ??: centralelement::CentralElement::start
    /// Initialized.", and every warning and error of others.
    QStringList logLines() const;

    QString dataDirectory() const;
    QString actionLog() const;
    QByteArray runtimeLog() const;

    /// Where the launcher puts the site-wide settings.
    QString localSettingsFile() const;
    QVariant localSetting(const char *key) const;
    void setLocalSetting(const char *key, const QVariant &value) const;
    QVariant workingSetting(const char *key) const;
    QVariant cacheSetting(const char *key) const;

private:
    QProcessEnvironment environment() const;
    /// All columns of the audit rows, in the order of the table.
    QVector<QStringList> rows() const;

    Workstation m_files;
};

#endif
