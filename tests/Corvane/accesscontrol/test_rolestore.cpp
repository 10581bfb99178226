#include "Corvane/accesscontrol/storefixture.h"

namespace {

QString line(const char *action, uint id)
{
    return QStringLiteral("%1 Human : id='%2'. Corvane").arg(text(action)).arg(id);
}

const QString kReadBack = QStringLiteral("LoadRoles Automatic : Corvane checks new operator id");
const QString kLoaded = QStringLiteral("LoadRoles Automatic : Corvane");

}  // namespace

/// Roles in the access tables, wherever these are.
class TestRoleStore : public StoreFixture
{
    Q_OBJECT

private slots:
    void theRolesThatAreThereAreRead_data();
    void theRolesThatAreThereAreRead();
    void aNewRoleTakesTheIdOfItsRow_data();
    void aNewRoleTakesTheIdOfItsRow();
    void aKnownRoleIsChanged_data();
    void aKnownRoleIsChanged();
    void aRoleKeepsAllRights_data();
    void aRoleKeepsAllRights();
    void aDeletedRoleKeepsItsTitleAndItsLinks_data();
    void aDeletedRoleKeepsItsTitleAndItsLinks();
    void savingADeletedRoleMakesItLiveAgain_data();
    void savingADeletedRoleMakesItLiveAgain();
    void aTitleOfADeletedRoleIsInsertedAnew_data();
    void aTitleOfADeletedRoleIsInsertedAnew();
    void ofTwoLiveRolesOfOneTitleTheFirstRowIsRead_data();
    void ofTwoLiveRolesOfOneTitleTheFirstRowIsRead();
    void aRoleThatSomeoneElseDeletedIsDeletedOnceMore_data();
    void aRoleThatSomeoneElseDeletedIsDeletedOnceMore();
    void aRoleWithoutATitleCountsAsFailed_data();
    void aRoleWithoutATitleCountsAsFailed();
    void aRoleThatIsNotStoredCannotBeDeleted_data();
    void aRoleThatIsNotStoredCannotBeDeleted();
    void aRowOfNothingButNullsIsRead_data();
    void aRowOfNothingButNullsIsRead();
    void titlesComeBackAsTheyWere_data();
    void titlesComeBackAsTheyWere();
    void aTitleOfTenThousandCharactersIsKeptWholeOrRefused_data();
    void aTitleOfTenThousandCharactersIsKeptWholeOrRefused();
};

void TestRoleStore::theRolesThatAreThereAreRead_data()
{
    addPlaces();
}

void TestRoleStore::theRolesThatAreThereAreRead()
{
    const QList<Role> roles = m_handler->getRoles();
    QCOMPARE(trail(), QStringList{kLoaded});
    QStringList told;
    for (const Role &role : roles)
        told.append(QStringLiteral("%1 %2").arg(role->roleName()).arg(role->accessTypes()));
    told.sort();
    QCOMPARE(told, (QStringList{text("Admin 4190263"), text("Doctor 331776"), text("Nurse 3633152")}));
    for (const Role &role : roles)
        QCOMPARE(role->roleID(), roleId(role->roleName()));
    QVERIFY(!m_handler->getRoleByTitle(QString()));
    QVERIFY(!m_handler->getRoleByTitle(text("nurse")));
    QVERIFY(trail().isEmpty());
}

void TestRoleStore::aNewRoleTakesTheIdOfItsRow_data()
{
    addPlaces();
}

void TestRoleStore::aNewRoleTakesTheIdOfItsRow()
{
    const Role role = makeRole(text("Fysiologi"), 0x3000);
    QVERIFY(m_handler->saveRole(role));
    QVERIFY(role->roleID() != 0);
    QCOMPARE(trail(), (QStringList{kReadBack, line("AddRole", role->roleID())}));
    QCOMPARE(elsewhere(text("SELECT role_id, actions, deleted FROM roles WHERE title = 'Fysiologi'")),
             QStringList{QStringLiteral("%1|12288|0").arg(role->roleID())});
    QCOMPARE(m_handler->roleToRow(role),
             (QVariantMap{{text("title"), text("Fysiologi")}, {text("actions"), 0x3000}}));
}

void TestRoleStore::aKnownRoleIsChanged_data()
{
    addPlaces();
}

void TestRoleStore::aKnownRoleIsChanged()
{
    const uint id = roleId(text("Nurse"));
    QVERIFY(m_handler->saveRole(makeRole(text("Sairaanhoitaja"), 0x1000, id)));
    QCOMPARE(trail(), QStringList{line("ModifyRole", id)});
    QCOMPARE(elsewhere(text("SELECT title, actions, deleted FROM roles WHERE role_id = %1").arg(id)),
             QStringList{text("Sairaanhoitaja|4096|0")});
    QCOMPARE(m_handler->getRoles().size(), 3);
}

void TestRoleStore::aRoleKeepsAllRights_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<int>("rights");
    StoreFixture::addPlaceRows([](const QString &place, Place where) {
        QTest::newRow(qPrintable(place + text(": none"))) << where << 0;
        QTest::newRow(qPrintable(place + text(": all that there are"))) << where << 4190263;
        QTest::newRow(qPrintable(place + text(": the highest bit but one"))) << where << 0x40000000;
        QTest::newRow(qPrintable(place + text(": every bit"))) << where << -1;
    });
}

void TestRoleStore::aRoleKeepsAllRights()
{
    QFETCH(int, rights);
    QVERIFY(m_handler->saveRole(makeRole(text("Kaikki"), rights)));
    const Role role = m_handler->getRoleByTitle(text("Kaikki"));
    QVERIFY(role);
    QCOMPARE(role->accessTypes(), rights);
}

void TestRoleStore::aDeletedRoleKeepsItsTitleAndItsLinks_data()
{
    addPlaces();
}

void TestRoleStore::aDeletedRoleKeepsItsTitleAndItsLinks()
{
    const uint id = roleId(text("Doctor"));
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(1), text("anna"), {id})));
    trail();
    QVERIFY(m_handler->deleteRole(makeRole(text("another title"), 0, id)));
    QCOMPARE(trail(), QStringList{line("DeleteRole", id)});
    QCOMPARE(elsewhere(text("SELECT title, actions, deleted FROM roles WHERE role_id = %1").arg(id)),
             QStringList{text("Doctor|331776|1")});
    QCOMPARE(elsewhere(text("SELECT role_id FROM operator_roles")), QStringList{QString::number(id)});
    QCOMPARE(m_handler->getRoles().size(), 2);
    QVERIFY(!m_handler->getRoleByTitle(text("Doctor")));
}

void TestRoleStore::savingADeletedRoleMakesItLiveAgain_data()
{
    addPlaces();
}

void TestRoleStore::savingADeletedRoleMakesItLiveAgain()
{
    const Role role = makeRole(text("Doctor"), 4096, roleId(text("Doctor")));
    QVERIFY(m_handler->deleteRole(role));
    QVERIFY(m_handler->saveRole(role));
    QCOMPARE(m_handler->getRoles().size(), 3);
}

void TestRoleStore::aTitleOfADeletedRoleIsInsertedAnew_data()
{
    addPlaces();
}

void TestRoleStore::aTitleOfADeletedRoleIsInsertedAnew()
{
    const Role first = makeRole(text("Tutkija"), 1);
    QVERIFY(m_handler->saveRole(first));
    QVERIFY(m_handler->deleteRole(first));
    const Role second = makeRole(text("Tutkija"), 2);
    QVERIFY(m_handler->saveRole(second));
    QVERIFY(second->roleID() != first->roleID());
    QCOMPARE(elsewhere(text("SELECT actions, deleted FROM roles WHERE title = 'Tutkija' ORDER BY role_id")),
             (QStringList{text("1|1"), text("2|0")}));
}

void TestRoleStore::ofTwoLiveRolesOfOneTitleTheFirstRowIsRead_data()
{
    addPlaces();
}

void TestRoleStore::ofTwoLiveRolesOfOneTitleTheFirstRowIsRead()
{
    const Role first = makeRole(text("Tutkija"), 1);
    const Role second = makeRole(text("Tutkija"), 2);
    QVERIFY(m_handler->saveRole(first));
    QVERIFY(m_handler->saveRole(second));
    const QStringList rows =
        elsewhere(text("SELECT role_id FROM roles WHERE deleted = 0 AND title = 'Tutkija'"));
    QCOMPARE(rows.size(), 2);
    QCOMPARE(QString::number(second->roleID()), rows.first());
}

void TestRoleStore::aRoleThatSomeoneElseDeletedIsDeletedOnceMore_data()
{
    addPlaces();
}

void TestRoleStore::aRoleThatSomeoneElseDeletedIsDeletedOnceMore()
{
    const uint id = roleId(text("Nurse"));
    QVERIFY(elsewhere(text("UPDATE roles SET deleted = 1 WHERE role_id = %1").arg(id)).isEmpty());
    QVERIFY(m_handler->deleteRole(makeRole(text("Nurse"), 0, id)));
    QCOMPARE(trail(), QStringList{line("DeleteRole", id)});
}

void TestRoleStore::aRoleWithoutATitleCountsAsFailed_data()
{
    addPlaces();
}

void TestRoleStore::aRoleWithoutATitleCountsAsFailed()
{
    const Role role = makeRole(text(""), 1);
    QVERIFY(!m_handler->saveRole(role));
    QCOMPARE(trail(), QStringList{text("failed ModifyRole 16300002: Role from access.supportdb")});
    QCOMPARE(role->roleID(), 0u);
    QVERIFY(!m_handler->isConnected());
}

void TestRoleStore::aRoleThatIsNotStoredCannotBeDeleted_data()
{
    addPlaces();
}

void TestRoleStore::aRoleThatIsNotStoredCannotBeDeleted()
{
    QVERIFY(!m_handler->deleteRole(makeRole(text("Nurse"), 1)));
    QCOMPARE(trail(), QStringList{text("failed DeleteRole 16300002: Role from access.supportdb")});
    QCOMPARE(elsewhere(text("SELECT COUNT(*) FROM roles WHERE deleted = 0")), QStringList{text("3")});
}

void TestRoleStore::aRowOfNothingButNullsIsRead_data()
{
    QTest::addColumn<Place>("place");
    QTest::newRow("the encrypted file") << Place::OfflineFile;
}

// Only the table of the encrypted file allows it.
void TestRoleStore::aRowOfNothingButNullsIsRead()
{
    QCOMPARE(elsewhere(text("INSERT INTO roles (deleted) VALUES (0)")), QStringList());
    const QList<Role> roles = m_handler->getRoles();
    QCOMPARE(roles.size(), 4);
    QVERIFY(roles.last()->roleID() > 0);
    QVERIFY(roles.last()->roleName().isEmpty());
    QCOMPARE(roles.last()->accessTypes(), 0);
}

void TestRoleStore::titlesComeBackAsTheyWere_data()
{
    addPlacesAndNames();
}

void TestRoleStore::titlesComeBackAsTheyWere()
{
    QFETCH(QString, name);
    const Role role = makeRole(name, 4096);
    QVERIFY(m_handler->saveRole(role));
    const Role read = m_handler->getRoleByTitle(name);
    QVERIFY(read);
    QCOMPARE(read->roleID(), role->roleID());
    QCOMPARE(read->roleName(), name);
    QVERIFY(m_handler->saveOperator(makeOperator(idOf(1), text("anna"), {role->roleID()})));
    QCOMPARE(m_handler->getOperators().first()->operatorRoleNames(), QStringList{name});
}

void TestRoleStore::aTitleOfTenThousandCharactersIsKeptWholeOrRefused_data()
{
    addPlaces();
}

void TestRoleStore::aTitleOfTenThousandCharactersIsKeptWholeOrRefused()
{
    const QString title = text("äб中x").repeated(2500);
    const Role role = makeRole(title, 1);
    QCOMPARE(m_handler->saveRole(role), !hasWidths());
    if (hasWidths())
        QCOMPARE(trail(), QStringList{text("failed ModifyRole 16300002: Role from access.supportdb")});
    else
        QCOMPARE(m_handler->getRoleByTitle(title)->roleID(), role->roleID());
    QCOMPARE(role->roleName(), title);
}

QTEST_MAIN(TestRoleStore)
#include "test_rolestore.moc"
