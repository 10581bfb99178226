#include "customfieldpage.h"
#include "settingstest.h"
#include "support/messageboxes.h"
#include "support/userinput.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace CustomFieldPage;
using namespace FieldPages;
using namespace SettingsTest;

/// Removing and moving the site's own person fields, and where the keyboard goes on.
class TestCustomFieldMoves : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void removingAsksFirst();
    void aRemovedFieldLeavesTheSummaryAndTheSettings();
    void ofTwoFieldsWithOneNameTheRightOneIsRemoved();
    void aRemovedFieldNoLongerReports();
    void afterARemovalTheKeyboardGoesOnAtTheNextField();
    void movesSwapTheNumbersOfNeighbours_data();
    void movesSwapTheNumbersOfNeighbours();
    void aMovedFieldKeepsTheKeyboardAndItsPlaceInTheSummary();
    void theKeyboardFollowsTheRowsAsTheyStand();

private:
    Workstation m_workstation;
};

void TestCustomFieldMoves::init()
{
    useEmptySettings(m_workstation);
}

void TestCustomFieldMoves::removingAsksFirst()
{
    setStored(kCustom, kThreeFields);
    FieldSettingsView page;
    show(page);
    const MessageBoxes boxes({QStringLiteral("Cancel")});
    QTest::mouseClick(rowPart(page, 1, kRowRemove), Qt::LeftButton);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Removing custom field will delete it permanently."));
    QCOMPARE(boxes.seen().first().informativeText, QStringLiteral("Continue?"));
    QCOMPARE(rowNames(page), (QStringList{"A", "B", "C"}));
}

void TestCustomFieldMoves::aRemovedFieldLeavesTheSummaryAndTheSettings()
{
    setStored(kCustom, kThreeFields);
    setStored(kSummary, QStringList{"B", "A", "B", "C"});
    FieldSettingsView page;
    show(page);
    const MessageBoxes boxes({QStringLiteral("Ok")});
    QTest::mouseClick(rowPart(page, 1, kRowRemove), Qt::LeftButton);
    QCOMPARE(rowNames(page), (QStringList{"A", "C"}));
    QCOMPARE(offered(page), (QStringList{"A", "C"}));
    QCOMPARE(shownTexts(page, kSummaryBox, 4), (QStringList{"(empty)", "A", "(empty)", "C"}));
    QCOMPARE(saved(page), QStringLiteral("1:A=0:true,3:C=0:true"));
    QCOMPARE(stored(kSummary).toStringList(), (QStringList{"(empty)", "A", "(empty)", "C"}));
}

void TestCustomFieldMoves::ofTwoFieldsWithOneNameTheRightOneIsRemoved()
{
    setStored(kCustom, QStringLiteral("1:A=0:true,2:A=1:true,3:B=0:true"));
    setStored(kSummary, QStringList{"B", "A", "1", "2"});
    FieldSettingsView page;
    show(page);
    const MessageBoxes boxes({QStringLiteral("Ok")});
    QTest::mouseClick(rowPart(page, 1, kRowRemove), Qt::LeftButton);
    QCOMPARE(shownTexts(page, kSummaryBox, 2), (QStringList{"B", "A"}));
    QCOMPARE(saved(page), QStringLiteral("1:A=0:true,3:B=0:true"));
}

void TestCustomFieldMoves::aRemovedFieldNoLongerReports()
{
    setStored(kCustom, kThreeFields);
    FieldSettingsView page;
    show(page);
    CustomPersonField *row = rows(page).first();
    row->removal();
    QSignalSpy updated(&page, &FieldSettingsView::personCustomFieldsUpdated);
    emit row->nameChange();
    emit row->refresh();
    QVERIFY(updated.isEmpty());
}

void TestCustomFieldMoves::afterARemovalTheKeyboardGoesOnAtTheNextField()
{
    setStored(kCustom, kThreeFields);
    FieldSettingsView page;
    show(page);
    const MessageBoxes boxes({QStringLiteral("Ok"), QStringLiteral("Ok"), QStringLiteral("Ok")});
    rowPart(page, 1, kRowRemove)->setFocus();
    for (const QStringList &left : {QStringList{"A", "C"}, QStringList{"A"}}) {
        QTest::keyClick(page.focusWidget(), Qt::Key_Space);
        QCOMPARE(rowNames(page), left);
        QCOMPARE(page.focusWidget(), rowPart(page, left.size() - 1, kRowRemove));
    }
    QTest::keyClick(page.focusWidget(), Qt::Key_Space);
    QVERIFY(rows(page).isEmpty());
    QCOMPARE(page.focusWidget(), child<QPushButton>(page, "add_custom_field"));
}

void TestCustomFieldMoves::movesSwapTheNumbersOfNeighbours_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("expected");

    QTest::newRow("up swaps with the row above")
        << 1 << QString(kRowUp) << "2:B=1:false,5:A=0:true,9:C=0:true";
    QTest::newRow("down swaps with the row below")
        << 1 << QString(kRowDown) << "2:A=0:true,5:C=0:true,9:B=1:false";
    QTest::newRow("the first row can't go up") << 0 << QString(kRowUp) << "2:A=0:true,5:B=1:false,9:C=0:true";
    QTest::newRow("the last row can't go down")
        << 2 << QString(kRowDown) << "2:A=0:true,5:B=1:false,9:C=0:true";
}

void TestCustomFieldMoves::movesSwapTheNumbersOfNeighbours()
{
    QFETCH(int, row);
    QFETCH(QString, button);
    QFETCH(QString, expected);
    setStored(kCustom, QStringLiteral("2:A=0:true,5:B=1:false,9:C=0:true"));
    FieldSettingsView page;
    show(page);
    QTest::mouseClick(rowPart(page, row, qPrintable(button)), Qt::LeftButton);
    QCOMPARE(saved(page), expected);
    QStringList names;
    for (const CustomField &field : readCustomFields(expected))
        names.append(field.name);
    QCOMPARE(rowNames(page), names);
    QCOMPARE(offered(page), names);
}

void TestCustomFieldMoves::aMovedFieldKeepsTheKeyboardAndItsPlaceInTheSummary()
{
    setStored(kCustom, kThreeFields);
    setStored(kSummary, QStringList{"C", "A", "B", "1"});
    FieldSettingsView page;
    show(page);
    auto *up = rowPart(page, 2, kRowUp);
    up->setFocus();
    QTest::keyClick(up, Qt::Key_Space);
    QTest::keyClick(up, Qt::Key_Space);
    QTest::keyClick(up, Qt::Key_Space);
    QVERIFY(up->hasFocus());
    QCOMPARE(rowNames(page), (QStringList{"C", "A", "B"}));
    QCOMPARE(shownTexts(page, kSummaryBox, 4), (QStringList{"C", "A", "B", "First Name"}));
}

void TestCustomFieldMoves::theKeyboardFollowsTheRowsAsTheyStand()
{
    setStored(kCustom, QStringLiteral("1:A=0:true,2147483647:B=0:true"));
    FieldSettingsView page;
    show(page);
    clickAdd(page);  // takes the free number between
    QTest::mouseClick(rowPart(page, 0, kRowDown), Qt::LeftButton);
    QCOMPARE(rowNames(page), (QStringList{"New field", "A", "B"}));

    QWidget *here = child<QPushButton>(page, "add_custom_field");
    here->setFocus();
    for (const CustomPersonField *row : rows(page)) {
        for (const QWidget *stop : row->tabStops()) {
            QTest::keyClick(here, Qt::Key_Tab);
            here = QApplication::focusWidget();
            QCOMPARE(here, stop);
        }
    }
}

QTEST_MAIN(TestCustomFieldMoves)
#include "test_customfieldmoves.moc"
