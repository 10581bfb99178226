#ifndef SELECTIONPOPUP_H
#define SELECTIONPOPUP_H

#include <QItemSelectionModel>
#include <QListWidget>

class QPushButton;

/// The list of a multiple selection: it opens below a checkable button, stays open while items are picked,
/// and closes at a press outside it or at Escape.
class SelectionPopup : public QListWidget
{
    Q_OBJECT

public:
    /// \param button  becomes checkable; checked means open. A press outside the list clicks it
    SelectionPopup(QPushButton *button, QWidget *parent);

    /// Opens the list at the button's lower left corner, kept inside the screen, when the button is checked
    /// and the list hidden; otherwise hides it.
    void showOrHide();

    /// Sets the button's text: the given one, and the number of selected items in brackets if there are any.
    void updateButtonText(const QString &text);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    /// Only a press or a key picks an item; one that typing finds becomes the current one and no more.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event = nullptr) const override;

private:
    void followButton();
    void fitToContents();

    QPushButton *m_button;
};

#endif
