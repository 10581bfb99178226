// What an auditor does with the rows: copies them, saves them, looks at them over time.
#include "Corvane/views/audittrailchartdialog.h"
#include "Corvane/views/audittrailexport.h"
#include "Corvane/views/audittrailquerymodel.h"
#include "Corvane/views/audittrailview.h"
#include "Corvane/views/savefile.h"
#include "ZephanShared/widgets/waitcursor.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableView>

#include <algorithm>

namespace {

QStringList textsOfRow(const QAbstractItemModel &model, int row)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts.append(model.index(row, column).data().toString());
    return texts;
}

QStringList headersOf(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts.append(model.headerData(column, Qt::Horizontal).toString());
    return texts;
}

}  // namespace

void AuditTrailView::buildTableActions()
{
    const auto add = [this](const QString &name, const QKeySequence &keys, void (AuditTrailView::*slot)()) {
        auto *action = new QAction(this);
        action->setObjectName(name);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        action->setEnabled(false);
        connect(action, &QAction::triggered, this, slot);
        m_table->addAction(action);
        return action;
    };
    const auto addSeparator = [this] {
        auto *separator = new QAction(m_table);
        separator->setSeparator(true);
        m_table->addAction(separator);
    };
    m_copyRowsAction =
        add(QStringLiteral("audit_copy_rows"), QKeySequence::Copy, &AuditTrailView::copyRowsWithHeaders);
    m_copyCellAction =
        add(QStringLiteral("audit_copy_cell"), Qt::CTRL + Qt::SHIFT + Qt::Key_C, &AuditTrailView::copyCell);
    addSeparator();
    m_saveAction = add(QStringLiteral("audit_save_csv"), QKeySequence::Save, &AuditTrailView::saveAsCsv);
    m_chartAction = add(QStringLiteral("audit_chart"), Qt::CTRL + Qt::Key_D, &AuditTrailView::showChart);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(this, &AuditTrailView::connected, this, &AuditTrailView::enableTableActions);
    connect(this, &AuditTrailView::disconnected, this, &AuditTrailView::enableTableActions);
}

void AuditTrailView::setTableActionTexts()
{
    m_copyRowsAction->setText(tr("Copy rows with headers"));
    m_copyCellAction->setText(tr("Copy cell"));
    m_saveAction->setText(tr("Save as CSV..."));
    m_chartAction->setText(tr("Show chart..."));
}

void AuditTrailView::enableTableActions()
{
    const bool hasLog = m_connected && m_database.isOpen();
    for (QAction *action : {m_copyRowsAction, m_copyCellAction, m_saveAction, m_chartAction})
        action->setEnabled(hasLog);
}

void AuditTrailView::noteSelectionOfAll()
{
    const QItemSelection selection = m_table->selectionModel()->selection();
    m_allSelected = selection.size() == 1 && selection.first().height() == m_model->rowCount();
}

/// Who selected all rows and scrolls on means those too that the table fetches now.
void AuditTrailView::extendSelectionOfAll()
{
    if (m_allSelected)
        m_table->selectAll();
}

void AuditTrailView::copyRowsWithHeaders()
{
    if (!m_model || !m_table->selectionModel()->hasSelection())
        return;
    QModelIndexList rows = m_table->selectionModel()->selectedRows();
    if (m_model->canFetchMore() && rows.size() == m_model->rowCount())
        return copyAllRows();
    std::sort(rows.begin(), rows.end());
    CsvText::ClipboardLines lines;
    if (collectRows(rows, lines))
        QGuiApplication::clipboard()->setText(lines.text());
    else
        tellTooManyRows();
}

/// \return  false when they are too many
bool AuditTrailView::collectRows(const QModelIndexList &rows, CsvText::ClipboardLines &lines) const
{
    const WaitCursor wait;
    bool fits = lines.add(headersOf(*m_model));
    for (int i = 0; fits && i < rows.size(); ++i)
        fits = lines.add(textsOfRow(*m_model, rows.at(i).row()));
    return fits;
}

/// All rows are selected, and the log holds more of them than the table has fetched.
void AuditTrailView::copyAllRows()
{
    const QString statement = AuditTrailQueryString::statement(m_filters, m_sort);
    const qint64 expected = countRows();
    logSearch(statement);
    CsvText::ClipboardLines lines;
    lines.add(headersOf(*m_model));
    AuditTrailReader reader(m_database, this);
    const AuditTrailReader::End end =
        reader.read(statement, expected, tr("Copying the audit trail"), [&lines](const QSqlQuery &row) {
            return lines.add(AuditTrailQueryModel::shownTexts(row));
        });
    if (end == AuditTrailReader::End::Complete)
        QGuiApplication::clipboard()->setText(lines.text());
    else if (end == AuditTrailReader::End::Failed)
        tellReadingFailure(reader.errorText());
    else if (end == AuditTrailReader::End::Refused)
        tellTooManyRows();
}

void AuditTrailView::copyCell()
{
    const QModelIndex cell = m_table->currentIndex();
    if (cell.isValid())
        QGuiApplication::clipboard()->setText(cell.data().toString());
}

void AuditTrailView::saveAsCsv()
{
    const QString file = SaveFile::choose(this, tr("Save the audit trail"), QStringLiteral("audit-trail.csv"),
                                          tr("CSV (*.csv)"));
    if (file.isEmpty())
        return;
    const QString statement = AuditTrailQueryString::statement(m_filters, m_sort);
    const qint64 expected = countRows();
    logSearch(statement);
    AuditTrailExport csv(m_database, this);
    switch (csv.save(file, statement, expected)) {
    case AuditTrailReader::End::Complete:
        logExport(file, csv.rows(), statement);
        break;
    case AuditTrailReader::End::Cancelled:
        break;
    default:
        SaveFile::tellFailure(this, file, csv.errorText());
        logExportFailure(file);
        break;
    }
}

void AuditTrailView::showChart()
{
    const QString statement = AuditTrailQueryString::timelineStatement(m_filters);
    const qint64 expected = countRows();
    logSearch(statement);
    AuditTrailTimeline timeline;
    AuditTrailReader reader(m_database, this);
    const AuditTrailReader::End end =
        reader.read(statement, expected, tr("Reading the audit trail"), [&timeline](const QSqlQuery &row) {
            timeline.add(AuditTrailQueryModel::timeOf(row.value(0)), row.value(1).toInt());
            return true;
        });
    if (end == AuditTrailReader::End::Cancelled)
        return;
    // A part of the events must not be taken for all of them.
    if (end == AuditTrailReader::End::Failed)
        return tellReadingFailure(reader.errorText());
    AuditTrailChartDialog dialog(timeline, this);
    connect(&dialog, &AuditTrailChartDialog::pictureSaved, this,
            [&](const QString &file) { logExport(file, reader.rows(), statement); });
    connect(&dialog, &AuditTrailChartDialog::savingFailed, this, &AuditTrailView::logExportFailure);
    dialog.exec();
}

void AuditTrailView::tellTooManyRows()
{
    tellReadingFailure(tr("These are too many rows for the clipboard. Save them as CSV instead."));
}

void AuditTrailView::tellReadingFailure(const QString &cause)
{
    QMessageBox box(QMessageBox::Warning, tr("Reading failed"),
                    tr("The audit trail could not be read to its end."), QMessageBox::Ok, this);
    box.setObjectName(QStringLiteral("reading_failure"));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(cause);
    box.button(QMessageBox::Ok)->setText(tr("Ok"));
    box.exec();
}

/// \return  below 0 when the database refuses the question
qint64 AuditTrailView::countRows()
{
    const QString statement = AuditTrailQueryString::countStatement(m_filters);
    logSearch(statement);
    const QVariant count = AuditTrailReader(m_database, this).firstValue(statement);
    return count.isValid() ? count.toLongLong() : -1;
}

void AuditTrailView::logExport(const QString &file, qint64 rows, const QString &statement)
{
    const QVariantMap info = {{QStringLiteral("file"), file},
                              {QStringLiteral("rows"), rows},
                              {QStringLiteral("statement"), statement}};
    emit logAction(Actions::Export, Actions::Human, UuidString(), QStringLiteral("actiondb"), serverText(),
                   info);
}

void AuditTrailView::logExportFailure(const QString &file)
{
    emit logError(Actions::Export, ZephanErrors::kExportFailed,
                  QStringLiteral("Saving the audit trail did not succeed: ") + file);
}
