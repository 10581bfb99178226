#ifndef DEMOEVENTS_H
#define DEMOEVENTS_H

#include "CommunicationAndData/actionlog/actionlogtable.h"

#include <QDate>
#include <QRandomGenerator>
#include <QVector>

/// The audit events of a small hospital: measurement rooms on working days, administrators now and then, and
/// what the programs do by themselves at night.
///
/// The same seed, days and number give the same events.
class DemoEvents
{
public:
    /// \param count  number of events in all days together
    DemoEvents(quint32 seed, const QDate &firstDay, const QDate &lastDay, int count);

    /// The next day's events in the order of their times.
    QVector<ActionLogEntry> nextDay();
    bool atEnd() const;

private:
    struct Session;

    int eventsOfDay();
    void addNight(QVector<ActionLogEntry> &events);
    void addSession(QVector<ActionLogEntry> &events);
    void addWork(QVector<ActionLogEntry> &events, Session &session);
    void addError(QVector<ActionLogEntry> &events, Session &session);
    ActionLogEntry eventOf(Session &session, int action);
    QString newKey();
    int below(int limit);

    QRandomGenerator m_random;
    QDate m_day;
    QDate m_lastDay;
    int m_count;
    double m_weights = 0;  ///< of all days
    double m_passed = 0;   ///< of the days behind
    int m_given = 0;
};

#endif
