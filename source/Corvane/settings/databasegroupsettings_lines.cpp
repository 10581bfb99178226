#include "Corvane/settings/databasegroupsettings.h"

#include "Corvane/settings/formparts.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

QStringList splitLine(const QString &line)
{
    return line.split(QLatin1Char(';'), Qt::SkipEmptyParts);
}

bool isPlainTab(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Tab && event.modifiers() == Qt::NoModifier;
}

}  // namespace

QLineEdit *DatabaseGroupSettings::addEditor(LineList &list, const QString &text)
{
    auto *editor = new QLineEdit(text, this);
    editor->setCursorPosition(0);
    editor->setFixedHeight(FormParts::kFieldHeight);
    editor->setEnabled(m_editable);
    editor->setVisible(!isOffline());
    editor->installEventFilter(this);
    setTabOrder(lineBefore(list), editor);
    list.editors.append(editor);
    list.layout->addWidget(editor);
    connect(editor, SIGNAL(editingFinished()), this, SLOT(addEmptyEditors()));
    return editor;
}

/// What the focus comes from when it enters a list's next line.
QLineEdit *DatabaseGroupSettings::lineBefore(const LineList &list) const
{
    if (!list.editors.isEmpty())
        return list.editors.last();
    const bool isFirstList = &list == &m_paramEditors || m_paramEditors.editors.isEmpty();
    return isFirstList ? m_passwordEdit : m_paramEditors.editors.last();
}

void DatabaseGroupSettings::clearEditors(LineList &list)
{
    while (!list.editors.isEmpty()) {
        QLineEdit *editor = list.editors.takeFirst();
        list.layout->removeWidget(editor);
        delete editor;
    }
}

// Both by the rows' order on the screen: the first parameter is named "Connection settings 1" and found as
// connection_setting_1.
void DatabaseGroupSettings::nameEditors()
{
    const auto name = [](const LineList &list, const QString &objectName, const QString &accessibleName) {
        int number = 0;
        for (QLineEdit *editor : list.editors) {
            ++number;
            editor->setObjectName(objectName + QString::number(number));
            editor->setAccessibleName(QStringLiteral("%1 %2").arg(accessibleName).arg(number));
        }
    };
    name(m_paramEditors, QStringLiteral("connection_setting_"), tr("Connection settings"));
    name(m_optionEditors, QStringLiteral("connection_parameter_"), tr("Connection parameters"));
}

void DatabaseGroupSettings::addEmptyEditors(bool setFocus)
{
    bool moveFocus = false;
    auto *finished = setFocus ? qobject_cast<QLineEdit *>(sender()) : nullptr;
    if (finished) {
        moveFocus = finished->hasFocus();
        finished->setText(finished->text().trimmed());
        finished->setCursorPosition(0);
    }
    keepEmptyEditor(m_paramEditors, moveFocus);
    keepEmptyEditor(m_optionEditors, moveFocus);
    nameEditors();
    updateGeometry();
    adjustParent();
}

void DatabaseGroupSettings::keepEmptyEditor(LineList &list, bool moveFocus)
{
    if (list.editors.isEmpty() || !list.editors.last()->text().isEmpty()) {
        QLineEdit *editor = addEditor(list, QString());
        if (moveFocus)
            editor->setFocus(Qt::OtherFocusReason);
    }
    if (list.editors.last()->text().isEmpty() && list.editors.size() > 1)
        removeEmptyEditors(list);
}

// The indices are those from before the removals: with one empty row, which is all that editing can leave,
// they are right.
void DatabaseGroupSettings::removeEmptyEditors(LineList &list)
{
    QList<int> empty;
    for (int i = list.editors.size() - 2; i >= 0; --i) {
        if (list.editors.at(i)->text().isEmpty())
            empty.prepend(i);
    }
    for (int index : qAsConst(empty)) {
        if (index >= list.editors.size())
            break;
        QLineEdit *editor = list.editors.takeAt(index);
        editor->disconnect();
        editor->setObjectName(QString());
        list.layout->removeWidget(editor);
        editor->hide();
        editor->deleteLater();
    }
}

// Tab leaves the editor before its editing is finished. Finishing it first lets the focus go to the empty
// line that the finished one brings. Ctrl+Tab is for the tabs around the page.
bool DatabaseGroupSettings::eventFilter(QObject *watched, QEvent *event)
{
    auto *editor = qobject_cast<QLineEdit *>(watched);
    if (editor && event->type() == QEvent::KeyPress && isPlainTab(*static_cast<QKeyEvent *>(event))) {
        emit editor->editingFinished();
        if (!editor->hasFocus())
            return true;
    }
    return BaseView::eventFilter(watched, event);
}

QVariantMap DatabaseGroupSettings::editedParameters() const
{
    QVariantMap parameters;
    for (const QLineEdit *editor : m_paramEditors.editors) {
        const QStringList parts = splitLine(editor->text());
        for (const QString &part : parts) {
            const QStringList pair = part.split(QLatin1Char('='));
            if (pair.size() == 2)
                parameters.insert(pair.at(0), pair.at(1));
        }
    }
    return parameters;
}

// No options are an empty text: an absent key would bring the default time-outs back.
QVariant DatabaseGroupSettings::editedOptions() const
{
    QStringList options;
    for (const QLineEdit *editor : m_optionEditors.editors)
        options.append(splitLine(editor->text()));
    return options.isEmpty() ? QVariant(QString()) : QVariant(options);
}
