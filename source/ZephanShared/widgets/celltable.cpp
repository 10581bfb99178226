#include "ZephanShared/widgets/celltable.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QStyledItemDelegate>

namespace {

constexpr int kRowHeight = 30;

/// What a screen reader that goes through the table is told of a cell with a widget: what the widget says,
/// and whether it is checked.
class CellItem : public QTableWidgetItem
{
public:
    explicit CellItem(QWidget *widget)
        : m_button(qobject_cast<QAbstractButton *>(widget))
        , m_edit(qobject_cast<QLineEdit *>(widget))
    {
        setFlags(Qt::ItemIsEnabled);
    }

    QVariant data(int role) const override
    {
        if (role == Qt::AccessibleTextRole)
            return text();
        if (role == Qt::CheckStateRole && m_button && m_button->isCheckable())
            return m_button->isChecked() ? Qt::Checked : Qt::Unchecked;
        return QTableWidgetItem::data(role);
    }

private:
    QString text() const
    {
        if (m_button)
            return m_button->accessibleName().isEmpty() ? m_button->text() : m_button->accessibleName();
        return m_edit ? m_edit->text() : QString();
    }

    QPointer<QAbstractButton> m_button;
    QPointer<QLineEdit> m_edit;
};

/// Leaves the whole cell to its widget: the mark for screen readers takes no room.
class CellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
    }
};

}  // namespace

CellTable::CellTable(TabKey tabKey, QWidget *parent)
    : QTableWidget(parent)
    , m_tabKey(tabKey)
{
    setItemDelegate(new CellDelegate(this));
    horizontalHeader()->hide();
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
}

CellTable::Filling::Filling(CellTable *table)
    : m_table(table)
{
    m_table->viewport()->hide();
}

CellTable::Filling::~Filling()
{
    m_table->doItemsLayout();
    m_table->viewport()->show();
}

void CellTable::growTo(int rows, int columns)
{
    setRowCount(qMax(rows, rowCount()));
    setColumnCount(qMax(columns, columnCount()));
}

void CellTable::setCell(int row, int column, QWidget *widget)
{
    // Thousands of widgets are no stations of the Tab key.
    widget->setFocusPolicy(Qt::ClickFocus);
    setItem(row, column, new CellItem(widget));
    setCellWidget(row, column, widget);
    widget->hide();
}

void CellTable::focusCell(int row, int column)
{
    if (!canFocus(row, column))
        return;
    executeDelayedItemsLayout();
    setCurrentCell(row, column);
    scrollTo(currentIndex());
    cellWidget(row, column)->setFocus(Qt::OtherFocusReason);
}

bool CellTable::focusNeighbour(int row, int column, Qt::Orientation direction)
{
    const int rowStep = direction == Qt::Vertical ? 1 : 0;
    const int columnStep = 1 - rowStep;
    return step(row + rowStep, column + columnStep, rowStep, columnStep) ||
           step(row - rowStep, column - columnStep, -rowStep, -columnStep);
}

bool CellTable::eventFilter(QObject *watched, QEvent *event)
{
    auto *cell = qobject_cast<QWidget *>(watched);
    if (cell && cell->parentWidget() == viewport()) {
        if (event->type() == QEvent::FocusIn)
            makeCurrent(cell);
        else if (event->type() == QEvent::KeyPress && handleKey(cell, static_cast<QKeyEvent *>(event)))
            return true;
    }
    return QTableWidget::eventFilter(watched, event);
}

// A current cell gives its widget the focus: another one than the widget's would take it away again.
void CellTable::makeCurrent(QWidget *cell)
{
    executeDelayedItemsLayout();
    const QModelIndex index = indexAt(cell->geometry().center());
    if (index != currentIndex() && indexWidget(index) == cell)
        setCurrentIndex(index);
}

void CellTable::focusInEvent(QFocusEvent *event)
{
    QTableWidget::focusInEvent(event);
    if (canFocus(currentRow(), currentColumn()))
        focusCell(currentRow(), currentColumn());
    else
        focusFirstCell();
    // The table itself is told to screen readers after its cell, so that the cell has to be told once more.
    QMetaObject::invokeMethod(this, &CellTable::announceFocus, Qt::QueuedConnection);
}

void CellTable::announceFocus()
{
    QWidget *cell = cellWidget(currentRow(), currentColumn());
    if (!cell || !cell->hasFocus())
        return;
    QAccessibleEvent event(cell, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void CellTable::scrollContentsBy(int dx, int dy)
{
    QTableWidget::scrollContentsBy(dx, dy);
    updateEditorGeometries();
}

// In place of that of the base, which shows and moves all widgets of the table.
void CellTable::updateEditorGeometries()
{
    QVector<QPointer<QWidget>> cells;
    const QRect view = viewport()->rect();
    const int lastRow = rowAt(view.bottom()) >= 0 ? rowAt(view.bottom()) : rowCount() - 1;
    for (int row = qMax(0, rowAt(0)); row <= lastRow; ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            QWidget *cell = cellWidget(row, column);
            const QRect place = cell ? visualRect(model()->index(row, column)) : QRect();
            if (!place.intersects(view))
                continue;
            cell->setGeometry(place);
            cells.append(cell);
        }
    }
    // Out of view it keeps the focus, which it would lose by being hidden.
    QWidget *current = currentIndex().isValid() ? indexWidget(currentIndex()) : nullptr;
    if (current && current->hasFocus() && canFocus(currentRow(), currentColumn()) &&
        !cells.contains(current)) {
        current->setGeometry(visualRect(currentIndex()));
        cells.append(current);
    }
    for (const QPointer<QWidget> &cell : qAsConst(m_cellsInView)) {
        if (cell && !cells.contains(cell))
            cell->hide();
    }
    for (const QPointer<QWidget> &cell : qAsConst(cells))
        cell->show();
    m_cellsInView = cells;
}

bool CellTable::handleKey(QWidget *cell, QKeyEvent *event)
{
    const int row = currentRow();
    const int column = currentColumn();
    switch (event->key()) {
    case Qt::Key_Tab:
        tab(1);
        return true;
    case Qt::Key_Backtab:
        tab(-1);
        return true;
    case Qt::Key_Up:
        step(row - 1, column, -1, 0);
        return true;
    case Qt::Key_Down:
        step(row + 1, column, 1, 0);
        return true;
    case Qt::Key_PageUp:
        page(-1);
        return true;
    case Qt::Key_PageDown:
        page(1);
        return true;
    default:
        return handleButtonKey(cell, event);
    }
}

bool CellTable::handleButtonKey(QWidget *cell, QKeyEvent *event)
{
    auto *button = qobject_cast<QAbstractButton *>(cell);
    if (!button)
        return false;
    const int forward = isRightToLeft() ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        step(currentRow(), currentColumn() - forward, 0, -forward);
        return true;
    case Qt::Key_Right:
        step(currentRow(), currentColumn() + forward, 0, forward);
        return true;
    case Qt::Key_Home:
        step(currentRow(), 0, 0, 1);
        return true;
    case Qt::Key_End:
        step(currentRow(), columnCount() - 1, 0, -1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat())
            button->click();
        return true;
    default:
        return false;
    }
}

bool CellTable::canFocus(int row, int column) const
{
    if (row < 0 || column < 0 || isRowHidden(row) || isColumnHidden(column))
        return false;
    const QWidget *widget = cellWidget(row, column);
    return widget && widget->isEnabled();
}

/// Goes on from a cell in steps until one can have the focus.
bool CellTable::step(int row, int column, int rowStep, int columnStep)
{
    while (row >= 0 && row < rowCount() && column >= 0 && column < columnCount()) {
        if (canFocus(row, column)) {
            focusCell(row, column);
            return true;
        }
        row += rowStep;
        column += columnStep;
    }
    return false;
}

void CellTable::page(int direction)
{
    int left = qMax(1, viewport()->height() / kRowHeight - 1);
    int target = currentRow();
    for (int row = target + direction; left > 0 && row >= 0 && row < rowCount(); row += direction) {
        if (canFocus(row, currentColumn())) {
            target = row;
            --left;
        }
    }
    focusCell(target, currentColumn());
}

void CellTable::tab(int direction)
{
    if (m_tabKey == TabLeaves || !focusNextCell(direction))
        leave(direction);
}

bool CellTable::focusNextCell(int direction)
{
    const int cells = rowCount() * columnCount();
    for (int i = currentRow() * columnCount() + currentColumn() + direction; i >= 0 && i < cells;
         i += direction) {
        if (canFocus(i / columnCount(), i % columnCount())) {
            focusCell(i / columnCount(), i % columnCount());
            return true;
        }
    }
    return false;
}

/// Gives the focus to the next widget outside, as Tab would from the table.
void CellTable::leave(int direction)
{
    const auto next = [direction](const QWidget *widget) {
        return direction > 0 ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget *widget = next(this); widget != this; widget = next(widget)) {
        if ((widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && widget->isVisible() &&
            widget->window() == window() && !isAncestorOf(widget)) {
            widget->setFocus(direction > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return;
        }
    }
}

bool CellTable::focusFirstCell()
{
    for (int row = 0; row < rowCount(); ++row) {
        if (!isRowHidden(row) && step(row, 0, 0, 1))
            return true;
    }
    return false;
}
