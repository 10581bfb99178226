#include "ZephanShared/widgets/clickablelineedit.h"
#include "ZephanShared/widgets/combowithuuid.h"
#include "ZephanShared/widgets/logindialog.h"
#include "ZephanShared/widgets/onelinevalidator.h"
#include "ZephanShared/widgets/removebutton.h"
#include "ZephanShared/widgets/selectionpopup.h"
#include "ZephanShared/widgets/styleprinter.h"
#include "support/messageboxes.h"

#include <QAccessible>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

const auto kUuid = QLatin1String("0f8fad5b-d9cb-469f-a165-70867728950e");
const auto kNil = QLatin1String("00000000-0000-0000-0000-000000000000");

/// Presses a key in the message box that is up, once it is up.
class KeyPress : public QObject
{
    Q_OBJECT

public:
    explicit KeyPress(Qt::Key key)
        : m_key(key)
    {
        auto *timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, &KeyPress::press);
        timer->start(10);
    }

    bool pressed = false;
    Qt::WindowFlags flags;
    QString styleSheet;
    QWidget *parent = nullptr;

private:
    void press()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || pressed || !box->focusWidget())
            return;
        pressed = true;
        flags = box->windowFlags();
        styleSheet = box->styleSheet();
        parent = box->parentWidget();
        QTest::keyClick(box->focusWidget(), m_key);
    }

    Qt::Key m_key;
};

QPushButton *boxButton(const LoginDialog &dialog, QDialogButtonBox::StandardButton which)
{
    return dialog.findChild<QDialogButtonBox *>(QStringLiteral("button_box"))->button(which);
}

}  // namespace

class TestSmallWidgets : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void lineEditTellsOfTheClickAndThenPlacesItsCursor();
    void lineEditTellsOfEveryMouseButton();
    void lineEditIsSilentWhileDisabledAndEnablesByName();

    void whatIsPastedIntoOneLineLosesItsLineEnds_data();
    void whatIsPastedIntoOneLineLosesItsLineEnds();
    void oneLineTellsNobodyOfALineEnd();

    void removeButtonTexts_data();
    void removeButtonTexts();
    void removeButtonAnswers_data();
    void removeButtonAnswers();
    void removeButtonKeys_data();
    void removeButtonKeys();
    void removeButtonAsksByTheKeyboard_data();
    void removeButtonAsksByTheKeyboard();
    void styledQuestionIsFramelessOverTheButton();
    void plainQuestionHasNoStyle();

    void comboSendsTheKeyOfTheNewEntry();
    void comboEntryWithoutDataGivesTheNilUuid();
    void comboWithoutEntryGivesTheNilUuid();
    void comboSendsOnRequest();

    void loginDialogStartsWithTheGivenValues();
    void loginDialogHidesThePassword();
    void loginDialogHasNoCloseButton();
    void loginDialogAnswers_data();
    void loginDialogAnswers();

    void selectionListOpensAndClosesWithoutAClick();
    void aSelectionListOpensByReturn();
    void typingInASelectionListFindsAnItemAndPicksNothing();
};

void TestSmallWidgets::initTestCase()
{
    qRegisterMetaType<MappedStrings>();
}

void TestSmallWidgets::lineEditTellsOfTheClickAndThenPlacesItsCursor()
{
    ClickableLineEdit edit;
    edit.setText(QStringLiteral("0123456789"));
    edit.resize(300, 25);
    edit.setCursorPosition(10);
    int positionAtClick = -1;
    connect(&edit, &ClickableLineEdit::clicked, &edit, [&] { positionAtClick = edit.cursorPosition(); });

    QTest::mouseClick(&edit, Qt::LeftButton, Qt::NoModifier, QPoint(1, edit.height() / 2));
    QCOMPARE(positionAtClick, 10);
    QCOMPARE(edit.cursorPosition(), 0);
}

void TestSmallWidgets::lineEditTellsOfEveryMouseButton()
{
    ClickableLineEdit edit;
    const QSignalSpy clicked(&edit, SIGNAL(clicked()));
    QTest::mousePress(&edit, Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
    QTest::mouseRelease(&edit, Qt::LeftButton);
    QTest::mousePress(&edit, Qt::MiddleButton);
    QCOMPARE(clicked.count(), 2);
}

void TestSmallWidgets::lineEditIsSilentWhileDisabledAndEnablesByName()
{
    ClickableLineEdit edit;
    const QSignalSpy clicked(&edit, SIGNAL(clicked()));
    edit.setEnabled(false);
    QTest::mouseClick(&edit, Qt::LeftButton);
    QCOMPARE(clicked.count(), 0);
    QVERIFY(QMetaObject::invokeMethod(&edit, "enable"));
    QVERIFY(edit.isEnabled());
    QTest::mouseClick(&edit, Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
}

void TestSmallWidgets::whatIsPastedIntoOneLineLosesItsLineEnds_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("left");

    QTest::newRow("a word without one") << "anna"
                                        << "anna";
    QTest::newRow("at the end") << "anna\n"
                                << "anna";
    QTest::newRow("at the end on Windows") << "anna\r\n"
                                           << "anna";
    QTest::newRow("in the middle") << "an\nna"
                                   << "anna";
    QTest::newRow("several, and nothing else") << "\n\r\n\n"
                                               << "";
    QTest::newRow("between lines and paragraphs") << QStringLiteral(u"an\u2028na\u2029") << "anna";
    QTest::newRow("blanks and tabulators stay") << " an\tna "
                                                << " an\tna ";
}

void TestSmallWidgets::whatIsPastedIntoOneLineLosesItsLineEnds()
{
    QFETCH(QString, pasted);
    QFETCH(QString, left);
    QLineEdit edit;
    new OneLineValidator(&edit);
    edit.setText(QStringLiteral("<>"));
    edit.setCursorPosition(1);
    QGuiApplication::clipboard()->setText(pasted);
    edit.paste();
    QCOMPARE(edit.text(), QLatin1Char('<') + left + QLatin1Char('>'));
    QCOMPARE(edit.cursorPosition(), 1 + left.size());
    QVERIFY(edit.hasAcceptableInput());
}

void TestSmallWidgets::oneLineTellsNobodyOfALineEnd()
{
    QLineEdit edit;
    new OneLineValidator(&edit);
    QStringList told;
    connect(&edit, &QLineEdit::textChanged, this, [&told](const QString &text) { told.append(text); });
    connect(&edit, &QLineEdit::textEdited, this, [&told](const QString &text) { told.append(text); });
    QGuiApplication::clipboard()->setText(QStringLiteral("one\r\n"));
    edit.paste();
    told.removeDuplicates();
    QCOMPARE(told, QStringList(QStringLiteral("one")));
}

void TestSmallWidgets::removeButtonTexts_data()
{
    QTest::addColumn<bool>("withStyle");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("informativeText");

    QTest::newRow("styled, the consequence stands below without a full stop")
        << true << "Removing custom field"
        << "Removing custom field will delete it permanently";
    QTest::newRow("plain, the consequence comes first with a full stop")
        << false << "Removing custom field will delete it permanently."
        << "Continue?";
}

void TestSmallWidgets::removeButtonTexts()
{
    QFETCH(bool, withStyle);
    QFETCH(QString, text);
    QFETCH(QString, informativeText);
    QWidget window;
    RemoveButton button(withStyle, &window);
    MessageBoxes boxes;
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, text);
    QCOMPARE(boxes.seen().first().informativeText, informativeText);
    QStringList buttons = boxes.seen().first().buttons;
    buttons.sort();
    QCOMPARE(buttons, QStringList({QStringLiteral("Cancel"), QStringLiteral("Ok")}));
}

void TestSmallWidgets::removeButtonAnswers_data()
{
    QTest::addColumn<bool>("withStyle");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("removals");

    QTest::newRow("Ok removes, styled") << true << "Ok" << 1;
    QTest::newRow("Ok removes, plain") << false << "Ok" << 1;
    QTest::newRow("Cancel keeps, styled") << true << "Cancel" << 0;
    QTest::newRow("Cancel keeps, plain") << false << "Cancel" << 0;
}

void TestSmallWidgets::removeButtonAnswers()
{
    QFETCH(bool, withStyle);
    QFETCH(QString, answer);
    QFETCH(int, removals);
    QWidget window;
    RemoveButton button(withStyle, &window);
    const QSignalSpy removed(&button, SIGNAL(deleteCustomField()));
    MessageBoxes boxes({answer});
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(removed.count(), removals);
}

void TestSmallWidgets::removeButtonKeys_data()
{
    QTest::addColumn<bool>("withStyle");
    QTest::addColumn<int>("key");

    QTest::newRow("Enter cancels, as Cancel is the default, styled") << true << int(Qt::Key_Return);
    QTest::newRow("Enter cancels, as Cancel is the default, plain") << false << int(Qt::Key_Return);
    QTest::newRow("Enter of the number pad cancels") << true << int(Qt::Key_Enter);
    QTest::newRow("Escape cancels, styled") << true << int(Qt::Key_Escape);
    QTest::newRow("Escape cancels, plain") << false << int(Qt::Key_Escape);
}

void TestSmallWidgets::removeButtonKeys()
{
    QFETCH(bool, withStyle);
    QFETCH(int, key);
    QWidget window;
    RemoveButton button(withStyle, &window);
    const QSignalSpy removed(&button, SIGNAL(deleteCustomField()));
    const KeyPress press(static_cast<Qt::Key>(key));
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(press.pressed);
    QCOMPARE(removed.count(), 0);
}

void TestSmallWidgets::removeButtonAsksByTheKeyboard_data()
{
    QTest::addColumn<int>("key");

    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter of the number pad") << int(Qt::Key_Enter);
    QTest::newRow("Space") << int(Qt::Key_Space);
}

void TestSmallWidgets::removeButtonAsksByTheKeyboard()
{
    QFETCH(int, key);
    RemoveButton button(false, nullptr);
    const QSignalSpy removed(&button, SIGNAL(deleteCustomField()));
    const MessageBoxes boxes({QStringLiteral("Ok")});
    QTest::keyClick(&button, static_cast<Qt::Key>(key));
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(removed.count(), 1);
}

void TestSmallWidgets::styledQuestionIsFramelessOverTheButton()
{
    QWidget window;
    RemoveButton button(true, &window);
    const KeyPress press(Qt::Key_Escape);
    QVERIFY(QMetaObject::invokeMethod(&button, "confirm"));
    QCOMPARE(press.parent, &button);
    QCOMPARE(press.styleSheet, StylePrinter::messageBoxStyle(true));
    QVERIFY(press.flags & Qt::FramelessWindowHint);
    QCOMPARE(press.flags & Qt::WindowType_Mask, Qt::WindowFlags(Qt::Dialog));
}

void TestSmallWidgets::plainQuestionHasNoStyle()
{
    QWidget window;
    RemoveButton button(false, &window);
    const KeyPress press(Qt::Key_Escape);
    QVERIFY(QMetaObject::invokeMethod(&button, "confirm"));
    QVERIFY(press.pressed);
    QCOMPARE(press.parent, nullptr);
    QCOMPARE(press.styleSheet, QString());
    QVERIFY(!(press.flags & Qt::FramelessWindowHint));
}

void TestSmallWidgets::comboSendsTheKeyOfTheNewEntry()
{
    ComboWithUuid combo;
    combo.addItem(QStringLiteral("first"), QString(kNil));
    combo.addItem(QStringLiteral("second"), QString(kUuid));
    const QSignalSpy changed(&combo, SIGNAL(currentItemChanged(MappedStrings)));
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Down);
    QCOMPARE(changed.count(), 1);
    const auto sent = changed.at(0).at(0).value<MappedStrings>();
    QCOMPARE(sent.key, UuidString(kUuid));
    QVERIFY(sent.values.isEmpty());
}

void TestSmallWidgets::comboEntryWithoutDataGivesTheNilUuid()
{
    ComboWithUuid combo;
    combo.addItem(QStringLiteral("first"), QString(kUuid));
    combo.addItem(QStringLiteral("without data"));
    const QSignalSpy changed(&combo, SIGNAL(currentItemChanged(MappedStrings)));
    combo.setCurrentIndex(1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).value<MappedStrings>().key, UuidString());
}

void TestSmallWidgets::comboWithoutEntryGivesTheNilUuid()
{
    ComboWithUuid combo;
    combo.addItem(QStringLiteral("first"), QString(kUuid));
    const QSignalSpy changed(&combo, SIGNAL(currentItemChanged(MappedStrings)));
    combo.setCurrentIndex(-1);
    QCOMPARE(changed.count(), 1);
    QVERIFY(changed.at(0).at(0).value<MappedStrings>().key.isNull());
}

void TestSmallWidgets::comboSendsOnRequest()
{
    ComboWithUuid combo;
    combo.addItem(QStringLiteral("first"), QString(kUuid));
    const QSignalSpy changed(&combo, SIGNAL(currentItemChanged(MappedStrings)));
    QVERIFY(QMetaObject::invokeMethod(&combo, "sendUuidSignal"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).value<MappedStrings>().key, UuidString(kUuid));
}

void TestSmallWidgets::loginDialogStartsWithTheGivenValues()
{
    const LoginDialog dialog(QStringLiteral("anna"), QStringLiteral("pass word"),
                             QStringLiteral("Sign in to the database"), nullptr);
    QCOMPARE(dialog.username(), QStringLiteral("anna"));
    QCOMPARE(dialog.password(), QStringLiteral("pass word"));
    QStringList labels;
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        labels.append(label->text());
    QCOMPARE(labels, QStringList({QStringLiteral("Sign in to the database"), QStringLiteral("Username"),
                                  QStringLiteral("Password")}));
}

void TestSmallWidgets::loginDialogHidesThePassword()
{
    const LoginDialog dialog(QString(), QStringLiteral("secret"), QString(), nullptr);
    const auto *password = dialog.findChild<QLineEdit *>(QStringLiteral("password_edit"));
    const auto *username = dialog.findChild<QLineEdit *>(QStringLiteral("username_edit"));
    QCOMPARE(password->echoMode(), QLineEdit::Password);
    QVERIFY(!password->displayText().contains(QStringLiteral("secret")));
    QCOMPARE(username->echoMode(), QLineEdit::Normal);
}

void TestSmallWidgets::loginDialogHasNoCloseButton()
{
    const LoginDialog dialog(QString(), QString(), QString(), nullptr);
    QCOMPARE(dialog.windowFlags(), Qt::Window | Qt::WindowTitleHint | Qt::CustomizeWindowHint);
}

void TestSmallWidgets::loginDialogAnswers_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("result");

    QTest::newRow("Ok accepts") << int(QDialogButtonBox::Ok) << int(QDialog::Accepted);
    QTest::newRow("Cancel rejects") << int(QDialogButtonBox::Cancel) << int(QDialog::Rejected);
}

void TestSmallWidgets::loginDialogAnswers()
{
    QFETCH(int, button);
    QFETCH(int, result);
    LoginDialog dialog(QString(), QString(), QString(), nullptr);
    const QSignalSpy finished(&dialog, SIGNAL(finished(int)));
    dialog.show();
    QTest::keyClicks(dialog.findChild<QLineEdit *>(QStringLiteral("username_edit")), QStringLiteral("ben"));
    QTest::keyClicks(dialog.findChild<QLineEdit *>(QStringLiteral("password_edit")), QStringLiteral("x y"));
    QTest::mouseClick(boxButton(dialog, static_cast<QDialogButtonBox::StandardButton>(button)),
                      Qt::LeftButton);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(dialog.result(), result);
    QCOMPARE(dialog.username(), QStringLiteral("ben"));
    QCOMPARE(dialog.password(), QStringLiteral("x y"));
}

void TestSmallWidgets::selectionListOpensAndClosesWithoutAClick()
{
    QPushButton button;
    SelectionPopup list(&button, &button);
    list.addItem(QStringLiteral("one"));
    connect(&button, &QPushButton::clicked, &list, &SelectionPopup::showOrHide);
    button.show();
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&button);
    QVERIFY(accessible && accessible->actionInterface());
    const auto toggle = [accessible] {
        accessible->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    };
    toggle();
    QTRY_VERIFY(list.isVisible());
    toggle();
    QTRY_VERIFY(!list.isVisible());
    QVERIFY(!button.isChecked());
    // What a click has opened stays open, and what it has closed stays closed.
    button.click();
    QCoreApplication::processEvents();
    QVERIFY(list.isVisible());
    button.click();
    QCoreApplication::processEvents();
    QVERIFY(!list.isVisible());
}

void TestSmallWidgets::aSelectionListOpensByReturn()
{
    QPushButton button;
    SelectionPopup list(&button, &button);
    list.addItem(QStringLiteral("one"));
    connect(&button, &QPushButton::clicked, &list, &SelectionPopup::showOrHide);
    button.show();
    QTest::keyClick(&button, Qt::Key_Return);
    QVERIFY(list.isVisible());
    QTest::keyClick(&list, Qt::Key_Escape);
    QVERIFY(!list.isVisible());
    QTest::keyClick(&button, Qt::Key_Enter);
    QVERIFY(list.isVisible());
}

void TestSmallWidgets::typingInASelectionListFindsAnItemAndPicksNothing()
{
    QPushButton button;
    SelectionPopup list(&button, &button);
    list.addItems({QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")});
    list.item(2)->setSelected(true);
    connect(&button, &QPushButton::clicked, &list, &SelectionPopup::showOrHide);
    button.show();
    button.click();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QTest::keyClicks(&list, QStringLiteral("b"));
    QCOMPARE(list.currentRow(), 1);
    QCOMPARE(list.selectedItems(), QList<QListWidgetItem *>{list.item(2)});
    QTest::keyClick(&list, Qt::Key_Space);
    QVERIFY(list.item(1)->isSelected());
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(list.selectedItems().size(), 2);
}

QTEST_MAIN(TestSmallWidgets)
#include "test_smallwidgets.moc"
