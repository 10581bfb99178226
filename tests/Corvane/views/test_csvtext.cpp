#include "Corvane/views/csvtext.h"

#include <QTest>

class TestCsvText : public QObject
{
    Q_OBJECT

private slots:
    void record_data();
    void record();
    void tabbedLine_data();
    void tabbedLine();
    void clipboardTakesNoTextsOfAnyLength();
};

void TestCsvText::record_data()
{
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const QStringList &fields, const char *text) {
        QTest::newRow(name) << fields << QString::fromUtf8(text);
    };
    row("plain fields stand as they are", {QStringLiteral("a"), QStringLiteral("b c")}, "a,b c\r\n");
    row("empty fields keep their places", {QString(), QString(), QString()}, ",,\r\n");
    row("a comma is put in quotes", {QStringLiteral("a,b"), QStringLiteral("c")}, "\"a,b\",c\r\n");
    row("a quote is doubled", {QStringLiteral("say \"ah\"")}, "\"say \"\"ah\"\"\"\r\n");
    row("a field of quotes alone", {QStringLiteral("\"\"")}, "\"\"\"\"\"\"\r\n");
    row("line breaks stay inside quotes", {QStringLiteral("a\nb"), QStringLiteral("c\r\nd")},
        "\"a\nb\",\"c\r\nd\"\r\n");
    row("a tab needs no quotes", {QStringLiteral("a\tb")}, "a\tb\r\n");
    row("blanks are part of the field", {QStringLiteral(" a ")}, " a \r\n");
    row("letters beyond ASCII stay", {QString::fromUtf8("Mäkelä 雪")}, "Mäkelä 雪\r\n");
}

void TestCsvText::record()
{
    QFETCH(QStringList, fields);
    QFETCH(QString, text);
    QCOMPARE(CsvText::record(fields), text);
}

void TestCsvText::tabbedLine_data()
{
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QString>("text");

    QTest::newRow("commas need no quotes")
        << QStringList{QStringLiteral("a,b"), QStringLiteral("c")} << QStringLiteral("a,b\tc\n");
    QTest::newRow("tabs and line breaks do") << QStringList{QStringLiteral("a\tb"), QStringLiteral("c\nd")}
                                             << QStringLiteral("\"a\tb\"\t\"c\nd\"\n");
}

void TestCsvText::tabbedLine()
{
    QFETCH(QStringList, fields);
    QFETCH(QString, text);
    QCOMPARE(CsvText::tabbedLine(fields), text);
}

void TestCsvText::clipboardTakesNoTextsOfAnyLength()
{
    CsvText::ClipboardLines lines(10);
    QVERIFY(lines.add({QStringLiteral("a"), QStringLiteral("b")}));
    QVERIFY(lines.add({QStringLiteral("12345")}));
    QCOMPARE(lines.text(), QStringLiteral("a\tb\n12345\n"));
    QVERIFY(!lines.add({QString()}));
    QCOMPARE(lines.text(), QStringLiteral("a\tb\n12345\n"));
}

QTEST_GUILESS_MAIN(TestCsvText)
#include "test_csvtext.moc"
