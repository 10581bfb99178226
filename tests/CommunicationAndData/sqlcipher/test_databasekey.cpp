#include "CommunicationAndData/sqlcipher/databasekey.h"

#include <QtTest>

namespace {

constexpr int kBase = 0xa6;

/// The rule the other way round: taking the counting base off the key's bytes leaves the seed.
QByteArray seedOf(const QString &key)
{
    QByteArray bytes = QByteArray::fromBase64(key.toLatin1());
    for (int i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(static_cast<unsigned char>(bytes.at(i)) ^ ((i + kBase) & 0xff));
    return bytes;
}

}  // namespace

/// The key of the suite's encrypted files and the statements that apply it.
class TestDatabaseKey : public QObject
{
    Q_OBJECT

private slots:
    void keyIsSixteenCharactersOfBase64();
    void keyHoldsElevenBytes();
    void seedIsXoredWithCountingBase();
    void seedIsElevenBytesOfAscii();
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
    constexpr unsigned char seed[] = {0x4b, 0x72, 0x37, 0x77, 0x7e, 0x65, 0x51, 0x32, 0x24, 0x62, 0x5a};
    const QByteArray found = seedOf(databaseKey());
    QCOMPARE(found, QByteArray(reinterpret_cast<const char *>(seed), sizeof seed));
}

void TestDatabaseKey::seedIsElevenBytesOfAscii()
{
    const QByteArray seed = seedOf(databaseKey());
    QCOMPARE(seed.size(), 11);
    for (const char byte : seed)
        QVERIFY2(static_cast<unsigned char>(byte) < 0x80, seed.toHex(' ').constData());
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
