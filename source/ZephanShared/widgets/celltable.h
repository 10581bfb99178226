#ifndef CELLTABLE_H
#define CELLTABLE_H

#include <QPointer>
#include <QTableWidget>
#include <QVector>

/// A table of widgets without headers that the keyboard goes through as through one field.
///
/// The arrow keys, Home, End, Page Up and Page Down go from widget to widget, passing over empty and disabled
/// cells, and Enter clicks a button. In an edit only the keys that move up and down do so. The table comes
/// back to the widget that it was left from. A screen reader finds what the widgets say in the cells.
///
/// Only the widgets in view are shown, so that thousands of them are not in each other's way.
class CellTable : public QTableWidget
{
    Q_OBJECT

public:
    /// What Tab does in a cell: it goes on behind the table, or to the next cell first.
    enum TabKey { TabLeaves, TabGoesThrough };

    CellTable(TabKey tabKey, QWidget *parent);

    /// Adds what is missing to these numbers of rows and columns.
    void growTo(int rows, int columns);
    /// Puts a widget into a cell; the one that was there is deleted.
    void setCell(int row, int column, QWidget *widget);
    /// Gives a cell's widget the focus and scrolls to it.
    void focusCell(int row, int column);
    /// Gives the focus to the next widget along a cell's row or column, or else to the one before.
    ///
    /// \param direction  along the row or the column
    /// \return           false when there is none
    bool focusNeighbour(int row, int column, Qt::Orientation direction);

    bool eventFilter(QObject *watched, QEvent *event) override;

    /// While it lives, the table is filled without being shown.
    class Filling
    {
    public:
        explicit Filling(CellTable *table);
        ~Filling();
        Q_DISABLE_COPY(Filling)

    private:
        CellTable *m_table;
    };

protected:
    void scrollContentsBy(int dx, int dy) override;
    void updateEditorGeometries() override;
    void focusInEvent(QFocusEvent *event) override;

private:
    void makeCurrent(QWidget *cell);
    bool handleKey(QWidget *cell, QKeyEvent *event);
    bool handleButtonKey(QWidget *cell, QKeyEvent *event);
    bool canFocus(int row, int column) const;
    bool step(int row, int column, int rowStep, int columnStep);
    void page(int direction);
    void tab(int direction);
    bool focusNextCell(int direction);
    void leave(int direction);
    bool focusFirstCell();
    void announceFocus();

    TabKey m_tabKey;
    QVector<QPointer<QWidget>> m_cellsInView;
};

#endif
