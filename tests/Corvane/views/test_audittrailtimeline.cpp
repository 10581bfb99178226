#include "Corvane/views/audittrailtimeline.h"

#include <QTest>

namespace {

using Step = AuditTrailTimeline::Step;

QDateTime utc(const char *text)
{
    QDateTime time = QDateTime::fromString(QString::fromLatin1(text), QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    time.setTimeSpec(Qt::UTC);
    return time;
}

QStringList starts(const AuditTrailTimeline &timeline)
{
    QStringList texts;
    for (const AuditTrailTimeline::Bar &bar : timeline.bars())
        texts.append(bar.start.toString(QStringLiteral("yyyy-MM-dd hh")));
    return texts;
}

}  // namespace

class TestAuditTrailTimeline : public QObject
{
    Q_OBJECT

private slots:
    void stepFollowsFromTheFirstAndTheLastEvent_data();
    void stepFollowsFromTheFirstAndTheLastEvent();
    void weeksBeginOnMonday();
    void timesWithoutEventsHaveEmptyBars();
    void categoriesAreCountedApart();
    void orderOfTheEventsDoesNotMatter();
    void eventsWithoutATimeAreOnlyCounted();
    void everyEventIsInOneBar();
};

void TestAuditTrailTimeline::stepFollowsFromTheFirstAndTheLastEvent_data()
{
    QTest::addColumn<QDateTime>("first");
    QTest::addColumn<QDateTime>("last");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("bars");

    const auto row = [](const char *name, const char *first, const char *last, Step step, int bars) {
        QTest::newRow(name) << utc(first) << utc(last) << int(step) << bars;
    };
    row("one event is one hour", "2016-01-01 10:59:59", "2016-01-01 10:59:59", Step::Hour, 1);
    row("31 hours are shown by the hour", "2016-01-01 00:00:00", "2016-01-02 06:59:59", Step::Hour, 31);
    row("32 hours by the day", "2016-01-01 00:00:00", "2016-01-02 07:00:00", Step::Day, 2);
    row("31 days by the day", "2016-01-01 23:00:00", "2016-01-31 00:00:00", Step::Day, 31);
    row("32 days by the week", "2016-01-01 00:00:00", "2016-02-01 00:00:00", Step::Week, 6);
    row("two years by the month", "2014-01-01 00:00:00", "2015-12-31 00:00:00", Step::Month, 24);
    row("31 months by the month", "2013-06-30 00:00:00", "2015-12-01 00:00:00", Step::Month, 31);
    row("32 months by the year", "2013-05-01 00:00:00", "2015-12-31 00:00:00", Step::Year, 3);
    row("events before 1970", "1969-12-31 23:59:59", "1970-01-01 00:00:00", Step::Hour, 2);
    row("a century by the decade", "1916-01-01 00:00:00", "2016-01-01 00:00:00", Step::Decade, 11);
    row("a thousand years by the century", "1016-01-01 00:00:00", "2016-01-01 00:00:00", Step::Century, 11);
    row("all years there are by the millennium", "0001-01-01 00:00:00", "9999-12-31 23:59:59",
        Step::Millennium, 10);
}

void TestAuditTrailTimeline::stepFollowsFromTheFirstAndTheLastEvent()
{
    QFETCH(QDateTime, first);
    QFETCH(QDateTime, last);
    AuditTrailTimeline timeline;
    timeline.add(first, 4096);
    timeline.add(last, 4096);
    QTEST(int(timeline.step()), "step");
    QTEST(timeline.bars().size(), "bars");
}

void TestAuditTrailTimeline::weeksBeginOnMonday()
{
    AuditTrailTimeline timeline;
    timeline.add(utc("2016-01-01 10:00:00"), 4096);
    timeline.add(utc("2016-03-31 10:00:00"), 4096);
    QCOMPARE(timeline.step(), Step::Week);
    for (const AuditTrailTimeline::Bar &bar : timeline.bars())
        QCOMPARE(bar.start.date().dayOfWeek(), int(Qt::Monday));
}

void TestAuditTrailTimeline::timesWithoutEventsHaveEmptyBars()
{
    AuditTrailTimeline timeline;
    timeline.add(utc("2016-01-01 22:10:00"), 4096);
    timeline.add(utc("2016-01-02 01:50:00"), 4096);
    QCOMPARE(starts(timeline),
             (QStringList{QStringLiteral("2016-01-01 22"), QStringLiteral("2016-01-01 23"),
                          QStringLiteral("2016-01-02 00"), QStringLiteral("2016-01-02 01")}));
    QCOMPARE(timeline.bars().at(1).counts, AuditTrailTimeline::Counts{});
}

void TestAuditTrailTimeline::categoriesAreCountedApart()
{
    AuditTrailTimeline timeline;
    const QDateTime time = utc("2016-01-01 10:00:00");
    for (const int category : {4096, 8192, 12288, 16384, 20480, 24576, 24576, 0, 28672, 4097, -4096})
        timeline.add(time, category);
    QCOMPARE(timeline.totals(), (AuditTrailTimeline::Counts{1, 1, 1, 1, 1, 2, 4}));
    QCOMPARE(timeline.total(), qint64(11));
    QCOMPARE(AuditTrailTimeline::categoryAt(0), 4096);
    QCOMPARE(AuditTrailTimeline::categoryAt(5), 24576);
    QCOMPARE(AuditTrailTimeline::categoryAt(6), -1);
}

void TestAuditTrailTimeline::orderOfTheEventsDoesNotMatter()
{
    AuditTrailTimeline timeline;
    for (const char *time : {"2016-05-01 10:00:00", "2016-01-01 10:00:00", "2016-12-31 10:00:00"})
        timeline.add(utc(time), 8192);
    QCOMPARE(timeline.bars().first().start, utc("2016-01-01 00:00:00"));
    QCOMPARE(timeline.bars().last().start, utc("2016-12-01 00:00:00"));
}

void TestAuditTrailTimeline::eventsWithoutATimeAreOnlyCounted()
{
    AuditTrailTimeline timeline;
    timeline.add(QDateTime(), 4096);
    timeline.add(QDateTime(QDate(-5, 1, 1), QTime(0, 0), Qt::UTC), 4096);
    QCOMPARE(timeline.undated(), qint64(2));
    QCOMPARE(timeline.total(), qint64(0));
    QVERIFY(timeline.bars().isEmpty());
}

void TestAuditTrailTimeline::everyEventIsInOneBar()
{
    AuditTrailTimeline timeline;
    const QDateTime begin = utc("2012-02-28 00:00:00");
    for (int i = 0; i < 5000; ++i)
        timeline.add(begin.addSecs(i * 7919LL), 4096 * (1 + i % 6));
    qint64 inBars = 0;
    for (const AuditTrailTimeline::Bar &bar : timeline.bars()) {
        for (const qint64 count : bar.counts)
            inBars += count;
    }
    QCOMPARE(inBars, qint64(5000));
    QCOMPARE(timeline.total(), qint64(5000));
}

QTEST_GUILESS_MAIN(TestAuditTrailTimeline)
#include "test_audittrailtimeline.moc"
