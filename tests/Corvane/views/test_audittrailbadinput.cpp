#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "ZephanShared/widgets/logindialog.h"
#include "audittrailbench.h"
#include "support/messageboxes.h"

#include <QComboBox>
#include <QDir>
#include <QHeaderView>
#include <QLineEdit>
#include <QSqlQuery>
#include <QTest>

namespace {

const QString kFailure = QStringLiteral("Connection failed\nError code: 338690048");

/// The bytes of a sound encrypted log of some pages.
QByteArray soundLog(const QString &path)
{
    {
        LogMaker maker(QLatin1String(kEncryptedDriver), path);
        maker.makeManyEvents(500);
    }
    const QByteArray bytes = readFile(path);
    QFile::remove(path);
    return bytes;
}

}  // namespace

/// What nobody should type, write or do, and what comes of it.
class TestAuditTrailBadInput : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void filterTexts_data();
    void filterTexts();
    void aStatementInAFilterChangesNothing();
    void oddValuesInRows_data();
    void oddValuesInRows();
    void filesThatAreNoLog_data();
    void filesThatAreNoLog();
    void aLogOfAnotherKeyIsTold();
    void aLogDamagedInTheMiddleShowsWhatCanBeRead();
    void aDirectoryInThePlaceOfTheLogIsTold();
    void aLogThatVanishesWhileItIsOpenIsMissedAtTheNextConnection();
    void anOnlineTableThatIsDroppedLeavesAnEmptyTable();
    void anOnlineDatabaseWithoutTheTableIsTold();

private:
    void connectOnline();
    void expectFailure();

    std::unique_ptr<AuditTrailBench> m_bench;
};

void TestAuditTrailBadInput::init()
{
    m_bench = std::make_unique<AuditTrailBench>();
}

void TestAuditTrailBadInput::cleanup()
{
    m_bench.reset();
}

void TestAuditTrailBadInput::connectOnline()
{
    answerNext<LoginDialog>([](QDialog *dialog) {
        const auto fields = dialog->findChildren<QLineEdit *>();
        fields.at(0)->setText(QStringLiteral("auditor"));
        fields.at(1)->setText(QStringLiteral("secret"));
        dialog->accept();
    });
    m_bench->clickConnect();
}

/// The box with its two buttons, the record of the error, and no connection.
void TestAuditTrailBadInput::expectFailure()
{
    MessageBoxes boxes({QStringLiteral("No")});
    m_bench->clickConnect();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, kFailure);
    QCOMPARE(m_bench->errors().count(), 1);
    QCOMPARE(m_bench->errors().first().at(1).value<ZephanError>(), ZephanErrors::kAuditDatabaseNotOpened);
    QCOMPARE(m_bench->rows(), -1);
    QVERIFY(!m_bench->disconnectAction()->isEnabled());
    QCOMPARE(m_bench->actions().count(), 0);
}

void TestAuditTrailBadInput::filterTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("clause");

    const auto row = [](const char *name, const QString &text, int rows, const QString &clause) {
        QTest::newRow(name) << text << rows << clause;
    };
    row("a quote is not escaped, and refused", QStringLiteral("W'"), 0,
        QStringLiteral("(system LIKE 'W'%')"));
    row("two quotes are one", QStringLiteral("W''"), 0, QStringLiteral("(system LIKE 'W''%')"));
    row("% stands for any text", QStringLiteral("%3"), 1, QStringLiteral("(system LIKE '%3%')"));
    row("_ stands for any character", QStringLiteral("_S2"), 2, QStringLiteral("(system LIKE '_S2%')"));
    row("a blank alone is an empty term, which fits all", QStringLiteral(" "), 5,
        QStringLiteral("(system LIKE '%')"));
    row("only commas give an invalid statement", QStringLiteral(",,,"), 0,
        QStringLiteral("FROM action_log WHE) ORDER BY timestamp_action ASC;"));
    row("100,000 letters are too many for the database", QString(100000, QLatin1Char('a')), 0,
        QString(100000, QLatin1Char('a')) + QStringLiteral("%')"));
    row("2,000 terms are too many for the database", QStringLiteral("x,").repeated(2000), 0,
        QStringLiteral("system LIKE 'x%' OR system LIKE 'x%'"));
}

void TestAuditTrailBadInput::filterTexts()
{
    QFETCH(QString, text);
    QFETCH(int, rows);
    QFETCH(QString, clause);
    m_bench->connectOffline();
    const MessageBoxes boxes;
    m_bench->find<QLineEdit>("audit_text_5")->setMaxLength(200000);
    m_bench->actions().clear();
    m_bench->filterBy("audit_text_5", text);
    QCOMPARE(m_bench->rows(), rows);
    QCOMPARE(m_bench->actions().count(), 1);
    const QString statement = m_bench->actions().first().at(5).toString();
    QVERIFY2(statement.contains(clause), qPrintable(statement.left(1000)));
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(m_bench->errors().count(), 0);

    m_bench->filterBy("audit_text_5", QString());
    QCOMPARE(m_bench->rows(), 5);
}

void TestAuditTrailBadInput::aStatementInAFilterChangesNothing()
{
    m_bench->connectOffline();
    m_bench->filterBy("audit_text_5", QStringLiteral("x'); DELETE FROM action_log; --"));
    m_bench->filterBy("audit_text_5", QString());
    QCOMPARE(m_bench->rows(), 5);
}

void TestAuditTrailBadInput::oddValuesInRows_data()
{
    QTest::addColumn<QString>("assignment");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("shown");

    const auto row = [](const char *name, const char *assignment, int column, const char *shown) {
        QTest::newRow(name) << QString::fromLatin1(assignment) << column << QString::fromUtf8(shown);
    };
    row("a text for a category stands as it is", "category = 'odd'", 1, "odd");
    row("a number in a text is a number", "category = '4096'", 1, "Access");
    row("a category that is none", "category = 4097", 1, "Unknown");
    row("a negative level", "action_level = -256", 2, "Unknown");
    row("a text for an action", "action = 'Login'", 3, "Login");
    row("an empty text for an action", "action = ''", 3, "");
    row("the action 0", "action = 0", 3, "Unknown");
    row("an action between two families", "action = 4866", 3, "Unknown");
    row("a number beyond 32 bits", "action = 4294972160", 3, "Unknown");
    row("a third type", "action_type = 2", 4, "Unknown");
    row("no operator", "operator = NULL", 5, "");
    row("a time that is none is empty", "timestamp_action = 'yesterday'", 0, "");
    row("a day that is none is empty", "timestamp_action = '2016-02-31 10:00:00'", 0, "");
    row("no time", "timestamp_action = NULL", 0, "");
    row("a day without a time is its midnight", "timestamp_action = '2016-02-01'", 0, "01.02.2016 00:00:00");
    row("markup is no markup", "info = '<b>x</b>'", 9, "<b>x</b>");
}

void TestAuditTrailBadInput::oddValuesInRows()
{
    QFETCH(QString, assignment);
    QFETCH(int, column);
    makeEncryptedLog(m_bench->log());
    {
        LogMaker maker(QLatin1String(kEncryptedDriver), m_bench->log());
        QVERIFY(maker.run(QStringLiteral("UPDATE action_log SET %1 WHERE info = 'in'").arg(assignment)));
    }
    m_bench->openView();
    m_bench->clickConnect();
    QCOMPARE(m_bench->rows(), 5);
    m_bench->filterBy("audit_text_8", QStringLiteral("k1"));
    QCOMPARE(m_bench->rows(), 1);
    QTEST(m_bench->cell(0, column), "shown");
}

void TestAuditTrailBadInput::filesThatAreNoLog_data()
{
    QTest::addColumn<int>("length");  // of a sound log; below 0 for another file
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("cut inside the salt") << 10 << QByteArray();
    QTest::newRow("cut inside the first page") << 500 << QByteArray();
    QTest::newRow("cut in the middle") << 30000 << QByteArray();
    QTest::newRow("a text") << -1 << QByteArray("time;user;action\n").repeated(300);
    QTest::newRow("a plain SQLite header")
        << -1 << (QByteArray("SQLite format 3\0", 16) + QByteArray(4080, '\0'));
    QTest::newRow("random bytes") << -1 << QByteArray("\x01\x7f\x80\xff\x33").repeated(4096);
}

void TestAuditTrailBadInput::filesThatAreNoLog()
{
    QFETCH(int, length);
    QFETCH(QByteArray, bytes);
    if (length >= 0)
        bytes = soundLog(m_bench->log()).left(length);
    QVERIFY(writeFile(m_bench->log(), bytes));
    m_bench->openView();
    expectFailure();
    QCOMPARE(readFile(m_bench->log()), bytes);
}

void TestAuditTrailBadInput::aLogOfAnotherKeyIsTold()
{
    makeEncryptedLog(m_bench->log());
    {
        LogMaker maker(QLatin1String(kEncryptedDriver), m_bench->log());
        QVERIFY(maker.run(QStringLiteral("PRAGMA rekey = 'another key'")));
    }
    const QByteArray bytes = readFile(m_bench->log());
    m_bench->openView();
    expectFailure();
    QCOMPARE(readFile(m_bench->log()), bytes);
}

void TestAuditTrailBadInput::aLogDamagedInTheMiddleShowsWhatCanBeRead()
{
    QByteArray bytes = soundLog(m_bench->log());
    bytes.replace(bytes.size() / 2, 4096, QByteArray(4096, 'x'));
    QVERIFY(writeFile(m_bench->log(), bytes));
    m_bench->openView();
    MessageBoxes boxes({QStringLiteral("No")});
    m_bench->clickConnect();
    m_bench->table()->horizontalHeader()->setSortIndicator(12, Qt::AscendingOrder);
    while (m_bench->table()->model()->canFetchMore({}))
        m_bench->table()->model()->fetchMore({});
    QVERIFY(m_bench->rows() > 0);
    QVERIFY(m_bench->rows() < 500);
    QVERIFY(boxes.seen().isEmpty());
    QVERIFY(m_bench->disconnectAction()->isEnabled());
}

void TestAuditTrailBadInput::aDirectoryInThePlaceOfTheLogIsTold()
{
    QVERIFY(QDir().mkpath(m_bench->log()));
    m_bench->openView();
    expectFailure();
}

void TestAuditTrailBadInput::aLogThatVanishesWhileItIsOpenIsMissedAtTheNextConnection()
{
    m_bench->connectOffline();
    {
        const MessageBoxes boxes;
        QVERIFY(QFile::remove(m_bench->log()));
        m_bench->find<QComboBox>("audit_type")->setCurrentText(QStringLiteral("Human"));
        QVERIFY(m_bench->rows() >= 0);
        QVERIFY(boxes.seen().isEmpty());
    }
    m_bench->disconnectAction()->trigger();
    m_bench->actions().clear();
    expectFailure();
    QVERIFY(!QFile::exists(m_bench->log()));
}

void TestAuditTrailBadInput::anOnlineTableThatIsDroppedLeavesAnEmptyTable()
{
    const QString path = m_bench->path(QStringLiteral("online.db"));
    const QString odbc = QStringLiteral("Driver=SQLite3;Database=") + path;
    makeOdbcLog(path);
    m_bench->useOnline(path);
    m_bench->openView();
    connectOnline();
    QCOMPARE(m_bench->rows(), 5);
    const MessageBoxes boxes;
    {
        LogMaker administrator(QStringLiteral("QODBC3"), odbc);
        QVERIFY(administrator.run(QStringLiteral("DROP TABLE action_log")));
    }
    m_bench->find<QComboBox>("audit_type")->setCurrentText(QStringLiteral("Human"));
    QCOMPARE(m_bench->rows(), 0);
    QVERIFY(m_bench->disconnectAction()->isEnabled());
    {
        LogMaker administrator(QStringLiteral("QODBC3"), odbc);
        QVERIFY(administrator.makeEvents());
    }
    m_bench->find<QComboBox>("audit_type")->setCurrentText(QStringLiteral("Automatic"));
    QCOMPARE(m_bench->rows(), 3);
    QVERIFY(boxes.seen().isEmpty());
    QCOMPARE(m_bench->errors().count(), 0);
}

void TestAuditTrailBadInput::anOnlineDatabaseWithoutTheTableIsTold()
{
    const QString path = m_bench->path(QStringLiteral("online.db"));
    {
        LogMaker maker(QStringLiteral("QODBC3"), QStringLiteral("Driver=SQLite3;Database=") + path);
        QVERIFY(maker.run(QStringLiteral("CREATE TABLE hash (hash TEXT)")));
    }
    m_bench->useOnline(path);
    m_bench->openView();
    MessageBoxes boxes({QStringLiteral("No")});
    connectOnline();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, kFailure);
    QVERIFY(!QSqlDatabase::contains(QStringLiteral("actionlog.actionviewer")));
}

QTEST_MAIN(TestAuditTrailBadInput)
#include "test_audittrailbadinput.moc"
