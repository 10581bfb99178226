#include "CommunicationAndData/settings/odbcconnection.h"

#include "CommunicationAndData/settings/settingskeys.h"

#include <QRegularExpression>
#include <QSettings>
#include <QSqlDatabase>
#include <QVector>

#include <algorithm>

namespace {

constexpr char kLoginTimeout[] = "SQL_ATTR_LOGIN_TIMEOUT";
constexpr char kAnswerTimeout[] = "SQL_ATTR_CONNECTION_TIMEOUT";
constexpr char kHiddenSecret[] = "*****";
constexpr quint64 kMilliseconds = 1000;  // of a second

/// A value as it may stand in a connection text.
QString braced(QString value)
{
    const bool isPlain =
        !value.contains(QLatin1Char(';')) && !value.startsWith(QLatin1Char('{')) && value == value.trimmed();
    if (isPlain)
        return value;
    return QLatin1Char('{') + value.replace(QLatin1Char('}'), QLatin1String("}}")) + QLatin1Char('}');
}

/// Seconds that the connect options allow for something; 0 when they set no limit.
uint secondsOf(const char *name, const QString &connectOptions)
{
    const QStringList options = connectOptions.split(QLatin1Char(';'));
    for (const QString &option : options) {
        if (option.section(QLatin1Char('='), 0, 0).trimmed() == QLatin1String(name))
            return option.section(QLatin1Char('='), 1).toUInt();
    }
    return 0;
}

/// Whether a database name has a parameter, with a pattern in its value.
bool hasParameter(const QString &databaseName, const QString &name, const QString &value = QString())
{
    const QRegularExpression parameter(QStringLiteral("(?:^|;)\\s*%1\\s*=[^;]*%2").arg(name, value),
                                       QRegularExpression::CaseInsensitiveOption);
    return parameter.match(databaseName).hasMatch();
}

/// A parameter to be added to a database name; empty where it stands there already or sets no limit.
QString added(const QString &databaseName, const QString &name, quint64 limit,
              const QString &value = QStringLiteral("%1"))
{
    if (limit == 0 || hasParameter(databaseName, name))
        return QString();
    return QStringLiteral(";%1=%2").arg(name, value.arg(limit));
}

/// The limits of time for the drivers that take them from the connection text alone. Without them, a server
/// that accepts and never answers would hold up the program for good.
QString ownTimeouts(const QString &databaseName, uint loginSeconds, uint answerSeconds)
{
    const QString driver = QStringLiteral("driver");
    if (hasParameter(databaseName, driver, QStringLiteral("(?:mariadb|maodbc)"))) {
        return added(databaseName, QStringLiteral("CONN_TIMEOUT"), loginSeconds) +
               added(databaseName, QStringLiteral("READ_TIMEOUT"), answerSeconds) +
               added(databaseName, QStringLiteral("WRITE_TIMEOUT"), answerSeconds);
    }
    if (hasParameter(databaseName, driver, QStringLiteral("(?:postgres|psqlodbc)")))
        return added(databaseName, QStringLiteral("pqopt"), answerSeconds * kMilliseconds,
                     QStringLiteral("{tcp_user_timeout=%1}"));
    return QString();
}

/// The numbers of an array's entries, from 1, in their order. A damaged file may claim any size.
QVector<int> entryNumbers(QSettings &settings)
{
    QVector<int> numbers;
    settings.beginGroup(QLatin1String(SettingsKeys::kParams));
    const QStringList entries = settings.childGroups();
    settings.endGroup();
    for (const QString &entry : entries) {
        const int number = entry.toInt();
        if (number > 0 && entry == QString::number(number))
            numbers.append(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

/// A driver's name cut to a length that no driver has: the driver manager of Unix ends the program at one of
/// more than a thousand characters.
QString withoutEndlessDriver(QString databaseName)
{
    static const QRegularExpression endless(QStringLiteral("((?:^|;)\\s*driver\\s*=[^;]{255})[^;]*"),
                                            QRegularExpression::CaseInsensitiveOption);
    return databaseName.replace(endless, QStringLiteral("\\1"));
}

}  // namespace

const QStringList &OdbcConnection::defaultConnectOptions()
{
    static const QStringList options{QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=2"),
                                     QStringLiteral("SQL_ATTR_CONNECTION_TIMEOUT=2")};
    return options;
}

QString OdbcConnection::databaseName(const QVariantMap &parameters)
{
    QStringList pairs;
    for (auto parameter = parameters.begin(); parameter != parameters.end(); ++parameter)
        pairs.append(parameter.key() + QLatin1Char('=') + parameter.value().toString());
    return pairs.join(QLatin1Char(';'));
}

QString OdbcConnection::withoutSecrets(QString databaseName)
{
    static const QRegularExpression secret(
        QStringLiteral("((?:^|;)\\s*(?:PWD|PASSWORD)\\s*=)(?:\\{(?:[^}]|\\}\\})*\\}?[^;]*|[^;]*)"),
        QRegularExpression::CaseInsensitiveOption);
    return databaseName.replace(secret, QStringLiteral("\\1") + QLatin1String(kHiddenSecret));
}

bool OdbcConnection::open(QSqlDatabase &database, const QVariant &connectOptions, const QString &username,
                          const QString &password, AnswerTime answerTime)
{
    const QString options = connectOptions.toStringList().join(QLatin1Char(';'));
    const QString name = database.databaseName();
    database.setConnectOptions(options);
    const uint answerSeconds = answerTime == AsOptionsSay ? secondsOf(kAnswerTimeout, options) : 0;
    database.setDatabaseName(withoutEndlessDriver(name) +
                             ownTimeouts(name, secondsOf(kLoginTimeout, options), answerSeconds));
    const bool isOpen = database.open(braced(username), braced(password));
    database.setDatabaseName(name);
    return isOpen;
}

QVariantMap OdbcConnection::readParameters(QSettings &settings)
{
    QVariantMap parameters;
    const QString keyName = QLatin1String(SettingsKeys::kParamKey);
    const QVector<int> numbers = entryNumbers(settings);
    const int size = settings.beginReadArray(QLatin1String(SettingsKeys::kParams));
    for (const int number : numbers) {
        settings.setArrayIndex(number - 1);
        if (number <= size && settings.contains(keyName))
            parameters.insert(settings.value(keyName).toString(),
                              settings.value(QLatin1String(SettingsKeys::kParamValue)));
    }
    settings.endArray();
    return parameters;
}

void OdbcConnection::writeParameters(QSettings &settings, const QVariantMap &parameters)
{
    settings.remove(QLatin1String(SettingsKeys::kParams));
    settings.beginWriteArray(QLatin1String(SettingsKeys::kParams), parameters.size());
    int index = 0;
    for (auto parameter = parameters.begin(); parameter != parameters.end(); ++parameter) {
        settings.setArrayIndex(index++);
        settings.setValue(QLatin1String(SettingsKeys::kParamKey), parameter.key());
        settings.setValue(QLatin1String(SettingsKeys::kParamValue), parameter.value());
    }
    settings.endArray();
}
