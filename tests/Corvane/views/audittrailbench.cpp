#include "audittrailbench.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"

#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QSettings>
#include <QSqlQuery>
#include <QTest>
#include <QToolButton>
#include <QUuid>

AuditTrailBench::AuditTrailBench()
{
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation.dataDirectory() +
                                                       QLatin1String(kSettingsFileName));
    const auto cache = openSettingsFile(localCache());
    cache->setValue(QStringLiteral("actiondb_online/online_mode"), false);
    cache->setValue(QStringLiteral("actiondb_offline/location"), log());
}

AuditTrailBench::~AuditTrailBench() = default;

QString AuditTrailBench::log() const
{
    return path(QStringLiteral("actionlog.db"));
}

QString AuditTrailBench::path(const QString &name) const
{
    return m_workstation.path(name);
}

QString AuditTrailBench::localCache() const
{
    return m_workstation.dataDirectory() + QLatin1String(LocalCache::kFileName);
}

void AuditTrailBench::useOnline(const QString &path) const
{
    const auto cache = openSettingsFile(localCache());
    cache->setValue(QStringLiteral("actiondb_online/online_mode"), true);
    cache->setValue(QStringLiteral("actiondb_online/params/size"), 2);
    cache->setValue(QStringLiteral("actiondb_online/params/1/key"), QStringLiteral("Database"));
    cache->setValue(QStringLiteral("actiondb_online/params/1/value"), path);
    cache->setValue(QStringLiteral("actiondb_online/params/2/key"), QStringLiteral("Driver"));
    cache->setValue(QStringLiteral("actiondb_online/params/2/value"), QStringLiteral("SQLite3"));
}

void AuditTrailBench::openView()
{
    m_view = std::make_unique<AuditTrailView>(m_workstation.dataDirectory());
    m_actions = std::make_unique<QSignalSpy>(m_view.get(), &AuditTrailView::logAction);
    m_errors = std::make_unique<QSignalSpy>(m_view.get(), &AuditTrailView::logError);
    m_view->resize(900, 600);
    m_view->show();
    QApplication::setActiveWindow(m_view.get());
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
}

void AuditTrailBench::closeView()
{
    m_view.reset();
}

void AuditTrailBench::connectOffline()
{
    makeEncryptedLog(log());
    openView();
    clickConnect();
    QCOMPARE(rows(), 5);
}

void AuditTrailBench::clickConnect() const
{
    QTest::mouseClick(find<QToolButton>("audit_connect_button"), Qt::LeftButton);
}

QTableView *AuditTrailBench::table() const
{
    return find<QTableView>("audit_table");
}

int AuditTrailBench::rows() const
{
    return table()->model() ? table()->model()->rowCount() : -1;
}

QString AuditTrailBench::cell(int row, int column) const
{
    return table()->model()->index(row, column).data().toString();
}

QAction *AuditTrailBench::disconnectAction() const
{
    return find<QToolButton>("audit_connect_button")->menu()->actions().last();
}

void AuditTrailBench::filterBy(const char *field, const QString &text) const
{
    auto *edit = find<QLineEdit>(field);
    edit->setText(text);
    QTest::keyClick(edit, Qt::Key_Return);
}

LogMaker::LogMaker(const QString &driver, const QString &databaseName)
    : m_name(QUuid::createUuid().toString())
{
    QSqlDatabase log = QSqlDatabase::addDatabase(driver, m_name);
    log.setDatabaseName(databaseName);
    if (!log.open() || driver != QLatin1String(kEncryptedDriver))
        return;
    for (const QString &statement : databaseKeyStatements())
        run(statement);
}

LogMaker::~LogMaker()
{
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase LogMaker::database() const
{
    return QSqlDatabase::database(m_name, false);
}

bool LogMaker::run(const QString &statement)
{
    return QSqlQuery(database()).exec(statement);
}

bool LogMaker::makeTable()
{
    return run(QStringLiteral(
        "CREATE TABLE action_log (timestamp_action VARCHAR(19), category INTEGER, action_level INTEGER, "
        "action INTEGER, action_type INTEGER, operator VARCHAR(36), operator_name TEXT, system TEXT, "
        "database_key VARCHAR(36), info TEXT, target_database TEXT, target_server TEXT)"));
}

bool LogMaker::makeEvents()
{
    const char *rows[] = {
        "('2016-01-01 10:00:00', 4096, 768, 4864, 1, 'id-1', 'anna', 'WS1', 'k1', 'in', '', '')",
        "('2016-01-02 10:00:00', 8192, 512, 8718, 1, 'id-1', 'anna', 'WS1', 'k2', 'save', '', '')",
        "('2016-01-03 00:00:00', 8192, 512, 8717, 0, 'id-2', 'bert', 'WS2', 'k3', 'load', '', '')",
        "('2016-01-04 10:00:00', 20480, 256, 20736, 0, 'id-2', 'bert', 'WS2', 'k4', 'start', '', '')",
        "('2016-01-05 10:00:00', 24576, 256, 20738, 0, 'id-3', 'cleo', 'XS3', 'x5', 'fault', '', '')"};
    bool made = makeTable();
    for (const char *row : rows)
        made = made && run(QStringLiteral("INSERT INTO action_log VALUES ") + QLatin1String(row));
    return made;
}

bool LogMaker::makeManyEvents(int count)
{
    const QString rows = QStringLiteral(
        "INSERT INTO action_log WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
        "SELECT datetime('2014-01-01', '+' || (i * 17) || ' minutes'), 4096 * (1 + i % 6), 256 * (1 + i % "
        "3), "
        "8704 + i % 30, i % 2, 'id-' || (i % 40), 'operator' || (i % 40), 'WS' || (i % 9), 'key-' || i, "
        "'Event, \"number\" ' || i, 'actiondb', 'server' FROM n");
    return makeTable() && run(rows.arg(count - 1));
}

void makeEncryptedLog(const QString &path)
{
    LogMaker maker(QLatin1String(kEncryptedDriver), path);
    QVERIFY(maker.makeEvents());
}

void damagePages(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    const qint64 half = file.size() / 2;
    QVERIFY(file.seek(half));
    constexpr int damaged = 1 << 20;
    QVERIFY(half > damaged);
    QCOMPARE(file.write(QByteArray(damaged, 'x')), qint64(damaged));
}

void makeOdbcLog(const QString &path)
{
    LogMaker maker(QStringLiteral("QODBC3"), QStringLiteral("Driver=SQLite3;Database=") + path);
    QVERIFY(maker.makeEvents());
}
