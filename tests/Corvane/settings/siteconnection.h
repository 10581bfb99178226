#ifndef TESTS_CORVANE_SITECONNECTION_H
#define TESTS_CORVANE_SITECONNECTION_H

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "settingstest.h"

#include <QLineEdit>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariantMap>

/// A site's databases as files behind the SQLite ODBC driver, and how a person and `local_cache` name them.
namespace SiteConnection {

inline QVariantMap params(const QString &file)
{
    return {{QStringLiteral("Driver"), QStringLiteral("SQLite3")}, {QStringLiteral("Database"), file}};
}

/// Runs statements on a database of its own connection; the file is made when it isn't there.
///
/// \return  the first column of the last statement's rows
inline QStringList run(const QString &file, const QStringList &statements)
{
    QStringList column;
    const QString name = QStringLiteral("site_connection");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QODBC3"), name);
        database.setDatabaseName(QStringLiteral("Driver=SQLite3;Database=") + file);
        if (!database.open())
            qFatal("SQLite's ODBC driver is not there");
        QSqlQuery query(database);
        for (const QString &statement : statements) {
            if (!query.exec(statement))
                qFatal("%s", qPrintable(query.lastError().text()));
        }
        while (query.isSelect() && query.next())
            column.append(query.value(0).toString());
    }
    QSqlDatabase::removeDatabase(name);
    return column;
}

/// Puts a connection into `local_cache`.
inline void remember(const QString &cacheFile, const char *group, const QVariantMap &connectionParams,
                     const QVariant &options = QString(), const QVariant &sqlType = 2)
{
    const auto cache = openSettingsFile(cacheFile);
    cache->beginGroup(QLatin1String(group));
    cache->beginWriteArray(QStringLiteral("params"));
    int index = 0;
    for (auto param = connectionParams.cbegin(); param != connectionParams.cend(); ++param) {
        cache->setArrayIndex(index++);
        cache->setValue(QStringLiteral("key"), param.key());
        cache->setValue(QStringLiteral("value"), *param);
    }
    cache->endArray();
    cache->setValue(QStringLiteral("connectoptions"), options);
    cache->setValue(QStringLiteral("driverparams"), QString());
    cache->setValue(QStringLiteral("sqltype"), sqlType);
}

/// The keys below a group of `local_cache`, each with its value as text.
inline QStringList remembered(const QString &cacheFile, const char *group)
{
    const auto cache = openSettingsFile(cacheFile);
    cache->beginGroup(QLatin1String(group));
    QStringList lines;
    for (const QString &key : cache->allKeys()) {
        const QVariant value = cache->value(key);
        const QStringList list = value.toStringList();
        lines.append(key + QLatin1Char('=') +
                     (list.isEmpty() ? value.toString() : list.join(QLatin1Char(';'))));
    }
    return lines;
}

/// The lines of a connection editor that begin with this name, as "connection_setting_".
inline QStringList lines(const QObject &dialog, const QString &name)
{
    QStringList texts;
    for (int i = 1;; ++i) {
        const auto *line = dialog.findChild<QLineEdit *>(name + QString::number(i));
        if (!line)
            return texts;
        texts.append(line->text());
    }
}

inline QString userOf(const QObject &dialog)
{
    return SettingsTest::child<QLineEdit>(dialog, "username_edit")->text();
}

inline QString passwordOf(const QObject &dialog)
{
    return SettingsTest::child<QLineEdit>(dialog, "password_edit")->text();
}

inline void signInAs(const QObject &dialog, const QString &user, const QString &password)
{
    SettingsTest::child<QLineEdit>(dialog, "username_edit")->setText(user);
    SettingsTest::child<QLineEdit>(dialog, "password_edit")->setText(password);
}

}  // namespace SiteConnection

#endif
