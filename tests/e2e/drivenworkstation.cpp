#include "drivenworkstation.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "ZephanShared/toolkit/actions.h"
#include "demoworkstation/demosettings.h"

#include <QDir>
#include <QFileInfo>
#include <QHostInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlQuery>

namespace {

constexpr int kWalkTime = 180000;  // milliseconds
constexpr int kErrorCategory = 0x6000;
const QString kNil = QStringLiteral("00000000-0000-0000-0000-000000000000");

enum Column {
    Time,
    Category,
    Level,
    Action,
    Type,
    Operator,
    OperatorName,
    System,
    Key,
    Info,
    Database,
    Server
};

constexpr char kSelect[] =
    "SELECT timestamp_action, category, action_level, action, action_type, operator, operator_name, system, "
    "database_key, info, target_database, target_server FROM action_log ORDER BY rowid";

/// A highest digit tells the category of an action and the next one its level.
bool isOfItsFamily(const QStringList &row)
{
    const int action = row.at(Action).toInt();
    const int category = row.at(Category).toInt();
    return row.at(Level).toInt() == (action & 0x0f00) &&
           (category == (action & 0xf000) || category == kErrorCategory);
}

/// A line without its time and line number; empty if it is a word of others that is no trouble.
QString essenceOf(const QString &line)
{
    static const QRegularExpression form(QStringLiteral(
        "^(.{8})\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\t(\\.\\.\\\\\\.\\.\\\\source(?:\\\\\\w+)+"
        "\\\\(\\w+)):\\d+::(\\S+)\\t(.*)$"));
    const QRegularExpressionMatch parts = form.match(line);
    if (!parts.hasMatch())
        return QStringLiteral("not a line of the log: ") + line;
    const bool isTrouble = line.startsWith(QLatin1String("ERR ")) || line.startsWith(QLatin1String("WRN "));
    if (!isTrouble && !parts.captured(2).contains(QLatin1String("\\Corvane\\views\\")))
        return QString();
    return parts.captured(1) + parts.captured(3) + QStringLiteral("::") + parts.captured(4) +
           QLatin1Char(' ') + parts.captured(5);
}

QVariant settingOf(const QString &file, const char *key)
{
    return openSettingsFile(file)->value(QLatin1String(key));
}

}  // namespace

bool operator==(const Event &a, const Event &b)
{
    return a.action == b.action && a.type == b.type && a.info == b.info && a.database == b.database &&
           a.server == b.server;
}

Event ownEvent(int action, const QString &info, int type)
{
    return {action, type, info, QString(), QHostInfo::localHostName()};
}

QByteArray describe(const QVector<Event> &events)
{
    QStringList lines;
    for (const Event &event : events)
        lines.append(QStringLiteral("%1 %2 '%3' '%4' '%5'")
                         .arg(Actions::name(event.action))
                         .arg(event.type)
                         .arg(event.info, event.database, event.server));
    return lines.join(QLatin1Char('\n')).toUtf8();
}

DrivenWorkstation::DrivenWorkstation()
{
    const QString settings = localSettingsFile();
    if (!QDir().mkpath(QFileInfo(settings).path()) || !writeDemoSettings(settings) ||
        !writeFile(dataDirectory() + QStringLiteral("version"), "1.2.3"))
        qFatal("The workstation cannot be prepared");
    SettingsHandler::getInstance()->changeSettingsFile(m_files.path(QStringLiteral("unused.ini")));
}

bool DrivenWorkstation::makeSite() const
{
    QProcess demo;
    demo.start(QStringLiteral(PROGRAM_FOLDER "/demoworkstation"),
               {dataDirectory(), localSettingsFile(), QStringLiteral("1.2.3")});
    return demo.waitForFinished(kWalkTime) && demo.exitCode() == 0;
}

QProcessEnvironment DrivenWorkstation::environment() const
{
    QProcessEnvironment environment = m_files.environment();
    environment.insert(QStringLiteral("CORVANE_HOME"), QStringLiteral(PROGRAM_FOLDER));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(SAMPLE_PLUGINS));
    environment.insert(QStringLiteral("PYTHONPATH"), QStringLiteral(UI_DRIVER));
    environment.insert(QStringLiteral("PYTHONDONTWRITEBYTECODE"), QStringLiteral("1"));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    // The screen's plug-in, which is unloaded before leaks are looked for, leaves memory that no suppression
    // can name. The program's own leaks are looked for in the tests without a screen.
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    return environment;
}

Output DrivenWorkstation::drive(const QString &script, const QString &screenshots) const
{
    const QString own = QStringLiteral(E2E_SCRIPTS "/") + script;
    const QString path = QFileInfo::exists(own) ? own : QStringLiteral(UI_DRIVER "/") + script;
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setProcessEnvironment(environment());
    // The system's own Python, which has the bindings.
    process.start(QStringLiteral("/usr/bin/python3"),
                  {QStringLiteral("-Wignore"), path, QStringLiteral(LAUNCHER),
                   QStringLiteral(SCREENSHOTS "/") + screenshots});
    const bool finished = process.waitForFinished(kWalkTime);
    if (!finished) {
        process.terminate();
        process.waitForFinished(10000);
    }
    return {finished ? process.exitCode() : -1, process.readAll()};
}

QVector<QStringList> DrivenWorkstation::rows() const
{
    QVector<QStringList> rows;
    const QString connection = QStringLiteral("audit");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QLatin1String(kEncryptedDriver), connection);
        database.setDatabaseName(actionLog());
        if (database.open()) {
            QSqlQuery query(database);
            for (const QString &statement : databaseKeyStatements())
                query.exec(statement);
            query.exec(QLatin1String(kSelect));
            while (query.next()) {
                QStringList row;
                for (int column = Time; column <= Server; ++column)
                    row.append(query.value(column).toString());
                rows.append(row);
            }
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return rows;
}

QVector<Event> DrivenWorkstation::recorded() const
{
    QVector<Event> events;
    for (const QStringList &row : rows())
        events.append(
            {row.at(Action).toInt(), row.at(Type).toInt(), row.at(Info), row.at(Database), row.at(Server)});
    return events;
}

QString DrivenWorkstation::wrongColumns(const QDateTime &begin, const QString &operatorId,
                                        const QString &operatorName) const
{
    const QString format = QStringLiteral("yyyy-MM-dd hh:mm:ss");
    QString time = begin.toString(format);
    const QString end = QDateTime::currentDateTimeUtc().toString(format);
    QStringList wrong;
    bool signedIn = false;
    for (const QStringList &row : rows()) {
        const int action = row.at(Action).toInt();
        const bool isStart = action == Actions::Started && row.at(Info) == QLatin1String("Corvane");
        signedIn = action == Actions::Login || (signedIn && !isStart);
        const bool isAsItShould = isOfItsFamily(row) && row.at(Time) >= time && row.at(Time) <= end &&
                                  row.at(Operator) == (signedIn ? operatorId : kNil) &&
                                  row.at(OperatorName) == (signedIn ? operatorName : QString()) &&
                                  row.at(System) == QHostInfo::localHostName() && row.at(Key) == kNil;
        if (!isAsItShould)
            wrong.append(row.join(QLatin1Char('|')));
        time = row.at(Time);
    }
    return wrong.join(QLatin1Char('\n'));
}

QStringList DrivenWorkstation::logLines() const
{
    QStringList lines;
    for (const QString &line : QString::fromUtf8(runtimeLog()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QString essence = essenceOf(line);
        if (!essence.isEmpty())
            lines.append(essence);
    }
    return lines;
}

QString DrivenWorkstation::dataDirectory() const
{
    return m_files.dataDirectory();
}

QString DrivenWorkstation::actionLog() const
{
    return dataDirectory() + QStringLiteral("CorvaneActions/actionlog.db");
}

QByteArray DrivenWorkstation::runtimeLog() const
{
    return readFile(m_files.runtimeLog());
}

QString DrivenWorkstation::localSettingsFile() const
{
    return m_files.path(QStringLiteral("ProgramData/config/Halvorn/Halvorn.ini"));
}

QVariant DrivenWorkstation::localSetting(const char *key) const
{
    return settingOf(localSettingsFile(), key);
}

void DrivenWorkstation::setLocalSetting(const char *key, const QVariant &value) const
{
    openSettingsFile(localSettingsFile())->setValue(QLatin1String(key), value);
}

QVariant DrivenWorkstation::workingSetting(const char *key) const
{
    return settingOf(dataDirectory() + QLatin1String(kSettingsFileName), key);
}

QVariant DrivenWorkstation::cacheSetting(const char *key) const
{
    return settingOf(dataDirectory() + QLatin1String(LocalCache::kFileName), key);
}
