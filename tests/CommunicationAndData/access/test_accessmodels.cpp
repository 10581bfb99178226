#include "CommunicationAndData/access/accessrolemodeldata.h"
#include "CommunicationAndData/access/accesstype.h"
#include "CommunicationAndData/access/operatormodeldata.h"

#include <QTest>

namespace {

const QString kId = QStringLiteral("0f8fad5b-d9cb-469f-a165-70867728950e");
const QString kOtherId = QStringLiteral("7d444840-9dc0-11d1-b245-5ffdce74fad2");

OperatorModel nurse()
{
    return OperatorModel::create(
        UuidString(kId), "u7", "nurse", QList<uint>{1, 2}, QStringList{"Nurse", "Doctor"}, "Ann", "B.",
        "Carter", MappedStrings{UuidString(kId), {"Ward"}},
        MappedStrings{UuidString(kOtherId), {"Lungs", "Street 1"}}, "hash", "salt", 1U);
}

}  // namespace

class TestAccessModels : public QObject
{
    Q_OBJECT

private slots:
    void operatorHoldsWhatItIsGiven();
    void operatorFieldsCanBeSet();
    void organizationAndDepartmentAreReferences();
    void roleHoldsWhatItIsGiven();
    void roleFieldsCanBeSet();
    void roleNameIsASlot();
    void rightsAreTheStoredBits_data();
    void rightsAreTheStoredBits();
};

void TestAccessModels::operatorHoldsWhatItIsGiven()
{
    const OperatorModel model = nurse();
    QCOMPARE(model->operatorID(), UuidString(kId));
    QCOMPARE(model->userID(), QStringLiteral("u7"));
    QCOMPARE(model->username(), QStringLiteral("nurse"));
    QCOMPARE(model->operatorRoleIDList(), QList<uint>({1, 2}));
    QCOMPARE(model->operatorRoleNames(), QStringList({"Nurse", "Doctor"}));
    QCOMPARE(model->firstName(), QStringLiteral("Ann"));
    QCOMPARE(model->middleName(), QStringLiteral("B."));
    QCOMPARE(model->lastName(), QStringLiteral("Carter"));
    QCOMPARE(model->organization().values, QStringList(QStringLiteral("Ward")));
    QCOMPARE(model->department().values, QStringList({"Lungs", "Street 1"}));
    QCOMPARE(model->passwordHash(), QStringLiteral("hash"));
    QCOMPARE(model->salt(), QStringLiteral("salt"));
    QCOMPARE(model->operatorType(), 1U);
}

void TestAccessModels::operatorFieldsCanBeSet()
{
    const OperatorModel model = nurse();
    model->setOperatorID(UuidString(kOtherId));
    model->setUsername(QStringLiteral("doctor"));
    model->setFirstName(QStringLiteral("D"));
    model->setMiddleName(QStringLiteral("E"));
    model->setLastName(QStringLiteral("F"));
    model->setOrganization(MappedStrings());
    model->setDepartment(MappedStrings{UuidString(kId), {}});
    model->setPasswordHash(QStringLiteral("other hash"));
    model->setSalt(QStringLiteral("other salt"));
    model->setOperatorType(OperatorModelData::WindowsGroup);
    model->setOperatorRoleIDList({9});
    model->setOperatorRoleNames({QStringLiteral("Admin")});

    QCOMPARE(model->operatorID(), UuidString(kOtherId));
    QCOMPARE(model->userID(), QStringLiteral("u7"));
    QCOMPARE(model->username(), QStringLiteral("doctor"));
    QCOMPARE(model->firstName() + model->middleName() + model->lastName(), QStringLiteral("DEF"));
    QVERIFY(model->organization().key.isNull());
    QCOMPARE(model->department().key, UuidString(kId));
    QCOMPARE(model->passwordHash(), QStringLiteral("other hash"));
    QCOMPARE(model->salt(), QStringLiteral("other salt"));
    QCOMPARE(model->operatorType(), 2U);
    QCOMPARE(model->operatorRoleIDList(), QList<uint>({9}));
    QCOMPARE(model->operatorRoleNames(), QStringList(QStringLiteral("Admin")));
}

void TestAccessModels::organizationAndDepartmentAreReferences()
{
    const OperatorModel model = nurse();
    model->organization().values = QStringList{"Clinic"};
    model->department().key = UuidString();
    QCOMPARE(model->organization().values, QStringList(QStringLiteral("Clinic")));
    QVERIFY(model->department().key.isNull());
}

void TestAccessModels::roleHoldsWhatItIsGiven()
{
    const AccessRoleModelData role(7, QStringLiteral("Nurse"), 3633152);
    QCOMPARE(role.roleID(), 7U);
    QCOMPARE(role.roleName(), QStringLiteral("Nurse"));
    QCOMPARE(role.accessTypes(), 0x377000);
}

void TestAccessModels::roleFieldsCanBeSet()
{
    AccessRoleModelData role(0, QString(), 0);
    role.setRoleID(8);
    role.setRoleName(QStringLiteral("Doctor"));
    role.setAccessTypes(331776);
    QCOMPARE(role.roleID(), 8U);
    QCOMPARE(role.roleName(), QStringLiteral("Doctor"));
    QCOMPARE(role.accessTypes(), 0x51000);
}

void TestAccessModels::roleNameIsASlot()
{
    AccessRoleModelData role(0, QString(), 0);
    QVERIFY(QMetaObject::invokeMethod(&role, "setRoleName", Q_ARG(QString, QStringLiteral("Admin"))));
    QCOMPARE(role.roleName(), QStringLiteral("Admin"));
}

void TestAccessModels::rightsAreTheStoredBits_data()
{
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("bit");

    QTest::newRow("access control management") << int(AccessControlManagement) << 0;
    QTest::newRow("write local database settings") << int(WriteLocalDbSettings) << 1;
    QTest::newRow("audit trail management") << int(AuditTrailManagement) << 2;
    QTest::newRow("distribute settings") << int(DistributeSettings) << 4;
    QTest::newRow("download settings") << int(DownloadSettings) << 5;
    QTest::newRow("read person") << int(ReadPerson) << 12;
    QTest::newRow("create person") << int(CreatePerson) << 13;
    QTest::newRow("modify person") << int(ModifyPerson) << 14;
    QTest::newRow("delete person") << int(DeletePerson) << 15;
    QTest::newRow("read study") << int(ReadStudy) << 16;
    QTest::newRow("create study") << int(CreateStudy) << 17;
    QTest::newRow("modify study") << int(ModifyStudy) << 18;
    QTest::newRow("delete study") << int(DeleteStudy) << 19;
    QTest::newRow("import") << int(ImportData) << 20;
    QTest::newRow("export") << int(ExportData) << 21;
}

void TestAccessModels::rightsAreTheStoredBits()
{
    QFETCH(int, right);
    QFETCH(int, bit);
    QCOMPARE(right, 1 << bit);
    QVERIFY(4190263 & right);
}

QTEST_GUILESS_MAIN(TestAccessModels)
#include "test_accessmodels.moc"
