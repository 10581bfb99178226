#include "Corvane/accesscontrol/storefixture.h"

#include "CommunicationAndData/settings/odbcconnection.h"
#include "support/messageboxes.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {

const QString kOther = QStringLiteral("somebody else");
const QString kDatabaseName = QStringLiteral("corvane_stores");
const QString kStoreKey = QStringLiteral("access.supportdb");

QString rowText(const QSqlQuery &query)
{
    QStringList columns;
    const QSqlRecord row = query.record();
    for (int i = 0; i < row.count(); ++i)
        columns.append(row.isNull(i) ? text("NULL") : row.value(i).toString());
    return columns.join(QLatin1Char('|'));
}

}  // namespace

UuidString idOf(int number)
{
    return QStringLiteral("%1").arg(number, UuidString::Length, 10, QLatin1Char('0'));
}

OperatorModel makeOperator(const UuidString &id, const QString &username, const QList<uint> &roles, uint type)
{
    return OperatorModel::create(id, text(""), username, roles, QStringList(), text("Yrjö"), text("Kalevi"),
                                 text("Äkäslompolo"), MappedStrings(), MappedStrings(), text("hash"),
                                 text("salt"), type);
}

Role makeRole(const QString &title, int rights, uint id)
{
    return Role::create(id, title, rights);
}

QList<QPair<const char *, QString>> difficultNames()
{
    return {{"quotes of all kinds", text("O'Brien \"Bob\" `x` ’y’")},
            {"marks of statements", text("%s ? :a @b $1 -- /* */ ; \\")},
            {"an injection", text("x'; DROP TABLE roles; --")},
            {"line breaks and tabs", text("one\ntwo\r\nthree\tfour")},
            {"right to left", text("דנה ‏محمد")},
            {"combining letters", text("A\u0308ka\u0308 e\u0301")},
            {"beyond the first plane", text("𠮷野家 🫁")},
            {"blanks at both ends", text("  two  ")},
            {"a percent and an underscore", text("100%_")},
            {"the words of a null", text("NULL")}};
}

void StoreFixture::initTestCase()
{
    HandlerFixture::initTestCase();
    for (const auto kind : {DatabaseServer::MariaDb, DatabaseServer::PostgreSql, DatabaseServer::Sqlite})
        m_servers.push_back(std::make_unique<DatabaseServer>(kind));
}

void StoreFixture::init()
{
    HandlerFixture::init();
    if (!QTest::currentDataTag())
        return;
    m_place = *static_cast<Place *>(QTest::qData("place", qMetaTypeId<Place>()));
    if (!isOffline() && !server().missing().isEmpty())
        QSKIP(qPrintable(server().missing()));
    QVERIFY(preparePlace());
    if (!isOffline())
        writeLocalCache(server().parameters(kDatabaseName));
    makeHandler();
    connect(m_handler.get(),
            SIGNAL(logAction(Actions::Action, Actions::ActionType, UuidString, QString, QString, QVariant)),
            this, SLOT(record(Actions::Action, Actions::ActionType, UuidString, QString, QString, QVariant)));
    connect(m_handler.get(), SIGNAL(logError(Actions::Action, ZephanError, QVariant)), this,
            SLOT(recordFailure(Actions::Action, ZephanError, QVariant)));
    QVERIFY(connectHandler());
    m_trail.clear();
}

void StoreFixture::cleanup()
{
    showTables();
    closeOther();
    HandlerFixture::cleanup();
}

void StoreFixture::addPlaceRows(const std::function<void(const QString &, Place)> &add)
{
    add(text("MariaDB"), Place::MariaDb);
    add(text("PostgreSQL"), Place::PostgreSql);
    add(text("SQLite behind ODBC"), Place::Sqlite);
    add(text("the encrypted file"), Place::OfflineFile);
}

void StoreFixture::addPlaces()
{
    QTest::addColumn<Place>("place");
    addPlaceRows([](const QString &place, Place where) { QTest::newRow(qPrintable(place)) << where; });
}

void StoreFixture::addPlacesAndNames()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<QString>("name");
    addPlaceRows([](const QString &place, Place where) {
        for (const auto &name : difficultNames())
            QTest::newRow(qPrintable(place + text(": ") + text(name.first))) << where << name.second;
    });
}

bool StoreFixture::connectHandler()
{
    MessageBoxes boxes;
    m_handler->setOfflineAllowed(true);
    DialogSteps steps({[this](QDialog &dialog) {
        if (isOffline()) {
            chooseOffline(m_workstation.path(text("offline")))(dialog);
        } else {
            find<QLineEdit>(dialog, "username_edit")->setText(server().admin());
            find<QLineEdit>(dialog, "password_edit")->setText(server().adminPassword());
        }
        pressConnect(dialog);
    }});
    m_handler->connectionOptions();
    return m_handler->isConnected();
}

QStringList StoreFixture::elsewhere(const QString &statement, const QVariantList &values)
{
    if (!openOther())
        return {text("no connection")};
    QSqlQuery query(QSqlDatabase::database(kOther));
    query.setForwardOnly(true);
    bool done = query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    done = done && query.exec();
    if (!done)
        return {query.lastError().text()};
    QStringList rows;
    while (query.isSelect() && query.next())
        rows.append(rowText(query));
    return rows;
}

bool StoreFixture::hideTable(const QString &table)
{
    m_hidden.append(table);
    const QStringList failures = elsewhere(QStringLiteral("ALTER TABLE %1 RENAME TO hidden_%1").arg(table));
    closeOther();
    return failures.isEmpty();
}

bool StoreFixture::showTables()
{
    QStringList failures;
    for (const QString &table : qAsConst(m_hidden)) {
        // Whoever opens the encrypted file makes what is missing.
        if (isOffline())
            failures += elsewhere(text("DROP TABLE ") + table);
        failures += elsewhere(QStringLiteral("ALTER TABLE hidden_%1 RENAME TO %1").arg(table));
    }
    m_hidden.clear();
    closeOther();
    return failures.isEmpty();
}

bool StoreFixture::endConnection()
{
    const QString statement =
        m_place == Place::MariaDb
            ? text("SELECT id FROM information_schema.processlist WHERE db = '%1' AND id <> "
                   "connection_id()")
            : text("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = '%1' AND pid <> "
                   "pg_backend_pid()");
    const QStringList rows = elsewhere(statement.arg(kDatabaseName));
    if (m_place == Place::MariaDb) {
        for (const QString &id : rows)
            elsewhere(text("KILL HARD ") + id);
    }
    return rows.size() == 1;
}

uint StoreFixture::roleId(const QString &title)
{
    return elsewhere(text("SELECT role_id FROM roles WHERE title = ?"), {title}).value(0).toUInt();
}

QStringList StoreFixture::trail()
{
    QStringList lines;
    lines.swap(m_trail);
    return lines;
}

QStringList StoreFixture::trailWithoutCauses()
{
    QStringList lines = trail();
    for (QString &line : lines) {
        for (const char *mark : {" :", "; Error:", " ErrorInfo:"}) {
            const int cause = line.indexOf(text(mark));
            if (line.startsWith(text("failed ")) && cause >= 0)
                line.truncate(cause + text(mark).size());
        }
    }
    return lines;
}

DatabaseServer &StoreFixture::server()
{
    return *m_servers.at(static_cast<size_t>(m_place));
}

/// Starting and stopping of the connection itself has tests of its own.
void StoreFixture::record(Actions::Action action, Actions::ActionType type, UuidString id, QString key,
                          QString database, QVariant info)
{
    if (action == Actions::Started || action == Actions::Stopping)
        return;
    QString line = QStringLiteral("%1 %2 ").arg(Actions::name(action),
                                                type == Actions::Human ? text("Human") : text("Automatic"));
    if (!id.isNull())
        line += id.toString();
    line += text(": ") + info.toString();
    if (key != kStoreKey || database != m_handler->database()->databaseName())
        line += QStringLiteral(" [%1 on %2]").arg(key, database);
    m_trail.append(line);
}

void StoreFixture::recordFailure(Actions::Action action, ZephanError code, QVariant data)
{
    m_trail.append(QStringLiteral("failed %1 %2: %3")
                       .arg(Actions::name(action), QString::number(code, 16), data.toString()));
}

bool StoreFixture::preparePlace()
{
    if (isOffline())
        return QDir(m_workstation.path(text("offline"))).removeRecursively();
    if (m_prepared.contains(int(m_place)))
        return emptyTables();
    if (!server().makeDatabase(kDatabaseName, {text("access")})) {
        qWarning("%s", qPrintable(server().errorText()));
        return false;
    }
    m_prepared.insert(int(m_place));
    return true;
}

bool StoreFixture::emptyTables()
{
    // In one transaction, which is much faster than one a statement.
    if (!openOther() || !QSqlDatabase::database(kOther).transaction())
        return false;
    QStringList failures;
    for (const char *table : {"operator_roles", "operator", "organization", "department", "roles"})
        failures += elsewhere(text("DELETE FROM ") + text(table));
    for (const char *role : {"('Nurse', 3633152, 0)", "('Doctor', 331776, 0)", "('Admin', 4190263, 0)"})
        failures += elsewhere(text("INSERT INTO roles (title, actions, deleted) VALUES ") + text(role));
    const bool done = QSqlDatabase::database(kOther).commit();
    closeOther();
    for (const QString &failure : qAsConst(failures))
        qWarning("%s", qPrintable(failure));
    return done && failures.isEmpty();
}

bool StoreFixture::openOther()
{
    if (QSqlDatabase::contains(kOther))
        return true;
    if (isOffline()) {
        m_otherFile = std::make_unique<AccessControlOffline>(kOther);
        QString error;
        return m_otherFile->openOfflineDatabase(m_workstation.path(text("offline")), error);
    }
    QSqlDatabase other = QSqlDatabase::addDatabase(text(OdbcConnection::kDriver), kOther);
    other.setDatabaseName(OdbcConnection::databaseName(server().parameters(kDatabaseName)));
    return OdbcConnection::open(other, OdbcConnection::defaultConnectOptions(), server().admin(),
                                server().adminPassword());
}

void StoreFixture::closeOther()
{
    m_otherFile.reset();
    if (QSqlDatabase::contains(kOther))
        QSqlDatabase::removeDatabase(kOther);
}
