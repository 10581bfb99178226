#include "programfolder.h"
#include "programworkstation.h"
#include "support/runningprogram.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>
#include <unistd.h>

namespace {

constexpr int kSplashTime = 1000;  // milliseconds that the splash is up

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

    void aboutDialogTellsTheVersion_data();
    void aboutDialogTellsTheVersion();

    void languageChain_data();
    void languageChain();
    void languageChosenOnTheLoginViewIsThatOfTheNextStart();

private:
    std::unique_ptr<ProgramWorkstation> m_workstation;
};

void TestStartup::init()
{
    m_workstation.reset();
    m_workstation = std::make_unique<ProgramWorkstation>();
}

void TestStartup::splashComesFirstAndTheLoginViewInTheMainWindowAfterIt()
{
    QElapsedTimer timer;
    timer.start();
    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
    QVERIFY(timer.elapsed() >= kSplashTime);
    QCOMPARE(program.shownWindows(), (QStringList{"ZephanSplash", "QMainWindow"}));
    QVERIFY(!program.isVisible(QStringLiteral("splash")));
    QVERIFY(!program.isVisible(QStringLiteral("header_home_button")));
}

void TestStartup::mainWindowIsNeverSmallerThan800By600()
{
    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
    program.ask({{"do", "resize"}, {"width", 100}, {"height", 100}});
    const QJsonObject window = program.widget(QString());
    QVERIFY(window["width"].toInt() >= 800);
    QVERIFY(window["height"].toInt() >= 600);
}

void TestStartup::closingBeforeAnySignInWritesLogoutAndStopping()
{
    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(m_workstation->events(), (QStringList{"5100|Corvane", "1301|Corvane", "5101|Corvane"}));
    const QByteArray log = readFile(m_workstation->runtimeLog());
    QVERIFY(log.indexOf("Started.") < log.indexOf("Initialized."));
    QVERIFY(log.indexOf("Initialized.") < log.indexOf("Stopping."));
    for (const char *message : {"Started.", "Initialized.", "Stopping."}) {
        const QList<QByteArray> lines = m_workstation->logLines(message);
        QCOMPARE(lines.size(), 1);
        QVERIFY2(lines.first().startsWith("INF ??: "), lines.first().constData());
    }
}

void TestStartup::leavingTheSettingsViewIsRecordedBeforeTheLogout()
{
    if (geteuid() != 0)
        QSKIP("only root is sure to be an administrator");
    RunningProgram program(m_workstation->environment());
    QVERIFY(signIn(program));
    program.click(QStringLiteral("settings_button"));
    QVERIFY(!program.widget(QStringLiteral("header_home_button")).isEmpty());
    program.close();
    QVERIFY2(program.exitCode() == 0, program.output().constData());
    QCOMPARE(m_workstation->events(),
             (QStringList{"5100|Corvane", "1300|Corvane", "5100|Corvane Settings Management",
                          "5101|Corvane Settings Management", "1301|Corvane", "5101|Corvane"}));
}

void TestStartup::actionLogSettingsAreTheUsersAgainOnceTheEngineIsUp()
{
    writeFile(m_workstation->dataDirectory() + "corvane.ini",
              "[actionlog]\nactivated=false\nlocation=elsewhere\n");
    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(m_workstation->setting("corvane.ini", "actionlog/activated").toString(),
             QStringLiteral("false"));
    QCOMPARE(m_workstation->setting("corvane.ini", "actionlog/location").toString(),
             QStringLiteral("elsewhere"));
    QVERIFY(QFile::exists(m_workstation->actionLog()));
}

void TestStartup::settingsOfAnInterruptedOperationAreInUseAgain()
{
    writeFile(m_workstation->dataDirectory() + "tmp_ini/recovery_corvane.ini", "[site]\nown=former\n");
    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(m_workstation->setting("corvane.ini", "site/own").toString(), QStringLiteral("former"));
    QVERIFY(!QFile::exists(m_workstation->dataDirectory() + "tmp_ini"));
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
    RunningProgram program(m_workstation->environment());
    QVERIFY(showsLogin(program));
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
    QProcessEnvironment withLocale = m_workstation->environment();
    withLocale.insert("LC_ALL", locale);

    RunningProgram program(withLocale, folder.program());
    const QString heading = program.widget(QStringLiteral("heading_label"))["text"].toString();
    QCOMPARE(heading, "<b>" + translatedText("Select to login as", shown) + ":</b>");
    program.close();
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(m_workstation->setting("local_cache", "language").toString(), keptAfterwards);
}

void TestStartup::languageChosenOnTheLoginViewIsThatOfTheNextStart()
{
    ProgramFolder folder;
    QVERIFY(folder.addTranslation("en_GB"));
    QVERIFY(folder.addTranslation("fi"));
    const QString finnish = "<b>" + translatedText("Select to login as", "fi") + ":</b>";
    {
        RunningProgram program(m_workstation->environment(), folder.program());
        QVERIFY(!program.widget(QStringLiteral("language_combo")).isEmpty());
        program.choose(QStringLiteral("language_combo"), 1);
        QTRY_COMPARE(program.widget(QStringLiteral("heading_label"))["text"].toString(), finnish);
        program.close();
        QCOMPARE(program.exitCode(), 0);
    }
    RunningProgram program(m_workstation->environment(), folder.program());
    QCOMPARE(program.widget(QStringLiteral("heading_label"))["text"].toString(), finnish);
}

QTEST_GUILESS_MAIN(TestStartup)
#include "test_startup.moc"
