#include "Corvane/settings/settingslists.h"

#include <QRandomGenerator>
#include <QTest>

class TestSettingsLists : public QObject
{
    Q_OBJECT

private slots:
    void numbers_data();
    void numbers();
    void numbersComeBackAsTheyWereWritten();
    void texts_data();
    void texts();
    void dateFormatsComeBackFromOneNumber();
};

void TestSettingsLists::numbers_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QList<int>>("expected");

    QTest::newRow("a list of integers") << QVariant(QVariantList{3, 2, 10}) << QList<int>{3, 2, 10};
    QTest::newRow("a list of texts, as an ini file gives it")
        << QVariant(QStringList{"3", "2", "10"}) << QList<int>{3, 2, 10};
    QTest::newRow("a single integer") << QVariant(6) << QList<int>{6};
    QTest::newRow("a single integer as text") << QVariant(QStringLiteral("6")) << QList<int>{6};
    QTest::newRow("zero is a number") << QVariant(QVariantList{0}) << QList<int>{0};
    QTest::newRow("an invalid value gives none") << QVariant() << QList<int>{};
    QTest::newRow("an empty list gives none") << QVariant(QVariantList{}) << QList<int>{};
    QTest::newRow("an empty text gives none") << QVariant(QString()) << QList<int>{};
    QTest::newRow("an entry that is no number is skipped")
        << QVariant(QStringList{"3", "x", "", "10"}) << QList<int>{3, 10};
    QTest::newRow("a number that overflows is skipped")
        << QVariant(QStringList{"99999999999", "4"}) << QList<int>{4};
    QTest::newRow("a lone text that is no number gives none")
        << QVariant(QStringLiteral("x")) << QList<int>{};
    QTest::newRow("blanks around a number don't matter")
        << QVariant(QStringList{" 3", "2 "}) << QList<int>{3, 2};
}

void TestSettingsLists::numbers()
{
    QFETCH(QVariant, value);
    QFETCH(QList<int>, expected);
    QCOMPARE(readNumbers(value), expected);
}

void TestSettingsLists::numbersComeBackAsTheyWereWritten()
{
    QRandomGenerator random(20);
    for (int round = 0; round < 500; ++round) {
        QList<int> numbers;
        for (int i = random.bounded(20); i > 0; --i)
            numbers.append(static_cast<int>(random.generate()));
        QCOMPARE(readNumbers(numbersToSetting(numbers)), numbers);
        QCOMPARE(readNumbers(numbersToSetting(numbers).toStringList()), numbers);
    }
}

void TestSettingsLists::texts_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("nothing stored keeps all defaults") << QVariant() << QStringList{"a", "b", "c"};
    QTest::newRow("two entries keep the default of the third")
        << QVariant(QStringList{"x", "y"}) << QStringList{"x", "y", "c"};
    QTest::newRow("a single text is a list of one") << QVariant("x") << QStringList{"x", "b", "c"};
    QTest::newRow("an empty entry counts") << QVariant(QStringList{"", "y"}) << QStringList{"", "y", "c"};
    QTest::newRow("a surplus is lost")
        << QVariant(QStringList{"1", "2", "3", "4"}) << QStringList{"1", "2", "3"};
}

void TestSettingsLists::texts()
{
    QFETCH(QVariant, stored);
    QFETCH(QStringList, expected);
    QCOMPARE(overlayTexts({"a", "b", "c"}, stored), expected);
}

void TestSettingsLists::dateFormatsComeBackFromOneNumber()
{
    for (int format = 0; format < 6; ++format) {
        for (int separator = 0; separator < 3; ++separator) {
            const int packed = packDateFormat(format, separator);
            QCOMPARE(packed, format * 65536 + separator);
            QCOMPARE(dateFormatOf(packed), format);
            QCOMPARE(dateSeparatorOf(packed), separator);
        }
    }
    QCOMPARE(dateSeparatorOf(packDateFormat(5, -1)), 0xffff);
}

QTEST_GUILESS_MAIN(TestSettingsLists)
#include "test_settingslists.moc"
