#include "ZephanShared/widgets/fieldedit.h"

#include "ZephanShared/widgets/styleprinter.h"

#include <QLabel>

FieldEdit::FieldEdit(QWidget *parent)
    : QHBoxLayout(parent)
    , m_label(new QLabel)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(0);
    m_label->setWordWrap(true);
    m_label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_label->setStyleSheet(StylePrinter::fieldLabelStyle());
    m_label->setMaximumWidth(0);
    addWidget(m_label);
}

void FieldEdit::setLabelText(const QString &text)
{
    m_label->setText(text);
    // A label without a text would still be a letter wide.
    m_label->setMaximumWidth(text.isEmpty() ? 0 : QWIDGETSIZE_MAX);
}

QString FieldEdit::labelText() const
{
    return m_label->text();
}

void FieldEdit::setInvalid(bool) {}

void FieldEdit::setMandatory(bool) {}

QString FieldEdit::value() const
{
    return QString();
}

void FieldEdit::setFieldEnabled(bool) {}

QString FieldEdit::genderText(int gender) const
{
    switch (gender) {
    case 1:
        return tr("male");
    case 2:
        return tr("female");
    default:
        return tr("undefined");
    }
}

QString FieldEdit::ethnicText(int ethnicGroup) const
{
    switch (ethnicGroup) {
    case 1:
        return tr("African American");
    case 2:
        return tr("Asian");
    case 3:
        return tr("Caucasian");
    case 4:
        return tr("Hispanic");
    case 5:
        return tr("Hong Kong Chinese");
    case 6:
        return tr("Japanese American");
    case 7:
        return tr("Polynesian");
    case 8:
        return tr("North Indian and Pakistani");
    case 9:
        return tr("South Indian");
    case 10:
        return tr("African Descent");
    case 11:
        return tr("Japanese");
    case 12:
        return tr("Mexican American");
    case 13:
        return tr("North East Asian");
    case 14:
        return tr("South East Asian");
    case 15:
        return tr("Mixed / Other");
    default:
        return tr("No Information");
    }
}

void FieldEdit::setAutofilled(bool) {}
