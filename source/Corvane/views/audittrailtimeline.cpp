#include "Corvane/views/audittrailtimeline.h"

#include "ZephanShared/toolkit/actions.h"

namespace {

constexpr int kMostBars = 31;  // whose labels can be read side by side
constexpr int kHourSeconds = 3600;
constexpr int kWeekDays = 7;
constexpr int kYearMonths = 12;
constexpr int kDecade = 10;
constexpr int kCentury = 100;
constexpr int kMillennium = 1000;
constexpr int kOther = AuditTrailTimeline::kCategoryCount - 1;
constexpr int kFirstCategory = Actions::AccessCategory;

using Step = AuditTrailTimeline::Step;

QDateTime timeOfHour(qint64 hour)
{
    return QDateTime::fromSecsSinceEpoch(hour * kHourSeconds, Qt::UTC);
}

qint64 hourOf(const QDateTime &time)
{
    const qint64 seconds = time.toSecsSinceEpoch();
    return (seconds - (seconds < 0 ? kHourSeconds - 1 : 0)) / kHourSeconds;
}

int categoryIndex(int category)
{
    const bool isKnown =
        category >= kFirstCategory && category <= Actions::ErrorCategory && category % kFirstCategory == 0;
    return isKnown ? category / kFirstCategory - 1 : kOther;
}

QDateTime midnight(int year, int month, int day)
{
    return QDateTime(QDate(year, month, day), QTime(0, 0), Qt::UTC);
}

/// There is no year 0.
QDateTime startOfYears(const QDate &date, int years)
{
    return midnight(qMax(1, date.year() / years * years), 1, 1);
}

/// The start of the bar in which a time lies.
QDateTime startOf(const QDateTime &time, Step step)
{
    const QDate date = time.date();
    switch (step) {
    case Step::Hour:
        return QDateTime(date, QTime(time.time().hour(), 0), Qt::UTC);
    case Step::Day:
        return QDateTime(date, QTime(0, 0), Qt::UTC);
    case Step::Week:
        return QDateTime(date.addDays(1 - date.dayOfWeek()), QTime(0, 0), Qt::UTC);
    case Step::Month:
        return midnight(date.year(), date.month(), 1);
    case Step::Year:
        return midnight(date.year(), 1, 1);
    case Step::Decade:
        return startOfYears(date, kDecade);
    case Step::Century:
        return startOfYears(date, kCentury);
    case Step::Millennium:
        break;
    }
    return startOfYears(date, kMillennium);
}

QDateTime nextStart(const QDateTime &start, Step step)
{
    switch (step) {
    case Step::Hour:
        return start.addSecs(kHourSeconds);
    case Step::Day:
        return start.addDays(1);
    case Step::Week:
        return start.addDays(kWeekDays);
    case Step::Month:
        return start.addMonths(1);
    case Step::Year:
        return start.addYears(1);
    case Step::Decade:
        return startOf(start.addYears(kDecade), step);
    case Step::Century:
        return startOf(start.addYears(kCentury), step);
    case Step::Millennium:
        break;
    }
    return startOf(start.addYears(kMillennium), step);
}

qint64 barCount(const QDateTime &first, const QDateTime &last, Step step)
{
    const qint64 days = first.date().daysTo(last.date());
    const int years = last.date().year() - first.date().year();
    switch (step) {
    case Step::Hour:
        return first.secsTo(last) / kHourSeconds + 1;
    case Step::Day:
        return days + 1;
    case Step::Week:
        return startOf(first, step).date().daysTo(last.date()) / kWeekDays + 1;
    case Step::Month:
        return years * kYearMonths + last.date().month() - first.date().month() + 1;
    case Step::Year:
        return years + 1;
    case Step::Decade:
        return years / kDecade + 1;
    case Step::Century:
        return years / kCentury + 1;
    case Step::Millennium:
        break;
    }
    return years / kMillennium + 1;
}

}  // namespace

void AuditTrailTimeline::add(const QDateTime &time, int category)
{
    // Years before the first have no place on the axis.
    if (!time.isValid() || time.date().year() < 1) {
        ++m_undated;
        return;
    }
    auto hour = m_hours.find(hourOf(time));
    if (hour == m_hours.end())
        hour = m_hours.insert(hourOf(time), Counts{});
    ++(*hour)[static_cast<std::size_t>(categoryIndex(category))];
}

qint64 AuditTrailTimeline::total() const
{
    qint64 sum = 0;
    for (const qint64 count : totals())
        sum += count;
    return sum;
}

AuditTrailTimeline::Counts AuditTrailTimeline::totals() const
{
    Counts sums{};
    for (const Counts &counts : m_hours) {
        for (std::size_t i = 0; i < counts.size(); ++i)
            sums[i] += counts[i];
    }
    return sums;
}

AuditTrailTimeline::Step AuditTrailTimeline::step() const
{
    if (m_hours.isEmpty())
        return Step::Day;
    const QDateTime first = timeOfHour(m_hours.firstKey());
    const QDateTime last = timeOfHour(m_hours.lastKey());
    for (const Step step :
         {Step::Hour, Step::Day, Step::Week, Step::Month, Step::Year, Step::Decade, Step::Century}) {
        if (barCount(first, last, step) <= kMostBars)
            return step;
    }
    return Step::Millennium;
}

QVector<AuditTrailTimeline::Bar> AuditTrailTimeline::bars() const
{
    QVector<Bar> result;
    if (m_hours.isEmpty())
        return result;
    const Step width = step();
    QDateTime start = startOf(timeOfHour(m_hours.firstKey()), width);
    QDateTime next = nextStart(start, width);
    result.append({start, Counts{}});
    for (auto hour = m_hours.cbegin(); hour != m_hours.cend(); ++hour) {
        const QDateTime time = timeOfHour(hour.key());
        while (time >= next) {
            start = next;
            next = nextStart(start, width);
            result.append({start, Counts{}});
        }
        for (std::size_t i = 0; i < hour->size(); ++i)
            result.last().counts[i] += hour->at(i);
    }
    return result;
}

int AuditTrailTimeline::categoryAt(int index)
{
    return index < kOther ? (index + 1) * kFirstCategory : -1;
}
