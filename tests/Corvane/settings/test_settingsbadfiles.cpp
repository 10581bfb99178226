#include "Corvane/settings/settingsparking.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "support/filedialogs.h"
#include "support/fulldisk.h"
#include "support/messageboxes.h"
#include "support/ordinaryuser.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

#include <functional>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using namespace SettingsTest;

namespace {

constexpr qint64 kHuge = 200 * 1024 * 1024;
constexpr unsigned long kNoRoom = 64;  // bytes

using Change = std::function<void(const QString &path)>;

/// What a file turns into between its choice and its use.
Change into(const QByteArray &bytes)
{
    return [bytes](const QString &path) {
        QVERIFY(writeFile(path, bytes));
    };
}

void intoDirectory(const QString &path)
{
    QFile::remove(path);
    QVERIFY(QDir().mkpath(path));
}

void intoPipe(const QString &path)
{
    QFile::remove(path);
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
}

void intoHugeFile(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.resize(kHuge));
}

/// Settings of which one is longer than a file of settings can be.
void intoHugeSettings(const QString &path)
{
    QVERIFY(writeFile(path, "[site]\nlong=" + QByteArray(5 * 1024 * 1024, 'x') + '\n'));
}

}  // namespace

Q_DECLARE_METATYPE(Change)

/// Import from and export to files that are not what they should be, on the real menu and Qt's own file
/// dialogs.
class TestSettingsBadFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void whatIsNoSettingsFileIsNotImported_data();
    void whatIsNoSettingsFileIsNotImported();
    void aFileThatMayNotBeReadIsNotImported();
    void aFileThatCannotBeReadIsNotImported();
    void withoutRoomForACopyTheFormerSettingsStay();
    void whatCouldNotBeWrittenStaysWhenAnImportFails();
    void withoutAPlaceForTheFormerSettingsTheyStay();
    void aLinkToTheWorkingFileChangesNoFile_data();
    void aLinkToTheWorkingFileChangesNoFile();
    void aDamagedFileIsImportedAsFarAsItCanBeRead();
    void anArraySizeThatLiesIsHarmless_data();
    void anArraySizeThatLiesIsHarmless();

    void withoutRoomSavingToTheLocalApplicationIsNoSuccess_data();
    void withoutRoomSavingToTheLocalApplicationIsNoSuccess();
    void whatCouldNotBeSavedIsNotWhatIsLoadedLater();
    void withoutRoomALoadIsTakenBackAtTheNextStart_data();
    void withoutRoomALoadIsTakenBackAtTheNextStart();
    void withoutRoomAnExportFailsAndLeavesNothing();
    void aFolderInTheTargetsPlaceFailsWithBothSentences();
    void aFolderInWhichNothingMayBeMadeFails();
    void aProtectedFileFailsWithBothSentences();

private:
    void begin(SettingsBench &bench);
    void transfer(SettingsBench &bench, const char *action, const Change &whenChosen = {});
    void checkNotImported(SettingsBench &bench);
    void checkNotExported(SettingsBench &bench, const QString &text);

    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
    QString m_folder;
    QString m_file;  ///< to import from or export to
    QByteArray m_before;
    std::unique_ptr<MessageBoxes> m_boxes;
};

void TestSettingsBadFiles::init()
{
    m_files.reset();
    m_folder = m_workstation.path(QStringLiteral("outside"));
    m_file = m_folder + QStringLiteral("/file.ini");
    QDir(m_folder).removeRecursively();
    QVERIFY(QDir().mkpath(m_folder));
    QVERIFY(writeFile(m_file, "[site]\nnew=1\n"));
    for (const QString &path : {m_workstation.path(QString()), m_folder})
        QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x7755)));
    setStored("site/own", "kept");
}

void TestSettingsBadFiles::cleanup()
{
    m_boxes.reset();
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!QDir(m_files.temporaryDirectory()).exists());
    const QStringList strange = QDir(m_workstation.dataDirectory()).entryList({"*.kept", "qt_temp*"});
    QVERIFY2(strange.isEmpty(), qPrintable(strange.join(' ')));
    // Whatever happened, the store works on the working file again.
    setStored("site/probe", 1);
    store()->generalSettings()->sync();
    QVERIFY(readFile(m_files.working()).contains("probe=1"));
}

/// Everything is saved and on disk before the file is chosen.
void TestSettingsBadFiles::begin(SettingsBench &bench)
{
    QVERIFY(QMetaObject::invokeMethod(&bench.view(), "showSettings"));
    bench.seeChanges([](DiffView &) {});
    store()->generalSettings()->sync();
    m_before = readFile(m_files.working());
    QVERIFY(m_before.contains("own=kept"));
}

void TestSettingsBadFiles::transfer(SettingsBench &bench, const char *action, const Change &whenChosen)
{
    m_boxes = std::make_unique<MessageBoxes>(QStringList{"Yes"});
    FileDialogs dialogs({m_file});
    if (whenChosen)
        dialogs.whenChosen(whenChosen);
    bench.choose("transfer_menu", action);
    QCOMPARE(dialogs.seen().size(), 1);
}

/// The box, the audit rows and the line in the log; everything else is as it was.
void TestSettingsBadFiles::checkNotImported(SettingsBench &bench)
{
    QCOMPARE(m_boxes->seen().size(), 1);
    QCOMPARE(
        m_boxes->seen().first().text,
        QStringLiteral("Error: Importing settings from %1 did not succeed. Please try again.").arg(m_file));
    QCOMPARE(m_boxes->seen().first().buttons, QStringList{"Ok"});
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>(
                 {settingsError(Actions::Import, 0x14200005, "Importing settings did not succeed: " + m_file),
                  settingsEvent(Actions::Import, "Corvane Settings Import")}));
    const QByteArray log = readFile(m_workstation.runtimeLog());
    QVERIFY(log.contains("SettingsView::importSettings"));
    QVERIFY(log.contains("Importing settings did not succeed"));
    QCOMPARE(stored("site/own").toString(), QStringLiteral("kept"));
    QVERIFY(!stored("site/new").isValid());
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 1);
    store()->generalSettings()->sync();
    QCOMPARE(readFile(m_files.working()), m_before);
}

void TestSettingsBadFiles::checkNotExported(SettingsBench &bench, const QString &text)
{
    QCOMPARE(m_boxes->seen().last().text, text);
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>(
                 {settingsError(Actions::Export, 0x14200006, "Exporting settings did not succeed: " + m_file),
                  settingsEvent(Actions::Export, "Corvane Settings Export")}));
    QVERIFY(QDir(m_folder).entryList({"qt_temp*"}).isEmpty());
    QCOMPARE(readFile(m_files.working()), m_before);
    QCOMPARE(stored("site/own").toString(), QStringLiteral("kept"));
}

void TestSettingsBadFiles::whatIsNoSettingsFileIsNotImported_data()
{
    QTest::addColumn<Change>("change");
    const QByteArray picture("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0=\0", 20);
    QTest::newRow("a picture") << into(picture + QByteArray(5000, '\x7f'));
    QTest::newRow("a text that is no ini") << into("Dear colleague,\nplease find attached\n");
    QTest::newRow("200 MiB") << Change(intoHugeFile);
    QTest::newRow("more settings than a file can hold") << Change(intoHugeSettings);
    QTest::newRow("a directory") << Change(intoDirectory);
    QTest::newRow("a pipe that nobody writes to") << Change(intoPipe);
}

void TestSettingsBadFiles::whatIsNoSettingsFileIsNotImported()
{
    QFETCH(Change, change);
    setStored("ui/measurement_units", 1);
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    transfer(bench, "import_action", change);
    checkNotImported(bench);
}

void TestSettingsBadFiles::aFileThatMayNotBeReadIsNotImported()
{
    setStored("ui/measurement_units", 1);
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    QVERIFY(QFile::setPermissions(m_file, QFile::Permissions()));
    {
        const OrdinaryUser user;
        transfer(bench, "import_action");
    }
    checkNotImported(bench);
}

void TestSettingsBadFiles::aFileThatCannotBeReadIsNotImported()
{
    m_file = QStringLiteral("/proc/self/mem");
    if (!QFile::exists(m_file))
        QSKIP("This system has no file whose reading fails for everyone");
    setStored("ui/measurement_units", 1);
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    transfer(bench, "import_action");
    checkNotImported(bench);
}

void TestSettingsBadFiles::withoutRoomForACopyTheFormerSettingsStay()
{
    QVERIFY(writeFile(m_file, "[site]\nnew=" + QByteArray(1000, 'x') + '\n'));
    setStored("ui/measurement_units", 1);
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    std::unique_ptr<FullDisk> disk;
    transfer(bench, "import_action",
             [&disk](const QString &) { disk = std::make_unique<FullDisk>(kNoRoom); });
    disk.reset();
    checkNotImported(bench);
}

void TestSettingsBadFiles::whatCouldNotBeWrittenStaysWhenAnImportFails()
{
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    QVERIFY(QFile::setPermissions(m_workstation.path(QString()), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(m_workstation.dataDirectory(), QFile::Permissions(0x5555)));
    {
        const OrdinaryUser user;
        setStored("site/own", "in memory");
        setStored("ui/measurement_units", 1);
        transfer(bench, "import_action");
    }
    QVERIFY(QFile::setPermissions(m_workstation.dataDirectory(), QFile::Permissions(0x7755)));
    QVERIFY(m_boxes->seen().value(0).text.contains("did not succeed"));
    QCOMPARE(stored("site/own").toString(), QStringLiteral("in memory"));
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 1);
    QCOMPARE(readFile(m_files.working()), m_before);
    store()->generalSettings()->sync();
    QVERIFY(readFile(m_files.working()).contains("own=in memory"));
}

void TestSettingsBadFiles::withoutAPlaceForTheFormerSettingsTheyStay()
{
    setStored("ui/measurement_units", 1);
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    QVERIFY(writeFile(m_files.temporaryDirectory(), "no directory"));
    transfer(bench, "import_action");
    checkNotImported(bench);
    QVERIFY(QFile::remove(m_files.temporaryDirectory()));
}

void TestSettingsBadFiles::aLinkToTheWorkingFileChangesNoFile_data()
{
    QTest::addColumn<bool>("symbolic");
    QTest::newRow("a symbolic link") << true;
    QTest::newRow("a second name") << false;
}

void TestSettingsBadFiles::aLinkToTheWorkingFileChangesNoFile()
{
    QFETCH(bool, symbolic);
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    QFile::remove(m_file);
    const QByteArray link = QFile::encodeName(m_file);
    const QByteArray working = QFile::encodeName(m_files.working());
    if (symbolic)
        QCOMPARE(::symlink(working.constData(), link.constData()), 0);
    else
        QCOMPARE(::link(working.constData(), link.constData()), 0);
    transfer(bench, "import_action");
    QVERIFY(m_boxes->seen().isEmpty());
    QCOMPARE(bench.takeEvents(),
             QList<AuditEvent>{settingsEvent(Actions::Import, "Corvane Settings Import")});
    QCOMPARE(readFile(m_files.working()), m_before);
    QCOMPARE(readFile(m_file), m_before);
}

void TestSettingsBadFiles::aDamagedFileIsImportedAsFarAsItCanBeRead()
{
    QVERIFY(writeFile(m_file, "# made by hand\n[site]\nnew=\"open\nnext=2\n[ui]\nmeasurement_units=1\n"));
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    transfer(bench, "import_action");
    QVERIFY(m_boxes->seen().isEmpty());
    QCOMPARE(m_files.workingKeys(), QStringList({"site/new", "site/next", "ui/measurement_units"}));
    QCOMPARE(child<QComboBox>(bench.view(), "measurement_units")->currentIndex(), 1);
    // What could not be read is kept beside the working file.
    QDir directory(m_workstation.dataDirectory());
    const QStringList kept = directory.entryList({"*.kept"});
    QCOMPARE(kept.size(), 1);
    QCOMPARE(readFile(directory.filePath(kept.first())), readFile(m_file));
    QVERIFY(directory.remove(kept.first()));
}

void TestSettingsBadFiles::anArraySizeThatLiesIsHarmless_data()
{
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<QStringList>("entries");
    const QStringList all = {"1/key", "1/value", "2/key", "2/value"};
    QTest::newRow("two thousand million") << QByteArray("2000000000") << all;
    QTest::newRow("more than a number can be") << QByteArray("99999999999999999999") << QStringList();
    QTest::newRow("less than there are") << QByteArray("1") << QStringList(all.mid(0, 2));
    QTest::newRow("less than nothing") << QByteArray("-5") << QStringList();
    QTest::newRow("no number") << QByteArray("many") << QStringList();
    QTest::newRow("a list") << QByteArray("1, 2") << QStringList();
}

void TestSettingsBadFiles::anArraySizeThatLiesIsHarmless()
{
    QFETCH(QByteArray, size);
    QFETCH(QStringList, entries);
    QVERIFY(writeFile(m_file, "[persondb]\nparams\\size=" + size +
                                  "\nparams\\1\\key=Server\nparams\\1\\value=db.example\n"
                                  "params\\2\\key=Port\nparams\\2\\value=3306\n"));
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    transfer(bench, "import_action");
    QVERIFY(m_boxes->seen().isEmpty());
    QStringList found =
        m_files.workingKeys().filter("persondb/params/").replaceInStrings("persondb/params/", "");
    QVERIFY(found.removeOne("size"));
    QCOMPARE(found, entries);
    QCOMPARE(readFile(m_file).count("params"), 5);
}

void TestSettingsBadFiles::withoutRoomSavingToTheLocalApplicationIsNoSuccess_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("for anything") << static_cast<int>(kNoRoom);
    QTest::newRow("for more than a part") << 300;
}

void TestSettingsBadFiles::withoutRoomSavingToTheLocalApplicationIsNoSuccess()
{
    QFETCH(int, room);
    m_files.setLocal({{"site/own", "local"}});
    const QByteArray local = readFile(m_files.local());
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    bench.takeEvents();
    m_boxes = std::make_unique<MessageBoxes>();
    {
        const FullDisk disk(static_cast<unsigned long>(room));
        bench.choose("local_menu", "save_action");
    }
    QCOMPARE(m_boxes->seen().size(), 1);
    QCOMPARE(m_boxes->seen().first().text, QStringLiteral("Error: Not all settings were saved."));
    QCOMPARE(
        bench.takeEvents(),
        QList<AuditEvent>({settingsEvent(Actions::SaveSettings, "Corvane Settings Local Save"),
                           settingsError(Actions::SaveSettings, 0x14100000, "Not all settings were saved")}));
    QCOMPARE(readFile(m_files.local()), local);
    // As soon as there is room again it succeeds.
    bench.choose("local_menu", "save_action");
    QCOMPARE(m_boxes->seen().last().text, QStringLiteral("Saving succeeded."));
    QVERIFY(readFile(m_files.local()).contains("own=kept"));
}

void TestSettingsBadFiles::whatCouldNotBeSavedIsNotWhatIsLoadedLater()
{
    m_files.setLocal({{"site/own", "local"}});
    const QByteArray local = readFile(m_files.local());
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    m_boxes = std::make_unique<MessageBoxes>();
    {
        const FullDisk disk(kNoRoom);
        bench.choose("local_menu", "save_action");
    }
    QCOMPARE(m_boxes->seen().value(0).text, QStringLiteral("Error: Not all settings were saved."));
    bench.choose("local_menu", "load_action");
    QCOMPARE(m_files.workingKeys(), QStringList{"site/own"});
    QCOMPARE(stored("site/own").toString(), QStringLiteral("local"));
    QCOMPARE(readFile(m_files.local()), local);
}

void TestSettingsBadFiles::withoutRoomALoadIsTakenBackAtTheNextStart_data()
{
    QTest::addColumn<QByteArray>("menu");
    QTest::addColumn<QByteArray>("action");
    QTest::newRow("once") << QByteArray() << QByteArray();
    QTest::newRow("after a second load") << QByteArray("local_menu") << QByteArray("load_action");
    QTest::newRow("after an export that failed as well")
        << QByteArray("transfer_menu") << QByteArray("export_action");
}

void TestSettingsBadFiles::withoutRoomALoadIsTakenBackAtTheNextStart()
{
    QFETCH(QByteArray, menu);
    QFETCH(QByteArray, action);
    const FileDialogs dialogs({m_folder + QStringLiteral("/other.ini")});
    const MessageBoxes boxes;
    m_files.setLocal({{"site/own", "local"}});
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    {
        const FullDisk disk(kNoRoom);
        bench.choose("local_menu", "load_action");
        QCOMPARE(stored("site/own").toString(), QStringLiteral("local"));
        if (!action.isEmpty())
            bench.choose(menu, action);
        QCOMPARE(stored("site/own").toString(), QStringLiteral("local"));
        store()->changeSettingsFile(m_workstation.path("aside.ini"));
    }
    SettingsParking::recoverAbandoned(m_workstation.dataDirectory());
    QCOMPARE(readFile(m_files.working()), m_before);
    store()->changeSettingsFile(m_files.working());
    QCOMPARE(stored("site/own").toString(), QStringLiteral("kept"));
}

void TestSettingsBadFiles::withoutRoomAnExportFailsAndLeavesNothing()
{
    QFile::remove(m_file);
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    std::unique_ptr<FullDisk> disk;
    transfer(bench, "export_action",
             [&disk](const QString &) { disk = std::make_unique<FullDisk>(kNoRoom); });
    disk.reset();
    checkNotExported(bench, QStringLiteral("Error:  File copying failed!"));
    QVERIFY(QDir(m_folder).entryList(QDir::Files).isEmpty());
    // As soon as there is room again it succeeds.
    transfer(bench, "export_action");
    QVERIFY(readFile(m_file).contains("own=kept"));
}

void TestSettingsBadFiles::aFolderInTheTargetsPlaceFailsWithBothSentences()
{
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    transfer(bench, "export_action", intoDirectory);
    checkNotExported(bench,
                     QStringLiteral("File existed and could not be overwritten! File copying failed!"));
    QVERIFY(QFileInfo(m_file).isDir());
}

void TestSettingsBadFiles::aFolderInWhichNothingMayBeMadeFails()
{
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    QVERIFY(QFile::setPermissions(m_folder, QFile::Permissions(0x5555)));
    // The working file may be written.
    for (const QString &path : {m_workstation.path(QString()), m_workstation.dataDirectory()})
        QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(m_files.working(), QFile::Permissions(0x6666)));
    {
        const OrdinaryUser user;
        transfer(bench, "export_action");
    }
    checkNotExported(bench,
                     QStringLiteral("File existed and could not be overwritten! File copying failed!"));
    QCOMPARE(readFile(m_file), QByteArray("[site]\nnew=1\n"));
}

void TestSettingsBadFiles::aProtectedFileFailsWithBothSentences()
{
    SettingsBench bench(m_workstation, kAllRights);
    begin(bench);
    for (const QString &path : {m_workstation.path(QString()), m_workstation.dataDirectory(), m_folder})
        QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(m_files.working(), QFile::Permissions(0x6666)));
    QVERIFY(QFile::setPermissions(m_file, QFile::Permissions(0x4444)));
    {
        const OrdinaryUser user;
        transfer(bench, "export_action");
    }
    checkNotExported(bench,
                     QStringLiteral("File existed and could not be overwritten! File copying failed!"));
    QCOMPARE(readFile(m_file), QByteArray("[site]\nnew=1\n"));
}

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    TestSettingsBadFiles test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_settingsbadfiles.moc"
