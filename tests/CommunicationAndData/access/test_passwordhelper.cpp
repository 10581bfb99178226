#include "CommunicationAndData/access/passwordhelper.h"

#include <QSet>
#include <QTest>

class TestPasswordHelper : public QObject
{
    Q_OBJECT

private slots:
    void hashIsSha256OfPasswordAndSalt_data();
    void hashIsSha256OfPasswordAndSalt();
    void saltIsOfLettersFromAToY();
    void saltsDiffer();
    void passwordFitsItsHash_data();
    void passwordFitsItsHash();
};

void TestPasswordHelper::hashIsSha256OfPasswordAndSalt_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("salt");
    QTest::addColumn<QString>("hash");

    QTest::newRow("of nothing") << ""
                                << ""
                                << "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";
    QTest::newRow("the password comes first")
        << "a"
        << "bc"
        << "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
    QTest::newRow("the two are joined without a mark")
        << "ab"
        << "c"
        << "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
    QTest::newRow("letters are UTF-8") << QString::fromUtf8("é") << ""
                                       << "4a99557e4033c3539de2eb65472017cad5f9557f7a0625a09f1c3f6e2ba69c4c";
}

void TestPasswordHelper::hashIsSha256OfPasswordAndSalt()
{
    QFETCH(QString, password);
    QFETCH(QString, salt);
    QFETCH(QString, hash);
    QCOMPARE(PasswordHelper::hashPassword(password, salt), hash);
}

void TestPasswordHelper::saltIsOfLettersFromAToY()
{
    for (const int length : {0, 1, 6, 16})
        QCOMPARE(PasswordHelper::generateSalt(length).size(), length);
    const QString salt = PasswordHelper::generateSalt(20000);
    QSet<QChar> letters;
    for (const QChar letter : salt)
        letters.insert(letter);
    QCOMPARE(letters.size(), 25);
    QVERIFY(letters.contains(QLatin1Char('a')));
    QVERIFY(letters.contains(QLatin1Char('y')));
    QVERIFY(!letters.contains(QLatin1Char('z')));
}

void TestPasswordHelper::saltsDiffer()
{
    QSet<QString> salts;
    for (int i = 0; i < 100; ++i)
        salts.insert(PasswordHelper::generateSalt(PasswordHelper::SaltLength));
    QCOMPARE(salts.size(), 100);
}

void TestPasswordHelper::passwordFitsItsHash_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("salt");
    QTest::addColumn<QString>("hash");
    QTest::addColumn<bool>("fits");

    const QString hash = PasswordHelper::hashPassword(QStringLiteral("word"), QStringLiteral("salt"));
    QTest::newRow("the right one") << "word"
                                   << "salt" << hash << true;
    QTest::newRow("another password") << "Word"
                                      << "salt" << hash << false;
    QTest::newRow("another salt") << "word"
                                  << "pepper" << hash << false;
    QTest::newRow("an empty hash") << "word"
                                   << "salt"
                                   << "" << false;
    QTest::newRow("an empty salt") << "wordsalt"
                                   << "" << hash << false;
    QTest::newRow("a hash in capitals") << "word"
                                        << "salt" << hash.toUpper() << false;
    QTest::newRow("a hash that differs in its last letter") << "word"
                                                            << "salt" << hash.chopped(1) + "x" << false;
}

void TestPasswordHelper::passwordFitsItsHash()
{
    QFETCH(QString, password);
    QFETCH(QString, salt);
    QFETCH(QString, hash);
    QFETCH(bool, fits);
    QCOMPARE(PasswordHelper::isPassword(password, salt, hash), fits);
}

QTEST_GUILESS_MAIN(TestPasswordHelper)
#include "test_passwordhelper.moc"
