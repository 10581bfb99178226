#ifndef TESTS_EDITORSTEPS_H
#define TESTS_EDITORSTEPS_H

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <functional>

/// What a person does in the dialogs that come up, one after the other: each step runs from a timer when a
/// dialog is open that is no message box. A dialog that is left open at the end is closed, and the steps
/// count as failed.
class EditorSteps : public QObject
{
    Q_OBJECT

public:
    using Step = std::function<void(QDialog &dialog)>;

    explicit EditorSteps(QList<Step> steps);

    bool areDone() const
    {
        return m_steps.isEmpty() && !m_leftOpen;
    }

private slots:
    void runNext();

private:
    QList<Step> m_steps;
    QTimer m_timer;
    int m_idle = 0;
    bool m_leftOpen = false;
};

/// A widget of a dialog that a person can see.
template<typename Widget>
Widget *shown(QDialog &dialog, const char *name)
{
    auto *widget = dialog.findChild<Widget *>(QLatin1String(name));
    if (!widget || !widget->isVisible())
        qFatal("There is no %s to be seen", name);
    return widget;
}

bool isShown(QDialog &dialog, const char *name);

// Steps
EditorSteps::Step typeInto(const char *name, const QString &text);
EditorSteps::Step press(const char *button);
EditorSteps::Step pressKey(Qt::Key key);
EditorSteps::Step giveFocus(const QString &widget);
/// A return key that repeats itself, as it does while it is held down.
EditorSteps::Step holdReturn();

/// Rows of a column "name": whatever a person can type or paste as one.
void addNamesOfAnyKind();

/// The names of the widgets that the tabulator key reaches from the one that has the focus, once around.
QStringList tabOrder(QDialog &dialog);
/// The name that a screen reader tells for a widget: that of its label, where it has one.
QString spokenName(QWidget *widget);

#endif
