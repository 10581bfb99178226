#include "programfolder.h"
#include "programworkstation.h"
#include "support/fulldisk.h"
#include "support/runningprogram.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSysInfo>
#include <QTest>

#include <array>
#include <memory>
#include <unistd.h>

namespace {

constexpr int kLockPatience = 500;    // milliseconds that a copy waits for the lock
constexpr int kBusyMachine = 5000;    // milliseconds by which a start may be slower than another one
constexpr unsigned long kNoRoom = 0;  // bytes

const auto kNowhere = QStringLiteral("nowhere");

}  // namespace

/// What keeps two copies of the program from running on one machine, each copy as its own process.
class TestStartupLock : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void secondCopyEndsWithCode1WithoutAWindowOrMessage();
    void secondCopyWaitsAboutHalfASecond();
    void ofCopiesStartedTogetherOneRuns_data();
    void ofCopiesStartedTogetherOneRuns();
    void cleanEndFreesTheLock();
    void lockOfAKilledCopyIsNoObstacle();
    void lockThatNobodyHoldsIsRemovedAndTheStartGoesOnWithoutOne_data();
    void lockThatNobodyHoldsIsRemovedAndTheStartGoesOnWithoutOne();

    void dataDirectoryThatCannotHoldTheLockEndsInSilence_data();
    void dataDirectoryThatCannotHoldTheLockEndsInSilence();
    void folderInThePlaceOfTheLockEndsInSilence();
    void readOnlyDataDirectoryEndsInSilence();
    void diskWithoutRoomForTheLockEndsInSilence();

private:
    qint64 timeToTheSilentEnd(const QProcessEnvironment &environment);
    QStringList dataDirectoryContent() const;

    std::unique_ptr<ProgramWorkstation> m_workstation;
};

void TestStartupLock::init()
{
    m_workstation.reset();
    m_workstation = std::make_unique<ProgramWorkstation>();
}

/// Milliseconds until a copy has ended as one that must not run; -1 when it ends otherwise.
qint64 TestStartupLock::timeToTheSilentEnd(const QProcessEnvironment &environment)
{
    QElapsedTimer timer;
    timer.start();
    RunningProgram copy(environment);
    const bool silent = copy.exitCode() == 1 && copy.output().isEmpty();
    return silent ? timer.elapsed() : -1;
}

QStringList TestStartupLock::dataDirectoryContent() const
{
    return QDir(m_workstation->dataDirectory()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
}

void TestStartupLock::secondCopyEndsWithCode1WithoutAWindowOrMessage()
{
    RunningProgram first(m_workstation->environment());
    QVERIFY(showsLogin(first));
    const QByteArray log = readFile(m_workstation->runtimeLog());
    const QByteArray lock = readFile(m_workstation->lockFile());

    RunningProgram second(m_workstation->environment());
    QCOMPARE(second.exitCode(), 1);
    QCOMPARE(second.output(), QByteArray());
    QCOMPARE(readFile(m_workstation->runtimeLog()), log);
    QCOMPARE(readFile(m_workstation->lockFile()), lock);
    first.close();
    QCOMPARE(first.exitCode(), 0);
    QCOMPARE(m_workstation->events(), (QStringList{"5100|Corvane", "1301|Corvane", "5101|Corvane"}));
}

void TestStartupLock::secondCopyWaitsAboutHalfASecond()
{
    // A copy that has no directory for its lock does all the same but wait.
    QProcessEnvironment elsewhere = m_workstation->environment();
    elsewhere.insert("ProgramData", m_workstation->path(kNowhere));
    const qint64 withoutWaiting = timeToTheSilentEnd(elsewhere);
    QVERIFY(withoutWaiting >= 0);

    RunningProgram first(m_workstation->environment());
    QVERIFY(showsLogin(first));
    const qint64 elapsed = timeToTheSilentEnd(m_workstation->environment());
    QVERIFY2(elapsed >= kLockPatience, qPrintable(QString::number(elapsed)));
    QVERIFY2(elapsed < withoutWaiting + kLockPatience + kBusyMachine, qPrintable(QString::number(elapsed)));
    QVERIFY(first.isRunning());
}

void TestStartupLock::ofCopiesStartedTogetherOneRuns_data()
{
    QTest::addColumn<bool>("killedBefore");

    QTest::newRow("without a lock") << false;
    QTest::newRow("with the lock of a killed copy") << true;
}

void TestStartupLock::ofCopiesStartedTogetherOneRuns()
{
    QFETCH(bool, killedBefore);
    if (killedBefore) {
        RunningProgram killed(m_workstation->environment());
        QVERIFY(showsLogin(killed));
        killed.kill();
        QVERIFY(QFile::exists(m_workstation->lockFile()));
    }
    std::array<std::unique_ptr<RunningProgram>, 3> copies;
    for (auto &copy : copies)
        copy = std::make_unique<RunningProgram>(m_workstation->environment());

    int running = 0;
    for (const auto &copy : copies) {
        if (showsLogin(*copy)) {
            ++running;
            continue;
        }
        QCOMPARE(copy->exitCode(), 1);
        QCOMPARE(copy->output(), QByteArray());
    }
    QCOMPARE(running, 1);
}

void TestStartupLock::cleanEndFreesTheLock()
{
    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
    QVERIFY(QFile::exists(m_workstation->lockFile()));
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(!QFile::exists(m_workstation->lockFile()));
}

void TestStartupLock::lockOfAKilledCopyIsNoObstacle()
{
    {
        RunningProgram killed(m_workstation->environment());
        QVERIFY(showsLogin(killed));
        killed.kill();
    }
    const QByteArray lock = readFile(m_workstation->lockFile());
    QVERIFY(!lock.isEmpty());
    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
    QVERIFY(readFile(m_workstation->lockFile()) != lock);
}

void TestStartupLock::lockThatNobodyHoldsIsRemovedAndTheStartGoesOnWithoutOne_data()
{
    QTest::addColumn<QByteArray>("lock");

    QTest::newRow("empty, as a power failure leaves it") << QByteArray("");
    QTest::newRow("damaged") << QByteArray("\x00\xff\x80", 3);
    QTest::newRow("made while this machine had another name") << QByteArray("1\nCorvane\nformer-name\n");
    const QString another = QStringLiteral("%1\n%2\n%3\n")
                                .arg(QCoreApplication::applicationPid())
                                .arg(QCoreApplication::applicationName(), QSysInfo::machineHostName());
    QTest::newRow("another process runs under the number and the name in it") << another.toUtf8();
}

void TestStartupLock::lockThatNobodyHoldsIsRemovedAndTheStartGoesOnWithoutOne()
{
    QFETCH(QByteArray, lock);
    QVERIFY(writeFile(m_workstation->lockFile(), lock));
    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
    QVERIFY(!QFile::exists(m_workstation->lockFile()));
    program.close();
    QCOMPARE(program.exitCode(), 0);
}

void TestStartupLock::dataDirectoryThatCannotHoldTheLockEndsInSilence_data()
{
    QTest::addColumn<QString>("programData");

    QTest::newRow("an unset ProgramData means the folder Halvorn of the current drive") << QString();
    QTest::newRow("the folder is missing") << m_workstation->path(kNowhere);
    QTest::newRow("a file is in the place of the folder") << m_workstation->path("file");
}

void TestStartupLock::dataDirectoryThatCannotHoldTheLockEndsInSilence()
{
    QFETCH(QString, programData);
    QVERIFY(!QFile::exists("/Halvorn"));
    writeFile(m_workstation->path("file/Halvorn"), "in the way");
    QProcessEnvironment withProgramData = m_workstation->environment();
    if (programData.isNull())
        withProgramData.remove("ProgramData");
    else
        withProgramData.insert("ProgramData", programData);

    QVERIFY(timeToTheSilentEnd(withProgramData) >= 0);
    QVERIFY(!QFile::exists("/Halvorn"));
    QVERIFY(!QFile::exists(m_workstation->runtimeLog()));
}

void TestStartupLock::folderInThePlaceOfTheLockEndsInSilence()
{
    QVERIFY(QDir().mkpath(m_workstation->lockFile()));
    QVERIFY(timeToTheSilentEnd(m_workstation->environment()) >= 0);
    QCOMPARE(dataDirectoryContent(), QStringList("cv.lock"));
}

void TestStartupLock::readOnlyDataDirectoryEndsInSilence()
{
    const ProgramFolder folder;
    const QFile::Permissions readable = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup |
                                        QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(m_workstation->dataDirectory(), readable));
    QVERIFY(QFile::setPermissions(m_workstation->path("."), readable | QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(QFileInfo(folder.program()).path(), readable | QFile::WriteOwner));
    QString program = folder.program();
    QStringList arguments;
    if (geteuid() == 0) {  // whom no permission holds back
        arguments << "--reuid=65534"
                  << "--regid=65534"
                  << "--clear-groups" << program;
        program = "setpriv";
    }

    RunningProgram copy(m_workstation->environment(), program, arguments);
    QCOMPARE(copy.exitCode(), 1);
    QCOMPARE(dataDirectoryContent(), QStringList());
    QVERIFY(!QFile::exists(m_workstation->runtimeLog()));
}

void TestStartupLock::diskWithoutRoomForTheLockEndsInSilence()
{
    std::unique_ptr<RunningProgram> copy;
    {
        const FullDisk disk(kNoRoom);
        copy = std::make_unique<RunningProgram>(m_workstation->environment());
    }
    QCOMPARE(copy->exitCode(), 1);
    QCOMPARE(copy->output(), QByteArray());
    QCOMPARE(dataDirectoryContent(), QStringList());
}

QTEST_GUILESS_MAIN(TestStartupLock)
#include "test_startuplock.moc"
