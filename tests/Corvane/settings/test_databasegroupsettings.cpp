#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/databasegroupsettings.h"
#include "support/filedialogs.h"
#include "support/workstation.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

enum Database { ActionLog, Persons, Studies, Support, AllDatabases };
constexpr bool kEditable = true;
constexpr bool kActionDbEnabled = true;
constexpr bool kOnlineModeShown = true;

const QStringList kDefaultOptions{QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2"),
                                  QStringLiteral("SQL_ATTR_CONNECTION_TIMEOUT=2")};

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// The parameters of a map, "name=value" each.
QStringList parameters(const QVariantMap &map)
{
    QStringList lines;
    const QVariantMap params = map.value(text("params")).toMap();
    for (auto it = params.begin(); it != params.end(); ++it)
        lines.append(it.key() + QLatin1Char('=') + it.value().toString());
    return lines;
}

QVariantMap supportMap(const QVariantMap &params, const QVariant &options)
{
    return {{text("params"), params},
            {text("supportdb/username"), text("reader")},
            {text("supportdb/password"), text("secret")},
            {text("supportdb/connectoptions"), options},
            {text("supportdb/driverparams"), QString()},
            {text("supportdb/sqltype"), 2}};
}

}  // namespace

/// The editor in a window of its own, as a dialog holds it.
class TestDatabaseGroupSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tabAfterEditingARowTrimsItAndMovesToTheNewEmptyRow();
    void returnAfterEditingARowMovesToTheNewEmptyRow();
    void clearingAMiddleRowMakesItVanish();
    void eachListEndsInExactlyOneEmptyRow();
    void tabWalksThroughTheRowsAsTheyStand();
    void twoParametersOnOneLineComeBackAsTwoRows();
    void linesBecomeParameters_data();
    void linesBecomeParameters();
    void linesBecomeOptions_data();
    void linesBecomeOptions();
    void theReadOnlyFormLeavesTheStoreUntouched();
    void theReadOnlyFormLeavesTheMapUntouched();
    void withoutTheRightTheActionLogCannotBeChosen();
    void withTheRightTheActionLogCanBeChosen();
    void theFirstFillSavesNothing();
    void anEmptyListOfOptionsIsSavedAsEmptyText();
    void onlyAnAbsentListOfOptionsBringsTheDefaultTimeouts();
    void choosingAnotherDatabaseSavesTheOneShown();
    void theStoreKeepsNameAndPasswordUnreadable();
    void theMapIsWrittenAndTheStoreIsNot();
    void driverParametersAreAlwaysSavedEmpty();
    void sqlTypes_data();
    void sqlTypes();
    void anAbsentSqlTypeKeepsTheOneShown();
    void onlyTwoSqlTypesAreOffered();
    void theOfflineModeShowsTheLocationAlone();
    void theModeAndLocationComeFromTheMap_data();
    void theModeAndLocationComeFromTheMap();
    void theModeIsSavedForTheSupportDatabaseOnly();
    void aRowThatComesWhileOfflineStaysHidden();
    void browsingPutsAFileIntoTheLocation();
    void creatingPutsTheFileNameBehindTheDirectory();
    void theFileDialogStartsAtTheStoredLocation();
    void aCancelledFileDialogLeavesTheLocation();
    void textsFollowTheLanguage();
    void namesInManyScriptsSurviveTheStore();

private:
    DatabaseGroupSettings *show(int database, bool editable, bool actionDb, bool onlineMode,
                                QVariantMap *map);
    DatabaseGroupSettings *showMap(QVariantMap &map)
    {
        return show(Support, kEditable, false, false, &map);
    }
    QLineEdit *setting(int number) const
    {
        return m_window->findChild<QLineEdit *>(QStringLiteral("connection_setting_%1").arg(number));
    }
    QLineEdit *option(int number) const
    {
        return m_window->findChild<QLineEdit *>(QStringLiteral("connection_parameter_%1").arg(number));
    }
    template<typename Widget>
    Widget *find(const char *name) const
    {
        return m_window->findChild<Widget *>(QString::fromLatin1(name));
    }
    QStringList rows(const QString &prefix) const;
    QStringList settings() const
    {
        return rows(QStringLiteral("connection_setting_"));
    }
    QStringList options() const
    {
        return rows(QStringLiteral("connection_parameter_"));
    }
    void type(QLineEdit *edit, const QString &line) const;

    Workstation m_workstation;
    std::unique_ptr<QDialog> m_window;
    int m_count = 0;
};

void TestDatabaseGroupSettings::init()
{
    store()->changeSettingsFile(m_workstation.dataDirectory() +
                                QStringLiteral("working_%1.ini").arg(++m_count));
}

void TestDatabaseGroupSettings::cleanup()
{
    m_window.reset();
}

DatabaseGroupSettings *TestDatabaseGroupSettings::show(int database, bool editable, bool actionDb,
                                                       bool onlineMode, QVariantMap *map)
{
    m_window = std::make_unique<QDialog>();
    auto *layout = new QVBoxLayout(m_window.get());
    auto *editor = new DatabaseGroupSettings(database, editable, actionDb, onlineMode, map, m_window.get());
    layout->addWidget(editor);
    m_window->show();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("The window does not become active");
    return editor;
}

/// The texts of a list's rows from the first to the last.
QStringList TestDatabaseGroupSettings::rows(const QString &prefix) const
{
    QStringList lines;
    for (int i = 1; auto *row = m_window->findChild<QLineEdit *>(prefix + QString::number(i)); ++i)
        lines.append(row->text());
    return lines;
}

/// Replaces a row's text by hand, without leaving the row.
void TestDatabaseGroupSettings::type(QLineEdit *edit, const QString &line) const
{
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, line);
}

void TestDatabaseGroupSettings::tabAfterEditingARowTrimsItAndMovesToTheNewEmptyRow()
{
    QVariantMap map;
    showMap(map);
    QCOMPARE(settings(), QStringList{QString()});

    QLineEdit *edited = setting(1);
    type(edited, text("  Driver=SQLite3 "));
    QTest::keyClick(edited, Qt::Key_Tab);
    QCOMPARE(settings(), (QStringList{text("Driver=SQLite3"), QString()}));
    QCOMPARE(m_window->focusWidget(), setting(2));
    QVERIFY(setting(2)->hasFocus());

    edited = option(1);
    type(edited, text(" SQL_ATTR_LOGIN_TIMEOUT=9 "));
    QTest::keyClick(edited, Qt::Key_Tab);
    QCOMPARE(options(), (QStringList{text("SQL_ATTR_LOGIN_TIMEOUT=9"), QString()}));
    QVERIFY(option(2)->hasFocus());
}

void TestDatabaseGroupSettings::returnAfterEditingARowMovesToTheNewEmptyRow()
{
    QVariantMap map;
    showMap(map);
    type(setting(1), text("A=1 "));
    QTest::keyClick(setting(1), Qt::Key_Return);
    QCOMPARE(settings(), (QStringList{text("A=1"), QString()}));
    QVERIFY(setting(2)->hasFocus());
}

void TestDatabaseGroupSettings::clearingAMiddleRowMakesItVanish()
{
    QVariantMap map = supportMap({{text("A"), 1}, {text("B"), 2}, {text("C"), 3}}, kDefaultOptions);
    showMap(map);
    QCOMPARE(settings(), (QStringList{text("A=1"), text("B=2"), text("C=3"), QString()}));

    QLineEdit *last = setting(4);
    type(setting(2), QString());
    QTest::keyClick(setting(2), Qt::Key_Tab);
    QCOMPARE(settings(), (QStringList{text("A=1"), text("C=3"), QString()}));
    QCOMPARE(setting(3), last);
    QVERIFY(setting(2)->hasFocus());

    type(option(1), text("   "));
    option(2)->setFocus();
    QCOMPARE(options(), (QStringList{kDefaultOptions.last(), QString()}));
}

void TestDatabaseGroupSettings::eachListEndsInExactlyOneEmptyRow()
{
    QVariantMap map;
    showMap(map);
    QCOMPARE(settings(), QStringList{QString()});
    QCOMPARE(options(), QStringList{QString()});
    for (const char *line : {"A=1", "B=2", "C=3"}) {
        type(setting(settings().size()), text(line));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(settings(), (QStringList{text("A=1"), text("B=2"), text("C=3"), QString()}));
    QCOMPARE(options(), QStringList{QString()});

    type(setting(3), QString());
    setting(1)->setFocus();
    QCOMPARE(settings(), (QStringList{text("A=1"), text("B=2"), QString()}));
}

void TestDatabaseGroupSettings::tabWalksThroughTheRowsAsTheyStand()
{
    QVariantMap map = supportMap({{text("A"), 1}}, kDefaultOptions);
    showMap(map);
    find<QLineEdit>("password_edit")->setFocus();
    for (const QString &next :
         {text("connection_setting_1"), text("connection_setting_2"), text("connection_parameter_1"),
          text("connection_parameter_2"), text("connection_parameter_3")}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), next);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget()->objectName(), text("connection_parameter_2"));
}

void TestDatabaseGroupSettings::twoParametersOnOneLineComeBackAsTwoRows()
{
    show(Support, kEditable, kActionDbEnabled, false, nullptr)->saveDBSettings();
    type(setting(1), text("A=1;B=2"));
    QTest::keyClick(setting(1), Qt::Key_Tab);
    QCOMPARE(settings(), (QStringList{text("A=1;B=2"), QString()}));
    m_window->findChild<DatabaseGroupSettings *>()->saveDBSettings();

    show(Support, kEditable, kActionDbEnabled, false, nullptr);
    QCOMPARE(settings(), (QStringList{text("A=1"), text("B=2"), QString()}));
}

void TestDatabaseGroupSettings::linesBecomeParameters_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("saved");

    QTest::newRow("a name and a value") << text("A=1") << QStringList{text("A=1")};
    QTest::newRow("two on one line") << text("A=1;B=2") << QStringList{text("A=1"), text("B=2")};
    QTest::newRow("a second \"=\" drops the part") << text("A=1=2") << QStringList{};
    QTest::newRow("no \"=\" drops the part") << text("A") << QStringList{};
    QTest::newRow("a bad part leaves its neighbours")
        << text("A=1;B;C=1=2;D=4") << QStringList{text("A=1"), text("D=4")};
    QTest::newRow("an empty value is a value") << text("A=") << QStringList{text("A=")};
    QTest::newRow("an empty name is a name") << text("=1") << QStringList{text("=1")};
    QTest::newRow("empty parts are passed over") << text(";;A=1;;") << QStringList{text("A=1")};
    QTest::newRow("nothing but separators") << text(";;;") << QStringList{};
    QTest::newRow("blanks inside stay")
        << text("Driver=SQL Server") << QStringList{text("Driver=SQL Server")};
    QTest::newRow("blanks around the \"=\" stay") << text("A = 1") << QStringList{text("A = 1")};
    QTest::newRow("of two equal names the later wins") << text("A=1;A=2") << QStringList{text("A=2")};
    QTest::newRow("braces are not looked into")
        << text("Driver={MariaDB Unicode};PWD={a;b=c}")
        << QStringList{text("Driver={MariaDB Unicode}"), text("PWD={a"), text("b=c}")};
    QTest::newRow("quotes stay") << text("A='1';B=\"2\"") << QStringList{text("A='1'"), text("B=\"2\"")};
    QTest::newRow("an unknown name is no matter of the editor")
        << text("Colour=blue") << QStringList{text("Colour=blue")};
}

void TestDatabaseGroupSettings::linesBecomeParameters()
{
    QFETCH(QString, line);
    QFETCH(QStringList, saved);
    QVariantMap map;
    DatabaseGroupSettings *editor = showMap(map);
    type(setting(1), line);
    QTest::keyClick(setting(1), Qt::Key_Tab);
    editor->saveDBSettings();

    QCOMPARE(parameters(map), saved);
}

void TestDatabaseGroupSettings::linesBecomeOptions_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QVariant>("saved");

    QTest::newRow("one option") << text("A=1") << QVariant(QStringList{text("A=1")});
    QTest::newRow("two on one line") << text("A=1;B=2") << QVariant(QStringList{text("A=1"), text("B=2")});
    QTest::newRow("an option without a value is kept") << text("A") << QVariant(QStringList{text("A")});
    QTest::newRow("more than one \"=\" is kept") << text("A=1=2") << QVariant(QStringList{text("A=1=2")});
    QTest::newRow("nothing but separators is empty text") << text(";;") << QVariant(QString());
}

void TestDatabaseGroupSettings::linesBecomeOptions()
{
    QFETCH(QString, line);
    QFETCH(QVariant, saved);
    QVariantMap map;
    DatabaseGroupSettings *editor = showMap(map);
    type(option(1), line);
    QTest::keyClick(option(1), Qt::Key_Tab);
    editor->saveDBSettings();
    QCOMPARE(map.value(text("supportdb/connectoptions")), saved);
}

void TestDatabaseGroupSettings::theReadOnlyFormLeavesTheStoreUntouched()
{
    store()->setDatabaseSettings(text("persondb"), {{text("params"), QVariantMap{{text("A"), text("1")}}}});
    store()->setSafeValue(text("persondb/username"), text("reader"));
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("parking.ini"));
    const QString file = m_workstation.dataDirectory() + QStringLiteral("working_%1.ini").arg(m_count);
    const QByteArray before = readFile(file);
    store()->changeSettingsFile(file);

    DatabaseGroupSettings *editor = show(AllDatabases, false, false, false, nullptr);
    auto *selector = find<QComboBox>("database_selector");
    QVERIFY(selector->isEnabled());
    QCOMPARE(settings(), (QStringList{text("A=1"), QString()}));
    for (const QLineEdit *edit : m_window->findChildren<QLineEdit *>())
        QVERIFY2(!edit->isEnabled(), qPrintable(edit->objectName()));
    QVERIFY(!find<QComboBox>("sql_type_combo")->isEnabled());

    setting(1)->setText(text("A=changed"));
    editor->saveDBSettings();
    QTest::keyClick(selector, Qt::Key_Down);
    QCOMPARE(selector->currentText(), text("studydb"));
    QCOMPARE(settings(), QStringList{QString()});
    QTest::keyClick(selector, Qt::Key_Up);
    QCOMPARE(settings(), (QStringList{text("A=1"), QString()}));
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("parking.ini"));
    QCOMPARE(readFile(file), before);
}

void TestDatabaseGroupSettings::theReadOnlyFormLeavesTheMapUntouched()
{
    QVariantMap map = supportMap({{text("A"), 1}}, kDefaultOptions);
    const QVariantMap before = map;
    DatabaseGroupSettings *editor = show(Support, false, false, kOnlineModeShown, &map);
    setting(1)->setText(text("A=2"));
    editor->saveDBSettings();
    QCOMPARE(map, before);
}

void TestDatabaseGroupSettings::withoutTheRightTheActionLogCannotBeChosen()
{
    show(AllDatabases, kEditable, false, false, nullptr);
    auto *selector = find<QComboBox>("database_selector");
    QVERIFY(selector->isVisible());
    QCOMPARE(selector->currentIndex(), int(Persons));
    QCOMPARE(selector->model()->index(0, 0).flags(), Qt::NoItemFlags);
    QTest::keyClick(selector, Qt::Key_Up);
    QCOMPARE(selector->currentIndex(), int(Persons));
    QTest::keyClick(selector, Qt::Key_Home);
    QCOMPARE(selector->currentIndex(), int(Persons));
    QTest::keyClick(selector, Qt::Key_End);
    QCOMPARE(selector->currentIndex(), int(Support));
}

void TestDatabaseGroupSettings::withTheRightTheActionLogCanBeChosen()
{
    show(AllDatabases, kEditable, kActionDbEnabled, false, nullptr);
    auto *selector = find<QComboBox>("database_selector");
    QCOMPARE(selector->currentIndex(), int(Persons));
    QTest::keyClick(selector, Qt::Key_Up);
    QCOMPARE(selector->currentText(), text("actiondb"));
}

void TestDatabaseGroupSettings::theFirstFillSavesNothing()
{
    show(AllDatabases, kEditable, kActionDbEnabled, false, nullptr);
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());

    QVariantMap map;
    showMap(map);
    QVERIFY(map.isEmpty());
}

void TestDatabaseGroupSettings::anEmptyListOfOptionsIsSavedAsEmptyText()
{
    DatabaseGroupSettings *editor = show(Persons, kEditable, kActionDbEnabled, false, nullptr);
    QCOMPARE(options(), kDefaultOptions + QStringList{QString()});
    type(option(1), QString());
    option(2)->setFocus();
    type(option(1), QString());
    option(2)->setFocus();
    QCOMPARE(options(), QStringList{QString()});
    editor->saveDBSettings();

    QVERIFY(store()->generalSettings()->contains(text("persondb/connectoptions")));
    QCOMPARE(store()->value(text("persondb/connectoptions"), text("absent")), QVariant(QString()));
    show(Persons, kEditable, kActionDbEnabled, false, nullptr);
    QCOMPARE(options(), QStringList{QString()});
}

void TestDatabaseGroupSettings::onlyAnAbsentListOfOptionsBringsTheDefaultTimeouts()
{
    store()->setValue(text("studydb/connectoptions"), QStringList{text("A=1")});
    show(Studies, kEditable, kActionDbEnabled, false, nullptr);
    QCOMPARE(options(), (QStringList{text("A=1"), QString()}));
    show(Persons, kEditable, kActionDbEnabled, false, nullptr);
    QCOMPARE(options(), kDefaultOptions + QStringList{QString()});

    QVariantMap map;
    showMap(map);
    QCOMPARE(options(), QStringList{QString()});
}

void TestDatabaseGroupSettings::choosingAnotherDatabaseSavesTheOneShown()
{
    show(AllDatabases, kEditable, kActionDbEnabled, false, nullptr);
    type(setting(1), text("Database=persons"));
    type(find<QLineEdit>("username_edit"), text("reader"));
    QTest::keyClick(find<QComboBox>("database_selector"), Qt::Key_Down);
    QCOMPARE(settings(), QStringList{QString()});
    QCOMPARE(find<QLineEdit>("username_edit")->text(), QString());
    QCOMPARE(parameters(store()->databaseSettings(text("persondb"))), QStringList{text("Database=persons")});
    QCOMPARE(store()->safeValue(text("persondb/username")).toString(), text("reader"));

    QTest::keyClick(find<QComboBox>("database_selector"), Qt::Key_Up);
    QCOMPARE(settings(), (QStringList{text("Database=persons"), QString()}));
    QCOMPARE(find<QLineEdit>("username_edit")->text(), text("reader"));
}

void TestDatabaseGroupSettings::theStoreKeepsNameAndPasswordUnreadable()
{
    DatabaseGroupSettings *editor = show(Support, kEditable, kActionDbEnabled, false, nullptr);
    type(find<QLineEdit>("username_edit"), text("kirjautuja"));
    type(find<QLineEdit>("password_edit"), text("salasana"));
    editor->saveDBSettings();
    QCOMPARE(store()->safeValue(text("supportdb/username")).toString(), text("kirjautuja"));
    QCOMPARE(store()->safeValue(text("supportdb/password")).toString(), text("salasana"));
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("parking.ini"));
    const QByteArray file =
        readFile(m_workstation.dataDirectory() + QStringLiteral("working_%1.ini").arg(m_count));
    QVERIFY(file.contains("password"));
    QVERIFY(!file.contains("salasana") && !file.contains("kirjautuja"));
}

void TestDatabaseGroupSettings::theMapIsWrittenAndTheStoreIsNot()
{
    QVariantMap map;
    DatabaseGroupSettings *editor = showMap(map);
    type(setting(1), text("Driver=SQLite3"));
    type(option(1), text("A=1"));
    type(find<QLineEdit>("username_edit"), text("reader"));
    type(find<QLineEdit>("password_edit"), text("a;b=c"));
    editor->saveDBSettings();
    QCOMPARE(map, (QVariantMap{{text("params"), QVariantMap{{text("Driver"), text("SQLite3")}}},
                               {text("supportdb/username"), text("reader")},
                               {text("supportdb/password"), text("a;b=c")},
                               {text("supportdb/connectoptions"), QStringList{text("A=1")}},
                               {text("supportdb/driverparams"), QString()},
                               {text("supportdb/sqltype"), 1}}));
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
}

void TestDatabaseGroupSettings::driverParametersAreAlwaysSavedEmpty()
{
    store()->setValue(text("persondb/driverparams"), QStringList{text("A=1")});
    show(Persons, kEditable, kActionDbEnabled, false, nullptr)->saveDBSettings();
    QCOMPARE(store()->value(text("persondb/driverparams"), text("absent")), QVariant(QString()));
}

void TestDatabaseGroupSettings::sqlTypes_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("saved");

    QTest::newRow("1 is MsSQL") << QVariant(1) << text("MsSQL") << 1;
    QTest::newRow("2 is MySQL") << QVariant(2) << text("MySQL") << 2;
    QTest::newRow("2 as text is MySQL") << QVariant(text("2")) << text("MySQL") << 2;
    QTest::newRow("3 has no item and is saved as 0") << QVariant(3) << QString() << 0;
    QTest::newRow("4 has no item and is saved as 0") << QVariant(4) << QString() << 0;
    QTest::newRow("0 has no item and is saved as 0") << QVariant(0) << QString() << 0;
    QTest::newRow("5 is out of range and leaves the item") << QVariant(5) << text("MsSQL") << 1;
    QTest::newRow("-1 is out of range and leaves the item") << QVariant(-1) << text("MsSQL") << 1;
    QTest::newRow("a word leaves the item") << QVariant(text("Oracle")) << text("MsSQL") << 1;
}

void TestDatabaseGroupSettings::sqlTypes()
{
    QFETCH(QVariant, stored);
    QFETCH(QString, shown);
    QFETCH(int, saved);
    QVariantMap map{{text("supportdb/sqltype"), stored}};
    DatabaseGroupSettings *editor = showMap(map);
    QCOMPARE(find<QComboBox>("sql_type_combo")->currentText(), shown);
    editor->saveDBSettings();
    QCOMPARE(map.value(text("supportdb/sqltype")), QVariant(saved));

    store()->setValue(text("persondb/sqltype"), stored);
    show(Persons, kEditable, kActionDbEnabled, false, nullptr);
    QCOMPARE(find<QComboBox>("sql_type_combo")->currentText(), shown);
}

void TestDatabaseGroupSettings::anAbsentSqlTypeKeepsTheOneShown()
{
    store()->setValue(text("persondb/sqltype"), 2);
    show(AllDatabases, kEditable, kActionDbEnabled, false, nullptr);
    QCOMPARE(find<QComboBox>("sql_type_combo")->currentText(), text("MySQL"));
    QTest::keyClick(find<QComboBox>("database_selector"), Qt::Key_Down);
    QCOMPARE(find<QComboBox>("sql_type_combo")->currentText(), text("MySQL"));
}

void TestDatabaseGroupSettings::onlyTwoSqlTypesAreOffered()
{
    QVariantMap map;
    showMap(map);
    auto *combo = find<QComboBox>("sql_type_combo");
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->itemText(0), text("MsSQL"));
    QCOMPARE(combo->itemData(0).toInt(), 1);
    QCOMPARE(combo->itemText(1), text("MySQL"));
    QCOMPARE(combo->itemData(1).toInt(), 2);
}

void TestDatabaseGroupSettings::theOfflineModeShowsTheLocationAlone()
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

void TestDatabaseGroupSettings::theModeAndLocationComeFromTheMap_data()
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

void TestDatabaseGroupSettings::theModeAndLocationComeFromTheMap()
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

void TestDatabaseGroupSettings::theModeIsSavedForTheSupportDatabaseOnly()
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

void TestDatabaseGroupSettings::aRowThatComesWhileOfflineStaysHidden()
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

void TestDatabaseGroupSettings::browsingPutsAFileIntoTheLocation()
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

void TestDatabaseGroupSettings::creatingPutsTheFileNameBehindTheDirectory()
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

void TestDatabaseGroupSettings::theFileDialogStartsAtTheStoredLocation()
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

void TestDatabaseGroupSettings::aCancelledFileDialogLeavesTheLocation()
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

void TestDatabaseGroupSettings::textsFollowTheLanguage()
{
    QVariantMap map;
    show(Support, kEditable, false, kOnlineModeShown, &map);
    const QMap<QString, QString> texts{
        {text("sql_type_label"), text("<b>SQL type</b>")},
        {text("username_label"), text("<b>Username</b>")},
        {text("password_label"), text("<b>Password</b>")},
        {text("connection_settings_label"), text("<b>Connection settings</b>")},
        {text("connection_parameters_label"), text("<b>Connection parameters</b>")},
        {text("offline_location_label"), text("<b>Offline database Location</b>")}};
    for (auto it = texts.begin(); it != texts.end(); ++it) {
        auto *label = m_window->findChild<QLabel *>(it.key());
        QCOMPARE(label->text(), it.value());
        label->setText(QString());
    }
    auto *browse = find<QPushButton>("browse_offline_button");
    auto *create = find<QPushButton>("create_offline_button");
    QCOMPARE(browse->text(), text("Browse..."));
    QCOMPARE(create->text(), text("Create new database"));
    browse->setText(QString());
    create->setText(QString());

    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_window->findChild<DatabaseGroupSettings *>(), &change);
    for (auto it = texts.begin(); it != texts.end(); ++it)
        QCOMPARE(m_window->findChild<QLabel *>(it.key())->text(), it.value());
    QCOMPARE(browse->text(), text("Browse..."));
    QCOMPARE(create->text(), text("Create new database"));
}

void TestDatabaseGroupSettings::namesInManyScriptsSurviveTheStore()
{
    const QString line = QString::fromUtf8("Database=Käyttöoikeudet Πρόσβαση การเข้าถึง 访问权限");
    DatabaseGroupSettings *editor = show(Support, kEditable, false, false, nullptr);
    setting(1)->setText(line);
    find<QLineEdit>("username_edit")->setText(QString::fromUtf8("Ääkkönen"));
    editor->saveDBSettings();
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("parking.ini"));
    store()->changeSettingsFile(m_workstation.dataDirectory() +
                                QStringLiteral("working_%1.ini").arg(m_count));
    show(Support, kEditable, false, false, nullptr);
    QCOMPARE(settings(), (QStringList{line, QString()}));
    QCOMPARE(find<QLineEdit>("username_edit")->text(), QString::fromUtf8("Ääkkönen"));
}

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    TestDatabaseGroupSettings test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_databasegroupsettings.moc"
