#include "CommunicationAndData/settings/variantstream.h"

#include <QtEndian>

namespace {

constexpr int kDeepest = 32;
constexpr quint32 kNullLength = 0xffffffff;

// Before version 5 the later core types were streamed under numbers this much higher.
constexpr quint32 kFirstMovedType = 128;
constexpr quint32 kMovedBy = 97;

// Before version 5 this was a number of another type, and key sequences had the next one.
constexpr quint32 kKeySequenceLater = QMetaType::QKeySequence;
constexpr quint32 kMostKeys = 4;  // of a sequence
constexpr quint32 kNoType = ~0U;

// Types that were not yet of the core were streamed by their names.
constexpr quint32 kNamedType = 127;
const QByteArray kNameOfIds("QUuid", 6);

/// Goes over a stream as `QDataStream` would and makes nothing of it.
class Walker
{
public:
    Walker(const QByteArray &bytes, QDataStream::Version version)
        : m_bytes(bytes)
        , m_version(version)
    {}

    bool atEnd() const
    {
        return m_position == m_bytes.size();
    }

    bool variant(int depth = 0)
    {
        quint32 type = 0;
        if (depth > kDeepest || !number(type))
            return false;
        if (m_version < QDataStream::Qt_5_0)
            type = typeOfOld(type);
        const bool hasNullFlag = m_version >= QDataStream::Qt_4_2;
        if (hasNullFlag && !skip(1))
            return false;
        if (type == QMetaType::UnknownType)
            return m_version >= QDataStream::Qt_5_0 || bytes();
        if (type == kNamedType && m_version < QDataStream::Qt_5_0)
            return namedId();
        return content(type, depth);
    }

    bool map(int depth = 0)
    {
        quint32 count = 0;
        if (!number(count))
            return false;
        for (quint32 i = 0; i < count; ++i) {
            if (!text() || !variant(depth + 1))
                return false;
        }
        return true;
    }

private:
    static quint32 typeOfOld(quint32 type)
    {
        if (type >= kFirstMovedType)
            return type - kMovedBy;
        if (type == kKeySequenceLater)
            return kNoType;
        return type == kKeySequenceLater + 1 ? kKeySequenceLater : type;
    }

    bool content(quint32 type, int depth)
    {
        switch (type) {
        case QMetaType::QVariantMap:
        case QMetaType::QVariantHash:
            return map(depth);
        case QMetaType::QVariantList:
            return list(depth);
        case QMetaType::QStringList:
            return texts();
        case QMetaType::QString:
        case QMetaType::QLocale:
            return text();
        case QMetaType::QByteArray:
        case QMetaType::QUrl:
            return bytes();
        case QMetaType::QDateTime:
            return dateTime();
        case QMetaType::QFont:
            return font();
        case QMetaType::QKeySequence:
            return keySequence();
        default:
            const int size = fixedSize(type);
            return size > 0 && skip(size);
        }
    }

    int fixedSize(quint32 type) const
    {
        switch (type) {
        case QMetaType::Bool:
        case QMetaType::Char:
        case QMetaType::SChar:
        case QMetaType::UChar:
            return 1;
        case QMetaType::QChar:
        case QMetaType::Short:
        case QMetaType::UShort:
            return 2;
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::QTime:
            return 4;
        case QMetaType::QDate:
            return m_version < QDataStream::Qt_5_0 ? 4 : 8;
        case QMetaType::Float:
            return m_version < QDataStream::Qt_4_6 ? 4 : 8;
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Long:
        case QMetaType::ULong:
        case QMetaType::Double:
        case QMetaType::QSize:
        case QMetaType::QPoint:
            return 8;
        case QMetaType::QColor:
            return 11;
        case QMetaType::QSizeF:
        case QMetaType::QPointF:
        case QMetaType::QRect:
        case QMetaType::QLine:
        case QMetaType::QUuid:
            return 16;
        case QMetaType::QRectF:
        case QMetaType::QLineF:
            return 32;
        default:
            return 0;
        }
    }

    bool list(int depth)
    {
        quint32 count = 0;
        if (!number(count))
            return false;
        for (quint32 i = 0; i < count; ++i) {
            if (!variant(depth + 1))
                return false;
        }
        return true;
    }

    bool dateTime()
    {
        constexpr int timeSize = 4;
        const bool old = m_version < QDataStream::Qt_5_0;
        const int dateSize = old ? 4 : 8;
        quint8 timeSpec = 0;
        if (!skip(dateSize + timeSize) || !octet(timeSpec))
            return false;
        if (old)
            return true;
        return timeSpec == Qt::OffsetFromUTC ? skip(4) : timeSpec == Qt::LocalTime || timeSpec == Qt::UTC;
    }

    bool font()
    {
        // Sizes in points and pixels; hint, strategy, character set, weight and flags.
        int rest = 8 + 4 + 5;
        if (m_version >= QDataStream::Qt_4_3)
            rest += 2;  // stretch
        if (m_version >= QDataStream::Qt_4_4)
            rest += 1;  // more flags
        if (m_version >= QDataStream::Qt_4_5)
            rest += 8;  // spacing of letters and words
        if (m_version >= QDataStream::Qt_5_4)
            rest += 2;  // a wider strategy, hinting
        if (m_version >= QDataStream::Qt_5_6)
            rest += 1;  // capitals
        const bool hasStyle = m_version >= QDataStream::Qt_5_4;
        const bool hasFamilies = m_version >= QDataStream::Qt_5_13;
        return text() && (!hasStyle || text()) && skip(static_cast<quint32>(rest)) &&
               (!hasFamilies || texts());
    }

    bool keySequence()
    {
        quint32 count = 0;
        return number(count) && count <= kMostKeys && skip(count * 4);
    }

    bool texts()
    {
        quint32 count = 0;
        if (!number(count))
            return false;
        for (quint32 i = 0; i < count; ++i) {
            if (!text())
                return false;
        }
        return true;
    }

    bool text()
    {
        quint32 length = 0;
        return number(length) && (length == kNullLength || (length % 2 == 0 && skip(length)));
    }

    bool namedId()
    {
        const int start = m_position;
        return bytes() && m_bytes.mid(start + 4, m_position - start - 4) == kNameOfIds && skip(16);
    }

    bool bytes()
    {
        quint32 length = 0;
        return number(length) && (length == kNullLength || skip(length));
    }

    bool number(quint32 &value)
    {
        const int start = m_position;
        if (!skip(sizeof value))
            return false;
        value = qFromBigEndian<quint32>(m_bytes.constData() + start);
        return true;
    }

    bool octet(quint8 &value)
    {
        const int start = m_position;
        if (!skip(sizeof value))
            return false;
        value = static_cast<quint8>(m_bytes.at(start));
        return true;
    }

    bool skip(quint32 count)
    {
        if (count > static_cast<quint32>(m_bytes.size() - m_position))
            return false;
        m_position += static_cast<int>(count);
        return true;
    }

    const QByteArray &m_bytes;
    const QDataStream::Version m_version;
    int m_position = 0;
};

}  // namespace

bool VariantStream::isSound(const QByteArray &bytes, QDataStream::Version version)
{
    return Walker(bytes, version).variant();
}

std::optional<QMap<QString, QVariant>> VariantStream::readMap(const QByteArray &bytes,
                                                              QDataStream::Version version)
{
    Walker walker(bytes, version);
    if (!walker.map() || !walker.atEnd())
        return std::nullopt;
    QMap<QString, QVariant> map;
    QDataStream stream(bytes);
    stream.setVersion(version);
    stream >> map;
    if (stream.status() != QDataStream::Ok)
        return std::nullopt;
    return map;
}
