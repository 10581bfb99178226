#ifndef COMMUNICATIONANDDATAENGINE_H
#define COMMUNICATIONANDDATAENGINE_H

#include "CommunicationAndData/access/operatormodeldata.h"
#include "ZephanShared/toolkit/actions.h"
#include "ZephanShared/toolkit/uuidstring.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QObject>
#include <QVariant>

#include <memory>

struct ActionLogEntry;

/// Writes the audit trail, the table `action_log`, online or in the encrypted file of this workstation.
///
/// An event is on disk when `logAction` or `logError` returns. A log that can no longer be written is a
/// critical error: nobody works unrecorded.
class CommunicationAndDataEngine : public QObject
{
    Q_OBJECT

public:
    explicit CommunicationAndDataEngine(QObject *parent);
    ~CommunicationAndDataEngine() override;

    /// Begins the start: reads `actionlog/activated` and `actionlog/location` of the settings store and opens
    /// the log there, or the `actiondb` connection when the local log is not activated.
    ///
    /// \param applicationName  name of the program
    /// \param interactive      a person works with the program
    /// \return  0 when `engineInitialized` will follow from the event loop; `kActionLogNotOpened` when there
    ///          is no log to be had; `kEngineNotReady` when it is open already
    unsigned initializeEngine(const QString &applicationName, bool interactive);

    /// Completes the log and lets go of it; later events are dropped with a line in the run-time log.
    ///
    /// \return  0 when `engineShutdown` will follow from the event loop; `kEngineNotReady` when no log is
    /// open
    unsigned shutdownEngine();

public slots:
    /// Records an event. Lists and maps in `info` become readable text.
    void logAction(Actions::Action action, Actions::ActionType actionType, UuidString databaseKey,
                   const QString &databaseName, const QString &serverInfo, const QVariant &info);
    /// Records a failure: a row of the category Error whose `info` begins with the error number in decimal.
    void logError(Actions::Action action, ZephanError errorCode, const QVariant &errorData);

    /// The operator on whose behalf later events are written; null for nobody.
    void setOperatorInfo(OperatorModel operatorInfo);

signals:
    /// \param error  0; `kActionLogReplaced` after a damaged log was moved aside; `kActionLogNotWritten` when
    ///               the log was reached but can't be written
    void engineInitialized(ZephanError error);
    /// An event could not be written, `kActionLogNotWritten`; once for each such event, from the event loop.
    /// The data holds a text for the person at the screen.
    void engineCriticalError(Actions::Action action, ZephanError error, QVariant errorData);
    void engineShutdown(ZephanError error);

private:
    void write(const ActionLogEntry &entry);
    void reportFailure(Actions::Action action, const QString &cause);

    class Private;
    std::unique_ptr<Private> d;
};

#endif
