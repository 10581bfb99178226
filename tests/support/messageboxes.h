#ifndef TESTS_SUPPORT_MESSAGEBOXES_H
#define TESTS_SUPPORT_MESSAGEBOXES_H

#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QString>

/// What a message box said when it was answered.
struct SeenBox
{
    QString title;
    QString text;
    QString informativeText;
    QMessageBox::Icon icon;
    QStringList buttons;  ///< labels without "&", in screen order
};

/// Answers the real message boxes of the program from a timer and remembers what they said.
///
/// While the object lives, each modal box that comes up is answered by clicking the button whose label is the
/// answer in turn; when no answer is left, its default or only button is clicked.
class MessageBoxes : public QObject
{
    Q_OBJECT

public:
    explicit MessageBoxes(QStringList answers = {});

    const QList<SeenBox> &seen() const
    {
        return m_seen;
    }

private slots:
    void answer();

private:
    QStringList m_answers;
    QList<SeenBox> m_seen;
};

#endif
