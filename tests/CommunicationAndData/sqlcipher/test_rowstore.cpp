#include "CommunicationAndData/sqlcipher/rowstore.h"

#include <QtTest>
#include <cstring>
#include <limits>

/// Rows kept compactly: each comes back as it went in, from every position, in little memory.
class TestRowStore : public QObject
{
    Q_OBJECT

private slots:
    void integerComesBack_data();
    void integerComesBack();
    void realComesBackBitForBit_data();
    void realComesBackBitForBit();
    void bytesComeBack_data();
    void bytesComeBack();
    void textAndBlobOfTheSameBytesStayApart();
    void rowsOfAllChunksComeBackInAnyOrder();
    void rowsLargerThanAChunkComeBack();
    void rowsAreReadWhileMoreAreAdded();
    void resetRemovesRowsAndChangesTheWidth();
    void auditRowTakesLessThanAHundredAndSixtyBytes();
};

void TestRowStore::integerComesBack_data()
{
    QTest::addColumn<qint64>("value");
    for (int bits = 0; bits < 64; ++bits) {
        const qint64 power = bits == 63 ? std::numeric_limits<qint64>::min() : Q_INT64_C(1) << bits;
        QTest::addRow("2 to the %d", bits) << power;
        QTest::addRow("one less than 2 to the %d", bits)
            << (bits == 63 ? std::numeric_limits<qint64>::max() : power - 1);
        QTest::addRow("minus 2 to the %d", bits) << (bits == 63 ? power : -power);
        QTest::addRow("one less than minus 2 to the %d", bits) << (bits == 63 ? power + 1 : -power - 1);
    }
}

void TestRowStore::integerComesBack()
{
    QFETCH(const qint64, value);
    RowStore store;
    store.reset(2);
    store.addInteger(value);
    store.addInteger(7);
    store.endRow();
    QCOMPARE(store.cell(0, 0).kind, RowStore::Kind::Integer);
    QCOMPARE(store.cell(0, 0).integer, value);
    QCOMPARE(store.cell(0, 1).integer, Q_INT64_C(7));
}

void TestRowStore::realComesBackBitForBit_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("minus zero") << -0.0;
    QTest::newRow("a tenth") << 0.1;
    QTest::newRow("infinity") << std::numeric_limits<double>::infinity();
    QTest::newRow("minus infinity") << -std::numeric_limits<double>::infinity();
    QTest::newRow("largest") << std::numeric_limits<double>::max();
    QTest::newRow("smallest above zero") << std::numeric_limits<double>::denorm_min();
}

void TestRowStore::realComesBackBitForBit()
{
    QFETCH(const double, value);
    RowStore store;
    store.reset(1);
    store.addReal(value);
    store.endRow();
    const RowStore::Cell cell = store.cell(0, 0);
    QCOMPARE(cell.kind, RowStore::Kind::Real);
    QCOMPARE(std::memcmp(&cell.real, &value, sizeof value), 0);
}

void TestRowStore::bytesComeBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray("");
    QTest::newRow("one byte") << QByteArray("a");
    QTest::newRow("zero bytes inside") << QByteArray("a\0b\0\0", 5);
    QTest::newRow("longest with a tag of one byte") << QByteArray(57, 'x');
    QTest::newRow("shortest with a tag of two bytes") << QByteArray(58, 'x');
    QTest::newRow("longest with a tag of two bytes") << QByteArray(8185, 'x');
    QTest::newRow("shortest with a tag of three bytes") << QByteArray(8186, 'x');
    QTest::newRow("as long as a chunk") << QByteArray(1 << 16, 'x');
    QTest::newRow("longer than a chunk") << QByteArray(200001, 'x');
}

void TestRowStore::bytesComeBack()
{
    QFETCH(const QByteArray, bytes);
    RowStore store;
    store.reset(3);
    store.addText(bytes.constData(), bytes.size());
    store.addBlob(bytes.constData(), bytes.size());
    store.addInteger(-5);
    store.endRow();
    const RowStore::Cell text = store.cell(0, 0);
    const RowStore::Cell blob = store.cell(0, 1);
    QCOMPARE(QByteArray(text.bytes, text.length), bytes);
    QCOMPARE(QByteArray(blob.bytes, blob.length), bytes);
    QCOMPARE(store.cell(0, 2).integer, Q_INT64_C(-5));
}

void TestRowStore::textAndBlobOfTheSameBytesStayApart()
{
    RowStore store;
    store.reset(3);
    store.addText("ab", 2);
    store.addBlob("ab", 2);
    store.addNull();
    store.endRow();
    QCOMPARE(store.cell(0, 0).kind, RowStore::Kind::Text);
    QCOMPARE(store.cell(0, 1).kind, RowStore::Kind::Blob);
    QCOMPARE(store.cell(0, 2).kind, RowStore::Kind::Null);
}

void TestRowStore::rowsOfAllChunksComeBackInAnyOrder()
{
    constexpr int kRows = 20000;
    RowStore store;
    store.reset(2);
    for (int row = 0; row < kRows; ++row) {
        const QByteArray text(row % 97, static_cast<char>('a' + row % 26));
        store.addInteger(row);
        store.addText(text.constData(), text.size());
        store.endRow();
    }
    QCOMPARE(store.count(), kRows);
    constexpr int kStride = 7919;  // a prime: all rows are visited, far from one another
    for (int i = 0; i < kRows; ++i) {
        const int row = static_cast<int>(static_cast<qint64>(i) * kStride % kRows);
        QCOMPARE(store.cell(row, 0).integer, static_cast<qint64>(row));
        QCOMPARE(store.cell(row, 1).length, row % 97);
        if (row % 97 > 0)
            QCOMPARE(store.cell(row, 1).bytes[row % 97 - 1], static_cast<char>('a' + row % 26));
    }
}

void TestRowStore::rowsLargerThanAChunkComeBack()
{
    RowStore store;
    store.reset(1);
    for (int row = 0; row < 6; ++row) {
        const QByteArray bytes(row % 2 == 0 ? 300000 : 3, static_cast<char>('a' + row));
        store.addBlob(bytes.constData(), bytes.size());
        store.endRow();
    }
    for (int row = 5; row >= 0; --row) {
        const RowStore::Cell cell = store.cell(row, 0);
        QCOMPARE(QByteArray(cell.bytes, cell.length),
                 QByteArray(row % 2 == 0 ? 300000 : 3, static_cast<char>('a' + row)));
    }
}

void TestRowStore::rowsAreReadWhileMoreAreAdded()
{
    RowStore store;
    store.reset(1);
    for (int row = 0; row < 30000; ++row) {
        store.addInteger(row);
        store.endRow();
        QCOMPARE(store.cell(row, 0).integer, static_cast<qint64>(row));
        QCOMPARE(store.cell(row / 2, 0).integer, static_cast<qint64>(row / 2));
    }
}

void TestRowStore::resetRemovesRowsAndChangesTheWidth()
{
    RowStore store;
    store.reset(1);
    store.addInteger(1000);
    store.endRow();
    QCOMPARE(store.cell(0, 0).integer, Q_INT64_C(1000));
    store.reset(2);
    QCOMPARE(store.count(), 0);
    QCOMPARE(store.size(), Q_INT64_C(0));
    store.addInteger(1);
    store.addInteger(2);
    store.endRow();
    QCOMPARE(store.cell(0, 1).integer, Q_INT64_C(2));
}

void TestRowStore::auditRowTakesLessThanAHundredAndSixtyBytes()
{
    constexpr int kRows = 10000;
    const QByteArray uuid(36, '4');
    const QByteArray time("2024-05-06 07:08:09");
    const QByteArray name("operator17");
    const QByteArray info("Settings changed");
    RowStore store;
    store.reset(12);
    for (int row = 0; row < kRows; ++row) {
        store.addInteger(row);
        store.addText(time.constData(), time.size());
        store.addInteger(3);
        store.addInteger(1);
        store.addInteger(10300);
        store.addInteger(0);
        store.addText(name.constData(), name.size());
        store.addText(uuid.constData(), uuid.size());
        store.addText(uuid.constData(), uuid.size());
        store.addReal(0.25);
        store.addNull();
        store.addText(info.constData(), info.size());
        store.endRow();
    }
    QVERIFY2(store.size() / kRows < 160, qPrintable(QString::number(store.size() / kRows)));
}

QTEST_GUILESS_MAIN(TestRowStore)
#include "test_rowstore.moc"
