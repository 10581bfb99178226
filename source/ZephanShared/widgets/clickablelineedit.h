#ifndef CLICKABLELINEEDIT_H
#define CLICKABLELINEEDIT_H

#include <QLineEdit>

/// A line edit that tells when it is clicked on.
class ClickableLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit ClickableLineEdit(QWidget *parent = nullptr);

signals:
    /// A mouse button went down in the field. The cursor is placed after this.
    void clicked();

public slots:
    void enable();

protected:
    void mousePressEvent(QMouseEvent *event) override;
};

#endif
