#include "support/workstation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>

namespace {

constexpr int kPatience = 30000;  // milliseconds
constexpr int kUsage = 2;         // exit code of a command that was mistyped

// What is really called; everything else is an imitation that notes its arguments.
const QStringList kRealPrograms = {"bash", "cat",   "cp",     "dirname", "env",   "flock", "grep", "locale",
                                   "ls",   "mkdir", "mktemp", "nproc",   "rm",    "sed",   "sh",   "sleep",
                                   "sort", "touch", "true",   "tr",      "xargs", "find",  "date"};

/// What came out of a command.
struct Outcome
{
    int code = -1;
    QString text;  // of both channels
};

}  // namespace

/// The commands in `scripts` and the launcher, in a folder whose path has blanks and letters beyond ASCII.
class TestCommands : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void nothingIsInstalledWhenNothingIsMissing();
    void missingPackagesAreInstalledTogether_data();
    void missingPackagesAreInstalledTogether();
    void withoutRootRightsItIsToldWhatRootTypes();
    void anInstallationThatFailsIsTriedThreeTimesAndShown();

    void mistypedCommandDoesNothing_data();
    void mistypedCommandDoesNothing();
    void buildFolder_data();
    void buildFolder();
    void commandsOfOneFolderTakeTurns();
    void whatACommandLeavesRunningHoldsUpNobody();
    void failureOfACommandInATurnIsTheFailureOfAll();
    void namesOfFilesAreUtf8_data();
    void namesOfFilesAreUtf8();

    void runPreparesAndStartsTheProgram_data();
    void runPreparesAndStartsTheProgram();
    void aSecondStartSaysWhyNothingIsSeen();

private:
    QString path(const QString &name) const;
    void imitate(const QString &name, const QString &script);
    Outcome run(const QString &command, const QStringList &arguments = {});
    Outcome bash(const QString &script);
    std::unique_ptr<QProcess> start(const QString &command, const QStringList &arguments);
    QStringList calls() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QProcessEnvironment m_environment;
};

void TestCommands::init()
{
    m_folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/corvane Größe 肺-XXXXXX"));
    QVERIFY(m_folder->isValid());
    for (const char *name : {"scripts", "packaging/linux", "programs", "home"})
        QVERIFY(QDir().mkpath(path(name)));
    const QDir source(QStringLiteral(CORVANE_SOURCE_FOLDER));
    for (const QString &script : QDir(source.filePath("scripts")).entryList(QDir::Files))
        QVERIFY(QFile::copy(source.filePath("scripts/" + script), path("scripts/" + script)));
    for (const char *file : {"packaging/VERSION", "packaging/linux/corvane"})
        QVERIFY(QFile::copy(source.filePath(file), path(file)));

    for (const QString &program : kRealPrograms) {
        const QString real = QStandardPaths::findExecutable(program);
        QVERIFY2(!real.isEmpty(), qPrintable(program));
        QVERIFY(QFile::link(real, path("programs/" + program)));
    }
    m_environment.clear();
    m_environment.insert("PATH", path("programs"));
    m_environment.insert("HOME", path("home"));
    m_environment.insert("LC_ALL", "C.UTF-8");
    m_environment.insert("CALLS", path("calls"));
    m_environment.insert("DISPLAY", ":1");
    m_environment.insert("TEMP", path("home"));
    m_environment.insert("TMPDIR", path("home"));
    imitate("id", "echo 0");
    imitate("sleep", "");
    imitate("dpkg-query", "echo installed");
}

void TestCommands::cleanup()
{
    m_folder.reset();
}

QString TestCommands::path(const QString &name) const
{
    return m_folder->filePath(name);
}

/// Makes a program that notes its name and arguments and then does what the script says.
void TestCommands::imitate(const QString &name, const QString &script)
{
    const QString program = path("programs/" + name);
    QFile::remove(program);
    QVERIFY(writeFile(
        program, ("#!/bin/sh\necho \"${0##*/} $*\" >>\"$CALLS\"\n" + script + QLatin1Char('\n')).toUtf8()));
    QVERIFY(QFile::setPermissions(program, QFile::Permissions(0x7755)));
}

std::unique_ptr<QProcess> TestCommands::start(const QString &command, const QStringList &arguments)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(m_environment);
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setWorkingDirectory(m_folder->path());
    process->start(command, arguments);
    return process;
}

Outcome TestCommands::run(const QString &command, const QStringList &arguments)
{
    const auto process = start(path(command), arguments);
    if (!process->waitForFinished(kPatience) || process->exitStatus() != QProcess::NormalExit)
        return {-1, process->errorString()};
    return {process->exitCode(), QString::fromUtf8(process->readAll())};
}

/// Runs a script that knows what the commands share.
Outcome TestCommands::bash(const QString &script)
{
    return run("programs/bash", {"-c", "set -euo pipefail; source scripts/common.sh; " + script});
}

/// The imitations that were called, with their arguments, without those that only answer.
QStringList TestCommands::calls() const
{
    const QStringList all = QString::fromUtf8(readFile(path("calls"))).split('\n', Qt::SkipEmptyParts);
    return QStringList(all).filter(QRegularExpression("^(?!id |dpkg-query )"));
}

void TestCommands::nothingIsInstalledWhenNothingIsMissing()
{
    const Outcome outcome = run("scripts/install-packages", {"build", "run", "screen", "test", "bench"});
    QCOMPARE(outcome.code, 0);
    QCOMPARE(outcome.text, QString());
    QCOMPARE(calls(), QStringList());
}

void TestCommands::missingPackagesAreInstalledTogether_data()
{
    QTest::addColumn<int>("user");
    QTest::addColumn<QString>("prefix");

    QTest::newRow("root installs them") << 0 << "";
    QTest::newRow("somebody else asks sudo") << 1000 << "sudo ";
}

void TestCommands::missingPackagesAreInstalledTogether()
{
    QFETCH(const int, user);
    imitate("id", QStringLiteral("echo %1").arg(user));
    imitate("dpkg-query", "case $* in *cmake|*sqlcipher) echo not-installed ;; *) echo installed ;; esac");
    for (const char *program : {"dpkg", "apt-get"})
        imitate(program, "");
    imitate("sudo", "exec \"$@\"");
    const Outcome outcome = run("scripts/install-packages", {"build", "test"});
    QVERIFY2(outcome.code == 0, qPrintable(outcome.text));
    QCOMPARE(outcome.text, QStringLiteral("Installing: cmake sqlcipher\n"));

    QFETCH(const QString, prefix);
    const QStringList asRoot = calls().filter(QRegularExpression("^sudo "));
    QCOMPARE(asRoot.size(), prefix.isEmpty() ? 0 : 3);
    const QStringList done = calls().filter(QRegularExpression("^(dpkg|apt-get) "));
    QCOMPARE(done.size(), 3);
    QCOMPARE(done.at(0), QStringLiteral("dpkg --configure -a"));
    QVERIFY(done.at(1).endsWith(" update"));
    QVERIFY(done.at(2).endsWith(" install --no-install-recommends cmake sqlcipher"));
}

void TestCommands::withoutRootRightsItIsToldWhatRootTypes()
{
    imitate("id", "echo 1000");
    imitate("dpkg-query", "case $* in *cmake|*ninja-build) exit 1 ;; *) echo installed ;; esac");
    const Outcome outcome = run("scripts/run");
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.text.contains(
                 "apt-get update && apt-get install --no-install-recommends cmake ninja-build\n"),
             qPrintable(outcome.text));
    QCOMPARE(calls(), QStringList());
}

void TestCommands::anInstallationThatFailsIsTriedThreeTimesAndShown()
{
    imitate("dpkg-query", "exit 1");
    imitate("dpkg", "");
    imitate("apt-get", "echo 'the server is away'; exit 100");
    const Outcome outcome = run("scripts/install-packages", {"bench"});
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.text.endsWith("the server is away\n"), qPrintable(outcome.text));
    QCOMPARE(calls().filter(QRegularExpression("^apt-get .* update")).size(), 3);
    QCOMPARE(calls().filter(QRegularExpression("^apt-get .* install ")).size(), 0);
}

void TestCommands::mistypedCommandDoesNothing_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("run with a misspelt option") << "run" << QStringList{"--claen"};
    QTest::newRow("run asked for help") << "run" << QStringList{"--help"};
    QTest::newRow("test with a misspelt option") << "test" << QStringList{"--fats"};
    QTest::newRow("test asked for help") << "test" << QStringList{"--help"};
    QTest::newRow("test with two options") << "test" << QStringList{"--fast", "--fast"};
    QTest::newRow("fuzz without a number") << "fuzz" << QStringList{"fuzz_safevalue"};
}

void TestCommands::mistypedCommandDoesNothing()
{
    QFETCH(const QString, command);
    QFETCH(const QStringList, arguments);
    const Outcome outcome = run("scripts/" + command, arguments);
    QCOMPARE(outcome.code, kUsage);
    QVERIFY2(outcome.text.startsWith("usage: scripts/" + command), qPrintable(outcome.text));
    QCOMPARE(calls(), QStringList());
    QVERIFY(!QFileInfo::exists(path("build")));
}

void TestCommands::buildFolder_data()
{
    QTest::addColumn<QString>("madeFor");
    QTest::addColumn<bool>("stays");

    QTest::newRow("of this place stays") << "." << true;
    QTest::newRow("of this place by another name stays") << "another name" << true;
    QTest::newRow("of a checkout that was moved is begun anew") << "gone" << false;
    QTest::newRow("of a checkout that was copied is begun anew") << "home" << false;
}

void TestCommands::buildFolder()
{
    QFETCH(const QString, madeFor);
    imitate("cmake", "");
    QVERIFY(QFile::link(m_folder->path(), path("another name")));
    const QByteArray place = QDir::cleanPath(path(madeFor)).toUtf8();
    QVERIFY(writeFile(path("build/dev/CMakeCache.txt"),
                      "A:INTERNAL=x\nCMAKE_HOME_DIRECTORY:INTERNAL=" + place + "\nB:INTERNAL=y\n"));
    const Outcome outcome = bash("build dev -DA=B");
    QVERIFY2(outcome.code == 0, qPrintable(outcome.text));
    QTEST(QFile::exists(path("build/dev/CMakeCache.txt")), "stays");
    QFETCH(const bool, stays);
    QCOMPARE(outcome.text.contains("build/dev was made for"), !stays);
    QCOMPARE(calls().size(), 2);
    QCOMPARE(calls().first(), QStringLiteral("cmake --preset dev -DA=B"));
    QVERIFY(calls().last().startsWith("cmake --build --preset dev "));
}

void TestCommands::commandsOfOneFolderTakeTurns()
{
    QFile::remove(path("programs/sleep"));
    QVERIFY(QFile::link(QStandardPaths::findExecutable("sleep"), path("programs/sleep")));
    const QString turn = "source scripts/common.sh; alone dev sh -c 'echo begin >>\"$CALLS\"; "
                         "until [ -e leave ]; do sleep 0.1; done; echo end >>\"$CALLS\"'";
    const auto first = start(path("programs/bash"), {"-c", turn});
    QTRY_COMPARE_WITH_TIMEOUT(calls(), QStringList{"begin"}, kPatience);
    const auto second = start(path("programs/bash"), {"-c", turn});
    QVERIFY(second->waitForReadyRead(kPatience));
    QVERIFY(writeFile(path("leave"), "now"));
    QVERIFY(first->waitForFinished(kPatience) && second->waitForFinished(kPatience));
    QCOMPARE(calls(), (QStringList{"begin", "end", "begin", "end"}));
    QCOMPARE(QString::fromUtf8(first->readAll() + second->readAll()),
             QStringLiteral("Another command works in build/dev: waiting for its end ...\n"));
}

void TestCommands::whatACommandLeavesRunningHoldsUpNobody()
{
    QFile::remove(path("programs/sleep"));
    QVERIFY(QFile::link(QStandardPaths::findExecutable("sleep"), path("programs/sleep")));
    const Outcome first = bash("alone dev sh -c 'sleep 60 >/dev/null 2>&1 & echo $!'");
    QCOMPARE(first.code, 0);
    const Outcome second = bash("alone dev echo next");
    QProcess::execute(QStandardPaths::findExecutable("kill"), {first.text.trimmed()});
    QCOMPARE(second.text, QStringLiteral("next\n"));
}

void TestCommands::failureOfACommandInATurnIsTheFailureOfAll()
{
    imitate("cmake", "case $* in *--build*) exit 3 ;; esac");
    const Outcome outcome = bash("build dev; echo not reached");
    QCOMPARE(outcome.code, 3);
    QCOMPARE(outcome.text, QString());
}

void TestCommands::namesOfFilesAreUtf8_data()
{
    QTest::addColumn<QString>("all");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("result");

    QTest::newRow("where no locale is set") << ""
                                            << ""
                                            << "-,C,C.UTF-8";
    QTest::newRow("where the locale is another") << "C"
                                                 << "de_DE.UTF-8"
                                                 << "-,C,C.UTF-8";
    QTest::newRow("where the language has no encoding") << ""
                                                        << "fi_FI"
                                                        << "-,fi_FI,C.UTF-8";
    QTest::newRow("where the locale says so already") << "C.UTF-8"
                                                      << "de_DE"
                                                      << "C.UTF-8,de_DE,-";
    QTest::newRow("where the language says so already") << ""
                                                        << "C.UTF-8"
                                                        << "-,C.UTF-8,-";
}

void TestCommands::namesOfFilesAreUtf8()
{
    QFETCH(const QString, all);
    QFETCH(const QString, language);
    QFETCH(const QString, result);
    m_environment.remove("LC_ALL");
    if (!all.isEmpty())
        m_environment.insert("LC_ALL", all);
    if (!language.isEmpty())
        m_environment.insert("LANG", language);
    const QString tell = "echo \"${LC_ALL:--},$LANG,${LC_CTYPE:--}\"";
    QCOMPARE(bash("use_utf8; " + tell).text, result + QLatin1Char('\n'));

    QVERIFY(QDir().mkpath(path("installed")));
    imitate("Corvane", tell);
    QVERIFY(QFile::rename(path("programs/Corvane"), path("installed/Corvane")));
    m_environment.insert("CORVANE_HOME", path("installed"));
    m_environment.insert("ProgramData", path("home/data"));
    QCOMPARE(run("packaging/linux/corvane").text, result + QLatin1Char('\n'));
}

void TestCommands::runPreparesAndStartsTheProgram_data()
{
    QTest::addColumn<QString>("home");
    QTest::addColumn<QString>("demo");

    QTest::newRow("in the home folder") << "/home of ada"
                                        << "/home of ada/.local/share/corvane-demo";
    QTest::newRow("in a folder of one's own where ODBC would not find the database") << "/home of Zoë Größe"
                                                                                     << "/corvane-demo-0";
}

void TestCommands::runPreparesAndStartsTheProgram()
{
    const QTemporaryDir plain;
    QFETCH(QString, home);
    QVERIFY(QDir().mkpath(plain.path() + home));
    m_environment.insert("HOME", plain.path() + home);
    m_environment.insert("TMPDIR", plain.path());
    m_environment.remove("LC_ALL");
    imitate("cmake", "");
    for (const char *program : {"demoworkstation", "Corvane"})
        imitate(program, "echo \"in $PWD for $ProgramData\" >>\"$CALLS\"");
    QVERIFY(QDir().mkpath(path("build/release/sampleplugins/plugins")));
    QVERIFY(writeFile(path("build/release/sampleplugins/plugins/Ruvenka.so"), "plug-in"));
    QVERIFY(QDir().mkpath(path("build/release/bin")));
    for (const char *program : {"demoworkstation", "Corvane"})
        QVERIFY(QFile::rename(path(QLatin1String("programs/") + program),
                              path(QLatin1String("build/release/bin/") + program)));
    const Outcome outcome = run("scripts/run");
    QVERIFY2(outcome.code == 0, qPrintable(outcome.text));

    QFETCH(QString, demo);
    demo.prepend(plain.path());
    QVERIFY(outcome.text.contains("Demonstration workstation: " + demo + QLatin1Char('\n')));
    QVERIFY(QFile::exists(demo + "/plugins/Ruvenka.so"));
    QVERIFY(calls().contains(QStringLiteral("demoworkstation %1/ProgramData/Halvorn "
                                            "%1/ProgramData/config/Halvorn/Halvorn.ini 1.0.0")
                                 .arg(demo)));
    QCOMPARE(calls().last(), QStringLiteral("in %1 for %2/ProgramData").arg(path("build/release/bin"), demo));
}

void TestCommands::aSecondStartSaysWhyNothingIsSeen()
{
    imitate("cmake", "");
    imitate("demoworkstation", "");
    imitate("Corvane", "exit 1");
    for (const char *folder : {"build/release/sampleplugins/plugins", "build/release/bin"})
        QVERIFY(QDir().mkpath(path(folder)));
    for (const char *program : {"demoworkstation", "Corvane"})
        QVERIFY(QFile::rename(path(QLatin1String("programs/") + program),
                              path(QLatin1String("build/release/bin/") + program)));
    const Outcome outcome = run("scripts/run");
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.text.contains("already runs on this machine"), qPrintable(outcome.text));
}

QTEST_GUILESS_MAIN(TestCommands)
#include "test_commands.moc"
