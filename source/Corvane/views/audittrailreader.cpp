#include "Corvane/views/audittrailreader.h"

#include "ZephanShared/widgets/waitcursor.h"

#include <QElapsedTimer>
#include <QLocale>
#include <QProgressDialog>
#include <QPushButton>
#include <QSqlError>
#include <QSqlQuery>

#include <limits>

namespace {

constexpr int kQuietTime = 300;        // milliseconds without a progress dialog
constexpr int kSliceTime = 30;         // milliseconds between two looks at the event queue
constexpr int kRowsBetweenLooks = 64;  // at the clock
constexpr int kProgressSteps = 1000;
constexpr int kProgressWidth = 380;

int progressStep(qint64 rows, qint64 expected)
{
    return static_cast<int>(qMin(rows, expected) * kProgressSteps / qMax<qint64>(1, expected));
}

/// Comes up when it is told to, and not by itself.
void prepare(QProgressDialog &progress, bool isKnown)
{
    progress.setObjectName(QStringLiteral("audit_progress"));
    progress.setMinimumDuration(std::numeric_limits<int>::max());
    progress.setAutoClose(false);
    progress.setAutoReset(false);
    progress.setWindowModality(Qt::WindowModal);
    progress.setRange(0, isKnown ? kProgressSteps : 0);
    progress.setMinimumWidth(kProgressWidth);
}

}  // namespace

AuditTrailReader::AuditTrailReader(const QSqlDatabase &database, QWidget *window)
    : m_database(database)
    , m_window(window)
{}

AuditTrailReader::End AuditTrailReader::read(const QString &statement, qint64 expected, const QString &doing,
                                             const RowTaker &take)
{
    m_rows = 0;
    QSqlQuery query(m_database);
    if (!execute(query, statement))
        return End::Failed;

    QProgressDialog progress(m_window);
    prepare(progress, expected >= 0);
    progress.setWindowTitle(doing);
    progress.setCancelButtonText(tr("Cancel"));
    QElapsedTimer sinceStart;
    QElapsedTimer sinceLook;
    sinceStart.start();
    sinceLook.start();
    while (query.next()) {
        if (!take(query))
            return End::Refused;
        ++m_rows;
        if (m_rows % kRowsBetweenLooks != 0 || sinceLook.elapsed() < kSliceTime ||
            sinceStart.elapsed() < kQuietTime)
            continue;
        if (isCancelled(progress, expected, doing))
            return End::Cancelled;
        sinceLook.restart();
    }
    m_errorText = query.lastError().text().trimmed();
    return query.lastError().type() == QSqlError::NoError ? End::Complete : End::Failed;
}

QVariant AuditTrailReader::firstValue(const QString &statement)
{
    QSqlQuery query(m_database);
    return execute(query, statement) && query.next() ? query.value(0) : QVariant();
}

bool AuditTrailReader::execute(QSqlQuery &query, const QString &statement)
{
    const WaitCursor wait;
    query.setForwardOnly(true);
    const bool done = query.exec(statement);
    m_errorText = query.lastError().text().trimmed();
    return done;
}

bool AuditTrailReader::isCancelled(QProgressDialog &progress, qint64 expected, const QString &doing)
{
    const QString rows = QLocale().toString(m_rows);
    progress.setLabelText(
        expected < 0 ? tr("%1: %2 rows").arg(doing, rows)
                     : tr("%1: %2 of %3 rows").arg(doing, rows, QLocale().toString(qMax(m_rows, expected))));
    if (expected >= 0)
        progress.setValue(progressStep(m_rows, expected));
    if (!progress.isVisible() && !progress.wasCanceled())
        progress.show();
    QCoreApplication::processEvents();
    return progress.wasCanceled();
}
