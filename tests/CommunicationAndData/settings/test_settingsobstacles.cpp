#include "CommunicationAndData/settings/settingshandler.h"
#include "storechecks.h"
#include "support/fulldisk.h"
#include "support/ordinaryuser.h"
#include "support/workstation.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QTest>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString kGood = QStringLiteral("ui/good");
const QString kWritten = QStringLiteral("ui/written");
const QByteArray kSound = "[ui]\ngood=1\n";
const QByteArray kSoundAndWritten = "[ui]\ngood=1\nwritten=1\n";
const QByteArray kDamaged = "[ui]\ngood=\xe4\n";

// Longer than the store waits before it tries again.
constexpr int kLongEnough = 15000;  // milliseconds

constexpr unsigned long kRoomForLock = 300;  // bytes

/// What a process leaves that was killed while it held the lock. There is no process with so high a number.
const QByteArray kDeadLock = "2147483646\nsettings_child\n\n";

bool writeLock(const QString &name, int age)
{
    if (!writeFile(name, kDeadLock))
        return false;
    QFile file(name);
    const QDateTime time = QDateTime::currentDateTime().addSecs(-age);
    return file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFileDevice::FileModificationTime);
}

}  // namespace

/// What stands in the way of the settings' file, for a while or for good.
class TestSettingsObstacles : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void whatCanBeNoLockIsRemoved_data();
    void whatCanBeNoLockIsRemoved();
    void theAbandonedLockOfAnotherAccountIsRemoved();
    void aLockThatStaysKeepsTheSettingsInMemory_data();
    void aLockThatStaysKeepsTheSettingsInMemory();
    void aDirectoryInThePlaceOfTheLockIsMovedAside();
    void aLockThatSomebodyIsJustMakingIsLeftAlone();
    void aFileIsReadWhileSomebodyWritesIt();

    void aDiskWithoutRoomForAllLeavesTheFileWhole_data();
    void aDiskWithoutRoomForAllLeavesTheFileWhole();
    void aPartThatStaysOnDiskIsMadeWholeOnceThereIsRoom();
    void aDiskWithoutRoomForAllGetsNoPartOfANewFile();
    void localApplicationSettingsAreLeftWholeAsWell();
    void whatAProcessThatWasKilledThenLeftIsPutBack_data();
    void whatAProcessThatWasKilledThenLeftIsPutBack();
    void aCopyThatCannotBePutBackStays();
    void aWholeFileIsNotPutBack();
    void aFileThatWasMovedAwayDoesNotComeBack();
    void aValueIsWrittenOnceTheDiskHasRoomAgain();
    void aValueIsWrittenOnceNothingIsInTheWayAnyMore();
    void aHeldChangeIsNotWrittenByTryingAgain();
    void aDamagedFileOnAFullDiskStaysUntilItCanBeKept();

    void whatAnotherProcessWritesMeanwhileIsTakenIn();
    void aDamagedFileThatCannotBeKeptStays();
    void aCacheFileDamagedWhileItIsOpenIsKept();
    void aLinkIsWrittenThrough_data();
    void aLinkIsWrittenThrough();

private:
    QString lock() const
    {
        return m_path + QStringLiteral(".lock");
    }
    QStringList logged(const QString &text) const
    {
        return linesWith(m_workstation.runtimeLog(), text);
    }
    void park()
    {
        store()->changeSettingsFile(m_workstation.dataDirectory() + QStringLiteral("parking.ini"));
    }
    QString longName(int size) const
    {
        return QStringLiteral("%1/%2.ini").arg(QFileInfo(m_path).path(), QString(size, QLatin1Char('x')));
    }
    void openWith(const QByteArray &bytes)
    {
        QVERIFY(writeFile(m_path, bytes));
        store()->changeSettingsFile(m_path);
    }

    Workstation m_workstation;
    QString m_path;
    int m_count = 0;
};

void TestSettingsObstacles::init()
{
    park();
    // Also for whoever has no privileges.
    QFile::setPermissions(m_workstation.path(QString()), QFile::Permissions(0x7755));
    m_path = m_workstation.dataDirectory() + QStringLiteral("case_%1/corvane.ini").arg(++m_count);
}

void TestSettingsObstacles::whatCanBeNoLockIsRemoved_data()
{
    QTest::addColumn<QString>("kind");

    QTest::newRow("an empty directory") << QStringLiteral("directory");
    QTest::newRow("a link that leads nowhere") << QStringLiteral("link");
    QTest::newRow("a pipe") << QStringLiteral("pipe");
}

void TestSettingsObstacles::whatCanBeNoLockIsRemoved()
{
    QFETCH(QString, kind);
    openWith(kSound);
    if (kind == QLatin1String("directory"))
        QVERIFY(QDir().mkpath(lock()));
    else if (kind == QLatin1String("link"))
        QVERIFY(QFile::link(m_path + QStringLiteral(".nowhere"), lock()));
    else
        QCOMPARE(mkfifo(qPrintable(lock()), 0600), 0);
    store()->setValue(kWritten, 1);
    QVERIFY(store()->flushSettingsFile());
    QCOMPARE(readFile(m_path), kSoundAndWritten);
    QVERIFY(!QFileInfo::exists(lock()));
}

void TestSettingsObstacles::theAbandonedLockOfAnotherAccountIsRemoved()
{
    QVERIFY(writeFile(m_path, kSound));
    QVERIFY(QFile::setPermissions(QFileInfo(m_path).path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(m_path, QFile::Permissions(0x6666)));
    QVERIFY(writeLock(lock(), 60));
    const OrdinaryUser nobody;
    store()->changeSettingsFile(m_path);
    store()->setValue(kWritten, 1);
    QVERIFY(store()->flushSettingsFile());
    QCOMPARE(readFile(m_path), kSoundAndWritten);
    park();
}

void TestSettingsObstacles::aLockThatStaysKeepsTheSettingsInMemory_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("good");

    QTest::newRow("of a sound file") << kSound << QStringLiteral("1");
    QTest::newRow("of a damaged file") << kDamaged << QString::fromUtf8("ä");
    QTest::newRow("of a file that is not there") << QByteArray() << QString();
}

void TestSettingsObstacles::aLockThatStaysKeepsTheSettingsInMemory()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, good);
    const QString folder = QFileInfo(m_path).path();
    QVERIFY(writeLock(lock(), 60));
    if (!bytes.isEmpty())
        QVERIFY(writeFile(m_path, bytes));
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x5555)));
    {
        const OrdinaryUser nobody;
        store()->changeSettingsFile(m_path);
        QCOMPARE(store()->value(kGood).toString(), good);
        store()->setValue(kWritten, 1);
        QVERIFY(!store()->flushSettingsFile());
        QCOMPARE(store()->value(kWritten).toInt(), 1);
        park();
    }
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7755)));
    QCOMPARE(readFile(m_path), bytes);
    QVERIFY(QFileInfo::exists(lock()));
    QCOMPARE(keptCopies(m_path), QStringList());
    QCOMPARE(logged(m_path).filter(QStringLiteral("WRN CV: ")).size(), 1);
    QCOMPARE(logged(m_path).filter(QStringLiteral("ERR CV: ")).size(), 1);
}

void TestSettingsObstacles::aDirectoryInThePlaceOfTheLockIsMovedAside()
{
    openWith(kSound);
    QVERIFY(writeFile(lock() + QStringLiteral("/inside"), "kept"));
    store()->setValue(kWritten, 1);
    park();
    QCOMPARE(readFile(m_path), kSoundAndWritten);
    QVERIFY(!QFileInfo::exists(lock()));
    QCOMPARE(keptCopies(lock()).size(), 1);
    QCOMPARE(readFile(keptCopies(lock()).first() + QStringLiteral("/inside")), QByteArray("kept"));
}

void TestSettingsObstacles::aLockThatSomebodyIsJustMakingIsLeftAlone()
{
    QVERIFY(writeFile(m_path, kSound));
    QVERIFY(writeFile(lock(), QByteArray()));
    const int maker = open(qPrintable(lock()), O_WRONLY);
    QCOMPARE(flock(maker, LOCK_EX | LOCK_NB), 0);
    store()->changeSettingsFile(m_path);
    QVERIFY(QFileInfo::exists(lock()));
    close(maker);
    store()->setValue(kWritten, 1);
    QVERIFY(store()->flushSettingsFile());
    QCOMPARE(readFile(m_path), kSoundAndWritten);
}

void TestSettingsObstacles::aFileIsReadWhileSomebodyWritesIt()
{
    QVERIFY(writeFile(m_path, kSound));
    QLockFile writer(lock());
    QVERIFY(writer.lock());
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kGood).toInt(), 1);
    QVERIFY(QFileInfo::exists(lock()));
    writer.unlock();
}

void TestSettingsObstacles::aDiskWithoutRoomForAllLeavesTheFileWhole_data()
{
    QTest::addColumn<bool>("linked");
    QTest::addColumn<int>("size");

    QTest::newRow("of few settings") << false << 1000;
    QTest::newRow("of many settings") << false << 50000;
    QTest::newRow("behind a link") << true << 1000;
}

void TestSettingsObstacles::aDiskWithoutRoomForAllLeavesTheFileWhole()
{
    QFETCH(bool, linked);
    QFETCH(int, size);
    const QByteArray bytes = "[ui]\ngood=1\nlong=" + QByteArray(size, 'x') + '\n';
    const QString real = QFileInfo(m_path).path() + QStringLiteral("/real/settings.ini");
    if (linked) {
        QVERIFY(writeFile(real, bytes));
        QVERIFY(QFile::link(real, m_path));
        store()->changeSettingsFile(m_path);
    } else {
        openWith(bytes);
    }
    {
        const FullDisk disk(kRoomForLock);
        store()->setValue(kWritten, 1);
        QVERIFY(!store()->flushSettingsFile());
        QCOMPARE(readFile(m_path), bytes);
        QCOMPARE(store()->value(kWritten).toInt(), 1);
        QCOMPARE(store()->value(kGood).toInt(), 1);
        // From the event loop, and at the end.
        store()->generalSettings()->setValue(kWritten, 2);
        QCoreApplication::processEvents();
        QCOMPARE(readFile(m_path), bytes);
        park();
    }
    QCOMPARE(readFile(m_path), bytes);
    QCOMPARE(QFileInfo(m_path).isSymLink(), linked);
    QCOMPARE(QFileInfo(linked ? real : m_path).dir().entryList({QStringLiteral("*.former")}), QStringList());
    store()->changeSettingsFile(m_path);
    QVERIFY(!store()->generalSettings()->contains(kWritten));
    store()->setValue(kWritten, 3);
    QVERIFY(store()->flushSettingsFile());
    QCOMPARE(readFile(m_path), bytes + "written=3\n");
    QCOMPARE(QFileInfo(m_path).dir().entryList({QStringLiteral("*.former")}), QStringList());
}

void TestSettingsObstacles::aPartThatStaysOnDiskIsMadeWholeOnceThereIsRoom()
{
    // So long a name leaves none for a copy.
    m_path = longName(242);
    const QByteArray bytes = "[ui]\ngood=1\nlong=" + QByteArray(1000, 'x') + '\n';
    openWith(bytes);
    {
        const FullDisk disk(kRoomForLock);
        store()->setValue(kWritten, 1);
        QVERIFY(!store()->flushSettingsFile());
        QVERIFY(readFile(m_path).size() < bytes.size());
        QCOMPARE(store()->value(kWritten).toInt(), 1);
    }
    QVERIFY(store()->flushSettingsFile());
    QCOMPARE(readFile(m_path), bytes + "written=1\n");
}

void TestSettingsObstacles::aDiskWithoutRoomForAllGetsNoPartOfANewFile()
{
    store()->changeSettingsFile(m_path);
    {
        const FullDisk disk(kRoomForLock);
        store()->setValue(kGood, QString(1000, QLatin1Char('x')));
        QVERIFY(!store()->flushSettingsFile());
        QVERIFY(!QFile::exists(m_path));
    }
    QTRY_VERIFY_WITH_TIMEOUT(readFile(m_path).contains("good=xxx"), kLongEnough);
}

void TestSettingsObstacles::localApplicationSettingsAreLeftWholeAsWell()
{
    const QString path = m_workstation.localApplicationSettings();
    const QByteArray bytes = "[ui]\ngood=1\nlong=" + QByteArray(1000, 'x') + '\n';
    // What this file says stands in for what is missing in the other.
    const QString standIn = QFileInfo(QFileInfo(path).path()).filePath() + QStringLiteral(".ini");
    QVERIFY(writeFile(standIn, "[site]\na=1\nb=2\nc=3\n"));
    QVERIFY(writeFile(path, bytes));
    {
        const FullDisk disk(kRoomForLock);
        const auto local = openLocalApplicationSettings();
        QVERIFY(local->contains(QStringLiteral("site/c")));
        local->setValue(kWritten, 1);
        QVERIFY(!syncSettingsFile(*local));
        QCOMPARE(readFile(path), bytes);
    }
    QCOMPARE(readFile(path), bytes);
    const auto local = openLocalApplicationSettings();
    local->setValue(kWritten, 1);
    QVERIFY(syncSettingsFile(*local));
    QCOMPARE(readFile(path), bytes + "written=1\n");
    QVERIFY(QFile::remove(path));
    QVERIFY(QFile::remove(standIn));
}

void TestSettingsObstacles::whatAProcessThatWasKilledThenLeftIsPutBack_data()
{
    QTest::addColumn<QByteArray>("part");
    QTest::addColumn<QByteArray>("lockText");

    const QByteArray part = kSoundAndWritten.left(15);
    QTest::newRow("of an empty file") << QByteArray() << QByteArray();
    QTest::newRow("of a file that ends within a line") << part << QByteArray();
    QTest::newRow("of one that it still held locked") << part << kDeadLock;
    QTest::newRow("of one that it was just locking again") << part << QByteArray("");
}

void TestSettingsObstacles::whatAProcessThatWasKilledThenLeftIsPutBack()
{
    QFETCH(QByteArray, part);
    QFETCH(QByteArray, lockText);
    QVERIFY(writeFile(m_path, part));
    QVERIFY(writeFile(m_path + QStringLiteral(".0f1e2d3c.former"), kSound));
    const QString aPersons = m_path + QStringLiteral(".original.former");
    QVERIFY(writeFile(aPersons, "[site]\nown=1\n"));
    if (!lockText.isNull())
        QVERIFY(writeFile(lock(), lockText));
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kGood).toInt(), 1);
    QCOMPARE(readFile(m_path), kSound);
    QCOMPARE(keptCopies(m_path).size(), 1);
    QCOMPARE(readFile(keptCopies(m_path).first()), part);
    QVERIFY(!QFile::exists(m_path + QStringLiteral(".0f1e2d3c.former")));
    QVERIFY(QFile::remove(aPersons));
    QCOMPARE(logged(m_path).filter(QStringLiteral("WRN CV: ")).size(), 1);
}

void TestSettingsObstacles::aCopyThatCannotBePutBackStays()
{
    m_path = longName(225);
    const QString copy = m_path + QStringLiteral(".0f1e2d3c.former");
    const QByteArray part = kSoundAndWritten.left(15);
    QVERIFY(writeFile(m_path, part));
    QVERIFY(writeFile(copy, kSound));
    store()->changeSettingsFile(m_path);
    park();
    QCOMPARE(readFile(m_path), part);
    QCOMPARE(readFile(copy), kSound);
}

void TestSettingsObstacles::aWholeFileIsNotPutBack()
{
    const QString copy = m_path + QStringLiteral(".0f1e2d3c.former");
    QVERIFY(writeFile(copy, kSound));
    {
        QLockFile writer(lock());
        QVERIFY(writer.lock());
        openWith(kSoundAndWritten);
        QVERIFY(QFile::exists(copy));
    }
    park();
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kWritten).toInt(), 1);
    QVERIFY(!QFile::exists(copy));
    QCOMPARE(readFile(m_path), kSoundAndWritten);
    QCOMPARE(logged(m_path), QStringList());
}

void TestSettingsObstacles::aFileThatWasMovedAwayDoesNotComeBack()
{
    QVERIFY(writeFile(m_path + QStringLiteral(".0f1e2d3c.former"), kSound));
    store()->changeSettingsFile(m_path);
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
    park();
    QVERIFY(!QFile::exists(m_path));
}

void TestSettingsObstacles::aValueIsWrittenOnceTheDiskHasRoomAgain()
{
    openWith(kSound);
    {
        const FullDisk disk;
        store()->generalSettings()->setValue(kGood, 2);
        store()->setValue(kWritten, 2);
        QCoreApplication::processEvents();
        QCOMPARE(readFile(m_path), kSound);
    }
    store()->generalSettings()->setValue(kGood, 1);
    store()->generalSettings()->setValue(kWritten, 1);
    QTRY_COMPARE_WITH_TIMEOUT(readFile(m_path), kSoundAndWritten, kLongEnough);
}

void TestSettingsObstacles::aValueIsWrittenOnceNothingIsInTheWayAnyMore()
{
    const QString away = m_path + QStringLiteral(".away");
    openWith(kSound);
    QVERIFY(QFile::rename(m_path, away));
    QVERIFY(QDir().mkpath(m_path));
    store()->setValue(kWritten, 1);
    QTRY_COMPARE(logged(m_path).filter(QStringLiteral("ERR CV: ")).size(), 1);
    QVERIFY(QDir().rmdir(m_path));
    QVERIFY(QFile::rename(away, m_path));
    QTRY_COMPARE_WITH_TIMEOUT(readFile(m_path), kSoundAndWritten, kLongEnough);
}

void TestSettingsObstacles::aHeldChangeIsNotWrittenByTryingAgain()
{
    openWith(kSound);
    store()->store();
    store()->holdChanges();
    store()->setValue(kWritten, 1);
    QCoreApplication::processEvents();
    {
        const FullDisk disk;
        store()->restore();
        store()->setValue(kGood, 2);
        QCoreApplication::processEvents();
    }
    store()->store();
    store()->holdChanges();
    store()->setValue(kWritten, 1);
    QTest::qWait(6000);
    QCOMPARE(readFile(m_path), kSound);
    store()->restore();
    QTRY_COMPARE_WITH_TIMEOUT(readFile(m_path), QByteArray("[ui]\ngood=2\n"), kLongEnough);
}

void TestSettingsObstacles::aDamagedFileOnAFullDiskStaysUntilItCanBeKept()
{
    QVERIFY(writeFile(m_path, kDamaged));
    {
        const FullDisk disk;
        store()->changeSettingsFile(m_path);
        store()->setValue(kWritten, 1);
        QCOMPARE(store()->value(kWritten).toInt(), 1);
        park();
    }
    QCOMPARE(readFile(m_path), kDamaged);
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kGood).toString(), QString::fromUtf8("ä"));
    QCOMPARE(keptCopies(m_path).size(), 1);
    QCOMPARE(readFile(keptCopies(m_path).first()), kDamaged);
    QCOMPARE(readFile(m_path), QByteArray("[ui]\ngood=ä\n"));
}

void TestSettingsObstacles::whatAnotherProcessWritesMeanwhileIsTakenIn()
{
    openWith("[ui]\ngood=1\nold=1\n");
    store()->setValue(kWritten, 1);
    const QString other = m_path + QStringLiteral(".new");
    QVERIFY(writeFile(other, "[his]\nsystem=theirs\n\n[ui]\ngood=22\n"));
    QCOMPARE(rename(qPrintable(other), qPrintable(m_path)), 0);
    QVERIFY(store()->flushSettingsFile());
    QCOMPARE(readFile(m_path), QByteArray("[his]\nsystem=theirs\n\n[ui]\ngood=22\nwritten=1\n"));
    QCOMPARE(store()->value(kGood).toInt(), 22);
    QCOMPARE(store()->generalSettings()->value(QStringLiteral("his/system")).toString(),
             QStringLiteral("theirs"));
    QCOMPARE(keptCopies(m_path), QStringList());
}

void TestSettingsObstacles::aDamagedFileThatCannotBeKeptStays()
{
    // With the time and the damage the name would be longer than a name can be.
    m_path = longName(225);
    openWith(kSoundAndWritten);
    QVERIFY(writeFile(m_path, kDamaged));
    store()->setValue(kWritten, 2);
    QVERIFY(!store()->flushSettingsFile());
    QCOMPARE(readFile(m_path), kDamaged);
    QCOMPARE(store()->value(kWritten).toInt(), 2);
    park();
    QCOMPARE(readFile(m_path), kDamaged);
    QCOMPARE(QFileInfo(m_path).dir().entryList(QDir::Files).size(), 1);
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kGood).toString(), QString::fromUtf8("ä"));
    QVERIFY(!store()->generalSettings()->contains(kWritten));
}

void TestSettingsObstacles::aCacheFileDamagedWhileItIsOpenIsKept()
{
    const QString path = QFileInfo(m_path).path() + QStringLiteral("/local_cache");
    QVERIFY(writeFile(path, "localsave=true\n"));
    const auto cache = openSettingsFile(path);
    QVERIFY(cache->value(QStringLiteral("localsave")).toBool());
    const QByteArray bytes = "localsave=false\nlocation=\xe4\n";
    QVERIFY(writeFile(path, bytes));
    cache->setValue(QStringLiteral("online_mode"), true);
    QCoreApplication::processEvents();
    QCOMPARE(keptCopies(path).size(), 1);
    QCOMPARE(readFile(keptCopies(path).first()), bytes);
    QVERIFY(readFile(path).contains("location=ä\n"));
    QVERIFY(readFile(path).contains("online_mode=true\n"));
}

void TestSettingsObstacles::aLinkIsWrittenThrough_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("afterwards");

    QTest::newRow("to a file") << kSound << kSoundAndWritten;
    QTest::newRow("to a file that is not there yet") << QByteArray() << QByteArray("[ui]\nwritten=1\n");
}

void TestSettingsObstacles::aLinkIsWrittenThrough()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, afterwards);
    const QString real = QFileInfo(m_path).path() + QStringLiteral("/real/settings.ini");
    QVERIFY(writeFile(real, bytes));
    if (bytes.isEmpty())
        QVERIFY(QFile::remove(real));
    QVERIFY(QFile::link(real, m_path));
    store()->changeSettingsFile(m_path);
    store()->setValue(kWritten, 1);
    park();
    QVERIFY(QFileInfo(m_path).isSymLink());
    QCOMPARE(readFile(real), afterwards);
}

QTEST_GUILESS_MAIN(TestSettingsObstacles)
#include "test_settingsobstacles.moc"
