#ifndef TESTS_STOREFIXTURE_H
#define TESTS_STOREFIXTURE_H

#include "Corvane/accesscontrol/accesscontroloffline.h"
#include "Corvane/accesscontrol/handlerfixture.h"
#include "support/databaseserver.h"

#include <QSet>
#include <QSqlError>

#include <memory>
#include <vector>

/// Where the access tables may be.
enum class Place { MariaDb, PostgreSql, Sqlite, OfflineFile };
Q_DECLARE_METATYPE(Place)

using Role = QSharedPointer<AccessRoleModelData>;

/// An id of 36 characters with a number at its end.
UuidString idOf(int number);
OperatorModel makeOperator(const UuidString &id, const QString &username, const QList<uint> &roles = {},
                           uint type = OperatorModelData::InternalUser);
Role makeRole(const QString &title, int rights, uint id = 0);
/// Names that a store must give back as they were, with a word on each.
QList<QPair<const char *, QString>> difficultNames();

/// The stores on one of the places that the access tables may be in: servers and a file behind ODBC, and the
/// encrypted file. Each test begins connected, with three roles and nothing else in the tables.
class StoreFixture : public HandlerFixture
{
    Q_OBJECT

protected slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
    /// Calls for each place, with its name.
    static void addPlaceRows(const std::function<void(const QString &place, Place where)> &add);
    /// A column "place" with a row for each.
    static void addPlaces();
    /// The same with a column "name": each place with each difficult name.
    static void addPlacesAndNames();
    bool isOffline() const
    {
        return m_place == Place::OfflineFile;
    }
    /// Whether this database says that a text is too long for its column.
    bool hasWidths() const
    {
        return m_place == Place::MariaDb || m_place == Place::PostgreSql;
    }
    /// Connects through the options dialog, as an administrator of the tables.
    bool connectHandler();
    /// Runs statements on a connection of somebody else. The rows of the last one, columns joined by "|"; a
    /// null is "NULL". An error's text alone when one fails.
    QStringList elsewhere(const QString &statement, const QVariantList &values = {});
    /// Takes a table away behind the handler's back, until `showTables` or the end of the test.
    bool hideTable(const QString &table);
    bool showTables();
    /// Ends the connection without a word to the handler. Servers only.
    bool endConnection();
    uint roleId(const QString &title);

    /// What was recorded since the last call, failures among it, each as one line:
    /// "GetOperator Human <id>: info" or "failed GetOperator 16300002: text". An entry about another database
    /// or under another key than the store's says so.
    QStringList trail();
    /// The trail, without the causes that drivers tell in their own words.
    QStringList trailWithoutCauses();

    DatabaseServer &server();
    Place m_place = Place::Sqlite;

private slots:
    void record(Actions::Action action, Actions::ActionType type, UuidString id, QString key,
                QString database, QVariant info);
    void recordFailure(Actions::Action action, ZephanError code, QVariant data);

private:
    bool preparePlace();
    bool emptyTables();
    bool openOther();
    void closeOther();

    std::vector<std::unique_ptr<DatabaseServer>> m_servers;
    QSet<int> m_prepared;
    std::unique_ptr<AccessControlOffline> m_otherFile;
    QStringList m_hidden;
    QStringList m_trail;
};

#endif
