#include "ZephanShared/toolkit/logger.h"

#include "ZephanShared/toolkit/nativepath.h"
#include "ZephanShared/toolkit/plaintime.h"

#include <QDateTime>
#include <QMutexLocker>

#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#endif

namespace {

const auto kLogName = QLatin1String("CORVANE_runtime.log");
const auto kLoggerConstructor = QLatin1String("Logger constructor");

const char *severityTag(int severity)
{
    switch (severity) {
    case Logger::Error:
        return "ERR ";
    case Logger::Warning:
        return "WRN ";
    case Logger::Information:
        return "INF ";
    case Logger::Debug:
        return "DBG ";
    default:
        return "??? ";
    }
}

const char *moduleTag(int module)
{
    // The first six belong to other components of the suite, which write their own logs with these tags.
    static const char *const tags[] = {"AL: ", "CR: ", "CD: ", "DM: ", "SH: ", "PB: ", "CV: "};
    constexpr int count = sizeof(tags) / sizeof(tags[0]);
    return module >= 0 && module < count ? tags[module] : "??: ";
}

/// A file of this name in the temporary folder. An unset variable gives the root of the current drive.
QString temporaryFile(const QString &name)
{
    return nativePath(qEnvironmentVariable("TEMP") + QLatin1Char('/') + name);
}

/// Whether the process has a standard output at all: started without a console or with it closed, it has
/// none.
bool hasStandardOutput()
{
#ifdef Q_OS_WIN
    return _fileno(stdout) >= 0;
#else
    const int flags = fcntl(fileno(stdout), F_GETFL);
    return flags != -1 && (flags & O_ACCMODE) != O_RDONLY;
#endif
}

void noteMissingOutput()
{
    QFile file(QStringLiteral("logger_error.log"));
    if (file.open(QIODevice::Append))
        file.write(QByteArrayLiteral("Could not open standard output!"));
}

}  // namespace

Logger &Logger::getInstance()
{
    static Logger logger;
    return logger;
}

Logger::Logger()
{
    const QString name = temporaryFile(kLogName);
    if (name.isEmpty()) {
        if (openStandardOutput()) {
            writeLine(Information, Unnamed, kLoggerConstructor, 0, QString(),
                      QStringLiteral("Logfile defined empty. Logging to stdout!"));
        }
        return;
    }
    m_file.setFileName(name);
    if (m_file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        attachStream();
        m_logToFile = true;
    } else if (openStandardOutput()) {
        writeLine(Error, Unnamed, kLoggerConstructor, 0, QString(),
                  QStringLiteral("Error opening logfile! Logging to stdout!"));
    }
}

void Logger::log(int severity, int module, const QString &function, int line, const QString &file,
                 const QString &message)
{
    writeLine(severity, module, function, line, file, message);
}

QString Logger::sourceName(const char *path)
{
    QString name = QString::fromLocal8Bit(path).replace(QLatin1Char('\\'), QLatin1Char('/'));
    const int folder = name.lastIndexOf(QLatin1String("/source/"));
    if (folder >= 0)
        name = QLatin1String("../..") + name.mid(folder);
    const int ending = name.lastIndexOf(QLatin1Char('.'));
    if (ending > name.lastIndexOf(QLatin1Char('/')))
        name.truncate(ending);
    return name.replace(QLatin1Char('/'), QLatin1Char('\\'));
}

bool Logger::openStandardOutput()
{
    if (!hasStandardOutput() || !m_file.open(stdout, QIODevice::WriteOnly | QIODevice::Text)) {
        noteMissingOutput();
        return false;
    }
    attachStream();
    return true;
}

void Logger::attachStream()
{
    m_stream.setDevice(&m_file);
    m_stream.setCodec("UTF-8");  // a new device brings the codec of the locale with it
}

void Logger::writeLine(int severity, int module, const QString &function, int line, const QString &file,
                       const QString &message)
{
    const QDateTime now = QDateTime::currentDateTime();
    const QMutexLocker locker(&m_mutex);
    if (!m_stream.device())
        return;
    m_stream.resetStatus();  // a line that found no room must not be the last one
    m_stream << severityTag(severity) << moduleTag(module) << now.toString(Qt::ISODate) << '\t' << file << ':'
             << line << "::" << function << '\t' << message << '\n';
    m_stream.flush();
    if (m_logToFile && m_file.size() >= kRotationSize)
        rotate();
}

void Logger::rotate()
{
    QString name = temporaryFile(kLogName + QLatin1Char('.') +
                                 plainText(QDateTime::currentDateTime(), QStringLiteral("yyMMdd-hhmmss")));
    if (!QFile::copy(m_file.fileName(), name))
        name += QLatin1String("-2");
}
