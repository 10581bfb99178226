#include "CommunicationAndData/settings/safevalue.h"

#include <QDataStream>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

class TestSafeValue : public QObject
{
    Q_OBJECT

private slots:
    void aValueComesBack_data();
    void aValueComesBack();
    void theFormHasItsMarkAndLowerCaseDigits();
    void equalValuesHaveEqualForms();
    void theFormIsTheSameInEveryRelease();
    void everyDamageIsNoticed();
    void whatIsNoFormIsNone_data();
    void whatIsNoFormIsNone();
    void theFormSurvivesFoldingAndAFile();
};

void TestSafeValue::aValueComesBack_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("a text") << QVariant(QStringLiteral("secret"));
    QTest::newRow("a text with letters of many scripts")
        << QVariant(QString::fromUtf8("Ärzte 肺 ريئة 🫁"));
    QTest::newRow("an empty text") << QVariant(QString());
    QTest::newRow("a text with a zero character") << QVariant(QString(3, QChar(0)));
    QTest::newRow("a number") << QVariant(30);
    QTest::newRow("a truth value") << QVariant(false);
    QTest::newRow("bytes") << QVariant(QByteArray("\0\xff\n", 3));
    QTest::newRow("no value") << QVariant();
    QTest::newRow("a list of texts") << QVariant(QStringList{QStringLiteral("a"), QString()});
    QTest::newRow("a map") << QVariant(QVariantMap{{QStringLiteral("k"), QVariantList{1, true}}});
    QTest::newRow("a long text") << QVariant(QString(100000, QLatin1Char('x')));
}

void TestSafeValue::aValueComesBack()
{
    QFETCH(QVariant, value);
    const std::optional<QVariant> back = SafeValue::decipher(SafeValue::encipher(value));
    QVERIFY(back);
    QCOMPARE(back->userType(), value.userType());
    QCOMPARE(*back, value);
}

void TestSafeValue::theFormHasItsMarkAndLowerCaseDigits()
{
    const QByteArray form = SafeValue::encipher(QStringLiteral("SECRET"));
    QVERIFY(SafeValue::hasStoredShape(form));
    QCOMPARE(form.at(0), '\0');
    QCOMPARE(form.mid(1), form.mid(1).toLower());
    QCOMPARE(QByteArray::fromHex(form.mid(1)).toHex(), form.mid(1));
    QCOMPARE(QVariant(form).toString(), QString());
    QVERIFY(!QVariant(form).toByteArray().isEmpty());
}

void TestSafeValue::equalValuesHaveEqualForms()
{
    const QByteArray form = SafeValue::encipher(QStringLiteral("secret"));
    QCOMPARE(SafeValue::encipher(QStringLiteral("secret")), form);
    QCOMPARE(SafeValue::encipher(QString()), SafeValue::encipher(QStringLiteral("")));
    QVERIFY(SafeValue::encipher(QStringLiteral("secreT")) != form);
    QVERIFY(SafeValue::encipher(QByteArray("secret")) != form);
}

void TestSafeValue::theFormIsTheSameInEveryRelease()
{
    const QByteArray form = QByteArray(1, '\0') + "01d2a984a44cd6b4eb11a1292116f059d16d02aec518917f3cbd7bbf5c"
                                                  "7e018e564e9f697e0dbc8ad2adde54186df975e0f164066ffa";
    QCOMPARE(SafeValue::encipher(QStringLiteral("Internal users")).toHex(), form.toHex());
    QCOMPARE(SafeValue::decipher(form).value_or(QVariant()).toString(), QStringLiteral("Internal users"));
}

void TestSafeValue::everyDamageIsNoticed()
{
    const QByteArray form = SafeValue::encipher(QStringLiteral("secret"));
    for (int i = 0; i < form.size(); ++i) {
        for (int bit = 0; bit < 8; ++bit) {
            QByteArray damaged = form;
            damaged[i] = static_cast<char>(damaged.at(i) ^ (1 << bit));
            QVERIFY2(!SafeValue::decipher(damaged), qPrintable(QString::number(i)));
        }
        QVERIFY(!SafeValue::decipher(form.left(i)));
        QVERIFY(!SafeValue::decipher(form.mid(i + 1)));
    }
    QVERIFY(!SafeValue::decipher(form + "00"));
}

void TestSafeValue::whatIsNoFormIsNone_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("the mark alone") << QByteArray(1, '\0');
    QTest::newRow("a plain text") << QByteArray("Internal users");
    QTest::newRow("capital digits") << QByteArray(1, '\0') +
                                           SafeValue::encipher(QStringLiteral("jkl")).mid(1).toUpper();
    QTest::newRow("zeros") << QByteArray(1, '\0') + QByteArray(100, '0');
    QTest::newRow("an unknown version") << QByteArray(1, '\0') + "02" + QByteArray(100, 'a');
    QTest::newRow("an odd number of digits") << QByteArray(1, '\0') + "01" + QByteArray(99, 'a');
    QTest::newRow("other characters") << QByteArray(1, '\0') + "01" + QByteArray(100, 'g');
}

void TestSafeValue::whatIsNoFormIsNone()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!SafeValue::decipher(bytes));
}

void TestSafeValue::theFormSurvivesFoldingAndAFile()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("form.ini"));
    const QByteArray form = SafeValue::encipher(QStringLiteral("Windows group based")).toLower();
    {
        QSettings file(path, QSettings::IniFormat);
        file.setValue(QStringLiteral("accesscontrol/method"), form);
    }
    // Another object of the same process would not read the file.
    QVERIFY(QFile::rename(path, path + QLatin1Char('2')));
    const QSettings file(path + QLatin1Char('2'), QSettings::IniFormat);
    const QByteArray read = file.value(QStringLiteral("accesscontrol/method")).toByteArray();
    QCOMPARE(SafeValue::decipher(read).value_or(QVariant()).toString(),
             QStringLiteral("Windows group based"));
}

QTEST_GUILESS_MAIN(TestSafeValue)
#include "test_safevalue.moc"
