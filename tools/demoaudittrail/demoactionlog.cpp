#include "demoaudittrail/demoactionlog.h"

#include "CommunicationAndData/actionlog/actionlogfile.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "ZephanShared/toolkit/nativepath.h"
#include "demoaudittrail/demoevents.h"
#include "demoaudittrail/demofile.h"

#include <QSqlError>
#include <QSqlQuery>

namespace {

const QString kConnection = QStringLiteral("demoactionlog");

/// The file with its tables, as the engine begins it.
bool makeFile(const QString &directory, QString &error)
{
    ActionLogFile file(directory);
    const bool made = file.open() == ActionLogWriter::Opening::Ready;
    error = file.errorText();
    return made;
}

bool writeEvents(QSqlDatabase &database, const DemoTrail &trail, QString &error)
{
    QSqlQuery query(database);
    bool written = database.transaction() && query.prepare(ActionLogTable::insertStatement());
    DemoEvents events(trail.seed, trail.lastDay.addDays(1 - trail.days), trail.lastDay, trail.events);
    while (written && !events.atEnd()) {
        const QVector<ActionLogEntry> day = events.nextDay();
        for (const ActionLogEntry &event : day) {
            const QVariantList values = event.values();
            for (int i = 0; i < values.size(); ++i)
                query.bindValue(i, values.at(i));
            written = written && query.exec();
        }
    }
    query.finish();
    error = query.lastError().text() + database.lastError().text();
    return written && database.commit();
}

bool fillFile(const QString &path, const DemoTrail &trail, QString &error)
{
    bool filled = false;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), kConnection);
        database.setDatabaseName(path);
        if (database.open()) {
            for (const QString &statement : databaseKeyStatements())
                QSqlQuery(statement, database);
            filled = writeEvents(database, trail, error);
        } else {
            error = database.lastError().text();
        }
    }
    QSqlDatabase::removeDatabase(kConnection);
    return filled;
}

}  // namespace

bool makeDemoActionLog(const QString &directory, const DemoTrail &trail, QString &error)
{
    const QString name = QLatin1Char('/') + QLatin1String(ActionLogTable::kFileName);
    const auto make = [&](const QString &folder) {
        return makeFile(folder, error) && fillFile(nativePath(folder + name), trail, error);
    };
    return makeDemoFile(directory + name, make, error);
}
