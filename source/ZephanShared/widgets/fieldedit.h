#ifndef FIELDEDIT_H
#define FIELDEDIT_H

#include "CommunicationAndData/search/searchmodeldata.h"

#include <QHBoxLayout>

class QLabel;

/// Base of the suite's person and date input fields: a row with a label in front.
class FieldEdit : public QHBoxLayout
{
    Q_OBJECT

public:
    explicit FieldEdit(QWidget *parent = nullptr);

    virtual void setLabelText(const QString &text);
    virtual QString labelText() const;
    /// Shows that the value can't be accepted. Does nothing here.
    virtual void setInvalid(bool invalid);
    /// Kept for fields of other programs of the suite. Does nothing here.
    virtual void setMandatory(bool mandatory);
    /// The value as text; empty here.
    virtual QString value() const;
    /// Kept for fields of other programs of the suite. Does nothing here.
    virtual void setFieldEnabled(bool enabled);
    /// The translated word for 1 male, 2 female, and any other number.
    virtual QString genderText(int gender) const;
    /// The translated name of an ethnic group, 1 to 15; of any other number "No Information".
    virtual QString ethnicText(int ethnicGroup) const;
    /// Shows that the program filled the field. Does nothing here.
    virtual void setAutofilled(bool filled = false);

signals:
    void contentChanged();
    void searchWithModel(SearchModel searchModel);
    void personSelected(PersonModel person);

private:
    QLabel *m_label;
};

#endif
