#ifndef DATEFORMATHELPER_H
#define DATEFORMATHELPER_H

#include <QString>

/// The suite's date formats: their texts, their `QDate` forms and the shapes of what a person may type.
///
/// The choice is read from the settings store when the object is made. A format outside the table gives empty
/// texts everywhere; a separator outside the table is the full stop.
class DateFormatHelper
{
public:
    /// The order of the parts; "padded" days and months have two digits.
    enum Format {
        DayMonthYearPadded = 0,
        DayMonthYear = 1,
        YearMonthDayPadded = 2,
        YearMonthDay = 3,
        MonthDayYearPadded = 4,
        MonthDayYear = 5
    };
    static constexpr int kFormatCount = 6;
    static constexpr int kSeparatorCount = 3;

    // What each part of a date may look like while it is typed, as regular expressions.
    static constexpr char kDayPadded[] = R"((([0-9])|(0[1-9])|([1-2]\d)|(3[0-1])))";
    static constexpr char kDayPlain[] = R"((([1-9])|([1-2]\d)|(3[0-1])))";
    static constexpr char kMonthPadded[] = R"((([0-9])|(0[1-9])|(1[0-2])))";
    static constexpr char kMonthPlain[] = R"((([1-9])|(1[0-2])))";
    static constexpr char kYear[] = R"((([1-2])|([1-2]\d{1,3})))";

    DateFormatHelper();
    /// A choice that is not the settings': for showing what the others look like.
    DateFormatHelper(int format, int separator);

    /// A number of `Format`, or whatever else the settings hold.
    int format() const;
    bool ampm() const;

    /// ".", "-" or "/".
    QString separator() const;
    /// The separator as it stands in a regular expression.
    QString escapedSeparator() const;

    /// What a person is to type, as "DD.MM.YYYY".
    QString hintText() const;
    /// The form for `QDate`, as "dd'.'MM'.'yyyy".
    QString dateFormat() const;
    /// The same form in another format with the same separator.
    QString dateFormat(int format) const;
    /// The form for `QTime`, "hh:mm" or "hh:mm AP".
    QString timeFormat() const;

    /// The regular expression of a date and of its beginnings, for a validator: the first two parts may be
    /// missing, the separators and the last part not.
    QString pattern() const;

private:
    int m_format;
    int m_separator;
    bool m_ampm;
};

#endif
