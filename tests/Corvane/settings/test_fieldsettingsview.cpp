#include "Corvane/settings/fieldsettingsview.h"
#include "fieldpages.h"
#include "settingstest.h"
#include "support/pluginfolder.h"
#include "support/userinput.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace FieldPages;
using namespace SettingsTest;

namespace {

constexpr char kSummaryBox[] = "summary_field";
constexpr char kOrderBox[] = "name_order";

const QStringList kStandardItems = {"Full Name", "First Name",  "Middle Name", "Last Name",    "Personal ID",
                                    "Birthdate", "Person code", "Gender",      "Ethnic group", "(empty)"};

QComboBox *stateBox(const QWidget &page, int number)
{
    return child<QComboBox>(page, qPrintable(QStringLiteral("field_state_%1").arg(number)));
}

QStringList states(const QWidget &page)
{
    QStringList texts;
    for (int number = 1; number <= 8; ++number)
        texts.append(stateBox(page, number)->currentText());
    return texts;
}

QString requiredBy(const QWidget &page, int number)
{
    return child<QLabel>(page, qPrintable(QStringLiteral("field_required_by_%1").arg(number)))->text();
}

QStringList order(const QWidget &page)
{
    return shownTexts(page, kOrderBox, 3);
}

QStringList summary(const QWidget &page)
{
    return shownTexts(page, kSummaryBox, 4);
}

bool hasBoldLabel(const QWidget &page, const QString &text)
{
    for (const QLabel *label : page.findChildren<QLabel *>()) {
        if (label->text() == text)
            return label->font().bold();
    }
    return false;
}

}  // namespace

/// The Person fields page on its real widgets: the standard fields, the summary and the full name.
class TestFieldSettingsView : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void theTitlesAndTextsAreThere();
    void theColumnsAndLabelsHaveTheSizesOfAllForms();
    void withTheDefaultMasksFieldsAreMandatoryVisibleOrHidden_data();
    void withTheDefaultMasksFieldsAreMandatoryVisibleOrHidden();
    void theDefaultsAreSavedAsTheyAreTold();
    void masks_data();
    void masks();
    void choosingAStateSetsTheBitsOfBothMasks_data();
    void choosingAStateSetsTheBitsOfBothMasks();
    void aMaskThatIsNoIntegerLeavesTheBoxesAsTheyAre_data();
    void aMaskThatIsNoIntegerLeavesTheBoxesAsTheyAre();

    void withoutPluginsNobodyRequiresAField();
    void theApplicationsThatRequireAFieldStandBesideIt();
    void aPluginThatFailsIsReportedOnceThePageIsThere();

    void theOrderOfTheFullNameIsReadAndSaved_data();
    void theOrderOfTheFullNameIsReadAndSaved();
    void anOrderOfFewerThanThreeNumbersKeepsTheBoxes();

    void noCustomFieldsGiveNoRowsAndTenItems();
    void customFieldsFollowTheStandardOnesInTheSummary();
    void theSummaryIsReadAndSaved_data();
    void theSummaryIsReadAndSaved();
    void aSummaryEntryOfARemovedFieldSelectsEmpty();

    void aFieldThatAPageChoosesIsSaved();
    void theWheelDoesNotChangeABoxWithoutFocus();
    void everyFieldHasAnAccessibleName();

private:
    Workstation m_workstation;
};

void TestFieldSettingsView::init()
{
    useEmptySettings(m_workstation);
}

void TestFieldSettingsView::theTitlesAndTextsAreThere()
{
    const FieldSettingsView page;
    for (const char *title : {"Person information settings", "Standard fields", "Required by",
                              "Custom fields", "Summary fields", "Order of the full name"})
        QVERIFY2(hasBoldLabel(page, title), title);
    for (const char *text : {"First Name", "Middle Name", "Last Name", "Personal ID", "Birthdate",
                             "Person code", "Gender", "Ethnic group"}) {
        const auto labels = page.findChildren<QLabel *>();
        const bool isThere = std::any_of(labels.cbegin(), labels.cend(), [text](const QLabel *label) {
            return label->text() == QLatin1String(text);
        });
        QVERIFY2(isThere, text);
    }
    QCOMPARE(child<QPushButton>(page, "add_custom_field")->text(), QStringLiteral("Add new custom field"));
    for (int number = 1; number <= 8; ++number)
        QCOMPARE(items(stateBox(page, number)), (QStringList{"Mandatory", "Visible", "Not visible"}));
    QVERIFY(!page.findChild<QComboBox *>(QStringLiteral("field_state_0")));
    for (int place = 1; place <= 3; ++place)
        QCOMPARE(items(fieldBox(page, kOrderBox, place)),
                 (QStringList{"First Name", "Middle Name", "Last Name", "(empty)"}));
}

void TestFieldSettingsView::theColumnsAndLabelsHaveTheSizesOfAllForms()
{
    FieldSettingsView page;
    show(page);
    int columns = 0;
    for (const QFrame *frame : page.findChildren<QFrame *>()) {
        if (frame->metaObject() != &QFrame::staticMetaObject)
            continue;
        ++columns;
        QVERIFY(frame->width() >= 362);
        QVERIFY(frame->height() >= 410);
    }
    QCOMPARE(columns, 2);
    for (const QLabel *label : page.findChildren<QLabel *>()) {
        if (!label->objectName().startsWith(QLatin1String("field_required_by")))
            QVERIFY2(label->height() == 20, qPrintable(label->text()));
    }
}

void TestFieldSettingsView::withTheDefaultMasksFieldsAreMandatoryVisibleOrHidden_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");

    QTest::newRow("First Name is mandatory") << 1 << "Mandatory";
    QTest::newRow("Middle Name is hidden") << 2 << "Not visible";
    QTest::newRow("Last Name is mandatory") << 3 << "Mandatory";
    QTest::newRow("Personal ID is mandatory") << 4 << "Mandatory";
    QTest::newRow("Birthdate is mandatory") << 5 << "Mandatory";
    QTest::newRow("Person code is hidden") << 6 << "Not visible";
    QTest::newRow("Gender is visible") << 7 << "Visible";
    QTest::newRow("Ethnic group is hidden") << 8 << "Not visible";
}

void TestFieldSettingsView::withTheDefaultMasksFieldsAreMandatoryVisibleOrHidden()
{
    QFETCH(int, number);
    QFETCH(QString, expected);
    const FieldSettingsView page;
    QCOMPARE(stateBox(page, number)->currentText(), expected);
}

void TestFieldSettingsView::theDefaultsAreSavedAsTheyAreTold()
{
    FieldSettingsView page;
    page.saveSettings();
    QCOMPARE(stored(kMandatory), QVariant(58));
    QCOMPARE(stored(kVisible), QVariant(186));
    QCOMPARE(stored(kCustom).toString(), QString());
    QVERIFY(store()->generalSettings()->contains(QLatin1String(kCustom)));
    QCOMPARE(numbers(stored(kNameOrder)), (QList<int>{3, 1, 4}));
    QCOMPARE(stored(kSummary).toStringList(), (QStringList{"1", "3", "5", "7"}));
}

void TestFieldSettingsView::masks_data()
{
    QTest::addColumn<int>("mandatory");
    QTest::addColumn<int>("visible");
    QTest::addColumn<int>("expectedMandatory");
    QTest::addColumn<int>("expectedVisible");

    QTest::newRow("nothing is visible") << 0 << 0 << 0 << 0;
    QTest::newRow("everything is mandatory") << 510 << 510 << 510 << 510;
    QTest::newRow("everything is visible") << 0 << 510 << 0 << 510;
    QTest::newRow("a mandatory field becomes visible, too") << 2 << 0 << 2 << 2;
    QTest::newRow("bits without a row are dropped") << 1 + 2 + 1024 << 1 + 2 + 512 << 2 << 2;
    QTest::newRow("all bits") << -1 << -1 << 510 << 510;
}

void TestFieldSettingsView::masks()
{
    QFETCH(int, mandatory);
    QFETCH(int, visible);
    setStored(kMandatory, mandatory);
    setStored(kVisible, QString::number(visible));
    FieldSettingsView page;
    page.saveSettings();
    QTEST(stored(kMandatory).toInt(), "expectedMandatory");
    QTEST(stored(kVisible).toInt(), "expectedVisible");
}

void TestFieldSettingsView::choosingAStateSetsTheBitsOfBothMasks_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("mandatory");
    QTest::addColumn<int>("visible");

    QTest::newRow("Mandatory sets both bits") << 0 << 58 + 64 << 186 + 64;
    QTest::newRow("Visible sets one bit") << 1 << 58 << 186 + 64;
    QTest::newRow("Not visible sets no bit") << 2 << 58 << 186;
}

void TestFieldSettingsView::choosingAStateSetsTheBitsOfBothMasks()
{
    QFETCH(int, index);
    FieldSettingsView page;
    show(page);
    chooseEntry(stateBox(page, 6), index);
    page.saveSettings();
    QTEST(stored(kMandatory).toInt(), "mandatory");
    QTEST(stored(kVisible).toInt(), "visible");
}

void TestFieldSettingsView::aMaskThatIsNoIntegerLeavesTheBoxesAsTheyAre_data()
{
    QTest::addColumn<QString>("mandatory");
    QTest::addColumn<QString>("visible");

    QTest::newRow("the mandatory mask is a word") << "all"
                                                  << "186";
    QTest::newRow("the visible mask is a word") << "58"
                                                << "all";
    QTest::newRow("both are empty") << ""
                                    << "";
    QTest::newRow("the mandatory mask overflows") << "4294967354"
                                                  << "186";
    QTest::newRow("the visible mask is hexadecimal") << "58"
                                                     << "0xba";
    QTest::newRow("a mask is a fraction") << "58.0"
                                          << "186";
}

void TestFieldSettingsView::aMaskThatIsNoIntegerLeavesTheBoxesAsTheyAre()
{
    QFETCH(QString, mandatory);
    QFETCH(QString, visible);
    setStored(kMandatory, 2);
    setStored(kVisible, 6);
    FieldSettingsView page;
    const QStringList before = states(page);
    QCOMPARE(before.mid(0, 3), (QStringList{"Mandatory", "Visible", "Not visible"}));

    setStored(kMandatory, mandatory);
    setStored(kVisible, visible);
    setStored(kNameOrder, QVariantList{1, 2, 3});
    page.reloadSettings();
    QCOMPARE(states(page), before);
    // The rest of the page is read all the same.
    QCOMPARE(order(page), (QStringList{"First Name", "Middle Name", "Last Name"}));

    const FieldSettingsView another;
    QCOMPARE(stateBox(another, 4)->currentText(), QStringLiteral("Mandatory"));
    QCOMPARE(stateBox(another, 8)->currentText(), QStringLiteral("Not visible"));
}

void TestFieldSettingsView::withoutPluginsNobodyRequiresAField()
{
    const PluginFolder folder;
    const FieldSettingsView page;
    for (int number = 1; number <= 8; ++number)
        QCOMPARE(requiredBy(page, number), QString());
}

void TestFieldSettingsView::theApplicationsThatRequireAFieldStandBesideIt()
{
    PluginFolder folder;
    QVERIFY(folder.addSamples());
    QVERIFY(folder.add(QStringLiteral("alpha")));
    const FieldSettingsView page;
    QCOMPARE(requiredBy(page, 1), QStringLiteral("Alpha study"));
    QCOMPARE(requiredBy(page, 2), QString());
    QCOMPARE(requiredBy(page, 4), QStringLiteral("Night oximetry"));
    QCOMPARE(requiredBy(page, 5), QStringLiteral("Night oximetry, Spirometry"));
    QCOMPARE(requiredBy(page, 8), QStringLiteral("Alpha study, Spirometry"));
}

void TestFieldSettingsView::aPluginThatFailsIsReportedOnceThePageIsThere()
{
    PluginFolder folder;
    QVERIFY(folder.add(QStringLiteral("nullinstance")));
    QVERIFY(folder.add(QStringLiteral("beta")));
    const FieldSettingsView page;
    QSignalSpy errors(&page, &FieldSettingsView::logError);
    QTRY_COMPARE(errors.size(), 1);
    QCOMPARE(errors.first().at(1).toUInt(), 0x09300000U);
    QVERIFY(errors.first().at(2).toString().startsWith(QLatin1String("Plugin failure: nullinstance")));
    QCOMPARE(requiredBy(page, 3), QStringLiteral("Beta study"));
}

void TestFieldSettingsView::theOrderOfTheFullNameIsReadAndSaved_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QList<int>>("saved");

    QTest::newRow("nothing stored is last name, first name")
        << QVariant() << QStringList{"Last Name", "First Name", "(empty)"} << QList<int>{3, 1, 4};
    QTest::newRow("all three parts") << QVariant(QVariantList{1, 2, 3})
                                     << QStringList{"First Name", "Middle Name", "Last Name"}
                                     << QList<int>{1, 2, 3};
    QTest::newRow("no part at all") << QVariant(QVariantList{4, 4, 4})
                                    << QStringList{"(empty)", "(empty)", "(empty)"} << QList<int>{4, 4, 4};
    QTest::newRow("a number that is no part is empty")
        << QVariant(QVariantList{7, 1, 0}) << QStringList{"(empty)", "First Name", "(empty)"}
        << QList<int>{4, 1, 4};
}

void TestFieldSettingsView::theOrderOfTheFullNameIsReadAndSaved()
{
    QFETCH(QVariant, setting);
    if (setting.isValid())
        setStored(kNameOrder, setting);
    FieldSettingsView page;
    QTEST(order(page), "shown");
    page.saveSettings();
    QTEST(numbers(stored(kNameOrder)), "saved");
}

void TestFieldSettingsView::anOrderOfFewerThanThreeNumbersKeepsTheBoxes()
{
    setStored(kNameOrder, QVariantList{2, 3, 1});
    FieldSettingsView page;
    setStored(kNameOrder, QVariantList{1, 2});
    page.reloadSettings();
    QCOMPARE(order(page), (QStringList{"Middle Name", "Last Name", "First Name"}));
    const FieldSettingsView another;
    QCOMPARE(order(another), (QStringList{"Last Name", "First Name", "(empty)"}));
}

void TestFieldSettingsView::noCustomFieldsGiveNoRowsAndTenItems()
{
    setStored(kCustom, QString());
    const FieldSettingsView page;
    QVERIFY(rows(page).isEmpty());
    for (int number = 1; number <= 4; ++number)
        QCOMPARE(items(fieldBox(page, kSummaryBox, number)), kStandardItems);
}

void TestFieldSettingsView::customFieldsFollowTheStandardOnesInTheSummary()
{
    setStored(kCustom, QStringLiteral("3:Job=0:true,1:Badge=1:false"));
    const FieldSettingsView page;
    for (int number = 1; number <= 4; ++number)
        QCOMPARE(items(fieldBox(page, kSummaryBox, number)), kStandardItems + QStringList({"Badge", "Job"}));
}

void TestFieldSettingsView::theSummaryIsReadAndSaved_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QStringList>("saved");

    QTest::newRow("nothing stored shows the defaults")
        << QVariant() << QStringList{"First Name", "Last Name", "Birthdate", "Gender"}
        << QStringList{"1", "3", "5", "7"};
    QTest::newRow("custom fields are stored by their names")
        << QVariant(QStringList{"0", "Badge", "(empty)", "Job"})
        << QStringList{"Full Name", "Badge", "(empty)", "Job"} << QStringList{"0", "Badge", "(empty)", "Job"};
    QTest::newRow("a text that is not offered becomes empty")
        << QVariant(QStringList{"Employer", "8", "-5", "Badge"})
        << QStringList{"(empty)", "Ethnic group", "(empty)", "Badge"}
        << QStringList{"(empty)", "8", "(empty)", "Badge"};
    QTest::newRow("boxes without an entry are empty")
        << QVariant(QStringList{"2", "Job"}) << QStringList{"Middle Name", "Job", "(empty)", "(empty)"}
        << QStringList{"2", "Job", "(empty)", "(empty)"};
    QTest::newRow("a surplus is dropped")
        << QVariant(QStringList{"1", "2", "3", "4", "5", "6"})
        << QStringList{"First Name", "Middle Name", "Last Name", "Personal ID"}
        << QStringList{"1", "2", "3", "4"};
    QTest::newRow("numbers in place of texts")
        << QVariant(QVariantList{1, 2, 3, 9})
        << QStringList{"First Name", "Middle Name", "Last Name", "(empty)"}
        << QStringList{"1", "2", "3", "(empty)"};
}

void TestFieldSettingsView::theSummaryIsReadAndSaved()
{
    QFETCH(QVariant, setting);
    setStored(kCustom, QStringLiteral("1:Badge=0:true,2:Job=0:true"));
    if (setting.isValid())
        setStored(kSummary, setting);
    FieldSettingsView page;
    QTEST(summary(page), "shown");
    page.saveSettings();
    QTEST(stored(kSummary).toStringList(), "saved");
}

void TestFieldSettingsView::aSummaryEntryOfARemovedFieldSelectsEmpty()
{
    setStored(kCustom, QStringLiteral("1:Badge=0:true,2:Job=0:true"));
    setStored(kSummary, QStringList{"1", "Badge", "Job", "Badge"});
    FieldSettingsView page;
    QCOMPARE(summary(page), (QStringList{"First Name", "Badge", "Job", "Badge"}));

    setStored(kCustom, QStringLiteral("2:Job=0:true"));
    page.reloadSettings();
    QCOMPARE(summary(page), (QStringList{"First Name", "(empty)", "Job", "(empty)"}));
}

void TestFieldSettingsView::aFieldThatAPageChoosesIsSaved()
{
    setStored(kCustom, QStringLiteral("1:Badge=0:true"));
    FieldSettingsView page;
    show(page);
    chooseEntry(fieldBox(page, kSummaryBox, 1), 10);
    chooseEntry(fieldBox(page, kSummaryBox, 2), 9);
    chooseEntry(fieldBox(page, kOrderBox, 3), 1);
    page.saveSettings();
    QCOMPARE(stored(kSummary).toStringList(), (QStringList{"Badge", "(empty)", "5", "7"}));
    QCOMPARE(numbers(stored(kNameOrder)), (QList<int>{3, 1, 2}));
}

void TestFieldSettingsView::theWheelDoesNotChangeABoxWithoutFocus()
{
    setStored(kCustom, QStringLiteral("1:Badge=0:true"));
    FieldSettingsView page;
    show(page);
    for (QComboBox *box : page.findChildren<QComboBox *>()) {
        box->clearFocus();
        const int before = box->currentIndex();
        for (const int delta : {-120, 120}) {
            const QPointF middle = box->rect().center();
            QWheelEvent wheel(middle, box->mapToGlobal(middle.toPoint()), {}, {0, delta}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(box, &wheel);
            QCOMPARE(box->currentIndex(), before);
        }
    }
}

void TestFieldSettingsView::everyFieldHasAnAccessibleName()
{
    setStored(kCustom, QStringLiteral("1:Badge=0:true"));
    const FieldSettingsView page;
    QList<QWidget *> fields;
    for (QComboBox *box : page.findChildren<QComboBox *>())
        fields.append(box);
    for (const char *name : {kRowUp, kRowDown, kRowName, kRowRemove})
        fields.append(rowPart(page, 0, name));
    QCOMPARE(fields.size(), 8 + 4 + 3 + 2 + 4);
    // Of many rows' buttons, which one it is has to be heard.
    QCOMPARE(rowPart(page, 0, kRowRemove)->accessibleDescription(), QStringLiteral("Badge"));
    for (const QWidget *field : qAsConst(fields)) {
        QVERIFY2(!field->accessibleName().isEmpty(), qPrintable(field->objectName()));
        QVERIFY(!field->objectName().isEmpty());
    }
}

QTEST_MAIN(TestFieldSettingsView)
#include "test_fieldsettingsview.moc"
