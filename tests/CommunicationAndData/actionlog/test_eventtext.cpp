#include "CommunicationAndData/actionlog/eventtext.h"

#include "ZephanShared/toolkit/uuidstring.h"

#include <QDateTime>
#include <QTest>

class TestEventText : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void errors_data();
    void errors();
};

void TestEventText::texts_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    const QVariantMap map = {{"b", 2}, {"a", "one"}};
    QTest::newRow("nothing is empty") << QVariant() << "";
    QTest::newRow("an empty text is empty") << QVariant("") << "";
    QTest::newRow("a text stands") << QVariant("Corvane") << "Corvane";
    QTest::newRow("a number is decimal") << QVariant(0x14300000) << "338690048";
    QTest::newRow("a truth is a word") << QVariant(true) << "true";
    QTest::newRow("a time is in ISO form")
        << QVariant(QDateTime(QDate(2016, 2, 1), QTime(13, 45), Qt::UTC)) << "2016-02-01T13:45:00.000Z";
    QTest::newRow("a list is joined") << QVariant(QStringList{"a", "b", "c"}) << "a, b, c";
    QTest::newRow("a list of mixed values is joined") << QVariant(QVariantList{1, "b", true}) << "1, b, true";
    QTest::newRow("an empty list is empty") << QVariant(QStringList()) << "";
    QTest::newRow("a map is pairs in the order of its keys") << QVariant(map) << "a: one, b: 2";
    QTest::newRow("a hash is pairs") << QVariant(QVariantHash{{"a", 1}}) << "a: 1";
    QTest::newRow("a map in a list stands in brackets")
        << QVariant(QVariantList{map, 3}) << "[a: one, b: 2], 3";
    QTest::newRow("a list in a map stands in brackets")
        << QVariant(QVariantMap{{"k", QStringList{"x", "y"}}}) << "k: [x, y]";
    QTest::newRow("bytes are UTF-8") << QVariant(QByteArray("Gr\xc3\xb6\xc3\x9f"
                                                            "e"))
                                     << QString::fromUtf8("Größe");
    QTest::newRow("bytes after a zero byte are kept")
        << QVariant(QByteArray("a\0b", 3)) << QString::fromUtf8("a\0b", 3);
    QTest::newRow("an id is its text")
        << QVariant::fromValue(UuidString()) << "00000000-0000-0000-0000-000000000000";
}

void TestEventText::texts()
{
    QFETCH(QVariant, value);
    QFETCH(QString, expected);
    QCOMPARE(eventText(value), expected);
}

void TestEventText::errors_data()
{
    QTest::addColumn<uint>("error");
    QTest::addColumn<QVariant>("data");
    QTest::addColumn<QString>("expected");

    QTest::newRow("the number is decimal and first")
        << 0x14300000U << QVariant("Connection failed") << "Error code: 338690048, Connection failed";
    QTest::newRow("without data only the number stands")
        << 0x14200001U << QVariant() << "Error code: 337641473";
    QTest::newRow("the number is unsigned") << 0xfffffffeU << QVariant("") << "Error code: 4294967294";
}

void TestEventText::errors()
{
    QFETCH(uint, error);
    QFETCH(QVariant, data);
    QFETCH(QString, expected);
    QCOMPARE(errorEventText(error, data), expected);
}

QTEST_GUILESS_MAIN(TestEventText)
#include "test_eventtext.moc"
