#include "confmanagementfixture.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/messageboxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace SettingsTest;

namespace {

constexpr int kQuietTime = 300;    // milliseconds
constexpr int kPollInterval = 10;  // milliseconds
const QString kMark = QStringLiteral(" - Active in database");
const QString kFailure = QStringLiteral("Deleting settings configuration from database was unsuccessful.\n");

QString createdBy(int id)
{
    return QStringLiteral("%1 Created 2026-01-0%1 10:00:00 (UTC) by user%1").arg(id);
}

AuditEvent notDeleted(int error)
{
    return settingsError(Actions::DeleteSettings, 0x14200004,
                         QStringLiteral("OnlineSettingsError: %1").arg(error));
}

}  // namespace

/// Configurations that are deleted in the management dialog, and those that are not.
class TestConfigurationDeleting : public ConfManagementFixture
{
    Q_OBJECT

private slots:
    void deletingAsksFirst();
    void deletingRemovesTheItem();
    void deletingMovesTheFocusToTheList();
    void whatWasConfirmedIsDeletedWhereverTheMarkMovesTheChoice();
    void deletingTheLastOneLeavesNothingToChoose();
    void deletingTheActiveConfigurationLeavesTheListAndDoesNotReconnect();
    void aLateAnswerIsNoneToTheNextDialog();
    void failedDeleting_data();
    void failedDeleting();
};

void TestConfigurationDeleting::deletingAsksFirst()
{
    addConfigurations(2, 1);
    openConnected();
    QTRY_COMPARE_WITH_TIMEOUT(list()->currentIndex(), 1, kAnswerTime);
    QSignalSpy requests(m_dialog, SIGNAL(requestDelete(int)));
    MessageBoxes boxes({"Cancel"});
    press("delete_button");
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, QStringLiteral("Deleting settings"));
    QCOMPARE(boxes.seen().first().text, QStringLiteral("Deleting from database:\n") + createdBy(1) + kMark);
    QCOMPARE(boxes.seen().first().icon, QMessageBox::Information);
    QStringList buttons = boxes.seen().first().buttons;
    buttons.sort();
    QCOMPARE(buttons, QStringList({"Cancel", "OK"}));
    QVERIFY(requests.isEmpty());
    QVERIFY(canChoose());
}

void TestConfigurationDeleting::deletingRemovesTheItem()
{
    addConfigurations(3, 1);
    openConnected();
    QTRY_COMPARE_WITH_TIMEOUT(list()->currentIndex(), 2, kAnswerTime);
    for (const int id : {3, 2}) {
        choose(id);
        MessageBoxes boxes({"OK"});
        press("delete_button");
        QVERIFY(!isEnabled("load_button"));
        QVERIFY(!isEnabled("delete_button"));
        QTRY_COMPARE_WITH_TIMEOUT(list()->findData(id), -1, kAnswerTime);
        QVERIFY(canChoose());
        QCOMPARE(boxes.seen().size(), 1);
        QVERIFY(list()->currentIndex() >= 0);
        QCOMPARE(notes(), QStringLiteral("notes of %1").arg(list()->currentData().toInt()));
    }
    QCOMPARE(items(list()), QStringList{createdBy(1) + kMark});
    QCOMPARE(SiteConnection::run(m_site, {"SELECT id FROM configurations"}), QStringList{"1"});
}

void TestConfigurationDeleting::deletingMovesTheFocusToTheList()
{
    addConfigurations(2, 0);
    openConnected();
    auto *button = child<QAbstractButton>(*m_dialog, "delete_button");
    button->setFocus();
    MessageBoxes boxes({"OK"});
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(!button->isEnabled());
    // A key that is held down must not reach the button beside it, which closes the dialog.
    QCOMPARE(m_dialog->focusWidget(), m_dialog.data());
    QTRY_COMPARE_WITH_TIMEOUT(list()->count(), 1, kAnswerTime);
    // Nor the same button again, which would delete the next one.
    QCOMPARE(m_dialog->focusWidget(), list());
}

void TestConfigurationDeleting::whatWasConfirmedIsDeletedWhereverTheMarkMovesTheChoice()
{
    addConfigurations(3, 0);
    openConnected();
    choose(3);
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [this, &timer] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        timer.stop();
        // The active configuration becomes known while the question stands.
        QMetaObject::invokeMethod(m_dialog, "markActive", Q_ARG(int, 1));
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    timer.start(kPollInterval);
    press("delete_button");
    QTRY_COMPARE_WITH_TIMEOUT(list()->count(), 2, kAnswerTime);
    QCOMPARE(list()->findData(3), -1);
    QCOMPARE(SiteConnection::run(m_site, {"SELECT id FROM configurations ORDER BY id"}),
             QStringList({"1", "2"}));
}

void TestConfigurationDeleting::deletingTheLastOneLeavesNothingToChoose()
{
    addConfigurations(1, 0);
    openConnected();
    MessageBoxes boxes({"OK"});
    press("delete_button");
    QTRY_COMPARE_WITH_TIMEOUT(list()->count(), 0, kAnswerTime);
    QVERIFY(!isEnabled("load_button"));
    QVERIFY(!isEnabled("delete_button"));
    QCOMPARE(notes(), QString());
}

void TestConfigurationDeleting::deletingTheActiveConfigurationLeavesTheListAndDoesNotReconnect()
{
    addConfigurations(2, 2);
    SettingsBench bench(m_workstation, kAllRights);
    connectFromMenu(bench);
    QTRY_VERIFY_WITH_TIMEOUT(list()->currentText().endsWith(kMark), kAnswerTime);
    const QStringList before = items(list());
    QSignalSpy requests(m_dialog, SIGNAL(requestReconnect(QMap<QString, QVariant>)));
    MessageBoxes boxes({"OK"});
    press("delete_button");
    QTRY_COMPARE_WITH_TIMEOUT(boxes.seen().size(), 2, kAnswerTime);
    QCOMPARE(boxes.seen().last().title, QStringLiteral("Deleting configuration failed"));
    QCOMPARE(boxes.seen().last().text, kFailure + QStringLiteral("Cannot delete active configuration"));
    QCOMPARE(boxes.seen().last().icon, QMessageBox::Warning);
    QCOMPARE(boxes.seen().last().buttons, QStringList{"Ok"});
    QCOMPARE(items(list()), before);
    QVERIFY(canChoose());
    QVERIFY(requests.isEmpty());
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{notDeleted(2)});
    const QByteArray line = lastLine(m_workstation.runtimeLog());
    QVERIFY2(line.startsWith("WRN CV: "), line);
    QVERIFY2(line.contains("ConfManagementDialog::deleteDone"), line);
    QVERIFY2(line.contains("Settings configuration delete not ok"), line);
}

void TestConfigurationDeleting::aLateAnswerIsNoneToTheNextDialog()
{
    addConfigurations(2, 1);
    rememberSite();
    SettingsBench bench(m_workstation, kAllRights);
    connectFromMenu(bench);
    choose(2);
    MessageBoxes boxes({"OK"});
    press("delete_button");
    QCoreApplication::sendPostedEvents();  // the request is with the worker
    press("cancel_button");
    m_username.clear();
    m_password.clear();
    open();
    QSignalSpy errors(m_dialog, &ConfManagementDialog::logError);
    QTRY_COMPARE_WITH_TIMEOUT(SiteConnection::run(m_site, {"SELECT id FROM configurations"}),
                              QStringList{"1"}, kAnswerTime);
    QTest::qWait(kQuietTime);
    QVERIFY(errors.isEmpty());
    QCOMPARE(boxes.seen().size(), 1);  // the question
    QVERIFY(bench.takeEvents().isEmpty());
    QVERIFY(!canChoose());
}

void TestConfigurationDeleting::failedDeleting_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<bool>("reconnects");
    const QString options = QStringLiteral("Check connection options and try again");
    QTest::newRow("active") << 2 << 2 << "Cannot delete active configuration" << false;
    QTest::newRow("not deleted") << 2 << 3 << "Settings configuration was not deleted" << false;
    QTest::newRow("could not delete") << 2 << 4 << "Could not delete settings configuration" << true;
    QTest::newRow("connection lost") << 2 << 5 << options << true;
    QTest::newRow("unknown") << 2 << 1 << options << true;
    QTest::newRow("success of a foreign id") << 1 << 0 << options << true;
}

void TestConfigurationDeleting::failedDeleting()
{
    QFETCH(int, id);
    QFETCH(int, error);
    QFETCH(QString, sentence);
    QFETCH(bool, reconnects);
    addConfigurations(2, 0);
    SettingsBench bench(m_workstation, kAllRights);
    connectFromMenu(bench);
    QSignalSpy requests(m_dialog, SIGNAL(requestReconnect(QMap<QString, QVariant>)));
    MessageBoxes boxes;
    // The store's answer, as it comes from its worker.
    emit store()->settingsDeletedOnline(id, static_cast<OnlineSettings::QueryError>(error));
    QTRY_COMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().text, kFailure + sentence);
    QCOMPARE(requests.count(), reconnects ? 1 : 0);
    QCOMPARE(bench.takeEvents(), QList<AuditEvent>{notDeleted(error)});
    QTRY_COMPARE_WITH_TIMEOUT(items(list()), QStringList({createdBy(2), createdBy(1)}), kAnswerTime);
    QTRY_VERIFY(canChoose());
}

QTEST_MAIN(TestConfigurationDeleting)
#include "test_configurationdeleting.moc"
