#include "CommunicationAndData/settings/settingshandler.h"
#include "storechecks.h"
#include "support/workstation.h"

#include <QFile>
#include <QSettings>
#include <QTest>

namespace {

const QString kGood = QStringLiteral("ui/good");
const QByteArray kSound = "[ui]\ngood=1\n";

// QSettings moves all of a long value for each escape in it, which a sanitizer makes ten times slower.
constexpr int kRepetitions = 10000;
constexpr int kSecretLength = 20000;

}  // namespace

/// Keys and values that an ini file has no plain form for.
class TestSettingsKeys : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aKeyOfAnyKindComesBack_data();
    void aKeyOfAnyKindComesBack();
    void aKeyWithoutANameIsPassedOver_data();
    void aKeyWithoutANameIsPassedOver();
    void aVeryLongValueComesBack();

private:
    void park()
    {
        store()->changeSettingsFile(m_workstation.dataDirectory() + QStringLiteral("parking.ini"));
    }

    Workstation m_workstation;
    QString m_path;
    int m_count = 0;
};

void TestSettingsKeys::init()
{
    park();
    m_path = m_workstation.dataDirectory() + QStringLiteral("case_%1.ini").arg(++m_count);
}

void TestSettingsKeys::aKeyOfAnyKindComesBack_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("no group") << QStringLiteral("name");
    QTest::newRow("many groups") << QStringLiteral("a/b/c/d/e");
    QTest::newRow("slashes in front, behind and doubled") << QStringLiteral("/a//b/");
    QTest::newRow("an escape spelled out") << QStringLiteral("a/%41%U0042%2F");
    QTest::newRow("a percent sign alone") << QStringLiteral("a%/%");
    QTest::newRow("blanks around") << QStringLiteral(" a / b ");
    QTest::newRow("a backslash") << QStringLiteral("a\\b/c");
    QTest::newRow("what means something in an ini file") << QStringLiteral("[a]=;\"b\"/@c=;#,d");
    QTest::newRow("line ends and tabs") << QStringLiteral("a\n/b\r\t");
    QTest::newRow("letters of many scripts") << QString::fromUtf8("ä€/肺 𠮷🫁");
    QTest::newRow("a zero character") << QStringLiteral("a/") + QChar(QChar::Null) + QLatin1Char('b');
    QTest::newRow("the name of the section without a group") << QStringLiteral("General/a");
    QTest::newRow("capitals") << QStringLiteral("database/defaultSearchCustomFields");
    QTest::newRow("ten thousand characters") << QStringLiteral("a/") + QString(10000, QLatin1Char('x'));
}

void TestSettingsKeys::aKeyOfAnyKindComesBack()
{
    QFETCH(QString, name);
    store()->changeSettingsFile(m_path);
    store()->setValue(kGood, 1);
    store()->setValue(name, QStringLiteral("value"));
    const QStringList keys = store()->generalSettings()->allKeys();
    QCOMPARE(keys.size(), 2);
    park();
    // Under another name, or the values would come from memory.
    const QString moved = m_path + QStringLiteral(".moved");
    QVERIFY(QFile::rename(m_path, moved));
    store()->changeSettingsFile(moved);
    QCOMPARE(store()->generalSettings()->allKeys(), keys);
    QCOMPARE(store()->value(name).toString(), QStringLiteral("value"));
    QCOMPARE(keptCopies(moved), QStringList());
}

void TestSettingsKeys::aKeyWithoutANameIsPassedOver_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("empty") << QString();
    QTest::newRow("a slash") << QStringLiteral("/");
    QTest::newRow("slashes") << QStringLiteral("//");
}

void TestSettingsKeys::aKeyWithoutANameIsPassedOver()
{
    QFETCH(QString, name);
    QVERIFY(writeFile(m_path, kSound));
    store()->changeSettingsFile(m_path);
    store()->setValue(name, QStringLiteral("value"));
    store()->setSafeValue(name, QStringLiteral("secret"));
    QCOMPARE(store()->value(name, 7).toInt(), 7);
    QCOMPARE(store()->safeValue(name, 8).toInt(), 8);
    QCOMPARE(store()->generalSettings()->allKeys(), QStringList(kGood));
    park();
    QCOMPARE(readFile(m_path), kSound);
}

void TestSettingsKeys::aVeryLongValueComesBack()
{
    const QString text = QString::fromUtf8("ä, \"b\"; ").repeated(kRepetitions);
    const QString password = QStringLiteral("persondb/password");
    store()->changeSettingsFile(m_path);
    store()->setValue(kGood, text);
    store()->setSafeValue(password, text.left(kSecretLength));
    park();
    const QString moved = m_path + QStringLiteral(".moved");
    QVERIFY(QFile::rename(m_path, moved));
    store()->changeSettingsFile(moved);
    QVERIFY(store()->value(kGood).toString() == text);
    QVERIFY(store()->safeValue(password).toString() == text.left(kSecretLength));
    QCOMPARE(keptCopies(moved), QStringList());
}

QTEST_GUILESS_MAIN(TestSettingsKeys)
#include "test_settingskeys.moc"
