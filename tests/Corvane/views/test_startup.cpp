#include "actionlogreader.h"
#include "programfolder.h"
#include "support/runningprogram.h"
#include "support/workstation.h"

#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QSettings>
#include <QTest>

#include <memory>
#include <unistd.h>

namespace {

constexpr int kLockPatience = 500;  // milliseconds that a copy waits for the lock
constexpr int kSplashTime = 1000;   // milliseconds that the splash is up

const auto kLoginBox = QStringLiteral("windows_administrator_combo");

QStringList words(const QJsonValue &value)
{
    QStringList list;
    for (const QJsonValue &entry : value.toArray())
        list.append(entry.toString());
    return list;
}

}  // namespace

/// The program as a person at a workstation starts it.
class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void splashComesFirstAndTheLoginViewInTheMainWindowAfterIt();
    void mainWindowIsNeverSmallerThan800By600();
    void closingBeforeAnySignInWritesLogoutAndStopping();
    void leavingTheSettingsViewIsRecordedBeforeTheLogout();
    void actionLogSettingsAreTheUsersAgainOnceTheEngineIsUp();
    void settingsOfAnInterruptedOperationAreInUseAgain();
    void cleanEndFreesTheLock();

    void secondCopyEndsWithCode1WithoutAWindowOrMessage();
    void lockOfAKilledCopyIsNoObstacle();
    void dataDirectoryThatCannotHoldTheLockEndsInSilence_data();
    void dataDirectoryThatCannotHoldTheLockEndsInSilence();
    void readOnlyDataDirectoryEndsInSilence();
    void brokenFilesDoNotStopTheStart_data();
    void brokenFilesDoNotStopTheStart();
    void aboutDialogTellsTheVersion_data();
    void aboutDialogTellsTheVersion();

    void languageChain_data();
    void languageChain();
    void languageChosenOnTheLoginViewIsThatOfTheNextStart();

    void refusedStartTellsSoAndEndsWithCode1();
    void failedStartTellsTheCodeAndShowsNoMainWindow();
    void criticalErrorIsToldOnceAndEndsWithCode1();

private:
    QString actionLog() const;
    QStringList events() const;
    QProcessEnvironment environment() const;
    QVariant setting(const QString &file, const QString &key) const;
    void signIn(RunningProgram &program);

    std::unique_ptr<Workstation> m_workstation;
};

void TestStartup::init()
{
    m_workstation.reset();
    m_workstation = std::make_unique<Workstation>();
    const QString runtimeFolder = m_workstation->path(QStringLiteral("run"));
    QVERIFY(QDir().mkpath(runtimeFolder));
    QVERIFY(QFile::setPermissions(runtimeFolder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

QString TestStartup::actionLog() const
{
    return m_workstation->dataDirectory() + QStringLiteral("CorvaneActions/actionlog.db");
}

/// The events in the log as "action|info" in their order, but for those of the access connection.
QStringList TestStartup::events() const
{
    QStringList events = readActionLog(actionLog(), QStringLiteral("printf('%x', action), info"));
    events.removeAll(QStringLiteral("5101|Corvane access connection"));
    return events;
}

QProcessEnvironment TestStartup::environment() const
{
    QProcessEnvironment environment = m_workstation->environment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_workstation->path(QStringLiteral("run")));
    return environment;
}

QVariant TestStartup::setting(const QString &file, const QString &key) const
{
    return QSettings(m_workstation->dataDirectory() + file, QSettings::IniFormat).value(key);
}

/// As the administrator who runs the test.
void TestStartup::signIn(RunningProgram &program)
{
    QVERIFY(!program.widget(kLoginBox).isEmpty());
    program.choose(kLoginBox, 0);
    QVERIFY(!program.widget(QStringLiteral("settings_button")).isEmpty());
}

void TestStartup::splashComesFirstAndTheLoginViewInTheMainWindowAfterIt()
{
    QElapsedTimer timer;
    timer.start();
    RunningProgram program(environment());
    QVERIFY(!program.widget(kLoginBox).isEmpty());
    QVERIFY(timer.elapsed() >= kSplashTime);
    QCOMPARE(program.shownWindows(), (QStringList{"ZephanSplash", "QMainWindow"}));
    QVERIFY(!program.isVisible(QStringLiteral("splash")));
    QVERIFY(!program.isVisible(QStringLiteral("header_home_button")));
}

void TestStartup::mainWindowIsNeverSmallerThan800By600()
{
    RunningProgram program(environment());
    QVERIFY(!program.widget(kLoginBox).isEmpty());
    program.ask({{"do", "resize"}, {"width", 100}, {"height", 100}});
    const QJsonObject window = program.widget(QString());
    QVERIFY(window["width"].toInt() >= 800);
    QVERIFY(window["height"].toInt() >= 600);
}

void TestStartup::closingBeforeAnySignInWritesLogoutAndStopping()
{
    RunningProgram program(environment());
    QVERIFY(!program.widget(kLoginBox).isEmpty());
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(events(), (QStringList{"5100|Corvane", "1301|Corvane", "5101|Corvane"}));
    const QByteArray log = readFile(m_workstation->runtimeLog());
    QVERIFY(log.indexOf("Started.") < log.indexOf("Initialized."));
    QVERIFY(log.indexOf("Initialized.") < log.indexOf("Stopping."));
}

void TestStartup::leavingTheSettingsViewIsRecordedBeforeTheLogout()
{
    if (geteuid() != 0)
        QSKIP("only an administrator can sign in without a password");
    RunningProgram program(environment());
    signIn(program);
    program.click(QStringLiteral("settings_button"));
    QVERIFY(!program.widget(QStringLiteral("header_home_button")).isEmpty());
    program.close();
    QVERIFY2(program.exitCode() == 0, program.output().constData());
    QCOMPARE(events(), (QStringList{"5100|Corvane", "1300|Corvane", "5100|Corvane Settings Management",
                                    "5101|Corvane Settings Management", "1301|Corvane", "5101|Corvane"}));
}

void TestStartup::actionLogSettingsAreTheUsersAgainOnceTheEngineIsUp()
{
    writeFile(m_workstation->dataDirectory() + "corvane.ini",
              "[actionlog]\nactivated=false\nlocation=elsewhere\n");
    RunningProgram program(environment());
    QVERIFY(!program.widget(kLoginBox).isEmpty());
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(setting("corvane.ini", "actionlog/activated").toString(), QStringLiteral("false"));
    QCOMPARE(setting("corvane.ini", "actionlog/location").toString(), QStringLiteral("elsewhere"));
    QVERIFY(QFile::exists(actionLog()));
}

void TestStartup::settingsOfAnInterruptedOperationAreInUseAgain()
{
    writeFile(m_workstation->dataDirectory() + "tmp_ini/recovery_corvane.ini", "[site]\nown=former\n");
    RunningProgram program(environment());
    QVERIFY(!program.widget(kLoginBox).isEmpty());
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(setting("corvane.ini", "site/own").toString(), QStringLiteral("former"));
    QVERIFY(!QFile::exists(m_workstation->dataDirectory() + "tmp_ini"));
}

void TestStartup::cleanEndFreesTheLock()
{
    RunningProgram program(environment());
    QVERIFY(!program.widget(kLoginBox).isEmpty());
    QVERIFY(QFile::exists(m_workstation->dataDirectory() + "cv.lock"));
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(!QFile::exists(m_workstation->dataDirectory() + "cv.lock"));
}

void TestStartup::secondCopyEndsWithCode1WithoutAWindowOrMessage()
{
    RunningProgram first(environment());
    QVERIFY(!first.widget(kLoginBox).isEmpty());
    const QByteArray log = readFile(m_workstation->runtimeLog());

    QElapsedTimer timer;
    timer.start();
    RunningProgram second(environment());
    QCOMPARE(second.exitCode(), 1);
    QVERIFY(timer.elapsed() >= kLockPatience);
    QCOMPARE(second.output(), QByteArray());
    QCOMPARE(readFile(m_workstation->runtimeLog()), log);
    QVERIFY(first.isRunning());
}

void TestStartup::lockOfAKilledCopyIsNoObstacle()
{
    {
        RunningProgram killed(environment());
        QVERIFY(!killed.widget(kLoginBox).isEmpty());
        killed.kill();
    }
    QVERIFY(QFile::exists(m_workstation->dataDirectory() + "cv.lock"));
    RunningProgram program(environment());
    QVERIFY(!program.widget(kLoginBox).isEmpty());
}

void TestStartup::dataDirectoryThatCannotHoldTheLockEndsInSilence_data()
{
    QTest::addColumn<QString>("programData");

    QTest::newRow("an unset ProgramData means the folder Halvorn of the current drive") << QString();
    QTest::newRow("the folder is missing") << m_workstation->path("nowhere");
    QTest::newRow("a file is in the place of the folder") << m_workstation->path("file");
}

void TestStartup::dataDirectoryThatCannotHoldTheLockEndsInSilence()
{
    QFETCH(QString, programData);
    QVERIFY(!QFile::exists("/Halvorn"));
    writeFile(m_workstation->path("file/Halvorn"), "in the way");
    QProcessEnvironment withProgramData = environment();
    if (programData.isNull())
        withProgramData.remove("ProgramData");
    else
        withProgramData.insert("ProgramData", programData);

    RunningProgram program(withProgramData);
    QCOMPARE(program.exitCode(), 1);
    QCOMPARE(program.output(), QByteArray());
    QVERIFY(!QFile::exists("/Halvorn"));
}

void TestStartup::readOnlyDataDirectoryEndsInSilence()
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

    RunningProgram copy(environment(), program, arguments);
    QCOMPARE(copy.exitCode(), 1);
    QCOMPARE(QDir(m_workstation->dataDirectory()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());
    QVERIFY(!QFile::exists(m_workstation->runtimeLog()));
}

void TestStartup::brokenFilesDoNotStopTheStart_data()
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

void TestStartup::brokenFilesDoNotStopTheStart()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, content);
    const QString file = m_workstation->path(path);
    QVERIFY(content.isNull() ? QDir().mkpath(file) : writeFile(file, content));

    RunningProgram program(environment());
    QVERIFY(!program.widget(kLoginBox).isEmpty());
    program.close();
    QVERIFY2(program.exitCode() == 0, program.output().constData());
    QCOMPARE(events().size(), 3);
}

void TestStartup::aboutDialogTellsTheVersion_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("version");

    QTest::newRow("a release") << QByteArray("5.1.2.0") << "Halvorn Pulmadesk v5.1.2";
    QTest::newRow("before the release") << QByteArray("6.0p3") << "Halvorn Pulmadesk v6.0p3";
    QTest::newRow("no version file") << QByteArray() << "Halvorn Pulmadesk v";
}

void TestStartup::aboutDialogTellsTheVersion()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, version);
    if (!file.isEmpty())
        writeFile(m_workstation->dataDirectory() + "version", file);
    RunningProgram program(environment());
    QVERIFY(!program.widget(kLoginBox).isEmpty());
    program.ask({{"do", "later"}, {"name", "view_stacker"}, {"text", "showAbout"}});
    const QString text = program.widget(QStringLiteral("about_text"))["text"].toString();
    QCOMPARE(text.section('\n', 0, 0), version);
}

void TestStartup::languageChain_data()
{
    QTest::addColumn<QString>("kept");        // null: there is no local_cache
    QTest::addColumn<QString>("configured");  // null: not in the settings
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QStringList>("translations");
    QTest::addColumn<QString>("shown");  // empty: the source texts
    QTest::addColumn<QString>("keptAfterwards");

    const QString none;
    const QStringList some{"de_DE", "dn", "en_GB", "fi", "sv"};
    QTest::newRow("neither kept nor configured: British English is kept")
        << none << none << "fi_FI.UTF-8" << some << "en_GB"
        << "en_GB";
    QTest::newRow("the configured language is taken and kept") << none << "fi"
                                                               << "sv_SE.UTF-8" << some << "fi"
                                                               << "fi";
    QTest::newRow("the kept language wins over a later configuration") << "sv"
                                                                       << "fi"
                                                                       << "C" << some << "sv"
                                                                       << "sv";
    QTest::newRow("an empty kept language counts as none") << ""
                                                           << "fi"
                                                           << "C" << some << "fi"
                                                           << "fi";
    QTest::newRow("an unknown language gives way to the system's and stays kept")
        << "xx" << none << "fi_FI.UTF-8" << some << "fi"
        << "xx";
    QTest::newRow("an unknown language and an unknown system's give way to British English")
        << "xx" << none << "ja_JP.UTF-8" << some << "en_GB"
        << "xx";
    QTest::newRow("a Danish system finds the Danish file") << "xx" << none << "da_DK.UTF-8" << some << "dn"
                                                           << "xx";
    QTest::newRow("a German system goes on to British English")
        << "xx" << none << "de_DE.UTF-8" << some << "en_GB"
        << "xx";
    QTest::newRow("a language of the settings that stands for the system's is kept as it is written")
        << none << "system"
        << "sv_SE.UTF-8" << some << "sv"
        << "system";
    QTest::newRow("without any translation the source texts stay")
        << "fi" << none << "fi_FI.UTF-8" << QStringList() << ""
        << "fi";
}

void TestStartup::languageChain()
{
    QFETCH(QString, kept);
    QFETCH(QString, configured);
    QFETCH(QString, locale);
    QFETCH(QStringList, translations);
    QFETCH(QString, shown);
    QFETCH(QString, keptAfterwards);
    if (!kept.isNull())
        writeFile(m_workstation->dataDirectory() + "local_cache",
                  "[General]\nlanguage=" + kept.toUtf8() + '\n');
    if (!configured.isNull())
        writeFile(m_workstation->dataDirectory() + "corvane.ini",
                  "[application]\nlanguage=" + configured.toUtf8() + '\n');
    ProgramFolder folder;
    for (const QString &code : translations)
        QVERIFY(folder.addTranslation(code));
    QProcessEnvironment withLocale = environment();
    withLocale.insert("LC_ALL", locale);

    RunningProgram program(withLocale, folder.program());
    const QString heading = program.widget(QStringLiteral("heading_label"))["text"].toString();
    QCOMPARE(heading, "<b>" + translatedText("Select to login as", shown) + ":</b>");
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(setting("local_cache", "language").toString(), keptAfterwards);
}

void TestStartup::languageChosenOnTheLoginViewIsThatOfTheNextStart()
{
    ProgramFolder folder;
    QVERIFY(folder.addTranslation("en_GB"));
    QVERIFY(folder.addTranslation("fi"));
    const QString finnish = "<b>" + translatedText("Select to login as", "fi") + ":</b>";
    {
        RunningProgram program(environment(), folder.program());
        QVERIFY(!program.widget(QStringLiteral("language_combo")).isEmpty());
        program.choose(QStringLiteral("language_combo"), 1);
        QTRY_COMPARE(program.widget(QStringLiteral("heading_label"))["text"].toString(), finnish);
        program.close();
        QCOMPARE(program.exitCode(), 0);
    }
    RunningProgram program(environment(), folder.program());
    QCOMPARE(program.widget(QStringLiteral("heading_label"))["text"].toString(), finnish);
}

void TestStartup::refusedStartTellsSoAndEndsWithCode1()
{
    writeFile(m_workstation->dataDirectory() + "corvane.ini", "[actionlog]\nactivated=false\n");
    writeFile(m_workstation->dataDirectory() + "CorvaneActions", "in the way");
    RunningProgram program(environment());
    const QJsonObject box = program.box();
    QCOMPARE(box["title"].toString(), QStringLiteral("Error"));
    QCOMPARE(box["text"].toString(), QStringLiteral("Application ran into a problem and cannot start."));
    QCOMPARE(words(box["buttons"]), QStringList("Ok"));
    QVERIFY(!program.isVisible(QStringLiteral("splash")));
    program.answerBox();
    QCOMPARE(program.exitCode(), 1);
    QVERIFY(readFile(m_workstation->runtimeLog()).contains("Start failed."));
    QCOMPARE(setting("corvane.ini", "actionlog/activated").toString(), QStringLiteral("false"));
    QVERIFY(QFile::exists(m_workstation->dataDirectory() + "cv.lock"));
}

void TestStartup::failedStartTellsTheCodeAndShowsNoMainWindow()
{
    {
        RunningProgram program(environment());
        QVERIFY(!program.widget(kLoginBox).isEmpty());
        program.close();
        QCOMPARE(program.exitCode(), 0);
    }
    EncryptedFile otherProgram(actionLog());
    QCOMPARE(otherProgram.run("BEGIN EXCLUSIVE"), QStringList());

    RunningProgram program(environment());
    const QJsonObject box = program.box();
    QCOMPARE(box["title"].toString(), QStringLiteral("Initialisation failed"));
    const QString start = QStringLiteral("Could not start program. Error code ");
    const QString text = box["text"].toString();
    QVERIFY2(text.startsWith(start) && text.mid(start.size()).toUInt() != 0, qPrintable(text));
    QCOMPARE(words(box["buttons"]), QStringList("Ok"));
    QCOMPARE(program.shownWindows().filter("QMainWindow"), QStringList());
    program.answerBox();
    QCOMPARE(program.exitCode(), 1);
    QVERIFY(!QFile::exists(m_workstation->dataDirectory() + "cv.lock"));
}

void TestStartup::criticalErrorIsToldOnceAndEndsWithCode1()
{
    if (geteuid() != 0)
        QSKIP("only an administrator can sign in without a password");
    RunningProgram program(environment());
    signIn(program);
    QVERIFY(QFile::remove(actionLog()));
    program.click(QStringLiteral("settings_button"));

    const QJsonObject box = program.box();
    QCOMPARE(box["title"].toString(), QStringLiteral("Critical error"));
    const QStringList lines = box["text"].toString().split('\n');
    QCOMPARE(lines.first(), QStringLiteral("Critical error: "));
    QCOMPARE(lines.at(lines.size() - 2), QStringLiteral("The program will be closed."));
    QVERIFY2(QRegExp("Error code: [1-9]\\d*").exactMatch(lines.last()), qPrintable(lines.last()));

    program.invoke(QStringLiteral("view_stacker"), QStringLiteral("logExit"));
    program.invoke(QStringLiteral("view_stacker"), QStringLiteral("logExit"));
    QTRY_COMPARE(readFile(m_workstation->runtimeLog()).count("can't be written"), 3);
    QCOMPARE(program.shownWindows().filter("QMessageBox").size(), 1);
    program.answerBox();
    QCOMPARE(program.exitCode(), 1);
}

QTEST_GUILESS_MAIN(TestStartup)
#include "test_startup.moc"
