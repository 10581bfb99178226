#include "customfieldpage.h"
#include "settingstest.h"
#include "support/messageboxes.h"
#include "support/userinput.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

using namespace CustomFieldPage;
using namespace FieldPages;
using namespace SettingsTest;

namespace {

/// Marks every text of a row, as any language would replace it.
class Marker : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (QByteArray(context) != "CustomPersonField" && QByteArray(context) != "StandardFields")
            return QString();
        return QLatin1Char('*') + QLatin1String(source);
    }
    bool isEmpty() const override
    {
        return false;
    }
};

}  // namespace

/// The rows of the site's own person fields, worked on with mouse and keyboard.
class TestCustomFieldRows : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aRowShowsItsField();
    void malformedFieldsHaveNoRowAndAreDroppedAtTheNextSave_data();
    void malformedFieldsHaveNoRowAndAreDroppedAtTheNextSave();
    void aFieldWithAColonInItsNameIsRejected();
    void fieldsWithOneNumberAllHaveARow();
    void theHighestNumberIsFollowedByAFreeOne();

    void aNewFieldGetsTheNextNumberAndName();
    void aNewFieldIsReadyToBeNamed();
    void aFieldThatIsHandedInGetsANumberAndAName();
    void aNameTypedWithSeparatorsLosesThemWhenTheEditIsLeft();
    void aNameOfNothingBecomesANewField_data();
    void aNameOfNothingBecomesANewField();
    void aNameOfBlanksIsAName_data();
    void aNameOfBlanksIsAName();
    void aRenameReachesTheSettingsAtOnce();
    void aRenamedFieldLeavesTheSummary();
    void theKeyboardGoesOnFromANameToItsNeighbour();
    void visibilityAndLinesAreSaved();

    void slotsCanBeCalledByName();
    void theTextsFollowTheLanguage();
    void reloadingReplacesTheRows();
    void aPageThatGoesWhileANameIsTypedReportsNothing();

private:
    Workstation m_workstation;
};

void TestCustomFieldRows::init()
{
    useEmptySettings(m_workstation);
}

void TestCustomFieldRows::aRowShowsItsField()
{
    setStored(kCustom, QStringLiteral("12:Badge=1:TRUE,13:Job=0:no"));
    FieldSettingsView page;
    show(page);
    QCOMPARE(rowNames(page), (QStringList{"Badge", "Job"}));
    QCOMPARE(rows(page).first()->id(), 12);
    QCOMPARE(rowPart<QComboBox>(page, 0, kRowVisibility)->currentText(), QStringLiteral("Visible"));
    QCOMPARE(rowPart<QComboBox>(page, 0, kRowLines)->currentText(), QStringLiteral("Multi line"));
    QCOMPARE(rowPart<QComboBox>(page, 1, kRowVisibility)->currentText(), QStringLiteral("Not visible"));
    QCOMPARE(rowPart<QComboBox>(page, 1, kRowLines)->currentText(), QStringLiteral("One line"));
    QCOMPARE(items(rowPart<QComboBox>(page, 0, kRowVisibility)), (QStringList{"Visible", "Not visible"}));
    QCOMPARE(items(rowPart<QComboBox>(page, 0, kRowLines)), (QStringList{"One line", "Multi line"}));
    QCOMPARE(saved(page), QStringLiteral("12:Badge=1:true,13:Job=0:false"));
}

void TestCustomFieldRows::malformedFieldsHaveNoRowAndAreDroppedAtTheNextSave_data()
{
    QTest::addColumn<QString>("malformed");

    QTest::newRow("words") << "nonsense";
    QTest::newRow("four parts") << "4:Em:ployer=0:true";
    QTest::newRow("no name") << "4:=0:true";
    QTest::newRow("a name of separators only") << "4:===:true";
    QTest::newRow("no line type") << "4:Employer:true";
    QTest::newRow("a number that overflows") << "4294967300:Employer=0:true";
}

void TestCustomFieldRows::malformedFieldsHaveNoRowAndAreDroppedAtTheNextSave()
{
    QFETCH(QString, malformed);
    setStored(kCustom, QStringLiteral("1:A=0:true,%1,2:B=0:true").arg(malformed));
    FieldSettingsView page;
    show(page);
    QCOMPARE(rowNames(page), (QStringList{"A", "B"}));
    QCOMPARE(offered(page), (QStringList{"A", "B"}));
    QCOMPARE(saved(page), QStringLiteral("1:A=0:true,2:B=0:true"));
}

void TestCustomFieldRows::aFieldWithAColonInItsNameIsRejected()
{
    setStored(kCustom, QStringLiteral("1:A:B=0:true"));
    FieldSettingsView page;
    show(page);
    QVERIFY(rows(page).isEmpty());
    QCOMPARE(saved(page), QString());
}

void TestCustomFieldRows::fieldsWithOneNumberAllHaveARow()
{
    setStored(kCustom, QStringLiteral("1:A=0:true,1:B=0:true,0:C=0:true,-7:D=0:true"));
    FieldSettingsView page;
    show(page);
    QCOMPARE(rowNames(page), (QStringList{"A", "C", "D", "B"}));
    QCOMPARE(saved(page), QStringLiteral("1:A=0:true,2:C=0:true,3:D=0:true,4:B=0:true"));
}

void TestCustomFieldRows::theHighestNumberIsFollowedByAFreeOne()
{
    setStored(kCustom, QStringLiteral("2147483647:A=0:true"));
    FieldSettingsView page;
    show(page);
    QCOMPARE(rowNames(page), QStringList{"A"});
    clickAdd(page);
    QCOMPARE(rowNames(page), (QStringList{"New field", "A"}));
    QCOMPARE(saved(page), QStringLiteral("1:New field=0:true,2147483647:A=0:true"));
}

void TestCustomFieldRows::aNewFieldGetsTheNextNumberAndName()
{
    setStored(kCustom, QStringLiteral("2:A=0:true,7:B=0:true"));
    FieldSettingsView page;
    show(page);
    clickAdd(page);
    clickAdd(page);
    QCOMPARE(rowNames(page), (QStringList{"A", "B", "New field", "New field"}));
    QCOMPARE(offered(page), rowNames(page));
    QCOMPARE(saved(page), QStringLiteral("2:A=0:true,7:B=0:true,8:New field=0:true,9:New field=0:true"));
}

void TestCustomFieldRows::aNewFieldIsReadyToBeNamed()
{
    QStringList fields;
    for (int id = 1; id <= 30; ++id)
        fields.append(QStringLiteral("%1:F%1=0:true").arg(id));
    setStored(kCustom, fields.join(QLatin1Char(',')));
    FieldSettingsView page;
    show(page);
    clickAdd(page);
    auto *name = rowPart<QLineEdit>(page, 30, kRowName);
    QVERIFY(name->hasFocus());
    QCOMPARE(name->selectedText(), QStringLiteral("New field"));
    QVERIFY(!name->visibleRegion().isEmpty());
    QTest::keyClicks(name, QStringLiteral("Employer"));
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(offered(page).last(), QStringLiteral("Employer"));
}

void TestCustomFieldRows::aFieldThatIsHandedInGetsANumberAndAName()
{
    setStored(kCustom, QStringLiteral("4:A=0:true"));
    FieldSettingsView page;
    show(page);
    for (const CustomField &field : {CustomField(), CustomField{4, QStringLiteral("B"), 1, false},
                                     CustomField{2, QStringLiteral("C"), 0, true}}) {
        auto *row = new CustomPersonField;
        row->setField(field);
        page.addCustomField(row);
    }
    QCOMPARE(saved(page), QStringLiteral("2:C=0:true,4:A=0:true,5:New field=0:false,6:B=1:false"));
}

void TestCustomFieldRows::aNameTypedWithSeparatorsLosesThemWhenTheEditIsLeft()
{
    setStored(kCustom, kThreeFields);
    FieldSettingsView page;
    show(page);
    typeName(page, 1, QStringLiteral("a,b:c=d"));
    QCOMPARE(rowPart<QLineEdit>(page, 1, kRowName)->text(), QStringLiteral("abcd"));
    QCOMPARE(saved(page), QStringLiteral("1:A=0:true,2:abcd=1:false,3:C=0:true"));
}

void TestCustomFieldRows::aNameOfNothingBecomesANewField_data()
{
    QTest::addColumn<QString>("typed");

    QTest::newRow("nothing") << "";
    QTest::newRow("separators only") << ",:=,";
}

void TestCustomFieldRows::aNameOfNothingBecomesANewField()
{
    QFETCH(QString, typed);
    setStored(kCustom, kThreeFields);
    FieldSettingsView page;
    show(page);
    typeName(page, 0, typed);
    QCOMPARE(rowNames(page), (QStringList{"New field", "B", "C"}));
    QCOMPARE(saved(page), QStringLiteral("1:New field=0:true,2:B=1:false,3:C=0:true"));
}

void TestCustomFieldRows::aNameOfBlanksIsAName_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");

    QTest::newRow("blanks only") << "   "
                                 << "   ";
    QTest::newRow("blanks and separators") << " , :="
                                           << "  ";
}

void TestCustomFieldRows::aNameOfBlanksIsAName()
{
    QFETCH(QString, typed);
    QFETCH(QString, name);
    setStored(kCustom, QStringLiteral("1:A=0:true"));
    FieldSettingsView page;
    show(page);
    typeName(page, 0, typed);
    QCOMPARE(rowNames(page), QStringList{name});
    QCOMPARE(saved(page), QStringLiteral("1:%1=0:true").arg(name));
    page.reloadSettings();
    QCOMPARE(rowNames(page), QStringList{name});
}

void TestCustomFieldRows::aRenameReachesTheSettingsAtOnce()
{
    setStored(kCustom, kThreeFields);
    FieldSettingsView page;
    show(page);
    QSignalSpy updated(&page, &FieldSettingsView::personCustomFieldsUpdated);
    typeName(page, 2, QStringLiteral("Employer"));
    QCOMPARE(stored(kCustom).toString(), QStringLiteral("1:A=0:true,2:B=1:false,3:Employer=0:true"));
    QCOMPARE(offered(page), (QStringList{"A", "B", "Employer"}));
    QVERIFY(!updated.isEmpty());
    QCOMPARE(updated.last().first().toStringList(), (QStringList{"A", "B", "Employer"}));
}

void TestCustomFieldRows::aRenamedFieldLeavesTheSummary()
{
    setStored(kCustom, kThreeFields);
    setStored(kSummary, QStringList{"A", "B", "3", "C"});
    FieldSettingsView page;
    show(page);
    typeName(page, 1, QStringLiteral("Employer"));
    QCOMPARE(shownTexts(page, kSummaryBox, 4), (QStringList{"A", "(empty)", "Last Name", "C"}));
}

void TestCustomFieldRows::theKeyboardGoesOnFromANameToItsNeighbour()
{
    setStored(kCustom, kThreeFields);
    FieldSettingsView page;
    show(page);
    auto *name = rowPart<QLineEdit>(page, 1, kRowName);
    auto *visibility = rowPart<QComboBox>(page, 1, kRowVisibility);
    typeName(page, 1, QStringLiteral("Employer"));
    QCOMPARE(QApplication::focusWidget(), visibility);
    QTest::keyClick(visibility, Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), name);
}

void TestCustomFieldRows::visibilityAndLinesAreSaved()
{
    setStored(kCustom, kThreeFields);
    FieldSettingsView page;
    show(page);
    chooseEntry(rowPart<QComboBox>(page, 0, kRowVisibility), 1);
    chooseEntry(rowPart<QComboBox>(page, 0, kRowLines), 1);
    chooseEntry(rowPart<QComboBox>(page, 1, kRowVisibility), 0);
    QCOMPARE(saved(page), QStringLiteral("1:A=1:false,2:B=1:true,3:C=0:true"));
}

void TestCustomFieldRows::slotsCanBeCalledByName()
{
    setStored(kCustom, QStringLiteral("1:A=0:true"));
    FieldSettingsView page;
    show(page);
    QVERIFY(QMetaObject::invokeMethod(&page, "addCustomField"));
    auto *row = new CustomPersonField;
    row->setField({0, QStringLiteral("B"), 0, true});
    QVERIFY(QMetaObject::invokeMethod(&page, "addCustomField", Q_ARG(CustomPersonField *, row)));
    QCOMPARE(rowNames(page), (QStringList{"A", "New field", "B"}));
    QVERIFY(QMetaObject::invokeMethod(&page, "refreshCustomFieldsInBoxes"));
    QCOMPARE(stored(kCustom).toString(), QStringLiteral("1:A=0:true,2:New field=0:true,3:B=0:true"));
    QVERIFY(QMetaObject::invokeMethod(&page, "cleanAddedFields"));
    QCOMPARE(rows(page).size(), 3);
    QVERIFY(QMetaObject::invokeMethod(&page, "handleCustomFieldChange"));
    QVERIFY(QMetaObject::invokeMethod(&page, "cleanAddedFields", Q_ARG(bool, true)));
    QVERIFY(rows(page).isEmpty());
    QVERIFY(offered(page).isEmpty());
}

void TestCustomFieldRows::theTextsFollowTheLanguage()
{
    setStored(kCustom, QStringLiteral("1:A=1:true"));
    setStored(kSummary, QStringList{"A", "1", "(empty)", "7"});
    FieldSettingsView page;
    show(page);
    Marker marker;
    QCoreApplication::installTranslator(&marker);
    QTRY_COMPARE(rowPart<QComboBox>(page, 0, kRowLines)->currentText(), QStringLiteral("*Multi line"));
    QCOMPARE(shownTexts(page, kSummaryBox, 4), (QStringList{"A", "*First Name", "*(empty)", "*Gender"}));
    page.saveSettings();
    clickAdd(page);
    QCOMPARE(rowNames(page).last(), QStringLiteral("*New field"));
    QCoreApplication::removeTranslator(&marker);
    QCOMPARE(stored(kCustom).toString(), QStringLiteral("1:A=1:true"));
    QCOMPARE(stored(kSummary).toStringList(), (QStringList{"A", "1", "(empty)", "7"}));
}

void TestCustomFieldRows::reloadingReplacesTheRows()
{
    setStored(kCustom, kThreeFields);
    FieldSettingsView page;
    show(page);
    clickAdd(page);
    setStored(kCustom, QStringLiteral("2:X=0:true,3:C=1:false,7:Y=0:false"));
    page.reloadSettings();
    QCOMPARE(rowNames(page), (QStringList{"X", "C", "Y"}));
    QCOMPARE(offered(page), (QStringList{"X", "C", "Y"}));
    QCOMPARE(saved(page), QStringLiteral("2:X=0:true,3:C=1:false,7:Y=0:false"));
}

void TestCustomFieldRows::aPageThatGoesWhileANameIsTypedReportsNothing()
{
    setStored(kCustom, kThreeFields);
    auto page = std::make_unique<FieldSettingsView>();
    show(*page);
    auto *name = rowPart<QLineEdit>(*page, 0, kRowName);
    QTest::mouseClick(name, Qt::LeftButton);
    QTest::keyClicks(name, QStringLiteral("xyz"));
    QSignalSpy updated(page.get(), &FieldSettingsView::personCustomFieldsUpdated);
    page.reset();
    QVERIFY(updated.isEmpty());
    QCOMPARE(stored(kCustom).toString(), kThreeFields);
}

QTEST_MAIN(TestCustomFieldRows)
#include "test_customfieldrows.moc"
