#ifndef CHECKBUTTON_H
#define CHECKBUTTON_H

#include <QPushButton>

/// A checkable push button without text that shows a tick while it is checked. Its tool tip is its accessible
/// name: what it stands for may have been scrolled away. What toggles it for a person clicks it.
class CheckButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CheckButton(QWidget *parent);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

#endif
