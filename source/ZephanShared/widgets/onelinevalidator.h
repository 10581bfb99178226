#ifndef ONELINEVALIDATOR_H
#define ONELINEVALIDATOR_H

#include <QValidator>

class QLineEdit;

/// Takes the line ends out of what is pasted or dropped into a line edit, before anybody hears of it.
///
/// A line edit shows line ends as blanks. A name or a path that was copied with the end of its line would
/// look right and be another one.
class OneLineValidator : public QValidator
{
    Q_OBJECT

public:
    /// The validator becomes the edit's own.
    explicit OneLineValidator(QLineEdit *edit);

    State validate(QString &input, int &position) const override;
};

#endif
