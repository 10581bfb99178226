#include "Corvane/settings/databasegroupfixture.h"

#include <QApplication>
#include <QTabWidget>

/// The two lists of lines: how they grow, shrink and become parameters.
class TestDatabaseGroupLines : public DatabaseGroupFixture
{
    Q_OBJECT

private slots:
    void tabAfterEditingARowTrimsItAndMovesToTheNewEmptyRow();
    void returnAfterEditingARowMovesToTheNewEmptyRow();
    void clearingAMiddleRowMakesItVanish();
    void eachListEndsInExactlyOneEmptyRow();
    void severalEmptyRowsGoByTheirFirstPlaces_data();
    void severalEmptyRowsGoByTheirFirstPlaces();
    void tabWalksThroughTheRowsAsTheyStand();
    void tabReachesEveryPartOfTheEditor_data();
    void tabReachesEveryPartOfTheEditor();
    void ctrlTabLeavesARowToTheTabsAroundThePage();
    void twoParametersOnOneLineComeBackAsTwoRows();
    void linesBecomeParameters_data();
    void linesBecomeParameters();
    void linesBecomeOptions_data();
    void linesBecomeOptions();
};

void TestDatabaseGroupLines::tabAfterEditingARowTrimsItAndMovesToTheNewEmptyRow()
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

void TestDatabaseGroupLines::returnAfterEditingARowMovesToTheNewEmptyRow()
{
    QVariantMap map;
    showMap(map);
    type(setting(1), text("A=1 "));
    QTest::keyClick(setting(1), Qt::Key_Return);
    QCOMPARE(settings(), (QStringList{text("A=1"), QString()}));
    QVERIFY(setting(2)->hasFocus());
}

void TestDatabaseGroupLines::clearingAMiddleRowMakesItVanish()
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

void TestDatabaseGroupLines::eachListEndsInExactlyOneEmptyRow()
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

void TestDatabaseGroupLines::severalEmptyRowsGoByTheirFirstPlaces_data()
{
    QTest::addColumn<QStringList>("stored");
    QTest::addColumn<QStringList>("shown");

    const QString none;
    QTest::newRow("one goes alone") << QStringList{none, text("A=1")} << QStringList{text("A=1"), none};
    QTest::newRow("the second takes what has moved to its place")
        << QStringList{none, none, text("A=1")} << QStringList{none, none};
    QTest::newRow("the second takes the row behind it")
        << QStringList{none, text("A=1"), none, text("B=2")} << QStringList{text("A=1"), none, none};
    QTest::newRow("nothing but empty ones leaves one") << QStringList{none, none, none} << QStringList{none};
}

/// Empty rows that stand in a list together can only come from a file.
void TestDatabaseGroupLines::severalEmptyRowsGoByTheirFirstPlaces()
{
    QFETCH(QStringList, stored);
    QFETCH(QStringList, shown);
    QVariantMap map = supportMap({}, stored);
    showMap(map);
    QCOMPARE(options(), shown);
}

void TestDatabaseGroupLines::tabWalksThroughTheRowsAsTheyStand()
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

void TestDatabaseGroupLines::tabReachesEveryPartOfTheEditor_data()
{
    QTest::addColumn<int>("database");
    QTest::addColumn<bool>("onlineMode");
    QTest::addColumn<QString>("first");

    QTest::newRow("the choice of the mode") << int(Support) << true << text("online_mode_combo");
    QTest::newRow("the selector") << int(AllDatabases) << false << text("database_selector");
    QTest::newRow("the SQL type") << int(Persons) << false << text("sql_type_combo");
}

void TestDatabaseGroupLines::tabReachesEveryPartOfTheEditor()
{
    QFETCH(int, database);
    QFETCH(bool, onlineMode);
    QFETCH(QString, first);
    show(database, kEditable, kActionDbEnabled, onlineMode, nullptr);
    QWidget *start = find<QLineEdit>("username_edit");
    start->setFocus();
    QStringList way;
    do {
        QTest::keyClick(m_window->focusWidget(), Qt::Key_Tab);
        way.append(m_window->focusWidget()->objectName());
    } while (m_window->focusWidget() != start && way.size() < 20);
    QVERIFY2(way.contains(first), qPrintable(way.join(QLatin1Char(' '))));
    QCOMPARE(way.mid(way.size() - 2), (QStringList{text("sql_type_combo"), text("username_edit")}));
}

void TestDatabaseGroupLines::ctrlTabLeavesARowToTheTabsAroundThePage()
{
    QTabWidget tabs;
    auto *page = new DatabaseGroupSettings(Support, kEditable, kActionDbEnabled, false, nullptr);
    tabs.addTab(page, text("Database"));
    tabs.addTab(new QLineEdit, text("General"));
    tabs.show();
    QVERIFY(QTest::qWaitForWindowActive(&tabs));
    auto *edited = page->findChild<QLineEdit *>(text("connection_setting_1"));
    type(edited, text(" A=1"));
    QTest::keyClick(edited, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(tabs.currentIndex(), 1);
    QCOMPARE(edited->text(), text("A=1"));
    QVERIFY(page->findChild<QLineEdit *>(text("connection_setting_2")));
}

void TestDatabaseGroupLines::twoParametersOnOneLineComeBackAsTwoRows()
{
    show(Support, kEditable, kActionDbEnabled, false, nullptr)->saveDBSettings();
    type(setting(1), text("A=1;B=2"));
    QTest::keyClick(setting(1), Qt::Key_Tab);
    QCOMPARE(settings(), (QStringList{text("A=1;B=2"), QString()}));
    m_window->findChild<DatabaseGroupSettings *>()->saveDBSettings();

    show(Support, kEditable, kActionDbEnabled, false, nullptr);
    QCOMPARE(settings(), (QStringList{text("A=1"), text("B=2"), QString()}));
}

void TestDatabaseGroupLines::linesBecomeParameters_data()
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

void TestDatabaseGroupLines::linesBecomeParameters()
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

void TestDatabaseGroupLines::linesBecomeOptions_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QVariant>("saved");

    QTest::newRow("one option") << text("A=1") << QVariant(QStringList{text("A=1")});
    QTest::newRow("two on one line") << text("A=1;B=2") << QVariant(QStringList{text("A=1"), text("B=2")});
    QTest::newRow("an option without a value is kept") << text("A") << QVariant(QStringList{text("A")});
    QTest::newRow("more than one \"=\" is kept") << text("A=1=2") << QVariant(QStringList{text("A=1=2")});
    QTest::newRow("nothing but separators is empty text") << text(";;") << QVariant(QString());
}

void TestDatabaseGroupLines::linesBecomeOptions()
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

QTEST_MAIN(TestDatabaseGroupLines)
#include "test_databasegrouplines.moc"
