#include "Corvane/settings/databasegroupfixture.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSettings>

/// What the editor shows and saves, of the store and of a map.
class TestDatabaseGroupSettings : public DatabaseGroupFixture
{
    Q_OBJECT

private slots:
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
    void whatIsPastedLosesTheEndOfItsLine();
    void driverParametersAreAlwaysSavedEmpty();
    void sqlTypes_data();
    void sqlTypes();
    void anAbsentSqlTypeKeepsTheOneShown();
    void onlyTwoSqlTypesAreOffered();
    void textsFollowTheLanguage();
    void namesInManyScriptsSurviveTheStore();
};

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

void TestDatabaseGroupSettings::whatIsPastedLosesTheEndOfItsLine()
{
    QVariantMap map = supportMap({}, QVariant());
    showMap(map);
    QApplication::clipboard()->setText(text("halvorn\r\n"));
    for (const char *name : {"username_edit", "password_edit", "offline_location_edit"}) {
        find<QLineEdit>(name)->selectAll();
        find<QLineEdit>(name)->paste();
        QCOMPARE(find<QLineEdit>(name)->text(), text("halvorn"));
    }
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

QTEST_MAIN(TestDatabaseGroupSettings)
#include "test_databasegroupsettings.moc"
