#include "sqlfixture.h"

#include "CommunicationAndData/sqlcipher/databasekey.h"

#include <QDir>
#include <QFileInfo>
#include <QMutex>
#include <QSqlError>

namespace {

QMutex g_mutex;
QStringList g_warnings;
QtMessageHandler g_previousHandler = nullptr;

void catchWarning(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        const QMutexLocker locker(&g_mutex);
        g_warnings.append(message);
    } else {
        g_previousHandler(type, context, message);
    }
}

/// A folder in memory where there is one: each commit waits for the disk otherwise.
QString folderTemplate()
{
    const QString memory = QStringLiteral("/dev/shm");
    const QString parent = QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
    return parent + QStringLiteral("/corvane-sql-XXXXXX");
}

}  // namespace

SqlFixture::SqlFixture()
    : m_folder(folderTemplate())
{
    if (!m_folder.isValid())
        qFatal("No temporary folder: %s", qPrintable(m_folder.errorString()));
}

SqlFixture::~SqlFixture()
{
    removeConnections();
}

QString SqlFixture::path(const QString &name) const
{
    return m_folder.filePath(name);
}

QSqlDatabase SqlFixture::open(const Connection &connection)
{
    const QString driver = connection.driver.isEmpty() ? QLatin1String(kEncryptedDriver) : connection.driver;
    const QString name =
        connection.name.isEmpty() ? QStringLiteral("connection %1").arg(++m_connections) : connection.name;
    QSqlDatabase database = QSqlDatabase::addDatabase(driver, name);
    const bool isFile =
        !connection.file.startsWith(QLatin1Char(':')) && !connection.file.startsWith(QLatin1String("file:"));
    database.setDatabaseName(isFile ? path(connection.file) : connection.file);
    database.setConnectOptions(connection.options);
    if (database.open() != connection.isOpened)
        qFatal("%s: %s", qPrintable(connection.file), qPrintable(database.lastError().text()));
    if (connection.isOpened && connection.isKeyed)
        run(database, databaseKeyStatements());
    return database;
}

QVariant SqlFixture::value(const QSqlDatabase &database, const QString &statement)
{
    QSqlQuery query(database);
    if (!query.exec(statement))
        qWarning("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
    return query.next() ? query.value(0) : QVariant();
}

QStringList SqlFixture::column(const QSqlDatabase &database, const QString &statement)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(statement))
        qWarning("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
    QStringList values;
    while (query.next())
        values.append(query.value(0).toString());
    return values;
}

int SqlFixture::errorOf(const QSqlDatabase &database, const QString &statement)
{
    QSqlQuery query(database);
    query.exec(statement);
    return query.lastError().nativeErrorCode().toInt();
}

void SqlFixture::run(const QSqlDatabase &database, const QStringList &statements)
{
    for (const QString &statement : statements)
        run(database, statement);
}

void SqlFixture::run(const QSqlDatabase &database, const QString &statement)
{
    QSqlQuery query(database);
    if (!query.exec(statement))
        qFatal("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
}

void SqlFixture::removeConnections()
{
    const QStringList names = QSqlDatabase::connectionNames();
    for (const QString &name : names)
        QSqlDatabase::removeDatabase(name);
}

WarningCatcher::WarningCatcher()
{
    g_warnings.clear();
    g_previousHandler = qInstallMessageHandler(catchWarning);
}

WarningCatcher::~WarningCatcher()
{
    qInstallMessageHandler(g_previousHandler);
}

QStringList WarningCatcher::warnings() const
{
    const QMutexLocker locker(&g_mutex);
    return g_warnings;
}
