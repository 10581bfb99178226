#include "Corvane/accesscontrol/storefixture.h"

#include <QDateTime>

namespace {

const QString kTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm:ss");
const QString kLoadLinks = QStringLiteral("Loading current roles to update operator roles");

QString humanLine(const char *action, const UuidString &id)
{
    return QStringLiteral("%1 Human %2: Corvane").arg(text(action), id.isNull() ? text("") : id.toString());
}

QString foundLine(const UuidString &id)
{
    return QStringLiteral("GetOperator Automatic %1: Corvane check existing username").arg(id.toString());
}

/// What is recorded when an operator was written.
QStringList savedLines(const UuidString &id, const QString &roles)
{
    return {QStringLiteral("LoadOperatorRoles Automatic %1: %2").arg(id.toString(), kLoadLinks),
            QStringLiteral("UpdateOperator Automatic %1: Updating operator roles. Current roles: %2")
                .arg(id.toString(), roles),
            humanLine("AddOperator", id)};
}

}  // namespace

/// Operators in the access tables, wherever these are.
class TestOperatorStore : public StoreFixture
{
    Q_OBJECT

private slots:
    void aNewOperatorIsAdded_data();
    void aNewOperatorIsAdded();
    void aKnownOperatorIsChanged_data();
    void aKnownOperatorIsChanged();
    void anOperatorTakesANewName_data();
    void anOperatorTakesANewName();
    void insertingLeavesTheDateOfCreationNullAndTheFirstUpdateFillsIt_data();
    void insertingLeavesTheDateOfCreationNullAndTheFirstUpdateFillsIt();
    void aWindowsGroupHasANameAlone_data();
    void aWindowsGroupHasANameAlone();
    void aNameOfALiveOperatorIsRefused_data();
    void aNameOfALiveOperatorIsRefused();
    void aNameHeldByADeletedRowDoesNotBlockASave_data();
    void aNameHeldByADeletedRowDoesNotBlockASave();
    void deletingFreesTheNameAndKeepsTheLinks_data();
    void deletingFreesTheNameAndKeepsTheLinks();
    void deletingAnOperatorThatSomeoneElseDeletedFails_data();
    void deletingAnOperatorThatSomeoneElseDeletedFails();
    void deletingAnOperatorWithoutAnIdLeavesTheOthers_data();
    void deletingAnOperatorWithoutAnIdLeavesTheOthers();
    void aLongNameAndTheSuffixMayPassTheWidthOfTheFile_data();
    void aLongNameAndTheSuffixMayPassTheWidthOfTheFile();
    void aRoleDeletedAfterwardsStaysInTheListOfAnOperator_data();
    void aRoleDeletedAfterwardsStaysInTheListOfAnOperator();
    void anEmptyRoleListRemovesAllLinks_data();
    void anEmptyRoleListRemovesAllLinks();
    void aRoleThatIsNotThereIsLinkedAndNotRead_data();
    void aRoleThatIsNotThereIsLinkedAndNotRead();
    void theSecondOfTwoAdministratorsHasTheLastWord_data();
    void theSecondOfTwoAdministratorsHasTheLastWord();
    void savingAnOperatorThatSomeoneElseDeletedFails_data();
    void savingAnOperatorThatSomeoneElseDeletedFails();
    void rowsOfNothingButNullsAreRead_data();
    void rowsOfNothingButNullsAreRead();
    void idsNeedNotBeUuids_data();
    void idsNeedNotBeUuids();
    void namesComeBackAsTheyWere_data();
    void namesComeBackAsTheyWere();
    void aNameOfTenThousandCharactersIsKeptWholeOrRefused_data();
    void aNameOfTenThousandCharactersIsKeptWholeOrRefused();
};

void TestOperatorStore::aNewOperatorIsAdded_data()
{
    addPlaces();
}

void TestOperatorStore::aNewOperatorIsAdded()
{
    const uint nurse = roleId(text("Nurse"));
    const uint admin = roleId(text("Admin"));
    const OperatorModel op = makeOperator(idOf(1), text("anna"), {admin, nurse});
    op->setOrganization({idOf(70), {}});
    QVERIFY(m_handler->saveOperator(op));
    QCOMPARE(trail(), QStringList{humanLine("GetOperator", idOf(1))} +
                          savedLines(idOf(1), QStringLiteral("%1,%2").arg(admin).arg(nurse)));
    QCOMPARE(elsewhere(text("SELECT operator_id, last_name, middle_name, first_name, organization_id, "
                            "department_id, user_id, username, password, salt, deleted, operator_type FROM "
                            "operator")),
             QStringList{QStringLiteral("%1|Äkäslompolo|Kalevi|Yrjö|%2|NULL||anna|hash|salt|0|1")
                             .arg(idOf(1).toString(), idOf(70).toString())});
    const OperatorModel read = m_handler->getOperatorByUsername(text("anna"));
    QVERIFY(read);
    QCOMPARE(trail(), QStringList{foundLine(idOf(1))});
    QCOMPARE(read->operatorID(), idOf(1));
    QCOMPARE(read->operatorType(), 1u);
    QCOMPARE(read->organization(), (MappedStrings{idOf(70), {}}));
    QCOMPARE(read->department(), MappedStrings());
    QCOMPARE(read->passwordHash() + read->salt(), text("hashsalt"));
    QCOMPARE(read->operatorRoleIDList().size(), 2);
    QVERIFY(read->operatorRoleNames().contains(text("Nurse")));
    QVERIFY(read->operatorRoleNames().contains(text("Admin")));
    QCOMPARE(m_handler->getOperators().size(), 1);
    QCOMPARE(trail(), QStringList{humanLine("GetOperator", UuidString())});
}

void TestOperatorStore::aKnownOperatorIsChanged_data()
{
    addPlaces();
}

void TestOperatorStore::aKnownOperatorIsChanged()
{
    const uint doctor = roleId(text("Doctor"));
    const OperatorModel op = makeOperator(idOf(1), text("anna"), {doctor});
    QVERIFY(m_handler->saveOperator(op));
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(2), text("bertta"), {doctor})));
    trail();
    op->setLastName(text("Virtanen"));
    op->setDepartment({idOf(80), {}});
    QVERIFY(m_handler->saveOperator(op));
    QCOMPARE(trail(), QStringList{foundLine(idOf(1))} + savedLines(idOf(1), QString::number(doctor)));
    QCOMPARE(elsewhere(text("SELECT last_name, department_id FROM operator ORDER BY operator_id")),
             (QStringList{text("Virtanen|") + idOf(80).toString(), text("Äkäslompolo|NULL")}));
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM operator_roles")), QStringList{text("2")});
}

void TestOperatorStore::anOperatorTakesANewName_data()
{
    addPlaces();
}

void TestOperatorStore::anOperatorTakesANewName()
{
    const OperatorModel op = makeOperator(idOf(1), text("anna"));
    QVERIFY(m_handler->saveOperator(op));
    trail();
    op->setUsername(text("Anna"));
    QVERIFY(m_handler->saveOperator(op));
    QCOMPARE(trail(), QStringList{humanLine("GetOperator", idOf(1))} + savedLines(idOf(1), QString()));
    QCOMPARE(elsewhere(text("SELECT username FROM operator")), QStringList{text("Anna")});
    QVERIFY(!m_handler->getOperatorByUsername(text("anna")));
    QVERIFY(trail().isEmpty());
}

void TestOperatorStore::insertingLeavesTheDateOfCreationNullAndTheFirstUpdateFillsIt_data()
{
    addPlaces();
}

void TestOperatorStore::insertingLeavesTheDateOfCreationNullAndTheFirstUpdateFillsIt()
{
    const OperatorModel op = makeOperator(idOf(1), text("anna"));
    const QDateTime before = QDateTime::currentDateTimeUtc();
    QVERIFY(m_handler->saveOperator(op));
    const QString dates = text("SELECT CAST(date_created AS CHAR(19)), CAST(date_updated AS CHAR(19)) FROM "
                               "operator");
    QStringList columns = elsewhere(dates).value(0).split(QLatin1Char('|'));
    QCOMPARE(columns.value(0), text("NULL"));
    QDateTime updated = QDateTime::fromString(columns.value(1), kTimeFormat);
    updated.setTimeSpec(Qt::UTC);
    QVERIFY2(updated.isValid(), qPrintable(columns.value(1)));
    QVERIFY(qAbs(before.secsTo(updated)) < 60);

    QVERIFY(m_handler->saveOperator(op));
    columns = elsewhere(dates).value(0).split(QLatin1Char('|'));
    QCOMPARE(columns.value(0), columns.value(1));
    const QVariantMap row = m_handler->operatorToRow(op, false);
    QCOMPARE(row.value(text("date_created")), row.value(text("date_updated")));
    QVERIFY(!m_handler->operatorToRow(op, true).contains(text("date_created")));
}

void TestOperatorStore::aWindowsGroupHasANameAlone_data()
{
    addPlaces();
}

void TestOperatorStore::aWindowsGroupHasANameAlone()
{
    const OperatorModel group = OperatorModel::create(
        idOf(5), QString(), text("HOSPITAL\\NURSES"), QList<uint>(), QStringList(), QString(), QString(),
        QString(), MappedStrings(), MappedStrings(), QString(), QString(), OperatorModelData::WindowsGroup);
    QVERIFY(m_handler->saveOperator(group));
    QCOMPARE(elsewhere(text("SELECT last_name, middle_name, first_name, organization_id, department_id, "
                            "user_id, username, password, salt, operator_type FROM operator")),
             QStringList{text("|||NULL|NULL||HOSPITAL\\NURSES|||2")});
}

void TestOperatorStore::aNameOfALiveOperatorIsRefused_data()
{
    addPlaces();
}

void TestOperatorStore::aNameOfALiveOperatorIsRefused()
{
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(1), text("anna"))));
    trail();
    const OperatorModel second = makeOperator(idOf(2), text("anna"));
    QVERIFY(!m_handler->saveOperator(second));
    QCOMPARE(trailWithoutCauses(),
             (QStringList{foundLine(idOf(1)),
                          text("failed AddOperator 16300002: User from access.supportdb; Error:")}));
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(m_reconnected->size(), 2);
    QCOMPARE(second->username(), text("anna"));
    QCOMPARE(elsewhere(text("SELECT operator_id FROM operator")), QStringList{idOf(1).toString()});
}

void TestOperatorStore::aNameHeldByADeletedRowDoesNotBlockASave_data()
{
    addPlaces();
}

void TestOperatorStore::aNameHeldByADeletedRowDoesNotBlockASave()
{
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(1), text("anna"))));
    QVERIFY(elsewhere(text("UPDATE operator SET deleted = 1")).isEmpty());
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(2), text("anna"))));
    QCOMPARE(elsewhere(text("SELECT operator_id, deleted FROM operator ORDER BY operator_id")),
             (QStringList{idOf(1).toString() + text("|1"), idOf(2).toString() + text("|0")}));
}

void TestOperatorStore::deletingFreesTheNameAndKeepsTheLinks_data()
{
    addPlaces();
}

void TestOperatorStore::deletingFreesTheNameAndKeepsTheLinks()
{
    const OperatorModel op = makeOperator(idOf(1), text("anna"), {roleId(text("Admin"))});
    QVERIFY(m_handler->saveOperator(op));
    trail();
    QVERIFY(m_handler->deleteOperator(op));
    QCOMPARE(trail(), (QStringList{humanLine("GetOperator", idOf(1)), humanLine("DeleteOperator", idOf(1))}));
    QVERIFY2(QRegExp(text("anna_deleted\\d{1,10}")).exactMatch(op->username()), qPrintable(op->username()));
    QCOMPARE(elsewhere(text("SELECT deleted, username FROM operator")),
             QStringList{text("1|") + op->username()});
    QCOMPARE(elsewhere(text("SELECT operator_id FROM operator_roles")), QStringList{idOf(1).toString()});
    QVERIFY(m_handler->getOperators().isEmpty());
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(2), text("anna"))));
    QCOMPARE(m_handler->getOperators().size(), 1);
}

void TestOperatorStore::deletingAnOperatorThatSomeoneElseDeletedFails_data()
{
    addPlaces();
}

void TestOperatorStore::deletingAnOperatorThatSomeoneElseDeletedFails()
{
    const OperatorModel op = makeOperator(idOf(1), text("anna"));
    QVERIFY(m_handler->saveOperator(op));
    QVERIFY(elsewhere(text("UPDATE operator SET deleted = 1, username = 'anna_deleted5'")).isEmpty());
    trail();
    QVERIFY(!m_handler->deleteOperator(op));
    QCOMPARE(trail(), (QStringList{humanLine("GetOperator", idOf(1)),
                                   text("failed DeleteOperator 16300002: User from access.supportdb")}));
    QCOMPARE(op->username(), text("anna"));
    QVERIFY(!m_handler->isConnected());
    QCOMPARE(elsewhere(text("SELECT username FROM operator")), QStringList{text("anna_deleted5")});
}

void TestOperatorStore::deletingAnOperatorWithoutAnIdLeavesTheOthers_data()
{
    addPlaces();
}

void TestOperatorStore::deletingAnOperatorWithoutAnIdLeavesTheOthers()
{
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(1), text("anna"))));
    QVERIFY(!m_handler->deleteOperator(makeOperator(UuidString(), text("nobody"))));
    QCOMPARE(elsewhere(text("SELECT username, deleted FROM operator")), QStringList{text("anna|0")});
}

void TestOperatorStore::aLongNameAndTheSuffixMayPassTheWidthOfTheFile_data()
{
    addPlaces();
}

void TestOperatorStore::aLongNameAndTheSuffixMayPassTheWidthOfTheFile()
{
    const QString name = text("ä").repeated(255);
    const OperatorModel op = makeOperator(idOf(1), name);
    QVERIFY(m_handler->saveOperator(op));
    QVERIFY(m_handler->deleteOperator(op));
    QVERIFY(op->username().size() > 255);
    QCOMPARE(elsewhere(text("SELECT username FROM operator")), QStringList{op->username()});
}

void TestOperatorStore::aRoleDeletedAfterwardsStaysInTheListOfAnOperator_data()
{
    addPlaces();
}

void TestOperatorStore::aRoleDeletedAfterwardsStaysInTheListOfAnOperator()
{
    const uint nurse = roleId(text("Nurse"));
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(1), text("anna"), {nurse})));
    QVERIFY(m_handler->deleteRole(makeRole(text("Nurse"), 0, nurse)));
    const QList<OperatorModel> read = m_handler->getOperators(idOf(1));
    QCOMPARE(read.size(), 1);
    QCOMPARE(read.first()->operatorRoleIDList(), QList<uint>{nurse});
    QCOMPARE(read.first()->operatorRoleNames(), QStringList{text("Nurse")});
}

void TestOperatorStore::anEmptyRoleListRemovesAllLinks_data()
{
    addPlaces();
}

void TestOperatorStore::anEmptyRoleListRemovesAllLinks()
{
    const OperatorModel op = makeOperator(
        idOf(1), text("anna"), {roleId(text("Nurse")), roleId(text("Doctor")), roleId(text("Admin"))});
    QVERIFY(m_handler->saveOperator(op));
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(2), text("bertta"), {roleId(text("Nurse"))})));
    trail();
    op->setOperatorRoleIDList({});
    QVERIFY(m_handler->updateOperatorRoles(op));
    QCOMPARE(trail(), savedLines(idOf(1), QString()).mid(0, 2));
    QCOMPARE(elsewhere(text("SELECT operator_id FROM operator_roles")), QStringList{idOf(2).toString()});
}

void TestOperatorStore::aRoleThatIsNotThereIsLinkedAndNotRead_data()
{
    addPlaces();
}

void TestOperatorStore::aRoleThatIsNotThereIsLinkedAndNotRead()
{
    const uint doctor = roleId(text("Doctor"));
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(1), text("anna"), {987654, doctor})));
    QCOMPARE(elsewhere(text("SELECT role_id FROM operator_roles ORDER BY role_id")),
             (QStringList{QString::number(doctor), text("987654")}));
    QCOMPARE(m_handler->getOperators().first()->operatorRoleIDList(), QList<uint>{doctor});
}

void TestOperatorStore::theSecondOfTwoAdministratorsHasTheLastWord_data()
{
    addPlaces();
}

void TestOperatorStore::theSecondOfTwoAdministratorsHasTheLastWord()
{
    const QString nurse = QString::number(roleId(text("Nurse")));
    const uint admin = roleId(text("Admin"));
    const OperatorModel op = makeOperator(idOf(1), text("anna"));
    QVERIFY(m_handler->saveOperator(op));
    QVERIFY(elsewhere(text("UPDATE operator SET username = 'anni', last_name = 'Muu'")).isEmpty());
    QVERIFY(elsewhere(QStringLiteral("INSERT INTO operator_roles (operator_id, role_id) VALUES ('%1', %2)")
                          .arg(idOf(1).toString(), nurse))
                .isEmpty());
    op->setOperatorRoleIDList({admin});
    QVERIFY(m_handler->saveOperator(op));
    QCOMPARE(elsewhere(text("SELECT username, last_name FROM operator")),
             QStringList{text("anna|Äkäslompolo")});
    QCOMPARE(elsewhere(text("SELECT role_id FROM operator_roles")), QStringList{QString::number(admin)});
}

void TestOperatorStore::savingAnOperatorThatSomeoneElseDeletedFails_data()
{
    addPlaces();
}

void TestOperatorStore::savingAnOperatorThatSomeoneElseDeletedFails()
{
    const OperatorModel op = makeOperator(idOf(1), text("anna"));
    QVERIFY(m_handler->saveOperator(op));
    QVERIFY(elsewhere(text("UPDATE operator SET deleted = 1, username = 'anna_deleted5'")).isEmpty());
    trail();
    QVERIFY(!m_handler->saveOperator(op));
    QCOMPARE(trailWithoutCauses(),
             (QStringList{humanLine("GetOperator", idOf(1)),
                          text("failed AddOperator 16300002: User from access.supportdb; Error:")}));
    QCOMPARE(elsewhere(text("SELECT username, deleted FROM operator")), QStringList{text("anna_deleted5|1")});
}

void TestOperatorStore::rowsOfNothingButNullsAreRead_data()
{
    addPlaces();
}

void TestOperatorStore::rowsOfNothingButNullsAreRead()
{
    QVERIFY(elsewhere(text("INSERT INTO operator (operator_id, deleted, operator_type) VALUES "
                           "('short', 0, 0)"))
                .isEmpty());
    const QList<OperatorModel> read = m_handler->getOperators();
    QCOMPARE(read.size(), 1);
    const OperatorModel op = read.first();
    QCOMPARE(op->operatorID(), UuidString());
    QVERIFY(op->username().isEmpty() && op->lastName().isEmpty() && op->middleName().isEmpty());
    QVERIFY(op->firstName().isEmpty() && op->userID().isEmpty() && op->salt().isEmpty());
    QVERIFY(op->passwordHash().isEmpty() && op->operatorRoleIDList().isEmpty());
    QVERIFY(op->organization().key.isNull() && op->department().key.isNull());
    QVERIFY(!m_handler->getOperatorByUsername(QString()));
    QVERIFY(m_handler->isConnected());
}

void TestOperatorStore::idsNeedNotBeUuids_data()
{
    addPlaces();
}

void TestOperatorStore::idsNeedNotBeUuids()
{
    const UuidString windows(text("234567890-1234567890-1234567890-1001"));
    const UuidString hostile(text("x' OR '1'='1' -- 'aaaaaaaaaaaaaaaaaa"));
    const UuidString foreign(text("ääkköset-ไทย-中文-______________________").left(36));
    const UuidString slashes(text("\\' OR 1=1 -- aaaaaaaaaaaaaaaaaaaaaa\\"));
    int number = 0;
    for (const UuidString &id : {windows, hostile, foreign, slashes}) {
        const uint role = roleId(++number % 2 ? text("Nurse") : text("Admin"));
        QVERIFY(!id.isNull());
        QVERIFY(m_handler->saveOperator(makeOperator(id, QString::number(number), {role})));
        QCOMPARE(m_handler->getOperators(id).size(), 1);
        QCOMPARE(m_handler->getOperators(id).first()->operatorRoleIDList(), QList<uint>{role});
    }
    QVERIFY(m_handler->deleteOperator(makeOperator(hostile, text("2"))));
    QCOMPARE(elsewhere(text("SELECT username FROM operator WHERE deleted = 0 ORDER BY username")),
             (QStringList{text("1"), text("3"), text("4")}));
    QCOMPARE(m_handler->getOperators().size(), 3);
}

void TestOperatorStore::namesComeBackAsTheyWere_data()
{
    addPlacesAndNames();
}

void TestOperatorStore::namesComeBackAsTheyWere()
{
    QFETCH(QString, name);
    const OperatorModel op = makeOperator(idOf(1), name);
    op->setFirstName(name);
    op->setMiddleName(name);
    op->setLastName(name);
    QVERIFY(m_handler->saveOperator(op));
    const OperatorModel read = m_handler->getOperatorByUsername(name);
    QVERIFY(read);
    QCOMPARE(read->username(), name);
    QCOMPARE(read->firstName(), name);
    QCOMPARE(read->middleName(), name);
    QCOMPARE(read->lastName(), name);
    QVERIFY(m_handler->deleteOperator(op));
    QVERIFY(m_handler->getOperators().isEmpty());
}

void TestOperatorStore::aNameOfTenThousandCharactersIsKeptWholeOrRefused_data()
{
    addPlaces();
}

void TestOperatorStore::aNameOfTenThousandCharactersIsKeptWholeOrRefused()
{
    const QString name = text("äб中x").repeated(2500);
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(1), text("anna"))));
    trail();
    const OperatorModel op = makeOperator(idOf(1), name);
    QCOMPARE(m_handler->saveOperator(op), !hasWidths());
    if (hasWidths()) {
        QCOMPARE(trailWithoutCauses().last(),
                 text("failed AddOperator 16300002: User from access.supportdb; Error:"));
        QVERIFY(!m_handler->isConnected());
    }
    QCOMPARE(elsewhere(text("SELECT username FROM operator")),
             QStringList{hasWidths() ? text("anna") : name});
    QCOMPARE(op->username(), name);
}

QTEST_MAIN(TestOperatorStore)
#include "test_operatorstore.moc"
