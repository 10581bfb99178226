#ifndef TABLEHELPER_H
#define TABLEHELPER_H

#include <QCoreApplication>

class QWidget;

/// What a widget in a cell of a table knows of itself: where it stands, and whether its object is to go.
class TableHelper
{
    Q_DECLARE_TR_FUNCTIONS(TableHelper)

public:
    int column() const;
    void setColumn(int column);
    int row() const;
    void setRow(int row);
    /// Whether the deletion was confirmed. There is no way back, not even when it fails afterwards.
    bool deleted() const;
    /// The last answer, where a deletion that failed is asked about again.
    bool confirmed() const;

protected:
    /// Asks for confirmation and notes it; nothing is deleted here.
    void confirmDeletion(QWidget *asking);

private:
    int m_column = 0;
    int m_row = 0;
    bool m_deleted = false;
    bool m_confirmed = false;
};

#endif
