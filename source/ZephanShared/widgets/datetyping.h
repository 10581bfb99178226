#ifndef DATETYPING_H
#define DATETYPING_H

#include <QString>

class DateFormatHelper;

/// Helps with typing a date: adds the separator where a part can't grow any more, and pads days and months of
/// the padded formats with zeros.
///
/// \param text      what has been typed so far; nothing of it needs to be a date
/// \param format    the date format and separator
/// \param hasFocus  the field is still being typed in; once it is left, the last parts are padded too
/// \return          the text to show
QString completedDateText(const QString &text, const DateFormatHelper &format, bool hasFocus);

#endif
