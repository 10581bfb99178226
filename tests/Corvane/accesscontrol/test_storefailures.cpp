#include "Corvane/accesscontrol/storefixture.h"

#include <functional>

namespace {

using Operation = std::function<bool(SupportConnectionHandler &)>;

const char *const kGetOperator = "failed GetOperator 16300002: Operator from access.supportdb :";
const char *const kLoadRoles = "failed LoadRoles 16300002: Roles from access.supportdb :";
const char *const kAddOperator = "failed AddOperator %1: User from access.supportdb; Error:";
const char *const kDeleteOperator = "failed DeleteOperator %1: User from access.supportdb";
const char *const kModifyRole = "failed ModifyRole %1: Role from access.supportdb";
const char *const kDeleteRole = "failed DeleteRole %1: Role from access.supportdb";
const char *const kAddOrganization = "failed AddOrganization %1: Organization from access.supportdb";
const char *const kAddDepartment = "failed AddDepartment %1: Department from access.supportdb";
const char *const kNoData = "16300000";
const char *const kNoConnection = "16300001";
const char *const kFailed = "16300002";

/// One operation of the store that fails, and what is recorded of it.
struct Failing
{
    const char *name;
    const char *table;  ///< the one that is missing
    Operation operation;
    QStringList trail;
};

QString told(const char *line, const char *code)
{
    return text(line).contains(text("%1")) ? text(line).arg(text(code)) : text(line);
}

OperatorModel anna()
{
    return makeOperator(idOf(1), text("anna"), {5});
}

Role nurse(uint id)
{
    return makeRole(text("Hoitaja"), 1, id);
}

QString organizationInfo(SupportConnectionHandler &handler)
{
    QMap<UuidString, QString> organizations;
    QMultiMap<UuidString, QString> departments;
    return handler.getOrganizationInfo(organizations, departments);
}

QList<Failing> withoutATable()
{
    using Handler = SupportConnectionHandler;
    const QString search = text(kGetOperator);
    const QString loadRoles = text(kLoadRoles);
    return {
        {"an operator is saved",
         "operator",
         [](Handler &h) { return h.saveOperator(anna()); },
         {search, search, told(kAddOperator, kFailed)}},
        {"an operator is deleted",
         "operator",
         [](Handler &h) { return h.deleteOperator(anna()); },
         {search, told(kDeleteOperator, kFailed)}},
        {"an operator is looked for",
         "operator",
         [](Handler &h) { return !h.getOperatorByUsername(text("anna")).isNull(); },
         {search}},
        {"operators are read", "operator", [](Handler &h) { return !h.getOperators().isEmpty(); }, {search}},
        {"the links of operators are read",
         "operator_roles",
         [](Handler &h) { return !h.getOperators().isEmpty(); },
         {search}},
        {"links are compared",
         "operator_roles",
         [](Handler &h) { return h.updateOperatorRoles(anna()); },
         {text("failed LoadOperatorRoles 16300002: Roles from access.supportdb :")}},
        {"a new role is saved",
         "roles",
         [](Handler &h) { return h.saveRole(nurse(0)); },
         {told(kModifyRole, kFailed)}},
        {"a role is changed",
         "roles",
         [](Handler &h) { return h.saveRole(nurse(1)); },
         {told(kModifyRole, kFailed)}},
        {"a role is deleted",
         "roles",
         [](Handler &h) { return h.deleteRole(nurse(1)); },
         {told(kDeleteRole, kFailed)}},
        {"roles are read", "roles", [](Handler &h) { return !h.getRoles().isEmpty(); }, {loadRoles}},
        {"an organisation is saved",
         "organization",
         [](Handler &h) { return h.saveOrganization(idOf(1), text("A")); },
         {text("failed LoadOrganization 16300002: Organization from access.supportdb :"),
          told(kAddOrganization, kFailed)}},
        {"a department is saved",
         "department",
         [](Handler &h) { return h.saveDepartment(idOf(1), text("A"), text("B")); },
         {text("failed LoadDepartment 16300002: Department from access.supportdb :"),
          told(kAddDepartment, kFailed)}},
        {"an organisation is deleted",
         "organization",
         [](Handler &h) { return h.deleteOrganization(idOf(1)); },
         {text("failed LoadOrganization 16300002: Organization from access.supportdb :")}},
        {"a department is deleted",
         "department",
         [](Handler &h) { return h.deleteDepartment(idOf(1)); },
         {text("failed LoadDepartment 16300002: Department from access.supportdb :")}},
        {"organisations are read",
         "organization",
         [](Handler &h) { return organizationInfo(h).isEmpty(); },
         {text("failed LoadOrganization 16300002: Info from access.supportdb")}},
        {"departments are read",
         "department",
         [](Handler &h) { return organizationInfo(h).isEmpty(); },
         {text("failed LoadOrganization 16300002: Info from access.supportdb")}}};
}

/// Those that connect by themselves tell of it when that fails.
QList<Failing> withoutAConnection()
{
    using Handler = SupportConnectionHandler;
    const QString connecting = text("failed Initialize 16300001: Database: ");
    return {{"an operator is saved",
             "",
             [](Handler &h) { return h.saveOperator(anna()); },
             {connecting, told(kAddOperator, kNoConnection)}},
            {"an operator is deleted",
             "",
             [](Handler &h) { return h.deleteOperator(anna()); },
             {connecting, told(kDeleteOperator, kNoConnection)}},
            {"an operator is looked for",
             "",
             [](Handler &h) { return !h.getOperatorByUsername(text("anna")).isNull(); },
             {}},
            {"operators are read",
             "",
             [](Handler &h) { return !h.getOperators().isEmpty(); },
             {text("failed GetOperator 16300001: User from access.supportdb")}},
            {"links are compared", "", [](Handler &h) { return h.updateOperatorRoles(anna()); }, {}},
            {"a role is saved",
             "",
             [](Handler &h) { return h.saveRole(nurse(0)); },
             {connecting, told(kModifyRole, kNoConnection)}},
            {"a role is deleted",
             "",
             [](Handler &h) { return h.deleteRole(nurse(1)); },
             {connecting, told(kDeleteRole, kNoConnection)}},
            {"a role is looked for",
             "",
             [](Handler &h) { return !h.getRoleByTitle(text("Nurse")).isNull(); },
             {}},
            {"roles are read",
             "",
             [](Handler &h) { return !h.getRoles().isEmpty(); },
             {text("failed LoadOperatorRoles 16300001: Role from access.supportdb")}},
            {"an organisation is saved",
             "",
             [](Handler &h) { return h.saveOrganization(idOf(1), text("A")); },
             {connecting, told(kAddOrganization, kNoConnection)}},
            {"a department is saved",
             "",
             [](Handler &h) { return h.saveDepartment(idOf(1), text("A"), text("B")); },
             {connecting, told(kAddDepartment, kNoConnection)}},
            {"a department is deleted", "", [](Handler &h) { return h.deleteDepartment(idOf(1)); }, {}},
            {"organisations are read",
             "",
             [](Handler &h) { return organizationInfo(h).isEmpty(); },
             {text("failed LoadOrganization 16300002: Info from access.supportdb")}},
            {"a row is inserted",
             "",
             [](Handler &h) {
                 return h.insertRow(text("roles"), {{text("title"), text("A")}});
             },
             {}},
            {"a row is changed",
             "",
             [](Handler &h) {
                 return h.updateRow(text("roles"), {{text("deleted"), 0}}, {{text("role_id"), 1}});
             },
             {}}};
}

}  // namespace

Q_DECLARE_METATYPE(Failing)

/// What the stores do when a database does not do its part: tell of it, drop the connection and make it anew.
class TestStoreFailures : public StoreFixture
{
    Q_OBJECT

private slots:
    void aMissingTableIsToldAndDropsTheConnection_data();
    void aMissingTableIsToldAndDropsTheConnection();
    void aMissingConnectionIsTold_data();
    void aMissingConnectionIsTold();
    void nothingToSaveIsTold_data();
    void nothingToSaveIsTold();
    void theNextOperationConnectsOnlineAgain_data();
    void theNextOperationConnectsOnlineAgain();
    void aConnectionThatWentAwayIsMadeAgain_data();
    void aConnectionThatWentAwayIsMadeAgain();
    void aFailureInTheLinksLeavesASavedOperator_data();
    void aFailureInTheLinksLeavesASavedOperator();
    void refusedLinksAreAllTakenBack_data();
    void refusedLinksAreAllTakenBack();
    void oneTableIsReadWhenTheOtherFails_data();
    void oneTableIsReadWhenTheOtherFails();

private:
    static void addFailures(const QList<Failing> &failures);
};

void TestStoreFailures::addFailures(const QList<Failing> &failures)
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<Failing>("failing");
    addPlaceRows([&failures](const QString &place, Place where) {
        for (const Failing &failing : failures)
            QTest::newRow(qPrintable(place + text(": ") + text(failing.name))) << where << failing;
    });
}

void TestStoreFailures::aMissingTableIsToldAndDropsTheConnection_data()
{
    addFailures(withoutATable());
}

void TestStoreFailures::aMissingTableIsToldAndDropsTheConnection()
{
    QFETCH(Failing, failing);
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(2), text("bertta"))));
    trail();
    m_reconnected->clear();
    QVERIFY(hideTable(text(failing.table)));
    QVERIFY(!failing.operation(*m_handler));
    QCOMPARE(trailWithoutCauses(), failing.trail);
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(m_reconnected->size(), failing.trail.size());
    QVERIFY(showTables());
    QVERIFY(connectHandler());
}

void TestStoreFailures::aMissingConnectionIsTold_data()
{
    addFailures(withoutAConnection());
}

void TestStoreFailures::aMissingConnectionIsTold()
{
    QFETCH(Failing, failing);
    m_handler->closeConnection();
    QVERIFY(hideTable(text("organization")));
    QVERIFY(!failing.operation(*m_handler));
    QStringList lines = trailWithoutCauses();
    for (QString &line : lines) {
        if (line.startsWith(text("failed Initialize")))
            line = line.section(QLatin1Char(' '), 0, 3) + QLatin1Char(' ');
    }
    QCOMPARE(lines, failing.trail);
    QVERIFY(!m_handler->isConnected());
}

void TestStoreFailures::nothingToSaveIsTold_data()
{
    addPlaces();
}

void TestStoreFailures::nothingToSaveIsTold()
{
    QVERIFY(!m_handler->saveOperator({}));
    QVERIFY(!m_handler->deleteOperator({}));
    QVERIFY(!m_handler->saveRole({}));
    QVERIFY(!m_handler->deleteRole({}));
    QCOMPARE(trailWithoutCauses(), (QStringList{told(kAddOperator, kNoData), told(kDeleteOperator, kNoData),
                                                told(kModifyRole, kNoData), told(kDeleteRole, kNoData)}));
    QVERIFY(!m_handler->isConnected());
}

void TestStoreFailures::theNextOperationConnectsOnlineAgain_data()
{
    addPlaces();
}

void TestStoreFailures::theNextOperationConnectsOnlineAgain()
{
    QVERIFY(!m_handler->saveOperator({}));
    QVERIFY(!m_handler->isConnected());
    trail();
    // Nobody has given parameters of an online database to who works on the encrypted file.
    QCOMPARE(m_handler->saveOperator(anna()), !isOffline());
    QCOMPARE(m_handler->isConnected(), !isOffline());
    if (isOffline()) {
        QCOMPARE(trailWithoutCauses(), (QStringList{text("failed Initialize 16300001: Database:  ErrorInfo:"),
                                                    told(kAddOperator, kNoConnection)}));
        QVERIFY(connectHandler());
    }
    QCOMPARE(m_handler->getOperators().size(), isOffline() ? 0 : 1);
}

void TestStoreFailures::aConnectionThatWentAwayIsMadeAgain_data()
{
    QTest::addColumn<Place>("place");
    QTest::newRow("MariaDB") << Place::MariaDb;
    QTest::newRow("PostgreSQL") << Place::PostgreSql;
}

void TestStoreFailures::aConnectionThatWentAwayIsMadeAgain()
{
    QVERIFY(endConnection());
    QVERIFY(m_handler->isConnected());
    QVERIFY(!m_handler->saveOperator(anna()));
    QCOMPARE(trailWithoutCauses(),
             (QStringList{text(kGetOperator), text(kGetOperator), told(kAddOperator, kFailed)}));
    QVERIFY(!m_handler->isConnected());
    QVERIFY(m_handler->saveOperator(anna()));
    QCOMPARE(m_handler->getOperators().size(), 1);
}

void TestStoreFailures::aFailureInTheLinksLeavesASavedOperator_data()
{
    addPlaces();
}

void TestStoreFailures::aFailureInTheLinksLeavesASavedOperator()
{
    QVERIFY(hideTable(text("operator_roles")));
    QVERIFY(m_handler->saveOperator(anna()));
    QCOMPARE(trailWithoutCauses(),
             (QStringList{QStringLiteral("GetOperator Human %1: Corvane").arg(idOf(1).toString()),
                          text("failed LoadOperatorRoles 16300002: Roles from access.supportdb :"),
                          QStringLiteral("AddOperator Human %1: Corvane").arg(idOf(1).toString())}));
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(elsewhere(text("SELECT username FROM operator")), QStringList{text("anna")});
}

void TestStoreFailures::refusedLinksAreAllTakenBack_data()
{
    addPlaces();
}

// A number above those of the column is refused by the servers; the files need a rule for it.
void TestStoreFailures::refusedLinksAreAllTakenBack()
{
    const uint refused = hasWidths() ? 4000000000u : 9;
    if (!hasWidths())
        QVERIFY(elsewhere(text("CREATE TRIGGER refusal BEFORE INSERT ON operator_roles WHEN NEW.role_id = 9 "
                               "BEGIN SELECT RAISE(ABORT, 'refused'); END"))
                    .isEmpty());
    const OperatorModel op = makeOperator(idOf(1), text("anna"), {7});
    QVERIFY(m_handler->saveOperator(op));
    trail();
    op->setOperatorRoleIDList({8, refused});
    QVERIFY(!m_handler->updateOperatorRoles(op));
    if (!hasWidths())
        QVERIFY(elsewhere(text("DROP TRIGGER refusal")).isEmpty());
    const QStringList lines = trail();
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines.last().startsWith(
                 QStringLiteral("failed AddOperatorRole 16300002: Roles from access.supportdb :%1 : ")
                     .arg(idOf(1).toString())),
             qPrintable(lines.last()));
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(elsewhere(text("SELECT role_id FROM operator_roles")), QStringList{text("7")});
    QCOMPARE(op->operatorRoleIDList(), (QList<uint>{8, refused}));
}

void TestStoreFailures::oneTableIsReadWhenTheOtherFails_data()
{
    addPlaces();
}

void TestStoreFailures::oneTableIsReadWhenTheOtherFails()
{
    QVERIFY(m_handler->saveOrganization(idOf(1), text("Sairaala")));
    QVERIFY(m_handler->saveDepartment(idOf(2), text("Keuhkot"), text("Kuja 1")));
    trail();
    QVERIFY(hideTable(text("organization")));
    QMap<UuidString, QString> organizations;
    QMultiMap<UuidString, QString> departments;
    const QString failure = m_handler->getOrganizationInfo(organizations, departments);
    QVERIFY2(failure.contains(text(" | ")), qPrintable(failure));
    QVERIFY(organizations.isEmpty());
    QCOMPARE(departments.values(idOf(2)), (QList<QString>{text("Kuja 1"), text("Keuhkot")}));
    QCOMPARE(trail(), QStringList{text("failed LoadOrganization 16300002: Info from access.supportdb")});
    QVERIFY(!m_handler->getOrganizationInfo(organizations, departments).isEmpty());
}

QTEST_MAIN(TestStoreFailures)
#include "test_storefailures.moc"
