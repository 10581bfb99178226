#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/settingscontent.h"
#include "onlinesite.h"
#include "onlinestore.h"
#include "storechecks.h"
#include "support/workstation.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QSettings>
#include <QTest>
#include <QThread>

namespace {

using Settings = QMap<QString, QVariant>;

constexpr int kRounds = 200;
constexpr int kKills = 100;
constexpr int kPatience = 120000;  // milliseconds

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

std::unique_ptr<QProcess> child(const QStringList &arguments)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(QCoreApplication::applicationDirPath() + text("/online_child"), arguments);
    return process;
}

/// The answers that a child gave in full.
QStringList answersOf(QProcess &process)
{
    QByteArray said = process.readAllStandardOutput();
    said.truncate(said.lastIndexOf('\n') + 1);
    QStringList answers = QString::fromLatin1(said).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (!answers.isEmpty())
        answers.removeFirst();  // that it is ready
    return answers;
}

/// Ends a child at some moment of its work.
bool killLater(QProcess &process, int within)
{
    if (!process.waitForStarted() || !process.waitForReadyRead(kPatience))
        return false;
    QThread::msleep(QRandomGenerator::system()->bounded(within));
    process.kill();
    return process.waitForFinished();
}

Settings example(int number)
{
    Settings settings{{text("ui/number"), QString::number(number)}};
    for (int i = 0; i < 500; ++i)
        settings.insert(QStringLiteral("ui/filler_%1").arg(i), QStringLiteral("%1 of %2").arg(i).arg(number));
    return settings;
}

}  // namespace

/// Several administrators at the same moment, and some that are killed.
class TestOnlineProcesses : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase();
    void init();

    void twoAdministratorsLeaveOneActiveAtEveryMoment();
    void killedAdministratorLeavesOneActive();
    void killedLoadLeavesTheFormerOrTheNewSettings();

private:
    QString childSettings(const QString &name);
    int rows();

    Workstation m_workstation;
    OnlineSite m_site{QStringLiteral("corvane_processes")};
};

void TestOnlineProcesses::initTestCase_data()
{
    OnlineSite::addServers();
}

void TestOnlineProcesses::initTestCase()
{
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("corvane.ini"));
}

void TestOnlineProcesses::init()
{
    const bool ready = m_site.use();
    if (!m_site.missing().isEmpty())
        QSKIP(qPrintable(m_site.missing()));
    QVERIFY2(ready, qPrintable(m_site.errorText()));
    QVERIFY(OnlineStore::connectTo(m_site.connection()));
}

/// A settings file by which a child finds the database.
QString TestOnlineProcesses::childSettings(const QString &name)
{
    const QString path = m_workstation.path(name + text(".ini"));
    QFile::remove(path);
    store()->changeSettingsFile(path);
    m_site.writeConnection();
    store()->changeSettingsFile(m_workstation.dataDirectory() + text("corvane.ini"));
    return path;
}

int TestOnlineProcesses::rows()
{
    return m_site.column(text("SELECT id FROM configurations")).size();
}

void TestOnlineProcesses::twoAdministratorsLeaveOneActiveAtEveryMoment()
{
    const QString rounds = QString::number(kRounds);
    const auto ann = child({text("distribute"), childSettings(text("ann")), rounds, text("Ann")});
    const auto bob = child({text("distribute"), childSettings(text("bob")), rounds, text("Bob")});
    int looks = 0;
    bool isBegun = false;
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < kPatience &&
           (ann->state() != QProcess::NotRunning || bob->state() != QProcess::NotRunning)) {
        const QStringList active = m_site.activeIds();
        QVERIFY2(active.size() == 1 || (active.isEmpty() && !isBegun),
                 qPrintable(active.join(QLatin1Char(' '))));
        isBegun = isBegun || !active.isEmpty();
        ++looks;
        QTest::qWait(1);
    }
    QVERIFY(looks > kRounds / 10);
    for (QProcess *process : {ann.get(), bob.get()}) {
        QCOMPARE(process->exitCode(), 0);
        const QStringList answers = answersOf(*process);
        QCOMPARE(answers.size(), kRounds);
        QCOMPARE(answers.count(text("0")), kRounds);
    }
    QCOMPARE(rows(), 2 * kRounds);
    QCOMPARE(m_site.activeIds().size(), 1);
    const SettingsAdditionalData last = OnlineStore::list().value(OnlineStore::activeId());
    QCOMPARE(last.notes, rounds);
}

void TestOnlineProcesses::killedAdministratorLeavesOneActive()
{
    const QString settings = childSettings(text("killed"));
    int acknowledged = 0;
    for (int round = 0; round < kKills; ++round) {
        const QStringList before = m_site.activeIds();
        const auto process = child({text("distribute"), settings, text("0"), text("Ann")});
        QVERIFY(killLater(*process, 60));
        const QStringList answers = answersOf(*process);
        QCOMPARE(answers.count(text("0")), answers.size());
        acknowledged += answers.size();
        const QStringList active = m_site.activeIds();
        QVERIFY(active.size() == 1 || (active.isEmpty() && before.isEmpty() && answers.isEmpty()));
    }
    QVERIFY(acknowledged > 0);
    QTRY_VERIFY(rows() >= acknowledged);
    QVERIFY(rows() <= acknowledged + kKills);
    QVERIFY(OnlineStore::load(OnlineStore::activeId()));
    QCOMPARE(OnlineStore::send({}, false, true), OnlineSettings::Success);
}

/// The file is the same whatever the server, so one of them is enough.
void TestOnlineProcesses::killedLoadLeavesTheFormerOrTheNewSettings()
{
    if (m_site.hasAccounts())
        return;
    QStringList ids;
    QList<Settings> wanted;
    for (const int number : {1, 2}) {
        OnlineStore::setContent(example(number));
        QCOMPARE(OnlineStore::send({}, false, false), OnlineSettings::Success);
        ids.append(QString::number(OnlineStore::list().lastKey()));
        wanted.append(example(number));
    }
    const QString pristine = childSettings(text("pristine"));
    const QString path = m_workstation.path(text("loading.ini"));
    int loaded = 0;
    for (int round = 0; round < kKills; ++round) {
        QFile::remove(path);
        QVERIFY(QFile::copy(pristine, path));
        const auto process = child({text("load"), path, ids.first(), ids.last()});
        QVERIFY(killLater(*process, 40));
        const QByteArray file = readFile(path);
        QVERIFY(repairIni(file).isSound());
        const Settings content = SettingsContent::of(file);
        QVERIFY(wanted.contains(content) || file == readFile(pristine));
        loaded += wanted.contains(content) ? 1 : 0;
    }
    QVERIFY(loaded > 0);
    const QStringList left = QDir(QFileInfo(path).path()).entryList({text("loading*")}, QDir::Files);
    QVERIFY2(left.size() < kKills / 2, qPrintable(left.join(QLatin1Char(' '))));
}

QTEST_GUILESS_MAIN(TestOnlineProcesses)
#include "test_onlineprocesses.moc"
