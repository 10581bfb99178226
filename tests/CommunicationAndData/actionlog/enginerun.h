#ifndef TESTS_ENGINERUN_H
#define TESTS_ENGINERUN_H

#include "CommunicationAndData/actionlog/communicationanddataengine.h"

#include <QSignalSpy>

/// An engine with all that it says.
class EngineRun
{
public:
    EngineRun();

    /// Sets the local action log's location in the working settings.
    static void useLocation(const QString &location);

    /// Starts the engine on what the settings hold. \return the result of `initializeEngine`, or else the
    /// code of `engineInitialized`
    ZephanError start();
    /// Writes one event with this text.
    void log(const QString &info);

    CommunicationAndDataEngine engine;
    QSignalSpy initialized;
    QSignalSpy critical;
    QSignalSpy shutDown;
};

#endif
