#include "servers/serverfixture.h"

#include "CommunicationAndData/access/accesscontrol.h"
#include "CommunicationAndData/access/passwordhelper.h"
#include "support/messageboxes.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSqlQuery>
#include <QTimer>

const QString kDatabase = QStringLiteral("corvane");
const QString kEmptyDatabase = QStringLiteral("corvane_empty");
const QString kConsole = QStringLiteral("konsoli");
const QString kApplication = QStringLiteral("sovellus");
const QString kAuditor = QStringLiteral("tarkastaja");
const QString kPassword = QString::fromUtf8("a;b=c}d {e\"f'g]h");

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

bool insertRow(const QSqlDatabase &database, const QString &table, const QVariantMap &values)
{
    QStringList marks;
    for (int i = 0; i < values.size(); ++i)
        marks.append(QStringLiteral("?"));
    QSqlQuery query(database);
    query.prepare(
        QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(table, QStringList(values.keys()).join(QLatin1Char(',')), marks.join(QLatin1String(", "))));
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        qWarning("%s", qPrintable(query.lastError().text()));
    return query.isActive();
}

QVariantMap operatorRow(const QString &id, const QString &username, uint type, const QString &password)
{
    const QString salt = password.isEmpty() ? QString() : PasswordHelper::generateSalt(16);
    return {{text("operator_id"), UuidString(id).toString()},
            {text("username"), username},
            {text("first_name"), text("Yrjö")},
            {text("last_name"), text("Äkäslompolo")},
            {text("middle_name"), text("")},
            {text("organization_id"), QVariant(QVariant::String)},
            {text("department_id"), QVariant(QVariant::String)},
            {text("user_id"), text("")},
            {text("password"), password.isEmpty() ? text("") : PasswordHelper::hashPassword(password, salt)},
            {text("salt"), salt.isEmpty() ? text("") : salt},
            {text("date_updated"), text("2026-02-28 23:59:59")},
            {text("deleted"), 0},
            {text("operator_type"), type}};
}

QString idOf(int number)
{
    return QStringLiteral("%1").arg(number, UuidString::Length, 10, QLatin1Char('0'));
}

void ServerFixture::initTestCase()
{
    qRegisterMetaType<ZephanError>("ZephanError");
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation.dataDirectory() + text("corvane.ini"));
    for (const auto kind : {DatabaseServer::MariaDb, DatabaseServer::PostgreSql, DatabaseServer::Sqlite})
        m_servers.push_back(std::make_unique<DatabaseServer>(kind));
}

/// Every test is run on each server; its databases and accounts are made when the first test needs them.
void ServerFixture::init()
{
    m_warnings = std::make_unique<QtWarnings>();
    if (!QTest::currentDataTag())
        return;
    m_kind =
        *static_cast<DatabaseServer::Kind *>(QTest::qData("server", qMetaTypeId<DatabaseServer::Kind>()));
    if (!server().missing().isEmpty())
        QSKIP(qPrintable(server().missing()));
    QVERIFY2(prepare(), qPrintable(server().errorText()));
}

void ServerFixture::cleanup()
{
    m_errors.reset();
    m_handler.reset();
    QFile::remove(m_workstation.dataDirectory() + text("local_cache"));
    for (const QString &warning : m_warnings->seen())
        QVERIFY2(!warning.startsWith(text("QSqlDatabase")), qPrintable(warning));
}

void ServerFixture::addServers() const
{
    QTest::addColumn<DatabaseServer::Kind>("server");
    QTest::newRow("MariaDB") << DatabaseServer::MariaDb;
    QTest::newRow("PostgreSQL") << DatabaseServer::PostgreSql;
    QTest::newRow("SQLite") << DatabaseServer::Sqlite;
}

/// An SQLite file has no accounts, and no connection that could be lost.
void ServerFixture::addServersProper() const
{
    QTest::addColumn<DatabaseServer::Kind>("server");
    QTest::newRow("MariaDB") << DatabaseServer::MariaDb;
    QTest::newRow("PostgreSQL") << DatabaseServer::PostgreSql;
}

bool ServerFixture::prepare()
{
    if (m_prepared.contains(m_kind))
        return true;
    QStringList scripts{text("access"), text("action_log"), text("configurations")};
    if (m_kind != DatabaseServer::Sqlite)
        scripts.append(text("grants"));
    const bool made = server().makeDatabase(kDatabase, scripts) &&
                      server().makeDatabase(kEmptyDatabase, {}) &&
                      server().makeAccount(kDatabase, kConsole, kPassword, text("corvane_console")) &&
                      server().makeAccount(kDatabase, kApplication, kPassword, text("corvane_application")) &&
                      server().makeAccount(kDatabase, kAuditor, kPassword, text("corvane_auditor"));
    if (made)
        m_prepared.insert(m_kind);
    return made;
}

/// Starts the program's handler with the parameters of a former run and signs in by its options dialog.
bool ServerFixture::connectAs(const QString &account, const QString &password, const QVariantMap &params)
{
    m_handler.reset();
    {
        const auto cache = openSettingsFile(m_workstation.dataDirectory() + text("local_cache"));
        cache->beginGroup(text("supportdb_online"));
        OdbcConnection::writeParameters(*cache, params.isEmpty() ? server().parameters(kDatabase) : params);
        cache->setValue(text("connectoptions"), OdbcConnection::defaultConnectOptions());
    }
    m_handler = std::make_unique<SupportConnectionHandler>(m_workstation.dataDirectory(), nullptr);
    m_errors = std::make_unique<QSignalSpy>(m_handler.get(),
                                            SIGNAL(logError(Actions::Action, ZephanError, QVariant)));
    QTimer timer;
    connect(&timer, &QTimer::timeout, m_handler.get(), [&] {
        if (QApplication::activeModalWidget() != m_handler.get() || !m_handler->isVisible())
            return;
        timer.stop();
        m_handler->findChild<QLineEdit *>(text("username_edit"))->setText(account);
        m_handler->findChild<QLineEdit *>(text("password_edit"))->setText(password);
        QTest::mouseClick(m_handler->findChild<QPushButton *>(text("connect_button")), Qt::LeftButton);
    });
    timer.start(10);
    MessageBoxes boxes;
    m_handler->connectionOptions();
    return m_handler->isConnected();
}

/// The first column of a query's rows; the error's text alone when it fails.
QStringList ServerFixture::column(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        return {query.lastError().text()};
    QStringList list;
    while (query.next())
        list.append(query.value(0).toString());
    return list;
}

bool ServerFixture::isUnderstood(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(database());
    query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        qWarning("%s", qPrintable(query.lastError().text()));
    return query.isActive();
}

QString ServerFixture::roleId(const QString &title)
{
    return column(text("SELECT role_id FROM roles WHERE title = ?"), {title}).value(0);
}

/// Signs in and waits for the answer.
uint ServerFixture::signIn(const QString &method, const QString &user, const QString &password, int &rights)
{
    AccessControl access(nullptr, method, m_handler->database(), SqlStorage::UnknownType);
    QSignalSpy results(&access, SIGNAL(loginResult(uint, QVariant, QString)));
    access.login(user, password);
    if (results.isEmpty() && !results.wait())
        return 1;
    rights = access.allowedAccessTypes();
    return results.first().first().toUInt();
}
