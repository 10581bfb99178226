#include "CommunicationAndData/sqlcipher/rowstore.h"

#include <algorithm>
#include <cstring>

namespace {

// Tags: what a cell is and how many bytes follow.
constexpr quint64 kNull = 0;
constexpr quint64 kReal = 1;
constexpr quint64 kZero = 2;
constexpr quint64 kOne = 3;
constexpr quint64 kInteger = 3;     // + number of bytes, 1 to 8
constexpr quint64 kFirstText = 12;  // + 2 x length; a blob has the odd number after it
constexpr quint64 kTagBits = 7;     // of a tag in each of its bytes; the top bit says that more follow
constexpr quint64 kMoreFollows = 1u << kTagBits;
constexpr size_t kLongestTag = 10;  // bytes of a 64 bit tag

// A row starts below this in its chunk, so that its start fits in 16 bits.
constexpr size_t kChunkSize = 1u << 16;
constexpr size_t kFirstCapacity = kChunkSize;  // of which a small result touches little

int bytesNeeded(qint64 value)
{
    const quint64 magnitude = value < 0 ? ~static_cast<quint64>(value) : static_cast<quint64>(value);
    int bytes = 1;
    while (bytes < 8 && (magnitude >> (8 * bytes - 1)) != 0)
        ++bytes;
    return bytes;
}

char *writeTag(char *position, quint64 tag)
{
    while (tag >= kMoreFollows) {
        *position++ = static_cast<char>(tag | kMoreFollows);
        tag >>= kTagBits;
    }
    *position++ = static_cast<char>(tag);
    return position;
}

quint64 readTag(const char *&position)
{
    quint64 tag = 0;
    for (int shift = 0;; shift += kTagBits) {
        const quint64 byte = static_cast<unsigned char>(*position++);
        tag |= (byte & (kMoreFollows - 1)) << shift;
        if (byte < kMoreFollows)
            return tag;
    }
}

size_t payloadSize(quint64 tag)
{
    if (tag >= kFirstText)
        return (tag - kFirstText) / 2;
    if (tag == kReal)
        return sizeof(double);
    return tag > kInteger ? tag - kInteger : 0;
}

qint64 readInteger(const char *bytes, int length)
{
    quint64 value = 0;
    for (int i = 0; i < length; ++i)
        value |= static_cast<quint64>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    const quint64 sign = 1ull << (8 * length - 1);
    return static_cast<qint64>((value ^ sign) - sign);
}

}  // namespace

void RowStore::reset(int columns)
{
    m_columns = columns;
    m_count = 0;
    m_sealedSize = 0;
    m_chunks.clear();
    m_openFirstRow = 0;
    m_openSize = 0;
    m_openRowStarts.clear();
    m_openRow = 0;
    m_locatedRow = -1;
}

int RowStore::count() const
{
    return m_count;
}

qint64 RowStore::size() const
{
    return m_sealedSize + static_cast<qint64>(m_openSize + m_openRowStarts.size() * sizeof(quint16));
}

void RowStore::addNull()
{
    addCell(kNull, nullptr, 0);
}

void RowStore::addInteger(qint64 value)
{
    if (value == 0 || value == 1)
        return addCell(value == 0 ? kZero : kOne, nullptr, 0);
    const int length = bytesNeeded(value);
    char bytes[8];
    for (int i = 0; i < length; ++i)
        bytes[i] = static_cast<char>(static_cast<quint64>(value) >> (8 * i));
    addCell(kInteger + static_cast<quint64>(length), bytes, static_cast<size_t>(length));
}

void RowStore::addReal(double value)
{
    addCell(kReal, &value, sizeof value);
}

void RowStore::addText(const char *utf8, int length)
{
    addCell(kFirstText + 2 * static_cast<quint64>(length), utf8, static_cast<size_t>(length));
}

void RowStore::addBlob(const char *bytes, int length)
{
    addCell(kFirstText + 2 * static_cast<quint64>(length) + 1, bytes, static_cast<size_t>(length));
}

void RowStore::endRow()
{
    m_openRowStarts.push_back(static_cast<quint16>(m_openRow));
    m_openRow = m_openSize;
    m_locatedRow = -1;
    ++m_count;
    if (m_openSize >= kChunkSize)
        sealChunk();
}

RowStore::Cell RowStore::cell(int row, int column) const
{
    if (row != m_locatedRow)
        locateCells(row);
    const char *position = m_located[static_cast<size_t>(column)];
    const quint64 tag = readTag(position);
    Cell cell;
    if (tag >= kFirstText) {
        cell.kind = (tag - kFirstText) % 2 == 0 ? Kind::Text : Kind::Blob;
        cell.bytes = position;
        cell.length = static_cast<int>(payloadSize(tag));
    } else if (tag == kReal) {
        cell.kind = Kind::Real;
        std::memcpy(&cell.real, position, sizeof cell.real);
    } else if (tag != kNull) {
        cell.kind = Kind::Integer;
        cell.integer = tag <= kOne ? static_cast<qint64>(tag - kZero)
                                   : readInteger(position, static_cast<int>(payloadSize(tag)));
    }
    return cell;
}

/// The end of the open chunk, where so many bytes may be written.
char *RowStore::room(size_t bytes)
{
    if (m_openCapacity - m_openSize < bytes)
        growOpenChunk(bytes);
    return m_openCells.get() + m_openSize;
}

void RowStore::growOpenChunk(size_t bytes)
{
    m_openCapacity = std::max({2 * m_openCapacity, m_openSize + bytes, kFirstCapacity});
    std::unique_ptr<char[]> cells(new char[m_openCapacity]);
    std::copy_n(m_openCells.get(), m_openSize, cells.get());
    m_openCells = std::move(cells);
}

void RowStore::addCell(quint64 tag, const void *bytes, size_t length)
{
    char *const begin = room(kLongestTag + length);
    char *end = writeTag(begin, tag);
    if (length > 0)
        std::memcpy(end, bytes, length);
    m_openSize += static_cast<size_t>(end - begin) + length;
}

/// Moves the open chunk into memory of just its size and begins the next one.
void RowStore::sealChunk()
{
    Chunk chunk{m_openFirstRow, std::unique_ptr<char[]>(new char[m_openSize]),
                std::unique_ptr<quint16[]>(new quint16[m_openRowStarts.size()])};
    std::copy_n(m_openCells.get(), m_openSize, chunk.cells.get());
    std::copy(m_openRowStarts.begin(), m_openRowStarts.end(), chunk.rowStarts.get());
    m_sealedSize += static_cast<qint64>(m_openSize + m_openRowStarts.size() * sizeof(quint16) + sizeof chunk);
    m_chunks.push_back(std::move(chunk));

    m_openFirstRow = m_count;
    m_openSize = 0;
    if (m_openCapacity > 4 * kChunkSize) {
        m_openCells.reset();
        m_openCapacity = 0;
    }
    m_openRowStarts.clear();
    m_openRow = 0;
}

const char *RowStore::rowBegin(int row) const
{
    if (row >= m_openFirstRow)
        return m_openCells.get() + m_openRowStarts[static_cast<size_t>(row - m_openFirstRow)];
    const auto next = std::upper_bound(m_chunks.begin(), m_chunks.end(), row,
                                       [](int value, const Chunk &chunk) { return value < chunk.firstRow; });
    const Chunk &chunk = *std::prev(next);
    return chunk.cells.get() + chunk.rowStarts[static_cast<size_t>(row - chunk.firstRow)];
}

void RowStore::locateCells(int row) const
{
    const char *position = rowBegin(row);
    m_located.resize(static_cast<size_t>(m_columns));
    for (const char *&cell : m_located) {
        cell = position;
        const quint64 tag = readTag(position);
        position += payloadSize(tag);
    }
    m_locatedRow = row;
}
