#ifndef LINEEDIT_H
#define LINEEDIT_H

#include "ZephanShared/widgets/fieldedit.h"

class QLineEdit;
class SuggestionBox;

/// A line of text about a person that can suggest the persons who are already known while it is typed.
class LineEdit : public FieldEdit
{
    Q_OBJECT

public:
    /// \param searchKey  what is typed, of `SearchModelData::SearchKey`
    /// \param search     suggest persons
    LineEdit(int searchKey, bool search, QWidget *parent = nullptr);

    QString value() const override;
    QLineEdit *lineEdit() const;
    SuggestionBox *suggestionBox() const;

public slots:
    void textChanged();
    void searchCompleted(ZephanError errorCode);
    void personIndexFromSuggestion(int index);

private:
    QString personText(const PersonModelData &person) const;

    QLineEdit *m_lineEdit;
    SuggestionBox *m_suggestionBox;
    SearchModel m_searchModel;
    int m_searchKey;
    bool m_search;
};

#endif
