#include "programworkstation.h"
#include "support/runningprogram.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

constexpr int kLanguages = 3;  // English, German and Japanese

}  // namespace

/// The program as it is installed, in a folder that stands for the root of a workstation.
class TestInstallation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void theInstalledProgramStartsFromItsLauncher();
    void itSpeaksTheLanguagesThatWereInstalled();
    void itsAboutDialogTellsTheLicences();
    void administratorsAndTheSystemFindTheirFiles_data();
    void administratorsAndTheSystemFindTheirFiles();

private:
    QString launcher() const;
    QProcessEnvironment environment() const;

    QTemporaryDir m_root;
    std::unique_ptr<ProgramWorkstation> m_workstation;
};

void TestInstallation::initTestCase()
{
    QProcess installation;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DESTDIR", m_root.path());
    installation.setProcessEnvironment(environment);
    installation.setProcessChannelMode(QProcess::MergedChannels);
    installation.start(CMAKE_PROGRAM, {"--install", BUILD_FOLDER, "--prefix", "/usr"});
    QVERIFY(installation.waitForFinished());
    QVERIFY2(installation.exitCode() == 0, installation.readAll().constData());
}

void TestInstallation::init()
{
    m_workstation.reset();
    m_workstation = std::make_unique<ProgramWorkstation>();
}

QString TestInstallation::launcher() const
{
    return m_root.path() + "/usr/" BIN_FOLDER "/corvane";
}

/// Nothing that leads back to where the program was built.
QProcessEnvironment TestInstallation::environment() const
{
    QProcessEnvironment environment = m_workstation->environment();
    for (const char *name : {"CORVANE_HOME", "QT_PLUGIN_PATH"})
        environment.remove(name);
    return environment;
}

void TestInstallation::theInstalledProgramStartsFromItsLauncher()
{
    RunningProgram program(environment(), launcher());
    QVERIFY(showsLogin(program));
    program.close();
    QCOMPARE(program.exitCode(), 0);
    // Its own driver has opened the log.
    QCOMPARE(m_workstation->events(), (QStringList{"5100|Corvane", "1301|Corvane", "5101|Corvane"}));
}

void TestInstallation::itSpeaksTheLanguagesThatWereInstalled()
{
    RunningProgram program(environment(), launcher());
    QVERIFY(showsLogin(program));
    QStringList headings;
    for (int language = 0; language < kLanguages; ++language) {
        program.choose("language_combo", language);
        QTRY_VERIFY(!headings.contains(program.widget("heading_label")["text"].toString()));
        headings.append(program.widget("heading_label")["text"].toString());
    }
    QCOMPARE(headings.count(QString()), 0);
}

void TestInstallation::itsAboutDialogTellsTheLicences()
{
    RunningProgram program(environment(), launcher());
    QVERIFY(showsLogin(program));
    program.ask({{"do", "later"}, {"name", "view_stacker"}, {"text", "showAbout"}});
    QVERIFY(program.widget("about_text")["text"].toString().contains("SQLCipher"));
}

void TestInstallation::administratorsAndTheSystemFindTheirFiles_data()
{
    QTest::addColumn<QString>("file");

    for (const char *file : {"/usr/" DATA_FOLDER "/applications/corvane.desktop",
                             "/usr/" DATA_FOLDER "/icons/hicolor/48x48/apps/corvane.png",
                             "/usr/" DATA_FOLDER "/doc/corvane/docs/databases.md",
                             "/usr/" DATA_FOLDER "/doc/corvane/docs/plugins.md",
                             "/usr/" DATA_FOLDER "/doc/corvane/resources/sql/mysql/access.sql",
                             "/usr/" DATA_FOLDER "/doc/corvane/resources/sql/postgresql/grants.sql",
                             "/usr/include/corvane/abstractapplicationfactory.h", PAM_FOLDER "/corvane"})
        QTest::newRow(file) << QString(file);
}

void TestInstallation::administratorsAndTheSystemFindTheirFiles()
{
    QFETCH(QString, file);
    QVERIFY(QFileInfo(m_root.path() + file).size() > 0);
}

QTEST_GUILESS_MAIN(TestInstallation)
#include "test_installation.moc"
