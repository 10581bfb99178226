#ifndef TESTS_SUPPORT_RUNNINGPROGRAM_H
#define TESTS_SUPPORT_RUNNINGPROGRAM_H

#include <QJsonObject>
#include <QLocalSocket>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

/// The real program as its own process, whose widgets a test reads and works by their object names.
///
/// Whatever a method waits for it waits long enough for a busy machine, and then gives up with an empty
/// answer.
class RunningProgram
{
public:
    static constexpr int Patience = 60000;  // milliseconds

    /// \param environment  the workstation's
    /// \param program      the executable; empty for the one beside the test
    explicit RunningProgram(const QProcessEnvironment &environment, const QString &program = QString(),
                            const QStringList &arguments = {});
    ~RunningProgram();
    Q_DISABLE_COPY(RunningProgram)

    /// The path of the built program.
    static QString builtProgram();

    /// Sends one request and returns the answer; empty while the program does not answer.
    QJsonObject ask(const QJsonObject &request);
    /// Waits until a widget is visible, and describes it: "text", "enabled", "width", "height".
    QJsonObject widget(const QString &name);
    bool isVisible(const QString &name);
    /// Waits for a message box, and describes it: "title", "text", "buttons". It stays up.
    QJsonObject box();
    bool hasBox();
    void answerBox();
    void click(const QString &name);
    void choose(const QString &name, int index);
    void type(const QString &name, const QString &text);
    /// Calls a slot without arguments.
    void invoke(const QString &name, const QString &slot);
    /// Closes the main window.
    void close();
    /// The classes of all windows that were shown, in that order.
    QStringList shownWindows();

    bool isRunning() const;
    /// Waits for the end. \return the exit code; -1 when it crashed or goes on
    int exitCode();
    /// Everything that the process wrote to its standard output and error.
    QByteArray output();
    void kill();

private:
    bool connectToProgram();
    QJsonObject waitFor(const QJsonObject &request, const QString &entry);

    QTemporaryDir m_folder;
    QProcess m_process;
    QLocalSocket m_socket;
};

#endif
