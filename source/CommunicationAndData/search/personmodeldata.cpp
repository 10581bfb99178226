#include "CommunicationAndData/search/personmodeldata.h"

#include "CommunicationAndData/search/searchmodeldata.h"

#include <QStringList>

namespace {

enum NameField { FirstNameField = 1, MiddleNameField = 2, LastNameField = 3 };

}  // namespace

QString PersonModelData::text(int searchKey) const
{
    switch (searchKey) {
    case SearchModelData::FirstName:
        return firstName;
    case SearchModelData::MiddleName:
        return middleName;
    case SearchModelData::LastName:
        return lastName;
    case SearchModelData::PersonalId:
        return personalId;
    case SearchModelData::PersonCode:
        return personCode;
    default:
        return QString();
    }
}

QString PersonModelData::name(const QList<int> &fieldOrder) const
{
    QStringList parts;
    for (const int field : fieldOrder) {
        QString part;
        if (field == FirstNameField)
            part = firstName;
        else if (field == MiddleNameField)
            part = middleName;
        else if (field == LastNameField)
            part = lastName;
        if (!part.isEmpty())
            parts.append(part);
    }
    return parts.join(QLatin1Char(' '));
}
