#include "Corvane/accesscontrol/userfixture.h"

#include "CommunicationAndData/access/passwordhelper.h"

const UuidString kEastClinic(QStringLiteral("11111111-0000-0000-0000-000000000000"));
const UuidString kWestClinic(QStringLiteral("22222222-0000-0000-0000-000000000000"));
const UuidString kSurgery(QStringLiteral("33333333-0000-0000-0000-000000000000"));
const UuidString kOncology(QStringLiteral("44444444-0000-0000-0000-000000000000"));

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

AccessUserWizard::Organizations organizations()
{
    return {{kEastClinic, text("East Clinic")}, {kWestClinic, text("West Clinic")}};
}

AccessUserWizard::Departments departments()
{
    AccessUserWizard::Departments departments;
    departments.insert(kSurgery, text("Surgery"));
    departments.insert(kSurgery, text("1 Knife Street"));
    departments.insert(kOncology, text("Oncology"));
    departments.insert(kOncology, text("2 Ray Street"));
    return departments;
}

OperatorModel storedOperator(uint type, const QString &username)
{
    const bool internal = type == OperatorModelData::InternalUser;
    const QString salt = internal ? text("abcdefghijklmnop") : text("");
    const QString hash = internal ? PasswordHelper::hashPassword(text("secret"), salt) : text("");
    return OperatorModel::create(UuidString(text("55555555-0000-0000-0000-000000000000")), text("u7"),
                                 username, QList<uint>{1, 2}, QStringList{text("Nurse"), text("Doctor")},
                                 text("Ada"), text("King"), text("Lovelace"), MappedStrings{kWestClinic, {}},
                                 MappedStrings{kOncology, {}}, hash, salt, type);
}

QStringList valuesOf(const OperatorModel &oper)
{
    QStringList values{oper->operatorID().toString(),
                       oper->userID(),
                       oper->username(),
                       oper->firstName(),
                       oper->middleName(),
                       oper->lastName(),
                       oper->passwordHash(),
                       oper->salt(),
                       oper->organization().key.toString(),
                       oper->department().key.toString()};
    values.append(oper->organization().values);
    values.append(oper->department().values);
    for (uint role : oper->operatorRoleIDList())
        values.append(QString::number(role));
    values.append(QString::number(oper->operatorType()));
    return values;
}

int edit(AccessUser &button, const QList<EditorSteps::Step> &steps, bool showRemove)
{
    const EditorSteps run(steps);
    const int result = button.editOperator(organizations(), departments(), showRemove);
    return run.areDone() ? result : -1;
}

OperatorModel newInternalUser(const QList<EditorSteps::Step> &steps)
{
    const EditorSteps run(steps);
    const OperatorModel oper = AccessUserWizard::newInternalUser(organizations(), departments());
    if (!run.areDone())
        qFatal("Not all steps were done");
    return oper;
}
