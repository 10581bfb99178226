#include "ZephanShared/widgets/selectionpopup.h"

#include "ZephanShared/widgets/returnkey.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>

namespace {

constexpr int kMaximumRows = 12;  // longer lists scroll

}  // namespace

SelectionPopup::SelectionPopup(QPushButton *button, QWidget *parent)
    : QListWidget(parent)
    , m_button(button)
{
    setWindowFlags(Qt::Popup);
    // The press that closes the list is spent; sent on to the button beneath, it would open the list again.
    setAttribute(Qt::WA_NoMouseReplay);
    setSelectionMode(QAbstractItemView::MultiSelection);
    m_button->setCheckable(true);
    clickByReturn(m_button);
    // Assistive technology checks the button without a click. After a click there is nothing left to do.
    connect(m_button, &QPushButton::toggled, this, &SelectionPopup::followButton, Qt::QueuedConnection);
    hide();
}

void SelectionPopup::followButton()
{
    if (m_button->isChecked() == isHidden())
        showOrHide();
}

void SelectionPopup::showOrHide()
{
    if (!m_button->isChecked() || !isHidden()) {
        hide();
        return;
    }
    fitToContents();
    QPoint position = m_button->mapToGlobal(m_button->rect().bottomLeft());
    const QRect available = m_button->screen()->availableGeometry();
    position.setY(qMax(available.top(), qMin(position.y(), available.bottom() - height())));
    position.setX(qMax(available.left(), qMin(position.x(), available.right() - width())));
    move(position);
    show();
}

void SelectionPopup::fitToContents()
{
    const int frame = 2 * frameWidth();
    const int rows = qBound(1, count(), kMaximumRows);
    const int bar = count() > kMaximumRows ? verticalScrollBar()->sizeHint().width() : 0;
    const int width = qMax(m_button->width(), sizeHintForColumn(0) + frame + bar);
    resize(qMin(width, m_button->screen()->availableGeometry().width()),
           rows * qMax(1, sizeHintForRow(0)) + frame);
}

void SelectionPopup::updateButtonText(const QString &text)
{
    const int selected = selectedItems().size();
    m_button->setText(selected == 0 ? text : QStringLiteral("%1 (%2)").arg(text).arg(selected));
}

bool SelectionPopup::event(QEvent *event)
{
    // A press on an item goes to the viewport: what arrives here lies outside the list.
    if (event->type() == QEvent::MouseButtonPress) {
        m_button->click();
        return true;
    }
    return QListWidget::event(event);
}

void SelectionPopup::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel))
        hide();
    else
        QListWidget::keyPressEvent(event);
}

void SelectionPopup::hideEvent(QHideEvent *event)
{
    // However the list was closed, the next click of the button opens it.
    const QSignalBlocker blocker(m_button);
    m_button->setChecked(false);
    QListWidget::hideEvent(event);
}

QItemSelectionModel::SelectionFlags SelectionPopup::selectionCommand(const QModelIndex &index,
                                                                     const QEvent *event) const
{
    return event ? QListWidget::selectionCommand(index, event) : QItemSelectionModel::NoUpdate;
}
