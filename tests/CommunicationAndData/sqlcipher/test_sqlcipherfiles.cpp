#include "CommunicationAndData/sqlcipher/databasekey.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

/// Encrypted files: what the driver writes, the SQLCipher shell reads, and the reverse.
class TestSqlCipherFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void shellReadsWhatTheDriverWrote();
    void driverReadsWhatTheShellWrote();

private:
    QSqlDatabase openKeyed(const QString &path);
    QString runShell(const QString &path, const QString &statements);

    QTemporaryDir m_folder;
};

void TestSqlCipherFiles::init()
{
    QVERIFY(m_folder.isValid());
}

void TestSqlCipherFiles::cleanup()
{
    const QStringList names = QSqlDatabase::connectionNames();
    for (const QString &name : names)
        QSqlDatabase::removeDatabase(name);
}

QSqlDatabase TestSqlCipherFiles::openKeyed(const QString &path)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver));
    database.setDatabaseName(path);
    if (!database.open())
        return database;
    const QStringList statements = databaseKeyStatements();
    for (const QString &statement : statements)
        QSqlQuery(database).exec(statement);
    return database;
}

QString TestSqlCipherFiles::runShell(const QString &path, const QString &statements)
{
    QProcess shell;
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.start(QStringLiteral("sqlcipher"), {path});
    shell.write((databaseKeyStatements().join(QLatin1Char('\n')) + QLatin1Char('\n') + statements).toUtf8());
    shell.closeWriteChannel();
    shell.waitForFinished();
    return QString::fromUtf8(shell.readAll());
}

void TestSqlCipherFiles::shellReadsWhatTheDriverWrote()
{
    const QString path = m_folder.filePath(QStringLiteral("driver.db"));
    {
        QSqlDatabase database = openKeyed(path);
        QSqlQuery query(database);
        QVERIFY2(query.exec(QStringLiteral("CREATE TABLE t (a TEXT)")), qPrintable(query.lastError().text()));
        QVERIFY(query.prepare(QStringLiteral("INSERT INTO t VALUES (?)")));
        query.addBindValue(QStringLiteral("Zoë"));
        QVERIFY2(query.exec(), qPrintable(query.lastError().text()));
    }
    const QString answer = runShell(path, QStringLiteral("SELECT a FROM t;"));
    QVERIFY2(answer.contains(QStringLiteral("Zoë")), qPrintable(answer));
}

void TestSqlCipherFiles::driverReadsWhatTheShellWrote()
{
    const QString path = m_folder.filePath(QStringLiteral("shell.db"));
    runShell(path, QStringLiteral("CREATE TABLE t (a TEXT); INSERT INTO t VALUES ('Zoë');"));
    QSqlDatabase database = openKeyed(path);
    QSqlQuery query(database);
    QVERIFY2(query.exec(QStringLiteral("SELECT a FROM t")), qPrintable(query.lastError().text()));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toString(), QStringLiteral("Zoë"));
    QVERIFY(!query.next());
    QVERIFY(query.previous());
}

QTEST_GUILESS_MAIN(TestSqlCipherFiles)
#include "test_sqlcipherfiles.moc"
