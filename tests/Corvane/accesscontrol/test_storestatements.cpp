#include "Corvane/accesscontrol/accesscontrolview.h"
#include "Corvane/accesscontrol/statementwatch.h"
#include "Corvane/accesscontrol/storefixture.h"

namespace {

const QString kId = QStringLiteral("000000000000000000000000000000000001");
const QString kByName = QStringLiteral("SELECT * FROM operator WHERE deleted = 0 AND username = ?");
const QString kById = QStringLiteral("SELECT * FROM operator WHERE deleted = 0 AND operator_id = ?");
const QString kOperators = QStringLiteral("SELECT * FROM operator WHERE deleted = 0");
const QString kJoin = QStringLiteral("SELECT * FROM operator_roles INNER JOIN roles on roles.role_id = "
                                     "operator_roles.role_id WHERE operator_id ='%1'");
const QString kLinks = QStringLiteral("SELECT * from operator_roles WHERE operator_id = ?");
const QString kRemoveLink =
    QStringLiteral("DELETE from operator_roles WHERE operator_id = ? AND role_id = ?");
const QString kAddLink = QStringLiteral("INSERT INTO operator_roles (operator_id,role_id) VALUES (?, ?)");
const QString kInsert = QStringLiteral(
    "INSERT INTO operator (date_updated,deleted,department_id,first_name,last_name,middle_name,operator_id,"
    "operator_type,organization_id,password,salt,user_id,username) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
    "?, ?)");
const QString kUpdate = QStringLiteral(
    "UPDATE operator SET date_created = ?, date_updated = ?, deleted = ?, department_id = ?, first_name = ?, "
    "last_name = ?, middle_name = ?, operator_id = ?, operator_type = ?, organization_id = ?, password = ?, "
    "salt = ?, user_id = ?, username = ? WHERE operator_id = ?");
const QString kDelete = QStringLiteral("UPDATE operator SET deleted = ?, username = ? WHERE operator_id = ?");
const QString kRoles = QStringLiteral("SELECT * FROM roles WHERE deleted = 0");
const QString kRole = QStringLiteral("SELECT * FROM roles WHERE deleted = 0 AND title = ?");
const QString kInsertRole = QStringLiteral("INSERT INTO roles (actions,deleted,title) VALUES (?, ?, ?)");
const QString kUpdateRole =
    QStringLiteral("UPDATE roles SET actions = ?, deleted = ?, title = ? WHERE role_id = ?");
const QString kDeleteRole = QStringLiteral("UPDATE roles SET deleted = ? WHERE role_id = ?");

OperatorModel anna(const QList<uint> &roles)
{
    return makeOperator(kId, text("anna"), roles);
}

/// The statement alone, for values that differ from run to run.
QString withoutValues(const QString &line)
{
    return line.section(text(" | "), 0, 0);
}

QStringList withoutValues(QStringList lines)
{
    for (QString &line : lines)
        line = withoutValues(line);
    return lines;
}

}  // namespace

/// Which statements the stores send, in which order.
class TestStoreStatements : public StoreFixture
{
    Q_OBJECT

private slots:
    void aNewOperatorTakesSixStatements_data();
    void aNewOperatorTakesSixStatements();
    void aSaveOfUnchangedRolesOnlySelectsTheLinks_data();
    void aSaveOfUnchangedRolesOnlySelectsTheLinks();
    void allLinksGoInOneTransaction_data();
    void allLinksGoInOneTransaction();
    void linksAreComparedByTheirDifference_data();
    void linksAreComparedByTheirDifference();
    void operatorsAreReadWithOneStatementEachForTheirRoles_data();
    void operatorsAreReadWithOneStatementEachForTheirRoles();
    void anOperatorWithoutAnIdIsAddedToNoOthers_data();
    void anOperatorWithoutAnIdIsAddedToNoOthers();
    void anUpdateByTwoColumnsIsRefused_data();
    void anUpdateByTwoColumnsIsRefused();
    void anOperatorIsDeletedByAnUpdate_data();
    void anOperatorIsDeletedByAnUpdate();
    void rolesAreKeptByTheseStatements_data();
    void rolesAreKeptByTheseStatements();
    void organisationsAndDepartmentsAreKeptByTheseStatements_data();
    void organisationsAndDepartmentsAreKeptByTheseStatements();
    void aRefreshOfTheViewTakesOneStatementAUserAndFourMore_data();
    void aRefreshOfTheViewTakesOneStatementAUserAndFourMore();

private:
    StatementWatch m_watch;
};

void TestStoreStatements::aNewOperatorTakesSixStatements_data()
{
    addPlaces();
}

void TestStoreStatements::aNewOperatorTakesSixStatements()
{
    m_watch.take();
    QVERIFY(m_handler->saveOperator(anna({7, 3})));
    const QStringList lines = m_watch.take();
    QCOMPARE(withoutValues(lines), (QStringList{kByName, kById, kInsert, kLinks, text("BEGIN"), kAddLink,
                                                kAddLink, text("COMMIT")}));
    QCOMPARE(lines.at(0), kByName + text(" | anna"));
    QCOMPARE(lines.at(1), kById + text(" | ") + kId);
    QVERIFY2(
        lines.at(2).endsWith(QStringLiteral(" | 0 | NULL | Yrjö | Äkäslompolo | Kalevi | %1 | 1 | NULL | "
                                            "hash | salt |  | anna")
                                 .arg(kId)),
        qPrintable(lines.at(2)));
    QCOMPARE(lines.at(5), kAddLink + QStringLiteral(" | %1 | 7").arg(kId));
    QCOMPARE(lines.at(6), kAddLink + QStringLiteral(" | %1 | 3").arg(kId));
}

void TestStoreStatements::aSaveOfUnchangedRolesOnlySelectsTheLinks_data()
{
    addPlaces();
}

void TestStoreStatements::aSaveOfUnchangedRolesOnlySelectsTheLinks()
{
    QVERIFY(m_handler->saveOperator(anna({7, 3})));
    m_watch.take();
    trail();
    QVERIFY(m_handler->updateOperatorRoles(anna({3, 7})));
    QCOMPARE(m_watch.take(), QStringList{kLinks + text(" | ") + kId});
    QCOMPARE(
        trail().last(),
        QStringLiteral("UpdateOperator Automatic %1: Updating operator roles. Current roles: 3,7").arg(kId));
    QVERIFY(m_handler->saveOperator(anna({7, 3})));
    QCOMPARE(withoutValues(m_watch.take()), (QStringList{kByName, kJoin.arg(kId), kUpdate, kLinks}));
}

void TestStoreStatements::allLinksGoInOneTransaction_data()
{
    addPlaces();
}

void TestStoreStatements::allLinksGoInOneTransaction()
{
    QVERIFY(m_handler->saveOperator(anna({7, 3})));
    m_watch.take();
    QVERIFY(m_handler->updateOperatorRoles(anna({})));
    QCOMPARE(withoutValues(m_watch.take()),
             (QStringList{kLinks, text("BEGIN"), kRemoveLink, kRemoveLink, text("COMMIT")}));
}

void TestStoreStatements::linksAreComparedByTheirDifference_data()
{
    addPlaces();
}

void TestStoreStatements::linksAreComparedByTheirDifference()
{
    QVERIFY(m_handler->saveOperator(anna({7, 3, 5})));
    m_watch.take();
    QVERIFY(m_handler->updateOperatorRoles(anna({9, 3, 8})));
    QCOMPARE(m_watch.take(), (QStringList{kLinks + text(" | ") + kId, text("BEGIN"),
                                          kRemoveLink + QStringLiteral(" | %1 | 7").arg(kId),
                                          kRemoveLink + QStringLiteral(" | %1 | 5").arg(kId),
                                          kAddLink + QStringLiteral(" | %1 | 9").arg(kId),
                                          kAddLink + QStringLiteral(" | %1 | 8").arg(kId), text("COMMIT")}));
}

void TestStoreStatements::operatorsAreReadWithOneStatementEachForTheirRoles_data()
{
    addPlaces();
}

void TestStoreStatements::operatorsAreReadWithOneStatementEachForTheirRoles()
{
    QVERIFY(m_handler->saveOperator(anna({})));
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(2), text("bertta"))));
    m_watch.take();
    QCOMPARE(m_handler->getOperators().size(), 2);
    QStringList lines = m_watch.take();
    QCOMPARE(lines.takeFirst(), kOperators);
    lines.sort();
    QCOMPARE(lines, (QStringList{kJoin.arg(kId), kJoin.arg(idOf(2).toString())}));
    QCOMPARE(m_handler->getOperators(kId).size(), 1);
    QCOMPARE(m_watch.take(), (QStringList{kById + text(" | ") + kId, kJoin.arg(kId)}));
}

void TestStoreStatements::anOperatorWithoutAnIdIsAddedToNoOthers_data()
{
    addPlaces();
}

// Asking for no operator in particular finds any: the first save adds a row, and the later ones change it.
void TestStoreStatements::anOperatorWithoutAnIdIsAddedToNoOthers()
{
    const QString nil = UuidString().toString();
    const QStringList saved{text("GetOperator Human : Corvane"),
                            text("LoadOperatorRoles Automatic : Loading current roles to update operator "
                                 "roles"),
                            text("UpdateOperator Automatic : Updating operator roles. Current roles: "),
                            text("AddOperator Human : Corvane")};
    trail();
    m_watch.take();
    QVERIFY(m_handler->saveOperator(makeOperator(UuidString(), text("nobody"))));
    QCOMPARE(withoutValues(m_watch.take()), (QStringList{kByName, kOperators, kInsert, kLinks}));
    QCOMPARE(trail(), saved);
    QVERIFY(m_handler->saveOperator(makeOperator(UuidString(), text("somebody"))));
    QCOMPARE(withoutValues(m_watch.take()),
             (QStringList{kByName, kOperators, kJoin.arg(nil), kUpdate, kLinks}));
    trail();

    QVERIFY(elsewhere(text("DELETE FROM operator")).isEmpty());
    QVERIFY(m_handler->saveOperator(anna({})));
    m_watch.take();
    trail();
    QVERIFY(m_handler->saveOperator(makeOperator(UuidString(), text("nobody"))));
    QCOMPARE(withoutValues(m_watch.take()),
             (QStringList{kByName, kOperators, kJoin.arg(kId), kUpdate, kLinks}));
    QCOMPARE(trail(), saved);
    QCOMPARE(elsewhere(text("SELECT operator_id, username FROM operator")), QStringList{kId + text("|anna")});
}

void TestStoreStatements::anUpdateByTwoColumnsIsRefused_data()
{
    addPlaces();
}

// A comma stands between the columns of the condition, which no database understands.
void TestStoreStatements::anUpdateByTwoColumnsIsRefused()
{
    QVERIFY(m_handler->saveOperator(anna({})));
    const QVariantMap change{{text("last_name"), text("Nieminen")}};
    QVERIFY(!m_handler->updateRow(text("operator"), change,
                                  {{text("operator_id"), kId}, {text("username"), text("anna")}}));
    QCOMPARE(elsewhere(text("SELECT last_name FROM operator")), QStringList{text("Äkäslompolo")});
    QVERIFY(m_handler->updateRow(text("operator"), change, {{text("operator_id"), kId}}));
    QCOMPARE(elsewhere(text("SELECT last_name FROM operator")), QStringList{text("Nieminen")});
}

void TestStoreStatements::anOperatorIsDeletedByAnUpdate_data()
{
    addPlaces();
}

void TestStoreStatements::anOperatorIsDeletedByAnUpdate()
{
    const OperatorModel op = anna({});
    QVERIFY(m_handler->saveOperator(op));
    m_watch.take();
    QVERIFY(m_handler->deleteOperator(op));
    QCOMPARE(m_watch.take(),
             (QStringList{kById + text(" | ") + kId, kJoin.arg(kId),
                          kDelete + QStringLiteral(" | 1 | %1 | %2").arg(op->username(), kId)}));
}

void TestStoreStatements::rolesAreKeptByTheseStatements_data()
{
    addPlaces();
}

void TestStoreStatements::rolesAreKeptByTheseStatements()
{
    m_watch.take();
    const Role role = makeRole(text("Tutkija"), 5);
    QVERIFY(m_handler->saveRole(role));
    const QString id = QString::number(role->roleID());
    QVERIFY(m_handler->saveRole(role));
    QVERIFY(m_handler->deleteRole(role));
    m_handler->getRoles();
    QCOMPARE(m_watch.take(),
             (QStringList{kInsertRole + text(" | 5 | 0 | Tutkija"), kRole + text(" | Tutkija"),
                          kUpdateRole + text(" | 5 | 0 | Tutkija | ") + id,
                          kDeleteRole + text(" | 1 | ") + id, kRoles}));
}

void TestStoreStatements::organisationsAndDepartmentsAreKeptByTheseStatements_data()
{
    addPlaces();
}

void TestStoreStatements::organisationsAndDepartmentsAreKeptByTheseStatements()
{
    m_watch.take();
    QVERIFY(m_handler->saveOrganization(kId, text("A")));
    QVERIFY(m_handler->saveOrganization(kId, text("B")));
    QCOMPARE(m_watch.take(),
             (QStringList{
                 text("SELECT 1 FROM organization WHERE id = ? | ") + kId,
                 text("INSERT INTO organization (deleted,id,name) VALUES (?, ?, ?) | 0 | %1 | A").arg(kId),
                 text("SELECT 1 FROM organization WHERE id = ? | ") + kId,
                 text("UPDATE organization SET deleted = ?, name = ? WHERE id = ? | 0 | B | ") + kId}));
    QVERIFY(m_handler->saveDepartment(kId, text("A"), text("B")));
    QVERIFY(m_handler->saveDepartment(kId, text("A"), QString()));
    QCOMPARE(
        m_watch.take(),
        (QStringList{
            text("SELECT 1 FROM department WHERE id = ? | ") + kId,
            text("INSERT INTO department (address,deleted,id,name) VALUES (?, ?, ?, ?) | B | 0 | %1 | A")
                .arg(kId),
            text("SELECT 1 FROM department WHERE id = ? | ") + kId,
            text("UPDATE department SET address = ?, deleted = ?, name = ? WHERE id = ? | NULL | 0 | A | ") +
                kId}));
    QVERIFY(m_handler->deleteDepartment(kId));
    QVERIFY(m_handler->deleteOrganization(kId));
    QMap<UuidString, QString> organizations;
    QMultiMap<UuidString, QString> departments;
    m_handler->getOrganizationInfo(organizations, departments);
    QCOMPARE(withoutValues(m_watch.take()),
             (QStringList{text("SELECT 1 FROM department WHERE id = ?"),
                          text("UPDATE department SET deleted = ?, name = ? WHERE id = ?"),
                          text("SELECT 1 FROM organization WHERE id = ?"),
                          text("UPDATE organization SET deleted = ?, name = ? WHERE id = ?"),
                          text("SELECT * FROM organization WHERE deleted = 0"),
                          text("SELECT * FROM department WHERE deleted = 0")}));
}

void TestStoreStatements::aRefreshOfTheViewTakesOneStatementAUserAndFourMore_data()
{
    addPlaces();
}

void TestStoreStatements::aRefreshOfTheViewTakesOneStatementAUserAndFourMore()
{
    QStringList expected{kRoles, kOperators};
    for (int i = 1; i <= 5; ++i) {
        QVERIFY(m_handler->saveOperator(makeOperator(idOf(i), QString::number(i), {roleId(text("Nurse"))})));
        QVERIFY(m_handler->saveDepartment(idOf(i), QString::number(i), QString()));
        expected.append(kJoin.arg(idOf(i).toString()));
    }
    AccesscontrolView view(m_handler.get(), nullptr);
    m_watch.take();
    view.resetTables();
    QStringList lines = m_watch.take();
    expected << text("SELECT * FROM organization WHERE deleted = 0")
             << text("SELECT * FROM department WHERE deleted = 0");
    lines.sort();
    expected.sort();
    QCOMPARE(lines, expected);
    // Going from table to table reads nothing.
    for (int index : {1, 2, 3, 0})
        view.changeView(index);
    view.updateButtonStates();
    QCOMPARE(m_watch.take(), QStringList());
}

QTEST_MAIN(TestStoreStatements)
#include "test_storestatements.moc"
