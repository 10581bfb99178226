#ifndef AUDITTRAILREADER_H
#define AUDITTRAILREADER_H

#include <QCoreApplication>
#include <QSqlDatabase>

#include <functional>

class QProgressDialog;
class QSqlQuery;
class QWidget;

/// Reads all rows of a statement once, forward only, so that none of them stays in memory.
///
/// The rows are read in slices, between which the program goes on painting. When it takes longer, a progress
/// dialog with "Cancel" comes up, which keeps a person from working in the window meanwhile.
class AuditTrailReader
{
    Q_DECLARE_TR_FUNCTIONS(AuditTrailReader)

public:
    enum class End {
        Complete,
        Cancelled,  ///< by the person
        Refused,    ///< by the one who takes the rows
        Failed      ///< the database refused the statement, or was lost on the way; see `errorText`
    };

    /// Takes the present row of a query. \return  whether reading is to go on
    using RowTaker = std::function<bool(const QSqlQuery &)>;

    /// \param window  over which the progress is shown
    AuditTrailReader(const QSqlDatabase &database, QWidget *window);

    /// \param expected  number of rows, for the progress; below 0 when nobody knows
    /// \param doing     what the progress dialog says, as "Saving the audit trail"
    End read(const QString &statement, qint64 expected, const QString &doing, const RowTaker &take);

    /// The first value of a statement's first row; invalid when the database refuses it.
    QVariant firstValue(const QString &statement);

    /// Rows taken by the last reading.
    qint64 rows() const
    {
        return m_rows;
    }
    /// What the database had to say when it failed.
    QString errorText() const
    {
        return m_errorText;
    }

private:
    bool execute(QSqlQuery &query, const QString &statement);
    bool isCancelled(QProgressDialog &progress, qint64 expected, const QString &doing);

    QSqlDatabase m_database;
    QWidget *m_window;
    qint64 m_rows = 0;
    QString m_errorText;
};

#endif
