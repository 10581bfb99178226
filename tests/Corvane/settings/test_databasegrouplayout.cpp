#include "Corvane/settings/databasegroupfixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>

namespace {

constexpr int kFixedRows = 245;  // all that is not a line of the two lists
constexpr int kLine = 40;

}  // namespace

/// Where the editor's parts stand, and how high they are.
class TestDatabaseGroupLayout : public DatabaseGroupFixture
{
    Q_OBJECT

private slots:
    void eachKindOfPartHasItsHeight();
    void partsStandInTheirOrder_data();
    void partsStandInTheirOrder();
    void theLayoutKeepsTheEditorAtItsSize();
    void underTheSelectorTheHeightFollowsTheLines_data();
    void underTheSelectorTheHeightFollowsTheLines();

private:
    DatabaseGroupSettings *editor() const
    {
        return m_window->findChild<DatabaseGroupSettings *>();
    }
    QStringList visibleParts() const;
};

/// The names of the visible parts from top to bottom.
QStringList TestDatabaseGroupLayout::visibleParts() const
{
    QMap<int, QString> parts;
    for (const QWidget *part : editor()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (part->isVisible())
            parts.insert(part->y(), part->objectName());
    }
    return parts.values();
}

void TestDatabaseGroupLayout::eachKindOfPartHasItsHeight()
{
    QVariantMap map = supportMap({{text("A"), 1}}, kDefaultOptions);
    show(Support, kEditable, false, kOnlineModeShown, &map);
    for (const int mode : {0, 1}) {
        find<QComboBox>("online_mode_combo")->setCurrentIndex(mode);
        for (const QLabel *label : m_window->findChildren<QLabel *>())
            QCOMPARE(label->height(), 20);
        for (const QLineEdit *edit : m_window->findChildren<QLineEdit *>())
            QCOMPARE(edit->height(), 25);
        for (const QComboBox *combo : m_window->findChildren<QComboBox *>())
            QCOMPARE(combo->height(), 25);
        for (const QPushButton *button : m_window->findChildren<QPushButton *>())
            QCOMPARE(button->height(), 30);
    }
}

void TestDatabaseGroupLayout::partsStandInTheirOrder_data()
{
    QTest::addColumn<int>("database");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("parts");

    const QStringList connection{text("sql_type_label"),
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
                                 text("connection_parameter_2"),
                                 text("connection_parameter_3")};
    QTest::newRow("of one database, online")
        << int(Support) << 0 << QStringList{text("online_mode_combo")} + connection;
    QTest::newRow("of one database, offline")
        << int(Support) << 1
        << QStringList{text("online_mode_combo"), text("offline_location_label"),
                       text("offline_location_edit"), text("browse_offline_button"),
                       text("create_offline_button")};
    QTest::newRow("of each database, online")
        << int(AllDatabases) << 0
        << QStringList{text("online_mode_combo"), text("database_selector")} + connection;
}

void TestDatabaseGroupLayout::partsStandInTheirOrder()
{
    QFETCH(int, database);
    QFETCH(int, mode);
    QFETCH(QStringList, parts);
    store()->setDatabaseSettings(text("persondb"), {{text("params"), QVariantMap{{text("A"), text("1")}}}});
    QVariantMap map = supportMap({{text("A"), 1}}, kDefaultOptions);
    show(database, kEditable, false, kOnlineModeShown, database == Support ? &map : nullptr);
    find<QComboBox>("online_mode_combo")->setCurrentIndex(mode);
    QTRY_COMPARE(visibleParts(), parts);
}

void TestDatabaseGroupLayout::theLayoutKeepsTheEditorAtItsSize()
{
    QVariantMap map;
    showMap(map);
    QCOMPARE(editor()->layout()->sizeConstraint(), QLayout::SetMinAndMaxSize);
    QCOMPARE(editor()->minimumSize(), editor()->layout()->totalMinimumSize());
    QCOMPARE(editor()->maximumSize(), editor()->layout()->totalMaximumSize());
}

void TestDatabaseGroupLayout::underTheSelectorTheHeightFollowsTheLines_data()
{
    QTest::addColumn<QVariantMap>("params");
    QTest::addColumn<int>("lines");

    QTest::newRow("of no parameter and two options") << QVariantMap{} << 4;
    QTest::newRow("of one parameter more") << QVariantMap{{text("A"), text("1")}} << 5;
    QTest::newRow("of three parameters more")
        << QVariantMap{{text("A"), text("1")}, {text("B"), text("2")}, {text("C"), text("3")}} << 7;
}

void TestDatabaseGroupLayout::underTheSelectorTheHeightFollowsTheLines()
{
    QFETCH(QVariantMap, params);
    QFETCH(int, lines);
    store()->setDatabaseSettings(text("studydb"), {{text("params"), params}});
    DatabaseGroupSettings alone(AllDatabases, kEditable, kActionDbEnabled, false, nullptr);
    auto *selector = alone.findChild<QComboBox *>(text("database_selector"));
    // The parts have fixed heights, and the layout lets the editor be no higher than they are together.
    alone.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    alone.setMinimumSize(0, 0);
    alone.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    selector->setCurrentIndex(Studies);
    QCOMPARE(alone.size(), QSize(alone.sizeHint().width(), kFixedRows + kLine * lines));
}

QTEST_MAIN(TestDatabaseGroupLayout)
#include "test_databasegrouplayout.moc"
