#include "Corvane/settings/referencesets.h"
#include "Corvane/settings/studysettingsview.h"
#include "ZephanShared/widgets/selectionpopup.h"
#include "settingstest.h"
#include "support/pluginfolder.h"
#include "support/userinput.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace SettingsTest;

namespace {

const QString kGli = QStringLiteral("2012");
const QString kBrazil = QStringLiteral("-344530043");
const QString kChina = QStringLiteral("36662987");

QStringList storedList(const char *key)
{
    return stored(key).toStringList();
}

SelectionPopup *hiddenSets(const QWidget &page)
{
    return child<SelectionPopup>(page, "hidden_reference_sets_list");
}

QComboBox *defaultSet(const QWidget &page)
{
    return child<QComboBox>(page, "default_reference_set");
}

QListWidgetItem *setItem(const QWidget &page, const QString &id)
{
    for (int row = 0; row < hiddenSets(page)->count(); ++row) {
        if (hiddenSets(page)->item(row)->data(Qt::UserRole) == id)
            return hiddenSets(page)->item(row);
    }
    qFatal("There is no reference set %s", qPrintable(id));
}

QStringList hiddenIds(const QWidget &page)
{
    QStringList ids;
    for (int row = 0; row < hiddenSets(page)->count(); ++row) {
        if (hiddenSets(page)->item(row)->isSelected())
            ids.append(hiddenSets(page)->item(row)->data(Qt::UserRole).toString());
    }
    return ids;
}

/// Opens the list, clicks a set, and closes it.
void clickSet(const QWidget &page, const QString &id)
{
    auto *button = child<QPushButton>(page, "hidden_reference_sets");
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(hiddenSets(page)->isVisible());
    hiddenSets(page)->scrollToItem(setItem(page, id));
    QTest::mouseClick(hiddenSets(page)->viewport(), Qt::LeftButton, {},
                      hiddenSets(page)->visualItemRect(setItem(page, id)).center());
    QTest::keyClick(hiddenSets(page), Qt::Key_Escape);
    QVERIFY(!hiddenSets(page)->isVisible());
}

void chooseSet(const QWidget &page, const QString &id)
{
    chooseEntry(defaultSet(page), defaultSet(page)->findData(id));
}

}  // namespace

/// The Study fields page without plug-ins: the reference sets, on the real widgets.
class TestStudySettingsView : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void withoutPluginsThePageShowsTheReferenceSetsAlone();
    void withoutPluginsTheReferenceSetsAreEditableAndStoredUnderRuvenka();
    void theBuiltInTableIsOfferedByName();
    void descriptionsAreToolTipsAndKeepTheirBlank();
    void theButtonTellsHowManyAreHidden();
    void choosingAHiddenSetAsDefaultDeselectsIt();
    void hidingTheDefaultSetEmptiesTheBox();
    void anEmptyChoiceWritesNoEntry();
    void reading_data();
    void reading();
    void writingRemovesEveryEntryThatHasTheIdInIt();
    void reloadingForgetsWhatWasChosen();
    void theFieldSettingsStayUntouched();
    void aNewLanguageKeepsWhatWasChosen();

    void aPluginsOwnSetsReplaceTheTable_data();
    void aPluginsOwnSetsReplaceTheTable();
    void ownSetsAreStoredByTheirNames();
    void aLongNameDoesNotWidenThePage();
    void thousandsOfOwnSets();

private:
    void setOwnSets(const QByteArray &line);

    Workstation m_workstation;
    PluginFolder m_noPlugins;
};

void TestStudySettingsView::init()
{
    useEmptySettings(m_workstation);
    setOwnSets(QByteArray());
}

void TestStudySettingsView::setOwnSets(const QByteArray &line)
{
    QVERIFY(
        writeFile(m_workstation.path(QStringLiteral("xdg/Halvorn/RuvenkaPlugin.ini")), "[General]\n" + line));
}

void TestStudySettingsView::withoutPluginsThePageShowsTheReferenceSetsAlone()
{
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    const auto *label = child<QLabel>(page, "no_study_plugins");
    QVERIFY(label->isVisible());
    QCOMPARE(label->text(),
             QStringLiteral("More study specific settings available when study plugins are installed"));
    QVERIFY(child<QComboBox>(page, "study_application")->isHidden());
    QVERIFY(child<QWidget>(page, "reference_sets")->isVisible());
    QVERIFY(!page.findChild<QWidget *>(QStringLiteral("study_fields")));
    for (const QLabel *other : page.findChildren<QLabel *>())
        QVERIFY(!other->isVisible() || other->text() != QLatin1String("Study information settings for"));
}

void TestStudySettingsView::withoutPluginsTheReferenceSetsAreEditableAndStoredUnderRuvenka()
{
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    clickSet(page, kChina);
    clickSet(page, kBrazil);
    chooseSet(page, kGli);
    page.saveSettings();
    QCOMPARE(storedList(SettingsKeys::kStudySpecific),
             (QStringList{QStringLiteral("Ruvenka=hidden=-344530043=Brazil,36662987=China"),
                          QStringLiteral("Ruvenka=default=2012=GLI2012")}));

    const StudySettingsView again(m_workstation.dataDirectory());
    QCOMPARE(hiddenIds(again), (QStringList{kBrazil, kChina}));
    QCOMPARE(defaultSet(again)->currentText(), QStringLiteral("GLI2012"));
}

void TestStudySettingsView::theBuiltInTableIsOfferedByName()
{
    const StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(builtInReferenceSets().size(), 38);
    QStringList names;
    for (const ReferenceSet &set : builtInReferenceSets()) {
        names.append(QLatin1String(set.name));
        QCOMPARE(setItem(page, QLatin1String(set.id))->text(), QLatin1String(set.name));
        QCOMPARE(defaultSet(page)->itemText(defaultSet(page)->findData(QLatin1String(set.id))),
                 QLatin1String(set.name));
    }
    names.sort();
    QStringList shown;
    for (int row = 0; row < hiddenSets(page)->count(); ++row)
        shown.append(hiddenSets(page)->item(row)->text());
    QCOMPARE(shown, names);
    QCOMPARE(items(defaultSet(page)), QStringList{QString()} + names);
    QCOMPARE(defaultSet(page)->currentIndex(), 0);
    QVERIFY(hiddenIds(page).isEmpty());
}

void TestStudySettingsView::descriptionsAreToolTipsAndKeepTheirBlank()
{
    const StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(setItem(page, kBrazil)->toolTip(), QStringLiteral("Brazilian reference values"));
    QCOMPARE(setItem(page, QStringLiteral("-13244063"))->toolTip(),
             QStringLiteral(" Japanese reference values"));
    QCOMPARE(setItem(page, QStringLiteral("-1324406112"))->toolTip(),
             QStringLiteral("NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years "
                            "Mexican American ethnics"));
}

void TestStudySettingsView::theButtonTellsHowManyAreHidden()
{
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    const auto *button = child<QPushButton>(page, "hidden_reference_sets");
    QCOMPARE(button->text(), QStringLiteral("Select to hide"));
    clickSet(page, kChina);
    QCOMPARE(button->text(), QStringLiteral("Select to hide (1)"));
    clickSet(page, kBrazil);
    QCOMPARE(button->text(), QStringLiteral("Select to hide (2)"));
    clickSet(page, kChina);
    clickSet(page, kBrazil);
    QCOMPARE(button->text(), QStringLiteral("Select to hide"));
}

void TestStudySettingsView::choosingAHiddenSetAsDefaultDeselectsIt()
{
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    clickSet(page, kGli);
    clickSet(page, kChina);
    chooseSet(page, kGli);
    QCOMPARE(hiddenIds(page), QStringList{kChina});
    QCOMPARE(defaultSet(page)->currentData().toString(), kGli);
    QCOMPARE(child<QPushButton>(page, "hidden_reference_sets")->text(), QStringLiteral("Select to hide (1)"));
}

void TestStudySettingsView::hidingTheDefaultSetEmptiesTheBox()
{
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    chooseSet(page, kGli);
    clickSet(page, kChina);
    QCOMPARE(defaultSet(page)->currentData().toString(), kGli);
    clickSet(page, kGli);
    QCOMPARE(defaultSet(page)->currentIndex(), 0);
    QCOMPARE(hiddenIds(page), (QStringList{kChina, kGli}));
}

void TestStudySettingsView::anEmptyChoiceWritesNoEntry()
{
    setStored(SettingsKeys::kStudySpecific, QStringList{QStringLiteral("Ruvenka=hidden=36662987=China"),
                                                        QStringLiteral("Other=hidden=1=One"),
                                                        QStringLiteral("Ruvenka=default=2012=GLI2012")});
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    clickSet(page, kChina);
    chooseEntry(defaultSet(page), 0);
    page.saveSettings();
    QCOMPARE(storedList(SettingsKeys::kStudySpecific), QStringList{QStringLiteral("Other=hidden=1=One")});
}

void TestStudySettingsView::reading_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("hidden");
    QTest::addColumn<QString>("preset");
    const auto one = [](const char *entry) {
        return QVariant(QStringList{QString::fromUtf8(entry)});
    };
    const QStringList none;

    QTest::newRow("one text is a list of one")
        << QVariant(QStringLiteral("Ruvenka=hidden=36662987=China")) << QStringList{kChina} << QString();
    QTest::newRow("the id counts and not the name")
        << one("Ruvenka=hidden=36662987=Kiina,-344530043=") << QStringList{kBrazil, kChina} << QString();
    QTest::newRow("a name may have the separator of entries in it")
        << one("Ruvenka=hidden=36662987=a=b") << QStringList{kChina} << QString();
    QTest::newRow("an id that is not there selects nothing")
        << one("Ruvenka=hidden=4711=Gone,36662987=China") << QStringList{kChina} << QString();
    QTest::newRow("an unknown default leaves the box empty")
        << one("Ruvenka=default=4711=Gone") << none << QString();
    QTest::newRow("a default without a name") << one("Ruvenka=default=2012") << none << kGli;
    QTest::newRow("what is hidden and the default is the default")
        << QVariant(QStringList{QStringLiteral("Ruvenka=hidden=2012=GLI2012,36662987=China"),
                                QStringLiteral("Ruvenka=default=2012=GLI2012")})
        << QStringList{kChina} << kGli;
    QTest::newRow("another application's entries") << one("Other=hidden=36662987=China") << none << QString();
    QTest::newRow("an application whose id goes on")
        << one("RuvenkaPlus=default=2012=GLI2012") << none << QString();
    QTest::newRow("small letters are another id")
        << one("ruvenka=hidden=36662987=China") << none << QString();
    QTest::newRow("no application") << one("=hidden=36662987=China") << none << QString();
    QTest::newRow("an unknown kind") << one("Ruvenka=shown=36662987=China") << none << QString();
    QTest::newRow("a kind alone") << one("Ruvenka=hidden") << none << QString();
    QTest::newRow("nothing hidden") << one("Ruvenka=hidden=") << none << QString();
    QTest::newRow("an empty default") << one("Ruvenka=default=") << none << QString();
    QTest::newRow("only the application") << one("Ruvenka") << none << QString();
    QTest::newRow("an empty entry") << one("") << none << QString();
    QTest::newRow("separators alone") << one("===,,,===") << none << QString();
    QTest::newRow("a number") << QVariant(12) << none << QString();
    QTest::newRow("bytes") << QVariant(QByteArray("\x00\xff\x01", 3)) << none << QString();
}

void TestStudySettingsView::reading()
{
    QFETCH(QVariant, value);
    QFETCH(QStringList, hidden);
    QFETCH(QString, preset);
    setStored(SettingsKeys::kStudySpecific, value);
    const StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(hiddenIds(page), hidden);
    QCOMPARE(defaultSet(page)->currentData().toString(), preset);
    QCOMPARE(defaultSet(page)->currentIndex() > 0, !preset.isEmpty());
}

void TestStudySettingsView::writingRemovesEveryEntryThatHasTheIdInIt()
{
    setStored(SettingsKeys::kStudySpecific,
              QStringList{QStringLiteral("RuvenkaPlus=hidden=1=One"),
                          QStringLiteral("Other=hidden=1=of Ruvenka"), QStringLiteral("ruvenka=hidden=1=One"),
                          QStringLiteral("Other=default=2=Two"), QStringLiteral("malformed"),
                          QStringLiteral("Ruvenka=default=2012=GLI2012")});
    StudySettingsView page(m_workstation.dataDirectory());
    page.saveSettings();
    QCOMPARE(storedList(SettingsKeys::kStudySpecific),
             (QStringList{QStringLiteral("ruvenka=hidden=1=One"), QStringLiteral("Other=default=2=Two"),
                          QStringLiteral("malformed"), QStringLiteral("Ruvenka=default=2012=GLI2012")}));
}

void TestStudySettingsView::reloadingForgetsWhatWasChosen()
{
    setStored(SettingsKeys::kStudySpecific, QStringList{QStringLiteral("Ruvenka=hidden=36662987=China")});
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    clickSet(page, kChina);
    clickSet(page, kBrazil);
    chooseSet(page, kGli);
    QVERIFY(QMetaObject::invokeMethod(&page, "reloadSettings"));
    QCOMPARE(hiddenIds(page), QStringList{kChina});
    QCOMPARE(defaultSet(page)->currentIndex(), 0);
}

void TestStudySettingsView::theFieldSettingsStayUntouched()
{
    StudySettingsView page(m_workstation.dataDirectory());
    QVERIFY(QMetaObject::invokeMethod(&page, "saveSettings"));
    QVERIFY(QMetaObject::invokeMethod(&page, "resetStudyFields", Q_ARG(int, 0)));
    QVERIFY(QMetaObject::invokeMethod(&page, "resetStudyFields", Q_ARG(int, -1), Q_ARG(bool, true)));
    QVERIFY(!store()->generalSettings()->contains(QLatin1String(SettingsKeys::kStudyResultFields)));
    QVERIFY(!store()->generalSettings()->contains(QLatin1String(SettingsKeys::kStudyHiddenFields)));
    QVERIFY(!child<QWidget>(page, "reference_sets")->isHidden());
}

void TestStudySettingsView::aNewLanguageKeepsWhatWasChosen()
{
    StudySettingsView page(m_workstation.dataDirectory());
    page.show();
    clickSet(page, kChina);
    chooseSet(page, kGli);
    QVERIFY(QMetaObject::invokeMethod(&page, "updateTexts"));
    QCOMPARE(hiddenIds(page), QStringList{kChina});
    QCOMPARE(defaultSet(page)->currentData().toString(), kGli);
    QCOMPARE(child<QPushButton>(page, "hidden_reference_sets")->text(), QStringLiteral("Select to hide (1)"));
}

void TestStudySettingsView::aPluginsOwnSetsReplaceTheTable_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QStringList>("ids");
    QTest::newRow("in order of name")
        << QByteArray("reference_sets=\"7=Zulu,8=Alfa,9=Mike\"\n")
        << QStringList{QStringLiteral("8"), QStringLiteral("9"), QStringLiteral("7")};
    QTest::newRow("without quotes the commas separate as well")
        << QByteArray("reference_sets=7=Zulu, 8=Alfa\n")
        << QStringList{QStringLiteral("8"), QStringLiteral("7")};
    QTest::newRow("one set") << QByteArray("reference_sets=7=Zulu\n") << QStringList{QStringLiteral("7")};
    QTest::newRow("empty parts are skipped") << QByteArray("reference_sets=\",,7=Zulu,,==8==Alfa=,\"\n")
                                             << QStringList{QStringLiteral("8"), QStringLiteral("7")};
    QTest::newRow("parts of one or three pieces are left out")
        << QByteArray("reference_sets=\"7,8=a=b,9=Mike,=x\"\n") << QStringList{QStringLiteral("9")};
    QTest::newRow("the later of two with one id counts")
        << QByteArray("reference_sets=\"7=Zulu,8=Mike,7=Alfa\"\n")
        << QStringList{QStringLiteral("7"), QStringLiteral("8")};
    QTest::newRow("malformed parts alone leave no set")
        << QByteArray("reference_sets=\"7,8\"\n") << QStringList();
}

void TestStudySettingsView::aPluginsOwnSetsReplaceTheTable()
{
    QFETCH(QByteArray, line);
    QFETCH(QStringList, ids);
    setOwnSets(line);
    const StudySettingsView page(m_workstation.dataDirectory());
    QStringList shown;
    for (int row = 0; row < hiddenSets(page)->count(); ++row)
        shown.append(hiddenSets(page)->item(row)->data(Qt::UserRole).toString());
    QCOMPARE(shown, ids);
    QCOMPARE(defaultSet(page)->count(), ids.size() + 1);
}

void TestStudySettingsView::ownSetsAreStoredByTheirNames()
{
    setOwnSets("reference_sets=\"2012=Our adults,5=Die Übrigen\"\n");
    setStored(SettingsKeys::kStudySpecific,
              QStringList{QStringLiteral("Ruvenka=hidden=2012=GLI2012,36662987=China"),
                          QStringLiteral("Ruvenka=default=5=x")});
    StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(setItem(page, kGli)->toolTip(),
             QStringLiteral("Global Lung Function Initiative reference values for adults and children"));
    QVERIFY(setItem(page, QStringLiteral("5"))->toolTip().isEmpty());
    page.saveSettings();
    QCOMPARE(storedList(SettingsKeys::kStudySpecific),
             (QStringList{QStringLiteral("Ruvenka=hidden=2012=Our adults"),
                          QStringLiteral("Ruvenka=default=5=Die \u00dcbrigen")}));
}

void TestStudySettingsView::aLongNameDoesNotWidenThePage()
{
    setOwnSets("reference_sets=\"7=" + QByteArray("Zulu ").repeated(200) + "\"\n");
    StudySettingsView page(m_workstation.dataDirectory());
    page.resize(765, 455);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QVERIFY(!page.findChild<QScrollArea *>()->horizontalScrollBar()->isVisible());
    QTest::mouseClick(child<QPushButton>(page, "hidden_reference_sets"), Qt::LeftButton);
    QVERIFY(hiddenSets(page)->width() <= page.screen()->availableGeometry().width());
}

void TestStudySettingsView::thousandsOfOwnSets()
{
    constexpr int kSets = 5000;
    QStringList sets;
    for (int i = 0; i < kSets; ++i)
        sets.append(QStringLiteral("%1=Set %1").arg(i));
    setOwnSets("reference_sets=\"" + sets.join(QLatin1Char(',')).toUtf8() + "\"\n");
    sets.removeLast();
    setStored(SettingsKeys::kStudySpecific,
              QStringList{QStringLiteral("Ruvenka=hidden=") + sets.join(QLatin1Char(',')),
                          QStringLiteral("Ruvenka=default=4999=Set 4999")});
    const QStringList before = storedList(SettingsKeys::kStudySpecific);
    StudySettingsView page(m_workstation.dataDirectory());
    QCOMPARE(hiddenIds(page).size(), kSets - 1);
    QCOMPARE(child<QPushButton>(page, "hidden_reference_sets")->text(),
             QStringLiteral("Select to hide (4999)"));
    page.saveSettings();
    const StudySettingsView again(m_workstation.dataDirectory());
    QCOMPARE(hiddenIds(again), hiddenIds(page));
    QCOMPARE(defaultSet(again)->currentText(), QStringLiteral("Set 4999"));
    QCOMPARE(storedList(SettingsKeys::kStudySpecific).size(), before.size());
}

QTEST_MAIN(TestStudySettingsView)
#include "test_studysettingsview.moc"
