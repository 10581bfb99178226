#include "CommunicationAndData/settings/settingshandler.h"
#include "actionlogreader.h"
#include "enginerun.h"
#include "support/ordinaryuser.h"
#include "support/workstation.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

namespace {

constexpr int kRounds = 15;
constexpr int kPatience = 120000;  // milliseconds

/// The writing program as a process of its own.
class Writer
{
public:
    Writer(const QString &location, const QString &name, int count, const QStringList &further = {})
    {
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/eventwriter"),
                      QStringList{location, name, QString::number(count)} + further);
    }

    /// Whether it printed this many lines in time. The first one is "ready".
    bool printed(int lines)
    {
        while (output.count('\n') < lines) {
            if (!process.waitForReadyRead(kPatience))
                return false;
            output += process.readAllStandardOutput();
        }
        return true;
    }

    QStringList finishedLines()
    {
        process.waitForFinished(kPatience);
        output += process.readAllStandardOutput();
        output.truncate(output.lastIndexOf('\n') + 1);
        return QString::fromUtf8(output).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    /// The events that it said were written.
    QStringList acknowledged(const QString &name)
    {
        QStringList infos;
        for (const QString &line : finishedLines()) {
            bool isNumber = false;
            line.toInt(&isNumber);
            if (isNumber)
                infos.append(name + QLatin1Char(' ') + line);
        }
        return infos;
    }

    QProcess process;
    QByteArray output;
};

}  // namespace

class TestEngineProcesses : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void acknowledgedEventsOutliveAKilledProcess();
    void logOfAKilledProcessIsStartedAsASoundOne();
    void processKilledWhileItBeginsTheLogLeavesAStartableOne();
    void processesWriteIntoOneLog();
    void processesBeginOneLogTogether();
    void fullDiskIsACriticalError_data();
    void fullDiskIsACriticalError();
    void fullDiskAtTheStartIsNoDamage();
    void forbiddenLogIsNoStartAndNoDamage_data();
    void forbiddenLogIsNoStartAndNoDamage();

private:
    QString directory() const;
    QStringList infos() const;

    Workstation m_workstation;
    int m_run = 0;
};

QString TestEngineProcesses::directory() const
{
    return m_workstation.path(QStringLiteral("log%1").arg(m_run));
}

QStringList TestEngineProcesses::infos() const
{
    return readActionLog(directory() + QStringLiteral("/actionlog.db"), QStringLiteral("info"));
}

void TestEngineProcesses::init()
{
    // What a writer that is killed leaves behind goes with this test's own folder.
    qputenv("TMPDIR", m_workstation.temporaryDirectory().toLocal8Bit());
    ++m_run;
    SettingsHandler::getInstance()->changeSettingsFile(
        m_workstation.path(QStringLiteral("settings%1.ini").arg(m_run)));
    EngineRun::useLocation(directory());
}

void TestEngineProcesses::acknowledgedEventsOutliveAKilledProcess()
{
    QStringList acknowledged;
    for (int round = 0; round < kRounds; ++round) {
        const QString name = QStringLiteral("round%1").arg(round);
        Writer writer(directory(), name, 1000000);
        QVERIFY(writer.printed(2 + QRandomGenerator::global()->bounded(40)));
        writer.process.kill();
        acknowledged += writer.acknowledged(name);
        QCOMPARE(writer.process.exitStatus(), QProcess::CrashExit);
    }
    QVERIFY(acknowledged.size() >= kRounds);

    // Each round may have left one more row, whose acknowledgement the kill cut off.
    const QStringList rows = infos();
    QVERIFY(rows.size() <= acknowledged.size() + kRounds);
    const QSet<QString> written(rows.cbegin(), rows.cend());
    for (const QString &info : qAsConst(acknowledged))
        QVERIFY2(written.contains(info), qPrintable(info));
}

void TestEngineProcesses::logOfAKilledProcessIsStartedAsASoundOne()
{
    Writer writer(directory(), QStringLiteral("killed"), 1000000);
    QVERIFY(writer.printed(50));
    writer.process.kill();
    const int acknowledged = writer.acknowledged(QStringLiteral("killed")).size();
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("after"));
    QVERIFY(infos().size() > acknowledged);
    QCOMPARE(infos().last(), QStringLiteral("after"));
}

void TestEngineProcesses::processKilledWhileItBeginsTheLogLeavesAStartableOne()
{
    for (int round = 0; round < kRounds; ++round) {
        const QString location = directory() + QStringLiteral("/%1").arg(round);
        Writer writer(location, QStringLiteral("killed"), 1);
        QVERIFY(writer.process.waitForStarted());
        QTest::qWait(QRandomGenerator::global()->bounded(150));
        writer.process.kill();
        const bool wasReady = writer.finishedLines().contains(QLatin1String("0"));
        EngineRun::useLocation(location);
        EngineRun run;
        const ZephanError error = run.start();
        QCOMPARE(error, error == ZephanErrors::kActionLogReplaced && !wasReady ? error : ZephanErrors::kNone);
        const int rows = readActionLog(location + QStringLiteral("/actionlog.db")).size();
        QVERIFY(rows == 1 || (rows == 0 && !wasReady));
    }
}

void TestEngineProcesses::processesWriteIntoOneLog()
{
    constexpr int kEvents = 60;
    Writer first(directory(), QStringLiteral("first"), kEvents);
    QVERIFY(first.printed(1));
    Writer second(directory(), QStringLiteral("second"), kEvents);
    Writer third(directory(), QStringLiteral("third"), kEvents);
    for (Writer *writer : {&first, &second, &third})
        QCOMPARE(writer->finishedLines().last(), QStringLiteral("done"));
    QCOMPARE(infos().size(), 3 * kEvents);
}

void TestEngineProcesses::processesBeginOneLogTogether()
{
    Writer first(directory(), QStringLiteral("first"), 1);
    Writer second(directory(), QStringLiteral("second"), 1);
    Writer third(directory(), QStringLiteral("third"), 1);
    for (Writer *writer : {&first, &second, &third})
        QCOMPARE(writer->finishedLines(), QStringList({"ready", "0", "done"}));
    QCOMPARE(infos().size(), 3);
    EncryptedFile database(directory() + QStringLiteral("/actionlog.db"));
    QCOMPARE(database.run(QStringLiteral("SELECT hash FROM hash")).size(), 1);
    QVERIFY(QDir(directory()).entryList({QStringLiteral("*damaged*")}).isEmpty());
}

void TestEngineProcesses::fullDiskIsACriticalError_data()
{
    QTest::addColumn<int>("free");

    QTest::newRow("with no byte left") << 0;
    QTest::newRow("with the room of a few events left") << 20000;
    QTest::newRow("within the journal's growth") << 300000;
    QTest::newRow("after the journal was taken over into the file") << 1300000;
}

void TestEngineProcesses::fullDiskIsACriticalError()
{
    QFETCH(int, free);

    Writer writer(directory(), QStringLiteral("event"), 100000, {QString::number(free)});
    const QStringList lines = writer.finishedLines();
    QCOMPARE(lines.first(), QStringLiteral("ready"));
    QCOMPARE(lines.last(), QStringLiteral("critical %1").arg(ZephanErrors::kActionLogNotWritten));

    const QStringList acknowledged = writer.acknowledged(QStringLiteral("event"));
    QCOMPARE(infos(), acknowledged);
    EngineRun run;
    QCOMPARE(run.start(), 0U);
    run.log(QStringLiteral("after"));
    QCOMPARE(infos(), acknowledged + QStringList(QStringLiteral("after")));
}

void TestEngineProcesses::fullDiskAtTheStartIsNoDamage()
{
    {
        EngineRun run;
        QCOMPARE(run.start(), 0U);
        run.log(QStringLiteral("old"));
        QCOMPARE(run.engine.shutdownEngine(), 0U);
    }
    QProcess shell;
    shell.start(QStringLiteral("sh"),
                {"-c", "trap '' XFSZ; ulimit -f 0; exec \"$0\" \"$@\"",
                 QCoreApplication::applicationDirPath() + "/eventwriter", directory(), "event", "1"});
    QVERIFY(shell.waitForFinished(kPatience));
    const QByteArray line = shell.readAllStandardOutput().trimmed();
    QVERIFY2(line.startsWith("error ") || line.startsWith("ready\ncritical "), line);
    QVERIFY(QDir(directory()).entryList({QStringLiteral("*damaged*")}).isEmpty());
    QCOMPARE(infos(), QStringList(QStringLiteral("old")));
}

void TestEngineProcesses::forbiddenLogIsNoStartAndNoDamage_data()
{
    QTest::addColumn<int>("ofFile");
    QTest::addColumn<int>("ofDirectory");
    QTest::addColumn<ZephanError>("error");

    QTest::newRow("a file that may only be read is a bad start")
        << 0x4444 << 0x7777 << ZephanErrors::kActionLogNotWritten;
    QTest::newRow("a file that may not even be read is refused")
        << 0 << 0x7777 << ZephanErrors::kActionLogNotOpened;
    QTest::newRow("a directory that may only be read is refused")
        << 0x6666 << 0x5555 << ZephanErrors::kActionLogNotOpened;
}

void TestEngineProcesses::forbiddenLogIsNoStartAndNoDamage()
{
    QFETCH(int, ofFile);
    QFETCH(int, ofDirectory);
    QFETCH(ZephanError, error);

    {
        EngineRun run;
        QCOMPARE(run.start(), 0U);
        run.log(QStringLiteral("old"));
        QCOMPARE(run.engine.shutdownEngine(), 0U);
    }
    QVERIFY(QFile::setPermissions(m_workstation.path(QString()), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(directory() + QStringLiteral("/actionlog.db"), QFile::Permissions(ofFile)));
    QVERIFY(QFile::setPermissions(directory(), QFile::Permissions(ofDirectory)));
    {
        const OrdinaryUser user;
        EngineRun run;
        QCOMPARE(run.start(), error);
        QCOMPARE(run.engine.shutdownEngine(), ZephanErrors::kEngineNotReady);
    }
    QVERIFY(QFile::setPermissions(directory(), QFile::Permissions(0x7777)));
    // What SQLite has put beside the file has the file's rights.
    for (const QFileInfo &file : QDir(directory()).entryInfoList(QDir::Files))
        QVERIFY(QFile::setPermissions(file.filePath(), QFile::Permissions(0x6666)));
    QVERIFY(QDir(directory()).entryList({QStringLiteral("*damaged*")}).isEmpty());
    QCOMPARE(infos(), QStringList(QStringLiteral("old")));
}

QTEST_GUILESS_MAIN(TestEngineProcesses)
#include "test_engineprocesses.moc"
