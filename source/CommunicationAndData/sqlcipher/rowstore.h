#ifndef ROWSTORE_H
#define ROWSTORE_H

#include <QByteArray>
#include <QtGlobal>
#include <memory>
#include <vector>

/// Rows of a query's result, kept in the order in which they came and as small as their content.
///
/// A cell is a tag and its bytes: integers take as few bytes as they need, texts are UTF-8. Cells lie one
/// after the other in chunks of about 64 KiB, so that a row costs two bytes beside its cells.
class RowStore
{
public:
    enum class Kind { Null, Integer, Real, Text, Blob };

    /// One cell. The bytes of a text or blob belong to the store and last until a row is added or removed.
    struct Cell
    {
        Kind kind = Kind::Null;
        qint64 integer = 0;           ///< of an integer
        double real = 0;              ///< of a real
        const char *bytes = nullptr;  ///< of a text (UTF-8, not terminated) or blob
        int length = 0;               ///< in bytes, of a text or blob
    };

    /// Removes all rows; those that follow have \p columns cells.
    void reset(int columns);
    /// Number of whole rows.
    int count() const;
    /// Bytes that the rows take, with their index.
    qint64 size() const;

    // A row is made by one call for each of its cells, in order, and then endRow().
    void addNull();
    void addInteger(qint64 value);
    void addReal(double value);
    void addText(const char *utf8, int length);
    void addBlob(const char *bytes, int length);
    void endRow();

    /// The cell at \p row and \p column, both from 0 and inside the store.
    Cell cell(int row, int column) const;

private:
    struct Chunk
    {
        int firstRow;
        std::unique_ptr<char[]> cells;
        std::unique_ptr<quint16[]> rowStarts;
    };

    char *room(size_t bytes);
    void growOpenChunk(size_t bytes);
    void addCell(quint64 tag, const void *bytes, size_t length);
    void sealChunk();
    const char *rowBegin(int row) const;
    void locateCells(int row) const;

    int m_columns = 0;
    int m_count = 0;
    qint64 m_sealedSize = 0;
    std::vector<Chunk> m_chunks;
    int m_openFirstRow = 0;
    std::unique_ptr<char[]> m_openCells;
    size_t m_openSize = 0;
    size_t m_openCapacity = 0;
    std::vector<quint16> m_openRowStarts;
    size_t m_openRow = 0;
    mutable int m_locatedRow = -1;
    mutable std::vector<const char *> m_located;
};

#endif
