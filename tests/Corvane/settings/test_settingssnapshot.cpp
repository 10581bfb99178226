#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/stashimage.h"
#include "Corvane/settings/settingssnapshot.h"
#include "support/workstation.h"

#include <QSettings>
#include <QSize>
#include <QTest>

class TestSettingsSnapshot : public QObject
{
    Q_OBJECT

private slots:
    void valueBecomesText_data();
    void valueBecomesText();
    void line_data();
    void line();
    void aSafeValueOfTheStoreIsMarkedAndAPlainOneIsNot();
    void staleKeys_data();
    void staleKeys();
    void allFourDatabaseGroupsLoseTheirStaleEntries();
    void aGroupWithoutASizeIsLeftAlone();

private:
    Workstation m_workstation;
};

void TestSettingsSnapshot::valueBecomesText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("texts of a list are joined in lower case")
        << QVariant(QStringList{"Ab", "C"}) << QStringLiteral("ab;c");
    QTest::newRow("values of a list are joined in lower case")
        << QVariant(QVariantList{3, "X", true}) << QStringLiteral("3;x;true");
    QTest::newRow("an item that has no text is left out")
        << QVariant(QVariantList{1, QSize(2, 3), 4}) << QStringLiteral("1;4");
    QTest::newRow("a text stands as it is") << QVariant("Ab") << QStringLiteral("Ab");
    QTest::newRow("a number") << QVariant(-7) << QStringLiteral("-7");
    QTest::newRow("a bool") << QVariant(false) << QStringLiteral("false");
    QTest::newRow("an empty list has no text") << QVariant(QStringList()) << QString();
    QTest::newRow("a value of another kind has no text") << QVariant(QSize(2, 3)) << QString();
}

void TestSettingsSnapshot::valueBecomesText()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    QCOMPARE(settingValueToText(value), text);
}

void TestSettingsSnapshot::line_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("line");

    const QByteArray safe("\0A1b", 4);
    QTest::newRow("key and value are folded to lower case")
        << QVariant("ValuE") << QStringLiteral("ui/key=value");
    QTest::newRow("an empty value ends at the sign") << QVariant("") << QStringLiteral("ui/key=");
    QTest::newRow("a value that has only bytes is marked")
        << QVariant(safe) << QStringLiteral("ui/key=encrypted_") + QString::fromLatin1("\0a1b", 4);
    QTest::newRow("bytes that are text are not marked")
        << QVariant(QByteArray("Ab")) << QStringLiteral("ui/key=ab");
    QTest::newRow("an empty array of bytes is not marked")
        << QVariant(QByteArray()) << QStringLiteral("ui/key=");
}

void TestSettingsSnapshot::line()
{
    QFETCH(QVariant, value);
    QFETCH(QString, line);
    QCOMPARE(snapshotLine(QStringLiteral("UI/Key"), value), line);
}

void TestSettingsSnapshot::aSafeValueOfTheStoreIsMarkedAndAPlainOneIsNot()
{
    SettingsHandler *store = SettingsHandler::getInstance();
    store->changeSettingsFile(m_workstation.path(QStringLiteral("snapshot.ini")));
    store->setSafeValue(QStringLiteral("persondb/password"), QStringLiteral("secret"));
    store->setValue(QStringLiteral("persondb/sqltype"), 2);
    QByteArray *image = nullptr;
    store->stash(image);
    QVERIFY(image);
    const QMap<QString, QVariant> settings = readStashImage(*image).value_or(QMap<QString, QVariant>());
    QCOMPARE(settings.keys(), QStringList({"persondb/password", "persondb/sqltype"}));

    const QString safe =
        snapshotLine(QStringLiteral("persondb/password"), settings.value("persondb/password"));
    QVERIFY(safe.startsWith(QStringLiteral("persondb/password=encrypted_")));
    QVERIFY(safe.size() > QStringLiteral("persondb/password=encrypted_").size() + 1);
    QVERIFY(!safe.contains(QStringLiteral("secret")));
    QCOMPARE(snapshotLine(QStringLiteral("persondb/sqltype"), settings.value("persondb/sqltype")),
             QStringLiteral("persondb/sqltype=2"));
}

void TestSettingsSnapshot::staleKeys_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QStringList>("stale");

    QTest::newRow("entries above the size are stale, the size itself is not")
        << 2 << QStringList{"3/key", "3/value", "10/key"};
    QTest::newRow("an empty array has no entries")
        << 0 << QStringList{"1/key", "2/key", "2/value", "3/key", "3/value", "10/key"};
    QTest::newRow("nothing is stale below a large size") << 10 << QStringList();
}

void TestSettingsSnapshot::staleKeys()
{
    QFETCH(int, size);
    QFETCH(QStringList, stale);
    const QStringList keys = {"size",    "1/key",  "2/key", "2/value", "3/key",
                              "3/value", "10/key", "x/key", "/key",    "4x/key"};
    QCOMPARE(staleArrayKeys(keys, size), stale);
}

void TestSettingsSnapshot::allFourDatabaseGroupsLoseTheirStaleEntries()
{
    QSettings file(m_workstation.path(QStringLiteral("groups.ini")), QSettings::IniFormat);
    for (const char *group : {"actiondb", "persondb", "studydb", "supportdb"}) {
        const QString array = QLatin1String(group) + QStringLiteral("/params/");
        file.setValue(array + QStringLiteral("size"), 2);
        file.setValue(array + QStringLiteral("2/key"), "kept");
        file.setValue(array + QStringLiteral("3/key"), "stale");
    }
    removeStaleParameters(file);
    for (const char *group : {"actiondb", "persondb", "studydb", "supportdb"}) {
        const QString array = QLatin1String(group) + QStringLiteral("/params/");
        QCOMPARE(file.value(array + QStringLiteral("2/key")).toString(), QStringLiteral("kept"));
        QVERIFY(!file.contains(array + QStringLiteral("3/key")));
        QCOMPARE(file.value(array + QStringLiteral("size")).toInt(), 2);
    }
    QVERIFY(file.group().isEmpty());
}

void TestSettingsSnapshot::aGroupWithoutASizeIsLeftAlone()
{
    QSettings file(m_workstation.path(QStringLiteral("nosize.ini")), QSettings::IniFormat);
    file.setValue(QStringLiteral("persondb/params/3/key"), 1);
    removeStaleParameters(file);
    QVERIFY(file.contains(QStringLiteral("persondb/params/3/key")));
}

QTEST_GUILESS_MAIN(TestSettingsSnapshot)
#include "test_settingssnapshot.moc"
