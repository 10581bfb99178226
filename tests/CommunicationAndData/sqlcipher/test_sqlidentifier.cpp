#include "CommunicationAndData/sqlcipher/sqlidentifier.h"

#include <QtTest>

/// Names with and without delimiters.
class TestSqlIdentifier : public QObject
{
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void tableNameIsSplit_data();
    void tableNameIsSplit();
};

void TestSqlIdentifier::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isDelimited");
    QTest::addColumn<QString>("stripped");
    QTest::addColumn<QString>("quoted");

    QTest::newRow("a bare name gets quotes") << "name" << false << "name"
                                             << "\"name\"";
    QTest::newRow("nothing stays nothing") << "" << false << ""
                                           << "";
    QTest::newRow("quotes are seen") << "\"na me\"" << true << "na me"
                                     << "\"na me\"";
    QTest::newRow("brackets are seen") << "[na me]" << true << "na me"
                                       << "[na me]";
    QTest::newRow("backticks are seen") << "`na me`" << true << "na me"
                                        << "`na me`";
    QTest::newRow("doubled quotes are single inside") << "\"a\"\"b\"" << true << "a\"b"
                                                      << "\"a\"\"b\"";
    QTest::newRow("doubled backticks are single inside") << "`a``b`" << true << "a`b"
                                                         << "`a``b`";
    QTest::newRow("a bracket can't be doubled") << "[a]]" << false << "[a]]"
                                                << "\"[a]]\"";
    QTest::newRow("a quote inside is doubled") << "a\"b" << false << "a\"b"
                                               << "\"a\"\"b\"";
    QTest::newRow("a lone quote is a name") << "\"" << false << "\""
                                            << "\"\"\"\"";
    QTest::newRow("two quotes hold no name") << "\"\"" << false << "\"\""
                                             << "\"\"\"\"\"\"";
    QTest::newRow("an open bracket is a name") << "[a" << false << "[a"
                                               << "\"[a\"";
    QTest::newRow("delimiters that differ are a name") << "[a\"" << false << "[a\""
                                                       << "\"[a\"\"\"";
    QTest::newRow("two delimited names are not one") << "\"a\".\"b\"" << false << "a.b"
                                                     << "\"\"\"a\"\".\"\"b\"\"\"";
    QTest::newRow("a dot inside delimiters stays") << "[a.b]" << true << "a.b"
                                                   << "[a.b]";
    QTest::newRow("non-ASCII letters stay") << "Größe" << false << "Größe"
                                            << "\"Größe\"";
}

void TestSqlIdentifier::names()
{
    QFETCH(const QString, name);
    QTEST(isDelimitedIdentifier(name), "isDelimited");
    QTEST(strippedIdentifier(name), "stripped");
    QTEST(quotedIdentifier(name), "quoted");
}

void TestSqlIdentifier::tableNameIsSplit_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("schema");
    QTest::addColumn<QString>("table");

    QTest::newRow("a table alone has no schema") << "t"
                                                 << ""
                                                 << "t";
    QTest::newRow("a dot separates the schema") << "main.t"
                                                << "main"
                                                << "t";
    QTest::newRow("both parts lose their delimiters") << "\"main\".[t t]"
                                                      << "main"
                                                      << "t t";
    QTest::newRow("a dot inside delimiters separates nothing") << "\"a.b\""
                                                               << ""
                                                               << "a.b";
    QTest::newRow("three parts are one strange name") << "a.b.c"
                                                      << ""
                                                      << "a.b.c";
}

void TestSqlIdentifier::tableNameIsSplit()
{
    QFETCH(const QString, name);
    const QualifiedName split = splitTableName(name);
    QTEST(split.schema, "schema");
    QTEST(split.table, "table");
}

QTEST_GUILESS_MAIN(TestSqlIdentifier)
#include "test_sqlidentifier.moc"
