#include "CommunicationAndData/sqlcipher/databasekey.h"

#include <QtTest>

/// The key of the suite's encrypted files and the statements that apply it.
class TestDatabaseKey : public QObject
{
    Q_OBJECT

private slots:
    void keyIsSixteenCharactersOfBase64();
    void keyHoldsElevenBytes();
    void seedIsXoredWithCountingBase();
    void keyIsTheSameAtEachCall();
    void keyStandsNowhereWholeInTheProgram();
    void statementsSetTheKeyAndThenTheCipher();
};

void TestDatabaseKey::keyIsSixteenCharactersOfBase64()
{
    const QRegularExpression base64(QStringLiteral("^[A-Za-z0-9+/]{15}=$"));
    QVERIFY(base64.match(databaseKey()).hasMatch());
}

void TestDatabaseKey::keyHoldsElevenBytes()
{
    QCOMPARE(QByteArray::fromBase64(databaseKey().toLatin1()).size(), 11);
}

void TestDatabaseKey::seedIsXoredWithCountingBase()
{
    // The rule the other way round: taking the counting base off the key's bytes leaves the seed.
    constexpr unsigned char kBase = 0xa6;
    const unsigned char seed[] = {0x4b, 0x12, 0x9e, 0x73, 0xd5, 0x28, 0x60, 0xbf, 0x04, 0xc9, 0x37};
    const QByteArray key = QByteArray::fromBase64(databaseKey().toLatin1());
    QCOMPARE(key.size(), static_cast<int>(sizeof seed));
    for (int i = 0; i < key.size(); ++i) {
        const auto keyByte = static_cast<unsigned char>(key.at(i));
        QCOMPARE(static_cast<int>(keyByte ^ ((i + kBase) & 0xff)), static_cast<int>(seed[i]));
    }
}

void TestDatabaseKey::keyIsTheSameAtEachCall()
{
    QCOMPARE(databaseKey(), databaseKey());
}

void TestDatabaseKey::keyStandsNowhereWholeInTheProgram()
{
    QFile program(QCoreApplication::applicationFilePath());
    QVERIFY(program.open(QIODevice::ReadOnly));
    const QByteArray bytes = program.readAll();
    QVERIFY(!bytes.isEmpty());
    QVERIFY(!bytes.contains(databaseKey().toLatin1()));
    QVERIFY(!bytes.contains(QByteArray::fromBase64(databaseKey().toLatin1())));
}

void TestDatabaseKey::statementsSetTheKeyAndThenTheCipher()
{
    const QStringList expected{QStringLiteral("PRAGMA key = '") + databaseKey() + QStringLiteral("';"),
                               QStringLiteral("PRAGMA cipher = 'aes-256-cfb';")};
    QCOMPARE(databaseKeyStatements(), expected);
}

QTEST_GUILESS_MAIN(TestDatabaseKey)
#include "test_databasekey.moc"
