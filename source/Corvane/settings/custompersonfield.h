#ifndef CUSTOMPERSONFIELD_H
#define CUSTOMPERSONFIELD_H

#include "Corvane/settings/customfields.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QToolButton;
class RemoveButton;

/// The row of one custom person field: buttons that move it, its name, whether it is visible and how many
/// lines it has, and a button that removes it.
///
/// The row carries out no request itself: it notes it and tells the page by `refresh`. It is made empty, and
/// its widgets only by `build`: a page with very many rows needs just those that are in sight.
class CustomPersonField : public QWidget
{
    Q_OBJECT

public:
    /// A row that holds nothing yet, and is to be taken out unless a field is set.
    explicit CustomPersonField(QWidget *parent = nullptr);

    const CustomField &field() const
    {
        return m_field;
    }
    /// Makes the row's widgets, once.
    void build();
    bool isBuilt() const
    {
        return m_name != nullptr;
    }
    /// Shows this field in the row, which stays from then on.
    void setField(const CustomField &field);
    /// Shows this field, while a row that is to be taken out remains so.
    void setContent(const CustomField &field);
    int id() const
    {
        return m_field.id;
    }
    void setId(int id);

    bool isRemoved() const
    {
        return m_removed;
    }
    /// Whether the row asked to move since the last call.
    bool takeMoveUp();
    bool takeMoveDown();

    void updateTexts();
    /// Gives the focus to the name of a built row, ready to be typed over.
    void editName();
    /// The row's widgets in the order in which the keyboard reaches them; none before they are built.
    QVector<QWidget *> tabStops() const;

signals:
    /// A request is waiting to be carried out.
    void refresh();
    /// The person has left the name.
    void nameChange();
    /// The row is in sight.
    void exposed();

public slots:
    /// Takes over what the widgets show. The name loses the characters that have a meaning in the setting; an
    /// empty one becomes "New field".
    void sync();
    void rename();
    void orderUp();
    void orderDown();
    void removal();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QToolButton *makeArrow(Qt::ArrowType arrow);
    QComboBox *makeChoice(const QString &name);
    void layOut();
    void connectWidgets();
    void showField();
    /// Names the field for those who hear the row instead of seeing it.
    void describeWidgets();

    CustomField m_field;
    bool m_removed = true;
    bool m_moveUp = false;
    bool m_moveDown = false;

    QToolButton *m_up = nullptr;
    QToolButton *m_down = nullptr;
    QLineEdit *m_name = nullptr;
    QComboBox *m_visibility = nullptr;
    QComboBox *m_lines = nullptr;
    RemoveButton *m_remove = nullptr;
};

#endif
