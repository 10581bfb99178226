#include "CommunicationAndData/settings/inirepair.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "storechecks.h"
#include "support/fulldisk.h"
#include "support/workstation.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QSettings>
#include <QTest>

#include <algorithm>
#include <memory>

namespace {

constexpr int kRounds = 25;
constexpr int kRepairs = 15;
constexpr int kFillers = 200;
constexpr int kFullDisks = 30;

constexpr unsigned long kRoomForLock = 300;  // bytes

std::unique_ptr<QProcess> child(const QStringList &arguments)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(QCoreApplication::applicationDirPath() + QStringLiteral("/settings_child"), arguments);
    return process;
}

/// Read under a name of its own, so that no file is remembered from before.
QMap<QString, QVariant> contentOf(const QString &path, const QString &copy)
{
    QFile::remove(copy);
    QMap<QString, QVariant> content;
    if (!QFile::copy(path, copy))
        return content;
    const QSettings settings(copy, QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys)
        content.insert(key, settings.value(key));
    return content;
}

int countBelow(const QMap<QString, QVariant> &content, const QString &group)
{
    return content.keys().filter(group + QLatin1Char('/')).size();
}

}  // namespace

class TestSettingsProcesses : public QObject
{
    Q_OBJECT

private slots:
    void aKilledProcessLosesNothingThatWasOnDisk();
    void aProcessKilledWhileItRepairsLosesNoByte();
    void aProcessKilledOnAFullDiskLosesNothing();
    void aLockThatAKilledProcessLeftHoldsNobodyUp();
    void twoProcessesKeepEachOthersKeys();
    void whatIsPendingAtTheEndIsWritten();
    void whatCannotBeWrittenAtTheEndIsLogged();
    void whatComesInThePlaceOfTheFileIsLoggedAtTheEnd();
    void theWorkersThreadEndsWithTheProcess_data();
    void theWorkersThreadEndsWithTheProcess();

private:
    QString file(const QString &name) const
    {
        return m_workstation.dataDirectory() + name;
    }

    Workstation m_workstation;
};

void TestSettingsProcesses::aKilledProcessLosesNothingThatWasOnDisk()
{
    const QString path = file(QStringLiteral("killed.ini"));
    for (int round = 0; round < kRounds; ++round) {
        const auto process =
            child({QStringLiteral("write"), path, QStringLiteral("ui"), QStringLiteral("0")});
        QVERIFY(process->waitForStarted());
        QVERIFY(process->waitForReadyRead(30000));
        QTest::qWait(QRandomGenerator::system()->bounded(40));
        process->kill();
        QVERIFY(process->waitForFinished());
        QByteArray said = process->readAllStandardOutput();
        said.truncate(said.lastIndexOf('\n'));
        const int acknowledged = said.split('\n').last().toInt();
        QVERIFY(acknowledged > 0);

        QVERIFY(repairIni(readFile(path)).isSound());
        const auto content = contentOf(path, file(QStringLiteral("killed_copy_%1.ini").arg(round)));
        QVERIFY(content.value(QStringLiteral("ui/number")).toInt() >= acknowledged);
        QCOMPARE(countBelow(content, QStringLiteral("ui")), kFillers + 1);
    }
}

void TestSettingsProcesses::aProcessKilledWhileItRepairsLosesNoByte()
{
    const QString path = file(QStringLiteral("repaired.ini"));
    int repairs = 0;
    for (int round = 0; round < kRepairs; ++round) {
        const QByteArray damaged = "[ui]\nround=" + QByteArray::number(round) +
                                   QByteArray("\nfiller=\xe4\xf6").repeated(1000) + '\n';
        QVERIFY(writeFile(path, damaged));
        const auto process =
            child({QStringLiteral("write"), path, QStringLiteral("his"), QStringLiteral("0")});
        QVERIFY(process->waitForStarted());
        if (round % 2 == 0)
            QTRY_VERIFY_WITH_TIMEOUT(readFile(path) != damaged, 30000);
        else
            QTest::qWait(QRandomGenerator::system()->bounded(60));
        process->kill();
        QVERIFY(process->waitForFinished());
        if (readFile(path) == damaged)
            continue;
        ++repairs;
        const QStringList copies = keptCopies(path);
        QVERIFY(std::any_of(copies.begin(), copies.end(),
                            [&damaged](const QString &copy) { return readFile(copy) == damaged; }));
        QVERIFY(repairIni(readFile(path)).isSound());
        QVERIFY(readFile(path).contains("round=" + QByteArray::number(round)));
    }
    QVERIFY(repairs > 0);
}

void TestSettingsProcesses::aProcessKilledOnAFullDiskLosesNothing()
{
    const QString path = file(QStringLiteral("full.ini"));
    const QByteArray bytes = "[ui]\ngood=1\nlong=" + QByteArray(1000, 'x') + '\n';
    const QDir folder(m_workstation.dataDirectory());
    const auto copies = [&folder] {
        return folder.entryList({QStringLiteral("full.ini.*.former")});
    };
    int copiesLeft = 0;
    for (int round = 0; round < kFullDisks; ++round) {
        QVERIFY(writeFile(path, bytes));
        std::unique_ptr<QProcess> process;
        {
            const FullDisk disk(kRoomForLock);
            process = child({QStringLiteral("pending"), path});
        }
        QVERIFY(process->waitForStarted());
        const auto isWriting = [&] {
            return round % 2 == 0 ? !copies().isEmpty() : readFile(path) != bytes;
        };
        while (!isWriting() && !process->waitForFinished(0)) {
        }
        process->kill();
        QVERIFY(process->state() == QProcess::NotRunning || process->waitForFinished());
        copiesLeft += copies().size();
        QCOMPARE(openSettingsFile(path)->value(QStringLiteral("ui/good")).toInt(), 1);
        QCOMPARE(readFile(path), bytes);
        QCOMPARE(copies(), QStringList());
    }
    QVERIFY(copiesLeft > 0);
}

void TestSettingsProcesses::aLockThatAKilledProcessLeftHoldsNobodyUp()
{
    const QString path = file(QStringLiteral("locked.ini"));
    QVERIFY(writeFile(path + QStringLiteral(".lock"), QByteArray()));
    const auto process = child({QStringLiteral("write"), path, QStringLiteral("ui"), QStringLiteral("1")});
    QVERIFY(process->waitForFinished(20000));
    QCOMPARE(process->exitCode(), 0);
    QVERIFY(readFile(path).contains("number=1"));
}

void TestSettingsProcesses::twoProcessesKeepEachOthersKeys()
{
    const QString path = file(QStringLiteral("shared.ini"));
    const QString count = QStringLiteral("100");
    const auto first = child({QStringLiteral("write"), path, QStringLiteral("his"), count});
    const auto second = child({QStringLiteral("write"), path, QStringLiteral("ui"), count});
    QVERIFY(first->waitForFinished(240000));
    QVERIFY(second->waitForFinished(240000));
    const auto content = contentOf(path, file(QStringLiteral("shared_copy.ini")));
    for (const QString &group : {QStringLiteral("his"), QStringLiteral("ui")}) {
        QCOMPARE(content.value(group + QStringLiteral("/number")).toInt(), 100);
        QCOMPARE(countBelow(content, group), kFillers + 1);
    }
}

void TestSettingsProcesses::whatIsPendingAtTheEndIsWritten()
{
    const QString path = file(QStringLiteral("pending.ini"));
    const auto process = child({QStringLiteral("pending"), path});
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitCode(), 0);
    QCOMPARE(readFile(path), QByteArray("[ui]\npending=1\n"));
}

void TestSettingsProcesses::whatCannotBeWrittenAtTheEndIsLogged()
{
    const auto process = child({QStringLiteral("pending"), QStringLiteral("/proc/corvane/corvane.ini")});
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(process->exitCode(), 0);
    QCOMPARE(readFile(m_workstation.runtimeLog()).count("/proc/corvane/corvane.ini"), 1);
}

void TestSettingsProcesses::whatComesInThePlaceOfTheFileIsLoggedAtTheEnd()
{
    const QString path = file(QStringLiteral("displaced.ini"));
    const QString other = file(QStringLiteral("other"));
    QVERIFY(QDir().mkpath(other));
    const auto process = child({QStringLiteral("displaced"), path, other});
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(process->exitCode(), 0);
    const QByteArray log = readFile(m_workstation.runtimeLog());
    for (const QString &name : {path, other})
        QCOMPARE(log.count(name.toUtf8() + " cannot be read; its settings start empty"), 1);
}

void TestSettingsProcesses::theWorkersThreadEndsWithTheProcess_data()
{
    QTest::addColumn<QString>("end");

    QTest::newRow("when the event loop ends") << QStringLiteral("orderly");
    QTest::newRow("when exit is called inside the event loop") << QStringLiteral("abruptly");
}

void TestSettingsProcesses::theWorkersThreadEndsWithTheProcess()
{
    QFETCH(QString, end);
    const auto process = child({QStringLiteral("ask"), end});
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(process->exitCode(), 7);
}

QTEST_GUILESS_MAIN(TestSettingsProcesses)
#include "test_settingsprocesses.moc"
