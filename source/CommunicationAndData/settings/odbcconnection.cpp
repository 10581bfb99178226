#include "CommunicationAndData/settings/odbcconnection.h"

#include "CommunicationAndData/settings/settingskeys.h"

#include <QRegularExpression>
#include <QSettings>
#include <QSqlDatabase>

namespace {

constexpr char kLoginTimeout[] = "SQL_ATTR_LOGIN_TIMEOUT";
constexpr char kHiddenSecret[] = "*****";

/// A value as it may stand in a connection text.
QString braced(QString value)
{
    const bool isPlain =
        !value.contains(QLatin1Char(';')) && !value.startsWith(QLatin1Char('{')) && value == value.trimmed();
    if (isPlain)
        return value;
    return QLatin1Char('{') + value.replace(QLatin1Char('}'), QLatin1String("}}")) + QLatin1Char('}');
}

/// Seconds that the connect options allow for a login; 0 when they set no limit.
uint loginTimeout(const QString &connectOptions)
{
    const QStringList options = connectOptions.split(QLatin1Char(';'));
    for (const QString &option : options) {
        if (option.section(QLatin1Char('='), 0, 0).trimmed() == QLatin1String(kLoginTimeout))
            return option.section(QLatin1Char('='), 1).toUInt();
    }
    return 0;
}

/// The login's time limit for MariaDB's driver, which takes it from the connection text alone. Without it, a
/// server that accepts and never answers would hold up the program for good.
QString ownLoginTimeout(const QString &databaseName, uint seconds)
{
    static const QRegularExpression isMariaDb(QStringLiteral("(^|;)\\s*driver\\s*=[^;]*(mariadb|maodbc)"),
                                              QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression hasTimeout(QStringLiteral("(^|;)\\s*conn_timeout\\s*="),
                                               QRegularExpression::CaseInsensitiveOption);
    if (seconds == 0 || !isMariaDb.match(databaseName).hasMatch() ||
        hasTimeout.match(databaseName).hasMatch())
        return QString();
    return QStringLiteral(";CONN_TIMEOUT=%1").arg(seconds);
}

/// The highest number among an array's entries. A damaged file may claim any size.
int lastEntry(QSettings &settings)
{
    int last = 0;
    settings.beginGroup(QLatin1String(SettingsKeys::kParams));
    const QStringList entries = settings.childGroups();
    for (const QString &entry : entries)
        last = qMax(last, entry.toInt());
    settings.endGroup();
    return last;
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
                          const QString &password)
{
    const QString options = connectOptions.toStringList().join(QLatin1Char(';'));
    const QString name = database.databaseName();
    database.setConnectOptions(options);
    database.setDatabaseName(withoutEndlessDriver(name) + ownLoginTimeout(name, loginTimeout(options)));
    const bool isOpen = database.open(braced(username), braced(password));
    database.setDatabaseName(name);
    return isOpen;
}

QVariantMap OdbcConnection::readParameters(QSettings &settings)
{
    QVariantMap parameters;
    const QString keyName = QLatin1String(SettingsKeys::kParamKey);
    const int last = lastEntry(settings);
    const int size = qMin(settings.beginReadArray(QLatin1String(SettingsKeys::kParams)), last);
    for (int i = 0; i < size; ++i) {
        settings.setArrayIndex(i);
        if (settings.contains(keyName))
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
