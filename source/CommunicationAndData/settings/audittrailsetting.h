#ifndef AUDITTRAILSETTING_H
#define AUDITTRAILSETTING_H

#include <QByteArray>
#include <QList>
#include <QString>

/// The record of the online audit trail's state, kept as one text under `actionlog/audittrailsetting`.
///
/// It holds one entry a database: a keyed digest of the state and the database's hash. Neither the state nor
/// the hash can be read from it, an entry says nothing about any other database, and without the suite's key
/// nobody can write one.
class AuditTrailSetting
{
public:
    /// Nothing recorded for any database.
    AuditTrailSetting() = default;

    /// Reads the text of a record. Text in no known form gives a record with nothing in it.
    ///
    /// \param readable  is set to false if the text is neither empty nor a record
    static AuditTrailSetting fromText(const QString &text, bool *readable = nullptr);
    /// The record as text: digits, lower-case letters and dots.
    QString toText() const;

    /// Records the state for the database with this hash. The entries of other databases stay.
    void setEnabled(const QString &databaseHash, bool enabled);
    /// True only if the state on is recorded for exactly this hash.
    bool isEnabled(const QString &databaseHash) const;

private:
    QList<QByteArray> m_entries;  // hexadecimal, in the order in which they were recorded
};

#endif
