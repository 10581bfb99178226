#include "ZephanShared/widgets/dateformathelper.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"

#include <QStringList>

#include <array>

namespace {

/// How one part of a date is written.
struct Part
{
    const char *hint;
    const char *date;
    const char *pattern;
};

constexpr Part kPaddedDay = {"DD", "dd", DateFormatHelper::kDayPadded};
constexpr Part kPlainDay = {"D", "d", DateFormatHelper::kDayPlain};
constexpr Part kPaddedMonth = {"MM", "MM", DateFormatHelper::kMonthPadded};
constexpr Part kPlainMonth = {"M", "M", DateFormatHelper::kMonthPlain};
constexpr Part kAnyYear = {"YYYY", "yyyy", DateFormatHelper::kYear};

using Parts = std::array<Part, 3>;

constexpr Parts kFormats[] = {
    {kPaddedDay, kPaddedMonth, kAnyYear}, {kPlainDay, kPlainMonth, kAnyYear},
    {kAnyYear, kPaddedMonth, kPaddedDay}, {kAnyYear, kPlainMonth, kPlainDay},
    {kPaddedMonth, kPaddedDay, kAnyYear}, {kPlainMonth, kPlainDay, kAnyYear},
};

/// The parts of a format in their order; null for a number outside the table.
const Parts *partsOf(int format)
{
    constexpr int count = sizeof(kFormats) / sizeof(kFormats[0]);
    return format >= 0 && format < count ? &kFormats[format] : nullptr;
}

QString join(const Parts *parts, const char *Part::*form, const QString &separator)
{
    if (!parts)
        return QString();
    QStringList texts;
    for (const Part &part : *parts)
        texts.append(QLatin1String(part.*form));
    return texts.join(separator);
}

template<typename T>
T setting(const char *key, T defaultValue)
{
    return SettingsHandler::getInstance()->value(QLatin1String(key), defaultValue).template value<T>();
}

}  // namespace

DateFormatHelper::DateFormatHelper()
    : m_format(setting(SettingsKeys::kDateFormat, 0))
    , m_separator(setting(SettingsKeys::kDateSeparator, 0))
    , m_ampm(setting(SettingsKeys::kTimeAmPm, false))
{}

DateFormatHelper::DateFormatHelper(int format, int separator)
    : m_format(format)
    , m_separator(separator)
    , m_ampm(false)
{}

int DateFormatHelper::format() const
{
    return m_format;
}

bool DateFormatHelper::ampm() const
{
    return m_ampm;
}

QString DateFormatHelper::separator() const
{
    switch (m_separator) {
    case 1:
        return QStringLiteral("-");
    case 2:
        return QStringLiteral("/");
    default:
        return QStringLiteral(".");
    }
}

QString DateFormatHelper::escapedSeparator() const
{
    return QLatin1Char('\\') + separator();
}

QString DateFormatHelper::hintText() const
{
    return join(partsOf(m_format), &Part::hint, separator());
}

QString DateFormatHelper::dateFormat() const
{
    return dateFormat(m_format);
}

QString DateFormatHelper::dateFormat(int format) const
{
    return join(partsOf(format), &Part::date, QLatin1Char('\'') + separator() + QLatin1Char('\''));
}

QString DateFormatHelper::timeFormat() const
{
    return m_ampm ? QStringLiteral("hh:mm AP") : QStringLiteral("hh:mm");
}

QString DateFormatHelper::pattern() const
{
    const Parts *parts = partsOf(m_format);
    if (!parts)
        return QString();
    const QString s = escapedSeparator();
    const auto first = QLatin1String((*parts)[0].pattern);
    const auto second = QLatin1String((*parts)[1].pattern);
    const auto third = QLatin1String((*parts)[2].pattern);
    const QStringList alternatives = {s + s + third, s + second + s + third, first + s + s + third,
                                      first + s + second + s + third};
    return QLatin1Char('(') + alternatives.join(QLatin1String(")|(")) + QLatin1Char(')');
}
