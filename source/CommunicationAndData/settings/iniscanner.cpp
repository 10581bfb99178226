#include "CommunicationAndData/settings/iniscanner.h"

#include "CommunicationAndData/settings/inicodec.h"

#include <QTextCodec>

#include <cstring>

namespace {

bool isLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || isLineEnd(c);
}

int digitOf(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

/// How many characters a line end has that begins here, 1 or 2.
int lineEndSize(const QByteArray &text, int position)
{
    const bool pair = position + 1 < text.size() && isLineEnd(text.at(position + 1)) &&
                      text.at(position + 1) != text.at(position);
    return pair ? 2 : 1;
}

/// Turns escapes into characters and splits at commas.
class ItemReader
{
public:
    explicit ItemReader(const QByteArray &value)
        : m_value(value)
    {}

    QStringList read()
    {
        skipBlanks();
        while (m_position < m_value.size())
            step();
        endItem();
        return m_items;
    }

private:
    void step()
    {
        const char c = m_value.at(m_position);
        if (c == '\\') {
            ++m_position;
            escape();
        } else if (c == '"') {
            ++m_position;
            m_quoted = true;
            m_inQuotes = !m_inQuotes;
            if (!m_inQuotes)
                skipBlanks();
        } else if (c == ',' && !m_inQuotes) {
            ++m_position;
            endItem();
            skipBlanks();
        } else {
            plain();
        }
    }

    void plain()
    {
        const int start = m_position;
        do {
            ++m_position;
        } while (m_position < m_value.size() && !std::strchr("\\\",", m_value.at(m_position)));
        m_item += iniUtf8Codec()->toUnicode(m_value.constData() + start, m_position - start);
    }

    void escape()
    {
        if (m_position >= m_value.size())
            return;
        static const char names[] = "abfnrtv\"?'\\";
        static const char meanings[] = "\a\b\f\n\r\t\v\"?'\\";
        const char c = m_value.at(m_position);
        if (const char *name = c ? std::strchr(names, c) : nullptr) {
            ++m_position;
            m_item += QLatin1Char(meanings[name - names]);
        } else if (c == 'x') {
            ++m_position;
            if (m_position < m_value.size() && digitOf(m_value.at(m_position)) >= 0)
                numeric(16);
        } else if (c >= '0' && c <= '7') {
            numeric(8);
        } else if (isLineEnd(c)) {
            m_position += lineEndSize(m_value, m_position);
        } else {
            ++m_position;
        }
    }

    void numeric(int base)
    {
        ushort code = 0;
        while (m_position < m_value.size()) {
            const int digit = digitOf(m_value.at(m_position));
            if (digit < 0 || digit >= base)
                break;
            code = static_cast<ushort>(code * base + digit);
            ++m_position;
        }
        m_item += QChar(code);
    }

    void skipBlanks()
    {
        while (m_position < m_value.size() &&
               (m_value.at(m_position) == ' ' || m_value.at(m_position) == '\t'))
            ++m_position;
    }

    void endItem()
    {
        while (!m_quoted && (m_item.endsWith(QLatin1Char(' ')) || m_item.endsWith(QLatin1Char('\t'))))
            m_item.chop(1);
        m_items.append(m_item);
        m_item.clear();
        m_quoted = false;
    }

    const QByteArray m_value;
    int m_position = 0;
    QStringList m_items;
    QString m_item;
    bool m_quoted = false;
    bool m_inQuotes = false;
};

}  // namespace

IniScanner::IniScanner(const QByteArray &text)
    : m_text(text)
{}

bool IniScanner::next(IniLine &line)
{
    line = IniLine();
    skipBlanks();
    const int start = m_position;
    bool inQuotes = false;
    while (m_position < m_text.size()) {
        const char c = m_text.at(m_position);
        if (isLineEnd(c) || (c == ';' && !inQuotes))
            break;
        if (c == '=' && !inQuotes && line.equals < 0)
            line.equals = m_position - start;
        else if (c == '"')
            inQuotes = !inQuotes;
        else if (c == '\\') {
            ++m_position;
            if (m_position == m_text.size()) {
                line.openEscape = true;
                break;
            }
            if (isLineEnd(m_text.at(m_position)))
                m_position += lineEndSize(m_text, m_position) - 1;
        }
        ++m_position;
    }
    line.text = m_text.mid(start, m_position - start);
    line.openQuote = inQuotes;
    return !line.text.isEmpty();
}

void IniScanner::skipBlanks()
{
    while (m_position < m_text.size()) {
        if (m_text.at(m_position) == ';')
            skipComment();
        else if (isBlank(m_text.at(m_position)))
            ++m_position;
        else
            return;
    }
}

void IniScanner::skipComment()
{
    while (m_position < m_text.size() && !isLineEnd(m_text.at(m_position)))
        ++m_position;
}

QStringList iniItems(const QByteArray &value)
{
    return ItemReader(value).read();
}
