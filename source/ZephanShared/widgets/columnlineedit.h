#ifndef COLUMNLINEEDIT_H
#define COLUMNLINEEDIT_H

#include "ZephanShared/toolkit/uuidstring.h"
#include "ZephanShared/widgets/tablehelper.h"

#include <QLineEdit>

/// A line edit in a cell of a table: one value of the row's object, with a mark for unsaved changes.
class ColumnLineEdit : public QLineEdit, public TableHelper
{
    Q_OBJECT

public:
    /// An edit that counts as updated.
    ///
    /// \param id  identifier of the row's object; the nil UUID for a new one, which gets an id here
    ColumnLineEdit(QString text, UuidString id, QWidget *parent);
    /// An edit with the text, the place, the id and the marks of another one, for another row: a table
    /// deletes the widget of a cell that is given a new one.
    explicit ColumnLineEdit(ColumnLineEdit *other);

    UuidString id() const;
    /// Whether it holds a change that is not saved yet.
    bool isUpdated() const;

signals:
    /// The field was left with another text than the last time.
    void updated();

public slots:
    /// Asks whether the row's object is to be deleted; `deleted()` tells the answer.
    void setDeleted();
    void unsetUpdates();
    /// Notes and tells a changed text. Runs when the field is left.
    void edited();

private:
    QString m_savedText;  ///< the text at the last notice, which need not be the stored one
    UuidString m_id;
    bool m_updated = true;
};

#endif
