#include "CommunicationAndData/settings/inirepair.h"

#include "CommunicationAndData/settings/inicodec.h"
#include "CommunicationAndData/settings/iniscanner.h"
#include "CommunicationAndData/settings/variantstream.h"

#include <QTextCodec>

#include <algorithm>

namespace {

const auto kTooLarge = QLatin1String("too-large");
const auto kUtf16 = QLatin1String("utf-16");
const auto kUtf8Mark = QLatin1String("utf-8-mark");
const auto kNulBytes = QLatin1String("nul-bytes");
const auto kNotUtf8 = QLatin1String("not-utf-8");
const auto kOpenQuote = QLatin1String("open-quote");
const auto kUnreadableLine = QLatin1String("unreadable-line");
const auto kUnreadableValue = QLatin1String("unreadable-value");

constexpr char kByteOrderMark[] = "\xef\xbb\xbf";

/// How `QSettings` marks the values that it streams, and in which version of the stream.
struct StreamedForm
{
    QLatin1String prefix;
    QDataStream::Version version;
};

const StreamedForm kStreamedForms[] = {{QLatin1String("@Variant("), QDataStream::Qt_4_0},
                                       {QLatin1String("@DateTime("), QDataStream::Qt_5_6}};

bool looksLikeUtf16(const QByteArray &bytes, int firstNul)
{
    if (bytes.size() < 4)
        return false;
    return bytes.at(firstNul) == 0 && bytes.at(firstNul + 2) == 0 && bytes.at(1 - firstNul) > 0 &&
           bytes.at(3 - firstNul) > 0;
}

/// The codec of UTF-16 bytes, with or without a byte order mark; null for anything else.
QTextCodec *utf16Codec(const QByteArray &bytes)
{
    if (bytes.startsWith("\xff\xfe") || looksLikeUtf16(bytes, 1))
        return QTextCodec::codecForName("UTF-16LE");
    if (bytes.startsWith("\xfe\xff") || looksLikeUtf16(bytes, 0))
        return QTextCodec::codecForName("UTF-16BE");
    return nullptr;
}

bool isUtf8(const QByteArray &bytes)
{
    static QTextCodec *const codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state;
    codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

bool standsInKeys(QChar c)
{
    const ushort code = c.unicode();
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') ||
           code == '_' || code == '.' || code == '-' || code == '%';
}

QByteArray escaped(QChar c)
{
    const QByteArray digits = QByteArray::number(c.unicode(), 16).toUpper();
    return c.unicode() <= 0xff ? '%' + digits.rightJustified(2, '0') : "%U" + digits.rightJustified(4, '0');
}

/// A key or section name in the notation of ini files, in which only some characters stand as they are and
/// a backslash means a slash.
QByteArray keyNotation(QString name)
{
    name.replace(QLatin1Char('\\'), QLatin1Char('/'));
    QByteArray notation;
    for (const QChar c : qAsConst(name)) {
        if (standsInKeys(c))
            notation += c.toLatin1();
        else
            notation += escaped(c);
    }
    return notation;
}

QByteArray withoutBlanksBehind(QByteArray key)
{
    while (key.endsWith(' ') || key.endsWith('\t'))
        key.chop(1);
    return key;
}

bool isUnreadable(const QString &item)
{
    return std::any_of(std::begin(kStreamedForms), std::end(kStreamedForms), [&](const StreamedForm &form) {
        return item.startsWith(form.prefix) &&
               !VariantStream::isSound(item.mid(form.prefix.size()).toLatin1(), form.version);
    });
}

/// The mark of a streamed value can only be written with one of these.
bool mayBeStreamed(const QByteArray &value)
{
    return value.contains('@') || value.contains('\\');
}

/// Reads the lines, notes what is wrong with them and writes down what they say.
class Repair
{
public:
    RepairedIni run(QByteArray bytes)
    {
        bytes = decoded(cutToSize(bytes));
        m_allUtf8 = isUtf8(bytes);
        m_text.reserve(bytes.size());
        IniScanner scanner(bytes);
        for (IniLine line; scanner.next(line);)
            take(line);
        return {m_damage, m_damage.isEmpty() ? QByteArray() : m_text};
    }

private:
    void note(QLatin1String damage)
    {
        if (!m_damage.contains(damage))
            m_damage.append(damage);
    }

    QByteArray cutToSize(const QByteArray &bytes)
    {
        if (bytes.size() <= kLargestIni)
            return bytes;
        note(kTooLarge);
        const QByteArray head = bytes.left(static_cast<int>(kLargestIni));
        return head.left(head.lastIndexOf('\n') + 1);
    }

    QByteArray decoded(QByteArray bytes)
    {
        if (QTextCodec *codec = utf16Codec(bytes)) {
            note(kUtf16);
            bytes = codec->toUnicode(bytes).toUtf8();
        } else if (bytes.startsWith(kByteOrderMark)) {
            note(kUtf8Mark);
        }
        if (bytes.startsWith(kByteOrderMark))
            bytes.remove(0, sizeof kByteOrderMark - 1);
        if (bytes.contains('\0')) {
            note(kNulBytes);
            bytes.replace(QByteArray(1, '\0'), QByteArray());
        }
        return bytes;
    }

    void take(IniLine line)
    {
        if (line.openEscape)
            line.text.chop(1);
        if (line.openQuote)
            note(kOpenQuote);
        if (line.text.startsWith('['))
            takeSection(line.text);
        else if (line.equals > 0)
            takeValue(withoutBlanksBehind(line.text.left(line.equals)),
                      line.text.mid(line.equals + 1) + (line.openQuote ? "\"" : ""));
        else
            note(kUnreadableLine);
    }

    void takeSection(const QByteArray &text)
    {
        const int end = text.indexOf(']');
        if (end < 0 || !text.mid(end + 1).trimmed().isEmpty())
            note(kUnreadableLine);
        const QByteArray name = end < 0 ? text.mid(1) : text.mid(1, end - 1);
        m_text += '[' + keyNotation(unicode(name.trimmed())) + "]\n";
    }

    void takeValue(const QByteArray &key, const QByteArray &value)
    {
        const QByteArray name = keyNotation(unicode(key));
        const QByteArray text = m_allUtf8 ? value : unicode(value).toUtf8();
        if (mayBeStreamed(text)) {
            const QStringList items = iniItems(text);
            if (std::any_of(items.begin(), items.end(), isUnreadable)) {
                note(kUnreadableValue);
                return;
            }
        }
        m_text += name + '=' + text + '\n';
    }

    QString unicode(const QByteArray &bytes)
    {
        if (m_allUtf8 || isUtf8(bytes))
            return iniUtf8Codec()->toUnicode(bytes);
        note(kNotUtf8);
        return QString::fromLatin1(bytes);
    }

    QStringList m_damage;
    QByteArray m_text;
    bool m_allUtf8 = false;
};

}  // namespace

bool RepairedIni::isSettings() const
{
    return isSound() || (!damage.contains(kNulBytes) && text.contains('='));
}

RepairedIni repairIni(const QByteArray &bytes)
{
    return Repair().run(bytes);
}
