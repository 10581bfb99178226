#ifndef COLUMNBUTTON_H
#define COLUMNBUTTON_H

#include "ZephanShared/widgets/tablehelper.h"

#include <QPushButton>

/// A push button in a cell of a table.
///
/// Its text is a name that a person gave: "&" in it is no shortcut, and one that is too long for the cell is
/// cut at its end and shown whole as a tool tip.
class ColumnButton : public QPushButton, public TableHelper
{
    Q_OBJECT

public:
    ColumnButton(QString text, QWidget *parent);

    void setText(const QString &text);
    QSize sizeHint() const override;

public slots:
    /// Asks whether the button's object is to be deleted; `deleted()` tells the answer.
    void setDeleted();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString line() const;
    QString shownLine() const;
};

#endif
