#include "CommunicationAndData/settings/settingshandler.h"
#include "support/workstation.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

namespace {

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

QMap<QString, QVariant> content()
{
    QMap<QString, QVariant> all;
    const QStringList keys = store()->generalSettings()->allKeys();
    for (const QString &key : keys)
        all.insert(key, store()->value(key));
    return all;
}

}  // namespace

/// A dialog's side of the online operations.
class Dialog : public QObject
{
    Q_OBJECT

public:
    Dialog()
    {
        connect(this, SIGNAL(requestReconnect(QMap<QString, QVariant>)), store(),
                SIGNAL(reconnectOnline(QMap<QString, QVariant>)), Qt::QueuedConnection);
        connect(this, SIGNAL(requestIdList(int, bool)), store(), SIGNAL(requestIDs(int, bool)),
                Qt::QueuedConnection);
        connect(this, SIGNAL(requestDelete(int)), store(), SIGNAL(requestDelete(int)), Qt::QueuedConnection);
        connect(this, SIGNAL(requestActive()), store(), SIGNAL(requestActiveId()), Qt::QueuedConnection);
        connect(store(), SIGNAL(settingsDeletedOnline(int, OnlineSettings::QueryError)), this,
                SLOT(deleteDone(int, OnlineSettings::QueryError)), Qt::QueuedConnection);
    }

    QList<QPair<int, OnlineSettings::QueryError>> deletions;
    bool onItsThread = false;

signals:
    void requestReconnect(QMap<QString, QVariant> settings);
    void requestIdList(int first, bool withNotes);
    void requestDelete(int id);
    void requestActive();

private slots:
    void deleteDone(int id, OnlineSettings::QueryError error)
    {
        onItsThread = QThread::currentThread() == thread();
        deletions.append({id, error});
    }
};

/// What the store answers while there is no connection.
class TestSettingsOnline : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theTypesOfTheSignalsAreRegistered();
    void aConnectionThatIsNotThereIsAnswered();
    void theListIsNotReadableAndEmpty();
    void deletingIsAConnectionFailure();
    void noConfigurationIsActive();
    void storingIsAConnectionFailure();
    void fetchingFailsAndIsAnsweredLater();
    void requestsCanBeMadeByName();
    void workingSettingsStayAsTheyWere();
    void answersComeInTheOrderOfTheRequests();

private:
    Workstation m_workstation;
};

void TestSettingsOnline::initTestCase()
{
    store()->changeSettingsFile(m_workstation.dataDirectory() + QStringLiteral("corvane.ini"));
    store()->setValue(QStringLiteral("ui/number"), 5);
    store()->callOnlineInit();
    store()->callOnlineInit();
}

void TestSettingsOnline::theTypesOfTheSignalsAreRegistered()
{
    QCOMPARE(QMetaType::type("QMap<QString,QVariant>"), qMetaTypeId<QVariantMap>());
    QCOMPARE(QMetaType::type("OnlineSettings::QueryError"), qMetaTypeId<OnlineSettings::QueryError>());
}

void TestSettingsOnline::aConnectionThatIsNotThereIsAnswered()
{
    Dialog dialog;
    QSignalSpy answers(store(), &SettingsHandler::onlineReconnected);
    emit dialog.requestReconnect({{QStringLiteral("supportdb/username"), QStringLiteral("admin")}});
    QCOMPARE(answers.size(), 0);
    QTRY_COMPARE(answers.size(), 1);
    QCOMPARE(answers.first().first().toBool(), false);
}

void TestSettingsOnline::theListIsNotReadableAndEmpty()
{
    Dialog dialog;
    QSignalSpy answers(store(), &SettingsHandler::onlineNotesReady);
    emit dialog.requestIdList(0, true);
    QTRY_COMPARE(answers.size(), 1);
    QCOMPARE(answers.first().first().toBool(), false);
    QVERIFY(store()->getOnlineNotesList().isEmpty());
}

void TestSettingsOnline::deletingIsAConnectionFailure()
{
    Dialog dialog;
    emit dialog.requestDelete(12);
    QTRY_COMPARE(dialog.deletions.size(), 1);
    QCOMPARE(dialog.deletions.first().first, 12);
    QCOMPARE(dialog.deletions.first().second, OnlineSettings::ConnectionFailure);
    QVERIFY(dialog.onItsThread);
}

void TestSettingsOnline::noConfigurationIsActive()
{
    Dialog dialog;
    QSignalSpy answers(store(), &SettingsHandler::activeOnlineId);
    emit dialog.requestActive();
    QTRY_COMPARE(answers.size(), 1);
    QCOMPARE(answers.first().first().toInt(), 0);
}

void TestSettingsOnline::storingIsAConnectionFailure()
{
    QSignalSpy answers(store(), &SettingsHandler::settingsOnlineStoredReady);
    store()->storeSettingsOnline({QStringLiteral("notes"), QString(), QString()}, 0, true, true);
    QCOMPARE(answers.size(), 0);
    QTRY_COMPARE(answers.size(), 1);
    QCOMPARE(answers.first().first().value<OnlineSettings::QueryError>(), OnlineSettings::ConnectionFailure);
}

void TestSettingsOnline::fetchingFailsAndIsAnsweredLater()
{
    QSignalSpy answers(store(), &SettingsHandler::onlineSettingsReady);
    QVERIFY(!store()->getOnlineSettings(3));
    QCOMPARE(answers.size(), 0);
    QTRY_COMPARE(answers.size(), 1);
    QCOMPARE(answers.first().first().toBool(), false);
}

void TestSettingsOnline::requestsCanBeMadeByName()
{
    QSignalSpy answers(store(), SIGNAL(onlineReconnected(bool)));
    using Settings = QMap<QString, QVariant>;
    const Settings settings{{QStringLiteral("params"), QVariantMap()}};
    QVERIFY(QMetaObject::invokeMethod(store(), "reconnectOnline", Qt::QueuedConnection,
                                      QArgument<Settings>("QMap<QString,QVariant>", settings)));
    QTRY_COMPARE(answers.size(), 1);
}

void TestSettingsOnline::workingSettingsStayAsTheyWere()
{
    const QMap<QString, QVariant> before = content();
    QSignalSpy answers(store(), &SettingsHandler::onlineSettingsReady);
    store()->getOnlineSettings(1);
    store()->storeSettingsOnline({}, 0, false, false);
    QTRY_COMPARE(answers.size(), 1);
    QCOMPARE(content(), before);
}

void TestSettingsOnline::answersComeInTheOrderOfTheRequests()
{
    Dialog dialog;
    constexpr int requests = 100;
    for (int i = 0; i < requests; ++i)
        emit dialog.requestDelete(i);
    QTRY_COMPARE(dialog.deletions.size(), requests);
    for (int i = 0; i < requests; ++i)
        QCOMPARE(dialog.deletions.at(i).first, i);
}

QTEST_GUILESS_MAIN(TestSettingsOnline)
#include "test_settingsonline.moc"
