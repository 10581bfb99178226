#ifndef REMOVEBUTTON_H
#define REMOVEBUTTON_H

#include <QToolButton>

/// The button that removes a custom field, once the person has confirmed it.
class RemoveButton : public QToolButton
{
    Q_OBJECT

public:
    /// \param withStyle  the question comes up frameless over the button and in the style of the suite
    RemoveButton(bool withStyle, QWidget *parent);

signals:
    void deleteCustomField();

public slots:
    /// Asks whether the field is to be removed for good, with Cancel as the default.
    void confirm();

private:
    bool askWhetherToRemove();

    bool m_withStyle;
};

#endif
