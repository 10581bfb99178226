#include "ZephanShared/widgets/celltable.h"
#include "ZephanShared/widgets/checkbutton.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

namespace {

constexpr int kRows = 200;
constexpr int kColumns = 4;

/// A table between two buttons. Row 0 and the cells of column 1 in even rows have no widgets; row 3 is
/// disabled, row 5 hidden, column 0 has edits when asked for.
struct Form
{
    explicit Form(CellTable::TabKey tabKey, bool withEdits = false)
        : before(QStringLiteral("before"), &window)
        , table(tabKey, &window)
        , after(QStringLiteral("after"), &window)
    {
        auto *column = new QVBoxLayout(&window);
        column->addWidget(&before);
        column->addWidget(&table);
        column->addWidget(&after);
        {
            const CellTable::Filling filling(&table);
            table.growTo(kRows, kColumns);
            for (int row = 1; row < kRows; ++row) {
                for (int cell = 0; cell < kColumns; ++cell) {
                    if (cell != 1 || row % 2)
                        table.setCell(row, cell, makeCell(row, withEdits && cell == 0));
                }
            }
            table.setRowHidden(5, true);
        }
        window.resize(600, 300);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    QWidget *makeCell(int row, bool isEdit)
    {
        QWidget *cell = isEdit ? static_cast<QWidget *>(new QLineEdit(table.viewport()))
                               : new CheckButton(table.viewport());
        cell->setEnabled(row != 3);
        return cell;
    }

    /// Where the focus is: the row and column, or the name of a button outside.
    QString focus() const
    {
        const QWidget *widget = window.focusWidget();
        if (widget == &before || widget == &after)
            return widget == &before ? QStringLiteral("before") : QStringLiteral("after");
        for (int row = 0; row < kRows; ++row) {
            for (int cell = 0; cell < kColumns; ++cell) {
                if (widget && table.cellWidget(row, cell) == widget)
                    return QStringLiteral("%1,%2").arg(row).arg(cell);
            }
        }
        return QStringLiteral("nowhere");
    }

    QWidget window;
    QPushButton before;
    CellTable table;
    QPushButton after;
};

}  // namespace

class TestCellTable : public QObject
{
    Q_OBJECT

private slots:
    void keysGoFromCellToCell_data();
    void keysGoFromCellToCell();
    void keysThatEditStayInAnEdit();
    void leftAndRightFollowTheDirectionOfWriting();
    void tabGoesThroughTheTableAsThroughOneField();
    void tabCanGoThroughTheCellsFirst();
    void enterAndSpaceClickAButton();
    void onlyWidgetsInViewAreShown();
    void theFocusIsKeptWhereItIsScrolledAway();
    void aHiddenRowTakesItsWidgetsAlong();
    void aClickMakesACellCurrent();
    void anEmptyTableTakesTheFocusItself();
    void aCheckButtonTellsItsNameAsATip();
    void aCheckButtonThatIsToggledForAPersonIsClicked();
};

void TestCellTable::keysGoFromCellToCell_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("focus");

    QTest::newRow("Down") << 1 << 0 << int(Qt::Key_Down) << "2,0";
    QTest::newRow("Down passes over a disabled row") << 2 << 0 << int(Qt::Key_Down) << "4,0";
    QTest::newRow("Down passes over a hidden row") << 4 << 0 << int(Qt::Key_Down) << "6,0";
    QTest::newRow("Down passes over cells without widgets") << 1 << 1 << int(Qt::Key_Down) << "7,1";
    QTest::newRow("Down ends at the last row") << kRows - 1 << 0 << int(Qt::Key_Down) << "199,0";
    QTest::newRow("Up") << 2 << 0 << int(Qt::Key_Up) << "1,0";
    QTest::newRow("Up ends at the first row") << 1 << 0 << int(Qt::Key_Up) << "1,0";
    QTest::newRow("Right") << 1 << 0 << int(Qt::Key_Right) << "1,1";
    QTest::newRow("Right passes over cells without widgets") << 2 << 0 << int(Qt::Key_Right) << "2,2";
    QTest::newRow("Right ends at the last column") << 1 << 3 << int(Qt::Key_Right) << "1,3";
    QTest::newRow("Left") << 1 << 1 << int(Qt::Key_Left) << "1,0";
    QTest::newRow("Home") << 1 << 3 << int(Qt::Key_Home) << "1,0";
    QTest::newRow("End") << 1 << 0 << int(Qt::Key_End) << "1,3";
    QTest::newRow("Page Up ends at the first row") << 4 << 2 << int(Qt::Key_PageUp) << "1,2";
}

void TestCellTable::keysGoFromCellToCell()
{
    QFETCH(const int, row);
    QFETCH(const int, column);
    QFETCH(const int, key);
    Form form(CellTable::TabLeaves);
    form.table.focusCell(row, column);
    QCOMPARE(form.focus(), QStringLiteral("%1,%2").arg(row).arg(column));
    QTest::keyClick(form.window.focusWidget(), static_cast<Qt::Key>(key));
    QTEST(form.focus(), "focus");
    QVERIFY(form.window.focusWidget()->isVisible());
    QVERIFY(form.table.viewport()->rect().contains(form.window.focusWidget()->geometry().center()));
}

void TestCellTable::keysThatEditStayInAnEdit()
{
    Form form(CellTable::TabGoesThrough, true);
    form.table.focusCell(1, 0);
    QTest::keyClicks(form.window.focusWidget(), QStringLiteral("ab"));
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_End, Qt::Key_Right, Qt::Key_Return}) {
        QTest::keyClick(form.window.focusWidget(), key);
        QCOMPARE(form.focus(), QStringLiteral("1,0"));
    }
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Down);
    QCOMPARE(form.focus(), QStringLiteral("2,0"));
}

void TestCellTable::leftAndRightFollowTheDirectionOfWriting()
{
    Form form(CellTable::TabLeaves);
    form.table.setLayoutDirection(Qt::RightToLeft);
    form.table.focusCell(1, 0);
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Left);
    QCOMPARE(form.focus(), QStringLiteral("1,1"));
}

void TestCellTable::tabGoesThroughTheTableAsThroughOneField()
{
    Form form(CellTable::TabLeaves);
    form.before.setFocus();
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Tab);
    QCOMPARE(form.focus(), QStringLiteral("1,0"));
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Down);
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Tab);
    QCOMPARE(form.focus(), QStringLiteral("after"));
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(form.focus(), QStringLiteral("2,0"));
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(form.focus(), QStringLiteral("before"));
}

void TestCellTable::tabCanGoThroughTheCellsFirst()
{
    Form form(CellTable::TabGoesThrough);
    form.table.focusCell(2, 2);
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Tab);
    QCOMPARE(form.focus(), QStringLiteral("2,3"));
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Tab);
    QCOMPARE(form.focus(), QStringLiteral("4,0"));
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(form.focus(), QStringLiteral("2,3"));
    form.table.focusCell(kRows - 1, 3);
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Tab);
    QCOMPARE(form.focus(), QStringLiteral("after"));
}

void TestCellTable::enterAndSpaceClickAButton()
{
    Form form(CellTable::TabLeaves);
    form.table.focusCell(1, 1);
    auto *button = qobject_cast<QPushButton *>(form.table.cellWidget(1, 1));
    const QSignalSpy spy(button, SIGNAL(clicked()));
    QTest::keyClick(button, Qt::Key_Return);
    QVERIFY(button->isChecked());
    QTest::keyClick(button, Qt::Key_Enter);
    QVERIFY(!button->isChecked());
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(button->isChecked());
    QCOMPARE(spy.count(), 3);
}

void TestCellTable::onlyWidgetsInViewAreShown()
{
    Form form(CellTable::TabLeaves);
    QVERIFY(form.table.cellWidget(1, 0)->isVisible());
    QVERIFY(!form.table.cellWidget(150, 0)->isVisible());
    form.table.scrollToBottom();
    QVERIFY(!form.table.cellWidget(1, 0)->isVisible());
    QVERIFY(form.table.cellWidget(kRows - 1, 0)->isVisible());
    QCOMPARE(form.table.cellWidget(kRows - 1, 0)->geometry(),
             form.table.visualRect(form.table.model()->index(kRows - 1, 0)));
    form.table.scrollToTop();
    QVERIFY(form.table.cellWidget(1, 0)->isVisible());
    form.table.setCell(2, 1, new CheckButton(form.table.viewport()));
    QTRY_VERIFY(form.table.cellWidget(2, 1)->isVisible());
}

void TestCellTable::theFocusIsKeptWhereItIsScrolledAway()
{
    Form form(CellTable::TabLeaves);
    form.table.focusCell(2, 0);
    form.table.scrollToBottom();
    QCOMPARE(form.focus(), QStringLiteral("2,0"));
    QTest::keyClick(form.window.focusWidget(), Qt::Key_Right);
    QCOMPARE(form.focus(), QStringLiteral("2,2"));
    QVERIFY(form.table.rowAt(0) <= 2);
}

void TestCellTable::aHiddenRowTakesItsWidgetsAlong()
{
    Form form(CellTable::TabLeaves);
    form.table.focusCell(2, 0);
    form.table.setRowHidden(2, true);
    form.table.doItemsLayout();
    QVERIFY(!form.table.cellWidget(2, 0)->isVisible());
    form.table.setRowHidden(2, false);
    form.table.doItemsLayout();
    QVERIFY(form.table.cellWidget(2, 0)->isVisible());
}

void TestCellTable::aClickMakesACellCurrent()
{
    Form form(CellTable::TabLeaves);
    QTest::mouseClick(form.table.cellWidget(4, 3), Qt::LeftButton);
    QCOMPARE(form.focus(), QStringLiteral("4,3"));
    QCOMPARE(form.table.currentRow(), 4);
    QCOMPARE(form.table.currentColumn(), 3);
}

void TestCellTable::anEmptyTableTakesTheFocusItself()
{
    Form form(CellTable::TabLeaves);
    form.table.setRowCount(1);
    form.before.setFocus();
    QTest::keyClick(&form.before, Qt::Key_Tab);
    QVERIFY(form.table.hasFocus());
    QTest::keyClick(&form.table, Qt::Key_Tab);
    QCOMPARE(form.focus(), QStringLiteral("after"));
}

void TestCellTable::aCheckButtonTellsItsNameAsATip()
{
    CheckButton button(nullptr);
    button.setAccessibleName(QStringLiteral("anna: <Admin>"));
    button.show();
    QHelpEvent asked(QEvent::ToolTip, QPoint(5, 5), button.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&button, &asked);
    QCOMPARE(QToolTip::text(), QStringLiteral("<p>anna: &lt;Admin&gt;</p>"));
}

void TestCellTable::aCheckButtonThatIsToggledForAPersonIsClicked()
{
    CheckButton button(nullptr);
    button.setAccessibleName(QStringLiteral("anna: Admin"));
    const QSignalSpy clicks(&button, SIGNAL(clicked()));
    const QString toggle = QAccessibleActionInterface::toggleAction();
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&button);
    QVERIFY(accessible && accessible->actionInterface());
    QCOMPARE(accessible->role(), QAccessible::CheckBox);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("anna: Admin"));
    for (const bool checked : {true, false}) {
        accessible->actionInterface()->doAction(toggle);
        QCOMPARE(button.isChecked(), checked);
        QVERIFY(accessible->state().checkable);
        QCOMPARE(bool(accessible->state().checked), checked);
    }
    QCOMPARE(clicks.size(), 2);
    QVERIFY(accessible->actionInterface()->actionNames().contains(toggle));
    button.setEnabled(false);
    QVERIFY(!accessible->actionInterface()->actionNames().contains(toggle));
    accessible->actionInterface()->doAction(toggle);
    QVERIFY(!button.isChecked());
    QCOMPARE(clicks.size(), 2);
}

QTEST_MAIN(TestCellTable)
#include "test_celltable.moc"
