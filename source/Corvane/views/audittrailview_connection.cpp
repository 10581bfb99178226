#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "Corvane/views/audittrailquerymodel.h"
#include "Corvane/views/audittrailview.h"
#include "Corvane/views/connectionoptionsdialog.h"
#include "ZephanShared/toolkit/nativepath.h"
#include "ZephanShared/widgets/logindialog.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSqlQuery>
#include <QTableView>

namespace {

const QString kOnlineConnection = QStringLiteral("actionlog.actionviewer");
const QString kLogTable = QStringLiteral("action_log");
constexpr char kLogFileName[] = "actionlog.db";
constexpr char kDefaultLogLocation[] = "actionlog";

bool hasLogTable(const QSqlDatabase &database)
{
    return database.tables().contains(kLogTable);
}

}  // namespace

void AuditTrailView::loadConnectionOptions()
{
    using namespace ConnectionOptions;
    const QStringList groups = m_localCache->childGroups();
    if (groups.contains(QLatin1String(LocalCache::kActionDbOnlineGroup))) {
        m_localCache->beginGroup(QLatin1String(LocalCache::kActionDbOnlineGroup));
        m_onlineOptions.insert(kParams, OdbcConnection::readParameters(*m_localCache));
        m_onlineOptions.insert(
            kConnectOptions,
            optionList(m_localCache->value(kConnectOptions, OdbcConnection::defaultConnectOptions())));
        m_onlineOptions.insert(kOnlineMode, m_localCache->value(kOnlineMode, true).toBool());
        m_localCache->endGroup();
    } else {
        const QVariantMap stored =
            SettingsHandler::getInstance()->databaseSettings(QLatin1String(SettingsKeys::kActionDbGroup));
        m_onlineOptions.insert(kParams, stored.value(kParams).toMap());
        m_onlineOptions.insert(
            kConnectOptions,
            optionList(stored.value(kConnectOptions, OdbcConnection::defaultConnectOptions())));
        m_onlineOptions.insert(kOnlineMode, true);
    }

    if (groups.contains(QLatin1String(LocalCache::kActionDbOfflineGroup))) {
        m_localCache->beginGroup(QLatin1String(LocalCache::kActionDbOfflineGroup));
        m_offlineOptions.insert(kLocation,
                                m_localCache->value(QLatin1String(LocalCache::kLocation)).toString());
        m_localCache->endGroup();
    } else {
        const QString folder =
            SettingsHandler::getInstance()
                ->value(QLatin1String(SettingsKeys::kActionLogLocation), QLatin1String(kDefaultLogLocation))
                .toString();
        // No separator comes between them: the setting ends in one where it is meant as a folder.
        m_offlineOptions.insert(kLocation, folder + QLatin1String(kLogFileName));
    }
}

/// The user name and the password are never among what is kept.
void AuditTrailView::storeConnectionOptions()
{
    using namespace ConnectionOptions;
    m_localCache->beginGroup(QLatin1String(LocalCache::kActionDbOnlineGroup));
    OdbcConnection::writeParameters(*m_localCache, m_onlineOptions.value(kParams).toMap());
    m_localCache->setValue(kConnectOptions, m_onlineOptions.value(kConnectOptions).toStringList());
    m_localCache->setValue(kOnlineMode, isOnline());
    m_localCache->endGroup();
    m_localCache->beginGroup(QLatin1String(LocalCache::kActionDbOfflineGroup));
    m_localCache->setValue(QLatin1String(LocalCache::kLocation),
                           m_offlineOptions.value(kLocation).toString());
    m_localCache->endGroup();
    syncSettingsFile(*m_localCache);
}

bool AuditTrailView::isOnline() const
{
    return m_onlineOptions.value(ConnectionOptions::kOnlineMode, true).toBool();
}

int AuditTrailView::launchConnectionDialog()
{
    ConnectionOptionsDialog dialog(&m_onlineOptions, &m_offlineOptions, this);
    const int result = dialog.exec();
    if (result == QDialog::Accepted)
        storeConnectionOptions();
    return result;
}

bool AuditTrailView::completeConnectionOptions()
{
    using namespace ConnectionOptions;
    const auto isComplete = [this] {
        return isOnline() ? !m_onlineOptions.value(kParams).toMap().isEmpty()
                          : !m_offlineOptions.value(kLocation).toString().isEmpty();
    };
    while (!isComplete()) {
        if (launchConnectionDialog() != QDialog::Accepted)
            return false;
    }
    return true;
}

void AuditTrailView::connectToDatabase()
{
    while (completeConnectionOptions()) {
        const ZephanError error = isOnline() ? connectOnline() : connectOffline();
        // A cancelled login leaves the view connected to nothing: its queries run and give nothing.
        if (error == ZephanErrors::kNone || error == ZephanErrors::kLoginCancelled) {
            setConnected(true);
            return;
        }
        enableTableActions();
        clearLostRows();
        emit logError(Actions::SearchAuditTrail, error, QStringLiteral("Connection failed"));
        if (!wantsToEditConnection(error) || launchConnectionDialog() != QDialog::Accepted)
            return;
    }
}

/// Opening a file anew ends the query whose rows the table shows: without it they would be empty lines.
void AuditTrailView::clearLostRows()
{
    if (!m_model || m_model->query().isActive())
        return;
    keepColumnWidths();
    m_model->clear();
}

bool AuditTrailView::wantsToEditConnection(ZephanError error)
{
    QMessageBox box(this);
    box.setIcon(QMessageBox::Question);
    box.setText(tr("Connection failed") + QLatin1Char('\n') + tr("Error code: %1").arg(error));
    box.setInformativeText(tr("Do you want to edit connection settings?"));
    QPushButton *yes = box.addButton(QMessageBox::Yes);
    yes->setText(tr("Yes"));
    box.addButton(QMessageBox::No)->setText(tr("No"));
    box.setDefaultButton(yes);
    return box.exec() == QMessageBox::Yes;
}

ZephanError AuditTrailView::connectOnline()
{
    using namespace ConnectionOptions;
    QString username = m_onlineOptions.value(kUsername).toString();
    QString password = m_onlineOptions.value(kPassword).toString();
    if (username.isEmpty() || password.isEmpty()) {
        LoginDialog login(username, password, tr("Login information for audit trail database"), this);
        if (login.exec() != QDialog::Accepted)
            return ZephanErrors::kLoginCancelled;
        username = login.username();
        password = login.password();
    }

    const WaitCursor wait;
    if (QSqlDatabase::contains(kOnlineConnection))
        disconnectFromDatabase();
    removeOnlineConnection();
    m_borrowed = false;
    m_database = QSqlDatabase::addDatabase(QLatin1String(OdbcConnection::kDriver), kOnlineConnection);
    m_database.setDatabaseName(OdbcConnection::databaseName(m_onlineOptions.value(kParams).toMap()));
    if (!OdbcConnection::open(m_database, m_onlineOptions.value(kConnectOptions), username, password) ||
        !hasLogTable(m_database)) {
        forgetDatabase();
        return ZephanErrors::kAuditDatabaseNotOpened;
    }
    return ZephanErrors::kNone;
}

ZephanError AuditTrailView::connectOffline()
{
    const QString location = m_offlineOptions.value(ConnectionOptions::kLocation).toString();
    if (location.isEmpty())
        return ZephanErrors::kNoAuditLocation;

    const WaitCursor wait;
    const QFileInfo file(QDir::cleanPath(QDir::fromNativeSeparators(location)));
    const QString path = nativePath(file.absoluteFilePath());
    m_borrowed = QSqlDatabase::contains(path);
    if (m_borrowed) {
        m_database = QSqlDatabase::database(path, false);
    } else {
        m_database = QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), path);
        m_database.setDatabaseName(path);
    }
    // Opening a file that isn't there would make an empty one.
    if (!file.exists() || !m_database.open()) {
        releaseDatabase();
        return ZephanErrors::kAuditDatabaseNotOpened;
    }
    {
        QSqlQuery query(m_database);
        for (const QString &statement : databaseKeyStatements())
            query.exec(statement);
    }
    return hasLogTable(m_database) ? ZephanErrors::kNone : ZephanErrors::kAuditDatabaseNotOpened;
}

void AuditTrailView::setConnected(bool isConnected)
{
    m_connected = isConnected;
    m_disconnectAction->setEnabled(isConnected);
    if (isConnected) {
        emit connected();
        refreshResults();
    } else {
        emit disconnected();
    }
}

void AuditTrailView::disconnectFromDatabase()
{
    if (m_model) {
        keepColumnWidths();
        m_model->disconnect(this);
        m_model->clear();
        m_table->setModel(nullptr);
        delete m_model;
        m_model = nullptr;
    }
    releaseDatabase();
    setConnected(false);
}

/// The online connection stays behind when the view goes on with a file.
void AuditTrailView::removeOnlineConnection()
{
    if (QSqlDatabase::contains(kOnlineConnection))
        QSqlDatabase::removeDatabase(kOnlineConnection);
}

/// A borrowed connection belongs to somebody else and stays open.
void AuditTrailView::releaseDatabase()
{
    if (m_borrowed)
        m_database = QSqlDatabase();
    else
        forgetDatabase();
    m_borrowed = false;
}

void AuditTrailView::forgetDatabase()
{
    const QString name = m_database.connectionName();
    m_database.close();
    m_database = QSqlDatabase();
    if (!name.isEmpty())
        QSqlDatabase::removeDatabase(name);
}
