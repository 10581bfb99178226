#include "Corvane/views/audittrailquerymodel.h"

#include "Corvane/views/audittrailquerystring.h"
#include "ZephanShared/toolkit/actions.h"
#include "ZephanShared/toolkit/plaintime.h"
#include "ZephanShared/widgets/dateformathelper.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QDateTime>
#include <QSqlQuery>
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

constexpr int kDayLength = 10;   // of "2016-02-01"
constexpr int kTimeLength = 19;  // of "2016-02-01 13:45:00"

bool isBelow(const QString &text, int position, int limit)
{
    const int tens = text.at(position).unicode() - '0';
    const int ones = text.at(position + 1).unicode() - '0';
    return tens >= 0 && tens <= 9 && ones >= 0 && ones <= 9 && 10 * tens + ones < limit;
}

/// Whether a text ends in a time of day as " 13:45:00" behind ten other characters.
bool endsInTimeOfDay(const QString &text)
{
    return text.size() == kTimeLength && text.at(10) == QLatin1Char(' ') && isBelow(text, 11, 24) &&
           text.at(13) == QLatin1Char(':') && isBelow(text, 14, 60) && text.at(16) == QLatin1Char(':') &&
           isBelow(text, 17, 60);
}

/// The day of the time that was shown last, since neighbours in the log mostly are of one day.
struct ShownDay
{
    int format;
    QString separator;
    QString stored;
    QString shown;
};

/// The stored time in the user's date format, always with 24 hours and never shifted to local time.
QString timeText(const QVariant &value)
{
    static ShownDay day{-1, QString(), QString(), QString()};
    const DateFormatHelper formats;
    const QString stored = value.toString();
    const bool isUsual = endsInTimeOfDay(stored);
    if (isUsual && formats.format() == day.format && formats.separator() == day.separator &&
        stored.startsWith(day.stored))
        return day.shown + stored.mid(kDayLength);

    const QString text =
        plainText(AuditTrailQueryModel::timeOf(value), formats.dateFormat() + QLatin1String(" hh:mm:ss"));
    if (isUsual && !text.isEmpty())
        day = {formats.format(), formats.separator(), stored.left(kDayLength),
               text.chopped(kTimeLength - kDayLength)};
    return text;
}

}  // namespace

AuditTrailQueryModel::AuditTrailQueryModel(QObject *parent)
    : QSqlQueryModel(parent)
{
    connect(this, &QAbstractItemModel::modelAboutToBeReset, this, [this] { m_columns.clear(); });
}

QVariant AuditTrailQueryModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid())
        return QSqlQueryModel::data(index, role);
    const QVariant value = storedValue(index.row(), index.column());
    if (!value.isValid())
        return value;
    if (m_columns.isEmpty()) {
        const QSqlRecord fields = record();
        for (int column = 0; column < fields.count(); ++column)
            m_columns.append(wordsOf(fields.fieldName(column)));
    }
    return shownValue(m_columns.value(index.column()), value);
}

/// What the base class returns, without its copy of the column's description for each cell, which takes
/// longer than the cell: no column is ever hidden or inserted here.
QVariant AuditTrailQueryModel::storedValue(int row, int column) const
{
    if (row >= rowCount() || column >= columnCount())
        return QVariant();
    QSqlQuery rows = query();
    return rows.seek(row) ? rows.value(column) : QVariant();
}

void AuditTrailQueryModel::fetchMore(const QModelIndex &parent)
{
    const WaitCursor wait;
    QSqlQueryModel::fetchMore(parent);
}

AuditTrailQueryModel::Words AuditTrailQueryModel::wordsOf(const QString &column)
{
    return {nameFunction(column), column == QLatin1String("timestamp_action")};
}

QVariant AuditTrailQueryModel::shownValue(const Words &words, const QVariant &value)
{
    if (words.nameOf) {
        bool isNumber = false;
        const qlonglong number = value.toLongLong(&isNumber);
        return isNumber ? QVariant(words.nameOf(inVocabulary(number))) : value;
    }
    return words.isTime ? QVariant(timeText(value)) : value;
}

QStringList AuditTrailQueryModel::shownTexts(const QSqlQuery &row)
{
    static const QVector<Words> words = [] {
        QVector<Words> list;
        for (const QString &column : AuditTrailQueryString::columns())
            list.append(wordsOf(column));
        return list;
    }();
    QStringList texts;
    for (int column = 0; column < words.size(); ++column)
        texts.append(shownValue(words.at(column), row.value(column)).toString());
    return texts;
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
    return name.isEmpty() ? QStringLiteral("Unknown") : name;
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
