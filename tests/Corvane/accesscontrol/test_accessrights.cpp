#include "CommunicationAndData/access/accesstype.h"
#include "Corvane/accesscontrol/accessrights.h"
#include "Corvane/accesscontrol/accessrole.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

namespace {

using Row = QPair<int, QString>;

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// A role's column with a check button for each right, as the table of rights has it.
class RoleColumn
{
public:
    explicit RoleColumn(int accessTypes, int withheld = 0)
        : m_role(QSharedPointer<AccessRoleModelData>::create(7u, text("Nurse"), accessTypes))
        , m_head(m_role, &m_window)
    {
        QMap<QAbstractButton *, int> buttons;
        for (const Row &row : accessRightRows()) {
            if (row.first == 0 || (row.first & withheld) != 0)
                continue;
            auto *button = new QPushButton(&m_window);
            button->setCheckable(true);
            button->setChecked((accessTypes & row.first) == row.first);
            QObject::connect(button, &QPushButton::clicked,
                             [this, button] { m_head.applyDependentRights(button); });
            m_clicks.push_back(std::make_unique<QSignalSpy>(button, SIGNAL(clicked())));
            m_toggles.push_back(std::make_unique<QSignalSpy>(button, SIGNAL(toggled(bool))));
            m_buttons.insert(row.first, button);
            buttons.insert(button, row.first);
        }
        m_head.setRightButtons(buttons);
        m_window.show();
    }

    AccessRole &head()
    {
        return m_head;
    }
    int rights() const
    {
        return m_role->accessTypes();
    }
    void click(int right)
    {
        QTest::mouseClick(m_buttons.value(right), Qt::LeftButton);
    }
    int checked() const
    {
        int mask = 0;
        for (auto entry = m_buttons.cbegin(); entry != m_buttons.cend(); ++entry)
            mask |= entry.value()->isChecked() ? entry.key() : 0;
        return mask;
    }
    int clicks() const
    {
        int count = 0;
        for (const auto &spy : m_clicks)
            count += spy->size();
        return count;
    }
    int mostToggles() const
    {
        int most = 0;
        for (const auto &spy : m_toggles)
            most = qMax(most, spy->size());
        return most;
    }

private:
    QWidget m_window;
    QSharedPointer<AccessRoleModelData> m_role;
    AccessRole m_head;
    QMap<int, QPushButton *> m_buttons;
    std::vector<std::unique_ptr<QSignalSpy>> m_clicks;
    std::vector<std::unique_ptr<QSignalSpy>> m_toggles;
};

constexpr int kAll = 0x3FF037;
constexpr int kStrangeBits = 0x40000008;

}  // namespace

class TestAccessRights : public QObject
{
    Q_OBJECT

private slots:
    void theTableHasItsLabelsAndMasksInTheirOrder();
    void aRightHasItsDependentRights_data();
    void aRightHasItsDependentRights();
    void aClickChangesTheDependentRightsOnce_data();
    void aClickChangesTheDependentRightsOnce();
    void losingReadPersonTakesDeletePersonAndItsReturnBringsPersonAndStudyRights();
    void losingDeleteStudyTakesDeletePersonAlone();
    void noRuleIsFollowedFromWhatARuleChanged();
    void aHeadingHasNoButtonAndNothingFollowsIt();
    void aButtonOfAnotherColumnChangesNothing();
    void aBitThatNoRowShowsStaysUntilTheRightsAreApplied();
    void aRoleIsChangedWhenAButtonSaysAnotherThing();
    void withoutButtonsNothingIsChangedOrApplied();
    void theButtonShowsTheRolesName();
};

void TestAccessRights::theTableHasItsLabelsAndMasksInTheirOrder()
{
    const QList<Row> expected = {
        {0, text("Settings")},
        {0x10, text("Distribute settings")},
        {0x20, text("Download settings")},
        {0x2, text("Write local DB settings")},
        {0, text("Audit Trail and Access Control")},
        {0x1, text("Access control management")},
        {0x4, text("Audit trail management")},
        {0, text("Person Access")},
        {0x1000, text("Read person")},
        {0x4000, text("Modify person")},
        {0x2000, text("Create person")},
        {0x8000, text("Delete person")},
        {0, text("Study Access")},
        {0x10000, text("Read study")},
        {0x40000, text("Modify study")},
        {0x20000, text("Create study")},
        {0x80000, text("Delete study")},
        {0, text("Transfer")},
        {0x100000, text("Import")},
        {0x200000, text("Export")},
    };
    QCOMPARE(accessRightRows(), expected);
}

void TestAccessRights::aRightHasItsDependentRights_data()
{
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("taken");

    QTest::newRow("Distribute settings needs Download settings") << 0x10 << 0x20 << 0;
    QTest::newRow("Download settings takes Distribute settings along") << 0x20 << 0 << 0x10;
    QTest::newRow("Write local DB settings stands alone") << 0x2 << 0 << 0;
    QTest::newRow("Access control management stands alone") << 0x1 << 0 << 0;
    QTest::newRow("Audit trail management stands alone") << 0x4 << 0 << 0;
    QTest::newRow("Read person") << 0x1000 << 0 << 0x30E000;
    QTest::newRow("Create person") << 0x2000 << 0x5000 << 0x108000;
    QTest::newRow("Modify person") << 0x4000 << 0x1000 << 0x10A000;
    QTest::newRow("Delete person needs all of persons and studies") << 0x8000 << 0xF7000 << 0;
    QTest::newRow("Read study") << 0x10000 << 0 << 0x3E8000;
    QTest::newRow("Create study") << 0x20000 << 0x50000 << 0x188000;
    QTest::newRow("Modify study") << 0x40000 << 0x10000 << 0x1A8000;
    QTest::newRow("Delete study") << 0x80000 << 0x70000 << 0x8000;
    QTest::newRow("Import") << 0x100000 << 0x77000 << 0;
    QTest::newRow("Export") << 0x200000 << 0x11000 << 0;
    QTest::newRow("a heading") << 0 << 0 << 0;
    QTest::newRow("a bit that is no right") << 0x8 << 0 << 0;
    QTest::newRow("two rights at once") << 0x3000 << 0 << 0;
}

void TestAccessRights::aRightHasItsDependentRights()
{
    QFETCH(int, right);
    QFETCH(int, given);
    QFETCH(int, taken);
    QCOMPARE(dependentRights(right, true), given);
    QCOMPARE(dependentRights(right, false), taken);
}

void TestAccessRights::aClickChangesTheDependentRightsOnce_data()
{
    QTest::addColumn<int>("right");
    for (const Row &row : accessRightRows()) {
        if (row.first != 0)
            QTest::newRow(qPrintable(row.second)) << row.first;
    }
}

void TestAccessRights::aClickChangesTheDependentRightsOnce()
{
    QFETCH(int, right);
    RoleColumn none(0);
    none.click(right);
    QCOMPARE(none.checked(), right | dependentRights(right, true));
    QCOMPARE(none.clicks(), 1);
    QCOMPARE(none.mostToggles(), 1);

    RoleColumn all(kAll);
    QCOMPARE(all.checked(), kAll);
    all.click(right);
    QCOMPARE(all.checked(), kAll & ~(right | dependentRights(right, false)));
    QCOMPARE(all.clicks(), 1);
    QCOMPARE(all.mostToggles(), 1);
}

void TestAccessRights::losingReadPersonTakesDeletePersonAndItsReturnBringsPersonAndStudyRights()
{
    RoleColumn column(ReadPerson | DeletePerson);
    column.click(ReadPerson);
    QCOMPARE(column.checked(), 0);
    column.click(DeletePerson);
    QCOMPARE(column.checked(), 0xFF000);
}

void TestAccessRights::losingDeleteStudyTakesDeletePersonAlone()
{
    RoleColumn column(kAll);
    column.click(DeleteStudy);
    QCOMPARE(column.checked(), kAll & ~(DeleteStudy | DeletePerson));
}

void TestAccessRights::noRuleIsFollowedFromWhatARuleChanged()
{
    // The rows of the table are closed, so that only a right without a button of its own can tell: creating
    // brings modifying along, whose own rule is not asked.
    RoleColumn column(0, ReadPerson);
    column.click(CreatePerson);
    QCOMPARE(column.checked(), CreatePerson | ModifyPerson);

    // A set that the rules would not have made stays as it is but for the clicked right's own row.
    RoleColumn uneven(DeletePerson | ImportData | ModifyStudy);
    uneven.click(ExportData);
    QCOMPARE(uneven.checked(), DeletePerson | ImportData | ModifyStudy | ExportData | ReadPerson | ReadStudy);
}

void TestAccessRights::aHeadingHasNoButtonAndNothingFollowsIt()
{
    RoleColumn column(0);
    int headings = 0;
    for (const Row &row : accessRightRows())
        headings += row.first == 0 ? 1 : 0;
    QCOMPARE(headings, 5);
    QCOMPARE(column.head().rightButtons().size(), accessRightRows().size() - headings);
    QVERIFY(!column.head().rightButtons().values().contains(0));
    QCOMPARE(dependentRights(0, true), 0);
}

void TestAccessRights::aButtonOfAnotherColumnChangesNothing()
{
    RoleColumn column(kAll);
    QPushButton stranger;
    column.head().applyDependentRights(&stranger);
    column.head().applyDependentRights(nullptr);
    QCOMPARE(column.checked(), kAll);
}

void TestAccessRights::aBitThatNoRowShowsStaysUntilTheRightsAreApplied()
{
    RoleColumn column(ReadPerson | kStrangeBits);
    QVERIFY(!column.head().roleChanged());
    QCOMPARE(column.rights(), ReadPerson | kStrangeBits);
    column.head().applyRights();
    QCOMPARE(column.rights(), int(ReadPerson));
}

void TestAccessRights::aRoleIsChangedWhenAButtonSaysAnotherThing()
{
    RoleColumn column(ReadPerson);
    QVERIFY(!column.head().roleChanged());
    column.click(AuditTrailManagement);
    QVERIFY(column.head().roleChanged());
    QCOMPARE(column.rights(), int(ReadPerson));
    column.click(AuditTrailManagement);
    QVERIFY(!column.head().roleChanged());
    column.click(ReadPerson);
    QVERIFY(column.head().roleChanged());
    column.head().applyRights();
    QCOMPARE(column.rights(), 0);
    QVERIFY(!column.head().roleChanged());
}

void TestAccessRights::withoutButtonsNothingIsChangedOrApplied()
{
    const auto role = QSharedPointer<AccessRoleModelData>::create(1u, text("Nurse"), kAll);
    AccessRole head(role, nullptr);
    QVERIFY(!head.roleChanged());
    head.applyRights();
    QCOMPARE(role->accessTypes(), kAll);
    QVERIFY(head.rightButtons().isEmpty());
}

void TestAccessRights::theButtonShowsTheRolesName()
{
    const auto role = QSharedPointer<AccessRoleModelData>::create(1u, text("R&D \u05de\u05e0"), 0);
    const AccessRole head(role, nullptr);
    QCOMPARE(head.text(), text("R&D \u05de\u05e0"));
    QCOMPARE(head.role(), role);
    QVERIFY(!head.deleted());
}

QTEST_MAIN(TestAccessRights)
#include "test_accessrights.moc"
