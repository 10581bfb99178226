#ifndef CHECKBUTTON_H
#define CHECKBUTTON_H

#include <QPushButton>

/// A checkable push button without text that shows a tick while it is checked.
class CheckButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CheckButton(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};

#endif
