#ifndef ACTIONLOGFILE_H
#define ACTIONLOGFILE_H

#include "CommunicationAndData/actionlog/actionlogwriter.h"
#include "CommunicationAndData/actionlog/fileidentity.h"

/// The audit trail of one workstation: the encrypted file `actionlog.db` in a directory.
///
/// A file that is damaged, foreign or of another key is moved aside with its companions under a name that
/// says when, as "actionlog.damaged-20160201-134500.db", and a new one is begun.
class ActionLogFile : public ActionLogWriter
{
public:
    /// \param directory  made when it is missing
    explicit ActionLogFile(const QString &directory);

    Opening open() override;
    bool write(const ActionLogEntry &entry) override;
    void close() override;

private:
    enum class Health { Sound, Damaged, NotOpened, Unusable };

    Opening openOrReplace();
    bool lostItsContent() const;
    Health openFile();
    Health examine();
    Health readThrough();
    Health lookForActionLog();
    Health complete();
    Health tryToWrite();
    Health healthOfError() const;
    bool moveAside();
    bool isInPlace() const;

    const QString m_directory;
    const QString m_path;
    FileIdentity m_file;
    FileIdentity m_journal;
};

#endif
