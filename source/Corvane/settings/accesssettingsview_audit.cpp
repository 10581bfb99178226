#include "Corvane/settings/accesssettingsview.h"

#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/connectionarea.h"
#include "Corvane/settings/databasegroupsettings.h"
#include "Corvane/settings/formparts.h"
#include "ZephanShared/toolkit/logger.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVBoxLayout>

namespace {

constexpr int kActionDatabase = 0;
constexpr int kAreaHeight = 300;

const char *const kConnectionName = "audit_trail_setting_db";

const QStringList &defaultOptions()
{
    static const QStringList options{QStringLiteral("SQL_ATTR_CONNECTION_TIMEOUT=2"),
                                     QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2")};
    return options;
}

/// Holds the connection to the audit trail's database while it lives.
class AuditDatabase
{
public:
    AuditDatabase()
        : m_database(QSqlDatabase::addDatabase(QLatin1String(OdbcConnection::kDriver),
                                               QLatin1String(kConnectionName)))
    {}
    ~AuditDatabase()
    {
        m_database.close();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(QLatin1String(kConnectionName));
    }
    Q_DISABLE_COPY(AuditDatabase)

    bool open(const QVariantMap &params, const QVariant &options, const QString &username,
              const QString &password)
    {
        m_database.setDatabaseName(OdbcConnection::databaseName(params));
        const bool isOpen =
            OdbcConnection::open(m_database, options, username, password, OdbcConnection::AsOptionsSay);
        if (!isOpen) {
            CORVANE_LOG(Logger::Warning, Logger::Console, "AccessSettingsView::checkAuditTrailPrivileges",
                        QStringLiteral("No connection to %1: %2")
                            .arg(OdbcConnection::withoutSecrets(m_database.databaseName()),
                                 m_database.lastError().text().simplified()));
        }
        return isOpen;
    }

    /// The value that tells this audit trail from every other; empty when it can't be read.
    QString hash() const
    {
        QSqlQuery query(m_database);
        if (query.exec(QStringLiteral("SELECT hash FROM hash")) && query.next())
            return query.value(0).toString();
        CORVANE_LOG(
            Logger::Warning, Logger::Console, "AccessSettingsView::checkAuditTrailPrivileges",
            QStringLiteral("The database has no hash: %1").arg(query.lastError().text().simplified()));
        return QString();
    }

private:
    QSqlDatabase m_database;
};

}  // namespace

// Called when the box goes down, before a click would change it.
void AccessSettingsView::checkAuditTrailPrivileges()
{
    const Qt::CheckState entry = m_onlineAudit->checkState();
    QMap<QString, QVariant> connection = auditConnection();
    if (editConnection(connection)) {
        Qt::CheckState state = entry;
        const Visit visit = visitAuditDatabase(connection, entry, state);
        m_onlineAudit->setCheckState(state);
        updateOnlineText();
        showVisit(visit);
    } else {
        m_onlineAudit->setCheckState(entry);
    }
    m_onlineAudit->setDown(false);
}

QMap<QString, QVariant> AccessSettingsView::auditConnection() const
{
    QMap<QString, QVariant> connection = m_cache.connection(defaultOptions());
    if (m_cache.isRemembered()) {
        connection.insert(m_cache.key(SettingsKeys::kUsername), m_username);
        connection.insert(m_cache.key(SettingsKeys::kPassword), m_password);
    }
    return connection;
}

bool AccessSettingsView::editConnection(QMap<QString, QVariant> &connection)
{
    QDialog dialog(this);
    dialog.setObjectName(QStringLiteral("audit_connection_dialog"));
    dialog.setWindowTitle(tr("Online audit trail"));
    auto *area = new ConnectionArea(kActionDatabase, &connection, &dialog);
    area->setMinimumSize(width() / 2, kAreaHeight);
    auto *column = new QVBoxLayout(&dialog);
    column->addWidget(area);
    auto *row = new QHBoxLayout;
    column->addLayout(row);
    QPushButton *connectButton = FormParts::addButton(row, QStringLiteral("connect_button"));
    connectButton->setText(tr("Connect"));
    connectButton->setDefault(true);
    QPushButton *cancelButton = FormParts::addButton(row, QStringLiteral("cancel_button"));
    cancelButton->setText(tr("Cancel"));
    connect(connectButton, &QPushButton::clicked, &dialog, &QDialog::accept);
    connect(cancelButton, &QPushButton::clicked, &dialog, &QDialog::reject);
    area->editor()->setFocus();
    if (dialog.exec() != QDialog::Accepted)
        return false;

    area->editor()->saveDBSettings();
    m_cache.remember(connection);
    m_username = connection.value(m_cache.key(SettingsKeys::kUsername)).toString();
    m_password = connection.value(m_cache.key(SettingsKeys::kPassword)).toString();
    return true;
}

AccessSettingsView::Visit AccessSettingsView::visitAuditDatabase(const QMap<QString, QVariant> &connection,
                                                                 Qt::CheckState entry, Qt::CheckState &state)
{
    const QString hash = readHash(connection);
    if (hash.isEmpty())
        return Refused;
    SettingsHandler *store = SettingsHandler::getInstance();
    if (entry == Qt::Checked) {
        store->setSafeValue(QLatin1String(SettingsKeys::kAuditTrailSettingHash), hash);
        store->disableAuditTrailSetting(hash);
    } else if (entry == Qt::Unchecked) {
        store->enableAuditTrailSetting(hash);
    }
    state = store->isAuditTrailSettingEnabled(hash) ? Qt::Checked : Qt::Unchecked;
    return entry == Qt::PartiallyChecked ? Read : Bound;
}

QString AccessSettingsView::readHash(const QMap<QString, QVariant> &connection)
{
    // A connection of this name is of a visit that has not ended: nobody is to hear of this one.
    if (QSqlDatabase::contains(QLatin1String(kConnectionName)))
        disconnect(this, nullptr, nullptr, nullptr);
    AuditDatabase database;
    if (m_username.isEmpty()) {
        showMessage(QMessageBox::NoIcon, QString(), tr("Please enter username."));
        return QString();
    }
    const WaitCursor cursor;
    const QVariantMap params = connection.value(QLatin1String(SettingsKeys::kParams)).toMap();
    const QVariant options = connection.value(m_cache.key(SettingsKeys::kConnectOptions));
    if (!database.open(params, options, m_username, m_password))
        return QString();
    m_onlineAudit->setTristate(false);
    return database.hash();
}

void AccessSettingsView::showVisit(Visit visit)
{
    switch (visit) {
    case Refused:
        showMessage(QMessageBox::Warning, tr("Setting not accepted"),
                    tr("Setting was not loaded nor written."));
        break;
    case Read:
        showMessage(QMessageBox::NoIcon, tr("Setting read"),
                    tr("Setting value for connected database is now shown."));
        break;
    case Bound:
        showMessage(QMessageBox::NoIcon, tr("Setting accepted"),
                    tr("Setting is now bound to the connected database. Please save or distribute to bring "
                       "into effect."));
        break;
    }
}

void AccessSettingsView::showMessage(int icon, const QString &title, const QString &text)
{
    QMessageBox box(static_cast<QMessageBox::Icon>(icon), title, text, QMessageBox::NoButton, this);
    box.addButton(tr("Ok"), QMessageBox::AcceptRole);
    box.exec();
}
