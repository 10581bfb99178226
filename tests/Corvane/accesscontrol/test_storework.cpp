#include "Corvane/accesscontrol/storefixture.h"

#include <QRandomGenerator>

#include <algorithm>

namespace {

constexpr quint32 kSeed = 20260228;
constexpr int kSteps = 60;
constexpr int kIds = 10;

struct KnownOperator
{
    QString name;
    QString lastName;
    QList<uint> roles;

    bool operator==(const KnownOperator &other) const
    {
        return name == other.name && lastName == other.lastName && roles == other.roles;
    }
};

QStringList told(const QMap<UuidString, KnownOperator> &operators)
{
    QStringList lines;
    for (auto it = operators.begin(); it != operators.end(); ++it) {
        QStringList roles;
        for (uint role : it->roles)
            roles.append(QString::number(role));
        lines.append(
            QStringList{it.key().toString(), it->name, it->lastName, roles.join(QLatin1Char(','))}.join(
                QLatin1Char('|')));
    }
    return lines;
}

}  // namespace

/// A long day's work of two administrators, in an order that nobody has thought of: after each step the
/// tables hold what was entered, no more and no less.
class TestStoreWork : public StoreFixture
{
    Q_OBJECT

private slots:
    void init();
    void aDaysWorkLeavesWhatWasEntered_data();
    void aDaysWorkLeavesWhatWasEntered();

private:
    int pick(int count)
    {
        return static_cast<int>(m_random.bounded(static_cast<quint32>(count)));
    }
    QString pickName();
    QList<uint> pickRoles();
    void saveOperator();
    void deleteOperator();
    void deleteElsewhere();
    void addRole();
    void saveOrganization();
    void deleteOrganization();
    void compare();
    void reconnect();

    QRandomGenerator m_random;
    QMap<UuidString, KnownOperator> m_operators;
    QSet<QString> m_deleted;  ///< ids of rows that are there, and not live
    QMap<uint, QString> m_roles;
    QMap<UuidString, QString> m_organizations;
};

void TestStoreWork::init()
{
    StoreFixture::init();
    m_random.seed(kSeed);
    m_operators.clear();
    m_deleted.clear();
    m_roles.clear();
    m_organizations.clear();
}

QString TestStoreWork::pickName()
{
    const auto names = difficultNames();
    return names.at(pick(names.size())).second;
}

QList<uint> TestStoreWork::pickRoles()
{
    QList<uint> roles;
    for (uint role : m_roles.keys()) {
        if (pick(2) == 0)
            roles.append(role);
    }
    return roles;
}

void TestStoreWork::saveOperator()
{
    const UuidString id = idOf(pick(kIds) + 1);
    const KnownOperator wanted{pickName(), QString::number(pick(100)), pickRoles()};
    bool accepted = !m_deleted.contains(id.toString());
    for (auto it = m_operators.begin(); it != m_operators.end(); ++it)
        accepted = accepted && (it.key() == id || it->name != wanted.name);
    const OperatorModel op = makeOperator(id, wanted.name, wanted.roles);
    op->setLastName(wanted.lastName);
    QCOMPARE(m_handler->saveOperator(op), accepted);
    if (accepted)
        m_operators.insert(id, wanted);
}

void TestStoreWork::deleteOperator()
{
    const UuidString id = idOf(pick(kIds) + 1);
    const bool live = m_operators.contains(id);
    QCOMPARE(m_handler->deleteOperator(makeOperator(id, m_operators.value(id).name)), live);
    if (m_operators.remove(id) > 0)
        m_deleted.insert(id.toString());
}

void TestStoreWork::deleteElsewhere()
{
    if (m_operators.isEmpty())
        return;
    const UuidString id = m_operators.keys().at(pick(m_operators.size()));
    QCOMPARE(elsewhere(text("UPDATE operator SET deleted = 1 WHERE operator_id = ?"), {id.toString()}),
             QStringList());
    m_operators.remove(id);
    m_deleted.insert(id.toString());
}

void TestStoreWork::addRole()
{
    const QString title = QStringLiteral("%1 %2").arg(pickName()).arg(m_roles.size());
    const Role role = makeRole(title, pick(0x1000));
    QVERIFY(m_handler->saveRole(role));
    QVERIFY(!m_roles.contains(role->roleID()));
    m_roles.insert(role->roleID(), title);
}

void TestStoreWork::saveOrganization()
{
    const UuidString id = idOf(pick(kIds) + 1);
    const QString name = pickName();
    bool accepted = true;
    for (auto it = m_organizations.begin(); it != m_organizations.end(); ++it)
        accepted = accepted && (it.key() == id || it.value() != name);
    QCOMPARE(m_handler->saveOrganization(id, name), accepted);
    if (accepted)
        m_organizations.insert(id, name);
}

void TestStoreWork::deleteOrganization()
{
    const UuidString id = idOf(pick(kIds) + 1);
    const bool exists = m_handler->organizationExists(id);
    QVERIFY(exists || !m_organizations.contains(id));
    QCOMPARE(m_handler->deleteOrganization(id), exists);
    m_organizations.remove(id);
}

void TestStoreWork::compare()
{
    QMap<UuidString, KnownOperator> stored;
    for (const OperatorModel &op : m_handler->getOperators()) {
        QList<uint> roles = op->operatorRoleIDList();
        std::sort(roles.begin(), roles.end());
        QVERIFY(!stored.contains(op->operatorID()));
        stored.insert(op->operatorID(), {op->username(), op->lastName(), roles});
    }
    QCOMPARE(told(stored), told(m_operators));
    QMap<uint, QString> roles;
    for (const Role &role : m_handler->getRoles())
        roles.insert(role->roleID(), role->roleName());
    QCOMPARE(roles, m_roles);
    QMap<UuidString, QString> organizations;
    QMultiMap<UuidString, QString> departments;
    QCOMPARE(m_handler->getOrganizationInfo(organizations, departments), QString());
    QCOMPARE(organizations, m_organizations);
}

/// What was refused has dropped the connection.
void TestStoreWork::reconnect()
{
    QVERIFY(m_handler->isConnected() || connectHandler());
}

void TestStoreWork::aDaysWorkLeavesWhatWasEntered_data()
{
    addPlaces();
}

void TestStoreWork::aDaysWorkLeavesWhatWasEntered()
{
    for (const Role &role : m_handler->getRoles())
        m_roles.insert(role->roleID(), role->roleName());
    using Step = void (TestStoreWork::*)();
    const QList<Step> steps{&TestStoreWork::saveOperator,      &TestStoreWork::saveOperator,
                            &TestStoreWork::saveOperator,      &TestStoreWork::deleteOperator,
                            &TestStoreWork::deleteElsewhere,   &TestStoreWork::addRole,
                            &TestStoreWork::saveOrganization,  &TestStoreWork::saveOrganization,
                            &TestStoreWork::deleteOrganization};
    for (int i = 0; i < kSteps && !QTest::currentTestFailed(); ++i) {
        (this->*steps.at(pick(steps.size())))();
        reconnect();
        compare();
    }
    QVERIFY(m_handler->isConnected());
}

QTEST_MAIN(TestStoreWork)
#include "test_storework.moc"
