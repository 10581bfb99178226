#include "Corvane/settings/custompersonfield.h"
#include "Corvane/settings/fieldsettingsview.h"
#include "fieldpages.h"
#include "settingstest.h"
#include "support/messageboxes.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace FieldPages;
using namespace SettingsTest;

/// What a row of a custom field asks for, and what the page tells of its rows.
class TestCustomPersonField : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aRowIsToBeTakenOutUntilAFieldIsRead();
    void aRowWithANumberBelowTwoCanNotGoUp_data();
    void aRowWithANumberBelowTwoCanNotGoUp();
    void requestsAreToldAndTakenOnce();
    void rowsAreAddedAndMoveByReturn();
    void aRowWithoutAFieldGoesAtTheNextChange();
    void aHandedInRowWithAFreeNumberKeepsIt();
    void aHandedInRowReportsLikeTheOthers();
    void addingMovingAndRemovingAreNotSignalled();
    void aNewRowIsSignalledWhenItsNameIsLeft();
    void readingTheSettingsIsSignalled();

private:
    Workstation m_workstation;
};

void TestCustomPersonField::init()
{
    useEmptySettings(m_workstation);
}

void TestCustomPersonField::aRowIsToBeTakenOutUntilAFieldIsRead()
{
    CustomPersonField row;
    QVERIFY(row.isRemoved());
    row.setContent({1, QStringLiteral("A"), 0, true});
    QVERIFY(row.isRemoved());
    row.setField({1, QStringLiteral("A"), 0, true});
    QVERIFY(!row.isRemoved());
    row.setContent({2, QStringLiteral("B"), 0, true});
    QVERIFY(!row.isRemoved());
    row.removal();
    QVERIFY(row.isRemoved());
}

void TestCustomPersonField::aRowWithANumberBelowTwoCanNotGoUp_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("goes");
    QTest::newRow("no number yet") << 0 << false;
    QTest::newRow("the first") << 1 << false;
    QTest::newRow("the second") << 2 << true;
}

void TestCustomPersonField::aRowWithANumberBelowTwoCanNotGoUp()
{
    QFETCH(int, id);
    QFETCH(bool, goes);
    CustomPersonField row;
    row.setField({id, QStringLiteral("A"), 0, true});
    QSignalSpy refresh(&row, &CustomPersonField::refresh);
    row.orderUp();
    QCOMPARE(refresh.size(), goes ? 1 : 0);
    QCOMPARE(row.takeMoveUp(), goes);
}

void TestCustomPersonField::requestsAreToldAndTakenOnce()
{
    CustomPersonField row;
    row.setField({2, QStringLiteral("A"), 0, true});
    QSignalSpy refresh(&row, &CustomPersonField::refresh);
    row.orderUp();
    row.orderDown();
    row.removal();
    QCOMPARE(refresh.size(), 3);
    QVERIFY(row.takeMoveUp());
    QVERIFY(!row.takeMoveUp());
    QVERIFY(row.takeMoveDown());
    QVERIFY(!row.takeMoveDown());
}

void TestCustomPersonField::rowsAreAddedAndMoveByReturn()
{
    setStored(kCustom, QStringLiteral("1:A=0:true,2:B=0:true"));
    FieldSettingsView page;
    show(page);
    QTest::keyClick(rowPart(page, 0, kRowDown), Qt::Key_Return);
    QCOMPARE(rowNames(page), (QStringList{"B", "A"}));
    QTest::keyClick(rowPart(page, 1, kRowUp), Qt::Key_Enter);
    QCOMPARE(rowNames(page), (QStringList{"A", "B"}));
    QTest::keyClick(child<QPushButton>(page, "add_custom_field"), Qt::Key_Return);
    QCOMPARE(rowNames(page), (QStringList{"A", "B", "New field"}));
}

void TestCustomPersonField::aRowWithoutAFieldGoesAtTheNextChange()
{
    setStored(kCustom, QStringLiteral("1:A=0:true,2:B=0:true"));
    FieldSettingsView page;
    show(page);
    page.addCustomField(new CustomPersonField);
    QCOMPARE(rowNames(page), (QStringList{"A", "B", "New field"}));
    QTest::mouseClick(rowPart(page, 0, kRowDown), Qt::LeftButton);
    QCOMPARE(rowNames(page), (QStringList{"B", "A"}));
    page.saveSettings();
    QCOMPARE(stored(kCustom).toString(), QStringLiteral("1:B=0:true,2:A=0:true"));
}

void TestCustomPersonField::aHandedInRowWithAFreeNumberKeepsIt()
{
    setStored(kCustom, QStringLiteral("2:A=0:true,9:B=0:true"));
    FieldSettingsView page;
    show(page);
    auto *row = new CustomPersonField;
    row->setField({5, QStringLiteral("C"), 1, false});
    page.addCustomField(row);
    QCOMPARE(row->id(), 5);
    QCOMPARE(rowNames(page), (QStringList{"A", "C", "B"}));
    page.saveSettings();
    QCOMPARE(stored(kCustom).toString(), QStringLiteral("2:A=0:true,5:C=1:false,9:B=0:true"));
}

void TestCustomPersonField::aHandedInRowReportsLikeTheOthers()
{
    setStored(kCustom, QStringLiteral("1:A=0:true"));
    FieldSettingsView page;
    show(page);
    auto *row = new CustomPersonField;
    row->setField({0, QStringLiteral("B"), 0, true});
    page.addCustomField(row);
    QSignalSpy updated(&page, &FieldSettingsView::personCustomFieldsUpdated);
    typeName(page, 1, QStringLiteral("C"));
    QVERIFY(!updated.isEmpty());
    QCOMPARE(updated.last().first().toStringList(), (QStringList{"A", "C"}));
    row->removal();
    QCOMPARE(rowNames(page), QStringList{"A"});
}

void TestCustomPersonField::addingMovingAndRemovingAreNotSignalled()
{
    setStored(kCustom, QStringLiteral("1:A=0:true,2:B=0:true,3:C=0:true"));
    FieldSettingsView page;
    show(page);
    const MessageBoxes boxes({QStringLiteral("Ok")});
    QSignalSpy updated(&page, &FieldSettingsView::personCustomFieldsUpdated);
    QTest::mouseClick(rowPart(page, 0, kRowDown), Qt::LeftButton);
    QTest::mouseClick(rowPart(page, 2, kRowUp), Qt::LeftButton);
    QTest::mouseClick(rowPart(page, 1, kRowRemove), Qt::LeftButton);
    QCOMPARE(rowNames(page), (QStringList{"B", "A"}));
    QTest::mouseClick(child<QPushButton>(page, "add_custom_field"), Qt::LeftButton);
    QCOMPARE(rowNames(page), (QStringList{"B", "A", "New field"}));
    QVERIFY(updated.isEmpty());
}

void TestCustomPersonField::aNewRowIsSignalledWhenItsNameIsLeft()
{
    setStored(kCustom, QStringLiteral("1:A=0:true"));
    FieldSettingsView page;
    show(page);
    QSignalSpy updated(&page, &FieldSettingsView::personCustomFieldsUpdated);
    QTest::mouseClick(child<QPushButton>(page, "add_custom_field"), Qt::LeftButton);
    QVERIFY(updated.isEmpty());
    QTest::keyClick(rowPart(page, 1, kRowName), Qt::Key_Tab);
    QVERIFY(!updated.isEmpty());
    QCOMPARE(updated.last().first().toStringList(), (QStringList{"A", "New field"}));
}

void TestCustomPersonField::readingTheSettingsIsSignalled()
{
    setStored(kCustom, QStringLiteral("1:A=0:true"));
    FieldSettingsView page;
    QSignalSpy updated(&page, &FieldSettingsView::personCustomFieldsUpdated);
    setStored(kCustom, QStringLiteral("1:X=0:true"));
    page.reloadSettings();
    QCOMPARE(updated.size(), 1);
    QCOMPARE(updated.takeLast().first().toStringList(), QStringList{"X"});
    page.refreshCustomFieldsInBoxes();
    QCOMPARE(updated.size(), 1);
    QCOMPARE(updated.takeLast().first().toStringList(), QStringList{"X"});
}

QTEST_MAIN(TestCustomPersonField)
#include "test_custompersonfield.moc"
