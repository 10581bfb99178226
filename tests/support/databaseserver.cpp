#include "support/databaseserver.h"

#include <QFile>
#include <QProcess>

namespace {

constexpr int kClientTime = 30000;  // milliseconds

/// A text as SQL writes it.
QString quoted(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1String("'"), QLatin1String("''")) + QLatin1Char('\'');
}

QString stateFile(const char *name)
{
    return QStringLiteral(CORVANE_SERVER_STATE "/%1.ini").arg(QLatin1String(name));
}

}  // namespace

DatabaseServer::DatabaseServer(Kind kind)
    : m_kind(kind)
{
    readState();
}

/// Reads what the start of the server has left behind, one `name=value` a line.
void DatabaseServer::readState()
{
    if (m_kind == Sqlite) {
        m_state.insert(QStringLiteral("driver"), QStringLiteral("SQLite3"));
        return;
    }
    QFile file(stateFile(m_kind == MariaDb ? "mariadb" : "postgresql"));
    if (!file.open(QIODevice::ReadOnly)) {
        m_state.insert(QStringLiteral("missing"), QStringLiteral("The server runs only while CTest does"));
        return;
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines)
        m_state.insert(line.section(QLatin1Char('='), 0, 0), line.section(QLatin1Char('='), 1));
}

QString DatabaseServer::missing() const
{
    return m_state.value(QStringLiteral("missing"));
}

bool DatabaseServer::makeDatabase(const QString &database, const QStringList &scripts)
{
    bool done = true;
    if (m_kind == MariaDb) {
        done = run(QString(), QStringLiteral("DROP DATABASE IF EXISTS %1; CREATE DATABASE %1 "
                                             "CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;")
                                  .arg(database));
    } else if (m_kind == PostgreSql) {
        done = run(QStringLiteral("postgres"),
                   QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE);\n"
                                  "CREATE DATABASE %1 ENCODING 'UTF8' TEMPLATE template0;")
                       .arg(database));
    } else {
        QFile::remove(m_files.filePath(database));
    }
    for (const QString &script : scripts)
        done = done && runScript(database, script);
    return done;
}

bool DatabaseServer::run(const QString &database, const QString &sql)
{
    return runClient(database, sql.toUtf8());
}

bool DatabaseServer::runScript(const QString &database, const QString &script)
{
    QFile file(sqlFolder() + QLatin1Char('/') + script + QStringLiteral(".sql"));
    return file.open(QIODevice::ReadOnly) && runClient(database, file.readAll());
}

bool DatabaseServer::makeAccount(const QString &database, const QString &name, const QString &password,
                                 const QString &role)
{
    switch (m_kind) {
    case MariaDb:
        return run(database, QStringLiteral("CREATE OR REPLACE USER %1@'127.0.0.1' IDENTIFIED BY %2;"
                                            "CREATE OR REPLACE USER %1@'localhost' IDENTIFIED BY %2;"
                                            "GRANT %3 TO %1@'127.0.0.1', %1@'localhost';"
                                            "SET DEFAULT ROLE %3 FOR %1@'127.0.0.1';"
                                            "SET DEFAULT ROLE %3 FOR %1@'localhost';")
                                 .arg(quoted(name), quoted(password), role));
    case PostgreSql:
        return run(database,
                   QStringLiteral("DROP ROLE IF EXISTS \"%1\"; CREATE ROLE \"%1\" LOGIN PASSWORD %2; "
                                  "GRANT %3 TO \"%1\";")
                       .arg(name, quoted(password), role));
    case Sqlite:
        break;
    }
    return true;
}

bool DatabaseServer::runShell(const QString &commands)
{
    const QString port = m_state.value(QStringLiteral("port"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("MYSQL_PWD"), adminPassword());
    environment.insert(QStringLiteral("PGPASSWORD"), adminPassword());
    environment.insert(QStringLiteral("PGHOST"), QStringLiteral("127.0.0.1"));
    environment.insert(QStringLiteral("PGPORT"), port);
    environment.insert(QStringLiteral("PGUSER"), admin());
    QProcess shell;
    shell.setProcessEnvironment(environment);
    shell.setWorkingDirectory(QStringLiteral(CORVANE_SOURCE_FOLDER));
    shell.setProgram(QStringLiteral("bash"));
    const QString prologue =
        QStringLiteral("set -e\n"
                       "mariadb() { command mariadb --no-defaults --protocol=tcp --host=127.0.0.1 "
                       "--port=%1 --user=%2 --default-character-set=utf8mb4 \"$@\"; }\n"
                       "psql() { command psql --no-psqlrc --quiet --set=ON_ERROR_STOP=1 \"$@\"; }\n")
            .arg(port, admin());
    shell.setArguments({QStringLiteral("-c"), prologue + commands});
    return run(shell, QByteArray());
}

bool DatabaseServer::endConnections(const QString &account)
{
    if (m_kind == MariaDb)
        return run(QString(), QStringLiteral("KILL HARD USER %1").arg(quoted(account)));
    if (m_kind == PostgreSql)
        return run(QStringLiteral("postgres"),
                   QStringLiteral("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename = %1")
                       .arg(quoted(account)));
    return false;
}

QVariantMap DatabaseServer::parameters(const QString &database) const
{
    const QString driver = m_state.value(QStringLiteral("driver"));
    if (m_kind == Sqlite)
        return {{QStringLiteral("Driver"), driver}, {QStringLiteral("Database"), m_files.filePath(database)}};
    return {{QStringLiteral("Driver"), driver},
            {QStringLiteral("Server"), QStringLiteral("127.0.0.1")},
            {QStringLiteral("Port"), m_state.value(QStringLiteral("port"))},
            {QStringLiteral("Database"), database}};
}

QString DatabaseServer::sqlFolder() const
{
    const char *const folders[] = {"mysql", "postgresql", "sqlite"};
    return QStringLiteral(CORVANE_SOURCE_FOLDER "/resources/sql/") + QLatin1String(folders[m_kind]);
}

bool DatabaseServer::runClient(const QString &database, const QByteArray &sql)
{
    const QString port = m_state.value(QStringLiteral("port"));
    QProcess client;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (m_kind == MariaDb) {
        environment.insert(QStringLiteral("MYSQL_PWD"), adminPassword());
        client.setProgram(QStringLiteral("mariadb"));
        client.setArguments({QStringLiteral("--no-defaults"), QStringLiteral("--protocol=tcp"),
                             QStringLiteral("--host=127.0.0.1"), QStringLiteral("--port=") + port,
                             QStringLiteral("--user=") + admin(),
                             QStringLiteral("--default-character-set=utf8mb4"), database});
    } else if (m_kind == PostgreSql) {
        environment.insert(QStringLiteral("PGPASSWORD"), adminPassword());
        environment.insert(QStringLiteral("PGCLIENTENCODING"), QStringLiteral("UTF8"));
        client.setProgram(QStringLiteral("psql"));
        client.setArguments({QStringLiteral("--no-psqlrc"), QStringLiteral("--quiet"),
                             QStringLiteral("--host=127.0.0.1"), QStringLiteral("--port=") + port,
                             QStringLiteral("--username=") + admin(), QStringLiteral("--dbname=") + database,
                             QStringLiteral("--set=ON_ERROR_STOP=1")});
    } else {
        client.setProgram(QStringLiteral("sqlite3"));
        client.setArguments({QStringLiteral("-bail"), m_files.filePath(database)});
    }
    client.setProcessEnvironment(environment);
    return run(client, sql);
}

bool DatabaseServer::run(QProcess &client, const QByteArray &input)
{
    client.start();
    client.write(input);
    client.closeWriteChannel();
    const bool ended = client.waitForFinished(kClientTime);
    m_errorText = ended ? QString::fromUtf8(client.readAllStandardError()) : client.errorString();
    return ended && client.exitStatus() == QProcess::NormalExit && client.exitCode() == 0;
}
