#ifndef TEXTEDIT_H
#define TEXTEDIT_H

#include "ZephanShared/widgets/fieldedit.h"

class QTextEdit;

/// A text of several lines whose height follows what is in it.
class TextEdit : public FieldEdit
{
    Q_OBJECT

public:
    explicit TextEdit(QWidget *parent = nullptr);

    QString value() const override;
    QTextEdit *textEdit() const;

public slots:
    /// Between 2 and 15 lines high.
    void updateEditSize();
    void textChanged();

private:
    QTextEdit *m_textEdit;
};

#endif
