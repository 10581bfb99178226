#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/iniscanner.h"

#include <QTest>

class TestIniRepair : public QObject
{
    Q_OBJECT

private slots:
    void whatNeedsNoRepairIsSound_data();
    void whatNeedsNoRepairIsSound();
    void damageIsNamedAndTheRestIsRead_data();
    void damageIsNamedAndTheRestIsRead();
    void settingsAreToldFromOtherFiles_data();
    void settingsAreToldFromOtherFiles();
    void itemsOfAValue_data();
    void itemsOfAValue();
};

void TestIniRepair::whatNeedsNoRepairIsSound_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("an empty file") << QByteArray();
    QTest::newRow("blank lines") << QByteArray("\n\r\n \t\n");
    QTest::newRow("comments") << QByteArray("; one \"quote\n[a];two\n;three\r;four = \\\nb=1;five \"");
    QTest::newRow("no line end at the end") << QByteArray("[a]\nb=1");
    QTest::newRow("line ends of every kind") << QByteArray("[a]\r\nb=1\rc=2\n\rd=3\n\n");
    QTest::newRow("letters in UTF-8") << QByteArray("[a]\nb=ö€𝄞\n");
    QTest::newRow("a quoted line end character") << QByteArray("[a]\nb=\"x\\ny\"\n");
    QTest::newRow("an escaped quote") << QByteArray("[a]\nb=x\\\"y\n");
    QTest::newRow("a continued line") << QByteArray("[a]\nb=x\\\ny\nc=1\n");
    QTest::newRow("a typed value") << QByteArray("[a]\nb=@Variant(\\0\\0\\0\\x1\\x1)\nc=@Invalid()\n");
    QTest::newRow("an empty value") << QByteArray("[a]\nb=\n");
    QTest::newRow("values of no section") << QByteArray("b=1\n[General]\nc=2\n");
}

void TestIniRepair::whatNeedsNoRepairIsSound()
{
    QFETCH(QByteArray, bytes);
    const RepairedIni found = repairIni(bytes);
    QCOMPARE(found.damage, QStringList());
    QCOMPARE(found.text, QByteArray());
}

void TestIniRepair::damageIsNamedAndTheRestIsRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("damage");
    QTest::addColumn<QByteArray>("text");

    const auto utf16 = [](const char *text, bool bigEndian, bool mark) {
        QByteArray bytes = mark ? QByteArray(bigEndian ? "\xfe\xff" : "\xff\xfe") : QByteArray();
        const QString string = QString::fromUtf8(text);
        for (const QChar c : string) {
            const char low = static_cast<char>(c.cell());
            const char high = static_cast<char>(c.row());
            bytes += bigEndian ? high : low;
            bytes += bigEndian ? low : high;
        }
        return bytes;
    };
    const char *const simple = "[a]\nb=ö€\n";

    QTest::newRow("Latin-1 is read as such")
        << QByteArray("[a]\nb=\xf6\n") << "not-utf-8" << QByteArray("[a]\nb=ö\n");
    QTest::newRow("one line in Latin-1 leaves the others in UTF-8")
        << QByteArray("[a]\nb=\xf6\nc=ö\n") << "not-utf-8" << QByteArray("[a]\nb=ö\nc=ö\n");
    QTest::newRow("a Latin-1 key is written as keys are")
        << QByteArray("[gr\xfc\xdf]\n\xe4=1\n") << "not-utf-8" << QByteArray("[gr%FC%DF]\n%E4=1\n");
    QTest::newRow("a character cut in two at the end")
        << QByteArray("[a]\nb=\xe2\x82") << "not-utf-8" << QByteArray("[a]\nb=\xc3\xa2\xc2\x82\n");
    QTest::newRow("UTF-16, little end first") << utf16(simple, false, true) << "utf-16" << QByteArray(simple);
    QTest::newRow("UTF-16, big end first") << utf16(simple, true, true) << "utf-16" << QByteArray(simple);
    QTest::newRow("UTF-16 without a mark, little end first")
        << utf16(simple, false, false) << "utf-16" << QByteArray(simple);
    QTest::newRow("UTF-16 without a mark, big end first")
        << utf16(simple, true, false) << "utf-16" << QByteArray(simple);
    QTest::newRow("a byte order mark in front of UTF-8")
        << QByteArray("\xef\xbb\xbf[a]\nb=ö\n") << "utf-8-mark" << QByteArray("[a]\nb=ö\n");
    QTest::newRow("UTF-16 cut in the middle of a character")
        << utf16("[a]\nb=1\n", false, true).chopped(1) << "utf-16" << QByteArray("[a]\nb=1\n");
    QTest::newRow("zero bytes between the lines")
        << QByteArray("[a]\n\0\0\0b=1\n\0c=2\n", 16) << "nul-bytes" << QByteArray("[a]\nb=1\nc=2\n");
    QTest::newRow("nothing but zero bytes") << QByteArray(4096, '\0') << "nul-bytes" << QByteArray();
    QTest::newRow("a quote that is not closed ends with its line")
        << QByteArray("[a]\nb=\"x\nc=2\nd=\"y\"\n") << "open-quote"
        << QByteArray("[a]\nb=\"x\"\nc=2\nd=\"y\"\n");
    QTest::newRow("a quote that is not closed at the end of the file")
        << QByteArray("[a]\nb=\"x\\") << "open-quote" << QByteArray("[a]\nb=\"x\"\n");
    QTest::newRow("a quote in a section")
        << QByteArray("[a\"]\nb=1\n") << "open-quote" << QByteArray("[a%22]\nb=1\n");
    QTest::newRow("a line that is neither key nor section is left out")
        << QByteArray("[a]\nnonsense\nb=1\n") << "unreadable-line" << QByteArray("[a]\nb=1\n");
    QTest::newRow("a line without a key is left out")
        << QByteArray("[a]\n=5\nb=1\n") << "unreadable-line" << QByteArray("[a]\nb=1\n");
    QTest::newRow("a key of control characters alone is a key")
        << QByteArray("[a]\nnonsense\n\x0b =1\n") << "unreadable-line" << QByteArray("[a]\n%0B=1\n");
    QTest::newRow("a section that is not closed ends with its line")
        << QByteArray("[a\nb=1\n") << "unreadable-line" << QByteArray("[a]\nb=1\n");
    QTest::newRow("what follows a section in its line is left out")
        << QByteArray("[a] c=2\nb=1\n") << "unreadable-line" << QByteArray("[a]\nb=1\n");
    QTest::newRow("a typed value that claims too much is left out")
        << QByteArray("[a]\nb=@Variant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)\nc=1\n") << "unreadable-value"
        << QByteArray("[a]\nc=1\n");
    QTest::newRow("also when its name is escaped")
        << QByteArray("[a]\nb=\\x40Va\\162iant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)\nc=1\n")
        << "unreadable-value" << QByteArray("[a]\nc=1\n");
    QTest::newRow("also inside a list")
        << QByteArray("[a]\nb=1, \"@Variant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)\"\nc=1\n") << "unreadable-value"
        << QByteArray("[a]\nc=1\n");
    QTest::newRow("a page of another kind")
        << QByteArray("<html>\n<body>Not found</body>\n</html>\n") << "unreadable-line" << QByteArray();
    const QByteArray line = "c=" + QByteArray(1021, 'x') + '\n';
    QTest::newRow("too much is cut behind a whole line")
        << "[a]\n" + line.repeated(kLargestIni / 1024 + 1) << "too-large"
        << "[a]\n" + line.repeated(kLargestIni / 1024 - 1);
}

void TestIniRepair::damageIsNamedAndTheRestIsRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, damage);
    QFETCH(QByteArray, text);
    const RepairedIni found = repairIni(bytes);
    QCOMPARE(found.damage, QStringList(damage));
    QVERIFY(found.text == text);
    QVERIFY(repairIni(found.text).isSound());
}

void TestIniRepair::settingsAreToldFromOtherFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isSettings");

    QTest::newRow("settings") << QByteArray("[ui]\na=1\n") << true;
    QTest::newRow("nothing at all is settings without values") << QByteArray("") << true;
    QTest::newRow("a comment alone") << QByteArray("; nothing\n") << true;
    QTest::newRow("a damaged line among others") << QByteArray("# by hand\n[ui]\na=1\n") << true;
    QTest::newRow("UTF-16") << QByteArray("\xff\xfe[\0u\0]\0\n\0a\0=\0"
                                          "1\0",
                                          16)
                            << true;
    QTest::newRow("Latin-1") << QByteArray("[ui]\na=\xe4\n") << true;
    QTest::newRow("a text") << QByteArray("Dear colleague,\nplease find attached\n") << false;
    QTest::newRow("a picture") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0=\0", 20) << false;
    QTest::newRow("NUL bytes") << QByteArray(64, '\0') << false;
}

void TestIniRepair::settingsAreToldFromOtherFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isSettings);
    QCOMPARE(repairIni(bytes).isSettings(), isSettings);
}

void TestIniRepair::itemsOfAValue_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QStringList>("items");

    const auto list = [](const char *texts) {
        return QString::fromUtf8(texts).split(QLatin1Char('|'));
    };
    QTest::newRow("one") << QByteArray(" a b ") << list("a b");
    QTest::newRow("none is an empty one") << QByteArray() << list("");
    QTest::newRow("several") << QByteArray("a, b ,c") << list("a|b|c");
    QTest::newRow("quoted") << QByteArray("\" a,b \", \"\"") << list(" a,b |");
    QTest::newRow("escapes") << QByteArray("\\x41\\102\\t\\q\\\\\\\"") << list("AB\t\\\"");
    QTest::newRow("letters") << QByteArray("ö\\x20acö") << list("ö€ö");
    QTest::newRow("an escape that ends the value") << QByteArray("a\\") << list("a");
}

void TestIniRepair::itemsOfAValue()
{
    QFETCH(QByteArray, value);
    QFETCH(QStringList, items);
    QCOMPARE(iniItems(value), items);
}

QTEST_GUILESS_MAIN(TestIniRepair)
#include "test_inirepair.moc"
