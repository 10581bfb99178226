#include "ZephanShared/toolkit/uuidstring.h"

#include <QTest>

class TestUuidString : public QObject
{
    Q_OBJECT

private slots:
    void normalisation_data();
    void normalisation();
    void comparesAsText();
};

void TestUuidString::normalisation_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const QString nil = QStringLiteral("00000000-0000-0000-0000-000000000000");
    const QString id = QStringLiteral("0f8fad5b-d9cb-469f-a165-70867728950e");
    QTest::newRow("an empty text gives the nil UUID") << QString() << nil;
    QTest::newRow("36 characters stand") << id << id;
    QTest::newRow("36 characters that are no digits stand")
        << QString(36, QLatin1Char('z')) << QString(36, QLatin1Char('z'));
    QTest::newRow("38 characters lose their braces") << QLatin1Char('{') + id + QLatin1Char('}') << id;
    QTest::newRow("a longer text is cut to 36") << id + QStringLiteral("-and-more") << id;
    QTest::newRow("37 characters give the nil UUID") << id + QLatin1Char('x') << nil;
    QTest::newRow("35 characters give the nil UUID") << id.left(35) << nil;
}

void TestUuidString::normalisation()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(UuidString(text).toString(), expected);
}

void TestUuidString::comparesAsText()
{
    const UuidString lower(QStringLiteral("0f8fad5b-d9cb-469f-a165-70867728950e"));
    const UuidString upper(QStringLiteral("0F8FAD5B-D9CB-469F-A165-70867728950E"));
    QVERIFY(lower != upper);
    QVERIFY(upper < lower);
    QVERIFY(UuidString().isNull());
    QCOMPARE(UuidString(), UuidString(QStringLiteral("short")));
}

QTEST_GUILESS_MAIN(TestUuidString)
#include "test_uuidstring.moc"
