#include "Corvane/settings/diffview.h"
#include "settingstest.h"

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTimer>

#include <functional>

using namespace SettingsTest;

namespace {

constexpr int kManyLines = 10000;

struct Panes
{
    QString left;
    QString right;
    QString leftLabel;
    QString toggle;
};

Panes panes(const QDialog &dialog)
{
    return {child<QPlainTextEdit>(dialog, "left_pane")->toPlainText(),
            child<QPlainTextEdit>(dialog, "right_pane")->toPlainText(),
            child<QLabel>(dialog, "left_label")->text(), child<QPushButton>(dialog, "toggle_button")->text()};
}

void press(const QDialog &dialog, const char *button)
{
    QTest::mouseClick(child<QPushButton>(dialog, button), Qt::LeftButton);
}

struct Arguments
{
    QStringList initial;
    QStringList previous;
    QStringList current;
    QString tag;
    bool hideToggle = false;
    bool withCancel = false;
};

/// Shows the dialog and lets `visit` look at it; a dialog that is still open then is closed by its frame.
bool showDiff(const Arguments &arguments, const std::function<void(DiffView &)> &visit)
{
    bool visited = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        auto *dialog = qobject_cast<DiffView *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || visited)
            return;
        visited = true;
        visit(*dialog);
        dialog->close();
    });
    timer.start(5);
    const bool accepted = DiffView::showDiff(arguments.initial, arguments.previous, arguments.current,
                                             arguments.tag, arguments.hideToggle, arguments.withCancel);
    if (!visited)
        qFatal("The dialog was not shown");
    return accepted;
}

const QStringList kInitial = {"ui/a=1", "ui/b=first", "ui/same=0"};
const QStringList kPrevious = {"ui/a=2", "ui/b=first", "ui/same=0"};
const QStringList kCurrent = {"ui/a=2", "ui/b=changed", "ui/same=0"};

}  // namespace

class TestDiffView : public QObject
{
    Q_OBJECT

private slots:
    void twoEqualListsGiveTwoEmptyPanes();
    void aChangedValueShowsOnBothSides();
    void itOpensOnThePreviousSettingsAndTogglesToTheInitialOnes();
    void theNameOfASourceIsShownAsItStands_data();
    void theNameOfASourceIsShownAsItStands();
    void returnOnTheToggleSwitchesTheComparison();
    void withoutATagTheLeftLabelNamesThePreviousSettings();
    void withoutPreviousSettingsThereIsNoToggle();
    void aHiddenToggleStillComparesWithThePreviousSettings();
    void aSecretIsNeverShown_data();
    void aSecretIsNeverShown();
    void aChangedSecretShowsAsTheSameLineOnBothSides();
    void okAcceptsAndCancelDoesNot();
    void closingByTheFrameDoesNotAccept();
    void thereIsACancelOnlyWhenAskedFor();
    void duplicatesVanishAndTheResultsAreSortedAndDisjoint();
    void aLongTagWidensBothPanes();
    void itStaysInFrontOfTheProgramWhileNoWindowIsActive();
    void theArgumentsStayAsTheyWere();
    void panesAreReadOnlyAndDoNotWrap();
    void thousandsOfLinesArePutIntoThePanesOnce_data();
    void thousandsOfLinesArePutIntoThePanesOnce();
};

void TestDiffView::twoEqualListsGiveTwoEmptyPanes()
{
    showDiff({kInitial, kInitial, kInitial, {}}, [](DiffView &dialog) {
        QVERIFY(panes(dialog).left.isEmpty());
        QVERIFY(panes(dialog).right.isEmpty());
        press(dialog, "toggle_button");
        QVERIFY(panes(dialog).left.isEmpty());
        QVERIFY(panes(dialog).right.isEmpty());
    });
}

void TestDiffView::aChangedValueShowsOnBothSides()
{
    showDiff({{}, {"ui/x=a"}, {"ui/x=b"}, {}}, [](DiffView &dialog) {
        QCOMPARE(panes(dialog).left, QStringLiteral("ui/x=a"));
        QCOMPARE(panes(dialog).right, QStringLiteral("ui/x=b"));
    });
}

void TestDiffView::itOpensOnThePreviousSettingsAndTogglesToTheInitialOnes()
{
    showDiff({kInitial, kPrevious, kCurrent, QStringLiteral("Imported settings")}, [](DiffView &dialog) {
        QVERIFY(dialog.windowTitle().isEmpty());
        QCOMPARE(child<QLabel>(dialog, "diff_title")->text(), QStringLiteral("Settings changes"));
        QVERIFY(child<QLabel>(dialog, "diff_title")->font().bold());
        QCOMPARE(child<QLabel>(dialog, "right_label")->text(), QStringLiteral("Current modified settings:"));

        QCOMPARE(panes(dialog).left, QStringLiteral("ui/b=first"));
        QCOMPARE(panes(dialog).right, QStringLiteral("ui/b=changed"));
        QCOMPARE(panes(dialog).leftLabel, QStringLiteral("Imported settings"));
        QCOMPARE(panes(dialog).toggle, QStringLiteral("Switch to compare to initially loaded settings"));

        press(dialog, "toggle_button");
        QCOMPARE(panes(dialog).left, QStringLiteral("ui/a=1\nui/b=first"));
        QCOMPARE(panes(dialog).right, QStringLiteral("ui/a=2\nui/b=changed"));
        QCOMPARE(panes(dialog).leftLabel, QStringLiteral("Initially loaded settings:"));
        QCOMPARE(panes(dialog).toggle, QStringLiteral("Switch to compare to previously loaded settings"));

        QVERIFY(QMetaObject::invokeMethod(&dialog, "toggleLocal"));
        QCOMPARE(panes(dialog).left, QStringLiteral("ui/b=first"));
        QCOMPARE(panes(dialog).leftLabel, QStringLiteral("Imported settings"));
    });
}

void TestDiffView::theNameOfASourceIsShownAsItStands_data()
{
    QTest::addColumn<QString>("tag");
    QTest::newRow("an ampersand is no shortcut") << "1 Created by R&D";
    QTest::newRow("a tag is no format") << "1 Created by <b>bold</b>";
}

void TestDiffView::theNameOfASourceIsShownAsItStands()
{
    QFETCH(QString, tag);
    showDiff({kInitial, kPrevious, kCurrent, tag}, [&tag](DiffView &dialog) {
        const auto *label = child<QLabel>(dialog, "left_label");
        QCOMPARE(label->text(), tag);
        QCOMPARE(child<QPlainTextEdit>(dialog, "left_pane")->accessibleName(), tag);
        // As wide as every letter of it.
        QLabel drawn;
        drawn.setTextFormat(Qt::PlainText);
        drawn.setText(tag);
        QCOMPARE(label->sizeHint(), drawn.sizeHint());
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QVERIFY(!label->buddy());
    });
}

void TestDiffView::returnOnTheToggleSwitchesTheComparison()
{
    const bool accepted = showDiff({kInitial, kPrevious, kCurrent, {}}, [](DiffView &dialog) {
        QVERIFY(child<QPushButton>(dialog, "ok_button")->isDefault());
        auto *toggle = child<QPushButton>(dialog, "toggle_button");
        toggle->setFocus();
        QTest::keyClick(toggle, Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        QCOMPARE(panes(dialog).leftLabel, QStringLiteral("Initially loaded settings:"));
    });
    QVERIFY(!accepted);
}

void TestDiffView::withoutATagTheLeftLabelNamesThePreviousSettings()
{
    showDiff({kInitial, kPrevious, kCurrent, {}}, [](DiffView &dialog) {
        QCOMPARE(panes(dialog).leftLabel, QStringLiteral("Previously loaded settings:"));
    });
}

void TestDiffView::withoutPreviousSettingsThereIsNoToggle()
{
    showDiff({kInitial, {}, kCurrent, QStringLiteral("tag")}, [](DiffView &dialog) {
        const auto *toggle = child<QPushButton>(dialog, "toggle_button");
        QVERIFY(toggle->isHidden());
        QVERIFY(!toggle->isEnabled());
        QVERIFY(toggle->text().isEmpty());
        QCOMPARE(panes(dialog).leftLabel, QStringLiteral("Initially loaded settings:"));
        QCOMPARE(panes(dialog).left, QStringLiteral("ui/a=1\nui/b=first"));
        QCOMPARE(panes(dialog).right, QStringLiteral("ui/a=2\nui/b=changed"));
        QVERIFY(QMetaObject::invokeMethod(&dialog, "toggleLocal"));
        QVERIFY(toggle->text().isEmpty());
    });
}

void TestDiffView::aHiddenToggleStillComparesWithThePreviousSettings()
{
    showDiff({kInitial, kPrevious, kCurrent, QStringLiteral("3"), true, true}, [](DiffView &dialog) {
        QVERIFY(child<QPushButton>(dialog, "toggle_button")->isHidden());
        QCOMPARE(panes(dialog).left, QStringLiteral("ui/b=first"));
        QCOMPARE(panes(dialog).leftLabel, QStringLiteral("3"));
    });
}

void TestDiffView::aSecretIsNeverShown_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a marked value") << "persondb/password=encrypted_01ab"
                                    << "persondb/password=*****";
    QTest::newRow("any value that begins with the word") << "ui/x=encryptedly"
                                                         << "ui/x=*****";
    QTest::newRow("only the value between the first two signs counts") << "ui/x=encrypted=a=b"
                                                                       << "ui/x=*****";
    QTest::newRow("a value with the word inside is shown") << "ui/x=is encrypted"
                                                           << "ui/x=is encrypted";
    QTest::newRow("the word in the key does not count") << "ui/encrypted=1"
                                                        << "ui/encrypted=1";
    QTest::newRow("upper case does not count") << "ui/x=Encrypted_1"
                                               << "ui/x=Encrypted_1";
    QTest::newRow("a second sign in a value is kept") << "ui/x=a=b"
                                                      << "ui/x=a=b";
}

void TestDiffView::aSecretIsNeverShown()
{
    QFETCH(QString, line);
    QFETCH(QString, shown);
    const QStringList other = {"ui/other=1"};
    showDiff({{line}, {line}, other, {}}, [&shown](DiffView &dialog) {
        QCOMPARE(panes(dialog).left, shown);
        press(dialog, "toggle_button");
        QCOMPARE(panes(dialog).left, shown);
    });
    showDiff({other, other, {line}, {}}, [&shown](DiffView &dialog) {
        QCOMPARE(panes(dialog).right, shown);
        press(dialog, "toggle_button");
        QCOMPARE(panes(dialog).right, shown);
    });
}

void TestDiffView::aChangedSecretShowsAsTheSameLineOnBothSides()
{
    showDiff({{}, {"studydb/password=encrypted_1"}, {"studydb/password=encrypted_2"}, {}},
             [](DiffView &dialog) {
                 QCOMPARE(panes(dialog).left, QStringLiteral("studydb/password=*****"));
                 QCOMPARE(panes(dialog).right, QStringLiteral("studydb/password=*****"));
             });
}

void TestDiffView::okAcceptsAndCancelDoesNot()
{
    const Arguments asking{kInitial, kPrevious, kCurrent, {}, true, true};
    QVERIFY(showDiff(asking, [](DiffView &dialog) { press(dialog, "ok_button"); }));
    QVERIFY(!showDiff(asking, [](DiffView &dialog) { press(dialog, "cancel_button"); }));
}

void TestDiffView::closingByTheFrameDoesNotAccept()
{
    for (const bool withCancel : {true, false})
        QVERIFY(!showDiff({kInitial, kPrevious, kCurrent, {}, true, withCancel}, [](DiffView &) {}));
}

void TestDiffView::thereIsACancelOnlyWhenAskedFor()
{
    showDiff({kInitial, kPrevious, kCurrent, {}, false, false}, [](DiffView &dialog) {
        QVERIFY(!dialog.findChild<QPushButton *>("cancel_button"));
        QCOMPARE(child<QPushButton>(dialog, "ok_button")->text(), QStringLiteral("OK"));
    });
    showDiff({kInitial, kPrevious, kCurrent, {}, false, true}, [](DiffView &dialog) {
        QCOMPARE(child<QPushButton>(dialog, "cancel_button")->text(), QStringLiteral("Cancel"));
    });
}

void TestDiffView::duplicatesVanishAndTheResultsAreSortedAndDisjoint()
{
    QRandomGenerator random(46);
    showDiff({{}, {}, {}, {}}, [&random](DiffView &dialog) {
        for (int round = 0; round < 200; ++round) {
            const auto lines = [&random] {
                QStringList result;
                for (int i = random.bounded(30); i > 0; --i)
                    result.append(QString(QChar(random.bounded(0x41, 0x60))));
                return result;
            };
            const QStringList first = lines();
            const QStringList second = lines();
            QStringList onlyFirst = first;
            QStringList onlySecond = second;
            dialog.diffSettingsLists(onlyFirst, onlySecond);
            for (const QStringList &result : {onlyFirst, onlySecond}) {
                QStringList sorted = result;
                sorted.sort(Qt::CaseSensitive);
                sorted.removeDuplicates();
                QCOMPARE(result, sorted);
            }
            for (const QString &line : first)
                QCOMPARE(onlyFirst.contains(line), !second.contains(line));
            for (const QString &line : second)
                QCOMPARE(onlySecond.contains(line), !first.contains(line));
        }
    });
}

void TestDiffView::aLongTagWidensBothPanes()
{
    showDiff({kInitial, kPrevious, kCurrent, QStringLiteral("short")}, [](DiffView &dialog) {
        QCOMPARE(child<QPlainTextEdit>(dialog, "left_pane")->width(), 300);
        QCOMPARE(dialog.minimumWidth(), dialog.maximumWidth());
    });
    showDiff({kInitial, kPrevious, kCurrent, QString(80, 'w')}, [](DiffView &dialog) {
        const int width = child<QLabel>(dialog, "left_label")->sizeHint().width();
        QVERIFY(width > 300);
        QCOMPARE(child<QPlainTextEdit>(dialog, "left_pane")->minimumWidth(), width);
        QCOMPARE(child<QPlainTextEdit>(dialog, "right_pane")->minimumWidth(), width);
        QVERIFY(dialog.minimumWidth() > 2 * width);
    });
}

void TestDiffView::itStaysInFrontOfTheProgramWhileNoWindowIsActive()
{
    QWidget program;
    program.show();
    QVERIFY(QTest::qWaitForWindowExposed(&program));
    // A dialog that has just closed leaves it so.
    QApplication::setActiveWindow(nullptr);
    const QWidget *behind = nullptr;
    showDiff({kInitial, kPrevious, kCurrent, {}},
             [&behind](DiffView &dialog) { behind = dialog.parentWidget(); });
    QCOMPARE(behind, &program);
}

void TestDiffView::theArgumentsStayAsTheyWere()
{
    const Arguments arguments{{"b=1", "a=1"}, {"d=encrypted_", "c=1"}, {"f=1", "e=1"}, {}};
    const Arguments before = arguments;
    showDiff(arguments, [](DiffView &) {});
    QCOMPARE(arguments.initial, before.initial);
    QCOMPARE(arguments.previous, before.previous);
    QCOMPARE(arguments.current, before.current);
}

void TestDiffView::panesAreReadOnlyAndDoNotWrap()
{
    showDiff({kInitial, kPrevious, kCurrent, {}}, [](DiffView &dialog) {
        for (const char *name : {"left_pane", "right_pane"}) {
            const auto *pane = child<QPlainTextEdit>(dialog, name);
            QVERIFY(pane->isReadOnly());
            QCOMPARE(pane->lineWrapMode(), QPlainTextEdit::NoWrap);
            QCOMPARE(pane->horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
            QVERIFY(!pane->accessibleName().isEmpty());
        }
    });
}

void TestDiffView::thousandsOfLinesArePutIntoThePanesOnce_data()
{
    QTest::addColumn<bool>("hasPrevious");
    QTest::newRow("of the comparison with the previous settings") << true;
    QTest::newRow("of the comparison with the initial ones where there are no others") << false;
}

void TestDiffView::thousandsOfLinesArePutIntoThePanesOnce()
{
    QFETCH(bool, hasPrevious);
    const auto lines = [](const QString &value) {
        QStringList result;
        for (int i = 0; i < kManyLines; ++i)
            result.append(QStringLiteral("site/key_%1=%2").arg(i).arg(value));
        return result;
    };
    QPlainTextEdit fresh;
    fresh.setPlainText(QStringLiteral("once"));
    const int once = fresh.document()->revision();
    const QStringList previous = hasPrevious ? lines(QStringLiteral("second")) : QStringList();
    const Arguments arguments{lines(QStringLiteral("first")), previous, lines(QStringLiteral("third")), {}};
    showDiff(arguments, [&](DiffView &dialog) {
        for (const char *name : {"left_pane", "right_pane"}) {
            const auto *pane = child<QPlainTextEdit>(dialog, name);
            QCOMPARE(pane->document()->revision(), once);
            QCOMPARE(pane->blockCount(), kManyLines);
            // A line that nobody has seen has no layout.
            QCOMPARE(pane->document()->findBlockByNumber(kManyLines / 2).layout()->lineCount(), 0);
        }
        QVERIFY(panes(dialog).left.startsWith(hasPrevious ? "site/key_0=second\n" : "site/key_0=first\n"));
        QVERIFY(panes(dialog).right.startsWith("site/key_0=third\n"));
    });
}

QTEST_MAIN(TestDiffView)
#include "test_diffview.moc"
