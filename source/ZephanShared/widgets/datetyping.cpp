#include "ZephanShared/widgets/datetyping.h"

#include "ZephanShared/widgets/dateformathelper.h"

#include <QDate>

namespace {

constexpr int kDayLength = 2;
constexpr int kYearLength = 4;
constexpr int kDayMonthLength = 6;   // "dd.mm."
constexpr int kYearMonthLength = 8;  // "yyyy.mm."
constexpr int kFullLength = 10;

bool isDayFirst(int format)
{
    return format == DateFormatHelper::DayMonthYearPadded || format == DateFormatHelper::DayMonthYear;
}

bool isYearFirst(int format)
{
    return format == DateFormatHelper::YearMonthDayPadded || format == DateFormatHelper::YearMonthDay;
}

bool isMonthFirst(int format)
{
    return format == DateFormatHelper::MonthDayYearPadded || format == DateFormatHelper::MonthDayYear;
}

bool isPaddedWithYearLast(int format)
{
    return format == DateFormatHelper::DayMonthYearPadded || format == DateFormatHelper::MonthDayYearPadded;
}

QString withoutSurplusSeparators(QString text, const QString &separator)
{
    if (text == separator)
        text.clear();
    if (text.endsWith(separator + separator))
        text.chop(separator.size());
    return text;
}

/// A day beyond 3 or a month beyond 1 takes no second digit; a second digit ends the part.
QString withSeparatorWhereAPartIsFull(QString text, int format, const QString &separator)
{
    const int separators = text.count(separator);
    const QString second = text.section(separator, 1, 1);
    bool full = false;
    if (isDayFirst(format)) {
        full = (separators == 0 && text.toInt() >= 4) || (separators == 1 && second.toInt() >= 2);
    } else if (isMonthFirst(format)) {
        full = (separators == 0 && (text.toInt() >= 2 || text.size() == kDayLength)) ||
               (separators == 1 && (second.toInt() >= 4 || second.size() == kDayLength));
    } else if (isYearFirst(format)) {
        if (separators == 0) {
            full = text.size() == kYearLength;
        } else if (separators == 1 && text.size() > kYearLength) {
            full = second.toInt() >= 2 || second.size() == kDayLength;
        } else if (separators == 1 && text.endsWith(separator)) {
            text.chop(separator.size());
        }
    }
    return full ? text + separator : text;
}

QString withCompletedPartsPadded(QString text, int format, const QString &separator)
{
    if (!text.endsWith(separator))
        return text;
    const int separators = text.count(separator);
    const QString zero = QStringLiteral("0");
    if (isPaddedWithYearLast(format)) {
        if (separators == 1 && text.size() != kDayLength + 1)
            text.prepend(zero);
        else if (separators == 2 && text.size() != kDayMonthLength)
            text.insert(kDayLength + 1, zero);
    } else if (format == DateFormatHelper::YearMonthDayPadded && separators == 2 &&
               text.size() != kYearMonthLength) {
        text.insert(kYearLength + 1, zero);
    }
    return text;
}

QString withLeftFieldPadded(QString text, const DateFormatHelper &helper)
{
    const QString separator = helper.separator();
    if (text.count(separator) != 2)
        return text;
    const QString zero = QStringLiteral("0");
    if (helper.format() == DateFormatHelper::YearMonthDayPadded) {
        const QString unpadded = helper.dateFormat(DateFormatHelper::YearMonthDay);
        if (text.size() == kFullLength - 1 && QDate::fromString(text, unpadded).isValid())
            text.insert(kYearMonthLength, zero);
    } else if (isPaddedWithYearLast(helper.format()) && text.size() != kFullLength) {
        if (text.section(separator, 0, 0).size() != kDayLength)
            text.prepend(zero);
        if (text.section(separator, 1, 1).size() != kDayLength)
            text.insert(kDayLength + 1, zero);
    }
    return text;
}

}  // namespace

QString completedDateText(const QString &text, const DateFormatHelper &format, bool hasFocus)
{
    const QString separator = format.separator();
    QString completed = withoutSurplusSeparators(text, separator);
    completed = withSeparatorWhereAPartIsFull(completed, format.format(), separator);
    completed = withCompletedPartsPadded(completed, format.format(), separator);
    return hasFocus ? completed : withLeftFieldPadded(completed, format);
}
