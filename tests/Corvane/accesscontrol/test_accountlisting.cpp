#include "Corvane/accesscontrol/accountdatabase.h"
#include "Corvane/accesscontrol/pickersteps.h"
#include "support/messageboxes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QRadioButton>
#include <QScreen>
#include <QTest>

#include <functional>

namespace {

/// Runs an action each time that a widget is painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(std::function<void()> action)
        : m_action(std::move(action))
    {}

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_action();
        return false;
    }

private:
    std::function<void()> m_action;
};

/// The accounts of each column, from left to right.
QList<int> columns(QDialog &dialog)
{
    QMap<int, int> lengths;
    for (const QRadioButton *button : accounts(dialog))
        ++lengths[button->x()];
    return lengths.values();
}

}  // namespace

class TestAccountListing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void accountsStandInEvenColumns_data();
    void accountsStandInEvenColumns();
    void withoutAccountsTheGridIsEmptyAndSaveStaysOff();
    void theWaitCursorIsUpWhileTheComputerAnswers();
    void aDialogThatGrowsStaysOnTheScreen();
    void moreAccountsThanTheScreenHasRoomForCanBeReached();
    void accountNamesAreShownAsTheyAre_data();
    void accountNamesAreShownAsTheyAre();
};

void TestAccountListing::init()
{
    AccountDatabase::setUsers({text("ada"), text("grace")});
    AccountDatabase::setGroups({text("nurses"), text("doctors"), text("clerks")});
    AccountDatabase::whenListed(nullptr);
}

void TestAccountListing::accountsStandInEvenColumns_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<int>>("lengths");

    QTest::newRow("1 account") << 1 << QList<int>{1};
    QTest::newRow("19 accounts in one column") << 19 << QList<int>{19};
    QTest::newRow("20 accounts in two columns") << 20 << QList<int>{10, 10};
    QTest::newRow("21 accounts begin a third column") << 21 << QList<int>{10, 10, 1};
    QTest::newRow("41 accounts in four columns of 13") << 41 << QList<int>{13, 13, 13, 2};
    QTest::newRow("60 accounts in four columns of 15") << 60 << QList<int>{15, 15, 15, 15};
}

void TestAccountListing::accountsStandInEvenColumns()
{
    QFETCH(int, count);
    QFETCH(QList<int>, lengths);
    AccountDatabase::setUsers(AccountDatabase::numbered(count));
    QVERIFY(!pick(false, {chooseDomain(kLocal), [&](QDialog &dialog) { QCOMPARE(columns(dialog), lengths); },
                          [&](QDialog &dialog) {
                              // Downwards first.
                              QCOMPARE(accounts(dialog).constLast()->text(),
                                       onThisComputer(QStringLiteral("account%1").arg(count)));
                              QCOMPARE(accounts(dialog).constLast()->y(),
                                       accounts(dialog).at(lengths.constLast() - 1)->y());
                          },
                          pressKey(Qt::Key_Escape)}));
}

void TestAccountListing::withoutAccountsTheGridIsEmptyAndSaveStaysOff()
{
    AccountDatabase::setUsers({});
    const MessageBoxes boxes;
    QVERIFY(!pick(false, {chooseDomain(kLocal),
                          [](QDialog &dialog) {
                              QVERIFY(isShown(dialog, "account_box"));
                              QVERIFY(accounts(dialog).isEmpty());
                              QVERIFY(!isSavable(dialog));
                          },
                          pressKey(Qt::Key_Escape)}));
    QVERIFY(boxes.seen().isEmpty());
}

void TestAccountListing::theWaitCursorIsUpWhileTheComputerAnswers()
{
    QComboBox *combo = nullptr;
    QString painted;
    PaintWatch watch([&] { painted = combo->currentText(); });
    int listings = 0;
    AccountDatabase::whenListed([&] {
        ++listings;
        const QCursor *cursor = QApplication::overrideCursor();
        QVERIFY(cursor);
        QCOMPARE(cursor->shape(), Qt::WaitCursor);
        QCOMPARE(painted, text("Local computer"));
        QVERIFY(!combo->view()->isVisible());
        QTest::qSleep(100);
    });
    for (const bool group : {false, true}) {
        painted.clear();
        QVERIFY(
            !pick(group, {[&](QDialog &dialog) {
                              combo = shown<QComboBox>(dialog, "domain_combo");
                              combo->installEventFilter(&watch);
                          },
                          chooseDomain(kLocal), [](QDialog &) { QVERIFY(!QApplication::overrideCursor()); },
                          pressKey(Qt::Key_Escape)}));
    }
    QCOMPARE(listings, 2);
}

void TestAccountListing::aDialogThatGrowsStaysOnTheScreen()
{
    AccountDatabase::setUsers(AccountDatabase::numbered(19));
    const auto isOnScreen = [](QDialog &dialog) {
        QVERIFY(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()));
    };
    QVERIFY(!pick(false, {[](QDialog &dialog) {
                              dialog.move(dialog.screen()->availableGeometry().bottomRight() -
                                          QPoint(dialog.width(), dialog.height()));
                          },
                          chooseDomain(kLocal), isOnScreen, pressKey(Qt::Key_Escape)}));
}

void TestAccountListing::moreAccountsThanTheScreenHasRoomForCanBeReached()
{
    AccountDatabase::setUsers(AccountDatabase::numbered(2000));
    QElapsedTimer timer;
    const OperatorModel user =
        pick(false, {[&timer](QDialog &) { timer.start(); }, chooseDomain(kLocal),
                     [&](QDialog &dialog) {
                         QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
                         const QSize screen = dialog.screen()->availableSize();
                         QVERIFY(dialog.width() <= screen.width());
                         QVERIFY(dialog.height() <= screen.height());
                         QRadioButton *last = accounts(dialog).constLast();
                         QVERIFY(last->visibleRegion().isEmpty());
                         accounts(dialog).at(1998)->setFocus();
                         QTest::keyClick(accounts(dialog).at(1998), Qt::Key_Space);
                         QTest::keyClick(accounts(dialog).at(1998), Qt::Key_Down);
                         QVERIFY(last->isChecked());
                         QVERIFY(!last->visibleRegion().isEmpty());
                     },
                     press("save_button"), press("save_button")});
    QCOMPARE(user->username(), onThisComputer(text("account2000")).toUpper());
}

void TestAccountListing::accountNamesAreShownAsTheyAre_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("an ampersand is no shortcut") << text("r&d");
    QTest::newRow("10,000 characters") << QString(10000, QLatin1Char('x'));
    QTest::newRow("blanks and quotes") << text(" o'brien \"the\" boss ");
    QTest::newRow("marks of HTML") << text("<b>bold</b>&amp;");
    QTest::newRow("right to left and combining letters") << text("\u05de\u05e0\u05d4\u05dc e\u0301\u0327");
    QTest::newRow("a directory's account brings its domain") << text("CLINIC\\ada");
}

void TestAccountListing::accountNamesAreShownAsTheyAre()
{
    QFETCH(QString, name);
    AccountDatabase::setGroups({name});
    const QString full = name.contains(QLatin1Char('\\')) ? name : onThisComputer(name);
    const OperatorModel group =
        pick(true, {chooseDomain(kLocal),
                    [&](QDialog &dialog) {
                        QRadioButton *button = accounts(dialog).constFirst();
                        QCOMPARE(button->text(), QString(full).replace(text("&"), text("&&")));
                        QVERIFY(button->shortcut().isEmpty());
                        QVERIFY(dialog.width() <= dialog.screen()->availableSize().width());
                    },
                    clickAccount(0), press("save_button")});
    QCOMPARE(group->username(), full.toUpper());
}

QTEST_MAIN(TestAccountListing)
#include "test_accountlisting.moc"
