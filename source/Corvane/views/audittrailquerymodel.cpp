#include "Corvane/views/audittrailquerymodel.h"

#include "ZephanShared/toolkit/actions.h"
#include "ZephanShared/widgets/dateformathelper.h"

#include <QDateTime>
#include <QSqlField>
#include <QSqlRecord>

namespace {

using NameOf = QString (*)(int);

/// The words of a column that holds numbers; null for the others.
NameOf nameFunction(const QString &column)
{
    if (column == QLatin1String("category"))
        return &AuditTrailQueryModel::categoryName;
    if (column == QLatin1String("action_level"))
        return &AuditTrailQueryModel::levelName;
    if (column == QLatin1String("action"))
        return &AuditTrailQueryModel::actionName;
    if (column == QLatin1String("action_type"))
        return &AuditTrailQueryModel::typeName;
    return nullptr;
}

/// The words are of small numbers: a larger one must not become one of them by being cut.
int inVocabulary(qlonglong number)
{
    constexpr int noWord = -1;
    return number == static_cast<int>(number) ? static_cast<int>(number) : noWord;
}

/// The stored time in the user's date format, always with 24 hours and never shifted to local time.
QString timeText(const QVariant &value)
{
    return AuditTrailQueryModel::timeOf(value).toString(DateFormatHelper().dateFormat() +
                                                        QLatin1String(" hh:mm:ss"));
}

}  // namespace

AuditTrailQueryModel::AuditTrailQueryModel(QObject *parent)
    : QSqlQueryModel(parent)
{}

QVariant AuditTrailQueryModel::data(const QModelIndex &index, int role) const
{
    const QVariant value = QSqlQueryModel::data(index, role);
    if (role != Qt::DisplayRole || !value.isValid())
        return value;
    return shownValue(record().fieldName(index.column()), value);
}

QVariant AuditTrailQueryModel::shownValue(const QString &column, const QVariant &value)
{
    if (const NameOf nameOf = nameFunction(column)) {
        bool isNumber = false;
        const qlonglong number = value.toLongLong(&isNumber);
        return isNumber ? QVariant(nameOf(inVocabulary(number))) : value;
    }
    if (column == QLatin1String("timestamp_action"))
        return timeText(value);
    return value;
}

QDateTime AuditTrailQueryModel::timeOf(const QVariant &value)
{
    QDateTime time = value.toDateTime();
    time.setTimeSpec(Qt::UTC);
    return time;
}

QString AuditTrailQueryModel::actionName(int value)
{
    const QString name = Actions::name(value);
    return name.isEmpty() ? tr("Unknown") : name;
}

QString AuditTrailQueryModel::categoryName(int value)
{
    switch (value) {
    case Actions::AccessCategory:
        return tr("Access");
    case Actions::DatabaseCategory:
        return tr("Database");
    case Actions::UserCategory:
        return tr("User");
    case Actions::TransferCategory:
        return tr("Transfer");
    case Actions::SystemCategory:
        return tr("System");
    case Actions::ErrorCategory:
        return tr("Error");
    default:
        return tr("Unknown");
    }
}

QString AuditTrailQueryModel::levelName(int value)
{
    switch (value) {
    case Actions::LowLevel:
        return tr("Low");
    case Actions::NormalLevel:
        return tr("Normal");
    case Actions::HighLevel:
        return tr("High");
    default:
        return tr("Unknown");
    }
}

QString AuditTrailQueryModel::typeName(int value)
{
    switch (value) {
    case Actions::Automatic:
        return tr("Automatic");
    case Actions::Human:
        return tr("Human");
    default:
        return tr("Unknown");
    }
}
