#include "CommunicationAndData/settings/settingshandler.h"

#include "CommunicationAndData/settings/audittrailsetting.h"
#include "CommunicationAndData/settings/configurationimage.h"
#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/onlinethread.h"
#include "CommunicationAndData/settings/safevalue.h"
#include "CommunicationAndData/settings/settingscontent.h"
#include "CommunicationAndData/settings/settingsfile.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/settings/settingsobject.h"
#include "CommunicationAndData/settings/stashimage.h"
#include "CommunicationAndData/settings/workingsettings.h"
#include "ZephanShared/toolkit/logger.h"

#include <QCoreApplication>
#include <QSet>
#include <QSettings>

namespace {

constexpr int kNoConfiguration = 0;

QString key(const char *name)
{
    return QString::fromLatin1(name);
}

void registerTypes()
{
    qRegisterMetaType<QMap<QString, QVariant>>("QMap<QString,QVariant>");
    qRegisterMetaType<OnlineSettings::QueryError>("OnlineSettings::QueryError");
}

}  // namespace

class SettingsHandler::Private
{
public:
    std::unique_ptr<WorkingSettings> working = std::make_unique<WorkingSettings>();
    std::optional<QMap<QString, QVariant>> remembered;
    QByteArray stashed;
    QSet<QByteArray> reportedForms;
    OnlineThread online;
    QMap<int, SettingsAdditionalData> notes;

    QSettings &settings() const
    {
        return working->absolute();
    }

    void reportUnreadable(const QString &name, const QByteArray &form)
    {
        const QByteArray mark = name.toUtf8() + form;
        if (reportedForms.contains(mark))
            return;
        reportedForms.insert(mark);
        CORVANE_LOG(
            Logger::Warning, Logger::Console, "SettingsHandler::safeValue",
            QStringLiteral("The stored form of %1 is damaged or foreign and counts as absent").arg(name));
    }

    AuditTrailSetting auditTrailSetting() const
    {
        return AuditTrailSetting::fromText(
            settings().value(key(SettingsKeys::kAuditTrailSetting)).toString());
    }

    void recordAuditTrail(const QString &databaseHash, bool enabled)
    {
        if (databaseHash.isEmpty())
            return;
        AuditTrailSetting setting = auditTrailSetting();
        setting.setEnabled(databaseHash, enabled);
        settings().setValue(key(SettingsKeys::kAuditTrailSetting), setting.toText());
    }
};

SettingsHandler *SettingsHandler::getInstance()
{
    static SettingsHandler handler;
    return &handler;
}

SettingsHandler::SettingsHandler()
    : d((registerTypes(), Logger::getInstance(), std::make_unique<Private>()))
{
    connect(this, &SettingsHandler::reconnectOnline, this, &SettingsHandler::reconnect);
    connect(this, &SettingsHandler::requestIDs, this,
            [this](int, bool withNotes) { listConfigurations(withNotes); });
    connect(this, &SettingsHandler::requestDelete, this, &SettingsHandler::deleteConfiguration);
    connect(this, &SettingsHandler::requestActiveId, this, &SettingsHandler::findActiveConfiguration);
    qAddPostRoutine(&SettingsHandler::endOnline);
}

SettingsHandler::~SettingsHandler()
{
    qRemovePostRoutine(&SettingsHandler::endOnline);
}

void SettingsHandler::endOnline()
{
    getInstance()->d->online.stop();
}

void SettingsHandler::reconnect(const QMap<QString, QVariant> &settings)
{
    const auto answer = [this](bool connected) {
        emit onlineReconnected(connected);
    };
    d->online.ask([settings](OnlineWorker &worker) { return worker.reconnect(settings); }, answer, false);
}

void SettingsHandler::listConfigurations(bool withNotes)
{
    using List = std::optional<OnlineWorker::Notes>;
    const auto answer = [this](const List &list) {
        d->notes = list.value_or(OnlineWorker::Notes());
        emit onlineNotesReady(list.has_value());
    };
    d->online.ask([withNotes](OnlineWorker &worker) { return worker.list(withNotes); }, answer, List());
}

void SettingsHandler::deleteConfiguration(int id)
{
    const auto answer = [this, id](OnlineSettings::QueryError error) {
        emit settingsDeletedOnline(id, error);
    };
    d->online.ask([id](OnlineWorker &worker) { return worker.deleteConfiguration(id); }, answer,
                  OnlineSettings::ConnectionFailure);
}

void SettingsHandler::findActiveConfiguration()
{
    const auto answer = [this](int id) {
        emit activeOnlineId(id);
    };
    d->online.ask([](OnlineWorker &worker) { return worker.activeId(); }, answer, kNoConfiguration);
}

QVariant SettingsHandler::value(const QString &key, const QVariant &defaultValue)
{
    return SettingsContent::isKey(key) ? d->settings().value(key, defaultValue) : defaultValue;
}

void SettingsHandler::setValue(const QString &key, const QVariant &value)
{
    if (SettingsContent::isKey(key))
        d->settings().setValue(key, value);
}

QVariant SettingsHandler::safeValue(const QString &key, const QVariant &defaultValue)
{
    if (!d->settings().contains(key))
        return defaultValue;
    const QByteArray form = d->settings().value(key).toByteArray();
    const std::optional<QVariant> value = SafeValue::decipher(form);
    if (value)
        return *value;
    d->reportUnreadable(key, form);
    return defaultValue;
}

void SettingsHandler::setSafeValue(const QString &key, const QVariant &value)
{
    const QByteArray form = SafeValue::encipher(value);
    if (form.isEmpty()) {
        CORVANE_LOG(Logger::Error, Logger::Console, "SettingsHandler::setSafeValue",
                    QStringLiteral("No cipher for %1, which keeps its former value").arg(key));
        return;
    }
    setValue(key, form);
}

QMap<QString, QVariant> SettingsHandler::databaseSettings(const QString &group)
{
    QMap<QString, QVariant> values;
    d->settings().beginGroup(group);
    values.insert(key(SettingsKeys::kParams), OdbcConnection::readParameters(d->settings()));
    for (const char *name :
         {SettingsKeys::kConnectOptions, SettingsKeys::kDriverParams, SettingsKeys::kSqlType}) {
        if (d->settings().contains(key(name)))
            values.insert(key(name), d->settings().value(key(name)));
    }
    d->settings().endGroup();
    return values;
}

void SettingsHandler::setDatabaseSettings(const QString &group, const QMap<QString, QVariant> &settings)
{
    d->settings().beginGroup(group);
    OdbcConnection::writeParameters(d->settings(), settings.value(key(SettingsKeys::kParams)).toMap());
    d->settings().endGroup();
}

bool SettingsHandler::store()
{
    d->remembered = SettingsContent::of(d->settings());
    return true;
}

bool SettingsHandler::restore()
{
    if (!d->remembered)
        return false;
    SettingsContent::replace(d->settings(), *d->remembered);
    d->working->setHeld(false);
    return true;
}

void SettingsHandler::holdChanges()
{
    d->working->setHeld(true);
}

void SettingsHandler::stash(QByteArray *&image)
{
    d->stashed = stashImage(d->settings());
    image = &d->stashed;
}

void SettingsHandler::changeSettingsFile(QString path)
{
    d->working.reset();
    d->working = std::make_unique<WorkingSettings>(path);
    d->reportedForms.clear();
}

bool SettingsHandler::flushSettingsFile()
{
    return d->working->sync();
}

QSettings *SettingsHandler::generalSettings()
{
    return d->working->shared();
}

void SettingsHandler::callOnlineInit()
{
    d->online.forgetQuestions();
    d->online.start();
}

void SettingsHandler::storeSettingsOnline(SettingsAdditionalData data, int id, bool informUser,
                                          bool distribute)
{
    const auto image = ConfigurationImage::encode(stashContent(d->settings()));
    if (!image) {
        CORVANE_LOG(Logger::Error, Logger::Console, "SettingsHandler::storeSettingsOnline",
                    QStringLiteral("The settings hold a value that no configuration can hold"));
    }
    const auto store = [data, id, image, informUser, distribute](OnlineWorker &worker) {
        if (id != kNoConfiguration)
            return OnlineSettings::UnusableId;
        return image ? worker.store(data, *image, informUser, distribute) : OnlineSettings::ConnectionFailure;
    };
    const auto answer = [this](OnlineSettings::QueryError error) {
        emit settingsOnlineStoredReady(error);
    };
    d->online.ask(store, answer, OnlineSettings::ConnectionFailure);
}

bool SettingsHandler::getOnlineSettings(int id)
{
    const auto configuration = d->online.askAndWait([id](OnlineWorker &worker) { return worker.fetch(id); },
                                                    std::optional<OnlineWorker::Configuration>());
    const bool success = configuration && takeOver(configuration->settings);
    const bool informUser = success && configuration->informUsers;
    const QString notes = success ? configuration->notes : QString();
    QMetaObject::invokeMethod(
        this, [this, success, informUser, notes] { emit onlineSettingsReady(success, informUser, notes); },
        Qt::QueuedConnection);
    return success;
}

/// Makes the working settings these, in one write of the file.
bool SettingsHandler::takeOver(const QMap<QString, QVariant> &settings)
{
    store();
    SettingsContent::replace(d->settings(), settings);
    d->working->sync();
    if (d->working->isReadable())
        return true;
    CORVANE_LOG(Logger::Error, Logger::Console, "SettingsHandler::takeOver",
                QStringLiteral("The configuration is larger than a settings file can be"));
    restore();
    d->working->sync();
    return false;
}

QMap<int, SettingsAdditionalData> SettingsHandler::getOnlineNotesList()
{
    return d->notes;
}

void SettingsHandler::initAuditTrailSetting()
{
    const QString text = value(key(SettingsKeys::kAuditTrailSetting)).toString();
    bool readable = true;
    AuditTrailSetting::fromText(text, &readable);
    if (!readable) {
        CORVANE_LOG(Logger::Warning, Logger::Console, "SettingsHandler::initAuditTrailSetting",
                    QStringLiteral("The audit trail setting is damaged or foreign and counts as absent"));
    }
}

void SettingsHandler::enableAuditTrailSetting(QString databaseHash)
{
    d->recordAuditTrail(databaseHash, true);
}

void SettingsHandler::disableAuditTrailSetting(QString databaseHash)
{
    d->recordAuditTrail(databaseHash, false);
}

bool SettingsHandler::isAuditTrailSettingEnabled(QString databaseHash)
{
    return !databaseHash.isEmpty() && d->auditTrailSetting().isEnabled(databaseHash);
}

std::unique_ptr<QSettings> openLocalApplicationSettings()
{
    return SettingsFile::openSystemScope(QString::fromLatin1(kSuiteOrganisation),
                                         QString::fromLatin1(kSuiteApplication));
}

bool canReadLocalApplicationSettings()
{
    return SettingsFile::canReadSystemScope(QString::fromLatin1(kSuiteOrganisation),
                                            QString::fromLatin1(kSuiteApplication));
}

std::unique_ptr<QSettings> openSettingsFile(const QString &path)
{
    return SettingsFile::open(path);
}

bool syncSettingsFile(QSettings &settings)
{
    if (auto *object = qobject_cast<SettingsObject *>(&settings))
        return object->syncAndReport();
    settings.sync();
    return settings.status() != QSettings::AccessError;
}

bool isSettingsFile(const QString &path)
{
    return SettingsFile::isSettings(path);
}
