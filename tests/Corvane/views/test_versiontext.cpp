#include "Corvane/views/versiontext.h"
#include "support/workstation.h"

#include <QTest>

class TestVersionText : public QObject
{
    Q_OBJECT

private slots:
    void format_data();
    void format();
    void firstLine_data();
    void firstLine();
    void aMissingFileGivesAnEmptyText();

private:
    QTemporaryDir m_folder;
};

void TestVersionText::format_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("version");
    QTest::addColumn<bool>("preRelease");

    QTest::newRow("a fourth part is left out") << "5.1.0.0"
                                               << "5.1.0" << false;
    QTest::newRow("a second zero at the end is left out") << "5.0.0"
                                                          << "5.0" << false;
    QTest::newRow("a third part that is not zero stays") << "5.1.2.0"
                                                         << "5.1.2" << false;
    QTest::newRow("a zero in the middle stays") << "5.0.1"
                                                << "5.0.1" << false;
    QTest::newRow("a single zero at the end stays") << "5.1.0"
                                                    << "5.1.0" << false;
    QTest::newRow("two zeros followed by a fourth part stay") << "5.0.0.0"
                                                              << "5.0.0" << false;
    QTest::newRow("two parts are shown as they are") << "5.0"
                                                     << "5.0" << false;
    QTest::newRow("one part is shown as it is") << "5"
                                                << "5" << false;
    QTest::newRow("two zeros alone become one") << "0.0"
                                                << "0" << false;
    QTest::newRow("three zeros become two") << "0.0.0"
                                            << "0.0" << false;
    QTest::newRow("parts of two digits stand") << "10.11.12"
                                               << "10.11.12" << false;
    QTest::newRow("leading zeros stand") << "05.00.07"
                                         << "05.00.07" << false;
    QTest::newRow("two leading zeros are not the zero that is left out") << "5.00.0"
                                                                         << "5.00.0" << false;
    QTest::newRow("a part of three digits reads as 0") << "5.123.4"
                                                       << "5.0.4" << false;
    QTest::newRow("many parts are cut to three") << "1.2.3.4.5.6.7.8.9"
                                                 << "1.2.3" << false;

    QTest::newRow("a version file holding 6.0p3 gives 6.0p3") << "6.0p3"
                                                              << "6.0p3" << true;
    QTest::newRow("a patch of two digits") << "6.12p34"
                                           << "6.12p34" << true;
    QTest::newRow("a patch on the first part") << "6p1.2"
                                               << "6p1.2" << true;
    QTest::newRow("a patch on the third part") << "6.1.2p1"
                                               << "6.1.2p1" << true;
    QTest::newRow("a patch on the fourth part is left out") << "6.1.2.3p1"
                                                            << "6.1.2" << false;
    QTest::newRow("a zero with a patch is not the zero that is left out") << "6.0.0p1"
                                                                          << "6.0.0p1" << true;
    QTest::newRow("a patch without a number reads as 0") << "6.1p"
                                                         << "6.0" << false;
    QTest::newRow("a patch of three digits reads as 0") << "6.1p123"
                                                        << "6.0" << false;
    QTest::newRow("a patch alone reads as 0") << "6.p1"
                                              << "6.0" << false;
    QTest::newRow("a capital patch reads as 0") << "6.0P3.1"
                                                << "6.0.1" << false;

    QTest::newRow("letters only give the version 0") << "beta"
                                                     << "0" << false;
    QTest::newRow("the letter p alone is no patch") << "p"
                                                    << "0" << false;
    QTest::newRow("a line end makes the last part 0") << "5.1.2\n"
                                                      << "5.1.0" << false;
    QTest::newRow("a line end makes the last of two parts 0") << "5.1\n"
                                                              << "5.0" << false;
    QTest::newRow("a line end on a patch makes it 0") << "6.0p3\n"
                                                      << "6.0" << false;
    QTest::newRow("a line end on a fourth part has no effect") << "5.1.2.3\n"
                                                               << "5.1.2" << false;
    QTest::newRow("a line end with a zero before it leaves the last zero out") << "5.0.1\n"
                                                                               << "5.0" << false;
    QTest::newRow("empty parts read as 0") << "..1"
                                           << "0.0.1" << false;
    QTest::newRow("a full stop alone is a zero") << "."
                                                 << "0" << false;
    QTest::newRow("blanks are no digits") << " 5. 1"
                                          << "0" << false;
    QTest::newRow("a sign is no digit") << "-5.1"
                                        << "0.1" << false;
    QTest::newRow("digits of other scripts are none") << QStringLiteral("٥.1") << "0.1" << false;
    QTest::newRow("an empty text stays empty") << QString() << QString() << false;
}

void TestVersionText::format()
{
    QFETCH(QString, text);
    QFETCH(QString, version);
    QFETCH(bool, preRelease);
    QCOMPARE(formatVersion(text), version);
    QCOMPARE(isPreRelease(formatVersion(text)), preRelease);
}

void TestVersionText::firstLine_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("line");

    QTest::newRow("a line without an end") << QByteArray("6.0p3") << "6.0p3";
    QTest::newRow("the line end comes with it") << QByteArray("5.1.2\nmore") << "5.1.2\n";
    QTest::newRow("a line end of Windows counts as one character") << QByteArray("5.1.2\r\n") << "5.1.2\n";
    QTest::newRow("nine bytes are delivered whole") << QByteArray("11.22.3p4") << "11.22.3p4";
    QTest::newRow("the rest of a longer line has no effect") << QByteArray("11.22.3p44x") << "11.22.3p4";
    QTest::newRow("a line end after nine bytes is not delivered") << QByteArray("11.22.3p4\n") << "11.22.3p4";
    QTest::newRow("an empty file") << QByteArray() << QString();
    QTest::newRow("an empty first line") << QByteArray("\n5.1") << "\n";
}

void TestVersionText::firstLine()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, line);
    const QString path = m_folder.filePath(QStringLiteral("version"));
    QVERIFY(writeFile(path, content));
    QCOMPARE(readVersionLine(path), line);
}

void TestVersionText::aMissingFileGivesAnEmptyText()
{
    QCOMPARE(readVersionLine(m_folder.filePath(QStringLiteral("missing"))), QString());
    QCOMPARE(readVersionLine(m_folder.path()), QString());
    QCOMPARE(readVersionLine(QString()), QString());
}

QTEST_GUILESS_MAIN(TestVersionText)
#include "test_versiontext.moc"
