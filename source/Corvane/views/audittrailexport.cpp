#include "Corvane/views/audittrailexport.h"

#include "Corvane/views/audittrailquerymodel.h"
#include "Corvane/views/audittrailquerystring.h"
#include "Corvane/views/csvtext.h"
#include "ZephanShared/toolkit/filecommit.h"

#include <QSaveFile>
#include <QSqlQuery>

namespace {

QStringList headers()
{
    QStringList texts;
    for (int column = 0; column < AuditTrailQueryString::columns().size(); ++column)
        texts.append(AuditTrailQueryString::headerText(column));
    return texts;
}

bool writeRecord(QSaveFile &file, const QStringList &fields)
{
    const QByteArray bytes = CsvText::record(fields).toUtf8();
    return file.write(bytes) == bytes.size();
}

}  // namespace

AuditTrailExport::AuditTrailExport(const QSqlDatabase &database, QWidget *window)
    : m_reader(database, window)
{}

AuditTrailReader::End AuditTrailExport::save(const QString &file, const QString &statement, qint64 expected)
{
    using End = AuditTrailReader::End;
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly) || !writeRecord(target, headers())) {
        m_errorText = target.errorString();
        return End::Refused;
    }
    const End end =
        m_reader.read(statement, expected, tr("Saving the audit trail"), [&target](const QSqlQuery &row) {
            return writeRecord(target, AuditTrailQueryModel::shownTexts(row));
        });
    if (end == End::Complete && commitWhole(target))
        return end;
    m_errorText = end == End::Failed ? m_reader.errorText() : target.errorString();
    target.cancelWriting();
    return end == End::Complete ? End::Refused : end;
}
