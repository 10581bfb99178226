#include "Corvane/settings/confmanagementdialog.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "support/messageboxes.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace SettingsTest;

namespace {

bool receive(SettingsView &view, bool success)
{
    return QMetaObject::invokeMethod(&view, "settingsReceived", Q_ARG(bool, success), Q_ARG(bool, false),
                                     Q_ARG(QString, QString()));
}

/// What the store says of a configuration that was asked for.
bool answer(bool success)
{
    return QMetaObject::invokeMethod(store(), "onlineSettingsReady", Q_ARG(bool, success), Q_ARG(bool, false),
                                     Q_ARG(QString, QString()));
}

void cancelManagement(SettingsBench &bench)
{
    bench.choose("online_menu", "manage_action");
    auto *dialog = bench.view().findChild<ConfManagementDialog *>();
    QVERIFY(dialog && dialog->isVisible());
    QTest::mouseClick(child<QPushButton>(*dialog, "cancel_button"), Qt::LeftButton);
    QTRY_VERIFY(!bench.view().findChild<ConfManagementDialog *>());
}

QString leftPane(const DiffView &dialog)
{
    return child<QPlainTextEdit>(dialog, "left_pane")->toPlainText();
}

QString rightPane(const DiffView &dialog)
{
    return child<QPlainTextEdit>(dialog, "right_pane")->toPlainText();
}

}  // namespace

/// Comparisons with loaded sources, and online configurations that arrive, on the real menus and dialogs.
class TestSettingsComparison : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void showingTheSettingsTwiceConnectsOnce();
    void aFirstLoadOfAnyKindMakesInitialAndPreviousSettingsEqual_data();
    void aFirstLoadOfAnyKindMakesInitialAndPreviousSettingsEqual();
    void aChangedSecretIsMaskedInTheComparison();
    void aSecretSavedTwiceIsNoDifferenceAndAChangedOneIsOneLineOnEachSide();
    void aListWithoutItemsIsNoDifferenceAndNoError();
    void fromTheMenuThereIsNoCancelAndTheResultMeansNothing_data();
    void fromTheMenuThereIsNoCancelAndTheResultMeansNothing();
    void theComparisonIsNotAnAuditEvent();
    void theTagNamesTheLastSource();
    void aFirstOnlineLoadShowsNoDifferenceDialogAndTheLaterOnesDo();
    void aRejectedOnlineLoadIsUndone();
    void anAcceptedOnlineLoadReachesThePages();
    void aFailedOnlineLoadIsToldAndThePagesStay();
    void aCancelledManagementDialogLeavesTheViewListening_data();
    void aCancelledManagementDialogLeavesTheViewListening();

private:
    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
};

void TestSettingsComparison::init()
{
    m_files.reset();
}

void TestSettingsComparison::cleanup()
{
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!QDir(m_files.temporaryDirectory()).exists());
}

void TestSettingsComparison::showingTheSettingsTwiceConnectsOnce()
{
    SettingsBench bench(m_workstation, kAllRights);
    QVERIFY(QMetaObject::invokeMethod(&bench.view(), "showSettings"));
    QVERIFY(QMetaObject::invokeMethod(&bench.view(), "showSettings"));
    bench.seeChanges([](DiffView &) {});
}

void TestSettingsComparison::aFirstLoadOfAnyKindMakesInitialAndPreviousSettingsEqual_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("from the local application") << "local";
    QTest::newRow("online") << "online";
}

void TestSettingsComparison::aFirstLoadOfAnyKindMakesInitialAndPreviousSettingsEqual()
{
    QFETCH(QString, kind);
    m_files.setLocal({{"site/own", "first"}});
    SettingsBench bench(m_workstation, kAllRights);
    if (kind == QLatin1String("local")) {
        bench.choose("local_menu", "load_action");
    } else {
        setStored("site/own", "first");
        QVERIFY(receive(bench.view(), true));
        QVERIFY(QMetaObject::invokeMethod(&bench.view(), "showSettings"));
    }
    setStored("site/own", "second");
    bench.seeChanges([](DiffView &dialog) {
        const QString left = leftPane(dialog);
        const QString right = rightPane(dialog);
        QCOMPARE(left, QStringLiteral("site/own=first"));
        QVERIFY(right.contains("site/own=second"));
        QTest::mouseClick(child<QPushButton>(dialog, "toggle_button"), Qt::LeftButton);
        QCOMPARE(leftPane(dialog), left);
        QCOMPARE(rightPane(dialog), right);
    });

    // A second load moves the previous settings on and leaves the initial ones.
    m_files.setLocal({{"site/own", "third"}});
    bench.choose("local_menu", "load_action");
    setStored("site/own", "fourth");
    bench.seeChanges([](DiffView &dialog) {
        QCOMPARE(leftPane(dialog), QStringLiteral("site/own=third"));
        QTest::mouseClick(child<QPushButton>(dialog, "toggle_button"), Qt::LeftButton);
        QCOMPARE(leftPane(dialog), QStringLiteral("site/own=first"));
    });
}

void TestSettingsComparison::aChangedSecretIsMaskedInTheComparison()
{
    store()->setSafeValue(QStringLiteral("persondb/password"), QStringLiteral("before"));
    m_files.setLocal({{"persondb/password", store()->generalSettings()->value("persondb/password")},
                      {"persondb/driverparams", "encoded"}});
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    child<QLineEdit>(bench.view(), "password_edit")->setText(QStringLiteral("after"));
    bench.seeChanges([](DiffView &dialog) {
        QVERIFY(leftPane(dialog).split('\n').contains("persondb/password=*****"));
        QVERIFY(rightPane(dialog).split('\n').contains("persondb/password=*****"));
        QVERIFY(leftPane(dialog).split('\n').contains("persondb/driverparams=encoded"));
        QVERIFY(!(leftPane(dialog) + rightPane(dialog)).contains("encrypted_"));
    });
}

void TestSettingsComparison::aSecretSavedTwiceIsNoDifferenceAndAChangedOneIsOneLineOnEachSide()
{
    for (const char *key : {"persondb/username", "persondb/password"}) {
        store()->setSafeValue(QLatin1String(key), QStringLiteral("before"));
        m_files.setLocal({{QLatin1String(key), store()->generalSettings()->value(QLatin1String(key))}});
    }
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    for (int i = 0; i < 2; ++i) {
        bench.seeChanges([](DiffView &dialog) {
            QVERIFY(!(leftPane(dialog) + rightPane(dialog)).contains("persondb/username"));
            QVERIFY(!(leftPane(dialog) + rightPane(dialog)).contains("persondb/password"));
        });
    }
    child<QLineEdit>(bench.view(), "password_edit")->setText(QStringLiteral("after"));
    for (int i = 0; i < 2; ++i) {
        bench.seeChanges([](DiffView &dialog) {
            for (const QString &pane : {leftPane(dialog), rightPane(dialog)}) {
                QCOMPARE(pane.split('\n').filter("persondb/password"),
                         QStringList{"persondb/password=*****"});
                QVERIFY(!pane.contains("persondb/username"));
            }
        });
    }
}

void TestSettingsComparison::aListWithoutItemsIsNoDifferenceAndNoError()
{
    m_files.setLocal({{"application/study_specific", QStringList()}});
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.seeChanges([](DiffView &dialog) {
        QVERIFY(!(leftPane(dialog) + rightPane(dialog)).contains("study_specific"));
    });
    // A save and another load, from what is on disk then.
    MessageBoxes boxes;
    bench.choose("local_menu", "save_action");
    bench.choose("local_menu", "load_action");
    bench.seeChanges([](DiffView &dialog) {
        QCOMPARE(leftPane(dialog), QString());
        QCOMPARE(rightPane(dialog), QString());
    });
    for (const AuditEvent &event : bench.takeEvents())
        QCOMPARE(event.error, ZephanError(0));
}

void TestSettingsComparison::fromTheMenuThereIsNoCancelAndTheResultMeansNothing_data()
{
    QTest::addColumn<bool>("accept");
    QTest::newRow("OK") << true;
    QTest::newRow("the window's close button") << false;
}

void TestSettingsComparison::fromTheMenuThereIsNoCancelAndTheResultMeansNothing()
{
    QFETCH(bool, accept);
    m_files.setLocal({{"site/own", "loaded"}});
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    setStored("site/own", "changed");
    child<QComboBox>(bench.view(), "measurement_units")->setCurrentIndex(1);
    const DiffAnswers answers(
        [](DiffView &dialog) {
            QVERIFY(!dialog.findChild<QPushButton *>("cancel_button"));
            QCOMPARE(dialog.findChildren<QPushButton *>().size(), 2);  // OK and the one that switches
            QVERIFY(rightPane(dialog).contains("site/own=changed"));
        },
        accept);
    bench.choose("online_menu", "diff_action");
    QCOMPARE(answers.count(), 1);
    QCOMPARE(stored("site/own").toString(), QStringLiteral("changed"));
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 1);
}

void TestSettingsComparison::theComparisonIsNotAnAuditEvent()
{
    SettingsBench bench(m_workstation, kAllRights);
    bench.choose("local_menu", "load_action");
    bench.takeEvents();
    bench.seeChanges([](DiffView &) {});
    QVERIFY(bench.takeEvents().isEmpty());
}

void TestSettingsComparison::theTagNamesTheLastSource()
{
    SettingsBench bench(m_workstation, kAllRights);
    m_files.setLocal({{"site/own", "first"}});
    bench.choose("local_menu", "load_action");
    bench.seeChanges([](DiffView &dialog) {
        QCOMPARE(child<QLabel>(dialog, "left_label")->text(), QStringLiteral("Local settings"));
    });
    QVERIFY(QMetaObject::invokeMethod(&bench.view(), "loadTag", Q_ARG(QString, "Configuration 7")));
    bench.seeChanges([](DiffView &dialog) {
        QCOMPARE(child<QLabel>(dialog, "left_label")->text(), QStringLiteral("Configuration 7"));
    });
}

void TestSettingsComparison::aFirstOnlineLoadShowsNoDifferenceDialogAndTheLaterOnesDo()
{
    SettingsBench bench(m_workstation, kAllRights);
    int shown = 0;
    const DiffAnswers answers(
        [&shown](DiffView &dialog) {
            ++shown;
            QVERIFY(child<QPushButton>(dialog, "toggle_button")->isHidden());
            QVERIFY(dialog.findChild<QPushButton *>("cancel_button"));
        },
        true);
    QVERIFY(receive(bench.view(), true));
    QCOMPARE(shown, 0);
    QVERIFY(receive(bench.view(), true));
    QCOMPARE(shown, 1);
    QVERIFY(receive(bench.view(), true));
    QCOMPARE(shown, 2);
    QVERIFY(bench.takeEvents().isEmpty());
}

void TestSettingsComparison::aRejectedOnlineLoadIsUndone()
{
    SettingsBench bench(m_workstation, kAllRights);
    setStored("ui/measurement_units", 0);
    QVERIFY(receive(bench.view(), true));
    store()->store();
    setStored("ui/measurement_units", 1);
    const DiffAnswers answers([](DiffView &) {}, false);
    QVERIFY(receive(bench.view(), true));
    QCOMPARE(answers.count(), 1);
    QCOMPARE(stored("ui/measurement_units").toInt(), 0);
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 0);
}

void TestSettingsComparison::anAcceptedOnlineLoadReachesThePages()
{
    SettingsBench bench(m_workstation, kAllRights);
    QVERIFY(receive(bench.view(), true));
    store()->store();
    setStored("ui/measurement_units", 1);
    setStored("ui/geometry", "elsewhere");
    const DiffAnswers answers([](DiffView &) {}, true);
    QVERIFY(receive(bench.view(), true));
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 1);
    QVERIFY(!m_files.workingKeys().contains("ui/geometry"));
}

void TestSettingsComparison::aFailedOnlineLoadIsToldAndThePagesStay()
{
    SettingsBench bench(m_workstation, kAllRights);
    setStored("ui/measurement_units", 1);
    MessageBoxes boxes;
    QVERIFY(receive(bench.view(), false));
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, QStringLiteral("Loading settings failed"));
    QCOMPARE(boxes.seen().first().text,
             QStringLiteral("Loading settings configuration from database was unsuccessful.\n"
                            "Previous settings restored."));
    QCOMPARE(boxes.seen().first().icon, QMessageBox::Warning);
    QCOMPARE(boxes.seen().first().buttons, QStringList{"Ok"});
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>{settingsError(
                 Actions::LoadSettings, 0x14200003,
                 QStringLiteral("Loading settings configuration from database was unsuccessful"))});
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 0);
    // It was no load: the next one is the first.
    const DiffAnswers answers([](DiffView &) {}, true);
    QVERIFY(receive(bench.view(), true));
    QCOMPARE(answers.count(), 0);
}

void TestSettingsComparison::aCancelledManagementDialogLeavesTheViewListening_data()
{
    QTest::addColumn<int>("cancelled");
    QTest::addColumn<int>("heard");
    QTest::newRow("without a dialog nothing is heard") << 0 << 0;
    QTest::newRow("after one dialog one answer is heard") << 1 << 1;
    QTest::newRow("what listens twice stops at the first answer") << 2 << 1;
}

void TestSettingsComparison::aCancelledManagementDialogLeavesTheViewListening()
{
    QFETCH(int, cancelled);
    QFETCH(int, heard);
    SettingsBench bench(m_workstation, kAllRights);
    for (int i = 0; i < cancelled; ++i)
        cancelManagement(bench);
    QVERIFY(bench.takeEvents().isEmpty());
    const MessageBoxes boxes;
    for (int i = 0; i < 2; ++i)
        QVERIFY(answer(false));
    QCOMPARE(boxes.seen().size(), heard);
    QCOMPARE(bench.takeEvents().size(), heard);
}

QTEST_MAIN(TestSettingsComparison)
#include "test_settingscomparison.moc"
