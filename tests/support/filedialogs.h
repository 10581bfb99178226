#ifndef TESTS_SUPPORT_FILEDIALOGS_H
#define TESTS_SUPPORT_FILEDIALOGS_H

#include <QFileDialog>
#include <QList>
#include <QObject>
#include <QString>

#include <functional>

/// What a file dialog offered when it was answered.
struct SeenFileDialog
{
    QString title;
    QString directory;
    QStringList nameFilters;
    QString acceptLabel;
    QString rejectLabel;
    QFileDialog::FileMode fileMode;
    QFileDialog::AcceptMode acceptMode;
    bool showsDirectoriesOnly;
};

/// Answers the real file dialogs of the program from a timer and remembers what they offered.
///
/// While the object lives, each file dialog that comes up is answered with the path in turn, typed into its
/// name edit; an empty path, or none left, cancels it. The dialogs have to be Qt's own: tests set
/// `Qt::AA_DontUseNativeDialogs`.
class FileDialogs : public QObject
{
    Q_OBJECT

public:
    explicit FileDialogs(QStringList paths = {});

    /// Runs with each file that is chosen, before the program goes on with it.
    void whenChosen(std::function<void(const QString &)> action);

    const QList<SeenFileDialog> &seen() const
    {
        return m_seen;
    }

private slots:
    void answer();

private:
    QStringList m_paths;
    std::function<void(const QString &)> m_whenChosen;
    QList<SeenFileDialog> m_seen;
};

#endif
