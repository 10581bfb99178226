#include "Corvane/views/audittrailquerystring.h"

#include "ZephanShared/toolkit/plaintime.h"

#include <QDateTime>

namespace {

constexpr int kSeparatorLength = 4;  // of " OR "

void appendComparison(QString &statement, const QString &column, const QString &pattern)
{
    statement += column + QLatin1String(" LIKE ") + pattern + QLatin1String(" OR ");
}

/// One comparison for each term of the text. The separator's length is cut also when there was no term: a
/// statement that is no longer valid gives an empty result, which is what a filter of commas alone is to
/// give.
void appendTerms(QString &statement, const QString &column, const QString &text)
{
    const QStringList terms = text.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &term : terms)
        appendComparison(statement, column, QLatin1Char('\'') + term.trimmed() + QLatin1String("%'"));
    statement.chop(kSeparatorLength);
}

void appendTermsClause(QString &statement, const QString &column, const QVariant &value)
{
    statement += QLatin1Char('(');
    appendTerms(statement, column, value.toString());
    statement += QLatin1Char(')');
}

void appendOperatorClause(QString &statement, const QVariant &value)
{
    statement += QLatin1String("((");
    appendTerms(statement, QStringLiteral("operator"), value.toString());
    statement += QLatin1String(")OR (");
    appendTerms(statement, QStringLiteral("operator_name"), value.toString());
    statement += QLatin1String("))");
}

/// \return  false when the value is neither a list nor a number: then only the parenthesis was opened
bool appendNumbersClause(QString &statement, const QString &column, const QVariant &value)
{
    statement += QLatin1Char('(');
    QVariantList numbers = value.toList();
    if (numbers.isEmpty()) {
        bool isNumber = false;
        const int number = value.toInt(&isNumber);
        if (!isNumber)
            return false;
        numbers.append(number);
    }
    for (const QVariant &number : qAsConst(numbers))
        appendComparison(statement, column, QString::number(number.toInt()));
    statement.chop(kSeparatorLength);
    statement += QLatin1Char(')');
    return true;
}

void appendNumberClause(QString &statement, const QString &column, const QVariant &value)
{
    statement += QLatin1Char('(') + column + QLatin1String(" LIKE ") + QString::number(value.toInt()) +
                 QLatin1Char(')');
}

/// The time is written as it stands: what was typed is compared with the stored UTC times literally.
void appendDateClause(QString &statement, const QString &comparison, const QDateTime &time)
{
    statement += QLatin1String("(timestamp_action ") + comparison + QLatin1String(" '") +
                 plainText(time, QStringLiteral("yyyy-MM-dd hh:mm:ss")) + QLatin1String("')");
}

/// \return  whether the clause is whole
bool appendClause(QString &statement, AuditFilterKey key, const QVariant &value)
{
    switch (key) {
    case AuditFilterKey::Action:
        return appendNumbersClause(statement, QStringLiteral("action"), value);
    case AuditFilterKey::Type:
        appendNumberClause(statement, QStringLiteral("action_type"), value);
        return true;
    case AuditFilterKey::Category:
        appendNumberClause(statement, QStringLiteral("category"), value);
        return true;
    case AuditFilterKey::Level:
        return appendNumbersClause(statement, QStringLiteral("action_level"), value);
    case AuditFilterKey::Operator:
        appendOperatorClause(statement, value);
        return true;
    case AuditFilterKey::System:
        appendTermsClause(statement, QStringLiteral("system"), value);
        return true;
    case AuditFilterKey::DateFrom:
        appendDateClause(statement, QStringLiteral(">="), value.toDateTime());
        return true;
    case AuditFilterKey::DateTo:
        // The whole of the chosen day is included.
        appendDateClause(statement, QStringLiteral("<="), value.toDateTime().addDays(1));
        return true;
    case AuditFilterKey::DatabaseKey:
        appendTermsClause(statement, QStringLiteral("database_key"), value);
        return true;
    }
    return false;
}

/// What is read of the rows which the filters leave, without an order.
QString selection(const QString &what, const AuditFilterMap &filters)
{
    QString statement = QLatin1String("SELECT ") + what + QLatin1String(" FROM action_log");
    if (!filters.isEmpty())
        statement += QLatin1String(" WHERE ");

    int written = 0;
    for (auto filter = filters.cbegin(); filter != filters.cend(); ++filter) {
        if (!appendClause(statement, filter.key(), filter.value()))
            continue;
        ++written;
        if (written < filters.size())
            statement += QLatin1String(" AND ");
    }
    return statement;
}

}  // namespace

const QStringList &AuditTrailQueryString::columns()
{
    static const QStringList list = {
        QStringLiteral("timestamp_action"), QStringLiteral("category"),
        QStringLiteral("action_level"),     QStringLiteral("action"),
        QStringLiteral("action_type"),      QStringLiteral("operator"),
        QStringLiteral("operator_name"),    QStringLiteral("system"),
        QStringLiteral("database_key"),     QStringLiteral("info"),
        QStringLiteral("target_database"),  QStringLiteral("target_server"),
    };
    return list;
}

QString AuditTrailQueryString::headerText(int columnIndex)
{
    switch (columnIndex) {
    case 0:
        return tr("Time") + QLatin1String(" (UTC)");
    case 1:
        return tr("Category");
    case 2:
        return tr("Level");
    case 3:
        return tr("Action");
    case 4:
        return tr("Type");
    case 5:
        return tr("Operator ID");
    case 6:
        return tr("Operator username");
    case 7:
        return tr("System");
    case 8:
        return tr("Database key");
    case 9:
        return tr("Additional Information");
    case 10:
        return tr("Target Database");
    case 11:
        return tr("Target Server");
    default:
        return QString();
    }
}

QString AuditTrailQueryString::statement(const AuditFilterMap &filters, const AuditSortOrder &sort)
{
    QString statement = selection(columns().join(QLatin1String(", ")), filters);
    if (sort.first >= 0 && sort.first < columns().size()) {
        statement += QLatin1String(" ORDER BY ") + columns().at(sort.first) +
                     QLatin1String(sort.second == Qt::DescendingOrder ? " DESC;" : " ASC;");
    }
    return statement;
}

QString AuditTrailQueryString::countStatement(const AuditFilterMap &filters)
{
    return selection(QStringLiteral("COUNT(*)"), filters);
}

QString AuditTrailQueryString::timelineStatement(const AuditFilterMap &filters)
{
    return selection(QStringLiteral("timestamp_action, category"), filters);
}
