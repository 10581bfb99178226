#ifndef SUGGESTIONBOX_H
#define SUGGESTIONBOX_H

#include <QObject>
#include <QStringList>

class QLineEdit;
class QTreeWidget;

/// The list of suggestions below a line edit.
class SuggestionBox : public QObject
{
    Q_OBJECT

public:
    /// \param lineEdit  the edit that the box serves; it has to live as long as the box
    explicit SuggestionBox(QLineEdit *lineEdit);
    ~SuggestionBox() override;

    /// The popup, for tests of its place and for screen readers.
    QTreeWidget *popup() const;

public slots:
    /// Shows one row for each result, with the details in parentheses when there is one for each. An empty
    /// list of results hides the box.
    void setSelectionItems(QStringList searchResults, QStringList searchDetails);
    void itemClicked();

signals:
    void suggestionSelected(int itemIndex);

protected:
    /// Typing goes on in the line edit while the list is open.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void takeActivatedItem();

    QLineEdit *m_lineEdit;
    QTreeWidget *m_popup;
};

#endif
