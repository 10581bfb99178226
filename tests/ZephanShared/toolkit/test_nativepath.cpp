#include "ZephanShared/toolkit/nativepath.h"

#include <QDir>
#include <QTest>

class TestNativePath : public QObject
{
    Q_OBJECT

private slots:
    void separatorsAreThePlatforms();
    void dataDirectory_data();
    void dataDirectory();
    void dataDirectoryIsComputedAfresh();
};

void TestNativePath::separatorsAreThePlatforms()
{
    const QStringList parts = {QStringLiteral("C:"), QStringLiteral("Program Data"), QStringLiteral("ä"),
                               QString()};
    QCOMPARE(nativePath(parts.join(QLatin1Char('/'))), parts.join(QDir::separator()));
    QCOMPARE(nativePath(QString()), QString());
}

void TestNativePath::dataDirectory_data()
{
    QTest::addColumn<QByteArray>("programData");
    QTest::addColumn<QString>("directory");

    QTest::newRow("the suite's folder below ProgramData") << QByteArray("/data/all") << "/data/all/Halvorn/";
    QTest::newRow("a name outside ASCII")
        << QByteArray("/data/Käyttäjä") << QStringLiteral("/data/Käyttäjä/Halvorn/");
    QTest::newRow("an unset variable means the root of the current drive") << QByteArray() << "/Halvorn/";
}

void TestNativePath::dataDirectory()
{
    QFETCH(QByteArray, programData);
    QFETCH(QString, directory);
    if (programData.isNull())
        qunsetenv("ProgramData");
    else
        qputenv("ProgramData", programData);
    QCOMPARE(suiteDataDirectory(), QDir::toNativeSeparators(directory));
}

void TestNativePath::dataDirectoryIsComputedAfresh()
{
    qputenv("ProgramData", "/first");
    const QString first = suiteDataDirectory();
    qputenv("ProgramData", "/second");
    QVERIFY(first != suiteDataDirectory());
}

QTEST_GUILESS_MAIN(TestNativePath)
#include "test_nativepath.moc"
