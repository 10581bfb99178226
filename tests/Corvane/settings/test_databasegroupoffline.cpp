#include "Corvane/settings/databasegroupfixture.h"
#include "support/filedialogs.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>

/// The offline mode and its file dialogs.
class TestDatabaseGroupOffline : public DatabaseGroupFixture
{
    Q_OBJECT

private slots:
    void theOfflineModeShowsTheLocationAlone();
    void theModeAndLocationComeFromTheMap_data();
    void theModeAndLocationComeFromTheMap();
    void theModeIsSavedForTheSupportDatabaseOnly();
    void aRowThatComesWhileOfflineStaysHidden();
    void browsingPutsAFileIntoTheLocation();
    void creatingPutsTheFileNameBehindTheDirectory();
    void theFileDialogStartsAtTheStoredLocation();
    void aCancelledFileDialogLeavesTheLocation();
    void returnOnAButtonPressesItAndNotTheDialogsDefault_data();
    void returnOnAButtonPressesItAndNotTheDialogsDefault();
};

void TestDatabaseGroupOffline::theOfflineModeShowsTheLocationAlone()
{
    QVariantMap map = supportMap({{text("A"), 1}}, kDefaultOptions);
    DatabaseGroupSettings *editor = show(Support, kEditable, false, kOnlineModeShown, &map);
    const QStringList online{text("sql_type_label"),
                             text("sql_type_combo"),
                             text("username_label"),
                             text("username_edit"),
                             text("password_label"),
                             text("password_edit"),
                             text("connection_settings_label"),
                             text("connection_setting_1"),
                             text("connection_setting_2"),
                             text("connection_parameters_label"),
                             text("connection_parameter_1"),
                             text("connection_parameter_3")};
    const QStringList offline{text("offline_location_label"), text("offline_location_edit"),
                              text("browse_offline_button"), text("create_offline_button")};
    const auto visible = [this](const QStringList &names) {
        QStringList seen;
        for (const QString &name : names) {
            if (m_window->findChild<QWidget *>(name)->isVisible())
                seen.append(name);
        }
        return seen;
    };
    auto *mode = find<QComboBox>("online_mode_combo");
    QVERIFY(mode->isVisible());
    QVERIFY(!editor->isOffline());
    QVERIFY(!find<QComboBox>("database_selector")->isVisible());
    QCOMPARE(visible(online), online);
    QCOMPARE(visible(offline), QStringList());
    const int onlineHeight = m_window->height();

    mode->setCurrentIndex(1);
    QVERIFY(editor->isOffline());
    QCOMPARE(visible(online), QStringList());
    QCOMPARE(visible(offline), offline);
    QTRY_VERIFY(m_window->height() < onlineHeight);

    mode->setCurrentIndex(0);
    QCOMPARE(visible(online), online);
    QCOMPARE(visible(offline), QStringList());
}

void TestDatabaseGroupOffline::theModeAndLocationComeFromTheMap_data()
{
    QTest::addColumn<QVariantMap>("map");
    QTest::addColumn<bool>("offline");
    QTest::addColumn<QString>("location");

    QTest::newRow("nothing told is online") << QVariantMap{} << false << QString();
    QTest::newRow("online") << QVariantMap{{text("supportdb/online_mode"), true}} << false << QString();
    QTest::newRow("offline with a location") << QVariantMap{{text("supportdb/online_mode"), false},
                                                            {text("supportdb/offline_location"), text("/x")}}
                                             << true << text("/x");
    QTest::newRow("\"false\" read from a file is offline")
        << QVariantMap{{text("supportdb/online_mode"), text("false")}} << true << QString();
    QTest::newRow("online keeps the location")
        << QVariantMap{{text("supportdb/online_mode"), text("true")},
                       {text("supportdb/offline_location"), text("/x")}}
        << false << text("/x");
}

void TestDatabaseGroupOffline::theModeAndLocationComeFromTheMap()
{
    QFETCH(QVariantMap, map);
    QFETCH(bool, offline);
    QFETCH(QString, location);
    DatabaseGroupSettings *editor = show(Support, kEditable, false, kOnlineModeShown, &map);
    QCOMPARE(editor->isOffline(), offline);
    QCOMPARE(editor->offlineLocation(), location);
    editor->saveDBSettings();
    QCOMPARE(map.value(text("supportdb/online_mode")), QVariant(!offline));
    QCOMPARE(map.value(text("supportdb/offline_location")), QVariant(location));
}

void TestDatabaseGroupOffline::theModeIsSavedForTheSupportDatabaseOnly()
{
    QVariantMap map;
    show(ActionLog, kEditable, false, kOnlineModeShown, &map)->saveDBSettings();
    QVERIFY(map.contains(text("actiondb/sqltype")));
    QVERIFY(!map.contains(text("supportdb/online_mode")));

    map.clear();
    showMap(map)->saveDBSettings();
    QVERIFY(!map.contains(text("supportdb/online_mode")));
    QVERIFY(!map.contains(text("supportdb/offline_location")));

    show(Support, kEditable, false, kOnlineModeShown, nullptr)->saveDBSettings();
    QVERIFY(!store()->generalSettings()->contains(text("supportdb/online_mode")));
}

void TestDatabaseGroupOffline::aRowThatComesWhileOfflineStaysHidden()
{
    QVariantMap map;
    DatabaseGroupSettings *editor = show(Support, kEditable, false, kOnlineModeShown, &map);
    type(setting(1), text("A=1"));
    find<QComboBox>("online_mode_combo")->setCurrentIndex(1);
    editor->addEmptyEditors(false);
    QCOMPARE(settings(), (QStringList{text("A=1"), QString()}));
    QCoreApplication::processEvents();
    QVERIFY(!setting(1)->isVisible());
    QVERIFY(!setting(2)->isVisible());
}

void TestDatabaseGroupOffline::browsingPutsAFileIntoTheLocation()
{
    QVariantMap map;
    DatabaseGroupSettings *editor = show(Support, kEditable, false, kOnlineModeShown, &map);
    find<QComboBox>("online_mode_combo")->setCurrentIndex(1);
    const QString folder = m_workstation.path(QString::fromUtf8("tietokannat_äöå_测试"));
    QVERIFY(QDir().mkpath(folder));
    const QString file = folder + text("/offline.access.db");
    find<QLineEdit>("offline_location_edit")->setText(folder + text("/before.db"));

    FileDialogs dialogs({file});
    QTest::mouseClick(find<QPushButton>("browse_offline_button"), Qt::LeftButton);
    QCOMPARE(dialogs.seen().size(), 1);
    const SeenFileDialog answer = dialogs.seen().first();
    QCOMPARE(answer.title, text("Select offline database location"));
    QCOMPARE(answer.fileMode, QFileDialog::AnyFile);
    QVERIFY(answer.showsDirectoriesOnly);
    QCOMPARE(answer.acceptLabel, text("Select"));
    QCOMPARE(answer.rejectLabel, text("Cancel"));
    QCOMPARE(answer.directory, folder);
    QCOMPARE(editor->offlineLocation(), QDir::toNativeSeparators(file));
    QVERIFY(!QFile::exists(file));
}

void TestDatabaseGroupOffline::creatingPutsTheFileNameBehindTheDirectory()
{
    QVariantMap map;
    DatabaseGroupSettings *editor = show(Support, kEditable, false, kOnlineModeShown, &map);
    find<QComboBox>("online_mode_combo")->setCurrentIndex(1);
    const QString folder = m_workstation.path(QString::fromUtf8("uusi_ääni"));
    QVERIFY(QDir().mkpath(folder));
    find<QLineEdit>("offline_location_edit")->setText(folder + text("/offline.access.db"));

    FileDialogs dialogs({folder});
    QTest::mouseClick(find<QPushButton>("create_offline_button"), Qt::LeftButton);
    QCOMPARE(dialogs.seen().size(), 1);
    const SeenFileDialog answer = dialogs.seen().first();
    QCOMPARE(answer.title, text("Select offline database location directory"));
    QCOMPARE(answer.fileMode, QFileDialog::Directory);
    QVERIFY(answer.showsDirectoriesOnly);
    QCOMPARE(answer.directory, folder);
    QCOMPARE(editor->offlineLocation(), QDir::toNativeSeparators(folder + text("/offline.access.db")));
    QVERIFY(QDir(folder).isEmpty());
}

void TestDatabaseGroupOffline::theFileDialogStartsAtTheStoredLocation()
{
    QVariantMap map;
    show(Support, kEditable, false, kOnlineModeShown, &map);
    find<QComboBox>("online_mode_combo")->setCurrentIndex(1);
    const QString folder = m_workstation.path(text("stored"));
    QVERIFY(QDir().mkpath(folder));
    store()->setSafeValue(text("accesscontrol/single_workstation_db_location"),
                          QDir::toNativeSeparators(folder + text("/offline.access.db")));

    FileDialogs dialogs;
    QTest::mouseClick(find<QPushButton>("browse_offline_button"), Qt::LeftButton);
    QTest::mouseClick(find<QPushButton>("create_offline_button"), Qt::LeftButton);
    QCOMPARE(dialogs.seen().size(), 2);
    QCOMPARE(dialogs.seen().first().directory, folder);
    QCOMPARE(dialogs.seen().last().directory, folder);
}

void TestDatabaseGroupOffline::aCancelledFileDialogLeavesTheLocation()
{
    QVariantMap map{{text("supportdb/offline_location"), text("/srv/offline.access.db")}};
    DatabaseGroupSettings *editor = show(Support, kEditable, false, kOnlineModeShown, &map);
    find<QComboBox>("online_mode_combo")->setCurrentIndex(1);
    for (const char *button : {"browse_offline_button", "create_offline_button"}) {
        FileDialogs dialogs;
        QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton);
        QCOMPARE(dialogs.seen().size(), 1);
        QCOMPARE(editor->offlineLocation(), text("/srv/offline.access.db"));
    }
}

void TestDatabaseGroupOffline::returnOnAButtonPressesItAndNotTheDialogsDefault_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("title");
    QTest::newRow("browse") << text("browse_offline_button") << text("Select offline database location");
    QTest::newRow("create") << text("create_offline_button")
                            << text("Select offline database location directory");
}

void TestDatabaseGroupOffline::returnOnAButtonPressesItAndNotTheDialogsDefault()
{
    QFETCH(QString, button);
    QFETCH(QString, title);
    QVariantMap map{{text("supportdb/online_mode"), false}};
    show(Support, kEditable, false, kOnlineModeShown, &map);
    QPushButton connectButton(m_window.get());
    connectButton.setDefault(true);
    connectButton.show();
    const QSignalSpy connecting(&connectButton, &QPushButton::clicked);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        const FileDialogs dialogs;
        auto *pressed = m_window->findChild<QPushButton *>(button);
        pressed->setFocus();
        QTest::keyClick(pressed, key);
        QCOMPARE(dialogs.seen().size(), 1);
        QCOMPARE(dialogs.seen().first().title, title);
    }
    QVERIFY(connecting.isEmpty());
    // In the line it stays the default.
    auto *location = find<QLineEdit>("offline_location_edit");
    location->setFocus();
    QTest::keyClick(location, Qt::Key_Return);
    QCOMPARE(connecting.count(), 1);
}

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    TestDatabaseGroupOffline test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_databasegroupoffline.moc"
