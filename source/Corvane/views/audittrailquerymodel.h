#ifndef AUDITTRAILQUERYMODEL_H
#define AUDITTRAILQUERYMODEL_H

#include <QDateTime>
#include <QSqlQueryModel>

/// The rows of the action log with words in place of the stored numbers, and times in the user's date format.
///
/// Sorting and filtering act on the stored numbers, in SQL, never on the words.
class AuditTrailQueryModel : public QSqlQueryModel
{
    Q_OBJECT

public:
    explicit AuditTrailQueryModel(QObject *parent = nullptr);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /// What the table shows for a stored value of the column with this name in `action_log`.
    static QVariant shownValue(const QString &column, const QVariant &value);

    /// The stored time of an event, in UTC; invalid when the value is none.
    static QDateTime timeOf(const QVariant &value);

    /// The fixed identifier of an action, which is not translated; the translated "Unknown" for other
    /// numbers.
    static QString actionName(int value);
    static QString categoryName(int value);
    static QString levelName(int value);
    static QString typeName(int value);
};

#endif
