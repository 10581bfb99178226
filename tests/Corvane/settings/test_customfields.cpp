#include "Corvane/settings/customfields.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <limits>

Q_DECLARE_METATYPE(CustomField)

namespace {

constexpr int kHighest = std::numeric_limits<int>::max();

QStringList texts(const QVector<CustomField> &fields)
{
    QStringList result;
    for (const CustomField &field : fields)
        result.append(customFieldToText(field));
    return result;
}

}  // namespace

/// The site's own person fields in the form in which they are stored.
class TestCustomFields : public QObject
{
    Q_OBJECT

private slots:
    void fieldsThatAreRead_data();
    void fieldsThatAreRead();
    void fieldsThatAreRejected_data();
    void fieldsThatAreRejected();
    void aFieldIsWrittenWithItsPartsInOrder();

    void settings_data();
    void settings();
    void names_data();
    void names();
    void cleanNames_data();
    void cleanNames();

    void theNextNumberIsOneMoreThanTheHighest_data();
    void theNextNumberIsOneMoreThanTheHighest();
    void whatIsWrittenIsReadAgain();
    void manyFieldsWithOneNumberAreReadInTime();
};

void TestCustomFields::fieldsThatAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<CustomField>("expected");

    QTest::newRow("a visible field of one line")
        << "4:Employer=0:true" << CustomField{4, "Employer", 0, true};
    QTest::newRow("a multi line field whose \"true\" is in capitals")
        << "12:Badge=1:TRUE" << CustomField{12, "Badge", 1, true};
    QTest::newRow("false is not visible") << "1:A=0:false" << CustomField{1, "A", 0, false};
    QTest::newRow("a third part that is anything else is not visible")
        << "1:A=0:yes" << CustomField{1, "A", 0, false};
    QTest::newRow("an empty third part is not visible") << "1:A=0:" << CustomField{1, "A", 0, false};
    QTest::newRow("surplus equal signs count for nothing") << "1:=A==1=:true" << CustomField{1, "A", 1, true};
    QTest::newRow("blanks and other scripts belong to the name")
        << QString::fromUtf8("2: Työ paikka & 職業 =0:true")
        << CustomField{2, QString::fromUtf8(" Työ paikka & 職業 "), 0, true};
    QTest::newRow("the highest number") << "2147483647:A=0:true" << CustomField{kHighest, "A", 0, true};
    QTest::newRow("a number below one is a number, too") << "-3:A=0:true" << CustomField{-3, "A", 0, true};
}

void TestCustomFields::fieldsThatAreRead()
{
    QFETCH(QString, text);
    QFETCH(CustomField, expected);
    const std::optional<CustomField> field = readCustomField(text);
    QVERIFY(field.has_value());
    QCOMPARE(field->id, expected.id);
    QCOMPARE(field->name, expected.name);
    QCOMPARE(field->lineType, expected.lineType);
    QCOMPARE(field->visible, expected.visible);
}

void TestCustomFields::fieldsThatAreRejected_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("a colon in the name makes four parts") << "4:Em:ployer=0:true";
    QTest::newRow("two parts") << "4:Employer=0";
    QTest::newRow("a name alone") << "Employer";
    QTest::newRow("nothing") << "";
    QTest::newRow("no number") << ":Employer=0:true";
    QTest::newRow("a number in letters") << "four:Employer=0:true";
    QTest::newRow("a hexadecimal number") << "0x4:Employer=0:true";
    QTest::newRow("a number that overflows") << "2147483648:Employer=0:true";
    QTest::newRow("a number of very many digits") << QString(5000, '9') + ":Employer=0:true";
    QTest::newRow("a fraction") << "4.0:Employer=0:true";
    QTest::newRow("no name") << "4:=0:true";
    QTest::newRow("no line type") << "4:Employer=:true";
    QTest::newRow("an equal sign in the name makes three pieces") << "4:Em=ployer=0:true";
    QTest::newRow("a line type in letters") << "4:Employer=one:true";
    QTest::newRow("a line type that overflows") << "4:Employer=99999999999:true";
    QTest::newRow("separators alone") << ":=:";
}

void TestCustomFields::fieldsThatAreRejected()
{
    QFETCH(QString, text);
    QVERIFY(!readCustomField(text).has_value());
}

void TestCustomFields::aFieldIsWrittenWithItsPartsInOrder()
{
    QCOMPARE(customFieldToText({4, QStringLiteral("Employer"), 0, true}),
             QStringLiteral("4:Employer=0:true"));
    QCOMPARE(customFieldToText({12, QStringLiteral("Badge"), 1, false}), QStringLiteral("12:Badge=1:false"));
}

void TestCustomFields::settings_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("nothing stored gives none") << QVariant() << QStringList{};
    QTest::newRow("an empty text gives none") << QVariant("") << QStringList{};
    QTest::newRow("empty parts are skipped")
        << QVariant(",,1:A=0:true,,2:B=1:false,") << QStringList{"1:A=0:true", "2:B=1:false"};
    QTest::newRow("a text without quotes comes as a list from an ini file")
        << QVariant(QStringList{"1:A=0:true", "2:B=1:false"}) << QStringList{"1:A=0:true", "2:B=1:false"};
    QTest::newRow("the fields stand in the order of their numbers")
        << QVariant("7:C=0:true,2:B=0:true,1:A=0:true")
        << QStringList{"1:A=0:true", "2:B=0:true", "7:C=0:true"};
    QTest::newRow("a malformed field is skipped and the others stay")
        << QVariant("1:A=0:true,2:B:b=0:true,nonsense,3:C=0:true") << QStringList{"1:A=0:true", "3:C=0:true"};
    QTest::newRow("of two fields with one number the later gets the next free one")
        << QVariant("1:A=0:true,1:B=0:true,5:C=0:true")
        << QStringList{"1:A=0:true", "5:C=0:true", "6:B=0:true"};
    QTest::newRow("a field with the number 0 comes after the highest of those before it")
        << QVariant("0:A=0:true,5:B=0:true,0:C=0:true,9:D=0:true")
        << QStringList{"1:A=0:true", "5:B=0:true", "6:C=0:true", "9:D=0:true"};
    QTest::newRow("a number that a field with the number 0 got is taken")
        << QVariant("0:A=0:true,1:B=0:true") << QStringList{"1:A=0:true", "2:B=0:true"};
    QTest::newRow("a field with a number below 0 gets the next free one")
        << QVariant("-2147483648:A=0:true") << QStringList{"1:A=0:true"};
    QTest::newRow("after the highest number comes the lowest free one")
        << QVariant("2147483647:A=0:true,2147483647:B=0:true,1:C=0:true,0:D=0:true")
        << QStringList{"1:C=0:true", "2:D=0:true", "3:B=0:true", "2147483647:A=0:true"};
}

void TestCustomFields::settings()
{
    QFETCH(QVariant, setting);
    QFETCH(QStringList, expected);
    QCOMPARE(texts(readCustomFields(setting)), expected);
    QCOMPARE(customFieldsToSetting(readCustomFields(setting)), expected.join(QLatin1Char(',')));
}

void TestCustomFields::names_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("nothing stored") << QVariant() << QStringList{};
    QTest::newRow("the names in the order in which they are stored")
        << QVariant("2:B=0:true,1:A=0:false") << QStringList{"B", "A"};
    QTest::newRow("only the first piece before an equal sign is the name")
        << QVariant("1:A=b=0:true") << QStringList{"A"};
    QTest::newRow("a field without its number is passed over") << QVariant("A=0") << QStringList{};
    QTest::newRow("a field without a name is passed over")
        << QVariant("1:=0:true,2:B=0:true") << QStringList{"B"};
    QTest::newRow("separators alone") << QVariant(":::,===,:=:,,") << QStringList{};
    QTest::newRow("a list from an ini file")
        << QVariant(QStringList{"1:A=0:true", "2:B=0:true"}) << QStringList{"A", "B"};
}

void TestCustomFields::names()
{
    QFETCH(QVariant, setting);
    QFETCH(QStringList, expected);
    QCOMPARE(readCustomNames(setting), expected);
}

void TestCustomFields::cleanNames_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");

    QTest::newRow("the three separators go") << "a,b:c=d"
                                             << "abcd";
    QTest::newRow("a name without them stays") << " Job & pay; 2 "
                                               << " Job & pay; 2 ";
    QTest::newRow("separators alone leave nothing") << ",,::=="
                                                    << "";
    QTest::newRow("nothing stays nothing") << ""
                                           << "";
}

void TestCustomFields::cleanNames()
{
    QFETCH(QString, typed);
    QFETCH(QString, expected);
    QCOMPARE(cleanCustomName(typed), expected);
}

void TestCustomFields::theNextNumberIsOneMoreThanTheHighest_data()
{
    QTest::addColumn<QList<int>>("used");
    QTest::addColumn<int>("expected");

    QTest::newRow("the first is 1") << QList<int>{} << 1;
    QTest::newRow("gaps are not filled") << QList<int>{1, 7} << 8;
    QTest::newRow("after the highest possible one the lowest gap is filled")
        << QList<int>{1, 2, 4, kHighest} << 3;
}

void TestCustomFields::theNextNumberIsOneMoreThanTheHighest()
{
    QFETCH(QList<int>, used);
    QFETCH(int, expected);
    QMap<int, bool> map;
    for (const int id : used)
        map.insert(id, true);
    QCOMPARE(nextCustomId(map), expected);
}

void TestCustomFields::whatIsWrittenIsReadAgain()
{
    QRandomGenerator random(54);
    for (int round = 0; round < 300; ++round) {
        QVector<CustomField> fields;
        int id = 0;
        for (int count = random.bounded(12); count > 0; --count) {
            id += 1 + static_cast<int>(random.bounded(50));
            QString typed;
            for (int i = 1 + random.bounded(20); i > 0; --i)
                typed.append(QChar(0x20 + random.bounded(0x250)));
            const QString name = cleanCustomName(typed) + QLatin1Char('x');
            fields.append({id, name, static_cast<int>(random.bounded(2)), random.bounded(2) == 1});
        }
        const QString setting = customFieldsToSetting(fields);
        QCOMPARE(texts(readCustomFields(setting)), texts(fields));
        QStringList names;
        for (const CustomField &field : qAsConst(fields))
            names.append(field.name);
        QCOMPARE(readCustomNames(setting), names);
    }
}

void TestCustomFields::manyFieldsWithOneNumberAreReadInTime()
{
    constexpr int kCount = 50000;
    QStringList fields;
    for (int i = 0; i < kCount; ++i)
        fields.append(QStringLiteral("1:A=0:true"));
    const QVector<CustomField> read = readCustomFields(fields.join(QLatin1Char(',')));
    QCOMPARE(read.size(), kCount);
    QCOMPARE(read.last().id, kCount);
}

QTEST_GUILESS_MAIN(TestCustomFields)
#include "test_customfields.moc"
