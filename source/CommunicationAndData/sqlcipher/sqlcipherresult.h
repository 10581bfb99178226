#ifndef SQLCIPHERRESULT_H
#define SQLCIPHERRESULT_H

#include "CommunicationAndData/sqlcipher/rowstore.h"

#include <QSqlError>
#include <QSqlRecord>
#include <QSqlResult>
#include <QVector>
#include <sqlite3.h>

class SqlCipherDriver;

/// The rows of one statement of a `QSQLCIPHER` connection.
///
/// Rows are stepped only as far as they are asked for. A result that can go back keeps those it has passed; a
/// forward-only one reads each cell straight from SQLite and keeps nothing.
class SqlCipherResult : public QSqlResult
{
public:
    explicit SqlCipherResult(const SqlCipherDriver *driver);
    ~SqlCipherResult() override;

    /// The statement as `sqlite3_stmt *`.
    QVariant handle() const override;

protected:
    bool reset(const QString &query) override;
    bool prepare(const QString &query) override;
    bool exec() override;
    bool execBatch(bool arrayBind) override;

    void setAt(int row) override;
    QVariant data(int column) override;
    bool isNull(int column) override;
    bool fetch(int row) override;
    bool fetchNext() override;
    bool fetchPrevious() override;
    bool fetchFirst() override;
    bool fetchLast() override;
    void detachFromResultSet() override;

    int size() override;
    int numRowsAffected() override;
    QVariant lastInsertId() const override;
    QSqlRecord record() const override;

private:
    friend class SqlCipherDriver;

    void invalidate();
    void leaveDriver();

    sqlite3 *connection() const;
    void finalizeStatement();
    void forgetRows();
    bool fail(const QString &text, QSqlError::ErrorType type);

    void locatePlaceholders();
    bool isBoundInOrder() const;
    bool valuesFit() const;
    bool bindValues();

    bool start();
    void describeColumns(bool hasRow);
    void noteChanges(int changesBefore);

    bool step();
    void storeRow();
    sqlite3_value *statementValue(int column) const;
    bool fetchStored(int row);
    bool fetchForward(int row);
    bool fetchLastForward();

    const SqlCipherDriver *m_driver;
    sqlite3_stmt *m_statement = nullptr;
    QVector<int> m_valuePositions;
    int m_mostValues = 0;
    RowStore m_rows;
    QSqlRecord m_record;
    int m_columns = 0;
    bool m_keepsRows = true;
    bool m_atEnd = true;
    int m_statementRow = -1;        // where a forward-only result's statement stands
    bool m_readsStatement = false;  // whether the current row is the statement's
    int m_storedRow = -1;           // or the number of its stored row, negative for none
    int m_affectedRows = -1;
    QVariant m_lastInsertId;
};

Q_DECLARE_OPAQUE_POINTER(sqlite3_stmt *)
Q_DECLARE_METATYPE(sqlite3_stmt *)

#endif
