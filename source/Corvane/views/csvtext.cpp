#include "Corvane/views/csvtext.h"

namespace {

constexpr QLatin1Char kQuote('"');

bool needsQuotes(const QString &field, QLatin1Char separator)
{
    return field.contains(separator) || field.contains(kQuote) || field.contains(QLatin1Char('\n')) ||
           field.contains(QLatin1Char('\r'));
}

QString quoted(QString field)
{
    field.replace(kQuote, QLatin1String("\"\""));
    return kQuote + field + kQuote;
}

QString line(const QStringList &fields, QLatin1Char separator, QLatin1String end)
{
    QString text;
    for (int i = 0; i < fields.size(); ++i) {
        if (i > 0)
            text += separator;
        const QString &field = fields.at(i);
        text += needsQuotes(field, separator) ? quoted(field) : field;
    }
    return text + end;
}

}  // namespace

QString CsvText::record(const QStringList &fields)
{
    return line(fields, QLatin1Char(','), QLatin1String("\r\n"));
}

QString CsvText::tabbedLine(const QStringList &fields)
{
    return line(fields, QLatin1Char('\t'), QLatin1String("\n"));
}

CsvText::ClipboardLines::ClipboardLines(int most)
    : m_most(most)
{}

bool CsvText::ClipboardLines::add(const QStringList &fields)
{
    const QString line = tabbedLine(fields);
    if (line.size() > m_most - m_text.size())
        return false;
    m_text += line;
    return true;
}

const QString &CsvText::ClipboardLines::text() const
{
    return m_text;
}
