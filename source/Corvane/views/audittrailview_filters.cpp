#include "CommunicationAndData/settings/odbcconnection.h"
#include "Corvane/views/audittrailquerymodel.h"
#include "Corvane/views/audittrailview.h"
#include "ZephanShared/widgets/dateedit.h"
#include "ZephanShared/widgets/selectionpopup.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QTimer>

namespace {

constexpr int kFilterDelay = 600;  // milliseconds, from the first letter on
constexpr int kRowsToFit = 50;     // rows that tell how wide the columns begin
constexpr int kWidestColumn = 280;

}  // namespace

void AuditTrailView::showOrHideListWidget()
{
    if (m_actionButton->isChecked() && m_actionList->isHidden()) {
        m_actionList->showOrHide();
    } else if (m_levelButton->isChecked() && m_levelList->isHidden()) {
        m_levelList->showOrHide();
    } else {
        m_actionList->hide();
        m_levelList->hide();
    }
}

void AuditTrailView::setFromFilter()
{
    setDateFilter(AuditFilterKey::DateFrom, m_fromEdit);
}

void AuditTrailView::setToFilter()
{
    setDateFilter(AuditFilterKey::DateTo, m_toEdit);
}

void AuditTrailView::setActionFilter()
{
    setListFilter(AuditFilterKey::Action, m_actionList);
}

void AuditTrailView::setTypeFilter(int index)
{
    setChoiceFilter(AuditFilterKey::Type, m_typeCombo, index);
}

void AuditTrailView::setCategoryFilter(int index)
{
    setChoiceFilter(AuditFilterKey::Category, m_categoryCombo, index);
}

void AuditTrailView::setLevelFilter()
{
    setListFilter(AuditFilterKey::Level, m_levelList);
}

void AuditTrailView::setOperatorFilter()
{
    setTextFilter(AuditFilterKey::Operator, m_pendingOperator);
}

void AuditTrailView::setOperatorFilterTimer()
{
    startFilterTimer(m_pendingOperator, SLOT(setOperatorFilter()));
}

void AuditTrailView::setHostFilter()
{
    setTextFilter(AuditFilterKey::System, m_pendingHost);
}

void AuditTrailView::setHostFilterTimer()
{
    startFilterTimer(m_pendingHost, SLOT(setHostFilter()));
}

void AuditTrailView::setIdFilter()
{
    setTextFilter(AuditFilterKey::DatabaseKey, m_pendingId);
}

void AuditTrailView::setIdFilterTimer()
{
    startFilterTimer(m_pendingId, SLOT(setIdFilter()));
}

// No count of rows is shown anywhere.
void AuditTrailView::resetCountLabel() {}

void AuditTrailView::setSort(int column, Qt::SortOrder order)
{
    m_sort = {column, order};
    refreshResults();
}

void AuditTrailView::setDateFilter(AuditFilterKey key, const DateEdit *edit)
{
    // The log's times are UTC, and so is the day: there every day has a midnight.
    const QDate day = edit->date();
    setFilter(key, day.isValid() ? QVariant(QDateTime(day, QTime(0, 0), Qt::UTC)) : QVariant());
}

/// Item 0 takes the filter away; it can be chosen only while there is one.
void AuditTrailView::setChoiceFilter(AuditFilterKey key, QComboBox *combo, int index)
{
    const bool isChosen = index > 0;
    combo->setItemText(0, isChosen ? tr("Deselect") : tr("Select"));
    qobject_cast<QStandardItemModel *>(combo->model())->item(0)->setEnabled(isChosen);
    setFilter(key, isChosen ? combo->itemData(index) : QVariant());
}

void AuditTrailView::setListFilter(AuditFilterKey key, SelectionPopup *list)
{
    list->updateButtonText(tr("Select"));
    QVariantList values;
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->isSelected())
            values.append(list->item(row)->data(Qt::UserRole));
    }
    setFilter(key, values.isEmpty() ? QVariant() : QVariant(values));
}

/// Without an edit as its caller, the filter's delay has run out.
void AuditTrailView::setTextFilter(AuditFilterKey key, QPointer<QLineEdit> &pending)
{
    auto *edit = qobject_cast<QLineEdit *>(sender());
    if (!edit) {
        edit = pending;
        pending.clear();
    }
    if (!edit)
        return;
    setFilter(key, edit->text().isEmpty() ? QVariant() : QVariant(edit->text()));
}

void AuditTrailView::startFilterTimer(QPointer<QLineEdit> &pending, const char *filterSlot)
{
    if (pending)
        return;
    pending = qobject_cast<QLineEdit *>(sender());
    QTimer::singleShot(kFilterDelay, this, filterSlot);
}

/// An invalid value takes the filter away.
void AuditTrailView::setFilter(AuditFilterKey key, const QVariant &value)
{
    if (value.isValid())
        m_filters.insert(key, value);
    else
        m_filters.remove(key);
    refreshResults();
}

void AuditTrailView::refreshResults()
{
    if (!m_connected)
        return;
    if (!m_model) {
        m_model = new AuditTrailQueryModel(this);
        m_table->setModel(m_model);
        connect(m_model, SIGNAL(modelReset()), this, SLOT(resetCountLabel()));
        connect(m_model, SIGNAL(rowsInserted(QModelIndex, int, int)), this, SLOT(resetCountLabel()));
        connect(m_model, SIGNAL(rowsRemoved(QModelIndex, int, int)), this, SLOT(resetCountLabel()));
        connect(m_model, &QAbstractItemModel::rowsAboutToBeInserted, this,
                &AuditTrailView::noteSelectionOfAll);
        connect(m_model, &QAbstractItemModel::rowsInserted, this, &AuditTrailView::extendSelectionOfAll);
    }
    const QString statement = AuditTrailQueryString::statement(m_filters, m_sort);
    logSearch(statement);
    const WaitCursor wait;
    keepColumnWidths();
    m_model->setQuery(statement, m_database);
    for (int column = 0; column < m_model->columnCount(); ++column)
        m_model->setHeaderData(column, Qt::Horizontal, AuditTrailQueryString::headerText(column),
                               Qt::EditRole);
    fitColumns();
}

/// Every query is recorded before it runs.
void AuditTrailView::logSearch(const QString &statement)
{
    emit logAction(Actions::SearchAuditTrail, Actions::Human, UuidString(), QStringLiteral("actiondb"),
                   serverText(), statement);
}

QString AuditTrailView::serverText() const
{
    return OdbcConnection::withoutSecrets(m_database.databaseName());
}

/// A refused query and a disconnection take the columns away, and their widths with them.
void AuditTrailView::keepColumnWidths()
{
    const QHeaderView *header = m_table->horizontalHeader();
    for (int column = 0; column < header->count() && column < m_columnWidths.size(); ++column)
        m_columnWidths[column] = header->sectionSize(column);
}

/// With the first rows; afterwards the widths are the reader's.
void AuditTrailView::fitColumns()
{
    if (m_columnWidths.isEmpty() && m_model->rowCount() > 0) {
        m_table->horizontalHeader()->setResizeContentsPrecision(kRowsToFit);
        m_table->resizeColumnsToContents();
        for (int column = 0; column < m_model->columnCount(); ++column)
            m_columnWidths.append(qMin(m_table->columnWidth(column), kWidestColumn));
    }
    for (int column = 0; column < m_model->columnCount() && column < m_columnWidths.size(); ++column)
        m_table->setColumnWidth(column, m_columnWidths.at(column));
}
