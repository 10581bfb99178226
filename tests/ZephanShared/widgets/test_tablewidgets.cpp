#include "ZephanShared/widgets/celltable.h"
#include "ZephanShared/widgets/checkbutton.h"
#include "ZephanShared/widgets/columnbutton.h"
#include "ZephanShared/widgets/columnlineedit.h"
#include "support/messageboxes.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolTip>

namespace {

const UuidString kId(QStringLiteral("0123456789-0123456789-0123456789-012"));

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// An edit in a window, with another field to go to.
struct Form
{
    explicit Form(const QString &content)
        : edit(content, kId, &window)
        , other(&window)
    {
        edit.setObjectName(text("edit"));
        other.move(0, 50);
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("The window is not active");
        edit.setFocus();
    }

    void type(const QString &content)
    {
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, content);
    }
    void leave()
    {
        other.setFocus();
    }

    QWidget window;
    ColumnLineEdit edit;
    QLineEdit other;
};

}  // namespace

class TestTableWidgets : public QObject
{
    Q_OBJECT

private slots:
    void aTableHelperStartsAtZeroAndIsCopiedWhole();
    void aNewEditIsUpdatedUntilToldOtherwise();
    void anEditWithoutAnIdDrawsOne();
    void anEditKeepsTheIdThatItIsGiven();
    void aPastedNameLosesTheEndOfItsLine();
    void typingAndRestoringBeforeLeavingTellsNothing();
    void aChangeAndItsRestoringTellTwiceAndCountAsUpdated();
    void leavingWithoutAChangeTellsNothing();
    void enterTellsOfAChange();
    void aCopyHasEverythingOfTheOther();
    void aCopyTellsOfItsOwnChanges();
    void deletionIsAsked_data();
    void deletionIsAsked();
    void deletionOfAnEditIsAsked_data();
    void deletionOfAnEditIsAsked();
    void theQuestionIsAnsweredByTheKeyboard_data();
    void theQuestionIsAnsweredByTheKeyboard();
    void aConfirmedDeletionStands();
    void theSlotsAreFoundByName();
    void anAmpersandInANameIsNoShortcut();
    void aNameOfAnyLengthFitsItsCell_data();
    void aNameOfAnyLengthFitsItsCell();
    void aCellTellsScreenReadersWhatItsWidgetSays();
    void theWidgetFillsItsCell();
};

void TestTableWidgets::aTableHelperStartsAtZeroAndIsCopiedWhole()
{
    TableHelper helper;
    QCOMPARE(helper.column(), 0);
    QCOMPARE(helper.row(), 0);
    QVERIFY(!helper.deleted());

    const MessageBoxes boxes({text("Ok")});
    ColumnButton button(QString(), nullptr);
    button.setColumn(3);
    button.setRow(7);
    button.setDeleted();
    helper = button;
    const TableHelper copy(helper);
    QCOMPARE(copy.column(), 3);
    QCOMPARE(copy.row(), 7);
    QVERIFY(copy.deleted());
}

void TestTableWidgets::aNewEditIsUpdatedUntilToldOtherwise()
{
    ColumnLineEdit edit(text("Ward 4"), kId, nullptr);
    QCOMPARE(edit.text(), text("Ward 4"));
    QVERIFY(edit.isUpdated());
    edit.unsetUpdates();
    QVERIFY(!edit.isUpdated());
}

void TestTableWidgets::anEditWithoutAnIdDrawsOne()
{
    const ColumnLineEdit first(QString(), UuidString(), nullptr);
    const ColumnLineEdit second(QString(), UuidString(), nullptr);
    QVERIFY(!first.id().isNull());
    QVERIFY(!first.id().toString().startsWith(QLatin1Char('{')));
    QVERIFY(first.id() != second.id());
}

void TestTableWidgets::anEditKeepsTheIdThatItIsGiven()
{
    const ColumnLineEdit edit(QString(), kId, nullptr);
    QCOMPARE(edit.id().toString(), kId.toString());
}

void TestTableWidgets::aPastedNameLosesTheEndOfItsLine()
{
    Form form(text("Ward 4"));
    form.edit.unsetUpdates();
    QGuiApplication::clipboard()->setText(text("Ward 4\n"));
    form.edit.setFocus();
    form.edit.selectAll();
    form.edit.paste();
    form.leave();
    QCOMPARE(form.edit.text(), text("Ward 4"));
    QVERIFY(!form.edit.isUpdated());
}

void TestTableWidgets::typingAndRestoringBeforeLeavingTellsNothing()
{
    Form form(text("Ward 4"));
    form.edit.unsetUpdates();
    const QSignalSpy spy(&form.edit, SIGNAL(updated()));
    form.type(text("Ward 5"));
    form.type(text("Ward 4"));
    form.leave();
    QCOMPARE(spy.count(), 0);
    QVERIFY(!form.edit.isUpdated());
}

void TestTableWidgets::aChangeAndItsRestoringTellTwiceAndCountAsUpdated()
{
    Form form(text("Ward 4"));
    form.edit.unsetUpdates();
    const QSignalSpy spy(&form.edit, SIGNAL(updated()));
    form.type(text("Ward 5"));
    form.leave();
    QCOMPARE(spy.count(), 1);
    form.type(text("Ward 4"));
    form.leave();
    QCOMPARE(spy.count(), 2);
    QVERIFY(form.edit.isUpdated());
}

void TestTableWidgets::leavingWithoutAChangeTellsNothing()
{
    Form form(text("Ward 4"));
    form.edit.unsetUpdates();
    const QSignalSpy spy(&form.edit, SIGNAL(updated()));
    form.edit.setFocus();
    form.leave();
    form.edit.edited();
    QCOMPARE(spy.count(), 0);
}

void TestTableWidgets::enterTellsOfAChange()
{
    Form form(text("Ward 4"));
    form.edit.unsetUpdates();
    const QSignalSpy spy(&form.edit, SIGNAL(updated()));
    form.type(text("Ward 5"));
    QTest::keyClick(&form.edit, Qt::Key_Return);
    QCOMPARE(spy.count(), 1);
    form.leave();
    QCOMPARE(spy.count(), 1);
}

void TestTableWidgets::aCopyHasEverythingOfTheOther()
{
    Form form(text("Ward 4"));
    form.edit.setRow(5);
    form.edit.setColumn(2);
    form.edit.unsetUpdates();
    form.type(text("Ward 5"));  // not left yet
    auto *copy = new ColumnLineEdit(&form.edit);
    QCOMPARE(copy->text(), text("Ward 5"));
    QCOMPARE(copy->parentWidget(), &form.window);
    QCOMPARE(copy->row(), 5);
    QCOMPARE(copy->column(), 2);
    QVERIFY(!copy->deleted());
    QCOMPARE(copy->id(), kId);
    QVERIFY(!copy->isUpdated());
    // The text of the last notice is that of the other one: the change is still to be told.
    const QSignalSpy spy(copy, SIGNAL(updated()));
    copy->edited();
    QCOMPARE(spy.count(), 1);
    QVERIFY(copy->isUpdated());
}

void TestTableWidgets::aCopyTellsOfItsOwnChanges()
{
    QTableWidget table(2, 1);
    auto *edit = new ColumnLineEdit(text("Ward 4"), kId, &table);
    edit->unsetUpdates();
    table.setCellWidget(1, 0, edit);
    auto *copy = new ColumnLineEdit(edit);
    table.setCellWidget(0, 0, copy);
    table.show();
    table.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&table));
    const QSignalSpy ofEdit(edit, SIGNAL(updated()));
    const QSignalSpy ofCopy(copy, SIGNAL(updated()));
    copy->setFocus();
    QTest::keyClicks(copy, text("x"));
    QTest::keyClick(copy, Qt::Key_Return);
    QCOMPARE(ofCopy.count(), 1);
    QCOMPARE(ofEdit.count(), 0);
}

void TestTableWidgets::deletionIsAsked_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("deleted");

    QTest::newRow("Ok marks it") << text("Ok") << true;
    QTest::newRow("No leaves it") << text("No") << false;
}

void TestTableWidgets::deletionIsAsked()
{
    QFETCH(const QString, answer);
    const MessageBoxes boxes({answer});
    ColumnButton button(text("Nurse"), nullptr);
    QVERIFY(QMetaObject::invokeMethod(&button, "setDeleted"));
    QCOMPARE(boxes.seen().size(), 1);
    const SeenBox &box = boxes.seen().first();
    QCOMPARE(box.title, text("Delete"));
    QCOMPARE(box.text, text("Are you sure?"));
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(QSet<QString>(box.buttons.begin(), box.buttons.end()), (QSet<QString>{text("Ok"), text("No")}));
    QTEST(button.deleted(), "deleted");
}

void TestTableWidgets::deletionOfAnEditIsAsked_data()
{
    deletionIsAsked_data();
}

void TestTableWidgets::deletionOfAnEditIsAsked()
{
    QFETCH(const QString, answer);
    const MessageBoxes boxes({answer});
    ColumnLineEdit edit(text("Ward 4"), kId, nullptr);
    QVERIFY(QMetaObject::invokeMethod(&edit, "setDeleted"));
    QCOMPARE(boxes.seen().value(0).text, text("Are you sure?"));
    QTEST(edit.deleted(), "deleted");
}

void TestTableWidgets::theQuestionIsAnsweredByTheKeyboard_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("deleted");

    QTest::newRow("Enter is Ok") << int(Qt::Key_Return) << true;
    QTest::newRow("Escape is No") << int(Qt::Key_Escape) << false;
}

void TestTableWidgets::theQuestionIsAnsweredByTheKeyboard()
{
    QFETCH(const int, key);
    ColumnLineEdit edit(text("Ward 4"), kId, nullptr);
    QTimer::singleShot(0, &edit, [key] {
        QVERIFY(QTest::qWaitForWindowActive(QApplication::activeModalWidget()));
        QTest::keyClick(QApplication::activeModalWidget(), static_cast<Qt::Key>(key));
    });
    edit.setDeleted();
    QTEST(edit.deleted(), "deleted");
}

void TestTableWidgets::aConfirmedDeletionStands()
{
    const MessageBoxes boxes({text("Ok"), text("No")});
    ColumnButton button(text("Nurse"), nullptr);
    button.setDeleted();
    button.setDeleted();
    QCOMPARE(boxes.seen().size(), 2);
    QVERIFY(button.deleted());
}

void TestTableWidgets::theSlotsAreFoundByName()
{
    const QMetaObject &button = ColumnButton::staticMetaObject;
    const QMetaObject &edit = ColumnLineEdit::staticMetaObject;
    QVERIFY(button.indexOfSlot("setDeleted()") >= 0);
    for (const char *slot : {"setDeleted()", "unsetUpdates()", "edited()"})
        QVERIFY2(edit.indexOfSlot(slot) >= 0, slot);
    QVERIFY(edit.indexOfSignal("updated()") >= 0);
}

void TestTableWidgets::anAmpersandInANameIsNoShortcut()
{
    ColumnButton button(text("R&D"), nullptr);
    QSignalSpy clicked(&button, SIGNAL(clicked()));
    button.show();
    button.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&button));
    QTest::keyClick(&button, Qt::Key_D, Qt::AltModifier);
    QCOMPARE(clicked.size(), 0);
    QCOMPARE(button.text(), text("R&D"));
    QCOMPARE(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name), text("R&D"));
    button.setText(text("Wards"));
    QCOMPARE(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name), text("Wards"));

    const ColumnButton many(QString(30, QLatin1Char('&')), nullptr);
    const ColumnButton few(QString(20, QLatin1Char('&')), nullptr);
    QVERIFY(many.sizeHint().width() > few.sizeHint().width());
}

void TestTableWidgets::aNameOfAnyLengthFitsItsCell_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("cut");

    QTest::newRow("a short one is shown whole") << text("Nurse") << false;
    QTest::newRow("10,000 characters are cut") << QString(10000, QLatin1Char('W')) << true;
    QTest::newRow("line breaks make no further lines") << text("one\ntwo\nthree\n") << false;
    QTest::newRow("right to left and combining letters")
        << text("\u05de\u05e0\u05d4\u05dc e\u0301\u0327") << false;
    QTest::newRow("a long one with marks of HTML") << text("<b>\"&amp;\" '</b> ").repeated(40) << true;
}

void TestTableWidgets::aNameOfAnyLengthFitsItsCell()
{
    QFETCH(QString, name);
    QFETCH(bool, cut);
    ColumnButton button(name, nullptr);
    const QSize plain = ColumnButton(text("Nurse"), nullptr).sizeHint();
    QCOMPARE(button.sizeHint().height(), plain.height());
    QVERIFY(button.sizeHint().width() < 400);
    button.resize(button.sizeHint());
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QCOMPARE(button.text(), name);

    QHelpEvent help(QEvent::ToolTip, QPoint(1, 1), button.mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(&button, &help);
    QCOMPARE(QToolTip::isVisible(), cut);
    if (cut)
        QCOMPARE(QToolTip::text(), QStringLiteral("<p>%1</p>").arg(name.left(1000).toHtmlEscaped()));
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void TestTableWidgets::aCellTellsScreenReadersWhatItsWidgetSays()
{
    CellTable table(CellTable::TabLeaves, nullptr);
    table.growTo(1, 3);
    auto *button = new ColumnButton(text("R&D"), table.viewport());
    auto *check = new CheckButton(table.viewport());
    check->setAccessibleName(text("R&D: Nurse"));
    auto *edit = new ColumnLineEdit(text("Ward 4"), kId, table.viewport());
    table.setCell(0, 0, button);
    table.setCell(0, 1, check);
    table.setCell(0, 2, edit);
    table.show();

    QAccessibleTableInterface *cells = QAccessible::queryAccessibleInterface(&table)->tableInterface();
    QVERIFY(cells);
    QCOMPARE(cells->cellAt(0, 0)->text(QAccessible::Name), text("R&D"));
    QCOMPARE(cells->cellAt(0, 1)->text(QAccessible::Name), text("R&D: Nurse"));
    QCOMPARE(cells->cellAt(0, 2)->text(QAccessible::Name), text("Ward 4"));
    QVERIFY(!cells->cellAt(0, 0)->state().checked);
    QVERIFY(!cells->cellAt(0, 1)->state().checked);
    QTest::mouseClick(check, Qt::LeftButton);
    QVERIFY(cells->cellAt(0, 1)->state().checked);
    button->setText(text("Wards"));
    QCOMPARE(cells->cellAt(0, 0)->text(QAccessible::Name), text("Wards"));

    // A widget that has gone leaves an empty cell.
    table.removeCellWidget(0, 0);
    QTRY_COMPARE(cells->cellAt(0, 0)->text(QAccessible::Name), QString());
}

void TestTableWidgets::theWidgetFillsItsCell()
{
    CellTable table(CellTable::TabLeaves, nullptr);
    table.growTo(1, 1);
    auto *check = new CheckButton(table.viewport());
    table.setCell(0, 0, check);
    table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&table));
    QCOMPARE(check->geometry(), table.visualItemRect(table.item(0, 0)));
}

QTEST_MAIN(TestTableWidgets)
#include "test_tablewidgets.moc"
