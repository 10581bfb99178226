#include "ZephanShared/toolkit/actions.h"

#include <QSet>
#include <QTest>

class TestActions : public QObject
{
    Q_OBJECT

private slots:
    void families_data();
    void families();
    void workedNumbers_data();
    void workedNumbers();
    void unknownNumbers_data();
    void unknownNumbers();
    void thereAreSixtyOneActionsInAscendingOrder();
    void everyNameStandsOnce();
    void noActionHasTheCategoryError();
};

void TestActions::families_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("category");
    QTest::addColumn<int>("level");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("access, high") << 4864 << 0x1000 << 0x300
                                  << QString("Login Logout").split(QLatin1Char(' '));
    QTest::newRow("database, low")
        << 8448 << 0x2000 << 0x100
        << QString("FetchPersonCustomFields FetchPersonStudies").split(QLatin1Char(' '));
    QTest::newRow("database, normal")
        << 8704 << 0x2000 << 0x200
        << QString("AddPerson UpdatePerson SearchPerson MatchPerson MergePerson DeletePerson AddStudy "
                   "UpdateStudy SearchStudy MatchStudy MergeStudy DeleteStudy SetActiveSettings LoadSettings "
                   "SaveSettings DeleteSettings SearchAuditTrail GetOperator AddOperator UpdateOperator "
                   "DeleteOperator LoadRoles AddRole ModifyRole DeleteRole LoadOperatorRoles AddOperatorRole "
                   "DeleteOperatorRole AddOperation SearchOperation AddOrganization UpdateOrganization "
                   "LoadOrganization AddDepartment UpdateDepartment LoadDepartment Transaction")
               .split(QLatin1Char(' '));
    QTest::newRow("user, normal")
        << 12800 << 0x3000 << 0x200
        << QString("ModifyPerson ViewPerson ModifyStudy ViewStudy ViewSettingsDiff").split(QLatin1Char(' '));
    QTest::newRow("transfer, low") << 16640 << 0x4000 << 0x100
                                   << QString("AutomaticImport AutomaticExport").split(QLatin1Char(' '));
    QTest::newRow("transfer, normal")
        << 16896 << 0x4000 << 0x200 << QString("Import Export").split(QLatin1Char(' '));
    QTest::newRow("system, low") << 20736 << 0x5000 << 0x100
                                 << QString(
                                        "Started Stopping Initialize Deinitialize LoadPlugin PluginAction")
                                        .split(QLatin1Char(' '));
    QTest::newRow("system, normal")
        << 20992 << 0x5000 << 0x200
        << QString("Synchronization ActionLogSynchronization SynchronizationStarted SynchronizationStopped "
                   "ConnectionChange")
               .split(QLatin1Char(' '));
}

void TestActions::families()
{
    QFETCH(int, first);
    QFETCH(int, category);
    QFETCH(int, level);
    QFETCH(QStringList, names);

    for (int i = 0; i < names.size(); ++i) {
        const auto action = static_cast<Actions::Action>(first + i);
        QCOMPARE(Actions::name(action), names.at(i));
        QCOMPARE(static_cast<int>(Actions::category(action)), category);
        QCOMPARE(static_cast<int>(Actions::level(action)), level);
        QVERIFY(Actions::allActions().contains(action));
    }
    QVERIFY(Actions::name(first - 1).isEmpty());
    QVERIFY(Actions::name(first + names.size()).isEmpty());
}

void TestActions::workedNumbers_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("number");

    QTest::newRow("Login is 4864") << int(Actions::Login) << 4864;
    QTest::newRow("Logout is 4865") << int(Actions::Logout) << 4865;
    QTest::newRow("SearchAuditTrail is 8720") << int(Actions::SearchAuditTrail) << 8720;
    QTest::newRow("Transaction is 8740") << int(Actions::Transaction) << 8740;
    QTest::newRow("ViewSettingsDiff is 12804") << int(Actions::ViewSettingsDiff) << 12804;
    QTest::newRow("Started is 20736") << int(Actions::Started) << 20736;
    QTest::newRow("Stopping is 20737") << int(Actions::Stopping) << 20737;
    QTest::newRow("ConnectionChange is 20996") << int(Actions::ConnectionChange) << 20996;
}

void TestActions::workedNumbers()
{
    QFETCH(int, action);
    QFETCH(int, number);
    QCOMPARE(action, number);
}

void TestActions::unknownNumbers_data()
{
    QTest::addColumn<int>("number");

    QTest::newRow("0 is no action") << 0;
    QTest::newRow("a negative number is no action") << -8720;
    QTest::newRow("a number between two families is no action") << 0x2300;
    QTest::newRow("a family's number without its action is no action") << 0x1302;
    QTest::newRow("a category with no level is no action") << 0x2000;
    QTest::newRow("the category Error is no action") << 0x6000;
    QTest::newRow("the largest integer is no action") << std::numeric_limits<int>::max();
    QTest::newRow("the smallest integer is no action") << std::numeric_limits<int>::min();
}

void TestActions::unknownNumbers()
{
    QFETCH(int, number);
    QVERIFY(Actions::name(number).isEmpty());
}

void TestActions::thereAreSixtyOneActionsInAscendingOrder()
{
    const QVector<Actions::Action> &actions = Actions::allActions();
    QCOMPARE(actions.size(), 61);
    QVERIFY(std::is_sorted(actions.cbegin(), actions.cend(), std::less_equal<int>()));
}

void TestActions::everyNameStandsOnce()
{
    QSet<QString> names;
    for (const Actions::Action action : Actions::allActions())
        names.insert(Actions::name(action));
    QCOMPARE(names.size(), 61);
}

void TestActions::noActionHasTheCategoryError()
{
    for (const Actions::Action action : Actions::allActions())
        QVERIFY(Actions::category(action) != Actions::ErrorCategory);
}

QTEST_GUILESS_MAIN(TestActions)
#include "test_actions.moc"
