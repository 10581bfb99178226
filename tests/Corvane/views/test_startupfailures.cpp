#include "actionlogreader.h"
#include "programworkstation.h"
#include "support/fulldisk.h"
#include "support/runningprogram.h"

#include <QDir>
#include <QJsonArray>
#include <QMessageBox>
#include <QTest>

#include <memory>
#include <unistd.h>

namespace {

const auto kNotWritten = QStringLiteral("70254594");  // 0x04300002: the action log can't be written
constexpr unsigned long kRoomForLock = 200;           // bytes; a database takes more

const QStringList kWholeRun{"5100|Corvane", "1301|Corvane", "5101|Corvane"};

QStringList words(const QJsonValue &value)
{
    QStringList list;
    for (const QJsonValue &entry : value.toArray())
        list.append(entry.toString());
    return list;
}

/// Whether a box looks as each of the start's does, with this title.
bool isWarning(const QJsonObject &box, const QString &title)
{
    return box["title"].toString() == title && box["icon"].toInt() == QMessageBox::Warning &&
           words(box["buttons"]) == QStringList("Ok");
}

/// The arguments of a shell that runs the program by a command, in which it is "$0".
QStringList shell(const QString &command)
{
    return {"-c", command, RunningProgram::builtProgram()};
}

}  // namespace

/// The program, as its own process, where it finds less than it needs.
class TestStartupFailures : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void brokenFilesDoNotStopTheStart_data();
    void brokenFilesDoNotStopTheStart();
    void namesOutsideAsciiAreNoObstacle_data();
    void namesOutsideAsciiAreNoObstacle();

    void withoutAnyPlaceForTheLogANoteIsLeft();
    void logThatNobodyReadsAnyMoreEndsNothing();

    void refusedStartTellsSoAndEndsWithCode1();
    void failedStartTellsTheCodeAndShowsNoMainWindow();
    void diskWithoutRoomForTheActionLogIsAFailedStart();
    void criticalErrorIsToldOnceAndEndsWithCode1();
    void criticalErrorWhileTheProgramEndsIsToldToo();

private:
    void checkCriticalBox(const QJsonObject &box);

    std::unique_ptr<ProgramWorkstation> m_workstation;
};

void TestStartupFailures::init()
{
    m_workstation.reset();
    m_workstation = std::make_unique<ProgramWorkstation>();
}

void TestStartupFailures::brokenFilesDoNotStopTheStart_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("content");  // null: a folder is in the place of the file

    const QByteArray noise("\x00\xff[[]\n=\x80\xfe%%%\n[actionlog\n\\x", 24);
    QTest::newRow("corvane.ini is damaged") << "ProgramData/Halvorn/corvane.ini" << noise;
    QTest::newRow("corvane.ini cannot be written") << "ProgramData/Halvorn/corvane.ini" << QByteArray();
    QTest::newRow("local_cache is damaged") << "ProgramData/Halvorn/local_cache" << noise;
    QTest::newRow("local_cache cannot be written") << "ProgramData/Halvorn/local_cache" << QByteArray();
    QTest::newRow("the version is damaged") << "ProgramData/Halvorn/version" << noise;
    QTest::newRow("the local application settings are damaged") << "xdg/Halvorn/Halvorn.ini" << noise;
    QTest::newRow("the local application settings cannot be written")
        << "xdg/Halvorn/Halvorn.ini" << QByteArray();
    QTest::newRow("a damaged action log is replaced, which is a good start")
        << "ProgramData/Halvorn/CorvaneActions/actionlog.db" << QByteArray(5000, 'x');
    QTest::newRow("the run-time log cannot be written") << "tmp/CORVANE_runtime.log" << QByteArray();
}

void TestStartupFailures::brokenFilesDoNotStopTheStart()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, content);
    const QString file = m_workstation->path(path);
    QVERIFY(content.isNull() ? QDir().mkpath(file) : writeFile(file, content));

    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
    program.close();
    QVERIFY2(program.exitCode() == 0, program.output().constData());
    QCOMPARE(m_workstation->events(), kWholeRun);
}

void TestStartupFailures::namesOutsideAsciiAreNoObstacle_data()
{
    QTest::addColumn<QString>("locale");

    QTest::newRow("in a UTF-8 locale") << "C.UTF-8";
    QTest::newRow("without a locale") << "C";
}

void TestStartupFailures::namesOutsideAsciiAreNoObstacle()
{
    QFETCH(QString, locale);
    const QString folder = m_workstation->path(QStringLiteral("Käyttäjä 山田"));
    QVERIFY(QDir().mkpath(folder + "/Halvorn"));
    QProcessEnvironment environment = m_workstation->environment();
    environment.insert("ProgramData", folder);
    environment.insert("TEMP", folder);
    environment.insert("LC_ALL", locale);

    RunningProgram program(environment);
    QVERIFY(showsLogin(program));
    QVERIFY(QFile::exists(folder + "/Halvorn/cv.lock"));
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(readFile(folder + "/CORVANE_runtime.log").endsWith("\tStopping.\n"));
    QCOMPARE(eventsOf(folder + "/Halvorn/CorvaneActions/actionlog.db"), kWholeRun);
}

void TestStartupFailures::withoutAnyPlaceForTheLogANoteIsLeft()
{
    QProcessEnvironment environment = m_workstation->environment();
    environment.insert("TEMP", m_workstation->path("missing"));
    environment.insert("FOLDER", m_workstation->path("."));
    RunningProgram program(environment, "sh", shell("cd \"$FOLDER\" && exec \"$0\" <&- >&- 2>&-"));
    QVERIFY(showsLogin(program));
    QCOMPARE(readFile(m_workstation->path("logger_error.log")),
             QByteArray("Could not open standard output!"));
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(m_workstation->events(), kWholeRun);
}

void TestStartupFailures::logThatNobodyReadsAnyMoreEndsNothing()
{
    QProcessEnvironment environment = m_workstation->environment();
    environment.insert("TEMP", m_workstation->path("missing"));
    RunningProgram program(environment, "bash", shell("exec \"$0\" > >(true)"));
    QVERIFY(showsLogin(program));
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(m_workstation->events(), kWholeRun);
}

void TestStartupFailures::refusedStartTellsSoAndEndsWithCode1()
{
    writeFile(m_workstation->dataDirectory() + "corvane.ini", "[actionlog]\nactivated=false\n");
    writeFile(m_workstation->dataDirectory() + "CorvaneActions", "in the way");
    RunningProgram program(m_workstation->environment());
    const QJsonObject box = program.box();
    QVERIFY(isWarning(box, "Error"));
    QCOMPARE(box["text"].toString(), QStringLiteral("Application ran into a problem and cannot start."));
    QVERIFY(!program.isVisible(QStringLiteral("splash")));
    QCOMPARE(program.shownWindows().filter("QMainWindow"), QStringList());
    QCOMPARE(m_workstation->logLines("Start failed.").size(), 0);
    program.answerBox();
    QCOMPARE(program.exitCode(), 1);
    QCOMPARE(m_workstation->logLines("Start failed.").size(), 1);
    QVERIFY(m_workstation->logLines("Start failed.").first().startsWith("ERR ??: "));
    QCOMPARE(m_workstation->logLines("Stopping.").size(), 0);
    QCOMPARE(m_workstation->setting("corvane.ini", "actionlog/activated").toString(),
             QStringLiteral("false"));
    QVERIFY(QFile::exists(m_workstation->lockFile()));
}

void TestStartupFailures::failedStartTellsTheCodeAndShowsNoMainWindow()
{
    {
        RunningProgram program(m_workstation->environment());
        QVERIFY(showsLogin(program));
        program.close();
        QCOMPARE(program.exitCode(), 0);
    }
    EncryptedFile otherProgram(m_workstation->actionLog());
    QCOMPARE(otherProgram.run("BEGIN EXCLUSIVE"), QStringList());

    RunningProgram program(m_workstation->environment());
    const QJsonObject box = program.box();
    QVERIFY(isWarning(box, "Initialisation failed"));
    QCOMPARE(box["text"].toString(), "Could not start program. Error code " + kNotWritten);
    QVERIFY(!program.isVisible(QStringLiteral("splash")));
    QCOMPARE(program.shownWindows().filter("QMainWindow"), QStringList());
    program.answerBox();
    QCOMPARE(program.exitCode(), 1);
    QCOMPARE(m_workstation->logLines("Initialized.").size(), 0);
    QVERIFY(!QFile::exists(m_workstation->lockFile()));
}

void TestStartupFailures::diskWithoutRoomForTheActionLogIsAFailedStart()
{
    std::unique_ptr<RunningProgram> program;
    {
        const FullDisk disk(kRoomForLock);
        program = std::make_unique<RunningProgram>(m_workstation->environment());
    }
    const QJsonObject box = program->box();
    QVERIFY(isWarning(box, "Initialisation failed"));
    QCOMPARE(box["text"].toString(), "Could not start program. Error code " + kNotWritten);
    program->answerBox();
    QCOMPARE(program->exitCode(), 1);

    RunningProgram again(m_workstation->environment());
    QVERIFY(showsLogin(again));
}

void TestStartupFailures::checkCriticalBox(const QJsonObject &box)
{
    QVERIFY(isWarning(box, "Critical error"));
    const QStringList lines = box["text"].toString().split('\n');
    QCOMPARE(lines.first(), QStringLiteral("Critical error: "));
    QCOMPARE(lines.at(lines.size() - 2), QStringLiteral("The program will be closed."));
    QCOMPARE(lines.last(), "Error code: " + kNotWritten);
}

void TestStartupFailures::criticalErrorIsToldOnceAndEndsWithCode1()
{
    if (geteuid() != 0)
        QSKIP("only root is sure to be an administrator");
    RunningProgram program(m_workstation->environment());
    QVERIFY(signIn(program));
    QVERIFY(QFile::remove(m_workstation->actionLog()));
    program.click(QStringLiteral("settings_button"));
    checkCriticalBox(program.box());

    program.invoke(QStringLiteral("view_stacker"), QStringLiteral("logExit"));
    program.invoke(QStringLiteral("view_stacker"), QStringLiteral("logExit"));
    QTRY_COMPARE(readFile(m_workstation->runtimeLog()).count("can't be written"), 3);
    QCOMPARE(program.shownWindows().filter("QMessageBox").size(), 1);
    program.answerBox();
    QCOMPARE(program.exitCode(), 1);
    QCOMPARE(m_workstation->logLines("Stopping.").size(), 0);
    QVERIFY(QFile::exists(m_workstation->lockFile()));
}

void TestStartupFailures::criticalErrorWhileTheProgramEndsIsToldToo()
{
    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
    QVERIFY(QFile::remove(m_workstation->actionLog()));
    program.close();
    checkCriticalBox(program.box());
    QCOMPARE(program.shownWindows().filter("QMessageBox").size(), 1);
    program.answerBox();
    QCOMPARE(program.exitCode(), 1);
    QCOMPARE(m_workstation->logLines("Stopping.").size(), 1);
}

QTEST_GUILESS_MAIN(TestStartupFailures)
#include "test_startupfailures.moc"
