#include "Corvane/views/audittrailquerystring.h"

#include <QDateTime>
#include <QTest>

namespace {

using Key = AuditFilterKey;

const QString kSelect = QStringLiteral(
    "SELECT timestamp_action, category, action_level, action, action_type, operator, operator_name, system, "
    "database_key, info, target_database, target_server FROM action_log");

QDateTime day(int year, int month, int dayOfMonth)
{
    return QDateTime(QDate(year, month, dayOfMonth), QTime(0, 0));
}

struct Sample
{
    Key key;
    QVariant value;
    QString clause;
};

const QVector<Sample> &samples()
{
    static const QVector<Sample> all = {
        {Key::Action, QVariantList{8720, 4864}, QStringLiteral("(action LIKE 8720 OR action LIKE 4864)")},
        {Key::Type, 1, QStringLiteral("(action_type LIKE 1)")},
        {Key::Category, 8192, QStringLiteral("(category LIKE 8192)")},
        {Key::Level, 512, QStringLiteral("(action_level LIKE 512)")},
        {Key::Operator, QStringLiteral("ad, jo"),
         QStringLiteral("((operator LIKE 'ad%' OR operator LIKE 'jo%')OR (operator_name LIKE 'ad%' OR "
                        "operator_name LIKE 'jo%'))")},
        {Key::System, QStringLiteral("WS"), QStringLiteral("(system LIKE 'WS%')")},
        {Key::DateFrom, day(2016, 1, 1), QStringLiteral("(timestamp_action >= '2016-01-01 00:00:00')")},
        {Key::DateTo, day(2016, 2, 1), QStringLiteral("(timestamp_action <= '2016-02-02 00:00:00')")},
        {Key::DatabaseKey, QStringLiteral("7a"), QStringLiteral("(database_key LIKE '7a%')")},
    };
    return all;
}

QString order(const AuditSortOrder &sort)
{
    if (sort.first >= AuditTrailQueryString::columns().size())
        return QString();
    return QStringLiteral(" ORDER BY %1 %2;")
        .arg(AuditTrailQueryString::columns().at(sort.first),
             sort.second == Qt::DescendingOrder ? QStringLiteral("DESC") : QStringLiteral("ASC"));
}

const AuditSortOrder kNewestFirst{0, Qt::DescendingOrder};

}  // namespace

class TestAuditTrailQueryString : public QObject
{
    Q_OBJECT

private slots:
    void everySubsetOfFiltersInEveryOrder();
    void everyFilterActiveReadsOnOneLine();
    void statements_data();
    void statements();
    void orderOfSettingFiltersChangesNothing();
    void headers();
};

void TestAuditTrailQueryString::everySubsetOfFiltersInEveryOrder()
{
    const int subsets = 1 << samples().size();
    QCOMPARE(subsets, 512);
    for (int subset = 0; subset < subsets; ++subset) {
        AuditFilterMap filters;
        QStringList clauses;
        for (int i = 0; i < samples().size(); ++i) {
            if (!(subset & (1 << i)))
                continue;
            filters.insert(samples().at(i).key, samples().at(i).value);
            clauses.append(samples().at(i).clause);
        }
        const QString where =
            clauses.isEmpty() ? QString() : QLatin1String(" WHERE ") + clauses.join(QLatin1String(" AND "));
        for (int column = 0; column <= 12; ++column) {
            for (const Qt::SortOrder direction : {Qt::AscendingOrder, Qt::DescendingOrder}) {
                const AuditSortOrder sort{column, direction};
                QCOMPARE(AuditTrailQueryString::statement(filters, sort), kSelect + where + order(sort));
            }
        }
    }
}

void TestAuditTrailQueryString::everyFilterActiveReadsOnOneLine()
{
    AuditFilterMap filters;
    for (const Sample &sample : samples())
        filters.insert(sample.key, sample.value);
    QCOMPARE(
        AuditTrailQueryString::statement(filters, kNewestFirst),
        QStringLiteral(
            "SELECT timestamp_action, category, action_level, action, action_type, operator, "
            "operator_name, system, database_key, info, target_database, target_server FROM action_log "
            "WHERE (action LIKE 8720 OR action LIKE 4864) AND (action_type LIKE 1) AND (category LIKE "
            "8192) AND (action_level LIKE 512) AND ((operator LIKE 'ad%' OR operator LIKE 'jo%')OR "
            "(operator_name LIKE 'ad%' OR operator_name LIKE 'jo%')) AND (system LIKE 'WS%') AND "
            "(timestamp_action >= '2016-01-01 00:00:00') AND (timestamp_action <= '2016-02-02 00:00:00') "
            "AND (database_key LIKE '7a%') ORDER BY timestamp_action DESC;"));
}

void TestAuditTrailQueryString::statements_data()
{
    QTest::addColumn<AuditFilterMap>("filters");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const AuditFilterMap &filters, const QString &tail,
                        int column = 0) {
        QTest::newRow(name) << filters << column << kSelect + tail;
    };
    const QString newestFirst = QStringLiteral(" ORDER BY timestamp_action DESC;");
    row("no filter gives no WHERE", {}, newestFirst);
    row("sort column 12 gives no order and no semicolon", {}, QString(), 12);
    row("sort column 1000 gives no order and no semicolon", {{Key::Type, 0}},
        QStringLiteral(" WHERE (action_type LIKE 0)"), 1000);
    const QString twoTerms = QStringLiteral(" WHERE (system LIKE 'a%' OR system LIKE 'b%')") + newestFirst;
    row("a comma and a blank separate two terms", {{Key::System, QStringLiteral("a, b")}}, twoTerms);
    row("two commas in a row give the same two terms", {{Key::System, QStringLiteral("a,,b")}}, twoTerms);
    row("surrounding blanks are trimmed, inner ones stay", {{Key::System, QStringLiteral("  a b  ")}},
        QStringLiteral(" WHERE (system LIKE 'a b%')") + newestFirst);
    row("quotes and wild cards go in as they stand", {{Key::DatabaseKey, QStringLiteral("o'_%")}},
        QStringLiteral(" WHERE (database_key LIKE 'o'_%%')") + newestFirst);
    row("commas alone cut four characters of what stood before", {{Key::System, QStringLiteral(",,")}},
        QStringLiteral(" WHE)") + newestFirst);
    row("a single integer is a list of one", {{Key::Action, 4864}},
        QStringLiteral(" WHERE (action LIKE 4864)") + newestFirst);
    row("what is no number leaves only the parenthesis", {{Key::Action, QStringLiteral("x")}},
        QStringLiteral(" WHERE (") + newestFirst);
    row("date to includes the whole of its day", {{Key::DateTo, day(2016, 2, 1)}},
        QStringLiteral(" WHERE (timestamp_action <= '2016-02-02 00:00:00')") + newestFirst);
    row("date to passes the end of a leap February", {{Key::DateTo, day(2016, 2, 29)}},
        QStringLiteral(" WHERE (timestamp_action <= '2016-03-01 00:00:00')") + newestFirst);
    row("date from later than date to is not rejected",
        {{Key::DateFrom, day(2017, 1, 1)}, {Key::DateTo, day(2016, 1, 1)}},
        QStringLiteral(" WHERE (timestamp_action >= '2017-01-01 00:00:00') AND (timestamp_action <= "
                       "'2016-01-02 00:00:00')") +
            newestFirst);
}

void TestAuditTrailQueryString::statements()
{
    QFETCH(AuditFilterMap, filters);
    QFETCH(int, column);
    QFETCH(QString, expected);
    QCOMPARE(AuditTrailQueryString::statement(filters, {column, Qt::DescendingOrder}), expected);
}

void TestAuditTrailQueryString::orderOfSettingFiltersChangesNothing()
{
    AuditFilterMap levelFirst;
    levelFirst.insert(Key::Level, QVariantList{256});
    levelFirst.insert(Key::Action, QVariantList{4864});
    QVERIFY(AuditTrailQueryString::statement(levelFirst, kNewestFirst)
                .contains(QLatin1String("WHERE (action LIKE 4864) AND (action_level LIKE 256)")));
}

void TestAuditTrailQueryString::headers()
{
    const QStringList expected = {
        QStringLiteral("Time (UTC)"),
        QStringLiteral("Category"),
        QStringLiteral("Level"),
        QStringLiteral("Action"),
        QStringLiteral("Type"),
        QStringLiteral("Operator ID"),
        QStringLiteral("Operator username"),
        QStringLiteral("System"),
        QStringLiteral("Database key"),
        QStringLiteral("Additional Information"),
        QStringLiteral("Target Database"),
        QStringLiteral("Target Server"),
    };
    for (int column = 0; column < expected.size(); ++column)
        QCOMPARE(AuditTrailQueryString::headerText(column), expected.at(column));
    QCOMPARE(AuditTrailQueryString::headerText(12), QString());
    QCOMPARE(AuditTrailQueryString::headerText(-1), QString());
}

QTEST_GUILESS_MAIN(TestAuditTrailQueryString)
#include "test_audittrailquerystring.moc"
