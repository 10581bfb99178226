#ifndef AUDITTRAILEXPORT_H
#define AUDITTRAILEXPORT_H

#include "Corvane/views/audittrailreader.h"

/// Saves what a statement reads of the action log as CSV (RFC 4180, UTF-8), with the headers and the words
/// that the table shows.
///
/// The rows go to the disk as they are read. The file takes the place of an old one only when all of them
/// are there; until then, and for good when it is cancelled or fails, the old one stays.
class AuditTrailExport
{
    Q_DECLARE_TR_FUNCTIONS(AuditTrailExport)

public:
    /// \param window  over which the progress is shown
    AuditTrailExport(const QSqlDatabase &database, QWidget *window);

    /// \param statement  reads the twelve columns of the log
    /// \param expected   number of rows, for the progress; below 0 when nobody knows
    /// \return           `Failed` and `Refused`: see `errorText`
    AuditTrailReader::End save(const QString &file, const QString &statement, qint64 expected);

    qint64 rows() const
    {
        return m_reader.rows();
    }
    QString errorText() const
    {
        return m_errorText;
    }

private:
    AuditTrailReader m_reader;
    QString m_errorText;
};

#endif
