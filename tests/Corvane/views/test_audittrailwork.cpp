#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "audittrailbench.h"
#include "support/filedialogs.h"
#include "support/messageboxes.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

namespace {

constexpr int kManyEvents = 60000;
constexpr int kSomePages = 2000;  // events; the table fetches 255 or 256 at a time

QString clipboardText()
{
    return QApplication::clipboard()->text();
}

/// The fields of a CSV text without quotes in it.
QList<QByteArrayList> plainRecords(const QByteArray &csv)
{
    QList<QByteArrayList> records;
    for (const QByteArray &line : csv.split('\n')) {
        if (!line.isEmpty())
            records.append(line.chopped(1).split(','));
    }
    return records;
}

int linesOf(const QString &path)
{
    return readFile(path).count('\n');
}

}  // namespace

class TestAuditTrailWork : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void workNeedsAConnection();
    void contextMenuOffersTheWork();
    void rowsAreCopiedWithHeaders();
    void allRowsAreCopiedAlsoThoseThatTheTableHasNotFetched();
    void rowsThatAreFetchedLaterBelongToASelectionOfAllRows();
    void rowsThatAreFetchedLaterDoNotBelongToASelectionOfSome();
    void cancelledCopyingLeavesTheClipboard();
    void copyOfALogThatCannotBeReadToItsEndIsTold();
    void furtherRowsAreFetchedUnderTheWaitCursor();
    void oneCellIsCopied();
    void nothingSelectedLeavesTheClipboard();
    void csvHoldsWhatTheTableShows();
    void csvHoldsWhatTheFilterLeavesInTheTablesOrder();
    void csvOfNothingHasItsHeaders();
    void csvGetsItsEnding();
    void savingIsRecordedBesideTheReading();
    void givingUpTheFileDialogLeavesNoTrace();
    void manyEventsAreSavedWhileTheWindowLives();
    void cancelKeepsTheOldFile();
    void failuresAreToldAndKeepTheOldFile_data();
    void failuresAreToldAndKeepTheOldFile();
    void fullDiskIsToldAndKeepsTheOldFile();
    void refusedStatementIsTold();

private:
    void saveTo(const QString &file);
    void connectToManyEvents(int count = kManyEvents);
    QAction *action(const char *name) const
    {
        return m_bench->find<QAction>(name);
    }

    std::unique_ptr<AuditTrailBench> m_bench;
};

void TestAuditTrailWork::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestAuditTrailWork::init()
{
    m_bench = std::make_unique<AuditTrailBench>();
}

void TestAuditTrailWork::cleanup()
{
    m_bench.reset();
}

void TestAuditTrailWork::saveTo(const QString &file)
{
    FileDialogs dialogs({file});
    m_bench->table()->setFocus();
    QTest::keySequence(m_bench->table(), QKeySequence::Save);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().first().title, QStringLiteral("Save the audit trail"));
    QCOMPARE(dialogs.seen().first().nameFilters, QStringList(QStringLiteral("CSV (*.csv)")));
}

void TestAuditTrailWork::connectToManyEvents(int count)
{
    {
        LogMaker maker(QLatin1String(kEncryptedDriver), m_bench->log());
        QVERIFY(maker.makeManyEvents(count));
    }
    m_bench->openView();
    m_bench->clickConnect();
    QVERIFY(m_bench->rows() > 0);
}

void TestAuditTrailWork::workNeedsAConnection()
{
    makeEncryptedLog(m_bench->log());
    m_bench->openView();
    const char *const names[] = {"audit_copy_rows", "audit_copy_cell", "audit_save_csv", "audit_chart"};
    for (const char *name : names)
        QVERIFY(!action(name)->isEnabled());
    m_bench->clickConnect();
    for (const char *name : names)
        QVERIFY(action(name)->isEnabled());
    m_bench->disconnectAction()->trigger();
    for (const char *name : names)
        QVERIFY(!action(name)->isEnabled());
}

void TestAuditTrailWork::contextMenuOffersTheWork()
{
    m_bench->connectOffline();
    QStringList texts;
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [&texts, timer] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        timer->stop();
        for (const QAction *entry : menu->actions())
            texts.append(entry->isSeparator() ? QStringLiteral("-") : entry->text());
        menu->close();
    });
    timer->start(10);
    QWidget *viewport = m_bench->table()->viewport();
    QContextMenuEvent event(QContextMenuEvent::Mouse, {20, 20}, viewport->mapToGlobal({20, 20}));
    QApplication::sendEvent(viewport, &event);
    QCOMPARE(texts, (QStringList{QStringLiteral("Copy rows with headers"), QStringLiteral("Copy cell"),
                                 QStringLiteral("-"), QStringLiteral("Save as CSV..."),
                                 QStringLiteral("Show chart...")}));
}

void TestAuditTrailWork::rowsAreCopiedWithHeaders()
{
    m_bench->connectOffline();
    auto *table = m_bench->table();
    table->setFocus();
    // Selected from the bottom to the top, copied in the table's order.
    table->selectRow(3);
    table->selectionModel()->select(table->model()->index(0, 0),
                                    QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QTest::keySequence(table, QKeySequence::Copy);
    QCOMPARE(
        clipboardText(),
        QStringLiteral("Time (UTC)\tCategory\tLevel\tAction\tType\tOperator ID\tOperator username\tSystem\t"
                       "Database key\tAdditional Information\tTarget Database\tTarget Server\n"
                       "01.01.2016 10:00:00\tAccess\tHigh\tLogin\tHuman\tid-1\tanna\tWS1\tk1\tin\t\t\n"
                       "04.01.2016 10:00:00\tSystem\tLow\tStarted\tAutomatic\tid-2\tbert\tWS2\tk4\tstart"
                       "\t\t\n"));
}

void TestAuditTrailWork::allRowsAreCopiedAlsoThoseThatTheTableHasNotFetched()
{
    connectToManyEvents();
    auto *table = m_bench->table();
    table->setFocus();
    QTest::keySequence(table, QKeySequence::SelectAll);
    QVERIFY(m_bench->rows() < kManyEvents);
    m_bench->actions().clear();
    QTest::keySequence(table, QKeySequence::Copy);
    const QStringList lines = clipboardText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), kManyEvents + 1);
    QVERIFY(lines.first().startsWith(QStringLiteral("Time (UTC)\tCategory\t")));
    QVERIFY(lines.at(1).contains(m_bench->cell(0, 0) + QLatin1Char('\t') + m_bench->cell(0, 1)));
    QVERIFY(lines.last().contains(QStringLiteral("59999")) != lines.at(1).contains(QStringLiteral("59999")));
    QCOMPARE(m_bench->actions().count(), 2);  // the count and the reading
    for (const QList<QVariant> &event : m_bench->actions())
        QCOMPARE(event.at(0).value<Actions::Action>(), Actions::SearchAuditTrail);
}

void TestAuditTrailWork::rowsThatAreFetchedLaterBelongToASelectionOfAllRows()
{
    connectToManyEvents(kSomePages);
    auto *table = m_bench->table();
    table->setFocus();
    QTest::keySequence(table, QKeySequence::SelectAll);
    const int before = m_bench->rows();
    table->scrollToBottom();
    QTRY_VERIFY(m_bench->rows() > before);
    QCOMPARE(table->selectionModel()->selectedRows().size(), m_bench->rows());
    QTest::keySequence(table, QKeySequence::Copy);
    QCOMPARE(clipboardText().count(QLatin1Char('\n')), kSomePages + 1);
}

void TestAuditTrailWork::rowsThatAreFetchedLaterDoNotBelongToASelectionOfSome()
{
    connectToManyEvents(kSomePages);
    auto *table = m_bench->table();
    table->setFocus();
    table->selectRow(1);
    table->scrollToBottom();
    table->model()->fetchMore({});
    QCOMPARE(table->selectionModel()->selectedRows().size(), 1);
    QTest::keySequence(table, QKeySequence::Copy);
    QCOMPARE(clipboardText().count(QLatin1Char('\n')), 2);
}

void TestAuditTrailWork::cancelledCopyingLeavesTheClipboard()
{
    connectToManyEvents();
    QApplication::clipboard()->setText(QStringLiteral("before"));
    m_bench->table()->setFocus();
    QTest::keySequence(m_bench->table(), QKeySequence::SelectAll);
    QString label;
    answerNext<QProgressDialog>([&label](QProgressDialog *progress) {
        label = progress->labelText();
        QTest::mouseClick(progress->findChild<QPushButton *>(), Qt::LeftButton);
    });
    QTest::keySequence(m_bench->table(), QKeySequence::Copy);
    QVERIFY2(label.startsWith(QStringLiteral("Copying the audit trail: ")), qPrintable(label));
    QCOMPARE(clipboardText(), QStringLiteral("before"));
}

void TestAuditTrailWork::copyOfALogThatCannotBeReadToItsEndIsTold()
{
    connectToManyEvents();
    damagePages(m_bench->log());
    QApplication::clipboard()->setText(QStringLiteral("before"));
    m_bench->table()->setFocus();
    QTest::keySequence(m_bench->table(), QKeySequence::SelectAll);
    MessageBoxes boxes;
    QTest::keySequence(m_bench->table(), QKeySequence::Copy);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, QStringLiteral("Reading failed"));
    QCOMPARE(boxes.seen().first().text, QStringLiteral("The audit trail could not be read to its end."));
    QVERIFY(!boxes.seen().first().informativeText.isEmpty());
    QCOMPARE(boxes.seen().first().buttons, QStringList(QStringLiteral("Ok")));
    QCOMPARE(clipboardText(), QStringLiteral("before"));
}

void TestAuditTrailWork::furtherRowsAreFetchedUnderTheWaitCursor()
{
    connectToManyEvents(kSomePages);
    bool waited = false;
    connect(m_bench->table()->model(), &QAbstractItemModel::rowsAboutToBeInserted, this, [&waited] {
        const QCursor *cursor = QApplication::overrideCursor();
        waited = cursor && cursor->shape() == Qt::WaitCursor;
    });
    m_bench->table()->scrollToBottom();
    QTRY_VERIFY(waited);
    QVERIFY(!QApplication::overrideCursor());
}

void TestAuditTrailWork::oneCellIsCopied()
{
    m_bench->connectOffline();
    auto *table = m_bench->table();
    table->setFocus();
    table->setCurrentIndex(table->model()->index(1, 3));
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(clipboardText(), QStringLiteral("SaveSettings"));
}

void TestAuditTrailWork::nothingSelectedLeavesTheClipboard()
{
    m_bench->connectOffline();
    QApplication::clipboard()->setText(QStringLiteral("before"));
    m_bench->table()->clearSelection();
    m_bench->table()->setCurrentIndex({});
    action("audit_copy_rows")->trigger();
    action("audit_copy_cell")->trigger();
    QCOMPARE(clipboardText(), QStringLiteral("before"));
}

void TestAuditTrailWork::csvHoldsWhatTheTableShows()
{
    m_bench->connectOffline();
    const QString file = m_bench->path(QStringLiteral("events.csv"));
    saveTo(file);
    const QList<QByteArrayList> records = plainRecords(readFile(file));
    QCOMPARE(records.size(), 6);
    const QAbstractItemModel *model = m_bench->table()->model();
    for (int column = 0; column < 12; ++column) {
        QCOMPARE(QString::fromUtf8(records.at(0).at(column)),
                 model->headerData(column, Qt::Horizontal).toString());
        for (int row = 0; row < 5; ++row)
            QCOMPARE(QString::fromUtf8(records.at(row + 1).at(column)), m_bench->cell(row, column));
    }
}

void TestAuditTrailWork::csvHoldsWhatTheFilterLeavesInTheTablesOrder()
{
    m_bench->connectOffline();
    m_bench->find<QComboBox>("audit_category")->setCurrentText(QStringLiteral("Database"));
    m_bench->table()->horizontalHeader()->setSortIndicator(0, Qt::DescendingOrder);
    const QString file = m_bench->path(QStringLiteral("events.csv"));
    saveTo(file);
    const QList<QByteArrayList> records = plainRecords(readFile(file));
    QCOMPARE(records.size(), 3);
    QCOMPARE(records.at(1).at(3), QByteArray("LoadSettings"));
    QCOMPARE(records.at(2).at(3), QByteArray("SaveSettings"));
}

void TestAuditTrailWork::csvOfNothingHasItsHeaders()
{
    m_bench->connectOffline();
    m_bench->filterBy("audit_text_5", QStringLiteral("nowhere"));
    QTRY_COMPARE(m_bench->rows(), 0);
    const QString file = m_bench->path(QStringLiteral("events.csv"));
    saveTo(file);
    QCOMPARE(linesOf(file), 1);
    QVERIFY(readFile(file).startsWith("Time (UTC),Category,Level,"));
}

void TestAuditTrailWork::csvGetsItsEnding()
{
    m_bench->connectOffline();
    saveTo(m_bench->path(QStringLiteral("events")));
    QCOMPARE(linesOf(m_bench->path(QStringLiteral("events.csv"))), 6);
}

void TestAuditTrailWork::savingIsRecordedBesideTheReading()
{
    m_bench->connectOffline();
    m_bench->find<QComboBox>("audit_type")->setCurrentText(QStringLiteral("Automatic"));
    m_bench->actions().clear();
    const QString file = m_bench->path(QStringLiteral("events.csv"));
    saveTo(file);
    const QString statement =
        AuditTrailQueryString::statement({{AuditFilterKey::Type, 0}}, {0, Qt::AscendingOrder});
    QCOMPARE(m_bench->actions().count(), 3);
    QCOMPARE(m_bench->actions().at(0).at(0).value<Actions::Action>(), Actions::SearchAuditTrail);
    QCOMPARE(m_bench->actions().at(0).at(5).toString(),
             QStringLiteral("SELECT COUNT(*) FROM action_log WHERE (action_type LIKE 0)"));
    QCOMPARE(m_bench->actions().at(1).at(0).value<Actions::Action>(), Actions::SearchAuditTrail);
    QCOMPARE(m_bench->actions().at(1).at(5).toString(), statement);
    const QList<QVariant> event = m_bench->actions().at(2);
    QCOMPARE(event.at(0).value<Actions::Action>(), Actions::Export);
    QCOMPARE(event.at(1).value<Actions::ActionType>(), Actions::Human);
    QVERIFY(event.at(2).value<UuidString>().isNull());
    QCOMPARE(event.at(3).toString(), QStringLiteral("actiondb"));
    QCOMPARE(event.at(4).toString(), m_bench->log());
    QCOMPARE(event.at(5).toMap(), (QVariantMap{{QStringLiteral("file"), file},
                                               {QStringLiteral("rows"), 3},
                                               {QStringLiteral("statement"), statement}}));
    QCOMPARE(m_bench->errors().count(), 0);
}

void TestAuditTrailWork::givingUpTheFileDialogLeavesNoTrace()
{
    m_bench->connectOffline();
    m_bench->actions().clear();
    saveTo(QString());
    QCOMPARE(m_bench->actions().count(), 0);
}

void TestAuditTrailWork::manyEventsAreSavedWhileTheWindowLives()
{
    connectToManyEvents();
    int ticks = 0;
    QString label;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (auto *progress = m_bench->find<QProgressDialog>("audit_progress");
            progress && progress->isVisible()) {
            ++ticks;
            label = progress->labelText();
        }
    });
    timer.start(1);
    const QString file = m_bench->path(QStringLiteral("events.csv"));
    saveTo(file);
    QVERIFY(ticks > 2);
    QVERIFY2(label.startsWith(QStringLiteral("Saving the audit trail: ")), qPrintable(label));
    QVERIFY2(label.endsWith(QStringLiteral(" of %1 rows").arg(QLocale().toString(kManyEvents))),
             qPrintable(label));
    QCOMPARE(linesOf(file), kManyEvents + 1);
    QVERIFY(readFile(file).contains(",\"Event, \"\"number\"\" 59999\","));
    QCOMPARE(m_bench->actions().last().at(5).toMap().value(QStringLiteral("rows")).toInt(), kManyEvents);
}

void TestAuditTrailWork::cancelKeepsTheOldFile()
{
    connectToManyEvents();
    const QString file = m_bench->path(QStringLiteral("events.csv"));
    QVERIFY(writeFile(file, "old"));
    m_bench->actions().clear();
    const MessageBoxes boxes({QStringLiteral("Yes")});  // the file dialog asks about the old file
    answerNext<QProgressDialog>([](QProgressDialog *progress) {
        QTest::mouseClick(progress->findChild<QPushButton *>(), Qt::LeftButton);
    });
    saveTo(file);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(readFile(file), QByteArray("old"));
    QCOMPARE(QFileInfo(file).dir().entryList({QStringLiteral("events*")}, QDir::Files).size(), 1);
    for (const QList<QVariant> &event : m_bench->actions())
        QCOMPARE(event.at(0).value<Actions::Action>(), Actions::SearchAuditTrail);
    QCOMPARE(m_bench->errors().count(), 0);
}

void TestAuditTrailWork::failuresAreToldAndKeepTheOldFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a folder that is not there") << QStringLiteral("nowhere/events.csv");
    QTest::newRow("a file in the place of the folder") << QStringLiteral("actionlog.db/events.csv");
}

void TestAuditTrailWork::failuresAreToldAndKeepTheOldFile()
{
    QFETCH(QString, name);
    m_bench->connectOffline();
    m_bench->actions().clear();
    const QString file = m_bench->path(name);
    const QByteArray log = readFile(m_bench->log());
    MessageBoxes boxes;
    saveTo(file);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, QStringLiteral("Saving failed"));
    QVERIFY(boxes.seen().first().text.startsWith(QStringLiteral("The file ")));
    QVERIFY(boxes.seen().first().text.endsWith(QStringLiteral(" could not be saved.")));
    QVERIFY(!boxes.seen().first().informativeText.isEmpty());
    QCOMPARE(boxes.seen().first().buttons, QStringList(QStringLiteral("Ok")));
    QCOMPARE(m_bench->errors().count(), 1);
    QCOMPARE(m_bench->errors().first().at(0).value<Actions::Action>(), Actions::Export);
    QCOMPARE(m_bench->errors().first().at(1).value<ZephanError>(), ZephanErrors::kExportFailed);
    QCOMPARE(readFile(m_bench->log()), log);
    for (const QList<QVariant> &event : m_bench->actions())
        QCOMPARE(event.at(0).value<Actions::Action>(), Actions::SearchAuditTrail);
}

void TestAuditTrailWork::fullDiskIsToldAndKeepsTheOldFile()
{
#ifdef Q_OS_UNIX
    connectToManyEvents();
    const QString file = m_bench->path(QStringLiteral("events.csv"));
    QVERIFY(writeFile(file, "old"));
    MessageBoxes boxes({QStringLiteral("Yes")});
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit = {100000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    saveTo(file);
    setrlimit(RLIMIT_FSIZE, &before);
    QCOMPARE(boxes.seen().size(), 2);
    QCOMPARE(boxes.seen().last().title, QStringLiteral("Saving failed"));
    QCOMPARE(readFile(file), QByteArray("old"));
    QCOMPARE(QFileInfo(file).dir().entryList({QStringLiteral("events*")}, QDir::Files).size(), 1);
    QCOMPARE(m_bench->errors().count(), 1);
#else
    QSKIP("Needs a limit for the size of files");
#endif
}

void TestAuditTrailWork::refusedStatementIsTold()
{
    m_bench->connectOffline();
    m_bench->filterBy("audit_text_5", QStringLiteral("o'"));
    QTRY_COMPARE(m_bench->rows(), 0);
    const QString file = m_bench->path(QStringLiteral("events.csv"));
    MessageBoxes boxes;
    saveTo(file);
    QCOMPARE(boxes.seen().size(), 1);
    QVERIFY(!QFileInfo::exists(file));
    QCOMPARE(m_bench->errors().count(), 1);
}

QTEST_MAIN(TestAuditTrailWork)
#include "test_audittrailwork.moc"
