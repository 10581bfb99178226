#include "enginerun.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"

EngineRun::EngineRun()
    : engine(nullptr)
    , initialized(&engine, &CommunicationAndDataEngine::engineInitialized)
    , critical(&engine, &CommunicationAndDataEngine::engineCriticalError)
    , shutDown(&engine, &CommunicationAndDataEngine::engineShutdown)
{}

void EngineRun::useLocation(const QString &location)
{
    SettingsHandler *settings = SettingsHandler::getInstance();
    settings->setValue(QLatin1String(SettingsKeys::kActionLogActivated), true);
    settings->setValue(QLatin1String(SettingsKeys::kActionLogLocation), location);
}

ZephanError EngineRun::start()
{
    const unsigned refusal = engine.initializeEngine(QStringLiteral("Test"), true);
    if (refusal != ZephanErrors::kNone)
        return refusal;
    if (initialized.isEmpty())
        initialized.wait();
    return initialized.takeLast().at(0).toUInt();
}

void EngineRun::log(const QString &info)
{
    engine.logAction(Actions::Started, Actions::Human, UuidString(), QString(), QString(), info);
}
