#include "Corvane/settings/diffview.h"

#include "Corvane/settings/formparts.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSet>

#include <algorithm>

namespace {

constexpr int kPaneMinimumWidth = 300;
constexpr int kPaneMinimumHeight = 300;
const QChar kKeyEnd = QLatin1Char('=');

const char *const kEncryptedMark = "encrypted";
const char *const kMask = "*****";

QStringList withoutThoseOf(const QSet<QString> &lines, const QSet<QString> &others)
{
    QStringList result;
    for (const QString &line : lines) {
        if (!others.contains(line))
            result.append(line);
    }
    result.sort(Qt::CaseSensitive);
    return result;
}

/// After the comparison: a changed secret still shows as a changed line.
void hideSecrets(QStringList &lines)
{
    for (QString &line : lines) {
        const int end = line.indexOf(kKeyEnd);
        if (end >= 0 && line.midRef(end + 1).startsWith(QLatin1String(kEncryptedMark)))
            line = line.left(end + 1) + QLatin1String(kMask);
    }
}

QString joined(const QStringList &lines)
{
    return lines.join(QLatin1Char('\n'));
}

/// The window to stay in front of. None is active for the moment in which a dialog has closed and its window
/// has not been told yet that it is its turn.
QWidget *windowBehind()
{
    if (QWidget *active = QApplication::activeWindow())
        return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto main = std::find_if(windows.cbegin(), windows.cend(), [](const QWidget *window) {
        return window->isVisible() && window->windowType() == Qt::Window;
    });
    return main == windows.cend() ? nullptr : *main;
}

}  // namespace

bool DiffView::showDiff(const QStringList &initial, const QStringList &previous, const QStringList &current,
                        QString tag, bool hideToggle, bool withCancel)
{
    return DiffView(initial, previous, current, std::move(tag), hideToggle, withCancel).m_accepted;
}

DiffView::DiffView(const QStringList &initial, const QStringList &previous, const QStringList &current,
                   QString tag, bool hideToggle, bool withCancel)
    : QDialog(windowBehind())
    , m_currentLessInitial(current)
    , m_initialLessCurrent(initial)
    , m_tag(std::move(tag))
{
    setObjectName(QStringLiteral("diff_view"));
    buildUi(withCancel);
    updateTexts();

    diffSettingsLists(m_currentLessInitial, m_initialLessCurrent);
    if (previous.isEmpty()) {
        m_toggle->setEnabled(false);
        hideToggle = true;
    } else {
        connect(m_toggle, &QPushButton::clicked, this, &DiffView::toggleLocal);
        m_currentLessPrevious = current;
        m_previousLessCurrent = previous;
        diffSettingsLists(m_currentLessPrevious, m_previousLessCurrent);
    }
    for (QStringList *lines :
         {&m_currentLessInitial, &m_currentLessPrevious, &m_initialLessCurrent, &m_previousLessCurrent})
        hideSecrets(*lines);
    m_toggle->setHidden(hideToggle);

    // Only the comparison that is seen is put into the panes: thousands of lines take their time.
    if (m_toggle->isEnabled())
        toggleLocal();
    else
        showLines(m_initialLessCurrent, m_currentLessInitial);
    adjustWidths();
    exec();
}

void DiffView::buildUi(bool withCancel)
{
    m_layout = new QGridLayout(this);
    m_title = new QLabel(this);
    m_title->setObjectName(QStringLiteral("diff_title"));
    FormParts::setBold(m_title);
    m_leftLabel = new QLabel(this);
    m_leftLabel->setObjectName(QStringLiteral("left_label"));
    m_leftLabel->setTextFormat(Qt::PlainText);
    m_rightLabel = new QLabel(this);
    m_rightLabel->setObjectName(QStringLiteral("right_label"));
    m_leftPane = makePane(QStringLiteral("left_pane"));
    m_rightPane = makePane(QStringLiteral("right_pane"));
    m_toggle = new QPushButton(this);
    m_toggle->setObjectName(QStringLiteral("toggle_button"));
    m_toggle->setFixedHeight(FormParts::kButtonHeight);

    m_buttons = new QHBoxLayout;
    m_buttons->addStretch();
    m_ok = FormParts::addButton(m_buttons, QStringLiteral("ok_button"));
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this, &DiffView::doClose);
    if (withCancel) {
        m_cancel = FormParts::addButton(m_buttons, QStringLiteral("cancel_button"));
        connect(m_cancel, &QPushButton::clicked, this, &DiffView::close);
    }

    m_layout->addWidget(m_title, 0, 0, 1, 3);
    m_layout->addWidget(m_toggle, 0, 3, 1, 2);
    m_layout->addWidget(m_leftLabel, 1, 0, 1, 2);
    m_layout->addWidget(m_rightLabel, 1, 3, 1, 2);
    m_layout->addWidget(m_leftPane, 2, 0, 1, 2);
    m_layout->addWidget(m_rightPane, 2, 3, 1, 2);
    m_layout->addLayout(m_buttons, 3, 0, 1, 5);
}

QPlainTextEdit *DiffView::makePane(const QString &name)
{
    auto *pane = new QPlainTextEdit(this);
    pane->setObjectName(name);
    pane->setReadOnly(true);
    pane->setLineWrapMode(QPlainTextEdit::NoWrap);
    pane->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    pane->setMinimumHeight(kPaneMinimumHeight);
    pane->setTabChangesFocus(true);
    return pane;
}

void DiffView::updateTexts()
{
    m_title->setText(tr("Settings changes"));
    nameLeftPane(tr("Initially loaded settings:"));
    FormParts::setLabelText(m_rightLabel, m_rightPane, tr("Current modified settings:"));
    m_ok->setText(tr("OK"));
    if (m_cancel)
        m_cancel->setText(tr("Cancel"));
}

// A label with a buddy would take an "&" in the name of a source for a shortcut.
void DiffView::nameLeftPane(const QString &name)
{
    m_leftLabel->setText(name);
    m_leftPane->setAccessibleName(name);
}

void DiffView::diffSettingsLists(QStringList &first, QStringList &second)
{
    const QSet<QString> firstLines(first.cbegin(), first.cend());
    const QSet<QString> secondLines(second.cbegin(), second.cend());
    first = withoutThoseOf(firstLines, secondLines);
    second = withoutThoseOf(secondLines, firstLines);
}

void DiffView::toggleLocal()
{
    if (!m_toggle->isEnabled())
        return;
    if (m_showPrevious) {
        showLines(m_previousLessCurrent, m_currentLessPrevious);
        m_toggle->setText(tr("Switch to compare to initially loaded settings"));
        nameLeftPane(m_tag.isEmpty() ? tr("Previously loaded settings:") : m_tag);
    } else {
        showLines(m_initialLessCurrent, m_currentLessInitial);
        m_toggle->setText(tr("Switch to compare to previously loaded settings"));
        nameLeftPane(tr("Initially loaded settings:"));
    }
    m_showPrevious = !m_showPrevious;
    adjustWidths();
}

void DiffView::doClose()
{
    m_accepted = true;
    close();
}

void DiffView::showLines(const QStringList &left, const QStringList &right)
{
    m_leftPane->setPlainText(joined(left));
    m_rightPane->setPlainText(joined(right));
}

void DiffView::adjustWidths()
{
    const int width = qMax(kPaneMinimumWidth, m_leftLabel->sizeHint().width());
    m_leftPane->setFixedWidth(width);
    m_rightPane->setFixedWidth(width);
    setFixedWidth(m_layout->sizeHint().width());
}
