#ifndef COMMUNICATIONANDDATAENGINE_H
#define COMMUNICATIONANDDATAENGINE_H

#include "CommunicationAndData/access/operatormodeldata.h"
#include "CommunicationAndData/actionlog/actions.h"
#include "ZephanShared/toolkit/uuidstring.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QObject>
#include <QVariant>

#include <memory>

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
    /// \return                 0 when `engineInitialized` will follow from the event loop, else an error
    /// number
    unsigned initializeEngine(const QString &applicationName, bool interactive);

    /// Begins the shutdown. \return 0 when `engineShutdown` will follow from the event loop
    unsigned shutdownEngine();

public slots:
    void logAction(Actions::Action action, Actions::ActionType actionType, UuidString databaseKey,
                   const QString &databaseName, const QString &serverInfo, const QVariant &info);
    void logError(Actions::Action action, ZephanError errorCode, const QVariant &errorData);

    /// The operator on whose behalf later events are written.
    void setOperatorInfo(OperatorModel operatorInfo);

signals:
    void engineInitialized(ZephanError error);
    /// A fatal condition at any time. The data holds a text.
    void engineCriticalError(Actions::Action action, ZephanError error, QVariant errorData);
    void engineShutdown(ZephanError error);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
