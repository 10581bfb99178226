#include "Corvane/accesscontrol/statementwatch.h"
#include "Corvane/accesscontrol/storefixture.h"

#include <functional>

namespace {

using Handler = SupportConnectionHandler;
using Stage = StatementWatch::Stage;

const QString kId = QStringLiteral("000000000000000000000000000000000001");
const QString kCauses = QStringLiteral(":The query is refused :The database refuses");

/// One statement that the database refuses in an operation, and all that is recorded of the operation.
struct Refusal
{
    const char *name;
    std::function<bool(Handler &)> operation;
    const char *statement;
    Stage stage;
    int passing;
    bool result;
    QStringList trail;
    const char *second = nullptr;  ///< another statement that is refused
};

/// The operator that is in the table before each test, with the roles 7 and 3.
OperatorModel anna(const QList<uint> &roles)
{
    return makeOperator(kId, text("anna"), roles);
}

bool readsInformation(Handler &handler)
{
    QMap<UuidString, QString> organizations;
    QMultiMap<UuidString, QString> departments;
    const QString errors = handler.getOrganizationInfo(organizations, departments);
    if (errors.isEmpty())
        return true;
    if (errors != text("The query is refused | The database refuses"))
        qFatal("%s", qPrintable(errors));
    return false;
}

QString failed(const char *action, const QString &what)
{
    return QStringLiteral("failed %1 16300002: %2").arg(text(action), what);
}

const QString kFound = QStringLiteral("GetOperator Automatic %1: Corvane check existing username").arg(kId);
const QString kRead = QStringLiteral("GetOperator Human %1: Corvane").arg(kId);
const QString kLinksRead =
    QStringLiteral("LoadOperatorRoles Automatic %1: Loading current roles to update operator roles").arg(kId);
const QString kAdded = QStringLiteral("AddOperator Human %1: Corvane").arg(kId);
const QString kOperatorFailed = QStringLiteral("Operator from access.supportdb ") + kCauses;
const QString kRolesFailed = QStringLiteral("Roles from access.supportdb ") + kCauses;
const QString kLinksFailed = QStringLiteral("Roles from access.supportdb :%1 : %2").arg(kId, kCauses.mid(1));
const QString kUser = QStringLiteral("User from access.supportdb");
const QString kRole = QStringLiteral("Role from access.supportdb");
const QString kNoCause = QStringLiteral("User from access.supportdb; Error: ");
const QString kCause = QStringLiteral("User from access.supportdb; Error: The database refuses");

QList<Refusal> refusalsOfOperators()
{
    const auto save = [](Handler &h) {
        return h.saveOperator(anna({7, 3}));
    };
    const auto add = [](Handler &h) {
        return h.saveOperator(makeOperator(idOf(2), text("bertta")));
    };
    const auto find = [](Handler &h) {
        return !h.getOperatorByUsername(text("anna")).isNull();
    };
    const auto read = [](Handler &h) {
        return !h.getOperators(kId).isEmpty();
    };
    const auto remove = [](Handler &h) {
        return h.deleteOperator(anna({}));
    };
    const QString searched = failed("GetOperator", kOperatorFailed);
    const QString notThere = text("Driver not loaded Driver not loaded");
    const QString searchedAgain =
        failed("GetOperator", QStringLiteral("Operator from access.supportdb :%1 :%1").arg(notThere));
    const QString newRead = QStringLiteral("GetOperator Human %1: Corvane").arg(idOf(2).toString());
    return {{"the search of a name is not prepared",
             find,
             "SELECT * FROM operator WHERE",
             Stage::Preparing,
             0,
             false,
             {searched}},
            {"the search of a name is not run",
             find,
             "SELECT * FROM operator WHERE",
             Stage::Running,
             0,
             false,
             {searched}},
            {"the roles of a name are not read to the end",
             find,
             "SELECT * FROM operator_roles",
             Stage::Reading,
             0,
             false,
             {searched}},
            {"the roles of a name are not found",
             find,
             "SELECT * FROM operator_roles",
             Stage::Running,
             0,
             false,
             {searched}},
            {"operators are not prepared",
             read,
             "SELECT * FROM operator WHERE",
             Stage::Preparing,
             0,
             false,
             {searched}},
            {"operators are not read",
             read,
             "SELECT * FROM operator WHERE",
             Stage::Running,
             0,
             false,
             {searched}},
            {"the roles of operators are not found",
             read,
             "SELECT * FROM operator_roles",
             Stage::Running,
             0,
             false,
             {searched}},
            {"a save finds no names",
             save,
             "SELECT * FROM operator WHERE",
             Stage::Running,
             0,
             false,
             {searched, searchedAgain, failed("AddOperator", kNoCause)}},
            {"a save finds no operator",
             add,
             "SELECT * FROM operator WHERE deleted = 0 AND operator_id",
             Stage::Running,
             0,
             false,
             {searched, failed("AddOperator", kNoCause)}},
            {"a change is refused",
             save,
             "UPDATE",
             Stage::Running,
             0,
             false,
             {kFound, failed("AddOperator", kCause)}},
            {"a change is not prepared",
             save,
             "UPDATE",
             Stage::Preparing,
             0,
             false,
             {kFound, failed("AddOperator", kCause)}},
            {"a new operator is refused",
             add,
             "INSERT",
             Stage::Running,
             0,
             false,
             {newRead, failed("AddOperator", kCause)}},
            {"a deletion finds no operator",
             remove,
             "SELECT * FROM operator WHERE",
             Stage::Running,
             0,
             false,
             {searched, failed("DeleteOperator", kUser)}},
            {"a deletion is refused",
             remove,
             "UPDATE",
             Stage::Running,
             0,
             false,
             {kRead, failed("DeleteOperator", kUser)}}};
}

QList<Refusal> refusalsOfLinks()
{
    const auto link = [](Handler &h) {
        return h.updateOperatorRoles(anna({3, 8, 9}));
    };
    const auto save = [](Handler &h) {
        return h.saveOperator(anna({3, 8, 9}));
    };
    const auto kept = [](const char *which) {
        return QStringLiteral("Transaction %1 failed in access.supportdb").arg(text(which));
    };
    const QString updated =
        QStringLiteral("UpdateOperator Automatic %1: Updating operator roles. Current roles: 3,8,9").arg(kId);
    return {{"links are not prepared",
             link,
             "SELECT * from operator_roles",
             Stage::Preparing,
             0,
             false,
             {failed("LoadOperatorRoles", kLinksFailed)}},
            {"links are not found",
             link,
             "SELECT * from operator_roles",
             Stage::Running,
             0,
             false,
             {failed("LoadOperatorRoles", kLinksFailed)}},
            {"links are not read to the end",
             link,
             "SELECT * from operator_roles",
             Stage::Reading,
             0,
             false,
             {kLinksRead, failed("LoadOperatorRoles", kLinksFailed)}},
            {"no transaction begins",
             link,
             "BEGIN",
             Stage::Running,
             0,
             false,
             {kLinksRead, failed("Transaction", kept("begin"))}},
            {"a link is not removed",
             link,
             "DELETE",
             Stage::Running,
             0,
             false,
             {kLinksRead, failed("DeleteOperatorRole", kLinksFailed)}},
            {"the second link is not added",
             link,
             "INSERT",
             Stage::Running,
             1,
             false,
             {kLinksRead, failed("AddOperatorRole", kLinksFailed)}},
            {"a link is neither added nor are the others taken back",
             link,
             "INSERT",
             Stage::Running,
             1,
             false,
             {kLinksRead, failed("Transaction", kept("rollback")), failed("AddOperatorRole", kLinksFailed)},
             "ROLLBACK"},
            {"the links are not kept",
             link,
             "COMMIT",
             Stage::Running,
             0,
             true,
             {kLinksRead, failed("Transaction", kept("commit")), updated}},
            {"a save goes well when its links fail",
             save,
             "DELETE",
             Stage::Running,
             0,
             true,
             {kFound, kLinksRead, failed("DeleteOperatorRole", kLinksFailed), kAdded}}};
}

QList<Refusal> refusalsOfRoles()
{
    const auto add = [](Handler &h) {
        return h.saveRole(makeRole(text("Tutkija"), 1));
    };
    const auto change = [](Handler &h) {
        return h.saveRole(makeRole(text("Tutkija"), 1, 1));
    };
    const auto remove = [](Handler &h) {
        return h.deleteRole(makeRole(text("Tutkija"), 1, 1));
    };
    const auto find = [](Handler &h) {
        return !h.getRoleByTitle(text("Nurse")).isNull();
    };
    const auto read = [](Handler &h) {
        return !h.getRoles().isEmpty();
    };
    const QString notSaved = failed("ModifyRole", kRole);
    const QString notRead = failed("LoadRoles", kRolesFailed);
    return {{"a new role is refused", add, "INSERT", Stage::Running, 0, false, {notSaved}},
            {"a new role is not read back", add, "SELECT", Stage::Running, 0, false, {notRead, notSaved}},
            {"the reading back of a new role is not prepared",
             add,
             "SELECT",
             Stage::Preparing,
             0,
             false,
             {notSaved}},
            {"a changed role is refused", change, "UPDATE", Stage::Running, 0, false, {notSaved}},
            {"a deleted role is refused",
             remove,
             "UPDATE",
             Stage::Running,
             0,
             false,
             {failed("DeleteRole", kRole)}},
            {"the search of a title is not prepared", find, "SELECT", Stage::Preparing, 0, false, {}},
            {"the search of a title is not run", find, "SELECT", Stage::Running, 0, false, {notRead}},
            {"roles are not prepared", read, "SELECT", Stage::Preparing, 0, false, {notRead}},
            {"roles are not found", read, "SELECT", Stage::Running, 0, false, {notRead}},
            {"roles are not read to the end",
             read,
             "SELECT",
             Stage::Reading,
             1,
             false,
             {text("LoadRoles Automatic : Corvane"), notRead}}};
}

QList<Refusal> refusalsOfUnits()
{
    const auto saveOrganization = [](Handler &h) {
        return h.saveOrganization(kId, text("A"));
    };
    const auto saveDepartment = [](Handler &h) {
        return h.saveDepartment(kId, text("A"), text("B"));
    };
    const auto removeKnown = [](Handler &h) {
        return h.deleteOrganization(idOf(70));
    };
    const auto removeDepartment = [](Handler &h) {
        return h.deleteDepartment(idOf(80));
    };
    const auto exists = [](Handler &h) {
        return h.departmentExists(idOf(80));
    };
    const auto change = [](Handler &h) {
        return h.saveDepartment(idOf(80), text("A"), text("B"));
    };
    const auto organization = [](const char *action) {
        return failed(action, text("Organization from access.supportdb"));
    };
    const auto department = [](const char *action) {
        return failed(action, text("Department from access.supportdb"));
    };
    const QString notSought = failed("LoadDepartment", text("Department from access.supportdb ") + kCauses);
    const QString information = failed("LoadOrganization", text("Info from access.supportdb"));
    return {{"a new organisation is refused",
             saveOrganization,
             "INSERT",
             Stage::Running,
             0,
             false,
             {organization("AddOrganization")}},
            {"a new department is refused",
             saveDepartment,
             "INSERT",
             Stage::Preparing,
             0,
             false,
             {department("AddDepartment")}},
            {"a changed department is refused",
             change,
             "UPDATE",
             Stage::Running,
             0,
             false,
             {department("AddDepartment")}},
            {"a deleted organisation is refused",
             removeKnown,
             "UPDATE",
             Stage::Running,
             0,
             false,
             {organization("UpdateOrganization")}},
            {"a deleted department is refused",
             removeDepartment,
             "UPDATE",
             Stage::Running,
             0,
             false,
             {department("UpdateDepartment")}},
            {"a department is not sought", exists, "SELECT", Stage::Running, 0, false, {notSought}},
            {"an organisation to save is not sought",
             saveOrganization,
             "SELECT",
             Stage::Running,
             0,
             false,
             {failed("LoadOrganization", text("Organization from access.supportdb ") + kCauses),
              organization("AddOrganization")}},
            {"a department to delete is not sought",
             removeDepartment,
             "SELECT",
             Stage::Running,
             0,
             false,
             {notSought}},
            {"organisations are not prepared",
             readsInformation,
             "SELECT * FROM organization",
             Stage::Preparing,
             0,
             false,
             {information}},
            {"departments are not found",
             readsInformation,
             "SELECT * FROM department",
             Stage::Running,
             0,
             false,
             {information}},
            {"departments are not read to the end",
             readsInformation,
             "SELECT * FROM department",
             Stage::Reading,
             0,
             false,
             {information}}};
}

}  // namespace

Q_DECLARE_METATYPE(Refusal)

/// Each statement of the stores, refused: what is recorded letter for letter, and what stays in the tables.
class TestStoreRefusals : public StoreFixture
{
    Q_OBJECT

private slots:
    void aRefusedStatementIsToldAndDropsTheConnection_data();
    void aRefusedStatementIsToldAndDropsTheConnection();
    void whatWasReadBeforeAFailureIsGiven_data();
    void whatWasReadBeforeAFailureIsGiven();

private:
    bool prepareRows();

    StatementWatch m_watch;
};

bool TestStoreRefusals::prepareRows()
{
    return m_handler->saveOperator(anna({7, 3})) && m_handler->saveOrganization(idOf(70), text("Sairaala")) &&
           m_handler->saveDepartment(idOf(80), text("Keuhkot"), text("Kuja 1"));
}

void TestStoreRefusals::aRefusedStatementIsToldAndDropsTheConnection_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<Refusal>("refusal");
    const QList<Refusal> refusals =
        refusalsOfOperators() + refusalsOfLinks() + refusalsOfRoles() + refusalsOfUnits();
    addPlaceRows([&refusals](const QString &place, Place where) {
        for (const Refusal &refusal : refusals)
            QTest::newRow(qPrintable(place + text(": ") + text(refusal.name))) << where << refusal;
    });
}

void TestStoreRefusals::aRefusedStatementIsToldAndDropsTheConnection()
{
    QFETCH(Refusal, refusal);
    QVERIFY(prepareRows());
    trail();
    m_reconnected->clear();
    m_watch.refuse(text(refusal.statement), refusal.stage, refusal.passing);
    if (refusal.second)
        m_watch.refuse(text(refusal.second));
    const bool result = refusal.operation(*m_handler);
    m_watch.allowAll();
    QCOMPARE(trail().join(QLatin1Char('\n')), refusal.trail.join(QLatin1Char('\n')));
    QCOMPARE(result, refusal.result);
    const int failures = refusal.trail.filter(QRegExp(text("^failed "))).size();
    QCOMPARE(m_handler->isConnected(), failures == 0);
    QCOMPARE(m_reconnected->size(), failures);
    // Nothing has changed, and no lock is left behind.
    QCOMPARE(elsewhere(text("UPDATE operator_roles SET role_id = role_id")), QStringList());
    QCOMPARE(elsewhere(text("SELECT role_id FROM operator_roles ORDER BY role_id")),
             (QStringList{text("3"), text("7")}));
}

void TestStoreRefusals::whatWasReadBeforeAFailureIsGiven_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("statement");
    QTest::addColumn<int>("stage");
    addPlaceRows([](const QString &place, Place where) {
        QTest::newRow(qPrintable(place + text(": in the roles of the third")))
            << where << text("SELECT * FROM operator_roles") << int(Stage::Running);
        QTest::newRow(qPrintable(place + text(": in the rows after the second")))
            << where << text("SELECT * FROM operator WHERE") << int(Stage::Reading);
    });
}

void TestStoreRefusals::whatWasReadBeforeAFailureIsGiven()
{
    QFETCH(QString, statement);
    QFETCH(int, stage);
    for (int i = 1; i <= 5; ++i)
        QVERIFY(m_handler->saveOperator(makeOperator(idOf(i), QString::number(i))));
    trail();
    m_watch.refuse(statement, Stage(stage), stage == Stage::Reading ? 1 : 2);
    const QList<OperatorModel> operators = m_handler->getOperators();
    m_watch.allowAll();
    QCOMPARE(operators.size(), 2);
    QCOMPARE(trail(), QStringList{failed("GetOperator", kOperatorFailed)});
    QVERIFY(!m_handler->isConnected());
}

QTEST_MAIN(TestStoreRefusals)
#include "test_storerefusals.moc"
