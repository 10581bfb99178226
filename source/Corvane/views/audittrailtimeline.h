#ifndef AUDITTRAILTIMELINE_H
#define AUDITTRAILTIMELINE_H

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QVector>

#include <array>

/// Counts audit events by time and category.
///
/// Events come in any order. How long a time one bar stands for follows from the first and the last of them,
/// so that there are never more bars than can be told apart.
class AuditTrailTimeline
{
public:
    enum class Step { Hour, Day, Week, Month, Year, Decade, Century, Millennium };

    /// The six categories in rising order of value, then one for all other values.
    static constexpr int kCategoryCount = 7;
    using Counts = std::array<qint64, kCategoryCount>;

    struct Bar
    {
        QDateTime start;  ///< in UTC
        Counts counts;
    };

    /// \param time      in UTC; an event without a valid one has no place in time and is only counted
    /// \param category  number as it is stored
    void add(const QDateTime &time, int category);

    /// Events that have a place in time.
    qint64 total() const;
    /// Events without one.
    qint64 undated() const
    {
        return m_undated;
    }
    Counts totals() const;
    Step step() const;
    /// From the first event to the last, those in between without any event included.
    QVector<Bar> bars() const;

    /// The stored number of a category of `Counts`; -1 for the last.
    static int categoryAt(int index);

private:
    QMap<qint64, Counts> m_hours;  ///< by the hours since 1970
    qint64 m_undated = 0;
};

#endif
