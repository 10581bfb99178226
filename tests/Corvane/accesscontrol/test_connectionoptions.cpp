#include "Corvane/accesscontrol/handlerfixture.h"
#include "Corvane/settings/databasegroupsettings.h"
#include "support/messageboxes.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>

/// The dialog in which the access connection is chosen.
class TestConnectionOptions : public HandlerFixture
{
    Q_OBJECT

private slots:
    void cancellingTheOptionsStillEmitsReconnected();
    void offlineWithoutALocationDoesNothingUntilThereIsOne();
    void offlineWithoutALocationCanBeCancelled();
    void offlineIsNotOfferedToWhoIsNotInside();
    void aStoredOfflineModeDoesNotCountForWhoIsNotInside();
    void theOptionsConnectOnline();
    void theOptionsConnectOffline();
    void aFailedConnectionIsShown();
    void anOfflineLocationThatIsAFileFails();
    void afterADropTheOfflineFileIsFollowedByTheOnlineDatabase();
    void goingBackAndForthBetweenOnlineAndOffline();
    void eachEndOnTheWayBetweenOnlineAndOfflineIsRecorded();
    void theWaitCursorIsGoneWhenAFailureIsShown();
    void theDialogHasItsButtonsAndTheFocusInTheEditor();
    void theFocusIsInTheLocationOfAnOfflineFile();
    void theDialogIsEmptyAgainAfterwards();
    void returnOnTheButtonOfARowOpensTheDialog();
};

void TestConnectionOptions::cancellingTheOptionsStillEmitsReconnected()
{
    const QString file = makeDatabase(text("cancelled"));
    writeLocalCache(sqlite(file));
    makeHandler();
    QVERIFY(m_handler->connectOnline());
    DialogSteps steps({[&](QDialog &dialog) {
        find<QLineEdit>(dialog, "connection_setting_1")->setText(text("Database=/elsewhere"));
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(steps.areDone());
    QCOMPARE(m_reconnected->size(), 1);
    QVERIFY(m_handler->isConnected());
    QVERIFY(errors().isEmpty());
    QCOMPARE(shownRows("connection_setting_"),
             (QStringList{text("Database=") + file, text("Driver=SQLite3")}));
}

void TestConnectionOptions::offlineWithoutALocationDoesNothingUntilThereIsOne()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    const QString folder = m_workstation.path(text("until"));
    bool stayedOpen = false;
    DialogSteps steps({chooseOffline(QString()), pressConnect,
                       [&](QDialog &dialog) {
                           stayedOpen = dialog.isVisible();
                           find<QLineEdit>(dialog, "offline_location_edit")->setText(folder);
                       },
                       pressConnect});
    m_handler->connectionOptions();
    QVERIFY(stayedOpen);
    QVERIFY(steps.areDone());
    QVERIFY(m_handler->isConnected());
    QVERIFY(errors().isEmpty());
}

void TestConnectionOptions::offlineWithoutALocationCanBeCancelled()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    DialogSteps steps({chooseOffline(QString()), pressConnect, pressCancel});
    m_handler->connectionOptions();
    QVERIFY(steps.areDone());
    QVERIFY(!m_handler->isConnected());
    QVERIFY(errors().isEmpty());
    QCOMPARE(m_reconnected->size(), 1);
}

void TestConnectionOptions::offlineIsNotOfferedToWhoIsNotInside()
{
    makeHandler();
    bool offered = true;
    DialogSteps steps({[&](QDialog &dialog) {
        offered = find<QComboBox>(dialog, "online_mode_combo")->isVisible();
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(!offered);

    m_handler->setOfflineAllowed(true);
    DialogSteps inside({[&](QDialog &dialog) {
        offered = find<QComboBox>(dialog, "online_mode_combo")->isVisible();
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(offered);
}

void TestConnectionOptions::aStoredOfflineModeDoesNotCountForWhoIsNotInside()
{
    writeLocalCache(sqlite(makeDatabase(text("outside"))));
    QSettings(localCache(), QSettings::IniFormat).setValue(text("supportdb_offline/online_mode"), false);
    makeHandler();
    DialogSteps steps({pressConnect});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    QCOMPARE(m_handler->database()->connectionName(), kOnlineName);
}

void TestConnectionOptions::theOptionsConnectOnline()
{
    const QString file = makeDatabase(text("dialog"));
    makeHandler();
    DialogSteps steps({[&](QDialog &dialog) {
        QTest::keyClicks(find<QLineEdit>(dialog, "connection_setting_1"),
                         text("Driver=SQLite3;Database=") + file);
        find<QComboBox>(dialog, "sql_type_combo")->setCurrentIndex(1);
        pressConnect(dialog);
    }});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    QCOMPARE(m_handler->sqlType(), QVariant(2));
    QCOMPARE(events(), QList<Event>{started(sqliteName(file))});
    QCOMPARE(m_reconnected->size(), 1);
}

void TestConnectionOptions::theOptionsConnectOffline()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    const QString folder = m_workstation.path(QString::fromUtf8("Käyttöoikeudet"));
    const QString file = folder + text("/offline.access.db");
    DialogSteps steps({chooseOffline(QDir::toNativeSeparators(file)), pressConnect});
    m_handler->connectionOptions();
    QVERIFY(m_handler->isConnected());
    QVERIFY(QFile::exists(file));
    QCOMPARE(m_handler->database()->connectionName(), kOfflineName);
    const QString name = QDir::toNativeSeparators(file);
    QCOMPARE(QDir::cleanPath(m_handler->database()->databaseName()), QDir::cleanPath(name));
    const QString path = m_handler->database()->databaseName();
    QCOMPARE(events(), (QList<Event>{{Actions::Started, Actions::Human, path, path, kInfo}}));
    QCOMPARE(m_reconnected->size(), 1);

    m_handler->closeConnection();
    QVERIFY(!m_handler->isConnected());
    QVERIFY(!QSqlDatabase::contains(kOfflineName));
    QCOMPARE(events().last(), stopping(kOfflineName, path));
}

void TestConnectionOptions::aFailedConnectionIsShown()
{
    makeHandler();
    MessageBoxes boxes;
    DialogSteps steps({pressConnect});
    m_handler->connectionOptions();
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(boxes.seen().first().title, text("Error"));
    QCOMPARE(boxes.seen().first().text, text("Connection failed"));
    QCOMPARE(boxes.seen().first().icon, QMessageBox::Critical);
    QCOMPARE(boxes.seen().first().buttons, QStringList{text("Ok")});
    QCOMPARE(errors().size(), 2);
    QVERIFY(errors().first().startsWith(text("5102 16300001: Database:  ErrorInfo: ")));
    QCOMPARE(errors().last(), text("5100 16300001: Connection failed to access.supportdb"));
    QCOMPARE(m_reconnected->size(), 3);
}

void TestConnectionOptions::anOfflineLocationThatIsAFileFails()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    const QString file = m_workstation.path(text("a_file"));
    QVERIFY(writeFile(file, "kept"));
    MessageBoxes boxes;
    DialogSteps steps({chooseOffline(file), pressConnect});
    m_handler->connectionOptions();
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(boxes.seen().size(), 1);
    QCOMPARE(errors(), QStringList{text("5100 16300001: Connection failed to access.supportdb")});
    QCOMPARE(readFile(file), QByteArray("kept"));
}

void TestConnectionOptions::afterADropTheOfflineFileIsFollowedByTheOnlineDatabase()
{
    writeLocalCache(sqlite(makeDatabase(text("follows"))));
    makeHandler();
    m_handler->setOfflineAllowed(true);
    DialogSteps steps({chooseOffline(m_workstation.path(text("follows"))), pressConnect});
    m_handler->connectionOptions();
    QCOMPARE(m_handler->database()->connectionName(), kOfflineName);
    m_handler->error();
    QVERIFY(!m_handler->isConnected());
    QVERIFY(m_handler->connectOnline());
    QCOMPARE(m_handler->database()->connectionName(), kOnlineName);
}

void TestConnectionOptions::goingBackAndForthBetweenOnlineAndOffline()
{
    writeLocalCache(sqlite(makeDatabase(text("forth"))));
    makeHandler();
    m_handler->setOfflineAllowed(true);
    const QString folder = m_workstation.path(text("forth"));
    const auto chooseOnline = [](QDialog &dialog) {
        find<QComboBox>(dialog, "online_mode_combo")->setCurrentIndex(0);
    };
    for (int round = 0; round < 2; ++round) {
        DialogSteps online({chooseOnline, pressConnect});
        m_handler->connectionOptions();
        QCOMPARE(m_handler->database()->connectionName(), kOnlineName);
        DialogSteps offline({chooseOffline(folder), pressConnect});
        m_handler->connectionOptions();
        QCOMPARE(m_handler->database()->connectionName(), kOfflineName);
        QVERIFY(!QSqlDatabase::contains(kOnlineName));
        DialogSteps offlineAgain({pressConnect});
        m_handler->connectionOptions();
        QCOMPARE(m_handler->database()->connectionName(), kOfflineName);
    }
    QVERIFY(errors().isEmpty());
}

void TestConnectionOptions::eachEndOnTheWayBetweenOnlineAndOfflineIsRecorded()
{
    const QString online = sqliteName(makeDatabase(text("ends")));
    writeLocalCache(sqlite(database(text("ends"))));
    makeHandler();
    m_handler->setOfflineAllowed(true);
    QVERIFY(m_handler->connectOnline());
    DialogSteps toOffline({chooseOffline(m_workstation.path(text("ends"))), pressConnect});
    m_handler->connectionOptions();
    const QString file = m_handler->database()->databaseName();
    DialogSteps again({pressConnect});
    m_handler->connectionOptions();
    DialogSteps toOnline(
        {[](QDialog &dialog) { find<QComboBox>(dialog, "online_mode_combo")->setCurrentIndex(0); },
         pressConnect});
    m_handler->connectionOptions();
    const Event offlineStart{Actions::Started, Actions::Human, file, file, kInfo};
    QCOMPARE(events(), (QList<Event>{started(online), stopping(kOnlineName, online), offlineStart,
                                     stopping(kOfflineName, file), offlineStart, stopping(kOfflineName, file),
                                     started(online)}));
    QVERIFY(errors().isEmpty());
}

void TestConnectionOptions::theWaitCursorIsGoneWhenAFailureIsShown()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    QVERIFY(writeFile(m_workstation.path(text("no_folder")), "kept"));
    bool waits = true;
    MessageBoxes boxes;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        if (qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
            waits = QApplication::overrideCursor() != nullptr;
    });
    look.start(0);
    DialogSteps steps({chooseOffline(m_workstation.path(text("no_folder"))), pressConnect});
    m_handler->connectionOptions();
    QCOMPARE(boxes.seen().size(), 1);
    QVERIFY(!waits);
}

void TestConnectionOptions::theDialogHasItsButtonsAndTheFocusInTheEditor()
{
    writeLocalCache(sqlite(makeDatabase(text("buttons"))));
    makeHandler();
    QVERIFY(m_handler->minimumWidth() == 400);
    QStringList seen;
    for (int i = 0; i < 2; ++i) {
        DialogSteps steps({[&](QDialog &dialog) {
            for (const char *name : {"connect_button", "cancel_button"}) {
                const auto *button = find<QPushButton>(dialog, name);
                seen.append(QStringLiteral("%1 %2 %3")
                                .arg(button->text())
                                .arg(button->height())
                                .arg(button->isDefault() ? text("default") : QString()));
            }
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            seen.append(dialog.focusWidget()->objectName());
            QTest::keyClick(&dialog, Qt::Key_Return);
        }});
        m_handler->connectionOptions();
    }
    QCOMPARE(seen, (QStringList{text("Connect 30 default"), text("Cancel 30 "), text("username_edit"),
                                text("Reconnect 30 default"), text("Cancel 30 "), text("username_edit")}));
}

void TestConnectionOptions::theFocusIsInTheLocationOfAnOfflineFile()
{
    makeHandler();
    m_handler->setOfflineAllowed(true);
    DialogSteps steps({chooseOffline(m_workstation.path(text("focus"))), pressConnect});
    m_handler->connectionOptions();
    QString focused;
    DialogSteps again({[&](QDialog &dialog) {
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        focused = dialog.focusWidget()->objectName();
        pressCancel(dialog);
    }});
    m_handler->connectionOptions();
    QCOMPARE(focused, text("offline_location_edit"));
}

void TestConnectionOptions::theDialogIsEmptyAgainAfterwards()
{
    makeHandler();
    for (int i = 0; i < 3; ++i) {
        int parts = 0;
        DialogSteps steps({[&](QDialog &dialog) {
            parts = dialog.findChildren<DatabaseGroupSettings *>().size() +
                    dialog.findChildren<QPushButton *>(text("connect_button")).size();
            QTest::keyClick(&dialog, Qt::Key_Escape);
        }});
        m_handler->connectionOptions();
        QCOMPARE(parts, 2);
        QVERIFY(!m_handler->findChild<DatabaseGroupSettings *>());
        QVERIFY(m_handler->findChildren<QPushButton *>().isEmpty());
        QCOMPARE(m_handler->layout()->count(), 0);
    }
}

void TestConnectionOptions::returnOnTheButtonOfARowOpensTheDialog()
{
    makeHandler();
    QWidget view;
    view.setLayout(m_handler->createConnectionRow());
    DialogSteps steps({pressCancel});
    QTest::keyClick(view.findChild<QPushButton *>(text("connection_options_button")), Qt::Key_Return);
    QVERIFY(steps.areDone());
}

QTEST_MAIN(TestConnectionOptions)
#include "test_connectionoptions.moc"
