#include "sqlfixture.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlQueryModel>
#include <QSqlRecord>
#include <QtTest>
#include <cstring>
#include <functional>

namespace {

constexpr int kSteps = 300;
constexpr int kMoves = 30;
const QString kLast = QStringLiteral("last");

/// The same random statements and values for both drivers.
class Chance
{
public:
    explicit Chance(quint32 seed)
        : m_random(seed)
    {}

    int below(int limit)
    {
        return static_cast<int>(m_random.bounded(static_cast<quint32>(limit)));
    }

    QString text()
    {
        static const QStringList pieces{
            "a", "Z", "'", "\"", "ö", "肺", "🫁", " ", "%", "_", QString(QChar(0))};
        QString text(QLatin1String("t"));
        for (int left = below(40); left > 0; --left)
            text += pieces.at(below(pieces.size()));
        return text;
    }

    QByteArray bytes()
    {
        QByteArray bytes(1 + below(300), '\0');
        for (char &byte : bytes)
            byte = static_cast<char>(below(256));
        return bytes;
    }

    double real()
    {
        const quint64 bits = m_random.generate64();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    qlonglong wide()
    {
        return static_cast<qlonglong>(m_random.generate64() >> below(64));
    }

    QVariant value()
    {
        const QDateTime time(QDate(1900, 1, 1).addDays(below(80000)),
                             QTime::fromMSecsSinceStartOfDay(below(86400000)), Qt::UTC);
        switch (below(12)) {
        case 0:
            return QVariant();
        case 1:
            return QVariant(QVariant::Double);
        case 2:
            return below(10);
        case 3:
            return wide();
        case 4:
            return real();
        case 5:
            return bytes();
        case 6:
            return below(2) == 1;
        case 7:
            return time;
        case 8:
            return time.date();
        case 9:
            return time.time();
        case 10:
            return QStringLiteral("");
        default:
            return text();
        }
    }

private:
    QRandomGenerator m_random;
};

QString describe(const QVariant &value)
{
    if (!value.isValid())
        return QStringLiteral("-");
    return QStringLiteral("%1%2:%3").arg(QLatin1String(value.typeName()),
                                         value.isNull() ? QStringLiteral(" null") : QString(),
                                         QString::fromLatin1(value.toByteArray().toHex()));
}

QString describeRecord(const QSqlRecord &record)
{
    QStringList fields;
    for (int i = 0; i < record.count(); ++i) {
        const QSqlField field = record.field(i);
        fields.append(
            QStringLiteral("%1/%2/%3/%4/%5/%6")
                .arg(field.name(), QLatin1String(QVariant::typeToName(field.type())), field.tableName())
                .arg(static_cast<int>(field.requiredStatus()))
                .arg(field.defaultValue().toString())
                .arg(field.isAutoValue()));
    }
    return fields.join(QLatin1Char(' '));
}

QString describeRow(const QSqlQuery &query)
{
    QStringList cells;
    for (int column = 0; column < query.record().count(); ++column)
        cells.append(describe(query.value(column)) +
                     (query.isNull(column) ? QStringLiteral(" n") : QString()));
    return cells.join(QStringLiteral(" | "));
}

QString describeError(const QSqlQuery &query)
{
    return query.lastError().isValid() ? QStringLiteral("error ") + query.lastError().nativeErrorCode()
                                       : QStringLiteral("good");
}

/// What both drivers are asked to do: \p log takes what they answered.
using Step = std::function<void(const QSqlDatabase &database, Chance &chance, QStringList &log)>;

void execute(QSqlQuery &query, bool isGood, QStringList &log)
{
    log.append(QStringLiteral("%1 %2 %3").arg(isGood).arg(describeError(query)).arg(query.isActive()));
    if (isGood && !query.isSelect())
        log.append(QString::number(query.numRowsAffected()));
}

void insertByPosition(const QSqlDatabase &database, Chance &chance, QStringList &log)
{
    QSqlQuery query(database);
    query.prepare(QStringLiteral("INSERT INTO t (i, r, s, b, x) VALUES (?, ?, ?, ?, ?)"));
    for (int column = 0; column < 5; ++column)
        query.addBindValue(chance.value());
    execute(query, query.exec(), log);
    log.append(describe(query.lastInsertId()));
}

void insertByName(const QSqlDatabase &database, Chance &chance, QStringList &log)
{
    QSqlQuery query(database);
    query.prepare(QStringLiteral("INSERT INTO t (id, i, r, s, b) VALUES (:id, :v, :r, :v, :v)"));
    query.bindValue(QStringLiteral(":v"), chance.value());
    query.bindValue(QStringLiteral(":id"), 1 + chance.below(500));
    if (chance.below(5) > 0)
        query.bindValue(QStringLiteral(":r"), chance.value());
    execute(query, query.exec(), log);
}

void insertBatch(const QSqlDatabase &database, Chance &chance, QStringList &log)
{
    QSqlQuery query(database);
    query.prepare(QStringLiteral("INSERT INTO t (i, x) VALUES (?, ?)"));
    QVariantList first;
    QVariantList second;
    for (int row = chance.below(5); row >= 0; --row) {
        first.append(chance.value());
        second.append(chance.value());
    }
    query.addBindValue(first);
    query.addBindValue(second);
    const bool isGood = query.execBatch();
    log.append(QStringLiteral("%1 %2").arg(isGood).arg(describeError(query)));
}

void updateRows(const QSqlDatabase &database, Chance &chance, QStringList &log)
{
    QSqlQuery query(database);
    query.prepare(QStringLiteral("UPDATE t SET x = :x, s = :x WHERE id % 7 = :rest OR i = :i"));
    query.bindValue(QStringLiteral(":rest"), chance.below(9));
    query.bindValue(QStringLiteral(":i"), chance.value());
    query.bindValue(QStringLiteral(":x"), chance.value());
    execute(query, query.exec(), log);
}

void deleteRows(const QSqlDatabase &database, Chance &chance, QStringList &log)
{
    QSqlQuery query(database);
    query.prepare(QStringLiteral("DELETE FROM t WHERE id % 31 = ?"));
    query.addBindValue(chance.below(31));
    execute(query, query.exec(), log);
}

void failing(const QSqlDatabase &database, Chance &chance, QStringList &log)
{
    static const QStringList statements{"SELEKT",
                                        "SELECT * FROM nowhere",
                                        "INSERT INTO t (id) SELECT id FROM t LIMIT 1",
                                        "SELECT 1; SELECT 2",
                                        "INSERT INTO t (id) VALUES ('text')",
                                        "SELECT abs(-9223372036854775808)",
                                        "CREATE TABLE t (a)",
                                        "ROLLBACK TO nothing",
                                        "SELECT ?1 FROM t",
                                        ""};
    QSqlQuery query(database);
    const bool isGood = query.exec(statements.at(chance.below(statements.size())));
    log.append(QStringLiteral("%1 %2").arg(isGood).arg(describeError(query)));
}

void inTransaction(const QSqlDatabase &database, Chance &chance, QStringList &log)
{
    QSqlDriver *driver = database.driver();
    log.append(QString::number(driver->beginTransaction()));
    insertByPosition(database, chance, log);
    log.append(QString::number(QSqlQuery(database).exec(QStringLiteral("SAVEPOINT here"))));
    updateRows(database, chance, log);
    if (chance.below(2) == 0)
        log.append(QString::number(QSqlQuery(database).exec(QStringLiteral("ROLLBACK TO here"))));
    log.append(QString::number(driver->beginTransaction()));
    log.append(
        QString::number(chance.below(2) == 0 ? driver->commitTransaction() : driver->rollbackTransaction()));
    log.append(QString::number(driver->commitTransaction()));
}

/// One move among the rows, and the word for it.
QPair<QString, bool> move(QSqlQuery &query, Chance &chance, bool isForwardOnly)
{
    const int kind = chance.below(isForwardOnly ? 12 : 20);
    const int row = qMax(query.at(), 0) + chance.below(20);
    const int distance = 1 + chance.below(5);
    if (kind < 8)
        return {QStringLiteral("next"), query.next()};
    if (kind < 10)
        return {QStringLiteral("ahead to %1").arg(row), query.seek(row)};
    if (kind < 11)
        return {QStringLiteral("ahead by %1").arg(distance), query.seek(distance, true)};
    if (kind < 12) {
        const bool isAsked = !isForwardOnly || chance.below(6) == 0;
        return {isAsked ? kLast : QStringLiteral("stay"), isAsked ? query.last() : true};
    }
    if (kind < 17)
        return {QStringLiteral("previous"), query.previous()};
    if (kind < 18)
        return {QStringLiteral("first"), query.first()};
    if (kind < 19)
        return {QStringLiteral("back by %1").arg(distance), query.seek(-distance, true)};
    return {QStringLiteral("to %1").arg(2 * row % 50), query.seek(2 * row % 50)};
}

void readRows(const QSqlDatabase &database, Chance &chance, QStringList &log)
{
    static const QStringList statements{
        "SELECT * FROM t ORDER BY id",
        "SELECT i, typeof(i), r, typeof(r), length(s), hex(b), x FROM t WHERE id % 2 = 0 ORDER BY id DESC",
        "SELECT count(*) AS \"how many\", max(id), NULL, 1.5, 'a', x'00ff' FROM t",
        "SELECT id FROM t WHERE 0",
        "SELECT a.id AS [left], b.id AS `right` FROM t a JOIN t b ON a.id < b.id ORDER BY 1, 2 LIMIT 40"};
    const bool isForwardOnly = chance.below(2) == 0;
    QSqlQuery query(database);
    query.setForwardOnly(isForwardOnly);
    query.setNumericalPrecisionPolicy(chance.below(4) == 0 ? QSql::LowPrecisionInt64
                                                           : QSql::LowPrecisionDouble);
    execute(query, query.exec(statements.at(chance.below(statements.size()))), log);
    log.append(describeRecord(query.record()));
    const bool hasRows = query.next();
    log.append(QString::number(hasRows));
    // Past its end a forward-only result of QSQLITE begins again; ours has ended, so the walk ends with it.
    for (int left = hasRows ? kMoves : 0; left > 0 && (!isForwardOnly || query.isValid()); --left) {
        const auto [word, isThere] = move(query, chance, isForwardOnly);
        log.append(QStringLiteral("%1: %2 at %3 %4 %5")
                       .arg(word)
                       .arg(isThere)
                       .arg(query.at())
                       .arg(query.isValid())
                       .arg(query.isValid() ? describeRow(query) : QString()));
        if (isForwardOnly && word == kLast)
            break;
    }
}

void readModel(const QSqlDatabase &database, Chance &chance, QStringList &log)
{
    QSqlQueryModel model;
    model.setQuery(
        QStringLiteral("SELECT a.id, b.s FROM t a, t b ORDER BY a.id, b.id LIMIT %1").arg(chance.below(900)),
        database);
    log.append(QString::number(model.rowCount()));
    while (chance.below(4) > 0 && model.canFetchMore())
        model.fetchMore();
    log.append(QString::number(model.rowCount()));
    for (int left = kMoves; left > 0 && model.rowCount() > 0; --left)
        log.append(describe(model.data(model.index(chance.below(model.rowCount()), chance.below(2)))));
}

void readSchema(const QSqlDatabase &database, Chance &chance, QStringList &log)
{
    static const QStringList names{"t", "\"t\"", "main.t", "strange name", "view", "nowhere"};
    const QString name = names.at(chance.below(names.size()));
    log.append(describeRecord(database.record(name)));
    log.append(describeRecord(database.primaryIndex(name)));
    QStringList tables = database.tables() + database.tables(QSql::Views);
    tables.sort();
    log.append(tables.join(QLatin1Char(' ')));
}

const QVector<Step> &steps()
{
    static const QVector<Step> steps{insertByPosition, insertByPosition, insertByPosition, insertByName,
                                     insertBatch,      updateRows,       deleteRows,       failing,
                                     inTransaction,    readRows,         readRows,         readModel,
                                     readSchema};
    return steps;
}

}  // namespace

/// On plain files the driver answers as Qt's own driver of SQLite does.
class TestSqlCipherCompared : public QObject
{
    Q_OBJECT

private slots:
    void bothDriversAnswerAlike_data();
    void bothDriversAnswerAlike();

private:
    void makeTables(const QSqlDatabase &database);
};

void TestSqlCipherCompared::makeTables(const QSqlDatabase &database)
{
    SqlFixture::run(
        database, {"PRAGMA synchronous = OFF", "PRAGMA journal_mode = MEMORY",
                   "CREATE TABLE t (id INTEGER PRIMARY KEY, i INTEGER, r REAL DEFAULT 1.5, s VARCHAR(20) "
                   "DEFAULT 'none', b BLOB, x NOT NULL DEFAULT 7)",
                   "CREATE TABLE \"strange name\" (\"a b\" BOOLEAN, c NUMERIC(3, 2), PRIMARY KEY (\"a b\"))",
                   "CREATE VIEW \"view\" AS SELECT id, i + 1 AS next FROM t"});
}

void TestSqlCipherCompared::bothDriversAnswerAlike_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 12; ++seed)
        QTest::addRow("to statements of seed %u", seed) << seed;
}

void TestSqlCipherCompared::bothDriversAnswerAlike()
{
    QFETCH(const quint32, seed);
    SqlFixture files;
    const QSqlDatabase peer = files.open({QStringLiteral("peer.db"), false, {}, QStringLiteral("QSQLITE")});
    const QSqlDatabase ours = files.open({QStringLiteral("ours.db"), false});
    makeTables(peer);
    makeTables(ours);
    Chance choice(seed);
    const WarningCatcher catcher;
    for (int i = 0; i < kSteps; ++i) {
        const int step = choice.below(steps().size());
        const auto stepSeed = static_cast<quint32>(choice.below(1 << 30));
        QStringList expected;
        QStringList actual;
        Chance peerChance(stepSeed);
        Chance ourChance(stepSeed);
        steps().at(step)(peer, peerChance, expected);
        steps().at(step)(ours, ourChance, actual);
        if (actual != expected)
            qInfo("step %d of kind %d\n%s", i, step, qPrintable(actual.join("\n")));
        QCOMPARE(actual, expected);
    }
    const QString all =
        QStringLiteral("SELECT count(*) || '-' || sum(id) || '-' || total(length(hex(x))) FROM t");
    QCOMPARE(SqlFixture::value(ours, all), SqlFixture::value(peer, all));
    QVERIFY(SqlFixture::value(ours, QStringLiteral("SELECT count(*) FROM t")).toInt() > 0);
    QCOMPARE(SqlFixture::value(ours, QStringLiteral("PRAGMA integrity_check")).toString(),
             QStringLiteral("ok"));
}

QTEST_GUILESS_MAIN(TestSqlCipherCompared)
#include "test_sqlciphercompared.moc"
