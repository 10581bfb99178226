#include "Corvane/settings/accesssettingsview.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/settings/formparts.h"
#include "ZephanShared/widgets/onelinevalidator.h"
#include "ZephanShared/widgets/wrappingcheckbox.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSettings>
#include <QSpinBox>

namespace {

constexpr int kFrameWidth = 362;
constexpr int kMostDays = 9999;
constexpr int kDefaultDays = 30;

const char *const kDefaultMethod = "default";  // none of the methods: the first one is shown
const char *const kDefaultAuditLocation = "actionlog";
const char *const kOfflineFile = "offline.access.db";

/// The access control methods; stored as they stand here but for the first, whose stored form is lower case.
constexpr const char *kMethods[] = {
    QT_TRANSLATE_NOOP("AccessSettingsView", "None"),
    QT_TRANSLATE_NOOP("AccessSettingsView", "Windows group based"),
    QT_TRANSLATE_NOOP("AccessSettingsView", "Windows user based"),
    QT_TRANSLATE_NOOP("AccessSettingsView", "Internal users"),
};
const char *const kMethodNone = "none";

constexpr const char *kAccessKeys[] = {SettingsKeys::kAccessMethod,
                                       SettingsKeys::kOfflineAuthentication,
                                       SettingsKeys::kOfflineAuthenticationExpirationTime,
                                       SettingsKeys::kWarnUserExpiration,
                                       SettingsKeys::kSingleWorkstationAccessMethodSystem,
                                       SettingsKeys::kSingleWorkstationDbLocation};
constexpr const char *kAuditKeys[] = {SettingsKeys::kActionLogActivated, SettingsKeys::kActionLogLocation,
                                      SettingsKeys::kAuditTrailSettingHash, SettingsKeys::kAuditTrailSetting};

SettingsHandler *store()
{
    return SettingsHandler::getInstance();
}

QVariant readSafe(const char *key, const QVariant &defaultValue)
{
    return store()->safeValue(QLatin1String(key), defaultValue);
}

void writeSafe(const char *key, const QVariant &value)
{
    store()->setSafeValue(QLatin1String(key), value);
}

template<std::size_t size>
void removeKeys(const char *const (&keys)[size])
{
    for (const char *key : keys)
        store()->generalSettings()->remove(QLatin1String(key));
}

/// A box that shows a state and never changes it by itself. Only `setCheckState` does.
class StateBox : public WrappingCheckBox
{
public:
    StateBox()
    {
        connect(this, &QCheckBox::stateChanged, this,
                [this](int state) { m_shown = static_cast<Qt::CheckState>(state); });
    }

protected:
    void nextCheckState() override {}
    // Assistive technology toggles a box without pressing it.
    void checkStateSet() override
    {
        setCheckState(m_shown);
        QMetaObject::invokeMethod(this, "click", Qt::QueuedConnection);
    }

private:
    Qt::CheckState m_shown = Qt::Unchecked;
};

}  // namespace

AccessSettingsView::AccessSettingsView(const QString &dataPath, AccessType allowed, QWidget *parent)
    : BaseView(parent)
    , m_canEditAccess((allowed & AccessControlManagement) != 0)
    , m_canEditAudit((allowed & AuditTrailManagement) != 0)
    , m_cache(dataPath, LocalCache::kActionDbOnlineGroup, SettingsKeys::kActionDbGroup)
{
    auto *content = new QWidget(this);
    QHBoxLayout *columns = FormParts::makeColumns(content);
    columns->addWidget(buildAccess(content), 1);
    columns->addWidget(buildAudit(content), 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FormParts::makeScrollable(content, this));
    updateTexts();
    reloadSettings();
}

AccessSettingsView::~AccessSettingsView()
{
    saveSettings();
}

QWidget *AccessSettingsView::buildAccess(QWidget *parent)
{
    QFrame *frame = FormParts::makeFrame(kFrameWidth, parent);
    auto *layout = qobject_cast<QBoxLayout *>(frame->layout());
    m_accessTitle = FormParts::addTitle(layout);
    m_methodLabel = FormParts::addLabel(layout);
    m_method = FormParts::addComboBox(layout, QStringLiteral("access_method"));
    for (const char *method : kMethods)
        m_method->addItem(QString(),
                          m_method->count() == 0 ? QLatin1String(kMethodNone) : QLatin1String(method));

    m_cacheTitle = FormParts::addTitle(layout);
    m_offline = FormParts::addCheckBox(layout, QStringLiteral("offline_authentication"));
    m_expirationLabel = FormParts::addLabel(layout);
    m_expiration = new QSpinBox(frame);
    m_expiration->setObjectName(QStringLiteral("expiration_time"));
    m_expiration->setFixedHeight(FormParts::kFieldHeight);
    m_expiration->setRange(0, kMostDays);
    FormParts::leaveWheelToPage(m_expiration);
    layout->addWidget(m_expiration);
    m_warnBox = FormParts::addCheckBox(layout, QStringLiteral("warn_expiration"));

    m_local = FormParts::addCheckBox(layout, QStringLiteral("local_access_control"));
    m_locationLabel = FormParts::addLabel(layout);
    m_location =
        FormParts::addEditWithButton(layout, QStringLiteral("local_access_location"), m_browseLocation);
    layout->addStretch();

    connect(m_offline, SIGNAL(stateChanged(int)), this, SLOT(offlineAuthenticationCheckChanged(int)));
    connect(m_expiration, SIGNAL(valueChanged(int)), this, SLOT(expirationValueChanged(int)));
    connect(m_warnBox, SIGNAL(stateChanged(int)), this, SLOT(warnExpirationCheckChanged(int)));
    connect(m_local, SIGNAL(stateChanged(int)), this, SLOT(singleWorkstationCheckChanged(int)));
    connect(m_browseLocation, SIGNAL(clicked()), this, SLOT(handleBrowseOfflineLocation()));
    return frame;
}

QWidget *AccessSettingsView::buildAudit(QWidget *parent)
{
    QFrame *frame = FormParts::makeFrame(kFrameWidth, parent);
    auto *layout = qobject_cast<QBoxLayout *>(frame->layout());
    m_auditTitle = FormParts::addTitle(layout);
    m_offlineAudit = FormParts::addCheckBox(layout, QStringLiteral("offline_audit_trail"));
    m_auditLocationLabel = FormParts::addLabel(layout);
    m_auditLocation = new QLineEdit(frame);
    m_auditLocation->setObjectName(QStringLiteral("audit_trail_location"));
    m_auditLocation->setFixedHeight(FormParts::kFieldHeight);
    new OneLineValidator(m_auditLocation);
    layout->addWidget(m_auditLocation);

    m_onlineTitle = FormParts::addTitle(layout);
    m_onlineAudit = new StateBox;
    m_onlineAudit->setObjectName(QStringLiteral("online_audit_trail"));
    layout->addWidget(m_onlineAudit);
    layout->addStretch();

    m_offlineAudit->setEnabled(m_canEditAudit);
    m_onlineAudit->setEnabled(m_canEditAudit);
    connect(m_offlineAudit, SIGNAL(stateChanged(int)), this, SLOT(actionLogEnabled(int)));
    connect(m_onlineAudit, SIGNAL(pressed()), this, SLOT(checkAuditTrailPrivileges()));
    return frame;
}

void AccessSettingsView::updateTexts()
{
    m_accessTitle->setText(tr("Access control settings"));
    FormParts::setLabelText(m_methodLabel, m_method, tr("Access control method"));
    for (int i = 0; i < m_method->count(); ++i)
        m_method->setItemText(i, tr(kMethods[i]));
    m_cacheTitle->setText(tr("Offline Cache"));
    m_offline->setText(tr("Enabled"));
    m_offline->setAccessibleName(tr("Offline Cache"));
    FormParts::setLabelText(m_expirationLabel, m_expiration, tr("Expiration time"));
    m_warnBox->setText(tr("Warn user of expiration"));
    m_local->setText(tr("Local access control system"));
    FormParts::setLabelText(m_locationLabel, m_location, tr("Path to local access control database"));
    m_browseLocation->setText(tr("Browse..."));

    m_auditTitle->setText(tr("Audit trail settings"));
    m_offlineAudit->setText(tr("Offline audit trail enabled"));
    FormParts::setLabelText(m_auditLocationLabel, m_auditLocation,
                            tr("Audit trail offline database location"));
    m_onlineTitle->setText(tr("Online audit trail"));
    m_onlineAudit->setAccessibleName(tr("Online audit trail"));
    updateOnlineText();
    updateAccessStates();
}

void AccessSettingsView::updateOnlineText()
{
    m_onlineAudit->setText(m_onlineAudit->checkState() == Qt::PartiallyChecked
                               ? tr("Unknown. Click to read state from database.")
                               : tr("Enabled"));
    m_onlineAudit->setAccessibleDescription(m_onlineAudit->text());
}

void AccessSettingsView::reloadSettings()
{
    reloadAudit();
    reloadAccess();
}

void AccessSettingsView::reloadAudit()
{
    m_offlineAudit->setChecked(
        store()->value(QLatin1String(SettingsKeys::kActionLogActivated), true).toBool());
    m_auditLocation->setText(
        store()
            ->value(QLatin1String(SettingsKeys::kActionLogLocation), QLatin1String(kDefaultAuditLocation))
            .toString());
    actionLogEnabled(m_offlineAudit->checkState());
    m_onlineAudit->setTristate(true);
    m_onlineAudit->setCheckState(Qt::PartiallyChecked);
    updateOnlineText();
}

void AccessSettingsView::reloadAccess()
{
    const QString method = readSafe(SettingsKeys::kAccessMethod, QLatin1String(kDefaultMethod)).toString();
    m_method->setCurrentIndex(qMax(0, m_method->findData(method)));
    m_offline->setChecked(readSafe(SettingsKeys::kOfflineAuthentication, true).toBool());
    m_expiration->setValue(
        readSafe(SettingsKeys::kOfflineAuthenticationExpirationTime, kDefaultDays).toInt());
    m_warn = store()->value(QLatin1String(SettingsKeys::kWarnUserExpiration), true).toBool();
    m_local->setChecked(readSafe(SettingsKeys::kSingleWorkstationAccessMethodSystem, true).toBool());
    const QString directory = readSafe(SettingsKeys::kSingleWorkstationDbLocation, QString()).toString();
    m_location->setText(directory.isEmpty() ? QString() : directory + QLatin1String(kOfflineFile));
    expirationValueChanged(m_expiration->value());
}

void AccessSettingsView::saveSettings()
{
    if (m_canEditAccess)
        saveAccess();
    else
        removeKeys(kAccessKeys);
    if (m_canEditAudit)
        saveAudit();
    else
        removeKeys(kAuditKeys);
}

void AccessSettingsView::saveAccess()
{
    writeSafe(SettingsKeys::kAccessMethod, m_method->currentData().toString());
    writeSafe(SettingsKeys::kOfflineAuthentication, m_offline->isChecked());
    writeSafe(SettingsKeys::kOfflineAuthenticationExpirationTime, m_expiration->value());
    store()->setValue(QLatin1String(SettingsKeys::kWarnUserExpiration), m_warnBox->isChecked());
    writeSafe(SettingsKeys::kSingleWorkstationAccessMethodSystem, m_local->isChecked());
    writeSafe(SettingsKeys::kSingleWorkstationDbLocation,
              m_location->text().remove(QLatin1String(kOfflineFile)));
}

void AccessSettingsView::saveAudit()
{
    store()->setValue(QLatin1String(SettingsKeys::kActionLogActivated), m_offlineAudit->isChecked());
    store()->setValue(QLatin1String(SettingsKeys::kActionLogLocation), m_auditLocation->text());
}

void AccessSettingsView::updateAccessStates()
{
    const bool local = m_local->isChecked();
    const bool online = m_canEditAccess && !local;
    const bool cached = online && m_offline->isChecked();
    const bool expires = m_expiration->value() > 0;
    m_method->setEnabled(m_canEditAccess);
    m_local->setEnabled(m_canEditAccess);
    m_offline->setEnabled(online);
    m_expirationLabel->setEnabled(online);
    m_expiration->setEnabled(cached);
    m_expiration->setSuffix(expires ? tr(" Days") : tr(" Days (No expiration)"));
    m_warnBox->setEnabled(cached && expires);
    for (QWidget *widget : {static_cast<QWidget *>(m_locationLabel), static_cast<QWidget *>(m_location),
                            static_cast<QWidget *>(m_browseLocation)})
        widget->setEnabled(m_canEditAccess && local);
}

void AccessSettingsView::offlineAuthenticationCheckChanged(int)
{
    updateAccessStates();
}

void AccessSettingsView::expirationValueChanged(int value)
{
    m_warnBox->setChecked(value > 0 && m_warn);
    updateAccessStates();
}

void AccessSettingsView::warnExpirationCheckChanged(int state)
{
    if (m_expiration->value() > 0)
        m_warn = state != Qt::Unchecked;
}

void AccessSettingsView::singleWorkstationCheckChanged(int)
{
    updateAccessStates();
}

void AccessSettingsView::actionLogEnabled(int checked)
{
    m_auditLocation->setEnabled(m_canEditAudit && checked != 0);
    m_auditLocationLabel->setEnabled(m_auditLocation->isEnabled());
}

void AccessSettingsView::handleBrowseOfflineLocation()
{
    QFileDialog dialog(this, tr("Select offline database location directory"), QString(),
                       QLatin1String(kOfflineFile));
    dialog.setFileMode(QFileDialog::AnyFile);
    FormParts::chooseFile(dialog, m_location);
}
