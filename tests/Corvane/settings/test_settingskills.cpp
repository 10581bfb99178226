#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/settingscontent.h"
#include "Corvane/settings/confmanagementdialog.h"
#include "Corvane/settings/distributionview.h"
#include "Corvane/settings/settingsparking.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "siteconnection.h"
#include "support/filedialogs.h"
#include "support/messageboxes.h"
#include "support/tracedfork.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QPointer>
#include <QRandomGenerator>
#include <QTest>

#include <functional>

using namespace SettingsTest;

namespace {

constexpr int kMoments = 100;  // at which a process is killed, for each operation
constexpr quint32 kSeed = 46;
constexpr int kFillers = 150;     // keys beside those of the pages
constexpr int kPatience = 30000;  // milliseconds

using Content = QMap<QString, QVariant>;
using Moment = TracedFork::Moment;

void waitFor(const std::function<bool()> &condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > kPatience)
            TracedFork::giveUp();
        QTest::qWait(1);
    }
}

void call(SettingsBench &bench, const char *slot)
{
    if (!QMetaObject::invokeMethod(&bench.view(), slot))
        TracedFork::giveUp();
}

void press(QWidget &dialog, const char *button)
{
    QTest::mouseClick(child<QAbstractButton>(dialog, button), Qt::LeftButton);
}

/// Every change of a file in turn, and then any step at all; any time where the steps are not known.
Moment nextMoment(int round, const TracedFork::Result &whole, QRandomGenerator &random)
{
    if (whole.steps == 0)
        return {Moment::Time, random.bounded(whole.microseconds)};
    if (round <= whole.changes)
        return {Moment::Change, round};
    return {Moment::Step, random.bounded(whole.steps) + 1};
}

QByteArray nameOf(const Moment &moment)
{
    const char *const unit = moment.kind == Moment::Step     ? " steps"
                             : moment.kind == Moment::Change ? " changes"
                                                             : " microseconds";
    return QByteArray::number(moment.number) + unit;
}

/// Answers the program's file dialog, and counts steps from the moment that the file is chosen.
void callWithFile(SettingsBench &bench, const char *slot, const QString &path)
{
    FileDialogs dialogs({path});
    dialogs.whenChosen([](const QString &) { TracedFork::begin(); });
    const MessageBoxes boxes({QStringLiteral("Yes")});
    call(bench, slot);
}

}  // namespace

/// Processes that are killed in the middle of the settings view's operations: the next start finds the
/// settings as they were before or as they are afterwards, and never anything else.
class TestSettingsKills : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void killedProcessLeavesTheOldOrTheNewSettings_data();
    void killedProcessLeavesTheOldOrTheNewSettings();

private:
    void load(SettingsBench &bench);
    void import(SettingsBench &bench);
    void exportSettings(SettingsBench &bench);
    void autosave(SettingsBench &bench);
    void distribute(SettingsBench &bench);
    void loadOnline(SettingsBench &bench);

    /// The bytes of the two files that must not be lost.
    struct Files
    {
        QByteArray working;
        QByteArray local;
    };
    Files files() const
    {
        return {readFile(m_files.working()), readFile(m_files.local())};
    }
    void write(const Files &files);
    Content exampleOf(const QString &name) const;
    void prepare(SettingsBench &bench);
    bool storeOnline(SettingsBench &bench);
    void waitAWhile() const;
    void checkSite() const;

    Workstation m_workstation;
    SettingsFiles m_files{m_workstation};
    QString m_source;
    QString m_target;
    QString m_site;
};

using Operation = void (TestSettingsKills::*)(SettingsBench &);
Q_DECLARE_METATYPE(Operation)
Q_DECLARE_METATYPE(TracedFork::Way)

void TestSettingsKills::init()
{
    m_files.reset();
    m_source = m_workstation.path(QStringLiteral("source.ini"));
    m_target = m_workstation.path(QStringLiteral("target.ini"));
    m_site = m_workstation.path(QStringLiteral("site.db"));
    for (const QString &path : {m_source, m_target, m_site})
        QFile::remove(path);
    SiteConnection::remember(m_files.cache(), "supportdb_online", SiteConnection::params(m_site));
}

void TestSettingsKills::load(SettingsBench &bench)
{
    TracedFork::begin();
    call(bench, "loadLocalSettings");
}

void TestSettingsKills::import(SettingsBench &bench)
{
    callWithFile(bench, "importSettings", m_source);
}

void TestSettingsKills::exportSettings(SettingsBench &bench)
{
    callWithFile(bench, "exportSettings", m_target);
}

void TestSettingsKills::autosave(SettingsBench &bench)
{
    TracedFork::begin();
    bench.close();
}

void TestSettingsKills::distribute(SettingsBench &bench)
{
    call(bench, "distributeSettings");
    const QPointer<DistributionView> dialog = bench.view().findChild<DistributionView *>();
    if (!dialog)
        TracedFork::giveUp();
    TracedFork::begin();
    press(*dialog, "distribute_button");
    waitFor([&dialog] { return !dialog; });
}

void TestSettingsKills::loadOnline(SettingsBench &bench)
{
    call(bench, "manageSettings");
    const QPointer<ConfManagementDialog> dialog = bench.view().findChild<ConfManagementDialog *>();
    if (!dialog)
        TracedFork::giveUp();
    press(*dialog, "connect_button");
    const auto *load = child<QAbstractButton>(*dialog, "load_button");
    waitFor([load] { return load->isEnabled(); });
    TracedFork::begin();
    press(*dialog, "load_button");
    waitFor([&dialog] { return !dialog; });
}

void TestSettingsKills::write(const Files &files)
{
    store()->changeSettingsFile(m_workstation.path(QStringLiteral("aside.ini")));
    QDir(m_files.temporaryDirectory()).removeRecursively();
    const QFileInfo working(m_files.working());
    for (const QString &name : working.dir().entryList({working.fileName() + QStringLiteral("*")}))
        QFile::remove(working.dir().filePath(name));
    // What Qt's own file dialog remembers is not this program's.
    for (const QString &path : {m_workstation.path(QStringLiteral("home/QtProject.conf.lock")), m_target,
                                m_files.local() + QStringLiteral(".lock")})
        QFile::remove(path);
    QVERIFY(writeFile(m_files.working(), files.working));
    QVERIFY(writeFile(m_files.local(), files.local));
    store()->changeSettingsFile(m_files.working());
}

/// Settings as a site has them, each with a mark of its own in every key.
Content TestSettingsKills::exampleOf(const QString &name) const
{
    Content content;
    for (int i = 0; i < kFillers; ++i)
        content.insert(QStringLiteral("site/filler_%1").arg(i),
                       QStringLiteral("%1 väärt %2").arg(name).arg(i));
    for (const char *group : {"persondb", "studydb", "supportdb", "actiondb"}) {
        const QString prefix = QLatin1String(group) + QLatin1Char('/');
        content.insert(prefix + QStringLiteral("params/size"), 1);
        content.insert(prefix + QStringLiteral("params/1/key"), QStringLiteral("Server"));
        content.insert(prefix + QStringLiteral("params/1/value"), name);
    }
    return content;
}

/// Makes the local application settings, the working settings and the file to import different, and saves
/// what the pages make of the working settings.
void TestSettingsKills::prepare(SettingsBench &bench)
{
    m_files.setLocal(exampleOf(QStringLiteral("local")));
    const auto source = openSettingsFile(m_source);
    SettingsContent::replace(*source, exampleOf(QStringLiteral("imported")));
    for (auto [key, value] : exampleOf(QStringLiteral("old")).toStdMap())
        store()->setValue(key, value);
    call(bench, "showSettings");
    bench.seeChanges([](DiffView &) {});
    store()->generalSettings()->sync();
}

/// Another process puts a configuration into the site's database, so that this one needs no second thread.
bool TestSettingsKills::storeOnline(SettingsBench &bench)
{
    const auto work = [&] {
        for (auto [key, value] : exampleOf(QStringLiteral("online")).toStdMap())
            store()->setValue(key, value);
        distribute(bench);
    };
    return TracedFork::run(work, TracedFork::Unwatched).exitCode == 0;
}

/// The next start comes a while later: what a killed process has begun to lock is seen to be abandoned.
void TestSettingsKills::waitAWhile() const
{
    for (const QString &path : {m_files.working(), m_files.local(), m_files.cache()}) {
        QFile lock(path + QStringLiteral(".lock"));
        if (lock.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
            lock.setFileTime(QDateTime::currentDateTime().addSecs(-60), QFileDevice::FileModificationTime);
    }
}

void TestSettingsKills::checkSite() const
{
    const QStringList active =
        SiteConnection::run(m_site, {QStringLiteral("SELECT id FROM configurations WHERE active = 1")});
    QVERIFY2(active.size() <= 1, qPrintable(active.join(QLatin1Char(' '))));
}

void TestSettingsKills::killedProcessLeavesTheOldOrTheNewSettings_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<int>("rights");
    QTest::addColumn<bool>("changesWorking");
    QTest::addColumn<bool>("changesLocal");
    QTest::addColumn<TracedFork::Way>("way");

    const TracedFork::Way way = TracedFork::bestWay();
    const int noDatabases = kAllRights & ~WriteLocalDbSettings;
    QTest::newRow("loading from the local application")
        << &TestSettingsKills::load << kAllRights << true << false << way;
    QTest::newRow("importing") << &TestSettingsKills::import << kAllRights << true << false << way;
    QTest::newRow("exporting") << &TestSettingsKills::exportSettings << kAllRights << false << false << way;
    QTest::newRow("exporting without the right to the databases")
        << &TestSettingsKills::exportSettings << noDatabases << true << false << way;
    QTest::newRow("autosaving at the end")
        << &TestSettingsKills::autosave << kAllRights << false << true << way;
    QTest::newRow("autosaving without the right to the databases")
        << &TestSettingsKills::autosave << noDatabases << true << true << way;
    QTest::newRow("distributing") << &TestSettingsKills::distribute << kAllRights << false << false << way;
    QTest::newRow("loading an online configuration")
        << &TestSettingsKills::loadOnline << kAllRights << true << false << way;
    // What is done where nothing can be watched is itself proved everywhere.
    QTest::newRow("loading from the local application, stopped by the clock")
        << &TestSettingsKills::load << kAllRights << true << false << TracedFork::Unwatched;
}

void TestSettingsKills::killedProcessLeavesTheOldOrTheNewSettings()
{
    QFETCH(Operation, operation);
    QFETCH(int, rights);
    QFETCH(bool, changesWorking);
    QFETCH(bool, changesLocal);
    QFETCH(TracedFork::Way, way);
    SettingsBench bench(m_workstation, rights);
    prepare(bench);
    const Files before = files();
    openSettingsFile(m_files.cache())->setValue(QLatin1String(LocalCache::kLocalSave), true);
    if (operation == &TestSettingsKills::loadOnline)
        QVERIFY(storeOnline(bench));
    const QByteArray cache = readFile(m_files.cache());
    const auto work = [&] {
        (this->*operation)(bench);
    };

    write(before);
    const TracedFork::Result whole = TracedFork::run(work, way);
    QVERIFY(whole.hasBegun);
    QCOMPARE(whole.exitCode, 0);
    const Files after = files();
    QCOMPARE(SettingsContent::of(after.working) != SettingsContent::of(before.working), changesWorking);
    QCOMPARE(SettingsContent::of(after.local) != SettingsContent::of(before.local), changesLocal);

    QRandomGenerator random(kSeed);
    int kills = 0;
    int old = 0;
    TracedFork::Result longest = whole;
    for (int round = 1; round <= kMoments; ++round) {
        const Moment moment = nextMoment(round, longest, random);
        write(before);
        const TracedFork::Result result = TracedFork::run(work, way, moment);
        QVERIFY(result.hasBegun);
        QVERIFY(result.wasKilled || result.exitCode == 0);
        kills += result.wasKilled ? 1 : 0;
        // A machine that was busy at first gets faster.
        if (!result.wasKilled)
            longest.microseconds = qMin(longest.microseconds, result.microseconds);

        waitAWhile();
        store()->changeSettingsFile(m_workstation.path(QStringLiteral("aside.ini")));
        SettingsParking::recoverAbandoned(m_workstation.dataDirectory());
        QVERIFY(!QDir(m_files.temporaryDirectory()).exists());
        const Files left = files();
        QVERIFY(repairIni(left.working).isSound() && repairIni(left.local).isSound());
        store()->changeSettingsFile(m_files.working());
        const Content found = SettingsContent::of(*store()->generalSettings());
        const QByteArray place = nameOf(moment);
        QVERIFY2(found == SettingsContent::of(before.working) || found == SettingsContent::of(after.working),
                 place + '\n' + left.working);
        const Content local = SettingsContent::of(left.local);
        QVERIFY2(local == SettingsContent::of(before.local) || local == SettingsContent::of(after.local),
                 place + '\n' + left.local);
        QCOMPARE(readFile(m_files.cache()), cache);
        old += found == SettingsContent::of(before.working) && local == SettingsContent::of(before.local) ? 1
                                                                                                          : 0;
    }
    QVERIFY2(kills > kMoments / 2, QByteArray::number(kills));
    QVERIFY(old > 0);
    if (QFile::exists(m_site))
        checkSite();
}

int main(int argc, char *argv[])
{
    // A killed process loses nothing of what it had written, so that nobody has to wait for a disk.
    if (QFileInfo(QStringLiteral("/dev/shm")).isWritable())
        qputenv("TMPDIR", "/dev/shm");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    TestSettingsKills test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_settingskills.moc"
