#include "Corvane/settings/studysettingsview.h"
#include "settingstest.h"
#include "support/pluginfolder.h"
#include "support/userinput.h"

#include <QCheckBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

using namespace SettingsTest;

namespace {

constexpr int kListFields = 4;

QComboBox *applicationBox(const QWidget &page)
{
    return child<QComboBox>(page, "study_application");
}

QComboBox *listField(const QWidget &page, int slot)
{
    return child<QComboBox>(page, qPrintable(QStringLiteral("study_list_field_%1").arg(slot)));
}

QStringList listFields(const QWidget &page)
{
    QStringList fields;
    for (int slot = 1; slot <= kListFields; ++slot)
        fields.append(listField(page, slot)->currentData().toString());
    return fields;
}

QCheckBox *fieldBox(const QWidget &page, const QString &id)
{
    return page.findChild<QCheckBox *>(QStringLiteral("study_field_") + id);
}

QStringList fieldBoxTexts(const QWidget &page)
{
    QStringList texts;
    for (const QCheckBox *box : page.findChildren<QCheckBox *>())
        texts.append(box->text());
    return texts;
}

QStringList checkedFields(const QWidget &page)
{
    QStringList ids;
    for (const QCheckBox *box : page.findChildren<QCheckBox *>()) {
        if (box->isChecked())
            ids.append(box->objectName().mid(QStringLiteral("study_field_").size()));
    }
    ids.sort();
    return ids;
}

void chooseApplication(const QWidget &page, const QString &id)
{
    chooseEntry(applicationBox(page), applicationBox(page)->findData(id));
    QCOMPARE(applicationBox(page)->currentData().toString(), id);
}

QStringList storedList(const char *key)
{
    return stored(key).toStringList();
}

}  // namespace

/// The Study fields page with plug-ins, on real ones.
class TestStudyFields : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void eachPluginIsAnApplicationAndSpirometryComesLast();
    void withAPluginForRuvenkaNoItemIsAdded();
    void theReferenceSetsAreShownForRuvenkaOnly();
    void aFixedFieldIsOfferedInTheListButHasNoBox();
    void nothingStoredShowsTheDefaults();
    void fewerThanFourSlotsLeaveTheRestEmpty_data();
    void fewerThanFourSlotsLeaveTheRestEmpty();
    void leavingAnApplicationWritesItsFields();
    void choosingWithoutSavingWritesNothing();
    void theEntriesOfOthersStay();
    void withoutAPluginForRuvenkaItsFieldEntriesStay();
    void referenceSetsAreStoredWhicheverApplicationIsShown();
    void writingRemovesTheEntriesOfAPluginWhoseIdContainsRuvenka();
    void reloadingReadsTheCurrentApplicationAgain();
    void reloadingKeepsTheKeyboardAtItsField();

    void fieldsThatCannotBeStoredAreLeftOut();
    void aPluginThatForgetsItsFieldsIsShownWithoutThem();
    void aPluginWithoutANameHasNoFields();
    void aPluginWithoutADisplayNameIsShownByItsId();
    void aPluginThatFailsIsReportedOnceSomebodyListens();
    void textsFollowTheLanguageOfTheLocalCache();
    void thousandsOfFields();

private:
    Workstation m_workstation;
};

void TestStudyFields::init()
{
    useEmptySettings(m_workstation);
    QFile::remove(m_workstation.dataDirectory() + QStringLiteral("local_cache"));
}

void TestStudyFields::eachPluginIsAnApplicationAndSpirometryComesLast()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("beta")) && folder.add(QStringLiteral("alpha")));
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    QCOMPARE(items(applicationBox(page)),
             (QStringList{QStringLiteral("Alpha study"), QStringLiteral("Beta study"),
                          QStringLiteral("Spirometry")}));
    QCOMPARE(applicationBox(page)->itemData(2).toString(), QStringLiteral("Ruvenka"));
    QCOMPARE(applicationBox(page)->accessibleName(), QStringLiteral("Study information settings for"));
    QVERIFY(applicationBox(page)->isVisible());
    QVERIFY(child<QLabel>(page, "no_study_plugins")->isHidden());
    QVERIFY(child<QWidget>(page, "study_fields")->isVisible());
}

void TestStudyFields::withAPluginForRuvenkaNoItemIsAdded()
{
    PluginFolder folder;
    QVERIFY(folder.addSamples());
    const StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(items(applicationBox(page)),
             (QStringList{QStringLiteral("Night oximetry"), QStringLiteral("Spirometry")}));
    QVERIFY(!fieldBox(page, QStringLiteral("smoking")));
}

void TestStudyFields::theReferenceSetsAreShownForRuvenkaOnly()
{
    PluginFolder folder;
    QVERIFY(folder.addSamples());
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    QVERIFY(child<QWidget>(page, "reference_sets")->isHidden());
    chooseApplication(page, QStringLiteral("Ruvenka"));
    QVERIFY(child<QWidget>(page, "reference_sets")->isVisible());
    QVERIFY(child<QWidget>(page, "study_fields")->isVisible());
    chooseApplication(page, QStringLiteral("NightOximetry"));
    QVERIFY(child<QWidget>(page, "reference_sets")->isHidden());
}

void TestStudyFields::aFixedFieldIsOfferedInTheListButHasNoBox()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    for (int slot = 1; slot <= kListFields; ++slot) {
        QCOMPARE(items(listField(page, slot)),
                 (QStringList{QStringLiteral("Application name"), QStringLiteral("Date"),
                              QStringLiteral("Weight"), QStringLiteral("Mood & sleep"),
                              QStringLiteral("Visit"), QStringLiteral("Age"), QString()}));
        QCOMPARE(listField(page, slot)->itemData(0).toString(), QStringLiteral("appName"));
        QCOMPARE(listField(page, slot)->itemData(1).toString(), QStringLiteral("Date"));
        QCOMPARE(listField(page, slot)->itemData(4).toString(), QStringLiteral("visit"));
        QVERIFY(!listField(page, slot)->itemData(6).isValid());
        QCOMPARE(listField(page, slot)->currentIndex(), 6);
    }
    QCOMPARE(fieldBoxTexts(page),
             (QStringList{QStringLiteral("Weight"), QStringLiteral("Mood && sleep"), QStringLiteral("Age")}));
    QVERIFY(!fieldBox(page, QStringLiteral("visit")));
    QVERIFY(checkedFields(page).isEmpty());
    QTRY_VERIFY(fieldBox(page, QStringLiteral("age"))->isVisible());
}

void TestStudyFields::nothingStoredShowsTheDefaults()
{
    PluginFolder folder;
    QVERIFY(folder.addSamples());
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    QCOMPARE(listFields(page), (QStringList{QString(), QString(), QString(), QString()}));
    chooseApplication(page, QStringLiteral("Ruvenka"));
    QCOMPARE(listFields(page),
             (QStringList{QStringLiteral("appName"), QString(), QStringLiteral("Date"), QString()}));
    QVERIFY(checkedFields(page).isEmpty());
    page.saveSettings();
    QCOMPARE(storedList(SettingsKeys::kStudyResultFields),
             (QStringList{QStringLiteral("Ruvenka=appName,,Date,"), QStringLiteral("NightOximetry=,,,")}));
    QCOMPARE(storedList(SettingsKeys::kStudyHiddenFields),
             (QStringList{QStringLiteral("exe-id=weight"), QStringLiteral("NightOximetry="),
                          QStringLiteral("Ruvenka=")}));
}

void TestStudyFields::fewerThanFourSlotsLeaveTheRestEmpty_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QStringList>("fields");
    const QString empty;
    const QString weight = QStringLiteral("weight");
    const QString age = QStringLiteral("age");
    QTest::newRow("two slots") << QStringLiteral("Alpha=weight,age")
                               << QStringList{weight, age, empty, empty};
    QTest::newRow("four slots") << QStringLiteral("Alpha=age,,,weight")
                                << QStringList{age, empty, empty, weight};
    QTest::newRow("more than four slots")
        << QStringLiteral("Alpha=,,,weight,age") << QStringList{empty, empty, empty, weight};
    QTest::newRow("no slot") << QStringLiteral("Alpha=") << QStringList{empty, empty, empty, empty};
    QTest::newRow("only the application")
        << QStringLiteral("Alpha") << QStringList{empty, empty, empty, empty};
    QTest::newRow("a field that no longer exists")
        << QStringLiteral("Alpha=gone,weight") << QStringList{empty, weight, empty, empty};
    QTest::newRow("a second separator")
        << QStringLiteral("Alpha=a=b,weight") << QStringList{empty, weight, empty, empty};
    QTest::newRow("an application whose id goes on")
        << QStringLiteral("Alphabet=weight") << QStringList{empty, empty, empty, empty};
    QTest::newRow("the program's own fields")
        << QStringLiteral("Alpha=Date,appName")
        << QStringList{QStringLiteral("Date"), QStringLiteral("appName"), empty, empty};
}

void TestStudyFields::fewerThanFourSlotsLeaveTheRestEmpty()
{
    QFETCH(QString, entry);
    QFETCH(QStringList, fields);
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    setStored(SettingsKeys::kStudyResultFields, QStringList{entry});
    const StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(listFields(page), fields);
    for (int slot = 1; slot <= kListFields; ++slot)
        QVERIFY(listField(page, slot)->currentIndex() >= 0);
}

void TestStudyFields::leavingAnApplicationWritesItsFields()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")) && folder.add(QStringLiteral("beta")));
    StudySettingsView page(m_workstation.dataDirectory());
    page.resize(800, 600);
    page.show();
    chooseEntry(listField(page, 2), 3);
    QTRY_VERIFY(fieldBox(page, QStringLiteral("weight"))->isVisible());
    fieldBox(page, QStringLiteral("weight"))->click();
    fieldBox(page, QStringLiteral("age"))->click();
    QVERIFY(!store()->generalSettings()->contains(QLatin1String(SettingsKeys::kStudyResultFields)));

    chooseApplication(page, QStringLiteral("Beta"));
    QCOMPARE(storedList(SettingsKeys::kStudyResultFields),
             (QStringList{QStringLiteral("Ruvenka=appName,,Date,"), QStringLiteral("Alpha=,mood,,")}));
    QCOMPARE(storedList(SettingsKeys::kStudyHiddenFields),
             (QStringList{QStringLiteral("exe-id=weight"), QStringLiteral("Alpha=age,weight")}));
    QCOMPARE(listFields(page), (QStringList{QString(), QString(), QString(), QString()}));
    QCOMPARE(fieldBoxTexts(page), (QStringList{QStringLiteral("Weight"), QStringLiteral("Height")}));
    QVERIFY(checkedFields(page).isEmpty());

    chooseApplication(page, QStringLiteral("Alpha"));
    QCOMPARE(listFields(page), (QStringList{QString(), QStringLiteral("mood"), QString(), QString()}));
    QCOMPARE(checkedFields(page), (QStringList{QStringLiteral("age"), QStringLiteral("weight")}));
}

void TestStudyFields::choosingWithoutSavingWritesNothing()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")) && folder.add(QStringLiteral("beta")));
    StudySettingsView page(m_workstation.dataDirectory());
    fieldBox(page, QStringLiteral("age"))->click();
    QVERIFY(QMetaObject::invokeMethod(&page, "resetStudyFields", Q_ARG(int, 1), Q_ARG(bool, false)));
    QVERIFY(fieldBox(page, QStringLiteral("height")));
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
}

void TestStudyFields::theEntriesOfOthersStay()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    const QStringList listEntries = {QStringLiteral("Alphabet=a,b,c,d"),
                                     QStringLiteral("Alpha=weight,,,"),
                                     QStringLiteral("of Alpha=x,,,"),
                                     QStringLiteral("malformed"),
                                     QString(),
                                     QStringLiteral("Alpha=age,,,")};
    setStored(SettingsKeys::kStudyResultFields, listEntries);
    setStored(SettingsKeys::kStudyHiddenFields,
              QStringList{QStringLiteral("exe-id=weight"), QStringLiteral("Alpha=mood")});
    StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(listFields(page).constFirst(), QStringLiteral("weight"));
    fieldBox(page, QStringLiteral("mood"))->click();
    page.saveSettings();
    QCOMPARE(storedList(SettingsKeys::kStudyResultFields), listEntries.mid(0, 5));
    QCOMPARE(storedList(SettingsKeys::kStudyHiddenFields),
             (QStringList{QStringLiteral("exe-id=weight"), QStringLiteral("Alpha=")}));
}

void TestStudyFields::withoutAPluginForRuvenkaItsFieldEntriesStay()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    const QStringList entries = {QStringLiteral("Ruvenka=appName,quality,,")};
    setStored(SettingsKeys::kStudyResultFields, entries);
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    chooseApplication(page, QStringLiteral("Ruvenka"));
    QVERIFY(child<QWidget>(page, "reference_sets")->isVisible());
    QVERIFY(child<QWidget>(page, "study_fields")->isHidden());
    page.saveSettings();
    QCOMPARE(storedList(SettingsKeys::kStudyResultFields),
             entries + QStringList{QStringLiteral("Alpha=,,,")});
    chooseApplication(page, QStringLiteral("Alpha"));
    QVERIFY(child<QWidget>(page, "study_fields")->isVisible());
}

void TestStudyFields::referenceSetsAreStoredWhicheverApplicationIsShown()
{
    PluginFolder folder;
    QVERIFY(folder.addSamples());
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    chooseApplication(page, QStringLiteral("Ruvenka"));
    auto *box = child<QComboBox>(page, "default_reference_set");
    chooseEntry(box, box->findData(QStringLiteral("2012")));
    chooseApplication(page, QStringLiteral("NightOximetry"));
    page.saveSettings();
    QCOMPARE(storedList(SettingsKeys::kStudySpecific),
             QStringList{QStringLiteral("Ruvenka=default=2012=GLI2012")});
}

void TestStudyFields::writingRemovesTheEntriesOfAPluginWhoseIdContainsRuvenka()
{
    PluginFolder folder;
    QVERIFY(folder.addSamples() && folder.add(QStringLiteral("ruvenkaplus")));
    setStored(SettingsKeys::kStudySpecific,
              QStringList{QStringLiteral("RuvenkaPlus=hidden=1=One"), QStringLiteral("Other=hidden=1=One")});
    setStored(SettingsKeys::kStudyHiddenFields, QStringList{QStringLiteral("RuvenkaPlus=weight")});
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    chooseApplication(page, QStringLiteral("Ruvenka"));
    page.saveSettings();
    QCOMPARE(storedList(SettingsKeys::kStudySpecific), QStringList{QStringLiteral("Other=hidden=1=One")});
    // The lists of fields go by the whole id.
    QVERIFY(storedList(SettingsKeys::kStudyHiddenFields).contains(QStringLiteral("RuvenkaPlus=weight")));
}

void TestStudyFields::reloadingReadsTheCurrentApplicationAgain()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")) && folder.add(QStringLiteral("beta")));
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    chooseApplication(page, QStringLiteral("Beta"));
    chooseEntry(listField(page, 1), 0);
    fieldBox(page, QStringLiteral("weight"))->click();
    setStored(SettingsKeys::kStudyResultFields, QStringList{QStringLiteral("Beta=,height,,")});
    setStored(SettingsKeys::kStudyHiddenFields, QStringList{QStringLiteral("Beta=height")});
    page.reloadSettings();
    QCOMPARE(applicationBox(page)->currentData().toString(), QStringLiteral("Beta"));
    QCOMPARE(listFields(page), (QStringList{QString(), QStringLiteral("height"), QString(), QString()}));
    QCOMPARE(checkedFields(page), QStringList{QStringLiteral("height")});
    QCOMPARE(storedList(SettingsKeys::kStudyHiddenFields), QStringList{QStringLiteral("Beta=height")});
}

void TestStudyFields::reloadingKeepsTheKeyboardAtItsField()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("alpha")));
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    page.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    fieldBox(page, QStringLiteral("age"))->setFocus();
    page.reloadSettings();
    QCOMPARE(QApplication::focusWidget(), fieldBox(page, QStringLiteral("age")));
    listField(page, 2)->setFocus();
    page.reloadSettings();
    QCOMPARE(QApplication::focusWidget(), listField(page, 2));
}

void TestStudyFields::fieldsThatCannotBeStoredAreLeftOut()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("odd")));
    const StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(fieldBoxTexts(page), (QStringList{QStringLiteral("First"), QStringLiteral("mute")}));
    QCOMPARE(listField(page, 1)->count(), 5);
}

void TestStudyFields::aPluginThatForgetsItsFieldsIsShownWithoutThem()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("forgetful")));
    StudySettingsView page(m_workstation.dataDirectory());
    const QStringList texts = {QStringLiteral("Weight"), QStringLiteral("Height")};
    QCOMPARE(fieldBoxTexts(page), texts);
    page.updateTexts();
    QCOMPARE(fieldBoxTexts(page), texts);
    QCOMPARE(items(listField(page, 1)).mid(2, 2), texts);
    page.reloadSettings();
    QVERIFY(fieldBoxTexts(page).isEmpty());
    QCOMPARE(items(listField(page, 1)),
             (QStringList{QStringLiteral("Application name"), QStringLiteral("Date"), QString()}));
    page.updateTexts();
    QCOMPARE(items(listField(page, 1)),
             (QStringList{QStringLiteral("Application name"), QStringLiteral("Date"), QString()}));
}

void TestStudyFields::aPluginWithoutANameHasNoFields()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("nameless")));
    StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(items(applicationBox(page)),
             (QStringList{QStringLiteral("Nameless study"), QStringLiteral("Spirometry")}));
    QVERIFY(child<QWidget>(page, "study_fields")->isHidden());
    page.saveSettings();
    QVERIFY(!store()->generalSettings()->contains(QLatin1String(SettingsKeys::kStudyResultFields)));
}

void TestStudyFields::aPluginWithoutADisplayNameIsShownByItsId()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("untitled")));
    StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(items(applicationBox(page)),
             (QStringList{QStringLiteral("Untitled"), QStringLiteral("Spirometry")}));
}

void TestStudyFields::aPluginThatFailsIsReportedOnceSomebodyListens()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("nullinstance")) && folder.add(QStringLiteral("beta")));
    const StudySettingsView page(m_workstation.dataDirectory());
    QSignalSpy errors(&page, &StudySettingsView::logError);
    QTRY_COMPARE(errors.size(), 1);
    QCOMPARE(errors.first().at(0).value<Actions::Action>(), Actions::LoadPlugin);
    QCOMPARE(errors.first().at(1).value<ZephanError>(), ZephanErrors::kPluginNotInstantiated);
    QCOMPARE(errors.first().at(2).toString(), QStringLiteral("Plugin failure: nullinstance.plugin"));
    QCOMPARE(applicationBox(page)->count(), 2);
}

void TestStudyFields::textsFollowTheLanguageOfTheLocalCache()
{
    QVERIFY(
        writeFile(m_workstation.dataDirectory() + QStringLiteral("local_cache"), "[General]\nlanguage=ja\n"));
    PluginFolder folder;
    QVERIFY(folder.addSamples());
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    QCOMPARE(applicationBox(page)->itemText(0), QStringLiteral("夜間オキシメトリー"));
    QCOMPARE(fieldBox(page, QStringLiteral("mask"))->text(), QStringLiteral("マスク"));
    fieldBox(page, QStringLiteral("mask"))->click();
    chooseEntry(listField(page, 1), 2);

    // As when the language changes while the page is there.
    page.updateTexts();
    QCOMPARE(checkedFields(page), QStringList{QStringLiteral("mask")});
    QCOMPARE(listField(page, 1)->currentText(), QStringLiteral("機器"));
    QCOMPARE(listFields(page).constFirst(), QStringLiteral("device"));
}

void TestStudyFields::thousandsOfFields()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("many")));
    QStringList ids;
    for (int i = 0; i < 5000; i += 2)
        ids.append(QStringLiteral("field%1").arg(i));
    ids.sort();
    const QString entry = QStringLiteral("Many=") + ids.join(QLatin1Char(','));
    setStored(SettingsKeys::kStudyHiddenFields, QStringList{entry});
    setStored(SettingsKeys::kStudyResultFields, QStringList{QStringLiteral("Many=field4999,field0,,Date")});
    StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(page.findChildren<QCheckBox *>().size(), 5000);
    page.saveSettings();
    QCOMPARE(storedList(SettingsKeys::kStudyHiddenFields), QStringList{entry});
    QCOMPARE(storedList(SettingsKeys::kStudyResultFields),
             QStringList{QStringLiteral("Many=field4999,field0,,Date")});
    page.show();
    QTRY_VERIFY(fieldBox(page, QStringLiteral("field0"))->isVisible());
}

QTEST_MAIN(TestStudyFields)
#include "test_studyfields.moc"
