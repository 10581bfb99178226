#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "support/workstation.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>

namespace {

constexpr int kPatience = 120000;  // milliseconds
constexpr int kEvents = 50000;
constexpr int kInterruptions = 5;

}  // namespace

/// The program that prepares the demonstration workstation, as its own process.
class TestDemoWorkstation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void everythingIsThereAfterTheFirstStart();
    void whatIsThereStays();
    void preparationThatWasInterruptedIsFinishedByTheNextStart();
    void whatCannotBeMadeIsTold();

private:
    QString data() const;
    QString settings() const;
    std::unique_ptr<QProcess> start() const;
    bool prepare() const;
    QStringList files() const;
    int count(const QString &file, bool isKeyed, const QString &table) const;
    void checkContent() const;

    Workstation m_workstation;
    std::unique_ptr<QTemporaryDir> m_folder;
    qint64 m_duration = 0;  // of an undisturbed preparation, in milliseconds
};

void TestDemoWorkstation::initTestCase()
{
    QVERIFY(QFile::exists(QCoreApplication::applicationDirPath() + "/demoworkstation"));
}

void TestDemoWorkstation::init()
{
    m_folder = std::make_unique<QTemporaryDir>(m_workstation.path(QString::fromUtf8("demo of zoë-XXXXXX")));
    QVERIFY(m_folder->isValid());
}

QString TestDemoWorkstation::data() const
{
    return m_folder->filePath("ProgramData/Halvorn");
}

QString TestDemoWorkstation::settings() const
{
    return m_folder->filePath("config/Halvorn.ini");
}

std::unique_ptr<QProcess> TestDemoWorkstation::start() const
{
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->start(QCoreApplication::applicationDirPath() + "/demoworkstation",
                   {data(), settings(), "1.2.3"});
    return process;
}

bool TestDemoWorkstation::prepare() const
{
    const auto process = start();
    return process->waitForFinished(kPatience) && process->exitStatus() == QProcess::NormalExit &&
           process->exitCode() == 0;
}

/// All files, by their paths in the folder, in the alphabet's order.
QStringList TestDemoWorkstation::files() const
{
    QStringList names;
    QDirIterator all(m_folder->path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext())
        names.append(QDir(m_folder->path()).relativeFilePath(all.next()));
    names.sort();
    return names;
}

int TestDemoWorkstation::count(const QString &file, bool isKeyed, const QString &table) const
{
    int rows = -1;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), "count");
        database.setDatabaseName(data() + QLatin1Char('/') + file);
        database.setConnectOptions("QSQLITE_OPEN_READONLY");
        database.open();
        if (isKeyed) {
            for (const QString &statement : databaseKeyStatements())
                QSqlQuery(statement, database);
        }
        QSqlQuery query("SELECT count(*) FROM " + table, database);
        if (query.next())
            rows = query.value(0).toInt();
    }
    QSqlDatabase::removeDatabase("count");
    return rows;
}

void TestDemoWorkstation::checkContent() const
{
    QCOMPARE(files(), (QStringList{"ProgramData/Halvorn/CorvaneActions/actionlog.db",
                                   "ProgramData/Halvorn/Databases/offline.access.db",
                                   "ProgramData/Halvorn/local_cache", "ProgramData/Halvorn/site.db",
                                   "ProgramData/Halvorn/version", "config/Halvorn.ini"}));
    QCOMPARE(readFile(data() + "/version"), QByteArray("1.2.3"));
    QCOMPARE(count("CorvaneActions/actionlog.db", true, "action_log"), kEvents);
    const int operators = count("site.db", false, "operator");
    QVERIFY(operators >= 6);
    QCOMPARE(count("site.db", false, "operator_roles"), operators);
    QCOMPARE(count("Databases/offline.access.db", true, "operator"), operators);
    QCOMPARE(count("Databases/offline.access.db", true, "operator_roles"), operators);
    SettingsHandler *store = SettingsHandler::getInstance();
    store->changeSettingsFile(settings());
    QCOMPARE(store->value(SettingsKeys::kHisDefaultFilter).toString(), QString("SpiroXML2 (*.xml)"));
    QCOMPARE(store->safeValue("supportdb/username").toString(), QString("halvorn_app"));
    store->changeSettingsFile(m_workstation.path("unused.ini"));
}

void TestDemoWorkstation::everythingIsThereAfterTheFirstStart()
{
    QElapsedTimer timer;
    timer.start();
    QVERIFY(prepare());
    m_duration = timer.elapsed();
    checkContent();
}

void TestDemoWorkstation::whatIsThereStays()
{
    QVERIFY(prepare());
    QVERIFY(writeFile(settings(), "[application]\nlanguage=fi\n"));
    QMap<QString, QByteArray> before;
    for (const QString &file : files())
        before.insert(file, readFile(m_folder->filePath(file)));
    QVERIFY(prepare());
    QCOMPARE(files(), before.keys());
    for (auto file = before.cbegin(); file != before.cend(); ++file)
        QVERIFY2(readFile(m_folder->filePath(file.key())) == file.value(), qPrintable(file.key()));
}

void TestDemoWorkstation::preparationThatWasInterruptedIsFinishedByTheNextStart()
{
    QVERIFY(m_duration > 0);
    for (int i = 1; i <= kInterruptions; ++i) {
        const auto process = start();
        if (!process->waitForFinished(static_cast<int>(m_duration * i / (kInterruptions + 1)))) {
            process->kill();
            QVERIFY(process->waitForFinished(kPatience));
        }
    }
    QVERIFY(prepare());
    checkContent();
}

void TestDemoWorkstation::whatCannotBeMadeIsTold()
{
    QVERIFY(writeFile(data() + "/Databases", "a file where the folder should be"));
    const auto process = start();
    QVERIFY(process->waitForFinished(kPatience));
    QCOMPARE(process->exitCode(), 1);
    const QString text = QString::fromUtf8(process->readAll());
    QVERIFY2(text.startsWith("The site's databases cannot be made: ") && text.contains("offline.access.db"),
             qPrintable(text));
}

QTEST_GUILESS_MAIN(TestDemoWorkstation)
#include "test_demoworkstation.moc"
