#include "CommunicationAndData/settings/configurationimage.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "onlinesite.h"
#include "onlinestore.h"
#include "randomsettings.h"
#include "support/workstation.h"

#include <QDateTime>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

namespace {

using Settings = QMap<QString, QVariant>;

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

SettingsAdditionalData data(const QString &notes)
{
    return {notes, text("2024-02-29 08:15:00"), text("Ann")};
}

/// Sends the working settings and gives the new configuration's id.
int sent(const QString &notes, bool distribute = false)
{
    const OnlineSettings::QueryError error = OnlineStore::send(data(notes), false, distribute);
    return error == OnlineSettings::Success ? OnlineStore::list().lastKey() : -1;
}

/// One greeting a script, as a release note might hold them.
QStringList thirtyScripts()
{
    return text("Latin: Größe und Länge|Ελληνικά: Πνεύμονας|Кириллица: Лёгкие|Հայերեն: Թոքեր|ქართული: "
                "ფილტვები|"
                "עברית: ריאות|العربية: الرئتان|ܣܘܪܝܝܐ: ܪܐܬܐ|ދިވެހި: ފުއްޕާމޭ|हिन्दी: फेफड़े|বাংলা: ফুসফুস|"
                "ਪੰਜਾਬੀ: ਫੇਫੜੇ|ગુજરાતી: ફેફસાં|ଓଡ଼ିଆ: ଫୁସଫୁସ|தமிழ்: நுரையீரல்|తెలుగు: ఊపిరితిత్తులు|"
                "ಕನ್ನಡ: ಶ್ವಾಸಕೋಶ|മലയാളം: ശ്വാസകോശം|සිංහල: පෙනහළු|ไทย: ปอด|ລາວ: ປອດ|བོད་ཡིག: གློ་བ|"
                "မြန်မာ: အဆုတ်|አማርኛ: ሳንባ|ᏣᎳᎩ: ᏧᏪᎳ|ខ្មែរ: សួត|ᠮᠣᠩᠭᠣᠯ: ᠠᠭᠤᠰᠬᠢ|日本語: 肺とハイ|한국어: 폐|"
                "漢字: 肺𠀀|🫁 and 👩🏽‍⚕️|𐌰𐌱𐌲: 𐌻𐌿𐌽𐌲𐍉𐍃")
        .split(QLatin1Char('|'));
}

/// Settings of every kind that the pages write.
void writeExample()
{
    OnlineStore::setContent({});
    store()->setValue(text("application/language"), text("de_DE"));
    store()->setValue(text("application/settings_updating"), true);
    store()->setValue(text("ui/person_result_fields"), QStringList{text("1"), text("a;b"), QString()});
    store()->setValue(text("ui/person_name_field_order"), QVariantList{3, 1, 4});
    store()->setValue(text("his/importlocation"), text("C:\\Halvorn\\Größe\\肺"));
    store()->setValue(text("his/defaultfilter"), QString());
    store()->setSafeValue(text("supportdb/password"), text("sëcret 肺"));
    store()->setSafeValue(text("accesscontrol/offline_authentication"), true);
    store()->setDatabaseSettings(
        text("supportdb"), {{text("params"), QVariantMap{{text("Server"), text("db")}, {text("Port"), 1}}}});
}

}  // namespace

class TestOnlineWorker : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase();
    void init();

    void whatIsStoredIsListed();
    void listWithoutNotesHasNone();
    void emptyAndOverlongTextsAreStored();
    void notesComeBackInThirtyScripts();
    void everyLetterComesBack();
    void storedConfigurationIsNotActive();
    void distributedConfigurationIsTheOnlyActiveOne();
    void fiveHundredConfigurationsAreListed();
    void firstAndLaterConfigurationsCanBeLoaded();
    void loadedConfigurationHasEveryKeyAndSafeValue();
    void loadedConfigurationIsOnDisk();
    void loadingCanBeUndone();
    void informFlagAndNotesComeWithTheConfiguration();
    void settingsAreReadAtTheMomentOfTheCall();
    void bigConfigurationComesBack();
    void configurationThatNoFileCanHoldIsNotTakenOver();
    void deletedConfigurationIsGone();
    void activeConfigurationCannotBeDeleted();
    void configurationThatSomebodyElseDeletedIsReported();
    void idsAreNotGivenAgain();
    void onlyTheDatabaseGivesIds();
    void damagedConfigurationIsNotTakenOver_data();
    void damagedConfigurationIsNotTakenOver();
    void missingConfigurationIsNotLoaded();
    void anotherDatabaseCanBeConnectedTo();
    void answersComeInTheOrderOfTheRequests();

private:
    Workstation m_workstation;
    OnlineSite m_site{QStringLiteral("corvane_worker")};
};

void TestOnlineWorker::initTestCase_data()
{
    OnlineSite::addServers();
}

void TestOnlineWorker::initTestCase()
{
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("corvane.ini"));
}

void TestOnlineWorker::init()
{
    const bool ready = m_site.use();
    if (!m_site.missing().isEmpty())
        QSKIP(qPrintable(m_site.missing()));
    QVERIFY2(ready, qPrintable(m_site.errorText()));
    writeExample();
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
}

void TestOnlineWorker::whatIsStoredIsListed()
{
    QVERIFY(OnlineStore::list().isEmpty());
    const QString notes = text("first\nline 'quoted' \"twice\"; DROP TABLE configurations; -- ?");
    QCOMPARE(OnlineStore::send({notes, text("2024-02-29 08:15:00"), text("Yrjö")}, true, false),
             OnlineSettings::Success);
    QVERIFY(sent(text("second")) > 0);
    const auto list = OnlineStore::list();
    QCOMPARE(list.size(), 2);
    QVERIFY(list.firstKey() > 0);
    QCOMPARE(list.first().notes, notes);
    QCOMPARE(list.first().timestamp, text("2024-02-29 08:15:00"));
    QCOMPARE(list.first().user, text("Yrjö"));
    QCOMPARE(list.last().notes, text("second"));
}

void TestOnlineWorker::listWithoutNotesHasNone()
{
    const int id = sent(text("notes"));
    QSignalSpy answers(store(), &SettingsHandler::onlineNotesReady);
    emit store()->requestIDs(0, false);
    QTRY_COMPARE(answers.size(), 1);
    QCOMPARE(store()->getOnlineNotesList().value(id).user, text("Ann"));
    QCOMPARE(store()->getOnlineNotesList().value(id).notes, QString());
}

void TestOnlineWorker::emptyAndOverlongTextsAreStored()
{
    QCOMPARE(OnlineStore::send({}, false, false), OnlineSettings::Success);
    QCOMPARE(OnlineStore::list().last().notes, QString());
    const QString longNotes(100000, QChar(0x80ba));
    QCOMPARE(OnlineStore::send({longNotes, QString(40, QLatin1Char('9')), QString(300, QChar(0xe4))}, false,
                               false),
             OnlineSettings::Success);
    QCOMPARE(OnlineStore::list().last().notes, longNotes);
    QCOMPARE(OnlineStore::list().last().user, QString(255, QChar(0xe4)));
    const QString broken = text("a") + QChar(0) + QChar(0xd83e) + text("b");
    QCOMPARE(OnlineStore::send({broken, QString(), QString()}, false, false), OnlineSettings::Success);
    QCOMPARE(OnlineStore::list().last().notes.size(), 3);
}

void TestOnlineWorker::notesComeBackInThirtyScripts()
{
    const QStringList notes = thirtyScripts();
    QVERIFY(notes.size() >= 30);
    for (const QString &note : notes)
        QCOMPARE(OnlineStore::send(data(note), false, false), OnlineSettings::Success);
    QStringList listed;
    for (const SettingsAdditionalData &one : OnlineStore::list())
        listed.append(one.notes);
    QCOMPARE(listed, notes);
}

/// Letter for letter, also those that drivers take for halves of others.
void TestOnlineWorker::everyLetterComesBack()
{
    QString letters = text("Øst, Ünal Øst, ");
    for (ushort code = 0xa0; code < 0xd800; ++code)
        letters.append(QChar(code));
    letters += text("🫁 end");
    QCOMPARE(OnlineStore::send({letters, QString(), text("Øystein Ødegård")}, false, false),
             OnlineSettings::Success);
    const SettingsAdditionalData listed = OnlineStore::list().last();
    QVERIFY(listed.notes == letters);
    QCOMPARE(listed.user, text("Øystein Ødegård"));
}

void TestOnlineWorker::storedConfigurationIsNotActive()
{
    QVERIFY(sent(text("first")) > 0);
    QCOMPARE(OnlineStore::activeId(), 0);
    const int active = sent(text("second"), true);
    QVERIFY(sent(text("third")) > active);
    QCOMPARE(OnlineStore::activeId(), active);
}

void TestOnlineWorker::distributedConfigurationIsTheOnlyActiveOne()
{
    for (int i = 0; i < 5; ++i) {
        const int id = sent(QString::number(i), true);
        QCOMPARE(OnlineStore::activeId(), id);
        QCOMPARE(m_site.activeIds(), QStringList{QString::number(id)});
    }
    QCOMPARE(OnlineStore::list().size(), 5);
}

void TestOnlineWorker::fiveHundredConfigurationsAreListed()
{
    constexpr int count = 500;
    QSignalSpy answers(store(), &SettingsHandler::settingsOnlineStoredReady);
    for (int i = 0; i < count; ++i)
        store()->storeSettingsOnline(data(QString::number(i)), 0, false, i % 2 == 0);
    QTRY_COMPARE_WITH_TIMEOUT(answers.size(), count, 60000);
    const auto list = OnlineStore::list();
    QCOMPARE(list.size(), count);
    QCOMPARE(list.first().notes, text("0"));
    QCOMPARE(list.last().notes, text("499"));
    QCOMPARE(OnlineStore::activeId(), list.keys().at(count - 2));
}

void TestOnlineWorker::firstAndLaterConfigurationsCanBeLoaded()
{
    QList<int> ids;
    for (int i = 0; i < 3; ++i) {
        store()->setValue(text("ui/round"), i);
        ids.append(sent(QString::number(i)));
    }
    for (const int round : {0, 2, 1}) {
        QVERIFY(OnlineStore::load(ids.at(round)));
        QCOMPARE(store()->value(text("ui/round")).toInt(), round);
    }
}

void TestOnlineWorker::loadedConfigurationHasEveryKeyAndSafeValue()
{
    const Settings before = OnlineStore::content();
    const int id = sent(text("notes"));
    OnlineStore::setContent({{text("ui/other"), 1}, {text("application/language"), text("fi_FI")}});
    QVERIFY(OnlineStore::load(id));
    QCOMPARE(OnlineStore::content(), before);
    QCOMPARE(store()->safeValue(text("supportdb/password")).toString(), text("sëcret 肺"));
    QCOMPARE(store()->safeValue(text("accesscontrol/offline_authentication")).toBool(), true);
    QCOMPARE(store()->value(text("ui/person_result_fields")).toStringList(),
             (QStringList{text("1"), text("a;b"), QString()}));
    QCOMPARE(store()->value(text("ui/person_name_field_order")).toList(), (QVariantList{3, 1, 4}));
    QVERIFY(!store()->generalSettings()->contains(text("ui/other")));
}

void TestOnlineWorker::loadedConfigurationIsOnDisk()
{
    const int id = sent(text("notes"));
    OnlineStore::setContent({{text("ui/other"), 1}});
    QVERIFY(store()->getOnlineSettings(id));
    const QByteArray file = readFile(m_workstation.dataDirectory() + text("corvane.ini"));
    QVERIFY(file.contains("language=de_DE"));
    QVERIFY(!file.contains("other"));
}

void TestOnlineWorker::loadingCanBeUndone()
{
    const int id = sent(text("notes"));
    OnlineStore::setContent({{text("ui/other"), 1}});
    QVERIFY(store()->store());
    store()->setValue(text("ui/edited"), 2);
    QVERIFY(OnlineStore::load(id));
    QVERIFY(store()->restore());
    QCOMPARE(OnlineStore::content(), (Settings{{text("ui/edited"), 2}, {text("ui/other"), 1}}));
}

void TestOnlineWorker::informFlagAndNotesComeWithTheConfiguration()
{
    for (const bool inform : {true, false}) {
        QCOMPARE(OnlineStore::send(data(text("Notes 肺")), inform, false), OnlineSettings::Success);
        const int id = OnlineStore::list().lastKey();
        QSignalSpy answers(store(), &SettingsHandler::onlineSettingsReady);
        QVERIFY(store()->getOnlineSettings(id));
        QTRY_COMPARE(answers.size(), 1);
        QCOMPARE(answers.first().at(1).toBool(), inform);
        QCOMPARE(answers.first().at(2).toString(), text("Notes 肺"));
    }
}

void TestOnlineWorker::settingsAreReadAtTheMomentOfTheCall()
{
    store()->setValue(text("ui/moment"), text("then"));
    QSignalSpy answers(store(), &SettingsHandler::settingsOnlineStoredReady);
    store()->storeSettingsOnline(data(QString()), 0, false, false);
    store()->setValue(text("ui/moment"), text("later"));
    QTRY_COMPARE(answers.size(), 1);
    QCOMPARE(store()->value(text("ui/moment")).toString(), text("later"));
    QVERIFY(OnlineStore::load(OnlineStore::list().lastKey()));
    QCOMPARE(store()->value(text("ui/moment")).toString(), text("then"));
}

void TestOnlineWorker::bigConfigurationComesBack()
{
    constexpr int keys = 2000;
    Settings big;
    for (int i = 0; i < keys; ++i)
        big.insert(QStringLiteral("group_%1/key_%2").arg(i % 9).arg(i), QString(525, QChar(0x3042 + i % 80)));
    OnlineStore::setContent(big);
    const int id = sent(text("big"), true);
    OnlineStore::setContent({});
    QVERIFY(OnlineStore::load(id));
    QCOMPARE(OnlineStore::content(), big);
}

void TestOnlineWorker::configurationThatNoFileCanHoldIsNotTakenOver()
{
    Settings large;
    for (int i = 0; i < 1300; ++i)
        large.insert(QStringLiteral("ui/bytes_%1").arg(i), QByteArray(1024, '\xff'));
    OnlineStore::setContent(large);
    const int id = sent(text("too large"));
    writeExample();
    const Settings before = OnlineStore::content();
    QVERIFY(!OnlineStore::load(id));
    QCOMPARE(OnlineStore::content(), before);
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("corvane.ini"));
    QCOMPARE(OnlineStore::content().keys(), before.keys());
}

void TestOnlineWorker::deletedConfigurationIsGone()
{
    const int first = sent(text("first"));
    const int second = sent(text("second"), true);
    QCOMPARE(OnlineStore::remove(first), OnlineSettings::Success);
    QCOMPARE(OnlineStore::list().keys(), QList<int>{second});
    QCOMPARE(OnlineStore::activeId(), second);
}

void TestOnlineWorker::activeConfigurationCannotBeDeleted()
{
    const int id = sent(text("first"), true);
    QCOMPARE(OnlineStore::remove(id), OnlineSettings::ConfigurationActive);
    QCOMPARE(OnlineStore::list().keys(), QList<int>{id});
    QVERIFY(sent(text("second"), true) > id);
    QCOMPARE(OnlineStore::remove(id), OnlineSettings::Success);
}

void TestOnlineWorker::configurationThatSomebodyElseDeletedIsReported()
{
    const int id = sent(text("first"));
    QVERIFY(m_site.run(text("DELETE FROM configurations")));
    QCOMPARE(OnlineStore::remove(id), OnlineSettings::UnusableId);
    QCOMPARE(OnlineStore::remove(-1), OnlineSettings::UnusableId);
    QVERIFY(!OnlineStore::load(id));
}

void TestOnlineWorker::idsAreNotGivenAgain()
{
    const int first = sent(text("first"));
    const int second = sent(text("second"));
    QCOMPARE(OnlineStore::remove(second), OnlineSettings::Success);
    QVERIFY(sent(text("third")) > second);
    QCOMPARE(OnlineStore::remove(first), OnlineSettings::Success);
}

void TestOnlineWorker::onlyTheDatabaseGivesIds()
{
    QSignalSpy answers(store(), &SettingsHandler::settingsOnlineStoredReady);
    store()->storeSettingsOnline(data(QString()), 7, false, true);
    QTRY_COMPARE(answers.size(), 1);
    QCOMPARE(answers.first().first().value<OnlineSettings::QueryError>(), OnlineSettings::UnusableId);
    QVERIFY(OnlineStore::list().isEmpty());
}

void TestOnlineWorker::damagedConfigurationIsNotTakenOver_data()
{
    QTest::addColumn<QString>("statement");

    const ConfigurationImage foreign{text("corvane-configuration-2:AAAA"),
                                     ConfigurationImage::checksumOf(text("corvane-configuration-2:AAAA"))};
    QTest::newRow("when the image was changed")
        << text("UPDATE configurations SET image = REPLACE(image, 'AAAA', 'AAAB') WHERE id = %1");
    QTest::newRow("when the image was cut short")
        << text("UPDATE configurations SET image = SUBSTR(image, 1, 100) WHERE id = %1");
    QTest::newRow("when the image is empty") << text("UPDATE configurations SET image = '' WHERE id = %1");
    QTest::newRow("when the checksum is another")
        << text("UPDATE configurations SET checksum = REPLACE(checksum, 'a', 'b') WHERE id = %1");
    QTest::newRow("when the checksum is empty")
        << text("UPDATE configurations SET checksum = '' WHERE id = %1");
    QTest::newRow("when the image is of a form to come")
        << QStringLiteral("UPDATE configurations SET image = '%2', checksum = '%3' WHERE id = %1")
               .arg(text("%1"), foreign.text, foreign.checksum);
}

void TestOnlineWorker::damagedConfigurationIsNotTakenOver()
{
    QFETCH(QString, statement);
    const int id = sent(text("notes"));
    const int other = sent(text("other"));
    QVERIFY2(m_site.run(statement.arg(id)), qPrintable(m_site.errorText()));
    store()->setValue(text("ui/edited"), 1);
    const Settings before = OnlineStore::content();
    QVERIFY(!OnlineStore::load(id));
    QCOMPARE(OnlineStore::content(), before);
    QVERIFY(OnlineStore::load(other));
    QVERIFY(!store()->generalSettings()->contains(text("ui/edited")));
}

void TestOnlineWorker::missingConfigurationIsNotLoaded()
{
    const Settings before = OnlineStore::content();
    for (const int id : {0, -1, 123456789})
        QVERIFY(!OnlineStore::load(id));
    QCOMPARE(OnlineStore::content(), before);
}

void TestOnlineWorker::anotherDatabaseCanBeConnectedTo()
{
    QVERIFY(sent(text("here")) > 0);
    const auto parameters = m_site.server().parameters(m_site.emptyDatabase());
    QVERIFY(OnlineStore::connectTo(m_site.connection(OnlineSite::Owner, parameters)));
    QVERIFY(OnlineStore::list().isEmpty());
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
    QCOMPARE(OnlineStore::list().size(), 1);
    QVERIFY(m_site.server().makeDatabase(m_site.emptyDatabase(), {}));
}

void TestOnlineWorker::answersComeInTheOrderOfTheRequests()
{
    QStringList answers;
    QObject listener;
    connect(store(), &SettingsHandler::onlineReconnected, &listener,
            [&] { answers.append(text("connected")); });
    connect(store(), &SettingsHandler::onlineNotesReady, &listener, [&] { answers.append(text("listed")); });
    connect(store(), &SettingsHandler::activeOnlineId, &listener, [&] { answers.append(text("active")); });
    connect(store(), &SettingsHandler::settingsDeletedOnline, &listener,
            [&] { answers.append(text("deleted")); });
    connect(store(), &SettingsHandler::settingsOnlineStoredReady, &listener,
            [&] { answers.append(text("stored")); });
    emit store()->reconnectOnline(m_site.connection());
    emit store()->requestIDs(0, true);
    store()->storeSettingsOnline(data(QString()), 0, false, false);
    emit store()->requestActiveId();
    emit store()->requestDelete(1);
    QTRY_COMPARE(answers, (QStringList{text("connected"), text("listed"), text("stored"), text("active"),
                                       text("deleted")}));
}

QTEST_GUILESS_MAIN(TestOnlineWorker)
#include "test_onlineworker.moc"
