#include "Corvane/accesscontrol/accesscontroloffline.h"
#include "Corvane/accesscontrol/handlerfixture.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSemaphore>
#include <QSqlQuery>
#include <QTcpServer>
#include <QTest>
#include <QThread>
#include <QVBoxLayout>

#include <atomic>
#include <memory>

namespace {

/// Accepts a connection on a thread of its own and never answers. It sees which cursor is shown meanwhile.
class SilentServer
{
public:
    SilentServer()
    {
        m_thread.reset(QThread::create([this] { listen(); }));
        m_thread->start();
        m_listening.acquire();
    }
    ~SilentServer()
    {
        m_done.release();
        m_thread->wait();
    }
    Q_DISABLE_COPY(SilentServer)

    QVariantMap parameters(const QString &driver) const
    {
        return {{text("Driver"), driver},
                {text("Server"), text("127.0.0.1")},
                {text("Port"), QString::number(m_port)},
                {text("Database"), text("access")}};
    }
    /// The cursor over all windows when the first connection came; -1 for none.
    int shapeWhenAsked() const
    {
        return m_shape;
    }

private:
    void listen()
    {
        constexpr int kPatience = 10;  // milliseconds
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        m_port = server.serverPort();
        m_listening.release();
        bool asked = false;
        while (!m_done.tryAcquire()) {
            if (!server.waitForNewConnection(kPatience) || asked)
                continue;
            asked = true;
            const QCursor *cursor = QGuiApplication::overrideCursor();
            m_shape = cursor ? int(cursor->shape()) : -1;
        }
    }

    std::unique_ptr<QThread> m_thread;
    QSemaphore m_listening;
    QSemaphore m_done;
    std::atomic<int> m_port{0};
    std::atomic<int> m_shape{-1};
};

}  // namespace

/// The access connection itself: opened, lost and shown.
class TestSupportConnectionHandler : public HandlerFixture
{
    Q_OBJECT

private slots:
    void anEmptyMapOfParametersFailsWithNothingInTheText();
    void aCompleteDatabaseConnects();
    void aDatabaseWithoutATableFailsWithAnEmptyErrorText_data();
    void aDatabaseWithoutATableFailsWithAnEmptyErrorText();
    void badConnectionLinesFail_data();
    void badConnectionLinesFail();
    void unknownKeywordsAndOptionsDoNoHarm();
    void aPasswordAmongTheParametersStaysOutOfTheAuditTrail();
    void connectingAgainReplacesTheConnection();
    void closingForgetsTheConnection();
    void aSilentServerBlocksNoLongerThanTheOptionsSay_data();
    void aSilentServerBlocksNoLongerThanTheOptionsSay();
    void theWaitCursorIsShownWhileAServerIsAsked();
    void everyLoggedFailureDropsTheConnection();
    void afterAFailedStatementTheNextConnectsWithTheCredentialsInMemory_data();
    void afterAFailedStatementTheNextConnectsWithTheCredentialsInMemory();
    void transactionsNeedAConnection();
    void transactionsAreKeptOrTakenBack();
    void aTransactionThatFailsIsLoggedAndDropsTheConnection();
    void rowsFollowTheConnection();
    void rowsFollowTheLanguage();
    void aRowMayGoWithItsView();
    void theStateFitsItsLabelInLongLanguages();
};

void TestSupportConnectionHandler::anEmptyMapOfParametersFailsWithNothingInTheText()
{
    makeHandler();
    QVERIFY(!m_handler->connectOnline());
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(errors().size(), 1);
    QVERIFY2(errors().first().startsWith(text("5102 16300001: Database:  ErrorInfo: ")),
             qPrintable(errors().first()));
    QCOMPARE(events(), QList<Event>{stopping(kOnlineName, QString())});
    QCOMPARE(m_reconnected->size(), 1);
}

void TestSupportConnectionHandler::aCompleteDatabaseConnects()
{
    const QString file = makeDatabase(text("complete"));
    writeLocalCache(sqlite(file));
    makeHandler();
    QSqlDatabase *address = m_handler->database();
    QVERIFY(m_handler->connectOnline());
    QVERIFY(m_handler->isConnected());
    QCOMPARE(m_handler->database(), address);
    QCOMPARE(address->connectionName(), kOnlineName);
    QCOMPARE(address->driverName(), text("QODBC3"));
    QCOMPARE(address->databaseName(), sqliteName(file));
    QCOMPARE(address->connectOptions(), kDefaultOptions.join(QLatin1Char(';')));
    QCOMPARE(events(), QList<Event>{started(sqliteName(file))});
    QVERIFY(errors().isEmpty());
    QCOMPARE(m_reconnected->size(), 0);
}

void TestSupportConnectionHandler::aDatabaseWithoutATableFailsWithAnEmptyErrorText_data()
{
    QTest::addColumn<QStringList>("missing");
    QTest::addColumn<QStringList>("statements");
    const QStringList tables = AccessControlOffline::offlineTableStatements().keys();
    for (const QString &table : tables)
        QTest::newRow(qPrintable(text("without ") + table)) << QStringList{table} << QStringList();
    QTest::newRow("with all tables missing") << tables << QStringList();
    QTest::newRow("with a table of another case")
        << QStringList{text("roles")} << QStringList{text("CREATE TABLE Roles (role_id INTEGER)")};
    QTest::newRow("with a view in place of a table")
        << QStringList{text("roles")} << QStringList{text("CREATE VIEW roles AS SELECT 1")};
}

void TestSupportConnectionHandler::aDatabaseWithoutATableFailsWithAnEmptyErrorText()
{
    QFETCH(QStringList, missing);
    QFETCH(QStringList, statements);
    const QString file = makeDatabase(text("missing"), missing, statements);
    writeLocalCache(sqlite(file));
    makeHandler();
    QVERIFY(!m_handler->connectOnline());
    QVERIFY(!m_handler->isConnected());
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
    QCOMPARE(errors().size(), 1);
    QCOMPARE(errors().first().trimmed(),
             QStringLiteral("5102 16300001: Database: %1 ErrorInfo:").arg(sqliteName(file)));
}

void TestSupportConnectionHandler::badConnectionLinesFail_data()
{
    QTest::addColumn<QVariantMap>("params");
    QTest::addColumn<QString>("shown");

    QTest::newRow("an unknown driver")
        << QVariantMap{{text("Driver"), text("No such driver")}} << text("Driver=No such driver");
    QTest::newRow("no driver") << QVariantMap{{text("Database"), text("x")}} << text("Database=x");
    QTest::newRow("an empty name") << QVariantMap{{QString(), text("1")}} << text("=1");
    QTest::newRow("a value of separators")
        << QVariantMap{{text("Driver"), text("a;b=c;;")}} << text("Driver=a;b=c;;");
    QTest::newRow("only blanks") << QVariantMap{{text("  "), text("  ")}} << text("  =  ");
    QTest::newRow("quotes and braces")
        << QVariantMap{{text("Driver"), text("{'\"}}")}} << text("Driver={'\"}}");
    QTest::newRow("percent signs do not shift the text")
        << QVariantMap{{text("A"), text("%1%2")}} << text("A=%1%2");
    QTest::newRow("many scripts") << QVariantMap{{text("Driver"), QString::fromUtf8("Ähtäri Ελλάς ไทย 中文")}}
                                  << QString::fromUtf8("Driver=Ähtäri Ελλάς ไทย 中文");
    QTest::newRow("a very long value") << QVariantMap{{text("Driver"), QString(5000, QLatin1Char('x'))}}
                                       << text("Driver=") + QString(5000, QLatin1Char('x'));
    QTest::newRow("a folder that is not there")
        << sqlite(text("/nowhere/at/all.db")) << sqliteName(text("/nowhere/at/all.db"));
}

void TestSupportConnectionHandler::badConnectionLinesFail()
{
    QFETCH(QVariantMap, params);
    QFETCH(QString, shown);
    writeLocalCache(params);
    makeHandler();
    QVERIFY(!m_handler->connectOnline());
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(errors().size(), 1);
    QVERIFY2(
        errors().first().startsWith(QStringLiteral("5102 16300001: Database: %1 ErrorInfo: ").arg(shown)),
        qPrintable(errors().first()));
}

void TestSupportConnectionHandler::unknownKeywordsAndOptionsDoNoHarm()
{
    QVariantMap params = sqlite(makeDatabase(text("unknown")));
    params.insert(text("Colour"), text("blue"));
    params.insert(text("Wrong keyword"), text("  "));
    writeLocalCache(params,
                    {text("SQL_ATTR_COLOUR=2"), text("SQL_ATTR_LOGIN_TIMEOUT"), text("=;"), text(" ")});
    makeHandler();
    QVERIFY(m_handler->connectOnline());
}

void TestSupportConnectionHandler::aPasswordAmongTheParametersStaysOutOfTheAuditTrail()
{
    const QString file = makeDatabase(text("inline"));
    QVariantMap params = sqlite(file);
    params.insert(text("Pwd"), text("kolme-sanaa"));
    params.insert(text("password"), text("toinen"));
    writeLocalCache(params);
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    const QString shown = sqliteName(file) + text(";Pwd=*****;password=*****");
    m_handler->closeConnection();
    QCOMPARE(events(), (QList<Event>{started(shown), stopping(kOnlineName, shown)}));
    QVERIFY(QFile::remove(file));
    QVERIFY(!m_handler->connectOnline());
    QVERIFY2(errors().first().contains(shown), qPrintable(errors().first()));
    QVERIFY(!errors().first().contains(text("kolme-sanaa")));
}

void TestSupportConnectionHandler::connectingAgainReplacesTheConnection()
{
    const QString name = sqliteName(makeDatabase(text("again")));
    writeLocalCache(sqlite(database(text("again"))));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(events(), (QList<Event>{started(name), stopping(kOnlineName, name), started(name)}));
}

void TestSupportConnectionHandler::closingForgetsTheConnection()
{
    const QString name = sqliteName(makeDatabase(text("closed")));
    writeLocalCache(sqlite(database(text("closed"))));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    m_handler->closeConnection();
    QVERIFY(!m_handler->isConnected());
    QVERIFY(!m_handler->database()->isValid());
    QVERIFY(!QSqlDatabase::contains(kOnlineName));
    QCOMPARE(events().last(), stopping(kOnlineName, name));
    QCOMPARE(m_reconnected->size(), 0);
}

void TestSupportConnectionHandler::aSilentServerBlocksNoLongerThanTheOptionsSay_data()
{
    QTest::addColumn<QString>("driver");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("seconds");

    const QStringList longer{text("SQL_ATTR_LOGIN_TIMEOUT=3"), text("SQL_ATTR_CONNECTION_TIMEOUT=1")};
    const QStringList shorter{text("SQL_ATTR_CONNECTION_TIMEOUT=3"), text("SQL_ATTR_LOGIN_TIMEOUT=1")};
    QTest::newRow("two seconds by the default options, MariaDB")
        << text("MariaDB Unicode") << kDefaultOptions << 2;
    QTest::newRow("two seconds by the default options, PostgreSQL")
        << text("PostgreSQL Unicode") << kDefaultOptions << 2;
    QTest::newRow("one second of the login, whatever an answer may take, MariaDB")
        << text("MariaDB Unicode") << shorter << 1;
    QTest::newRow("three seconds of the login, whatever an answer may take, PostgreSQL")
        << text("PostgreSQL Unicode") << longer << 3;
}

void TestSupportConnectionHandler::aSilentServerBlocksNoLongerThanTheOptionsSay()
{
    QFETCH(QString, driver);
    QFETCH(QStringList, options);
    QFETCH(int, seconds);
    constexpr int kTolerance = 900;  // milliseconds, less than one second of an option
    SilentServer silent;
    writeLocalCache(silent.parameters(driver), options);
    makeHandler();
    QElapsedTimer time;
    time.start();
    QVERIFY(!m_handler->connectOnline());
    if (errors().first().contains(text("file not found")))
        QSKIP(qPrintable(text("The ODBC driver is not installed: ") + driver));
    const qint64 taken = time.elapsed();
    QVERIFY2(qAbs(taken - seconds * 1000) < kTolerance, qPrintable(QString::number(taken)));
    QVERIFY(!errors().first().contains(text("TIMEOUT")));
    QVERIFY(!errors().first().contains(text("pqopt")));
}

void TestSupportConnectionHandler::theWaitCursorIsShownWhileAServerIsAsked()
{
    SilentServer silent;
    writeLocalCache(silent.parameters(text("MariaDB Unicode")), {text("SQL_ATTR_LOGIN_TIMEOUT=1")});
    makeHandler();
    QVERIFY(!m_handler->connectOnline());
    if (errors().first().contains(text("file not found")))
        QSKIP("MariaDB's ODBC driver is not installed");
    QCOMPARE(silent.shapeWhenAsked(), int(Qt::WaitCursor));
    QVERIFY(!QApplication::overrideCursor());
}

void TestSupportConnectionHandler::everyLoggedFailureDropsTheConnection()
{
    const QString name = sqliteName(makeDatabase(text("failure")));
    writeLocalCache(sqlite(database(text("failure"))));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    emit m_handler->logError(Actions::AddOperator, ZephanErrors::kStatementFailed,
                             text("User from access.supportdb"));
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(m_reconnected->size(), 1);
    QCOMPARE(events().last(), stopping(kOnlineName, name));
}

void TestSupportConnectionHandler::afterAFailedStatementTheNextConnectsWithTheCredentialsInMemory_data()
{
    QTest::addColumn<bool>("offline");
    QTest::newRow("to the online database that it failed on") << false;
    QTest::newRow("to the online database, from the offline file") << true;
}

void TestSupportConnectionHandler::afterAFailedStatementTheNextConnectsWithTheCredentialsInMemory()
{
    QFETCH(bool, offline);
    const QString file = makeDatabase(text("reconnect"));
    writeLocalCache(sqlite(file));
    makeHandler();
    m_handler->setOfflineAllowed(true);
    DialogSteps steps({[&](QDialog &dialog) {
        find<QLineEdit>(dialog, "username_edit")->setText(text("marjatta"));
        find<QLineEdit>(dialog, "password_edit")->setText(text("kolme-sanaa"));
        pressConnect(dialog);
    }});
    m_handler->connectionOptions();
    if (offline) {
        DialogSteps more({chooseOffline(m_workstation.path(text("reconnect"))), pressConnect});
        m_handler->connectionOptions();
        QCOMPARE(m_handler->database()->connectionName(), kOfflineName);
    }
    // A trigger refuses this one role, so that the statement fails and the database stays complete.
    QVERIFY(QSqlQuery(*m_handler->database())
                .exec(text("CREATE TRIGGER refusal BEFORE INSERT ON roles WHEN NEW.title = 'Refused' "
                           "BEGIN SELECT RAISE(ABORT, 'refused'); END")));
    const auto role = [](const QString &title) {
        return QSharedPointer<AccessRoleModelData>::create(0u, title, 1);
    };
    QVERIFY(!m_handler->saveRole(role(text("Refused"))));
    QCOMPARE(errors().size(), 1);
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(events().last().key, offline ? kOfflineName : kOnlineName);

    QVERIFY(m_handler->saveRole(role(text("Taken"))));
    QCOMPARE(m_handler->database()->connectionName(), kOnlineName);
    QCOMPARE(m_handler->database()->databaseName(), sqliteName(file));
    QCOMPARE(m_handler->database()->userName(), text("marjatta"));
    QCOMPARE(errors().size(), 1);
}

void TestSupportConnectionHandler::transactionsNeedAConnection()
{
    makeHandler();
    QVERIFY(!m_handler->beginTransaction());
    QVERIFY(!m_handler->commitTransaction());
    QVERIFY(!m_handler->rollbackTransaction());
    QVERIFY(errors().isEmpty());
}

void TestSupportConnectionHandler::transactionsAreKeptOrTakenBack()
{
    writeLocalCache(sqlite(makeDatabase(text("transaction"))));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    const auto add = [this](const QString &id) {
        QSqlQuery query(*m_handler->database());
        query.prepare(text("INSERT INTO organization (id, name) VALUES (?, ?)"));
        query.addBindValue(id);
        query.addBindValue(id);
        return query.exec();
    };
    const auto count = [this] {
        QSqlQuery query(text("SELECT count(*) FROM organization"), *m_handler->database());
        return query.next() ? query.value(0).toInt() : -1;
    };
    QVERIFY(m_handler->beginTransaction());
    QVERIFY(add(text("1")));
    QVERIFY(m_handler->commitTransaction());
    QCOMPARE(count(), 1);
    QVERIFY(m_handler->beginTransaction());
    QVERIFY(add(text("2")));
    QVERIFY(m_handler->rollbackTransaction());
    QCOMPARE(count(), 1);
    QVERIFY(errors().isEmpty());
}

void TestSupportConnectionHandler::aTransactionThatFailsIsLoggedAndDropsTheConnection()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    DialogSteps steps({chooseOffline(m_workstation.path(text("transactions"))), pressConnect});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    QVERIFY(!m_handler->rollbackTransaction());
    QCOMPARE(errors(), QStringList{text("2224 16300002: Transaction rollback failed in access.supportdb")});
    QVERIFY(!m_handler->isConnected());

    DialogSteps again({pressConnect});
    m_handler->connectionOptions();
    QVERIFY(!m_handler->commitTransaction());
    QCOMPARE(errors().last(), text("2224 16300002: Transaction commit failed in access.supportdb"));

    DialogSteps third({pressConnect});
    m_handler->connectionOptions();
    QVERIFY(m_handler->beginTransaction());
    QVERIFY(!m_handler->beginTransaction());
    QCOMPARE(errors().last(), text("2224 16300002: Transaction begin failed in access.supportdb"));
}

void TestSupportConnectionHandler::rowsFollowTheConnection()
{
    writeLocalCache(sqlite(makeDatabase(text("rows"))));
    makeHandler();
    QWidget first;
    QWidget second;
    first.setLayout(m_handler->createConnectionRow());
    second.setLayout(m_handler->createConnectionRow());
    const auto states = [&] {
        return QStringList{first.findChild<QLabel *>()->text(), second.findChild<QLabel *>()->text()};
    };
    QCOMPARE(states(), (QStringList{kNoConnectionText, kNoConnectionText}));
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(states(), (QStringList{kConnectedText, kConnectedText}));
    m_handler->error();
    QCOMPARE(states(), (QStringList{kNoConnectionText, kNoConnectionText}));

    auto *button = first.findChild<QPushButton *>();
    QCOMPARE(button->text(), text("Connection options"));
    QCOMPARE(button->size(), QSize(250, 30));
    QCOMPARE(first.findChild<QLabel *>()->size(), QSize(250, 30));
    DialogSteps steps({pressConnect});
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(steps.areDone());
    QCOMPARE(states(), (QStringList{kConnectedText, kConnectedText}));
}

void TestSupportConnectionHandler::rowsFollowTheLanguage()
{
    makeHandler();
    QWidget view;
    view.setLayout(m_handler->createConnectionRow());
    view.findChild<QLabel *>()->clear();
    view.findChild<QPushButton *>()->setText(QString());
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_handler.get(), &change);
    QCOMPARE(view.findChild<QLabel *>()->text(), kNoConnectionText);
    QCOMPARE(view.findChild<QPushButton *>()->text(), text("Connection options"));
}

void TestSupportConnectionHandler::aRowMayGoWithItsView()
{
    writeLocalCache(sqlite(makeDatabase(text("gone"))));
    makeHandler();
    auto view = std::make_unique<QWidget>();
    view->setLayout(m_handler->createConnectionRow());
    view.reset();
    QVERIFY(m_handler->connectOnline());
    m_handler->error();
}

void TestSupportConnectionHandler::theStateFitsItsLabelInLongLanguages()
{
    makeHandler();
    QWidget view;
    QFont large = QApplication::font();
    large.setPixelSize(20);
    QApplication::setFont(large);
    view.setLayout(m_handler->createConnectionRow());
    QApplication::setFont(QFont());
    const auto *label = view.findChild<QLabel *>();
    const QRect room = label->rect();
    QVERIFY(room.contains(label->fontMetrics().boundingRect(room, Qt::TextWordWrap, label->text())));
}

QTEST_MAIN(TestSupportConnectionHandler)
#include "test_supportconnectionhandler.moc"
