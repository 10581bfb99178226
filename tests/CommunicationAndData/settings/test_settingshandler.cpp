#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "support/workstation.h"

#include <QDataStream>
#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

namespace {

QString key(const char *name)
{
    return QString::fromLatin1(name);
}

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

}  // namespace

/// The store's everyday operations, each on a file of its own.
class TestSettingsHandler : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void aFileThatDoesNotExistGivesNoKeys();
    void aValueIsInTheFormerFileAndInACopyOfItAfterTheChange();
    void restoreGivesBackTheValueBeforeAndOnceMoreChangesNothing();
    void aSafeValueComesBackAndAgainAfterItsFormWasCopied();
    void anEmptyMapOfParametersLeavesTheSizeZero();

private:
    QString file(const QString &name) const
    {
        return m_workstation.dataDirectory() + name;
    }

    Workstation m_workstation;
    int m_count = 0;
};

void TestSettingsHandler::initTestCase()
{
    QVERIFY(store());
}

void TestSettingsHandler::init()
{
    store()->changeSettingsFile(file(QStringLiteral("working_%1.ini").arg(++m_count)));
}

void TestSettingsHandler::aFileThatDoesNotExistGivesNoKeys()
{
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    store()->changeSettingsFile(file(QStringLiteral("nowhere.ini")));
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
}

void TestSettingsHandler::aValueIsInTheFormerFileAndInACopyOfItAfterTheChange()
{
    const QString former = file(QStringLiteral("former.ini"));
    const QString copy = file(QStringLiteral("copy.ini"));
    store()->changeSettingsFile(former);
    store()->setValue(key(SettingsKeys::kLanguage), QStringLiteral("fi_FI"));
    store()->changeSettingsFile(file(QStringLiteral("parking.ini")));
    QVERIFY(QFile::copy(former, copy));
    QCOMPARE(readFile(copy), QByteArray("[application]\nlanguage=fi_FI\n"));
    QCOMPARE(readFile(former), readFile(copy));
}

void TestSettingsHandler::restoreGivesBackTheValueBeforeAndOnceMoreChangesNothing()
{
    const QString language = key(SettingsKeys::kLanguage);
    store()->setValue(language, QStringLiteral("fi_FI"));
    store()->store();
    store()->setValue(language, QStringLiteral("sv_SE"));
    store()->setValue(key(SettingsKeys::kDateFormat), 3);
    store()->restore();
    QCOMPARE(store()->value(language).toString(), QStringLiteral("fi_FI"));
    QCOMPARE(store()->generalSettings()->allKeys(), QStringList(language));
    store()->restore();
    QCOMPARE(store()->value(language).toString(), QStringLiteral("fi_FI"));
    QCOMPARE(store()->generalSettings()->allKeys(), QStringList(language));
}

void TestSettingsHandler::aSafeValueComesBackAndAgainAfterItsFormWasCopied()
{
    const QString password = QStringLiteral("persondb/password");
    const QVariant secret = QString::fromUtf8("pässword, \"quoted\"=1");
    store()->setSafeValue(password, secret);
    QCOMPARE(store()->safeValue(password), secret);

    const QString path = file(QStringLiteral("between.ini"));
    {
        QSettings between(path, QSettings::IniFormat);
        between.setValue(password, store()->generalSettings()->value(password));
    }
    store()->changeSettingsFile(file(QStringLiteral("other.ini")));
    {
        const QSettings between(path, QSettings::IniFormat);
        store()->generalSettings()->setValue(password, between.value(password));
    }
    QCOMPARE(store()->safeValue(password), secret);
}

void TestSettingsHandler::anEmptyMapOfParametersLeavesTheSizeZero()
{
    const QString group = key(SettingsKeys::kPersonDbGroup);
    const QVariantMap params{{QStringLiteral("Server"), QStringLiteral("db1")}};
    store()->setDatabaseSettings(group, {{key(SettingsKeys::kParams), params}});
    QCOMPARE(store()->databaseSettings(group).value(key(SettingsKeys::kParams)).toMap(), params);
    store()->setDatabaseSettings(group, {{key(SettingsKeys::kParams), QVariantMap()}});
    QVERIFY(store()->generalSettings()->contains(QStringLiteral("persondb/params/size")));
    QCOMPARE(store()->value(QStringLiteral("persondb/params/size")).toInt(), 0);
    QVERIFY(store()->databaseSettings(group).value(key(SettingsKeys::kParams)).toMap().isEmpty());
}

QTEST_GUILESS_MAIN(TestSettingsHandler)
#include "test_settingshandler.moc"
