#include "Corvane/settings/settingsdatabasedialog.h"

#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/connectionarea.h"
#include "Corvane/settings/databasegroupsettings.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QToolButton>

namespace {

constexpr int kSupportDatabase = 3;
constexpr int kScrollBarRoom = 15;  // beside the editor in its area

}  // namespace

SettingsDatabaseDialog::SettingsDatabaseDialog(const QString &dataPath, QString *username, QString *password,
                                               QWidget *parent)
    : QDialog(parent)
    , m_cache(dataPath, LocalCache::kSupportDbOnlineGroup, SettingsKeys::kSupportDbGroup)
    , m_username(username)
    , m_password(password)
{
    SettingsHandler *handler = SettingsHandler::getInstance();
    handler->store();
    // What a dialog asked that has closed since is not answered to this one.
    handler->callOnlineInit();
    setWindowModality(Qt::ApplicationModal);
    connect(this, SIGNAL(requestReconnect(QMap<QString, QVariant>)), handler,
            SIGNAL(reconnectOnline(QMap<QString, QVariant>)), Qt::QueuedConnection);
}

void SettingsDatabaseDialog::readConnection(bool storedCredentials)
{
    m_connectionSettings = m_cache.connection(OdbcConnection::defaultConnectOptions());
    const QString username = m_cache.key(SettingsKeys::kUsername);
    const QString password = m_cache.key(SettingsKeys::kPassword);
    if (m_cache.isRemembered()) {
        m_connectionSettings.insert(username, *m_username);
        m_connectionSettings.insert(password, *m_password);
    } else if (storedCredentials) {
        for (const QString &key : {username, password})
            m_connectionSettings.insert(key, SettingsHandler::getInstance()->safeValue(key, QString()));
    }
}

ConnectionArea *SettingsDatabaseDialog::makeConnectionArea(int width)
{
    m_area = new ConnectionArea(kSupportDatabase, &m_connectionSettings, this);
    m_area->setObjectName(QStringLiteral("connection_area"));
    m_area->setMinimumWidth(width);
    m_area->setEditorWidth(width - kScrollBarRoom);
    return m_area;
}

void SettingsDatabaseDialog::saveConnection()
{
    m_area->editor()->saveDBSettings();
}

void SettingsDatabaseDialog::rememberConnection()
{
    saveConnection();
    m_cache.remember(m_connectionSettings);
    *m_username = m_connectionSettings.value(m_cache.key(SettingsKeys::kUsername)).toString();
    *m_password = m_connectionSettings.value(m_cache.key(SettingsKeys::kPassword)).toString();
}

const QMap<QString, QVariant> &SettingsDatabaseDialog::connectionSettings() const
{
    return m_connectionSettings;
}

void SettingsDatabaseDialog::restFocus(const QWidgetList &disabled, QWidget *heir)
{
    if (!disabled.contains(focusWidget()))
        return;
    m_resting = heir ? heir : focusWidget();
    setFocus(Qt::OtherFocusReason);
}

void SettingsDatabaseDialog::returnFocus()
{
    if (focusWidget() == this && m_resting && m_resting->isEnabled())
        m_resting->setFocus(Qt::OtherFocusReason);
}

bool SettingsDatabaseDialog::isClosed() const
{
    return m_closed;
}

bool SettingsDatabaseDialog::restoresSettings() const
{
    return true;
}

void SettingsDatabaseDialog::reject()
{
    close();
}

void SettingsDatabaseDialog::closeEvent(QCloseEvent *event)
{
    if (!m_closed && restoresSettings())
        SettingsHandler::getInstance()->restore();
    m_closed = true;
    deleteLater();
    event->accept();
}

void SettingsDatabaseDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    QDialog::changeEvent(event);
}

// Return in a line of the connection ends its editing, and on a button it presses that button; push buttons
// do so by themselves. It must not press another one that happens to be the default.
void SettingsDatabaseDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event);
        return;
    }
    event->accept();
    auto *button = qobject_cast<QToolButton *>(focusWidget());
    if (button && !event->isAutoRepeat())
        button->click();
}
