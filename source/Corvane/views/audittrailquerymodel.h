#ifndef AUDITTRAILQUERYMODEL_H
#define AUDITTRAILQUERYMODEL_H

#include <QDateTime>
#include <QSqlQueryModel>
#include <QVector>

/// The rows of the action log with words in place of the stored numbers, and times in the user's date format.
///
/// Sorting and filtering act on the stored numbers, in SQL, never on the words.
class AuditTrailQueryModel : public QSqlQueryModel
{
    Q_OBJECT

public:
    explicit AuditTrailQueryModel(QObject *parent = nullptr);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /// Fetches the next rows. Where few rows pass the filter, the database reads long for them.
    void fetchMore(const QModelIndex &parent = QModelIndex()) override;

    /// How the values of a column become words.
    struct Words
    {
        QString (*nameOf)(int) = nullptr;  ///< of a column that holds numbers
        bool isTime = false;
    };
    static Words wordsOf(const QString &column);

    /// What the table shows for a stored value.
    static QVariant shownValue(const Words &words, const QVariant &value);

    /// What the table shows for the present row of a query for all columns of the log.
    static QStringList shownTexts(const QSqlQuery &row);

    /// The stored time of an event, in UTC; invalid when the value is none.
    static QDateTime timeOf(const QVariant &value);

    /// The fixed identifier of an action, "Unknown" for other numbers; neither is translated.
    static QString actionName(int value);
    static QString categoryName(int value);
    static QString levelName(int value);
    static QString typeName(int value);

private:
    QVariant storedValue(int row, int column) const;

    mutable QVector<Words> m_columns;  ///< of the present query; empty until they are needed
};

#endif
