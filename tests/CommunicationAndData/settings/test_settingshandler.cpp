#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "storechecks.h"
#include "support/workstation.h"

#include <QFile>
#include <QSettings>
#include <QTest>

namespace {

const QString kPassword = QStringLiteral("persondb/password");
const QString kParamsSize = QStringLiteral("persondb/params/size");

QMap<QString, QVariant> parameters(const QString &group)
{
    return store()->databaseSettings(group).value(key(SettingsKeys::kParams)).toMap();
}

void setParameters(const QString &group, const QVariantMap &params)
{
    store()->setDatabaseSettings(group, {{key(SettingsKeys::kParams), params}});
}

}  // namespace

/// The store's operations, each on a file of its own.
class TestSettingsHandler : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void restoreWithoutAStoreChangesNothing();

    void aMissingKeyGivesTheDefault();
    void aFileThatDoesNotExistGivesNoKeys();
    void aValueIsInTheFormerFileAndInACopyOfItAfterTheChange();
    void aValueReachesTheFileFromTheEventLoop();
    void aFileIsReadFromDiskAtEachChange();
    void theFormerFileCanBeRenamedAndReplaced();
    void theFileIsReplacedAtomically();
    void lettersOfEveryScriptSurviveTheFile();

    void restoreGivesBackTheValueBeforeAndOnceMoreChangesNothing();
    void heldChangesStayInMemoryUntilTheyAreRestored();
    void restoreAlsoWorksInAnotherFile();
    void restoreKeepsKeysBelowARemovedOne();
    void restoreTellsTypesApart();
    void restoreOfUnchangedSettingsLeavesTheFileAlone();

    void theImageHoldsAllKeysWithTheirLists();
    void aListWithoutItemsStaysAList();
    void theImageStaysValidUntilTheNext();

    void anEmptyMapOfParametersLeavesTheSizeZero();
    void parametersComeBack();
    void fewerParametersReplaceMore();
    void aDamagedSizeOfParametersIsHarmless_data();
    void aDamagedSizeOfParametersIsHarmless();
    void aParameterFarBehindTheOthersIsFoundAtOnce();
    void aDatabaseGroupHoldsItsPlainKeys();

    void aForgottenGroupDoesNotChangeTheMeaningOfKeys();
    void theAuditTrailSettingBelongsToOneDatabase();
    void aDamagedAuditTrailSettingReadsAsOff();
    void localApplicationSettingsAreUtf8InTheSystemScope();
    void settingsFilesAreUtf8();

private:
    QString file(const QString &name) const
    {
        return m_workstation.dataDirectory() + name;
    }
    QString parking() const
    {
        return file(QStringLiteral("parking.ini"));
    }

    Workstation m_workstation;
    QString m_working;
    int m_count = 0;
};

void TestSettingsHandler::init()
{
    m_working = file(QStringLiteral("working_%1.ini").arg(++m_count));
    store()->changeSettingsFile(m_working);
}

void TestSettingsHandler::restoreWithoutAStoreChangesNothing()
{
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    QVERIFY(!store()->restore());
    QCOMPARE(store()->value(key(SettingsKeys::kLanguage)).toString(), QStringLiteral("fi_FI"));
}

void TestSettingsHandler::aMissingKeyGivesTheDefault()
{
    QCOMPARE(store()->value(key(SettingsKeys::kLanguage), 7).toInt(), 7);
    QCOMPARE(store()->safeValue(kPassword, 8).toInt(), 8);
    QVERIFY(!store()->value(key(SettingsKeys::kLanguage)).isValid());
    QVERIFY(!store()->safeValue(kPassword).isValid());
}

void TestSettingsHandler::aFileThatDoesNotExistGivesNoKeys()
{
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    store()->changeSettingsFile(file(QStringLiteral("nowhere.ini")));
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
    store()->changeSettingsFile(parking());
    QVERIFY(!QFile::exists(file(QStringLiteral("nowhere.ini"))));
}

void TestSettingsHandler::aValueIsInTheFormerFileAndInACopyOfItAfterTheChange()
{
    const QString copy = file(QStringLiteral("copy.ini"));
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    store()->changeSettingsFile(parking());
    QVERIFY(QFile::copy(m_working, copy));
    QCOMPARE(readFile(copy), QByteArray("[application]\nlanguage=fi_FI\n"));
    QCOMPARE(readFile(m_working), readFile(copy));
}

void TestSettingsHandler::aValueReachesTheFileFromTheEventLoop()
{
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    QTRY_COMPARE(readFile(m_working), QByteArray("[application]\nlanguage=fi_FI\n"));
    store()->generalSettings()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("sv_SE"));
    QTRY_COMPARE(readFile(m_working), QByteArray("[application]\nlanguage=sv_SE\n"));
}

void TestSettingsHandler::aFileIsReadFromDiskAtEachChange()
{
    // The same size within the same tick of the file system's clock.
    for (int i = 10; i < 60; ++i) {
        store()->changeSettingsFile(parking());
        QVERIFY(writeFile(m_working, "[ui]\nnumber=" + QByteArray::number(i)));
        store()->changeSettingsFile(m_working);
        QCOMPARE(store()->value(QStringLiteral("ui/number")).toInt(), i);
    }
}

void TestSettingsHandler::theFormerFileCanBeRenamedAndReplaced()
{
    const QString recovery = file(QStringLiteral("recovery.ini"));
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    store()->changeSettingsFile(parking());
    QVERIFY(QFile::rename(m_working, recovery));
    store()->changeSettingsFile(m_working);
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
    store()->changeSettingsFile(parking());
    QVERIFY(QFile::rename(recovery, m_working));
    store()->changeSettingsFile(m_working);
    QCOMPARE(store()->value(key(SettingsKeys::kLanguage)).toString(), QStringLiteral("fi_FI"));
}

void TestSettingsHandler::theFileIsReplacedAtomically()
{
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    store()->generalSettings()->sync();
    QFile opened(m_working);
    QVERIFY(opened.open(QIODevice::ReadOnly));
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("sv_SE"));
    store()->changeSettingsFile(parking());
    QCOMPARE(opened.readAll(), QByteArray("[application]\nlanguage=fi_FI\n"));
    QCOMPARE(readFile(m_working), QByteArray("[application]\nlanguage=sv_SE\n"));
}

void TestSettingsHandler::lettersOfEveryScriptSurviveTheFile()
{
    const QString text = QString::fromUtf8("\xef\xbb\xbfäö € 肺活量 𠮷野 ريئة 🫁");
    store()->setValue(key(SettingsKeys::kLanguage), text);
    store()->changeSettingsFile(parking());
    QVERIFY(readFile(m_working).contains(text.toUtf8()));
    const QString moved = m_working + QStringLiteral(".moved");
    QVERIFY(QFile::rename(m_working, moved));
    store()->changeSettingsFile(moved);
    QCOMPARE(store()->value(key(SettingsKeys::kLanguage)).toString(), text);
}

void TestSettingsHandler::restoreGivesBackTheValueBeforeAndOnceMoreChangesNothing()
{
    const QString language = key(SettingsKeys::kLanguage);
    store()->setValue(language, QStringLiteral("fi_FI"));
    QVERIFY(store()->store());
    store()->setValue(language, QStringLiteral("sv_SE"));
    store()->setValue(key(SettingsKeys::kDateFormat), 3);
    for (int i = 0; i < 2; ++i) {
        QVERIFY(store()->restore());
        QCOMPARE(store()->value(language).toString(), QStringLiteral("fi_FI"));
        QCOMPARE(store()->generalSettings()->allKeys(), QStringList(language));
    }
}

void TestSettingsHandler::heldChangesStayInMemoryUntilTheyAreRestored()
{
    const QString number = QStringLiteral("ui/number");
    store()->setValue(number, 1);
    store()->generalSettings()->sync();
    const QByteArray before = readFile(m_working);
    store()->store();
    store()->holdChanges();
    store()->setValue(number, 2);
    QCoreApplication::processEvents();
    QCOMPARE(store()->value(number).toInt(), 2);
    QCOMPARE(readFile(m_working), before);
    store()->restore();
    QCOMPARE(store()->value(number).toInt(), 1);
    QCOMPARE(readFile(m_working), before);
    // From here on changes are written again.
    store()->setValue(number, 3);
    QTRY_VERIFY(readFile(m_working).contains("number=3"));
}

void TestSettingsHandler::restoreAlsoWorksInAnotherFile()
{
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    store()->store();
    store()->changeSettingsFile(file(QStringLiteral("other_working.ini")));
    store()->setValue(key(SettingsKeys::kDateFormat), 3);
    store()->restore();
    store()->changeSettingsFile(parking());
    QCOMPARE(readFile(file(QStringLiteral("other_working.ini"))),
             QByteArray("[application]\nlanguage=fi_FI\n"));
}

void TestSettingsHandler::restoreKeepsKeysBelowARemovedOne()
{
    store()->setValue(QStringLiteral("his/system/name"), QStringLiteral("GDT"));
    store()->store();
    store()->setValue(QStringLiteral("his/system"), 1);
    store()->restore();
    QCOMPARE(store()->generalSettings()->allKeys(), QStringList(QStringLiteral("his/system/name")));
    QCOMPARE(store()->value(QStringLiteral("his/system/name")).toString(), QStringLiteral("GDT"));
}

void TestSettingsHandler::restoreTellsTypesApart()
{
    store()->setValue(key(SettingsKeys::kDateFormat), QStringList{QStringLiteral("1")});
    store()->store();
    store()->setValue(key(SettingsKeys::kDateFormat), QStringLiteral("1"));
    store()->restore();
    QCOMPARE(store()->value(key(SettingsKeys::kDateFormat)).userType(), int(QMetaType::QStringList));
}

void TestSettingsHandler::restoreOfUnchangedSettingsLeavesTheFileAlone()
{
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    store()->store();
    store()->generalSettings()->sync();
    QVERIFY(QFile::remove(m_working));
    store()->restore();
    store()->changeSettingsFile(parking());
    QVERIFY(!QFile::exists(m_working));
}

void TestSettingsHandler::theImageHoldsAllKeysWithTheirLists()
{
    const QStringList texts{QStringLiteral("a"), QString::fromUtf8("ö,;")};
    const QVariantList numbers{1, 2.5, QStringLiteral("x")};
    store()->setValue(QStringLiteral("ui/texts"), texts);
    store()->setValue(QStringLiteral("ui/numbers"), numbers);
    store()->setValue(QStringLiteral("ui/number"), 5);
    QMap<QString, QVariant> image = stashed();
    QCOMPARE(image.keys(), (QStringList{QStringLiteral("ui/number"), QStringLiteral("ui/numbers"),
                                        QStringLiteral("ui/texts")}));
    QCOMPARE(image.value(QStringLiteral("ui/texts")), QVariant(texts));
    QCOMPARE(image.value(QStringLiteral("ui/numbers")), QVariant(numbers));

    store()->changeSettingsFile(parking());
    store()->changeSettingsFile(m_working);
    image = stashed();
    QCOMPARE(image.value(QStringLiteral("ui/texts")), QVariant(texts));
    QCOMPARE(image.value(QStringLiteral("ui/numbers")).toStringList(), QVariant(numbers).toStringList());
    QCOMPARE(image.value(QStringLiteral("ui/number")).toInt(), 5);
}

void TestSettingsHandler::aListWithoutItemsStaysAList()
{
    const QStringList lists = {key(SettingsKeys::kStudySpecific), key(SettingsKeys::kPersonNameFieldOrder),
                               QStringLiteral("studydb/connectoptions")};
    for (const QString &list : lists)
        store()->setValue(list, QStringList());
    store()->setValue(QStringLiteral("site/nothing"), QVariant());
    const QMap<QString, QVariant> before = stashed();
    store()->changeSettingsFile(parking());
    store()->changeSettingsFile(m_working);
    QCOMPARE(stashed(), before);
    for (const QString &list : lists)
        QCOMPARE(stashed().value(list).userType(), int(QMetaType::QStringList));
    // What nobody knows as a list says nothing, and stays so.
    QVERIFY(stashed().contains(QStringLiteral("site/nothing")));
    QVERIFY(!stashed().value(QStringLiteral("site/nothing")).isValid());
}

void TestSettingsHandler::theImageStaysValidUntilTheNext()
{
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    QByteArray *first = nullptr;
    store()->stash(first);
    QVERIFY(first);
    const QByteArray bytes = *first;
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("sv_SE"));
    store()->changeSettingsFile(parking());
    QCOMPARE(*first, bytes);
}

void TestSettingsHandler::anEmptyMapOfParametersLeavesTheSizeZero()
{
    const QString group = key(SettingsKeys::kPersonDbGroup);
    setParameters(group, {{QStringLiteral("Server"), QStringLiteral("db1")}});
    setParameters(group, {});
    QVERIFY(store()->generalSettings()->contains(kParamsSize));
    QCOMPARE(store()->value(kParamsSize).toInt(), 0);
    QVERIFY(parameters(group).isEmpty());
}

void TestSettingsHandler::parametersComeBack()
{
    const QVariantMap params{{QStringLiteral("Database"), QString::fromUtf8("keuhko=1;äö")},
                             {QStringLiteral("Driver"), QStringLiteral("{PostgreSQL Unicode}")},
                             {QStringLiteral("Port"), QStringLiteral("5432")}};
    const QString group = key(SettingsKeys::kPersonDbGroup);
    setParameters(group, params);
    QCOMPARE(parameters(group), params);
    QVERIFY(parameters(key(SettingsKeys::kStudyDbGroup)).isEmpty());

    store()->changeSettingsFile(parking());
    QSettings file(m_working, QSettings::IniFormat);
    file.setIniCodec("UTF-8");
    QCOMPARE(file.beginReadArray(QStringLiteral("persondb/params")), 3);
    file.setArrayIndex(0);
    QCOMPARE(file.value(QStringLiteral("key")).toString(), QStringLiteral("Database"));
    QCOMPARE(file.value(QStringLiteral("value")), params.value(QStringLiteral("Database")));
}

void TestSettingsHandler::fewerParametersReplaceMore()
{
    const QString group = key(SettingsKeys::kPersonDbGroup);
    setParameters(group, {{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}, {QStringLiteral("c"), 3}});
    setParameters(group, {{QStringLiteral("d"), 4}});
    QCOMPARE(parameters(group), (QVariantMap{{QStringLiteral("d"), 4}}));
    QCOMPARE(store()->value(kParamsSize).toInt(), 1);
}

void TestSettingsHandler::aDamagedSizeOfParametersIsHarmless_data()
{
    QTest::addColumn<QVariant>("size");
    QTest::addColumn<int>("count");

    QTest::newRow("a size far beyond the entries gives the entries") << QVariant(2147483647) << 2;
    QTest::newRow("a negative size gives none") << QVariant(-1) << 0;
    QTest::newRow("a text as size gives none") << QVariant(QStringLiteral("two")) << 0;
    QTest::newRow("a smaller size gives the first entries") << QVariant(1) << 1;
}

void TestSettingsHandler::aDamagedSizeOfParametersIsHarmless()
{
    QFETCH(QVariant, size);
    QFETCH(int, count);
    const QString group = key(SettingsKeys::kPersonDbGroup);
    setParameters(group, {{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}});
    store()->setValue(kParamsSize, size);
    QCOMPARE(parameters(group).size(), count);
}

void TestSettingsHandler::aParameterFarBehindTheOthersIsFoundAtOnce()
{
    const QString group = key(SettingsKeys::kPersonDbGroup);
    setParameters(group, {{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}});
    store()->setValue(QStringLiteral("persondb/params/2147483647/key"), QStringLiteral("c"));
    store()->setValue(QStringLiteral("persondb/params/2147483647/value"), 3);
    store()->setValue(kParamsSize, 2147483647);
    QCOMPARE(parameters(group),
             (QVariantMap{{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}, {QStringLiteral("c"), 3}}));
}

void TestSettingsHandler::aDatabaseGroupHoldsItsPlainKeys()
{
    const QString group = key(SettingsKeys::kPersonDbGroup);
    QCOMPARE(store()->databaseSettings(group).keys(), QStringList(key(SettingsKeys::kParams)));
    store()->setValue(QStringLiteral("persondb/sqltype"), 2);
    store()->setSafeValue(kPassword, QStringLiteral("secret"));
    QCOMPARE(store()->databaseSettings(group).keys(),
             (QStringList{key(SettingsKeys::kParams), key(SettingsKeys::kSqlType)}));
}

void TestSettingsHandler::aForgottenGroupDoesNotChangeTheMeaningOfKeys()
{
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    QSettings *settings = store()->generalSettings();
    settings->beginGroup(QStringLiteral("application"));
    QCOMPARE(settings->value(QStringLiteral("language")).toString(), QStringLiteral("fi_FI"));
    QCOMPARE(store()->value(key(SettingsKeys::kLanguage)).toString(), QStringLiteral("fi_FI"));
    store()->setValue(key(SettingsKeys::kDateFormat), 3);
    QCOMPARE(settings->value(QStringLiteral("date_format")).toInt(), 3);
    QCOMPARE(stashed().keys(), (QStringList{key(SettingsKeys::kDateFormat), key(SettingsKeys::kLanguage)}));
    settings->endGroup();
}

void TestSettingsHandler::theAuditTrailSettingBelongsToOneDatabase()
{
    const QString mine = QStringLiteral("6c62272e07bb0142");
    const QString other = QStringLiteral("6c62272e07bb0143");
    QVERIFY(!store()->isAuditTrailSettingEnabled(mine));
    store()->enableAuditTrailSetting(mine);
    QVERIFY(store()->isAuditTrailSettingEnabled(mine));
    QVERIFY(!store()->isAuditTrailSettingEnabled(other));
    QVERIFY(!store()->isAuditTrailSettingEnabled(QString()));
    store()->disableAuditTrailSetting(other);
    QVERIFY(store()->isAuditTrailSettingEnabled(mine));

    store()->changeSettingsFile(parking());
    QVERIFY(!store()->isAuditTrailSettingEnabled(mine));
    store()->changeSettingsFile(m_working);
    store()->initAuditTrailSetting();
    QVERIFY(store()->isAuditTrailSettingEnabled(mine));
    store()->disableAuditTrailSetting(mine);
    QVERIFY(!store()->isAuditTrailSettingEnabled(mine));
}

void TestSettingsHandler::aDamagedAuditTrailSettingReadsAsOff()
{
    const QString mine = QStringLiteral("6c62272e07bb0142");
    store()->enableAuditTrailSetting(mine);
    const QString name = key(SettingsKeys::kAuditTrailSetting);
    store()->setValue(name, store()->value(name).toString() + QLatin1Char('x'));
    QVERIFY(!store()->isAuditTrailSettingEnabled(mine));
    const QString message = QStringLiteral("The audit trail setting is damaged");
    const int before = linesWith(m_workstation.runtimeLog(), message).size();
    store()->initAuditTrailSetting();
    QCOMPARE(linesWith(m_workstation.runtimeLog(), message).size(), before + 1);
}

void TestSettingsHandler::localApplicationSettingsAreUtf8InTheSystemScope()
{
    {
        const std::unique_ptr<QSettings> settings = openLocalApplicationSettings();
        QVERIFY(settings->isWritable());
        settings->setValue(QStringLiteral("ui/text"), QString::fromUtf8("ö"));
    }
    QCOMPARE(readFile(m_workstation.localApplicationSettings()), QByteArray("[ui]\ntext=ö\n"));
    QCOMPARE(openLocalApplicationSettings()->value(QStringLiteral("ui/text")).toString(),
             QString::fromUtf8("ö"));
}

void TestSettingsHandler::settingsFilesAreUtf8()
{
    const QString path = file(QStringLiteral("local_cache"));
    openSettingsFile(path)->setValue(QStringLiteral("text"), QString::fromUtf8("ö€"));
    QCOMPARE(readFile(path), QByteArray("[General]\ntext=ö€\n"));
    QCOMPARE(openSettingsFile(path)->value(QStringLiteral("text")).toString(), QString::fromUtf8("ö€"));
}

QTEST_GUILESS_MAIN(TestSettingsHandler)
#include "test_settingshandler.moc"
