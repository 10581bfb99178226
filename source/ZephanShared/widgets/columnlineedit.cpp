#include "ZephanShared/widgets/columnlineedit.h"

#include "ZephanShared/widgets/onelinevalidator.h"

#include <QUuid>

ColumnLineEdit::ColumnLineEdit(QString text, UuidString id, QWidget *parent)
    : QLineEdit(text, parent)
    , m_savedText(text)
    , m_id(id.isNull() ? UuidString(QUuid::createUuid().toString()) : id)
{
    new OneLineValidator(this);
    connect(this, SIGNAL(editingFinished()), this, SLOT(edited()));
}

ColumnLineEdit::ColumnLineEdit(ColumnLineEdit *other)
    : QLineEdit(other->text(), other->parentWidget())
    , TableHelper(*other)
    , m_savedText(other->m_savedText)
    , m_id(other->m_id)
    , m_updated(other->m_updated)
{
    new OneLineValidator(this);
    connect(this, SIGNAL(editingFinished()), this, SLOT(edited()));
}

UuidString ColumnLineEdit::id() const
{
    return m_id;
}

bool ColumnLineEdit::isUpdated() const
{
    return m_updated;
}

void ColumnLineEdit::setDeleted()
{
    confirmDeletion(window());
}

void ColumnLineEdit::unsetUpdates()
{
    m_updated = false;
}

void ColumnLineEdit::edited()
{
    if (text() == m_savedText)
        return;
    m_savedText = text();
    m_updated = true;
    emit updated();
}
