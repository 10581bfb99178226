#include "Corvane/settings/standardfields.h"

#include <QTest>

#include <limits>

using namespace StandardFields;

namespace {

const QStringList kCustom = {"Badge", "11", "Gender", "Job"};

}  // namespace

/// The settings that name person fields, in the form in which they are stored.
class TestStandardFields : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void masks_data();
    void masks();
    void statesComeBackFromTheirMasks();
    void aMandatoryFieldIsVisibleWhateverItsOtherBitSays();
    void nameOrders_data();
    void nameOrders();
    void entries_data();
    void entries();
    void everyChosenIndexComesBack();
    void entriesThatAreNotOfferedAreEmpty_data();
    void entriesThatAreNotOfferedAreEmpty();
    void onlyTheSummaryReadsANumberAsTheIndexOfACustomField();
    void onlyTheResultReadsAStandardFieldByItsText();
};

void TestStandardFields::texts_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");

    const QStringList all = {"Full Name", "First Name",  "Middle Name", "Last Name",   "Personal ID",
                             "Birthdate", "Person code", "Gender",      "Ethnic group"};
    for (int number = 0; number < all.size(); ++number)
        QTest::addRow("%d is %s", number, qPrintable(all.at(number))) << number << all.at(number);
    QTest::newRow("numbers above 8 have no text") << 9 << QString();
    QTest::newRow("numbers below 0 have no text") << -1 << QString();
}

void TestStandardFields::texts()
{
    QFETCH(int, number);
    QFETCH(QString, expected);
    QCOMPARE(text(number), expected);
}

void TestStandardFields::masks_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("isMask");
    QTest::addColumn<int>("expected");

    QTest::newRow("an integer") << QVariant(58) << true << 58;
    QTest::newRow("an integer as an ini file gives it") << QVariant("186") << true << 186;
    QTest::newRow("no bit at all") << QVariant(0) << true << 0;
    QTest::newRow("all bits") << QVariant(-1) << true << -1;
    QTest::newRow("a word") << QVariant("all") << false << 0;
    QTest::newRow("an empty text") << QVariant("") << false << 0;
    QTest::newRow("nothing") << QVariant() << false << 0;
    QTest::newRow("a hexadecimal number") << QVariant("0x3a") << false << 0;
    QTest::newRow("a fraction") << QVariant("58.5") << false << 0;
    QTest::newRow("a number that overflows") << QVariant("4294967354") << false << 0;
    QTest::newRow("a list") << QVariant(QStringList{"58", "186"}) << false << 0;
}

void TestStandardFields::masks()
{
    QFETCH(QVariant, value);
    QFETCH(bool, isMask);
    QFETCH(int, expected);
    const std::optional<int> mask = readMask(value);
    QCOMPARE(mask.has_value(), isMask);
    if (isMask)
        QCOMPARE(*mask, expected);
}

void TestStandardFields::statesComeBackFromTheirMasks()
{
    for (int combination = 0; combination < 6561; combination += 7) {
        Masks masks;
        int rest = combination;
        for (int number = kFirstEdited; number <= kLastEdited; ++number, rest /= 3)
            addState(masks, number, static_cast<State>(rest % 3));
        rest = combination;
        for (int number = kFirstEdited; number <= kLastEdited; ++number, rest /= 3)
            QCOMPARE(stateOf(masks, number), static_cast<State>(rest % 3));
        QCOMPARE(masks.mandatory & ~masks.visible, 0);
    }
}

void TestStandardFields::aMandatoryFieldIsVisibleWhateverItsOtherBitSays()
{
    QCOMPARE(stateOf({1 << 6, 0}, 6), Mandatory);
    QCOMPARE(stateOf({1 << 6, 1 << 6}, 6), Mandatory);
    QCOMPARE(stateOf({0, 1 << 6}, 6), Visible);
    QCOMPARE(stateOf({0, ~(1 << 6)}, 6), NotVisible);
}

void TestStandardFields::nameOrders_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QList<int>>("expected");  // empty for a value that is ignored

    QTest::newRow("last name, first name, nothing") << QVariant(QVariantList{3, 1, 4}) << QList<int>{2, 0, 3};
    QTest::newRow("texts, as an ini file gives them")
        << QVariant(QStringList{"1", "2", "3"}) << QList<int>{0, 1, 2};
    QTest::newRow("one part three times") << QVariant(QVariantList{2, 2, 2}) << QList<int>{1, 1, 1};
    QTest::newRow("a surplus is lost") << QVariant(QVariantList{3, 2, 1, 4, 4}) << QList<int>{2, 1, 0};
    QTest::newRow("a number that is no part is none")
        << QVariant(QStringList{"0", "5", "-2147483648"}) << QList<int>{3, 3, 3};
    QTest::newRow("two numbers are ignored") << QVariant(QVariantList{3, 1}) << QList<int>{};
    QTest::newRow("a single number is ignored") << QVariant(3) << QList<int>{};
    QTest::newRow("nothing is ignored") << QVariant() << QList<int>{};
    QTest::newRow("words are ignored") << QVariant(QStringList{"last", "first", "4"}) << QList<int>{};
}

void TestStandardFields::nameOrders()
{
    QFETCH(QVariant, value);
    QFETCH(QList<int>, expected);
    QCOMPARE(readNameOrder(value).value_or(QList<int>()), expected);
    if (!expected.isEmpty())
        QCOMPARE(readNameOrder(nameOrderToSetting(expected)), std::make_optional(expected));
}

void TestStandardFields::entries_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("expected");

    QTest::newRow("the full name") << 0 << "0";
    QTest::newRow("the last standard field") << 8 << "8";
    QTest::newRow("no field") << 9 << "(empty)";
    QTest::newRow("the first custom field") << 10 << "Badge";
    QTest::newRow("the last custom field") << 13 << "Job";
    QTest::newRow("an index after the last") << 14 << "(empty)";
    QTest::newRow("no index") << -1 << "(empty)";
}

void TestStandardFields::entries()
{
    QFETCH(int, index);
    QFETCH(QString, expected);
    QCOMPARE(entryOf(index, kCustom), expected);
}

void TestStandardFields::everyChosenIndexComesBack()
{
    for (int index = 0; index < kFirstCustomIndex + kCustom.size(); ++index) {
        QCOMPARE(summaryIndex(entryOf(index, kCustom), kCustom), index);
        QCOMPARE(resultIndex(entryOf(index, kCustom), kCustom), index);
    }
}

void TestStandardFields::entriesThatAreNotOfferedAreEmpty_data()
{
    QTest::addColumn<QString>("entry");

    QTest::newRow("a custom field that is gone") << "Employer";
    QTest::newRow("a name in other letters") << "badge";
    QTest::newRow("nothing") << "";
    QTest::newRow("the entry for no field") << "(empty)";
    QTest::newRow("the index of no field") << "9";
    QTest::newRow("a number below 0") << "-1";
    QTest::newRow("a number above all") << "9999";
    QTest::newRow("a number that overflows") << "99999999999";
}

void TestStandardFields::entriesThatAreNotOfferedAreEmpty()
{
    QFETCH(QString, entry);
    QCOMPARE(summaryIndex(entry, kCustom), kEmptyIndex);
    QCOMPARE(resultIndex(entry, kCustom), kEmptyIndex);
}

void TestStandardFields::onlyTheSummaryReadsANumberAsTheIndexOfACustomField()
{
    QCOMPARE(summaryIndex(QStringLiteral("10"), kCustom), 10);
    QCOMPARE(resultIndex(QStringLiteral("10"), kCustom), kEmptyIndex);
    // A field of that name goes first.
    QCOMPARE(summaryIndex(QStringLiteral("11"), {"A", "B", "11"}), 12);
}

void TestStandardFields::onlyTheResultReadsAStandardFieldByItsText()
{
    QCOMPARE(resultIndex(QStringLiteral("Birthdate"), kCustom), 5);
    QCOMPARE(summaryIndex(QStringLiteral("Birthdate"), kCustom), kEmptyIndex);
    QCOMPARE(resultIndex(QStringLiteral("Gender"), kCustom), 12);
}

QTEST_GUILESS_MAIN(TestStandardFields)
#include "test_standardfields.moc"
