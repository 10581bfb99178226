#include "CommunicationAndData/actionlog/actionlogfile.h"

#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "ZephanShared/toolkit/logger.h"
#include "ZephanShared/toolkit/nativepath.h"
#include "ZephanShared/toolkit/plaintime.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

namespace {

const auto kJournalSuffix = QLatin1String("-wal");
const auto kIndexSuffix = QLatin1String("-shm");
const auto kRollbackSuffix = QLatin1String("-journal");
constexpr char kLockName[] = "actionlog.lock";

// Milliseconds: for a lock on the database, for another program that opens it, and until what a killed
// program left of its lock file may be removed. The system's own lock still keeps that of a living one.
constexpr int kBusyTimeout = 5000;
constexpr int kOpeningTimeout = 15000;
constexpr int kStaleLockTime = 1000;

// About one and a half seconds of reading. A larger log is not read through at each start: its damaged places
// show when they are reached.
constexpr qint64 kReadThroughSize = 256 * 1024 * 1024;

// Primary result codes of SQLite; the higher bits tell details.
constexpr int kPrimaryCode = 0xff;
constexpr int kGenericError = 1;
constexpr int kCorrupt = 11;
constexpr int kCannotOpen = 14;
constexpr int kConstraint = 19;
constexpr int kNotADatabase = 26;

QStringList companions()
{
    return {QString(), kJournalSuffix, kIndexSuffix, kRollbackSuffix};
}

/// The current directory may be another one later, as file dialogs change it on some systems.
QString absoluteDirectory(const QString &directory)
{
    if (directory.isEmpty())
        return QString();
    return QDir::cleanPath(QDir(QDir::fromNativeSeparators(directory)).absolutePath());
}

QString freeDamagedName(const QString &directory)
{
    const QString stamp = plainText(QDateTime::currentDateTimeUtc(), QStringLiteral("yyyyMMdd-hhmmss"));
    QString name;
    int count = 1;
    do {
        const QString number = count > 1 ? QStringLiteral("-%1").arg(count) : QString();
        name = nativePath(directory + QStringLiteral("/actionlog.damaged-%1%2.db").arg(stamp, number));
        ++count;
    } while (QFileInfo::exists(name));
    return name;
}

}  // namespace

ActionLogFile::ActionLogFile(const QString &directory)
    : ActionLogWriter(kEncryptedDriver)
    , m_directory(absoluteDirectory(directory))
    , m_path(nativePath(m_directory + QLatin1Char('/') + QLatin1String(ActionLogTable::kFileName)))
{}

ActionLogWriter::Opening ActionLogFile::open()
{
    if (m_directory.isEmpty() || !QDir().mkpath(m_directory)) {
        setErrorText(QStringLiteral("The directory of the action log cannot be made"));
        return Opening::NotOpened;
    }
    // Two programs that begin, complete or replace the file at the same time would take each other's
    // unfinished file for a damaged one.
    QLockFile lock(m_directory + QLatin1Char('/') + QLatin1String(kLockName));
    lock.setStaleLockTime(kStaleLockTime);
    if (!lock.tryLock(kOpeningTimeout)) {
        setErrorText(QStringLiteral("The directory of the action log cannot be locked"));
        return Opening::NotOpened;
    }
    const Opening opening = openOrReplace();
    if (opening == Opening::NotOpened || opening == Opening::Unusable)
        ActionLogWriter::close();
    return opening;
}

ActionLogWriter::Opening ActionLogFile::openOrReplace()
{
    bool replaced = false;
    Health health = lostItsContent() ? Health::Damaged : openFile();
    if (health == Health::Damaged) {
        CORVANE_LOG(Logger::Error, Logger::Console, "ActionLogFile::openOrReplace",
                    QStringLiteral("The action log is damaged: ") + errorText());
        ActionLogWriter::close();
        if (!moveAside())
            return Opening::NotOpened;
        replaced = true;
        health = openFile();
    }
    switch (health) {
    case Health::Sound:
        return replaced ? Opening::Replaced : Opening::Ready;
    case Health::NotOpened:
        return Opening::NotOpened;
    default:
        return Opening::Unusable;
    }
}

/// An empty file is never left by a program that closed it, and a journal without its file neither.
bool ActionLogFile::lostItsContent() const
{
    const QFileInfo file(m_path);
    if (file.isDir() || file.size() > 0)
        return false;
    return file.exists() || QFileInfo::exists(m_path + kJournalSuffix);
}

ActionLogFile::Health ActionLogFile::openFile()
{
    if (QFileInfo(m_path).isDir()) {
        setErrorText(QStringLiteral("A directory is in the place of the action log"));
        return Health::NotOpened;
    }
    addDatabase(m_path).open();
    if (!isOpened())
        return Health::NotOpened;
    const QStringList keyStatements = databaseKeyStatements();
    for (const QString &statement : keyStatements)
        run(statement);
    run(QStringLiteral("PRAGMA busy_timeout = %1").arg(kBusyTimeout));
    const Health health = examine();
    if (health == Health::Sound) {
        m_file = FileIdentity::of(m_path);
        m_journal = FileIdentity::of(m_path + kJournalSuffix);
    }
    return health;
}

ActionLogFile::Health ActionLogFile::examine()
{
    const bool isNew = QFileInfo(m_path).size() == 0;
    const QString entries = run(QStringLiteral("SELECT count(*) FROM sqlite_master"));
    if (!succeeded())
        return healthOfError();
    if (!isNew) {
        const Health health = readThrough();
        if (health != Health::Sound)
            return health;
    }
    if (entries != QLatin1String("0")) {
        const Health health = lookForActionLog();
        if (health != Health::Sound)
            return health;
    }
    run(QStringLiteral("PRAGMA journal_mode = WAL"));
    syncAtEachEvent();
    const Health health = complete();
    return health == Health::Sound ? tryToWrite() : health;
}

ActionLogFile::Health ActionLogFile::readThrough()
{
    if (QFileInfo(m_path).size() > kReadThroughSize)
        return Health::Sound;
    const QString answer = run(QStringLiteral("PRAGMA quick_check(1)"));
    if (!succeeded())
        return healthOfError();
    if (answer == QLatin1String("ok"))
        return Health::Sound;
    setErrorText(answer);
    return Health::Damaged;
}

ActionLogFile::Health ActionLogFile::lookForActionLog()
{
    const QString statement =
        QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = '%1'");
    const QString tables = run(statement.arg(QLatin1String(ActionLogTable::kTable)));
    if (!succeeded())
        return healthOfError();
    if (tables == QLatin1String("1"))
        return Health::Sound;
    setErrorText(QStringLiteral("The file holds other tables than those of the action log"));
    return Health::Damaged;
}

ActionLogFile::Health ActionLogFile::complete()
{
    run(QStringLiteral("BEGIN IMMEDIATE"));
    if (!succeeded())
        return healthOfError();
    if (!completeTables(QSqlDriver::SQLite)) {
        const Health health = healthOfError();
        const QString cause = errorText();
        run(QStringLiteral("ROLLBACK"));
        setErrorText(cause);
        return health;
    }
    run(QStringLiteral("COMMIT"));
    return succeeded() ? Health::Sound : healthOfError();
}

/// An insert that is taken back: it reaches the places of the file that the next event will reach.
ActionLogFile::Health ActionLogFile::tryToWrite()
{
    run(QStringLiteral("BEGIN IMMEDIATE"));
    if (!succeeded())
        return healthOfError();
    ActionLogEntry entry;
    entry.time = QDateTime::currentDateTimeUtc();
    const Health health = ActionLogWriter::write(entry) ? Health::Sound : healthOfError();
    const QString cause = errorText();
    run(QStringLiteral("ROLLBACK"));
    setErrorText(cause);
    return health;
}

ActionLogFile::Health ActionLogFile::healthOfError() const
{
    switch (error().nativeErrorCode().toInt() & kPrimaryCode) {
    case kCorrupt:
    case kNotADatabase:
    case kGenericError:  // of these fixed statements: a table or column is not as it should be
    case kConstraint:    // a column that this program doesn't know asks for a value
        return Health::Damaged;
    case kCannotOpen:
        return Health::NotOpened;
    default:
        return Health::Unusable;
    }
}

bool ActionLogFile::moveAside()
{
    const QString name = freeDamagedName(m_directory);
    for (const QString &suffix : companions()) {
        if (QFileInfo::exists(m_path + suffix) && !QFile::rename(m_path + suffix, name + suffix)) {
            setErrorText(QStringLiteral("The damaged action log cannot be moved aside"));
            return false;
        }
    }
    CORVANE_LOG(Logger::Warning, Logger::Console, "ActionLogFile::moveAside",
                QStringLiteral("The damaged action log was moved to ") + name);
    return true;
}

bool ActionLogFile::write(const ActionLogEntry &entry)
{
    if (!ActionLogWriter::write(entry))
        return false;
    if (isInPlace())
        return true;
    setErrorText(QStringLiteral("The file of the action log was removed or replaced"));
    return false;
}

/// A log that was opened without a write-ahead journal may get one from another program.
bool ActionLogFile::isInPlace() const
{
    return FileIdentity::of(m_path) == m_file &&
           (m_journal.isNull() || FileIdentity::of(m_path + kJournalSuffix) == m_journal);
}

void ActionLogFile::close()
{
    if (database().isOpen())
        run(QStringLiteral("PRAGMA wal_checkpoint"));
    ActionLogWriter::close();
}
