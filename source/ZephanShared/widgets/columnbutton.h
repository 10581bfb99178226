#ifndef COLUMNBUTTON_H
#define COLUMNBUTTON_H

#include "ZephanShared/widgets/tablehelper.h"

#include <QPushButton>

/// A push button in a cell of a table.
class ColumnButton : public QPushButton, public TableHelper
{
    Q_OBJECT

public:
    ColumnButton(QString text, QWidget *parent);

public slots:
    /// Asks whether the button's object is to be deleted; `deleted()` tells the answer.
    void setDeleted();
};

#endif
