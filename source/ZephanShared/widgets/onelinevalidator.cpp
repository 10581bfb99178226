#include "ZephanShared/widgets/onelinevalidator.h"

#include <QLineEdit>

#include <algorithm>

namespace {

bool isLineEnd(QChar character)
{
    return character == QLatin1Char('\n') || character == QLatin1Char('\r') ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

}  // namespace

OneLineValidator::OneLineValidator(QLineEdit *edit)
    : QValidator(edit)
{
    edit->setValidator(this);
}

QValidator::State OneLineValidator::validate(QString &input, int &position) const
{
    const auto lineEndsBefore = std::count_if(input.cbegin(), input.cbegin() + position, isLineEnd);
    const auto end = std::remove_if(input.begin(), input.end(), isLineEnd);
    input.truncate(static_cast<int>(end - input.begin()));
    position -= static_cast<int>(lineEndsBefore);
    return Acceptable;
}
