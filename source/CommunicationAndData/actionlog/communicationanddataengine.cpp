#include "CommunicationAndData/actionlog/communicationanddataengine.h"

#include "CommunicationAndData/actionlog/actionlogfile.h"
#include "CommunicationAndData/actionlog/actionlogserver.h"
#include "CommunicationAndData/actionlog/eventtext.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/logger.h"

#include <QHostInfo>

namespace {

constexpr char kDefaultLocation[] = "actionlog";

std::unique_ptr<ActionLogWriter> writerOfSettings()
{
    SettingsHandler *settings = SettingsHandler::getInstance();
    if (!settings->value(QLatin1String(SettingsKeys::kActionLogActivated), true).toBool())
        return std::make_unique<ActionLogServer>();
    return std::make_unique<ActionLogFile>(
        settings->value(QLatin1String(SettingsKeys::kActionLogLocation), QLatin1String(kDefaultLocation))
            .toString());
}

ZephanError errorOf(ActionLogWriter::Opening opening)
{
    switch (opening) {
    case ActionLogWriter::Opening::Ready:
        return ZephanErrors::kNone;
    case ActionLogWriter::Opening::Replaced:
        return ZephanErrors::kActionLogReplaced;
    case ActionLogWriter::Opening::NotOpened:
        return ZephanErrors::kActionLogNotOpened;
    default:
        return ZephanErrors::kActionLogNotWritten;
    }
}

}  // namespace

class CommunicationAndDataEngine::Private
{
public:
    ActionLogEntry newEntry(Actions::Action action) const;

    std::unique_ptr<ActionLogWriter> writer;  // only while the log is open
    UuidString operatorId;
    QString operatorName;
    QString system;
};

ActionLogEntry CommunicationAndDataEngine::Private::newEntry(Actions::Action action) const
{
    ActionLogEntry entry;
    entry.time = QDateTime::currentDateTimeUtc();
    entry.category = Actions::category(action);
    entry.level = Actions::level(action);
    entry.action = action;
    entry.operatorId = operatorId;
    entry.operatorName = operatorName;
    entry.system = system;
    return entry;
}

CommunicationAndDataEngine::CommunicationAndDataEngine(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    qRegisterMetaType<Actions::Action>("Actions::Action");
    qRegisterMetaType<Actions::ActionType>("Actions::ActionType");
    qRegisterMetaType<ZephanError>("ZephanError");
    qRegisterMetaType<UuidString>("UuidString");
    qRegisterMetaType<OperatorModel>("OperatorModel");
}

CommunicationAndDataEngine::~CommunicationAndDataEngine()
{
    if (d->writer)
        d->writer->close();
}

unsigned CommunicationAndDataEngine::initializeEngine(const QString &applicationName, bool interactive)
{
    if (d->writer) {
        CORVANE_LOG(Logger::Warning, Logger::Console, "CommunicationAndDataEngine::initializeEngine",
                    QStringLiteral("The action log is open already"));
        return ZephanErrors::kEngineNotReady;
    }
    std::unique_ptr<ActionLogWriter> writer = writerOfSettings();
    const ActionLogWriter::Opening opening = writer->open();
    if (opening == ActionLogWriter::Opening::NotOpened || opening == ActionLogWriter::Opening::Unusable) {
        CORVANE_LOG(Logger::Error, Logger::Console, "CommunicationAndDataEngine::initializeEngine",
                    QStringLiteral("The action log can't be used: ") + writer->errorText());
    } else {
        d->writer = std::move(writer);
    }
    if (opening == ActionLogWriter::Opening::NotOpened)
        return errorOf(opening);

    d->system = QHostInfo::localHostName();
    CORVANE_LOG(Logger::Information, Logger::Console, "CommunicationAndDataEngine::initializeEngine",
                QStringLiteral("Action log of %1, %2")
                    .arg(applicationName,
                         interactive ? QStringLiteral("interactive") : QStringLiteral("unattended")));
    QMetaObject::invokeMethod(
        this, [this, opening] { emit engineInitialized(errorOf(opening)); }, Qt::QueuedConnection);
    return ZephanErrors::kNone;
}

unsigned CommunicationAndDataEngine::shutdownEngine()
{
    if (!d->writer) {
        CORVANE_LOG(Logger::Warning, Logger::Console, "CommunicationAndDataEngine::shutdownEngine",
                    QStringLiteral("The action log is not open"));
        return ZephanErrors::kEngineNotReady;
    }
    d->writer->close();
    d->writer.reset();
    QMetaObject::invokeMethod(
        this, [this] { emit engineShutdown(ZephanErrors::kNone); }, Qt::QueuedConnection);
    return ZephanErrors::kNone;
}

void CommunicationAndDataEngine::logAction(Actions::Action action, Actions::ActionType actionType,
                                           UuidString databaseKey, const QString &databaseName,
                                           const QString &serverInfo, const QVariant &info)
{
    ActionLogEntry entry = d->newEntry(action);
    entry.actionType = actionType;
    entry.databaseKey = databaseKey;
    entry.info = eventText(info);
    entry.targetDatabase = databaseName;
    entry.targetServer = serverInfo;
    write(entry);
}

void CommunicationAndDataEngine::logError(Actions::Action action, ZephanError errorCode,
                                          const QVariant &errorData)
{
    ActionLogEntry entry = d->newEntry(action);
    entry.category = Actions::ErrorCategory;
    entry.actionType = Actions::Automatic;
    entry.info = errorEventText(errorCode, errorData);
    write(entry);
}

void CommunicationAndDataEngine::setOperatorInfo(OperatorModel operatorInfo)
{
    d->operatorId = operatorInfo ? operatorInfo->operatorID() : UuidString();
    d->operatorName = operatorInfo ? operatorInfo->username() : QString();
}

void CommunicationAndDataEngine::write(const ActionLogEntry &entry)
{
    if (!d->writer) {
        CORVANE_LOG(Logger::Warning, Logger::Console, "CommunicationAndDataEngine::write",
                    QStringLiteral("An event came while the action log was not open: ") +
                        Actions::name(entry.action));
        return;
    }
    if (!d->writer->write(entry))
        reportFailure(static_cast<Actions::Action>(entry.action), d->writer->errorText());
}

void CommunicationAndDataEngine::reportFailure(Actions::Action action, const QString &cause)
{
    CORVANE_LOG(Logger::Error, Logger::Console, "CommunicationAndDataEngine::reportFailure",
                QStringLiteral("The action log can't be written: ") + cause);
    const QString text = tr("The audit trail can no longer be written.") + QLatin1Char('\n') + cause;
    QMetaObject::invokeMethod(
        this,
        [this, action, text] { emit engineCriticalError(action, ZephanErrors::kActionLogNotWritten, text); },
        Qt::QueuedConnection);
}
