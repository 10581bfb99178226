#include "Corvane/accesscontrol/editorsteps.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMessageBox>
#include <QTest>

#include <algorithm>

namespace {

constexpr int kPollInterval = 10;  // milliseconds
constexpr int kPatience = 200;     // polls

bool isOnKeyboard(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar character) {
        return character.unicode() >= ' ' && character.unicode() < 127;
    });
}

void paste(QLineEdit *edit, const QString &text)
{
    QApplication::clipboard()->setText(text);
    QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
}

}  // namespace

EditorSteps::EditorSteps(QList<Step> steps)
    : m_steps(std::move(steps))
{
    connect(&m_timer, &QTimer::timeout, this, &EditorSteps::runNext);
    m_timer.start(kPollInterval);
}

void EditorSteps::runNext()
{
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog || qobject_cast<QMessageBox *>(dialog) || !dialog->isVisible())
        return;
    if (!m_steps.isEmpty()) {
        m_idle = 0;
        m_steps.takeFirst()(*dialog);
    } else if (++m_idle > kPatience) {
        m_leftOpen = true;
        dialog->done(QDialog::Rejected);
    }
}

bool isShown(QDialog &dialog, const char *name)
{
    const auto *widget = dialog.findChild<QWidget *>(QLatin1String(name));
    return widget && widget->isVisible();
}

EditorSteps::Step typeInto(const char *name, const QString &text)
{
    return [name, text](QDialog &dialog) {
        auto *edit = shown<QLineEdit>(dialog, name);
        QTest::mouseClick(edit, Qt::LeftButton);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        if (isOnKeyboard(text))
            QTest::keyClicks(edit, text);
        else
            paste(edit, text);
    };
}

EditorSteps::Step press(const char *button)
{
    return [button](QDialog &dialog) {
        QTest::mouseClick(shown<QPushButton>(dialog, button), Qt::LeftButton);
    };
}

EditorSteps::Step pressKey(Qt::Key key)
{
    return [key](QDialog &dialog) {
        QWidget *target = dialog.focusWidget();
        QTest::keyClick(target ? target : &dialog, key);
    };
}

EditorSteps::Step giveFocus(const QString &widget)
{
    return [widget](QDialog &dialog) {
        shown<QWidget>(dialog, qPrintable(widget))->setFocus(Qt::TabFocusReason);
    };
}

EditorSteps::Step holdReturn()
{
    return [](QDialog &dialog) {
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
        QApplication::sendEvent(dialog.focusWidget(), &repeated);
    };
}

QStringList tabOrder(QDialog &dialog)
{
    QStringList names;
    const QWidget *first = dialog.focusWidget();
    for (QWidget *widget = dialog.focusWidget(); widget; widget = dialog.focusWidget()) {
        names.append(widget->objectName());
        QTest::keyClick(widget, Qt::Key_Tab);
        if (dialog.focusWidget() == first || names.size() > 100)
            break;
    }
    return names;
}

QString spokenName(QWidget *widget)
{
    const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    const auto labels = interface->relations(QAccessible::Label);
    return (labels.isEmpty() ? interface : labels.constFirst().first)->text(QAccessible::Name);
}

void addNamesOfAnyKind()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("blanks") << QString::fromUtf8("   ");
    QTest::newRow("10,000 characters") << QString(10000, QLatin1Char('x'));
    QTest::newRow("quotes and marks") << QString::fromUtf8("O'Brien \"the\" `boss`; DROP -- <b>&amp;");
    QTest::newRow("line breaks") << QString::fromUtf8("one\ntwo\r\nthree");
    QTest::newRow("right to left") << QString::fromUtf8("\u05de\u05e0\u05d4\u05dc \u0645\u062f\u064a\u0631");
    QTest::newRow("combining letters") << QString::fromUtf8("e\u0301\u0327 a\u0308");
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("\U0001F637 \U00020000");
}
