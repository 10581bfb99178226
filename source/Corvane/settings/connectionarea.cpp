#include "Corvane/settings/connectionarea.h"

#include "Corvane/settings/databasegroupsettings.h"
#include "Corvane/settings/formparts.h"

#include <QComboBox>
#include <QVBoxLayout>

namespace {

constexpr int kMargin = 4;
constexpr int kActionDatabase = 0;

}  // namespace

ConnectionArea::ConnectionArea(int databaseIndex, QMap<QString, QVariant> *connection, QWidget *parent)
    : QScrollArea(parent)
{
    // The editor fits its parent to itself whenever its rows change, so that it needs one of its own.
    auto *holder = new QWidget;
    auto *layout = new QVBoxLayout(holder);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_editor = new DatabaseGroupSettings(databaseIndex, true, databaseIndex == kActionDatabase, false,
                                         connection, holder);
    layout->addWidget(m_editor);
    layout->addStretch();
    for (QComboBox *box : m_editor->findChildren<QComboBox *>())
        FormParts::leaveWheelToPage(box);
    setWidget(holder);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFocusPolicy(Qt::NoFocus);
}

// The editor's layout keeps its minimum size, so that the width has to be one of the layout's.
void ConnectionArea::setEditorWidth(int width)
{
    auto *layout = qobject_cast<QBoxLayout *>(m_editor->layout());
    layout->addStrut(width);
    layout->activate();
    // What is left of the area is for the scroll bar alone.
    widget()->layout()->setContentsMargins(0, 0, 0, 0);
    setFrameShape(QFrame::NoFrame);
}

DatabaseGroupSettings *ConnectionArea::editor() const
{
    return m_editor;
}
