#include "CommunicationAndData/sqlcipher/sqlcipherbinding.h"

#include <QDateTime>
#include <cstring>
#include <limits>

namespace {

int bindText(sqlite3_stmt *statement, int index, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    return sqlite3_bind_text(statement, index, utf8.constData(), utf8.size(), SQLITE_TRANSIENT);
}

int bindUnsigned(sqlite3_stmt *statement, int index, quint64 value)
{
    if (value > static_cast<quint64>(std::numeric_limits<qint64>::max()))
        return bindText(statement, index, QString::number(value));
    return sqlite3_bind_int64(statement, index, static_cast<qint64>(value));
}

int bindAsText(sqlite3_stmt *statement, int index, QVariant value)
{
    if (!value.convert(QMetaType::QString))
        return SQLITE_MISMATCH;
    return bindText(statement, index, value.toString());
}

/// Cuts off the fraction; what lies outside the range becomes its end, as in SQLite itself.
qint64 wholeNumber(double value)
{
    constexpr double kLimit = 9223372036854775808.0;  // 2^63
    if (value <= -kLimit)
        return std::numeric_limits<qint64>::min();
    if (value >= kLimit)
        return std::numeric_limits<qint64>::max();
    return static_cast<qint64>(value);
}

/// Nearly all texts of the suite are ASCII, which becomes a text in half the time as Latin-1.
QString textFromUtf8(const char *utf8, int length)
{
    constexpr quint64 kTopBits = Q_UINT64_C(0x8080808080808080);
    quint64 seen = 0;
    int i = 0;
    for (; i + 8 <= length; i += 8) {
        quint64 bytes = 0;
        std::memcpy(&bytes, utf8 + i, sizeof bytes);
        seen |= bytes;
    }
    for (; i < length; ++i)
        seen |= static_cast<unsigned char>(utf8[i]);
    return (seen & kTopBits) == 0 ? QString::fromLatin1(utf8, length) : QString::fromUtf8(utf8, length);
}

QVariant blobToVariant(const char *bytes, int length)
{
    return length > 0 ? QByteArray(bytes, length) : QByteArray("");  // no bytes are not a null
}

QVariant realToVariant(double value, QSql::NumericalPrecisionPolicy policy)
{
    switch (policy) {
    case QSql::LowPrecisionInt32:
        return static_cast<int>(wholeNumber(value));
    case QSql::LowPrecisionInt64:
        return wholeNumber(value);
    case QSql::LowPrecisionDouble:
    case QSql::HighPrecision:
        break;
    }
    return value;
}

}  // namespace

int bindVariant(sqlite3_stmt *statement, int index, const QVariant &value)
{
    if (value.isNull())
        return sqlite3_bind_null(statement, index);
    switch (value.userType()) {
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return sqlite3_bind_blob(statement, index, bytes.constData(), bytes.size(), SQLITE_TRANSIENT);
    }
    case QMetaType::Bool:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return sqlite3_bind_int64(statement, index, value.toLongLong());
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return bindUnsigned(statement, index, value.toULongLong());
    case QMetaType::Float:
    case QMetaType::Double:
        return sqlite3_bind_double(statement, index, value.toDouble());
    case QMetaType::QTime:
        return bindText(statement, index, value.toTime().toString(Qt::ISODateWithMs));
    case QMetaType::QDateTime:
        return bindText(statement, index, value.toDateTime().toString(Qt::ISODateWithMs));
    default:
        return bindAsText(statement, index, value);
    }
}

QVariant valueToVariant(sqlite3_value *value, QSql::NumericalPrecisionPolicy policy)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return static_cast<qlonglong>(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
        return realToVariant(sqlite3_value_double(value), policy);
    case SQLITE_TEXT: {
        const unsigned char *text = sqlite3_value_text(value);
        return textFromUtf8(reinterpret_cast<const char *>(text), sqlite3_value_bytes(value));
    }
    case SQLITE_BLOB: {
        const void *bytes = sqlite3_value_blob(value);
        return blobToVariant(static_cast<const char *>(bytes), sqlite3_value_bytes(value));
    }
    default:
        return QString();
    }
}

QVariant cellToVariant(const RowStore::Cell &cell, QSql::NumericalPrecisionPolicy policy)
{
    switch (cell.kind) {
    case RowStore::Kind::Integer:
        return cell.integer;
    case RowStore::Kind::Real:
        return realToVariant(cell.real, policy);
    case RowStore::Kind::Text:
        return textFromUtf8(cell.bytes, cell.length);
    case RowStore::Kind::Blob:
        return blobToVariant(cell.bytes, cell.length);
    case RowStore::Kind::Null:
        break;
    }
    return QString();
}

QVariant::Type declaredColumnType(const QString &declaredType)
{
    const QString type = declaredType.toLower();
    if (type == QLatin1String("integer") || type == QLatin1String("int"))
        return QVariant::Int;
    if (type == QLatin1String("double") || type == QLatin1String("float") || type == QLatin1String("real") ||
        type.startsWith(QLatin1String("numeric")))
        return QVariant::Double;
    if (type == QLatin1String("blob"))
        return QVariant::ByteArray;
    if (type == QLatin1String("boolean") || type == QLatin1String("bool"))
        return QVariant::Bool;
    return QVariant::String;
}

QVariant::Type storedColumnType(int storageClass)
{
    switch (storageClass) {
    case SQLITE_INTEGER:
        return QVariant::Int;
    case SQLITE_FLOAT:
        return QVariant::Double;
    case SQLITE_BLOB:
        return QVariant::ByteArray;
    case SQLITE_TEXT:
        return QVariant::String;
    default:
        return QVariant::Invalid;
    }
}

QSqlError sqlCipherError(sqlite3 *connection, const QString &text, QSqlError::ErrorType type)
{
    return QSqlError(text, QString::fromUtf8(sqlite3_errmsg(connection)), type,
                     QString::number(sqlite3_errcode(connection)));
}
