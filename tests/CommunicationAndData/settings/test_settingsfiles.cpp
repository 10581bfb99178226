#include "CommunicationAndData/settings/settingsfile.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "storechecks.h"
#include "support/fulldisk.h"
#include "support/ordinaryuser.h"
#include "support/workstation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>

#include <sys/stat.h>

namespace {

const QString kGood = QStringLiteral("ui/good");
const QString kWritten = QStringLiteral("ui/written");

QByteArray utf16(const char *text, bool bigEndian)
{
    QByteArray bytes(bigEndian ? "\xfe\xff" : "\xff\xfe");
    for (; *text; ++text) {
        bytes += bigEndian ? QByteArray(1, '\0') + *text : QByteArray(1, *text) + '\0';
    }
    return bytes;
}

}  // namespace

/// Settings files in every bad state: nothing in them is lost, and the program works on.
class TestSettingsFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aSoundFileIsLeftAlone_data();
    void aSoundFileIsLeftAlone();
    void aDamagedFileIsKeptAndReadAsFarAsItCanBe_data();
    void aDamagedFileIsKeptAndReadAsFarAsItCanBe();
    void twoDamagedFilesOfOneNameAreBothKept();
    void aFileDamagedWhileItIsOpenIsKept();
    void aKeptFileIsAsPrivateAsTheOriginal();
    void aLinkedFileIsKeptAndStaysLinked();
    void aDamagedFileThatCannotBeReplacedStaysAndIsReadIntoMemory();
    void aKeptCopyIsNotMadeAgainAtEveryStart();

    void whatIsNoFileStartsEmptyInMemory_data();
    void whatIsNoFileStartsEmptyInMemory();
    void aFileThatMayNotBeReadStartsEmptyInMemory();
    void whatCannotBeWrittenIsLoggedOnceAndStaysInMemory_data();
    void whatCannotBeWrittenIsLoggedOnceAndStaysInMemory();
    void whatCouldNotBeWrittenDoesNotComeBackInAnotherFile();
    void aValueIsWrittenOnceTheFolderIsWritableAgain();
    void aFullDiskEmptiesNoSettings();

    void localApplicationSettingsThatAreDamagedAreKept();
    void localApplicationSettingsThatCannotBeWrittenSayThemselvesSo();
    void aDamagedCacheFileIsKept();
    void aCacheFileThatCannotBeWrittenIsLoggedOnce();
    void aCacheFileIsReadFromDiskAtEachOpening();

private:
    QString newFile()
    {
        return m_workstation.dataDirectory() + QStringLiteral("file_%1/corvane.ini").arg(++m_count);
    }
    QStringList logged(const QString &text) const
    {
        return linesWith(m_workstation.runtimeLog(), text);
    }
    void park()
    {
        store()->changeSettingsFile(m_workstation.dataDirectory() + QStringLiteral("parking.ini"));
    }

    Workstation m_workstation;
    QString m_path;
    int m_count = 0;
};

void TestSettingsFiles::init()
{
    park();
    // Also for whoever has no privileges.
    QFile::setPermissions(m_workstation.path(QString()), QFile::Permissions(0x7755));
    m_path = newFile();
}

void TestSettingsFiles::aSoundFileIsLeftAlone_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("an empty file") << QByteArray();
    QTest::newRow("mixed line ends") << QByteArray("[ui]\r\ngood=1\rother=2\n\rthird=3");
    QTest::newRow("as other programs of the suite write it") << QByteArray("[ui]\ngood=\\xf6\\x20ac\n");
}

void TestSettingsFiles::aSoundFileIsLeftAlone()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(writeFile(m_path, bytes));
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->generalSettings()->contains(kGood), !bytes.isEmpty());
    QCOMPARE(readFile(m_path), bytes);
    store()->setValue(kWritten, 1);
    park();
    QCOMPARE(keptCopies(m_path), QStringList());
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->generalSettings()->contains(kGood), !bytes.isEmpty());
    QCOMPARE(store()->value(kWritten).toInt(), 1);
    QCOMPARE(logged(m_path), QStringList());
}

void TestSettingsFiles::aDamagedFileIsKeptAndReadAsFarAsItCanBe_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("damage");
    QTest::addColumn<QString>("good");

    const QString good = QStringLiteral("1");
    QTest::newRow("Latin-1") << QByteArray("[ui]\ngood=\xe4\xf6\n") << "not-utf-8" << QString::fromUtf8("äö");
    QTest::newRow("a byte order mark in front of UTF-8")
        << QByteArray("\xef\xbb\xbf[ui]\r\ngood=1\r\n") << "utf-8-mark" << good;
    QTest::newRow("UTF-16, little end first") << utf16("[ui]\r\ngood=1\r\n", false) << "utf-16" << good;
    QTest::newRow("UTF-16, big end first") << utf16("[ui]\r\ngood=1\r\n", true) << "utf-16" << good;
    QTest::newRow("zero bytes after a power failure")
        << QByteArray("[ui]\ngood=1\n") + QByteArray(512, '\0') << "nul-bytes" << good;
    QTest::newRow("only zero bytes") << QByteArray(4096, '\0') << "nul-bytes" << QString();
    QTest::newRow("an unterminated quote")
        << QByteArray("[ui]\nbad=\"x\ngood=1\nlast=\"y\"\n") << "open-quote" << good;
    QTest::newRow("a lone carriage return in a quote")
        << QByteArray("[ui]\nbad=\"x\rgood=1\n") << "open-quote" << good;
    QTest::newRow("lines that say nothing")
        << QByteArray("#!/bin/sh\n[ui]\n----\ngood=1\n") << "unreadable-line" << good;
    QTest::newRow("a value that would end the program")
        << QByteArray("[ui]\nbad=@Variant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)\ngood=1\n") << "unreadable-value"
        << good;
    QTest::newRow("random bytes") << QByteArray::fromHex("8f12aa03d97711fe2c0d0a5b9c") << "unreadable-line"
                                  << QString();
    QTest::newRow("five million bytes")
        << "[ui]\ngood=1\n" + QByteArray("filler=" + QByteArray(1000, 'x') + '\n').repeated(5000)
        << "too-large" << good;
}

void TestSettingsFiles::aDamagedFileIsKeptAndReadAsFarAsItCanBe()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, damage);
    QFETCH(QString, good);
    QVERIFY(writeFile(m_path, bytes));
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kGood).toString(), good);

    const QStringList kept = keptCopies(m_path);
    QCOMPARE(kept.size(), 1);
    const QRegularExpression name(
        QStringLiteral("^corvane\\.ini\\.\\d{8}T\\d{6}Z\\.%1\\.kept$").arg(damage.split(',').first()));
    QVERIFY2(name.match(QFileInfo(kept.first()).fileName()).hasMatch(), qPrintable(kept.first()));
    QVERIFY(readFile(kept.first()) == bytes);

    store()->setValue(kWritten, 1);
    park();
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kGood).toString(), good);
    QCOMPARE(store()->value(kWritten).toInt(), 1);
    QCOMPARE(keptCopies(m_path), kept);
    QVERIFY(readFile(kept.first()) == bytes);

    const QStringList lines = logged(m_path);
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines.first().startsWith(QLatin1String("WRN CV: ")));
}

void TestSettingsFiles::twoDamagedFilesOfOneNameAreBothKept()
{
    for (const QByteArray &bytes : {QByteArray("[ui]\na=\xe4\n"), QByteArray("[ui]\na=\xf6\n")}) {
        QVERIFY(writeFile(m_path, bytes));
        store()->changeSettingsFile(m_path);
        park();
    }
    QCOMPARE(keptCopies(m_path).size(), 2);
}

void TestSettingsFiles::aFileDamagedWhileItIsOpenIsKept()
{
    store()->changeSettingsFile(m_path);
    store()->setValue(kGood, 1);
    store()->changeSettingsFile(m_path);
    const QByteArray bytes = "[ui]\ngood=2\nother=\xe4\n";
    QVERIFY(writeFile(m_path, bytes));
    store()->setValue(kWritten, 1);
    park();
    QCOMPARE(keptCopies(m_path).size(), 1);
    QCOMPARE(readFile(keptCopies(m_path).first()), bytes);
    QCOMPARE(readFile(m_path), QByteArray("[ui]\ngood=2\nother=ä\nwritten=1\n"));
}

void TestSettingsFiles::aKeptFileIsAsPrivateAsTheOriginal()
{
    QVERIFY(writeFile(m_path, "[ui]\ngood=\xe4\n"));
    QVERIFY(QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner));
    const auto permissions = QFile::permissions(m_path);
    store()->changeSettingsFile(m_path);
    QCOMPARE(QFile::permissions(keptCopies(m_path).value(0)), permissions);
    QCOMPARE(QFile::permissions(m_path), permissions);
}

void TestSettingsFiles::aLinkedFileIsKeptAndStaysLinked()
{
    const QByteArray bytes = "[ui]\ngood=\xe4\n";
    const QString real = newFile();
    QVERIFY(writeFile(real, bytes));
    QVERIFY(QDir().mkpath(QFileInfo(m_path).path()));
    QVERIFY(QFile::link(real, m_path));
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kGood).toString(), QString::fromUtf8("ä"));
    QCOMPARE(readFile(keptCopies(m_path).value(0)), bytes);
    QVERIFY(QFileInfo(m_path).isSymLink());
    QCOMPARE(readFile(real), QByteArray("[ui]\ngood=ä\n"));
}

void TestSettingsFiles::aDamagedFileThatCannotBeReplacedStaysAndIsReadIntoMemory()
{
    const QByteArray bytes = "[ui]\ngood=\xe4\n";
    QVERIFY(writeFile(m_path, bytes));
    const WriteProtection protection(m_path);
    const OrdinaryUser nobody;
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kGood).toString(), QString::fromUtf8("ä"));
    store()->setValue(kWritten, 1);
    QCOMPARE(store()->value(kWritten).toInt(), 1);
    park();
    QCOMPARE(readFile(m_path), bytes);
    QCOMPARE(logged(m_path).filter(QStringLiteral("WRN CV: ")).size(), 1);
    QCOMPARE(logged(m_path).filter(QStringLiteral("ERR CV: ")).size(), 1);
}

void TestSettingsFiles::aKeptCopyIsNotMadeAgainAtEveryStart()
{
    const QByteArray bytes = "[ui]\ngood=\xe4\n";
    for (int i = 0; i < 3; ++i) {
        QVERIFY(writeFile(m_path, bytes));
        store()->changeSettingsFile(m_path);
        park();
    }
    QCOMPARE(keptCopies(m_path).size(), 1);
}

void TestSettingsFiles::whatIsNoFileStartsEmptyInMemory_data()
{
    QTest::addColumn<QString>("kind");

    QTest::newRow("a directory") << QStringLiteral("directory");
    QTest::newRow("a pipe") << QStringLiteral("pipe");
}

void TestSettingsFiles::whatIsNoFileStartsEmptyInMemory()
{
    QFETCH(QString, kind);
    QVERIFY(QDir().mkpath(QFileInfo(m_path).path()));
    if (kind == QLatin1String("directory"))
        QVERIFY(writeFile(m_path + QStringLiteral("/inside"), "kept"));
    else
        QCOMPARE(mkfifo(qPrintable(m_path), 0600), 0);

    store()->changeSettingsFile(m_path);
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
    store()->setValue(kWritten, 1);
    QCOMPARE(store()->value(kWritten).toInt(), 1);
    QTRY_COMPARE(logged(m_path).filter(QStringLiteral("ERR CV: ")).size(), 1);
    QCOMPARE(logged(m_path).filter(QStringLiteral("WRN CV: ")).size(), 1);
    park();
    QVERIFY(QFileInfo::exists(m_path));
    QVERIFY(!QFileInfo(m_path).isFile() || kind == QLatin1String("pipe"));
    if (kind == QLatin1String("directory"))
        QCOMPARE(readFile(m_path + QStringLiteral("/inside")), QByteArray("kept"));
    store()->changeSettingsFile(m_path);
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
}

void TestSettingsFiles::aFileThatMayNotBeReadStartsEmptyInMemory()
{
    const QByteArray bytes = "[ui]\ngood=1\n";
    QVERIFY(writeFile(m_path, bytes));
    QVERIFY(QFile::setPermissions(QFileInfo(m_path).path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(m_path, QFile::Permissions()));
    {
        const OrdinaryUser nobody;
        store()->changeSettingsFile(m_path);
        QVERIFY(store()->generalSettings()->allKeys().isEmpty());
        store()->setValue(kWritten, 1);
        QCOMPARE(store()->value(kWritten).toInt(), 1);
        park();
    }
    QVERIFY(QFile::setPermissions(m_path, QFile::Permissions(0x6600)));
    QCOMPARE(readFile(m_path), bytes);
    QCOMPARE(logged(m_path).filter(QStringLiteral("WRN CV: ")).size(), 1);
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kGood).toInt(), 1);
    QVERIFY(!store()->generalSettings()->contains(kWritten));
}

void TestSettingsFiles::whatCannotBeWrittenIsLoggedOnceAndStaysInMemory_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("a place where nothing can be made") << QStringLiteral("/proc/corvane/corvane.ini");
    QTest::newRow("a folder that is a file") << QString();
}

void TestSettingsFiles::whatCannotBeWrittenIsLoggedOnceAndStaysInMemory()
{
    QFETCH(QString, path);
    if (path.isEmpty()) {
        QVERIFY(writeFile(m_path, "[ui]\ngood=1\n"));
        path = m_path + QStringLiteral("/corvane.ini");
    }
    store()->changeSettingsFile(path);
    QCOMPARE(logged(path), QStringList());
    store()->setValue(kWritten, 1);
    QTRY_COMPARE(logged(path).size(), 1);
    QVERIFY(logged(path).first().startsWith(QLatin1String("ERR CV: ")));
    store()->setValue(kWritten, 2);
    store()->generalSettings()->sync();
    QCoreApplication::processEvents();
    QCOMPARE(store()->value(kWritten).toInt(), 2);
    park();
    QCOMPARE(logged(path).size(), 1);
}

void TestSettingsFiles::whatCouldNotBeWrittenDoesNotComeBackInAnotherFile()
{
    const QString folder = QFileInfo(m_path).path();
    QVERIFY(writeFile(m_path, "[ui]\ngood=1\n"));
    {
        const WriteProtection protection(m_path);
        const OrdinaryUser nobody;
        store()->changeSettingsFile(m_path);
        store()->setValue(kWritten, 1);
        park();
    }
    QCOMPARE(logged(m_path).size(), 1);
    QVERIFY(QFile::rename(m_path, folder + QStringLiteral("/recovery.ini")));
    store()->changeSettingsFile(m_path);
    QVERIFY(store()->generalSettings()->allKeys().isEmpty());
    park();
    QVERIFY(writeFile(m_path, "[ui]\ngood=2\n"));
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->generalSettings()->allKeys(), QStringList(kGood));
    QCOMPARE(store()->value(kGood).toInt(), 2);
}

void TestSettingsFiles::aValueIsWrittenOnceTheFolderIsWritableAgain()
{
    QVERIFY(writeFile(m_path, "[ui]\ngood=1\n"));
    store()->changeSettingsFile(m_path);
    {
        const WriteProtection protection(m_path);
        const OrdinaryUser nobody;
        store()->setValue(kWritten, 1);
        QTRY_COMPARE(logged(m_path).size(), 1);
    }
    store()->setValue(kGood, 2);
    QTRY_COMPARE(readFile(m_path), QByteArray("[ui]\ngood=2\nwritten=1\n"));
}

void TestSettingsFiles::aFullDiskEmptiesNoSettings()
{
    const QByteArray bytes = "[ui]\ngood=1\n" + QByteArray("long=") + QByteArray(500, 'x') + '\n';
    QVERIFY(writeFile(m_path, bytes));
    store()->changeSettingsFile(m_path);
    {
        const FullDisk disk;
        store()->setValue(kWritten, 1);
        park();
        store()->changeSettingsFile(m_path);
        QCOMPARE(store()->value(kGood).toInt(), 1);
        park();
    }
    QCOMPARE(readFile(m_path), bytes);
    store()->changeSettingsFile(m_path);
    QCOMPARE(store()->value(kGood).toInt(), 1);
    store()->setValue(kWritten, 2);
    park();
    QVERIFY(readFile(m_path).contains("good=1"));
    QVERIFY(readFile(m_path).contains("written=2"));
}

void TestSettingsFiles::localApplicationSettingsThatAreDamagedAreKept()
{
    const QString path = m_workstation.localApplicationSettings();
    const QByteArray bytes = "[ui]\ngood=\xe4\nbad\n";
    QVERIFY(writeFile(path, bytes));
    QCOMPARE(openLocalApplicationSettings()->value(kGood).toString(), QString::fromUtf8("ä"));
    QCOMPARE(keptCopies(path).size(), 1);
    QCOMPARE(readFile(keptCopies(path).first()), bytes);
    QVERIFY(QFile::remove(path));
}

void TestSettingsFiles::localApplicationSettingsThatCannotBeWrittenSayThemselvesSo()
{
    const QString path = m_workstation.localApplicationSettings();
    QVERIFY(QDir().mkpath(path));
    QVERIFY(!openLocalApplicationSettings()->isWritable());
    QVERIFY(QDir().rmdir(path));
    QVERIFY(openLocalApplicationSettings()->isWritable());
}

void TestSettingsFiles::aDamagedCacheFileIsKept()
{
    const QString path = QFileInfo(m_path).path() + QStringLiteral("/local_cache");
    const QByteArray bytes = utf16("localsave=true\r\n", false);
    QVERIFY(writeFile(path, bytes));
    QCOMPARE(openSettingsFile(path)->value(QStringLiteral("localsave")).toBool(), true);
    QCOMPARE(readFile(keptCopies(path).value(0)), bytes);
    QCOMPARE(readFile(path), QByteArray("localsave=true\n"));
}

void TestSettingsFiles::aCacheFileThatCannotBeWrittenIsLoggedOnce()
{
    const QString path = QStringLiteral("/proc/corvane/local_cache");
    for (int i = 0; i < 3; ++i)
        openSettingsFile(path)->setValue(QStringLiteral("localsave"), true);
    QCOMPARE(logged(path).size(), 1);
    QVERIFY(logged(path).first().startsWith(QLatin1String("ERR CV: ")));
}

void TestSettingsFiles::aCacheFileIsReadFromDiskAtEachOpening()
{
    for (int i = 10; i < 60; ++i) {
        QVERIFY(writeFile(m_path, "number=" + QByteArray::number(i)));
        QCOMPARE(openSettingsFile(m_path)->value(QStringLiteral("number")).toInt(), i);
    }
}

QTEST_GUILESS_MAIN(TestSettingsFiles)
#include "test_settingsfiles.moc"
