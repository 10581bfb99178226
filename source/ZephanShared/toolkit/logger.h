#ifndef LOGGER_H
#define LOGGER_H

#include <QFile>
#include <QMutex>
#include <QString>
#include <QTextStream>

/// The run-time log: plain text for support, apart from the audit trail.
///
/// Each run begins a new file, `CORVANE_runtime.log` in the folder that the environment variable `TEMP`
/// names. Every line is flushed at once, since the file is read after crashes. Logging reports nothing and
/// never fails: without a file the lines go to standard output.
class Logger
{
public:
    enum Severity { Error = 1, Warning = 2, Information = 4, Debug = 8 };

    /// `Console` is this program. `Unnamed` has no tag of its own and prints the unknown one.
    enum Module { Console = 6, Unnamed = 7 };

    /// Once the file has this many bytes, each further line copies it to a time-stamped name.
    static constexpr qint64 kRotationSize = 0x40000000;

    static Logger &getInstance();

    /// Writes one line.
    ///
    /// \param severity  1 error, 2 warning, 4 information, 8 debug; others print as unknown
    /// \param module    0 to 6; others print as unknown
    /// \param function  qualified name, as "CentralElement::CentralElement"
    /// \param line      line number in the source file
    /// \param file      source path without its ending, as `sourceName` makes it
    /// \param message   one line of text
    void log(int severity, int module, const QString &function, int line, const QString &file,
             const QString &message);

    /// The name under which a source file stands in the log: its path below `source`, with backslashes,
    /// behind "..\..\source\" and without its ending.
    ///
    /// \param path  as `__FILE__` gives it
    static QString sourceName(const char *path);

private:
    Logger();
    ~Logger() = default;
    Q_DISABLE_COPY(Logger)

    bool openStandardOutput();
    void attachStream();
    void writeLine(int severity, int module, const QString &function, int line, const QString &file,
                   const QString &message);
    void rotate();

    QMutex m_mutex;
    QTextStream m_stream;
    QFile m_file;
    bool m_logToFile = false;
};

/// Logs with the position of the caller: `CORVANE_LOG(Logger::Warning, Logger::Console, "Class::function",
/// text)`.
#define CORVANE_LOG(severity, module, function, message)                                                     \
    Logger::getInstance().log((severity), (module), QStringLiteral(function), __LINE__,                      \
                              Logger::sourceName(__FILE__), (message))

#endif
