#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/safevalue.h"
#include "CommunicationAndData/settings/settingscontent.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/stashimage.h"
#include "randomsettings.h"
#include "support/workstation.h"

#include <QSettings>
#include <QTest>

namespace {

constexpr int kSeeds = 150;

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

QMap<QString, QVariant> content()
{
    return SettingsContent::of(*store()->generalSettings());
}

}  // namespace

/// What holds for any settings whatsoever.
class TestSettingsProperties : public QObject
{
    Q_OBJECT

private slots:
    void eachSeed_data();
    void eachSeed();

private:
    void restorePutsBackEverything(RandomSettings &random);
    void writtenFilesNeedNoRepair(const QString &path);
    void theFileSaysWhatWasSet(const QString &path, const QMap<QString, QVariant> &wanted);
    void theImageSaysTheSame();
    void safeValuesTravel(RandomSettings &random);

    QString file(const QString &name) const
    {
        return m_workstation.dataDirectory() + name;
    }

    Workstation m_workstation;
};

void TestSettingsProperties::eachSeed_data()
{
    QTest::addColumn<int>("seed");

    for (int seed = 1; seed <= kSeeds; ++seed)
        QTest::addRow("seed %d", seed) << seed;
}

void TestSettingsProperties::eachSeed()
{
    QFETCH(int, seed);
    RandomSettings random(static_cast<quint32>(seed));
    const QString path = file(QStringLiteral("working_%1.ini").arg(seed));
    store()->changeSettingsFile(path);
    const QMap<QString, QVariant> wanted = random.map();
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it)
        store()->setValue(it.key(), it.value());

    restorePutsBackEverything(random);
    theImageSaysTheSame();
    store()->changeSettingsFile(file(QStringLiteral("parking.ini")));
    writtenFilesNeedNoRepair(path);
    theFileSaysWhatWasSet(path, wanted);
    theImageSaysTheSame();
    restorePutsBackEverything(random);
    safeValuesTravel(random);
}

void TestSettingsProperties::restorePutsBackEverything(RandomSettings &random)
{
    const QMap<QString, QVariant> before = content();
    store()->store();
    const QMap<QString, QVariant> other = random.map();
    for (auto it = other.cbegin(); it != other.cend(); ++it) {
        if (random.number(3) == 0)
            store()->generalSettings()->remove(it.key());
        else
            store()->setValue(it.key(), it.value());
    }
    for (int i = 0; i < 2; ++i) {
        store()->restore();
        QCOMPARE(content(), before);
    }
}

void TestSettingsProperties::writtenFilesNeedNoRepair(const QString &path)
{
    QCOMPARE(repairIni(readFile(path)).damage, QStringList());
}

void TestSettingsProperties::theFileSaysWhatWasSet(const QString &path, const QMap<QString, QVariant> &wanted)
{
    // Under another name, or the values would come from memory.
    const QString moved = path + QStringLiteral(".moved");
    QVERIFY(QFile::rename(path, moved));
    store()->changeSettingsFile(moved);
    QCOMPARE(content().keys(), wanted.keys());
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it) {
        QVariant read = store()->value(it.key());
        if (it->userType() == QMetaType::QVariantList)
            QCOMPARE(read.toStringList(), it->toStringList());
        else if (it->userType() == QMetaType::Double)
            QCOMPARE(read.toDouble(), it->toDouble());
        else {
            QVERIFY(read.convert(it->userType()));
            QCOMPARE(read, *it);
        }
    }
}

void TestSettingsProperties::theImageSaysTheSame()
{
    QByteArray *image = nullptr;
    store()->stash(image);
    const auto read = readStashImage(*image);
    QVERIFY(read.has_value());
    QCOMPARE(*read, content());
}

void TestSettingsProperties::safeValuesTravel(RandomSettings &random)
{
    const QString key = QStringLiteral("persondb/password");
    const QVariant secret = random.value();
    store()->setSafeValue(key, secret);
    QCOMPARE(store()->safeValue(key), secret);
    const QString path = file(QStringLiteral("travel_%1.ini").arg(random.number(1 << 30)));
    {
        QSettings other(path, QSettings::IniFormat);
        other.setValue(key, store()->generalSettings()->value(key));
    }
    QVERIFY(QFile::rename(path, path + QStringLiteral(".moved")));
    const QSettings other(path + QStringLiteral(".moved"), QSettings::IniFormat);
    const QByteArray folded = other.value(key).toByteArray().toLower();
    store()->generalSettings()->setValue(key, folded);
    QCOMPARE(store()->safeValue(key), secret);
    QCOMPARE(store()->safeValue(key).userType(), secret.userType());
}

QTEST_GUILESS_MAIN(TestSettingsProperties)
#include "test_settingsproperties.moc"
