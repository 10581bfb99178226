#include "onlinesite.h"
#include "onlinestore.h"
#include "storechecks.h"
#include "support/wire.h"
#include "support/workstation.h"

#include <QElapsedTimer>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <functional>

namespace {

using Settings = QMap<QString, QVariant>;

constexpr int kMostRequests = 200;
constexpr int kPatience = 10000;  // milliseconds

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

SettingsAdditionalData data()
{
    return {text("notes"), text("2024-02-29 08:15:00"), text("Ann")};
}

Settings example(int number)
{
    Settings settings{{text("ui/number"), number}};
    for (int i = 0; i < 300; ++i)
        settings.insert(QStringLiteral("ui/filler_%1").arg(i), QString(200, QLatin1Char('x')));
    return settings;
}

}  // namespace

/// Servers that go away before, during and after each step, and dialogs that do.
class TestOnlineFaults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase();
    void init();

    void lineCutBeforeAStepIsAConnectionFailure();
    void lineCutWhileConnectingIsAnswered();
    void lineCutWhileStoringLeavesOneActive_data();
    void lineCutWhileStoringLeavesOneActive();
    void lineCutWhileDeletingDeletesOrDoesNot();
    void lineCutWhileListingIsAnUnreadableList();
    void lineCutWhileLoadingLeavesTheSettingsWhole();
    void lineCutAfterwardsTakesNothingBack();
    void serverThatStopsAnsweringIsGivenUpWhileLoading();
    void serverThatStopsAnsweringIsGivenUpWhileStoring();
    void lockThatSomebodyElseHoldsIsWaitedFor();
    void lateAnswersOfAClosedDialogReachNobodyElse();
    void requestsOfAClosedDialogAreStillDone();

private:
    quint16 serverPort() const;
    Settings throughWire() const;
    bool connectThroughWire();
    int distribute(int number);

    Workstation m_workstation;
    OnlineSite m_site{QStringLiteral("corvane_faults")};
    std::unique_ptr<Wire> m_wire;
};

void TestOnlineFaults::initTestCase_data()
{
    OnlineSite::addServers();
}

void TestOnlineFaults::initTestCase()
{
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("corvane.ini"));
}

void TestOnlineFaults::init()
{
    const bool ready = m_site.use();
    if (!m_site.missing().isEmpty())
        QSKIP(qPrintable(m_site.missing()));
    QVERIFY2(ready, qPrintable(m_site.errorText()));
    m_wire.reset();
    if (m_site.hasAccounts())
        m_wire = std::make_unique<Wire>(serverPort());
    OnlineStore::setContent(example(0));
}

quint16 TestOnlineFaults::serverPort() const
{
    return static_cast<quint16>(m_site.server().parameters(m_site.database()).value(text("Port")).toUInt());
}

Settings TestOnlineFaults::throughWire() const
{
    QVariantMap parameters = m_site.server().parameters(m_site.database());
    parameters.insert(text("Port"), QString::number(m_wire->port()));
    return m_site.connection(OnlineSite::Administrator, parameters);
}

bool TestOnlineFaults::connectThroughWire()
{
    m_wire->mend();
    return OnlineStore::connectTo(throughWire());
}

/// Distributes settings with this number over the line, and gives their id.
int TestOnlineFaults::distribute(int number)
{
    OnlineStore::setContent(example(number));
    if (!connectThroughWire() || OnlineStore::send(data(), false, true) != OnlineSettings::Success)
        return -1;
    return OnlineStore::activeId();
}

void TestOnlineFaults::lineCutBeforeAStepIsAConnectionFailure()
{
    if (!m_wire)
        return;
    const int id = distribute(1);
    const QList<std::function<bool()>> steps{
        [] { return OnlineStore::send(data(), false, true) == OnlineSettings::ConnectionFailure; },
        [] { return !OnlineStore::isListReadable(); },
        [] { return OnlineStore::activeId() == 0; },
        [id] { return OnlineStore::remove(id) == OnlineSettings::ConnectionFailure; },
        [id] { return !OnlineStore::load(id); },
    };
    for (const auto &step : steps) {
        QVERIFY(connectThroughWire());
        m_wire->cut();
        QElapsedTimer time;
        time.start();
        QVERIFY(step());
        QVERIFY(step());
        QVERIFY(time.elapsed() < kPatience);
        QCOMPARE(OnlineStore::content(), example(1));
        QCOMPARE(m_site.activeIds(), QStringList{QString::number(id)});
    }
    QVERIFY(!OnlineStore::connectTo(throughWire()));
    QVERIFY(connectThroughWire());
    QCOMPARE(OnlineStore::list().keys(), QList<int>{id});
}

void TestOnlineFaults::lineCutWhileConnectingIsAnswered()
{
    if (!m_wire)
        return;
    int refused = 0;
    for (int requests = 0; requests < kMostRequests; ++requests) {
        m_wire->mend();
        m_wire->cutAfter(requests);
        if (OnlineStore::connectTo(throughWire()) && OnlineStore::isListReadable())
            break;
        ++refused;
    }
    QVERIFY(refused > 0 && refused < kMostRequests);
}

void TestOnlineFaults::lineCutWhileStoringLeavesOneActive_data()
{
    QTest::addColumn<bool>("distributed");

    QTest::newRow("when it is stored") << false;
    QTest::newRow("when it is distributed") << true;
}

/// Whatever the answer, one configuration is active, and it is whole.
void TestOnlineFaults::lineCutWhileStoringLeavesOneActive()
{
    QFETCH(bool, distributed);
    if (!m_wire)
        return;
    const int first = distribute(0);
    QVERIFY(first > 0);
    bool done = false;
    int failures = 0;
    for (int requests = 0; !done && requests < kMostRequests; ++requests) {
        const QStringList before = m_site.activeIds();
        const int rows = m_site.column(text("SELECT id FROM configurations")).size();
        OnlineStore::setContent(example(requests + 1));
        QVERIFY(connectThroughWire());
        m_wire->cutAfter(requests);
        const OnlineSettings::QueryError error = OnlineStore::send(data(), false, distributed);
        done = error == OnlineSettings::Success;
        failures += done ? 0 : 1;
        if (!done)
            QCOMPARE(error, OnlineSettings::ConnectionFailure);

        const QStringList after = m_site.activeIds();
        const int added = m_site.column(text("SELECT id FROM configurations")).size() - rows;
        QCOMPARE(after.size(), 1);
        QVERIFY(added == 1 || (added == 0 && !done));
        QCOMPARE(after != before, distributed && added == 1);
        QVERIFY(connectThroughWire());
        QVERIFY(OnlineStore::load(after.first().toInt()));
        QCOMPARE(OnlineStore::content().size(), example(0).size());
    }
    QVERIFY(done);
    QVERIFY(failures > 0);
}

void TestOnlineFaults::lineCutWhileDeletingDeletesOrDoesNot()
{
    if (!m_wire)
        return;
    QVERIFY(distribute(0) > 0);
    bool done = false;
    for (int requests = 0; !done && requests < kMostRequests; ++requests) {
        QVERIFY(connectThroughWire());
        QCOMPARE(OnlineStore::send(data(), false, false), OnlineSettings::Success);
        const int id = OnlineStore::list().lastKey();
        m_wire->cutAfter(requests);
        const OnlineSettings::QueryError error = OnlineStore::remove(id);
        done = error == OnlineSettings::Success && !m_wire->isCut();
        QVERIFY(error == OnlineSettings::Success || error == OnlineSettings::ConnectionFailure);
        QVERIFY(connectThroughWire());
        if (error == OnlineSettings::Success)
            QVERIFY(!OnlineStore::list().contains(id));
        QCOMPARE(m_site.activeIds().size(), 1);
    }
    QVERIFY(done);
}

void TestOnlineFaults::lineCutWhileListingIsAnUnreadableList()
{
    if (!m_wire)
        return;
    const int id = distribute(0);
    bool done = false;
    for (int requests = 0; !done && requests < kMostRequests; ++requests) {
        QVERIFY(connectThroughWire());
        m_wire->cutAfter(requests);
        done = OnlineStore::isListReadable();
        QCOMPARE(store()->getOnlineNotesList().keys(), done ? QList<int>{id} : QList<int>());
    }
    QVERIFY(done);
}

void TestOnlineFaults::lineCutWhileLoadingLeavesTheSettingsWhole()
{
    if (!m_wire)
        return;
    const int id = distribute(1);
    bool done = false;
    int failures = 0;
    for (int requests = 0; !done && requests < kMostRequests; ++requests) {
        OnlineStore::setContent(example(2));
        QVERIFY(connectThroughWire());
        m_wire->cutAfter(requests);
        done = OnlineStore::load(id);
        failures += done ? 0 : 1;
        QCOMPARE(OnlineStore::content(), example(done ? 1 : 2));
    }
    QVERIFY(done);
    QVERIFY(failures > 0);
}

void TestOnlineFaults::lineCutAfterwardsTakesNothingBack()
{
    if (!m_wire)
        return;
    const int id = distribute(1);
    m_wire->cut();
    QCOMPARE(m_site.activeIds(), QStringList{QString::number(id)});
    QVERIFY(connectThroughWire());
    OnlineStore::setContent({});
    QVERIFY(OnlineStore::load(id));
    m_wire->cut();
    QCOMPARE(OnlineStore::content(), example(1));
}

/// The line stays, and nothing comes over it: the window must not stand still for good.
void TestOnlineFaults::serverThatStopsAnsweringIsGivenUpWhileLoading()
{
    if (!m_wire)
        return;
    const int id = distribute(1);
    OnlineStore::setContent(example(2));
    QSignalSpy lists(store(), &SettingsHandler::onlineNotesReady);
    m_wire->hold();
    emit store()->requestIDs(0, true);
    QVERIFY(!OnlineStore::load(id));
    QCOMPARE(OnlineStore::content(), example(2));
    QTRY_COMPARE(lists.size(), 1);
    QCOMPARE(lists.first().first().toBool(), false);

    QVERIFY(OnlineStore::connectTo(m_site.connection()));
    QVERIFY(OnlineStore::load(id));
    QCOMPARE(OnlineStore::content(), example(1));
    m_wire->mend();
    QCOMPARE(OnlineStore::list().keys(), QList<int>{id});
    QCOMPARE(lists.size(), 2);
}

void TestOnlineFaults::serverThatStopsAnsweringIsGivenUpWhileStoring()
{
    if (m_site.server().kind() != DatabaseServer::PostgreSql)
        return;
    const int id = distribute(1);
    m_wire->hold();
    QCOMPARE(OnlineStore::send(data(), false, true), OnlineSettings::ConnectionFailure);
    m_wire->cut();
    QTRY_COMPARE(m_site.activeIds(), QStringList{QString::number(id)});
    QVERIFY(distribute(2) > id);
}

void TestOnlineFaults::lockThatSomebodyElseHoldsIsWaitedFor()
{
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
    QCOMPARE(OnlineStore::send(data(), false, true), OnlineSettings::Success);
    QVERIFY(m_site.lock());
    QSignalSpy answers(store(), &SettingsHandler::settingsOnlineStoredReady);
    store()->storeSettingsOnline(data(), 0, false, true);
    QVERIFY(!answers.wait(1000));
    QVERIFY(m_site.unlock());
    QVERIFY(answers.wait(kPatience));
    QCOMPARE(answers.first().first().value<OnlineSettings::QueryError>(), OnlineSettings::Success);
    QCOMPARE(m_site.activeIds().size(), 1);
}

void TestOnlineFaults::lateAnswersOfAClosedDialogReachNobodyElse()
{
    QSignalSpy connected(store(), &SettingsHandler::onlineReconnected);
    QSignalSpy stored(store(), &SettingsHandler::settingsOnlineStoredReady);
    QSignalSpy lists(store(), &SettingsHandler::onlineNotesReady);
    store()->callOnlineInit();
    emit store()->reconnectOnline(m_site.connection());
    store()->storeSettingsOnline(data(), 0, false, true);
    emit store()->requestIDs(0, true);

    store()->callOnlineInit();
    emit store()->reconnectOnline({});
    QVERIFY(connected.wait(kPatience));
    QCOMPARE(connected.first().first().toBool(), false);
    QCOMPARE(connected.size(), 1);
    QCOMPARE(stored.size(), 0);
    QCOMPARE(lists.size(), 0);
}

void TestOnlineFaults::requestsOfAClosedDialogAreStillDone()
{
    store()->callOnlineInit();
    emit store()->reconnectOnline(m_site.connection());
    store()->storeSettingsOnline(data(), 0, false, true);
    store()->callOnlineInit();
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
    QCOMPARE(OnlineStore::list().size(), 1);
    QCOMPARE(OnlineStore::activeId(), OnlineStore::list().firstKey());
}

QTEST_GUILESS_MAIN(TestOnlineFaults)
#include "test_onlinefaults.moc"
