#include "ZephanShared/toolkit/logger.h"
#include "support/fulldisk.h"
#include "support/workstation.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <QThread>

#include <memory>
#include <vector>

#include <unistd.h>

namespace {

const auto kChildMode = QLatin1String("--log-as-child");
const auto kCloseOutput = QLatin1String("--close-standard-output");
const auto kGrowTo = QLatin1String("--grow-log-to=");
const auto kNonAscii = QLatin1String("--non-ascii");
const auto kOccupyCopies = QLatin1String("--occupy-names-of-copies");

const auto kLogName = QLatin1String("CORVANE_runtime.log");

/// Text that a codec of the locale could not write.
QString nonAsciiText()
{
    return QStringLiteral("Käyttäjä 山田 signed in");
}

QString temporaryPath(const QString &name)
{
    return qEnvironmentVariable("TEMP") + QLatin1Char('/') + name;
}

/// Takes the names that copies of the log would get in the next seconds.
void occupyNamesOfCopies()
{
    const QDateTime now = QDateTime::currentDateTime();
    for (int second = 0; second < 30; ++second) {
        const QString stamp = now.addSecs(second).toString(QStringLiteral("yyMMdd-hhmmss"));
        writeFile(temporaryPath(kLogName + QLatin1Char('.') + stamp), "taken");
    }
}

/// A run of a program that logs each of its arguments, or does what they say.
int logAsChild(const QStringList &arguments)
{
    for (const QString &argument : arguments) {
        if (argument == kCloseOutput)
            ::close(STDOUT_FILENO);
        else if (argument.startsWith(kGrowTo))
            QFile::resize(temporaryPath(kLogName), argument.mid(kGrowTo.size()).toLongLong());
        else if (argument == kOccupyCopies)
            occupyNamesOfCopies();
        else
            Logger::getInstance().log(Logger::Information, Logger::Console, QStringLiteral("child"), 1,
                                      QStringLiteral("file"),
                                      argument == kNonAscii ? nonAsciiText() : argument);
    }
    return 0;
}

class LoggingThread : public QThread
{
public:
    explicit LoggingThread(int number)
        : m_number(number)
    {}

    static constexpr int kLines = 200;

protected:
    void run() override
    {
        const QString message = QString(100, QLatin1Char(char('a' + m_number)));
        for (int line = 0; line < kLines; ++line)
            Logger::getInstance().log(Logger::Debug, Logger::Console, QStringLiteral("run"), line,
                                      QStringLiteral("thread"), message);
    }

private:
    int m_number;
};

}  // namespace

class TestLogger : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void tags_data();
    void tags();
    void aLineHasItsPartsInOrderAndNothingElse();
    void theLogGoesOnOnceAFullDiskHasRoomAgain_data();
    void theLogGoesOnOnceAFullDiskHasRoomAgain();
    void textOutsideAsciiIsUtf8WhateverTheLocale();
    void aLineIsInTheFileWhenLogReturns();
    void aVeryLongMessageStandsInOneLine();
    void threadsDoNotBreakEachOthersLines();
    void sourceName_data();
    void sourceName();

    void startingTwiceLeavesOnlyTheSecondRunsLines();
    void anUnwritableTemporaryFolderSendsTheLinesToStandardOutput();
    void withoutFileAndStandardOutputANoteIsLeftInTheCurrentDirectory();
    void anUnsetTemporaryFolderMeansTheRootOfTheDrive();

    void rotation_data();
    void rotation();
    void aCopyThatFailsIsPassedOver();

private:
    QString lastLine() const;
    QStringList copies() const;
    QByteArray runChild(const QStringList &arguments);

    Workstation m_workstation;
    QProcessEnvironment m_childEnvironment;
    QString m_childFolder;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestLogger::initTestCase()
{
    Logger::getInstance();
    QVERIFY(QFile::exists(m_workstation.runtimeLog()));
}

void TestLogger::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_childFolder = m_folder->path();
    m_childEnvironment = m_workstation.environment();
    m_childEnvironment.insert(QStringLiteral("TEMP"), m_childFolder);
}

void TestLogger::cleanup()
{
    m_folder.reset();
}

QString TestLogger::lastLine() const
{
    const QString text = QString::fromUtf8(readFile(m_workstation.runtimeLog()));
    return text.endsWith(QLatin1Char('\n')) ? text.chopped(1).section(QLatin1Char('\n'), -1) : QString();
}

QStringList TestLogger::copies() const
{
    return QDir(m_childFolder).entryList({kLogName + QStringLiteral(".*")}, QDir::Files);
}

QByteArray TestLogger::runChild(const QStringList &arguments)
{
    QProcess child;
    child.setProcessEnvironment(m_childEnvironment);
    child.setWorkingDirectory(m_childFolder);
    child.start(QCoreApplication::applicationFilePath(), QStringList(kChildMode) + arguments);
    if (!child.waitForFinished(120000) || child.exitStatus() != QProcess::NormalExit)
        return "the child did not end";
    return child.readAllStandardOutput();
}

void TestLogger::tags_data()
{
    QTest::addColumn<int>("severity");
    QTest::addColumn<int>("module");
    QTest::addColumn<QString>("beginning");

    QTest::newRow("a line with severity 4 and module 7 begins INF ??:") << 4 << 7 << "INF ??: ";
    QTest::newRow("a warning of this program begins WRN CV:") << 2 << 6 << "WRN CV: ";
    QTest::newRow("an error of this program begins ERR CV:") << 1 << 6 << "ERR CV: ";
    QTest::newRow("an error without a module begins ERR ??:") << 1 << 7 << "ERR ??: ";
    QTest::newRow("a severity of 8 prints DBG") << 8 << 6 << "DBG CV: ";
    QTest::newRow("a severity of 3 prints ???") << 3 << 6 << "??? CV: ";
    QTest::newRow("a severity of 0 prints ???") << 0 << 6 << "??? CV: ";
    QTest::newRow("a negative severity prints ???") << -1 << 6 << "??? CV: ";
    QTest::newRow("a module of 0 prints AL:") << 4 << 0 << "INF AL: ";
    QTest::newRow("a module of 1 prints CR:") << 4 << 1 << "INF CR: ";
    QTest::newRow("a module of 2 prints CD:") << 4 << 2 << "INF CD: ";
    QTest::newRow("a module of 3 prints DM:") << 4 << 3 << "INF DM: ";
    QTest::newRow("a module of 4 prints SH:") << 4 << 4 << "INF SH: ";
    QTest::newRow("a module of 5 prints PB:") << 4 << 5 << "INF PB: ";
    QTest::newRow("a module of 6 prints CV:") << 4 << 6 << "INF CV: ";
    QTest::newRow("a module of 8 prints ??:") << 4 << 8 << "INF ??: ";
    QTest::newRow("a negative module prints ??:") << 4 << -1 << "INF ??: ";
}

void TestLogger::tags()
{
    QFETCH(int, severity);
    QFETCH(int, module);
    QFETCH(QString, beginning);
    Logger::getInstance().log(severity, module, QStringLiteral("f"), 1, QStringLiteral("s"),
                              QStringLiteral("m"));
    QCOMPARE(lastLine().left(8), beginning);
}

void TestLogger::theLogGoesOnOnceAFullDiskHasRoomAgain_data()
{
    QTest::addColumn<int>("lines");

    QTest::newRow("after one line without room") << 1;
    QTest::newRow("after more than is kept of what found no room") << 3000;
}

void TestLogger::theLogGoesOnOnceAFullDiskHasRoomAgain()
{
    QFETCH(int, lines);
    const auto log = [](const QString &message) {
        Logger::getInstance().log(Logger::Information, Logger::Unnamed, QStringLiteral("f"), 1,
                                  QStringLiteral("s"), message);
    };
    log(QStringLiteral("before"));
    {
        const FullDisk disk;
        for (int line = 0; line < lines; ++line)
            log(QStringLiteral("meanwhile"));
    }
    log(QStringLiteral("afterwards"));
    QVERIFY(lastLine().endsWith(QStringLiteral("afterwards")));
}

void TestLogger::aLineHasItsPartsInOrderAndNothingElse()
{
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    Logger::getInstance().log(
        Logger::Information, Logger::Unnamed, QStringLiteral("CentralElement::CentralElement"), 39,
        QStringLiteral("..\\..\\source\\Corvane\\views\\centralelement"), QStringLiteral("Started."));
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QStringLiteral("INF \\?\\?: (\\d{4}-\\d{2}-\\d{2}T\\d{2}:\\d{2}:\\d{2})\t"
                       "\\.\\.\\\\\\.\\.\\\\source\\\\Corvane\\\\views\\\\centralelement:39::"
                       "CentralElement::CentralElement\tStarted\\.")));
    const QRegularExpressionMatch match = form.match(lastLine());
    QVERIFY2(match.hasMatch(), qPrintable(lastLine()));
    const QDateTime time = QDateTime::fromString(match.captured(1), Qt::ISODate);
    QVERIFY(time >= before && time <= QDateTime::currentDateTime());
}

void TestLogger::textOutsideAsciiIsUtf8WhateverTheLocale()
{
    m_childEnvironment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    runChild({kNonAscii});
    QVERIFY(QString::fromUtf8(readFile(m_childFolder + QLatin1Char('/') + kLogName))
                .endsWith(QLatin1Char('\t') + nonAsciiText() + QLatin1Char('\n')));
}

void TestLogger::aLineIsInTheFileWhenLogReturns()
{
    for (int i = 0; i < 20; ++i) {
        const QString message = QStringLiteral("line %1").arg(i);
        Logger::getInstance().log(Logger::Information, Logger::Console, QStringLiteral("f"), 1,
                                  QStringLiteral("s"), message);
        QVERIFY(lastLine().endsWith(message));
    }
}

void TestLogger::aVeryLongMessageStandsInOneLine()
{
    const int before = readFile(m_workstation.runtimeLog()).count('\n');
    const QString message(3 * 1024 * 1024, QLatin1Char('m'));
    Logger::getInstance().log(Logger::Information, Logger::Console, QStringLiteral("f"), 1,
                              QStringLiteral("s"), message);
    QVERIFY(lastLine().endsWith(QLatin1String("\ts:1::f\t") + message));
    QCOMPARE(readFile(m_workstation.runtimeLog()).count('\n'), before + 1);
}

void TestLogger::threadsDoNotBreakEachOthersLines()
{
    const int before = readFile(m_workstation.runtimeLog()).count('\n');
    std::vector<std::unique_ptr<LoggingThread>> threads;
    for (int number = 0; number < 4; ++number)
        threads.push_back(std::make_unique<LoggingThread>(number));
    for (const auto &thread : threads)
        thread->start();
    for (const auto &thread : threads)
        QVERIFY(thread->wait(60000));

    static const QRegularExpression whole(QRegularExpression::anchoredPattern(
        QStringLiteral("DBG CV: [^\t]+\tthread:\\d+::run\t(\\w)\\1{99}")));
    const QStringList lines =
        QString::fromUtf8(readFile(m_workstation.runtimeLog())).split(QLatin1Char('\n')).mid(before);
    QCOMPARE(lines.size(), 4 * LoggingThread::kLines + 1);
    for (const QString &line : lines.mid(0, lines.size() - 1))
        QVERIFY2(whole.match(line).hasMatch(), qPrintable(line));
}

void TestLogger::sourceName_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QString>("name");

    const QString name = QStringLiteral("..\\..\\source\\Corvane\\views\\centralelement");
    QTest::newRow("a path of this machine begins at source")
        << QByteArray("/home/someone/corvane/source/Corvane/views/centralelement.cpp") << name;
    QTest::newRow("backslashes are taken as well")
        << QByteArray("C:\\build\\source\\Corvane\\views\\centralelement.cpp") << name;
    QTest::newRow("a relative path keeps its form")
        << QByteArray("../../source/Corvane/views/centralelement.cpp") << name;
    QTest::newRow("a folder whose name only ends in source is no beginning")
        << QByteArray("/opt/resource/part.cpp") << QStringLiteral("\\opt\\resource\\part");
    QTest::newRow("a dot in a folder's name is no ending")
        << QByteArray("/a.b/source/part") << QStringLiteral("..\\..\\source\\part");
}

void TestLogger::sourceName()
{
    QFETCH(QByteArray, path);
    QFETCH(QString, name);
    QCOMPARE(Logger::sourceName(path.constData()), name);
}

void TestLogger::startingTwiceLeavesOnlyTheSecondRunsLines()
{
    runChild({QStringLiteral("first run"), QStringLiteral("first run again")});
    QCOMPARE(readFile(m_childFolder + QLatin1Char('/') + kLogName).count('\n'), 2);
    runChild({QStringLiteral("second run")});
    const QByteArray log = readFile(m_childFolder + QLatin1Char('/') + kLogName);
    QCOMPARE(log.count('\n'), 1);
    QVERIFY(log.endsWith("\tsecond run\n"));
}

void TestLogger::anUnwritableTemporaryFolderSendsTheLinesToStandardOutput()
{
    m_childEnvironment.insert(QStringLiteral("TEMP"), m_childFolder + QStringLiteral("/missing"));
    const QList<QByteArray> lines = runChild({QStringLiteral("message")}).split('\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines[0].startsWith("ERR ??: "));
    QVERIFY(lines[0].endsWith("\t:0::Logger constructor\tError opening logfile! Logging to stdout!"));
    QVERIFY(lines[1].startsWith("INF CV: "));
    QVERIFY(lines[1].endsWith("\tfile:1::child\tmessage"));
    QVERIFY(lines[2].isEmpty());
    QVERIFY(!QFile::exists(m_childFolder + QStringLiteral("/logger_error.log")));
}

void TestLogger::withoutFileAndStandardOutputANoteIsLeftInTheCurrentDirectory()
{
    m_childEnvironment.insert(QStringLiteral("TEMP"), m_childFolder + QStringLiteral("/missing"));
    const QString note = m_childFolder + QStringLiteral("/logger_error.log");
    QCOMPARE(runChild({kCloseOutput, QStringLiteral("message")}), QByteArray());
    QCOMPARE(readFile(note), QByteArray("Could not open standard output!"));
    QCOMPARE(runChild({kCloseOutput, QStringLiteral("message")}), QByteArray());
    QCOMPARE(readFile(note), QByteArray("Could not open standard output!Could not open standard output!"));
}

void TestLogger::anUnsetTemporaryFolderMeansTheRootOfTheDrive()
{
    const QString name = QLatin1Char('/') + kLogName;
    const bool existed = QFile::exists(name);
    const QByteArray former = readFile(name);
    m_childEnvironment.remove(QStringLiteral("TEMP"));
    const QByteArray output = runChild({QStringLiteral("message")});
    const QByteArray log = readFile(name);
    if (existed)
        writeFile(name, former);
    else
        QFile::remove(name);

    // Without the right to write there, the line goes where it goes without a file.
    const QByteArray written = output.isEmpty() ? log : output;
    QVERIFY(written.endsWith("\tmessage\n"));
    QVERIFY(output.isEmpty() || output.contains("Error opening logfile! Logging to stdout!"));
    QVERIFY(!QFile::exists(m_childFolder + name));
}

void TestLogger::rotation_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<int>("copyCount");

    QTest::newRow("one byte below 0x40000000 bytes nothing is copied") << qint64(0x3fffffff) << 0;
    QTest::newRow("at exactly 0x40000000 bytes the log is copied") << qint64(0x40000000) << 1;
}

void TestLogger::rotation()
{
    QFETCH(qint64, size);
    QFETCH(int, copyCount);
    const QString log = m_childFolder + QLatin1Char('/') + kLogName;
    runChild({QStringLiteral("before"), kGrowTo + QString::number(size), QStringLiteral("after")});

    // The log goes on in the same file, which is neither cut nor begun anew.
    QCOMPARE(QFileInfo(log).size(), size);
    QCOMPARE(copies().size(), copyCount);
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("CORVANE_runtime\\.log\\.\\d{6}-\\d{6}")));
    for (const QString &copy : copies()) {
        QVERIFY2(form.match(copy).hasMatch(), qPrintable(copy));
        QFile file(m_childFolder + QLatin1Char('/') + copy);
        QCOMPARE(file.size(), size);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readLine().endsWith("\tbefore\n"));
        QVERIFY(file.readLine().endsWith("\tafter\n"));
    }
}

void TestLogger::aCopyThatFailsIsPassedOver()
{
    const QString log = m_childFolder + QLatin1Char('/') + kLogName;
    runChild({QStringLiteral("before"), kGrowTo + QString::number(Logger::kRotationSize), kOccupyCopies,
              QStringLiteral("after"), QStringLiteral("and after")});
    for (const QString &copy : copies())
        QCOMPARE(readFile(m_childFolder + QLatin1Char('/') + copy), QByteArray("taken"));
    QFile file(log);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readLine().endsWith("\tbefore\n"));
    QVERIFY(file.readLine().endsWith("\tafter\n"));
    QVERIFY(file.readLine().endsWith("\tand after\n"));
}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == kChildMode)
        return logAsChild(arguments.mid(2));
    TestLogger test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_logger.moc"
