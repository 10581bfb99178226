#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "Corvane/views/audittrailchartdialog.h"
#include "audittrailbench.h"
#include "support/filedialogs.h"
#include "support/messageboxes.h"

#include <QAction>
#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QComboBox>
#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QImage>
#include <QProgressDialog>
#include <QPushButton>
#include <QStackedBarSeries>
#include <QTest>
#include <QValueAxis>

using namespace QtCharts;

class TestAuditTrailChart : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void chartCountsWhatTheFilterLeaves();
    void ticksAreWholeNumbers_data();
    void ticksAreWholeNumbers();
    void labelsOfAllBarsCanBeRead();
    void noEventsGiveAnEmptyChart();
    void timesThatAreNoneAreToldInTheTitle();
    void readingForTheChartIsRecorded();
    void pictureIsSavedAndRecorded();
    void pictureThatCannotBeSavedIsTold();
    void cancelledReadingShowsNoChart();
    void aLogThatCannotBeReadToItsEndIsToldAndShowsNoChart();

private:
    void openChart(const std::function<void(QDialog *)> &look);

    std::unique_ptr<AuditTrailBench> m_bench;
};

namespace {

QChart *chartOf(QDialog *dialog)
{
    return dialog->findChild<QChartView *>(QStringLiteral("audit_chart"))->chart();
}

QStringList partsOf(QChart *chart)
{
    QStringList parts;
    if (chart->series().isEmpty())
        return parts;
    for (const QBarSet *set : qobject_cast<QStackedBarSeries *>(chart->series().first())->barSets())
        parts.append(set->label());
    return parts;
}

QPushButton *saveButton(QDialog *dialog)
{
    return dialog->findChild<QPushButton *>(QStringLiteral("audit_chart_save"));
}

}  // namespace

void TestAuditTrailChart::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestAuditTrailChart::init()
{
    m_bench = std::make_unique<AuditTrailBench>();
}

void TestAuditTrailChart::cleanup()
{
    m_bench.reset();
}

void TestAuditTrailChart::openChart(const std::function<void(QDialog *)> &look)
{
    bool opened = false;
    answerNext<AuditTrailChartDialog>([&](QDialog *dialog) {
        opened = true;
        look(dialog);
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("audit_chart_close")),
                          Qt::LeftButton);
    });
    QApplication::setActiveWindow(m_bench->view());
    m_bench->table()->setFocus();
    QTest::keyClick(m_bench->table(), Qt::Key_D, Qt::ControlModifier);
    QVERIFY(opened);
}

void TestAuditTrailChart::chartCountsWhatTheFilterLeaves()
{
    m_bench->connectOffline();
    openChart([](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Audit events over time"));
        QCOMPARE(chartOf(dialog)->title(), QStringLiteral("Events by day (UTC) - 5 events"));
        QCOMPARE(partsOf(chartOf(dialog)),
                 (QStringList{QStringLiteral("Access (1)"), QStringLiteral("Database (2)"),
                              QStringLiteral("System (1)"), QStringLiteral("Error (1)")}));
        auto *axis = qobject_cast<QBarCategoryAxis *>(chartOf(dialog)->axes(Qt::Horizontal).first());
        QCOMPARE(axis->count(), 5);
        QCOMPARE(axis->at(0), QStringLiteral("01.01.2016"));
    });
    m_bench->find<QComboBox>("audit_category")->setCurrentText(QStringLiteral("Database"));
    openChart([](QDialog *dialog) {
        QCOMPARE(partsOf(chartOf(dialog)), QStringList(QStringLiteral("Database (2)")));
        QCOMPARE(chartOf(dialog)->title(), QStringLiteral("Events by hour (UTC) - 2 events"));
    });
}

void TestAuditTrailChart::ticksAreWholeNumbers_data()
{
    QTest::addColumn<int>("events");
    QTest::addColumn<double>("top");
    QTest::addColumn<int>("ticks");

    QTest::newRow("one event") << 1 << 1.0 << 2;
    QTest::newRow("six") << 6 << 6.0 << 7;
    QTest::newRow("seven") << 7 << 8.0 << 5;
    QTest::newRow("a few hundred") << 451 << 500.0 << 6;
}

void TestAuditTrailChart::ticksAreWholeNumbers()
{
    QFETCH(int, events);
    AuditTrailTimeline timeline;
    for (int i = 0; i < events; ++i)
        timeline.add(QDateTime(QDate(2016, 1, 1), QTime(10, 0), Qt::UTC), 4096);
    AuditTrailChartDialog dialog(timeline);
    const auto *axis = qobject_cast<QValueAxis *>(chartOf(&dialog)->axes(Qt::Vertical).first());
    QCOMPARE(axis->min(), 0.0);
    QTEST(axis->max(), "top");
    QTEST(axis->tickCount(), "ticks");
}

void TestAuditTrailChart::labelsOfAllBarsCanBeRead()
{
    AuditTrailTimeline timeline;
    const QDateTime begin(QDate(2016, 1, 1), QTime(10, 0), Qt::UTC);
    constexpr int hours = 31;
    for (int hour = 0; hour < hours; ++hour)
        timeline.add(begin.addSecs(3600 * hour), 8192);
    AuditTrailChartDialog dialog(timeline);
    dialog.resize(dialog.minimumSize());
    dialog.show();
    const auto readable = [&dialog] {
        int count = 0;
        for (const QGraphicsItem *item : chartOf(&dialog)->scene()->items()) {
            const auto *text = qgraphicsitem_cast<const QGraphicsTextItem *>(item);
            if (text && text->toPlainText().startsWith(QStringLiteral("0")) &&
                text->toPlainText().endsWith(QStringLiteral(":00")))
                ++count;
        }
        return count;
    };
    QTRY_COMPARE(readable(), hours);
}

void TestAuditTrailChart::noEventsGiveAnEmptyChart()
{
    m_bench->connectOffline();
    m_bench->filterBy("audit_text_5", QStringLiteral("nowhere"));
    openChart([](QDialog *dialog) {
        QVERIFY(chartOf(dialog)->series().isEmpty());
        QVERIFY(chartOf(dialog)->title().endsWith(QStringLiteral(" - 0 events")));
    });
}

void TestAuditTrailChart::timesThatAreNoneAreToldInTheTitle()
{
    makeEncryptedLog(m_bench->log());
    {
        LogMaker maker(QLatin1String(kEncryptedDriver), m_bench->log());
        QVERIFY(maker.run(QStringLiteral(
            "UPDATE action_log SET timestamp_action = 'yesterday' WHERE operator_name = 'bert'")));
        QVERIFY(
            maker.run(QStringLiteral("UPDATE action_log SET category = 'odd' WHERE operator_name = 'cleo'")));
    }
    m_bench->openView();
    m_bench->clickConnect();
    openChart([](QDialog *dialog) {
        QVERIFY(chartOf(dialog)->title().endsWith(QStringLiteral(" - 3 events, 2 more without a time")));
        QVERIFY(partsOf(chartOf(dialog)).contains(QStringLiteral("Unknown (1)")));
    });
}

void TestAuditTrailChart::readingForTheChartIsRecorded()
{
    m_bench->connectOffline();
    m_bench->actions().clear();
    openChart([](QDialog *) {});
    QCOMPARE(m_bench->actions().count(), 2);
    for (const QList<QVariant> &event : m_bench->actions())
        QCOMPARE(event.at(0).value<Actions::Action>(), Actions::SearchAuditTrail);
    QCOMPARE(m_bench->actions().last().at(5).toString(),
             QStringLiteral("SELECT timestamp_action, category FROM action_log"));
}

void TestAuditTrailChart::pictureIsSavedAndRecorded()
{
    m_bench->connectOffline();
    m_bench->actions().clear();
    const QString file = m_bench->path(QStringLiteral("chart.png"));
    openChart([&file](QDialog *dialog) {
        FileDialogs dialogs({file});
        QTest::mouseClick(saveButton(dialog), Qt::LeftButton);
        QCOMPARE(dialogs.seen().size(), 1);
    });
    const QImage picture(file);
    QVERIFY(picture.width() > 1000);
    QVERIFY(picture.height() > 600);
    const QList<QVariant> event = m_bench->actions().last();
    QCOMPARE(event.at(0).value<Actions::Action>(), Actions::Export);
    QCOMPARE(event.at(5).toMap().value(QStringLiteral("file")).toString(), file);
    QCOMPARE(event.at(5).toMap().value(QStringLiteral("rows")).toInt(), 5);
}

void TestAuditTrailChart::pictureThatCannotBeSavedIsTold()
{
    m_bench->connectOffline();
    MessageBoxes boxes;
    openChart([this](QDialog *dialog) {
        FileDialogs dialogs({m_bench->path(QStringLiteral("actionlog.db/chart.png"))});
        QTest::mouseClick(saveButton(dialog), Qt::LeftButton);
    });
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, QStringLiteral("Saving failed"));
    QCOMPARE(m_bench->errors().count(), 1);
    QCOMPARE(m_bench->errors().first().at(1).value<ZephanError>(), ZephanErrors::kExportFailed);
}

void TestAuditTrailChart::cancelledReadingShowsNoChart()
{
    {
        LogMaker maker(QLatin1String(kEncryptedDriver), m_bench->log());
        QVERIFY(maker.makeManyEvents(300000));
    }
    m_bench->openView();
    m_bench->clickConnect();
    answerNext<QProgressDialog>([](QProgressDialog *progress) {
        QTest::mouseClick(progress->findChild<QPushButton *>(), Qt::LeftButton);
    });
    bool opened = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&opened] {
        if (auto *dialog = qobject_cast<AuditTrailChartDialog *>(QApplication::activeModalWidget())) {
            opened = true;
            dialog->reject();
        }
    });
    timer.start(10);
    m_bench->find<QAction>("audit_chart")->trigger();
    QVERIFY(!opened);
}

void TestAuditTrailChart::aLogThatCannotBeReadToItsEndIsToldAndShowsNoChart()
{
    {
        LogMaker maker(QLatin1String(kEncryptedDriver), m_bench->log());
        QVERIFY(maker.makeManyEvents(60000));
    }
    m_bench->openView();
    m_bench->clickConnect();
    damagePages(m_bench->log());
    MessageBoxes boxes;
    m_bench->find<QAction>("audit_chart")->trigger();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("The audit trail could not be read to its end."));
    QVERIFY(!boxes.seen().first().informativeText.isEmpty());
}

QTEST_MAIN(TestAuditTrailChart)
#include "test_audittrailchart.moc"
