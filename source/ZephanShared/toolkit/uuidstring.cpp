#include "ZephanShared/toolkit/uuidstring.h"

namespace {

constexpr int kBracedLength = UuidString::Length + 2;

QString nilText()
{
    return QStringLiteral("00000000-0000-0000-0000-000000000000");
}

QString normalised(const QString &text)
{
    if (text.size() == UuidString::Length)
        return text;
    if (text.size() == kBracedLength)
        return text.mid(1, UuidString::Length);
    if (text.size() > kBracedLength)
        return text.left(UuidString::Length);
    return nilText();
}

}  // namespace

UuidString::UuidString()
    : m_text(nilText())
{}

UuidString::UuidString(const QString &text)
    : m_text(normalised(text))
{}

bool UuidString::isNull() const
{
    return m_text == nilText();
}

uint qHash(const UuidString &uuid, uint seed)
{
    return qHash(uuid.toString(), seed);
}
