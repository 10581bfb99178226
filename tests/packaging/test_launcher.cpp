#include "support/workstation.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <unistd.h>

namespace {

constexpr uid_t kNobody = 65534;

// In the place of the program: says what it was started with.
const char *const kProgram = "#!/bin/sh\n"
                             "pwd\n"
                             "printf '%s\\n' \"$ProgramData\" \"$TEMP\" \"$XDG_CONFIG_DIRS\"\n";

const auto kOwnerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

using Change = void (*)(const QString &own);

}  // namespace

Q_DECLARE_METATYPE(Change)

/// What the program is started with on Linux.
class TestLauncher : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void theProgramStartsInItsFolder();
    void dataIsWhereItIsSaidToBe();
    void withoutAWordTheDataIsTheUsersOwn();
    void theLogIsInTheFolderThatIsSaid();
    void withoutAWordTheLogIsInAFolderThatNobodyElseReads();
    void aFolderOfSomebodyElseIsNoPlaceForTheLog_data();
    void aFolderOfSomebodyElseIsNoPlaceForTheLog();

private:
    struct Start
    {
        QString folder;
        QString programData;
        QString temp;
        QString configFolders;
    };

    Start start();
    QString path(const QString &name) const;
    QString own() const;

    std::unique_ptr<QTemporaryDir> m_root;
    QProcessEnvironment m_environment;
};

void TestLauncher::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    const QString program = path("home of the program/Corvane");
    QVERIFY(writeFile(program, kProgram));
    QVERIFY(QFile::setPermissions(program, kOwnerOnly));
    QVERIFY(QDir().mkpath(path("tmp")));
    m_environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"ProgramData", "TEMP", "XDG_CONFIG_DIRS", "XDG_DATA_HOME"})
        m_environment.remove(name);
    m_environment.insert("CORVANE_HOME", path("home of the program"));
    m_environment.insert("HOME", path("home"));
    m_environment.insert("TMPDIR", path("tmp"));
}

TestLauncher::Start TestLauncher::start()
{
    QProcess launcher;
    launcher.setProcessEnvironment(m_environment);
    launcher.start(LAUNCHER, QStringList());
    launcher.waitForFinished();
    const QStringList lines = QString::fromLocal8Bit(launcher.readAllStandardOutput()).split('\n');
    return {lines.value(0), lines.value(1), lines.value(2), lines.value(3)};
}

QString TestLauncher::path(const QString &name) const
{
    return m_root->path() + '/' + name;
}

/// The user's own folder in the temporary one.
QString TestLauncher::own() const
{
    return path(QStringLiteral("tmp/corvane-%1").arg(geteuid()));
}

void TestLauncher::theProgramStartsInItsFolder()
{
    QCOMPARE(start().folder, path("home of the program"));
}

void TestLauncher::dataIsWhereItIsSaidToBe()
{
    m_environment.insert("ProgramData", path("site data"));
    m_environment.insert("XDG_CONFIG_DIRS", "/etc/other");
    const Start started = start();
    QCOMPARE(started.programData, path("site data"));
    QCOMPARE(started.configFolders, path("site data/config") + ":/etc/other");
    QVERIFY(QFileInfo(path("site data/Halvorn")).isDir());
    QVERIFY(QFileInfo(path("site data/config")).isDir());
}

void TestLauncher::withoutAWordTheDataIsTheUsersOwn()
{
    if (QFileInfo("/var/lib/corvane").isWritable())
        QSKIP("This machine has a data folder of the site.");
    const Start started = start();
    QCOMPARE(started.programData, path("home/.local/share/corvane"));
    QCOMPARE(started.configFolders, path("home/.local/share/corvane/config") + ":/etc/xdg");
    QVERIFY(QFileInfo(path("home/.local/share/corvane/Halvorn")).isDir());
}

void TestLauncher::theLogIsInTheFolderThatIsSaid()
{
    m_environment.insert("TEMP", path("logs"));
    QCOMPARE(start().temp, path("logs"));
    QVERIFY(!QFile::exists(own()));
}

void TestLauncher::withoutAWordTheLogIsInAFolderThatNobodyElseReads()
{
    QCOMPARE(start().temp, own());
    const QFile::Permissions othersToo = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                         QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFile::permissions(own()) & othersToo, QFile::Permissions());
    QVERIFY(QFile::permissions(own()).testFlag(QFile::WriteOwner));
    QCOMPARE(start().temp, own());
}

void TestLauncher::aFolderOfSomebodyElseIsNoPlaceForTheLog_data()
{
    QTest::addColumn<Change>("make");

    QTest::newRow("a link") << Change(
        [](const QString &own) { QVERIFY(QFile::link(QFileInfo(own).path(), own)); });
    QTest::newRow("a file") << Change([](const QString &own) { QVERIFY(writeFile(own, "in the way")); });
    if (geteuid() == 0) {
        QTest::newRow("a folder of another user") << Change([](const QString &own) {
            QVERIFY(QDir().mkpath(own));
            QCOMPARE(chown(QFile::encodeName(own).constData(), kNobody, kNobody), 0);
        });
    }
}

void TestLauncher::aFolderOfSomebodyElseIsNoPlaceForTheLog()
{
    QFETCH(Change, make);
    make(own());
    QCOMPARE(start().temp, path("tmp"));
}

QTEST_GUILESS_MAIN(TestLauncher)
#include "test_launcher.moc"
