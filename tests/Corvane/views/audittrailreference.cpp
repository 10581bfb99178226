#include "audittrailreference.h"

#include "CommunicationAndData/actionlog/actionlogtable.h"
#include "ZephanShared/toolkit/actions.h"

#include <QDateTime>
#include <QSqlError>
#include <QSqlQuery>

#include <algorithm>

namespace {

enum Column { Time, Category, Level, Action, Type, Operator, OperatorName, System, DatabaseKey, Info };

const QString kTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm:ss");
constexpr int kDays = 60;

/// "%" is any text and "_" any character, as in SQL.
bool isLike(const QString &text, const QString &pattern, int t = 0, int p = 0)
{
    if (p == pattern.size())
        return t == text.size();
    if (pattern.at(p) == QLatin1Char('%')) {
        for (int end = t; end <= text.size(); ++end) {
            if (isLike(text, pattern, end, p + 1))
                return true;
        }
        return false;
    }
    return t < text.size() && (pattern.at(p) == QLatin1Char('_') || pattern.at(p) == text.at(t)) &&
           isLike(text, pattern, t + 1, p + 1);
}

bool beginsWithATerm(const QString &text, const QVariant &terms)
{
    for (const QString &term : terms.toString().split(QLatin1Char(','))) {
        if (!term.isEmpty() && isLike(text, term.trimmed() + QLatin1Char('%')))
            return true;
    }
    return false;
}

bool isOneOf(const QString &number, const QVariant &numbers)
{
    const QVariantList list = numbers.toList();
    return list.isEmpty() ? number.toInt() == numbers.toInt() : list.contains(number.toInt());
}

bool passes(const QStringList &row, AuditFilterKey key, const QVariant &value)
{
    switch (key) {
    case AuditFilterKey::Action:
        return isOneOf(row.at(Action), value);
    case AuditFilterKey::Type:
        return isOneOf(row.at(Type), value);
    case AuditFilterKey::Category:
        return isOneOf(row.at(Category), value);
    case AuditFilterKey::Level:
        return isOneOf(row.at(Level), value);
    case AuditFilterKey::Operator:
        return beginsWithATerm(row.at(Operator), value) || beginsWithATerm(row.at(OperatorName), value);
    case AuditFilterKey::System:
        return beginsWithATerm(row.at(System), value);
    case AuditFilterKey::DateFrom:
        return row.at(Time) >= value.toDateTime().toString(kTimeFormat);
    case AuditFilterKey::DateTo:
        return row.at(Time) <= value.toDateTime().addDays(1).toString(kTimeFormat);
    case AuditFilterKey::DatabaseKey:
        return beginsWithATerm(row.at(DatabaseKey), value);
    }
    return false;
}

bool passes(const QStringList &row, const AuditFilterMap &filters)
{
    for (auto filter = filters.cbegin(); filter != filters.cend(); ++filter) {
        if (!passes(row, filter.key(), filter.value()))
            return false;
    }
    return true;
}

bool isBefore(const QString &a, const QString &b, int column)
{
    const bool isNumber = column >= Category && column <= Type;
    return isNumber ? a.toInt() < b.toInt() : a < b;
}

bool isSorted(const QVector<QStringList> &rows, const AuditSortOrder &sort)
{
    for (int i = 1; i < rows.size(); ++i) {
        const QString &former = rows.at(i - 1).at(sort.first);
        const QString &latter = rows.at(i).at(sort.first);
        const bool isWrong = sort.second == Qt::DescendingOrder ? isBefore(former, latter, sort.first)
                                                                : isBefore(latter, former, sort.first);
        if (isWrong)
            return false;
    }
    return true;
}

QStringList joinedAndSorted(const QVector<QStringList> &rows)
{
    QStringList lines;
    for (const QStringList &row : rows)
        lines.append(row.join(QLatin1Char('|')));
    lines.sort();
    return lines;
}

}  // namespace

QVector<QStringList> readRows(const QSqlDatabase &database, const QString &statement, QString &error)
{
    QVector<QStringList> rows;
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (query.exec(statement)) {
        while (query.next()) {
            QStringList row;
            for (int column = 0; column < AuditTrailQueryString::columns().size(); ++column)
                row.append(query.value(column).toString());
            rows.append(row);
        }
    }
    error = query.lastError().text().trimmed();
    return rows;
}

ReferenceLog::ReferenceLog(quint32 seed, int rows)
    : m_random(seed)
{
    const QDateTime begin(QDate(2016, 1, 1), QTime(0, 0), Qt::UTC);
    for (int i = 0; i < rows; ++i) {
        const Actions::Action action = oneOf(Actions::allActions());
        // Some lie exactly on midnight, where the filters' bounds are.
        const qint64 seconds = below(4) == 0 ? 0 : below(86400);
        const bool isError = below(10) == 0;
        m_rows.append(
            {begin.addDays(below(kDays)).addSecs(seconds).toString(kTimeFormat),
             QString::number(isError ? int(Actions::ErrorCategory) : int(Actions::category(action))),
             QString::number(Actions::level(action)), QString::number(action), QString::number(below(2)),
             randomText(), randomText(), randomText(), randomText(), QStringLiteral("row%1").arg(i),
             randomText(), randomText()});
    }
}

bool ReferenceLog::writeTo(QSqlDatabase &database) const
{
    QSqlQuery query(database);
    bool written = database.transaction() && query.prepare(ActionLogTable::insertStatement());
    for (const QStringList &row : m_rows) {
        for (int column = 0; column < row.size(); ++column) {
            const bool isNumber = column >= Category && column <= Type;
            query.bindValue(column, isNumber ? QVariant(row.at(column).toInt()) : QVariant(row.at(column)));
        }
        written = written && query.exec();
    }
    return written && database.commit();
}

void ReferenceLog::append(const QStringList &row)
{
    m_rows.append(row);
}

AuditFilterMap ReferenceLog::randomFilters()
{
    AuditFilterMap filters;
    const auto isSet = [this] {
        return below(4) == 0;
    };
    if (isSet()) {
        QVector<int> actions;
        for (const Actions::Action action : Actions::allActions())
            actions.append(action);
        filters.insert(AuditFilterKey::Action, randomNumbers(actions));
    }
    if (isSet())
        filters.insert(AuditFilterKey::Type, below(2));
    if (isSet())
        filters.insert(AuditFilterKey::Category, 4096 * (1 + below(6)));
    if (isSet())
        filters.insert(AuditFilterKey::Level, randomNumbers({256, 512, 768}));
    for (const AuditFilterKey key :
         {AuditFilterKey::Operator, AuditFilterKey::System, AuditFilterKey::DatabaseKey}) {
        if (isSet())
            filters.insert(key, randomTerms());
    }
    for (const AuditFilterKey key : {AuditFilterKey::DateFrom, AuditFilterKey::DateTo}) {
        if (isSet())
            filters.insert(key, randomDay());
    }
    return filters;
}

AuditSortOrder ReferenceLog::randomSort()
{
    return {below(AuditTrailQueryString::columns().size()),
            below(2) == 0 ? Qt::AscendingOrder : Qt::DescendingOrder};
}

QString ReferenceLog::difference(const QSqlDatabase &database, const AuditFilterMap &filters,
                                 const AuditSortOrder &sort) const
{
    const QString statement = AuditTrailQueryString::statement(filters, sort);
    QString error;
    const QVector<QStringList> got = readRows(database, statement, error);
    if (!error.isEmpty())
        return statement + QLatin1String(": ") + error;
    if (!isSorted(got, sort))
        return statement + QLatin1String(": the order is wrong");
    QVector<QStringList> wanted;
    std::copy_if(m_rows.cbegin(), m_rows.cend(), std::back_inserter(wanted),
                 [&filters](const QStringList &row) { return passes(row, filters); });
    if (joinedAndSorted(got) != joinedAndSorted(wanted))
        return QStringLiteral("%1: %2 rows, not %3").arg(statement).arg(got.size()).arg(wanted.size());
    return QString();
}

/// Short and of few letters, so that terms often fit; empty now and then.
QString ReferenceLog::randomText()
{
    static const QString letters = QStringLiteral("ab1");
    QString text = QLatin1String("");  // a null text would be a null value
    for (int length = below(5); length > 0; --length)
        text += letters.at(below(letters.size()));
    return text;
}

QString ReferenceLog::randomTerms()
{
    static const QVector<QString> separators = {QStringLiteral(","), QStringLiteral(", "),
                                                QStringLiteral(",,"), QStringLiteral(" ,")};
    static const QVector<QString> terms = {
        QStringLiteral("a"),   QStringLiteral("b"),    QStringLiteral("1"),   QStringLiteral("ab"),
        QStringLiteral("b1a"), QStringLiteral("_b"),   QStringLiteral("%1"),  QStringLiteral("a_"),
        QStringLiteral("a%b"), QStringLiteral("____"), QStringLiteral("none")};
    QString text = oneOf(terms);
    for (int more = below(3); more > 0; --more)
        text += oneOf(separators) + oneOf(terms);
    return text;
}

QVariantList ReferenceLog::randomNumbers(const QVector<int> &numbers)
{
    QVariantList list;
    for (int count = 1 + below(numbers.size() / 2 + 1); count > 0; --count)
        list.append(oneOf(numbers));
    return list;
}

QDateTime ReferenceLog::randomDay()
{
    return QDateTime(QDate(2016, 1, 1).addDays(below(kDays)), QTime(0, 0));
}

int ReferenceLog::below(int limit)
{
    return m_random.bounded(limit);
}
