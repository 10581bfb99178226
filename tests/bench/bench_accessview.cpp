// The management view of users, roles, organisations and departments: the time to fill its tables anew from
// an online database, beside a bare QTableWidget with as many buttons, and how it grows with the users; and
// the time to read the same from the encrypted file of a single workstation.

#include "CommunicationAndData/settings/odbcconnection.h"
#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/accesscontrolview.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "ratios.h"
#include "support/databaseserver.h"
#include "support/workstation.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>

namespace {

constexpr int kRoles = 20;
constexpr int kDefaultRoles = 3;  // of a new database
constexpr int kOrganizations = 300;
constexpr int kTurns = 3;
constexpr int kUsers[] = {250, 500, 1000, 2000};
constexpr int kMostShown = 250;  // a bare table of more users paints its buttons in minutes

QString idOf(int number)
{
    return QStringLiteral("%1").arg(number, UuidString::Length, 10, QLatin1Char('0'));
}

/// Processor milliseconds of the best of some turns, each of which finds what the one before has left.
double best(const std::function<void()> &work)
{
    double least = -1;
    work();
    for (int turn = 0; turn < kTurns; ++turn) {
        const std::clock_t start = std::clock();
        work();
        const double time = 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        least = least < 0 ? time : std::min(least, time);
    }
    return least;
}

void insert(const QSqlDatabase &database, const QString &statement, const QVariantList &values)
{
    QSqlQuery query(database);
    query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        qFatal("The rows are not made");
}

/// Every user has two roles, an organisation and no department.
void makeRows(QSqlDatabase database, int users)
{
    database.transaction();
    for (int i = kDefaultRoles; i < kRoles; ++i)
        insert(database, QStringLiteral("INSERT INTO roles (title, actions, deleted) VALUES (?, ?, 0)"),
               {QStringLiteral("Role %1").arg(i), i << 12});
    for (int i = 0; i < kOrganizations; ++i)
        insert(database, QStringLiteral("INSERT INTO organization (id, name, deleted) VALUES (?, ?, 0)"),
               {idOf(i + 1), QStringLiteral("Organisation %1").arg(i)});
    for (int i = 0; i < users; ++i) {
        insert(database,
               QStringLiteral("INSERT INTO operator (operator_id, username, deleted, operator_type, "
                              "organization_id) VALUES (?, ?, 0, 1, ?)"),
               {idOf(i + 1), QStringLiteral("user.%1").arg(i), idOf(i % kOrganizations + 1)});
        for (int role : {i % kRoles + 1, (i + 7) % kRoles + 1})
            insert(database,
                   QStringLiteral("INSERT INTO operator_roles (operator_id, role_id) VALUES (?, ?)"),
                   {idOf(i + 1), role});
    }
    database.commit();
}

/// Gives the handler the parameters of a former run.
void writeParameters(const Workstation &workstation, const QVariantMap &parameters)
{
    const auto cache = openSettingsFile(workstation.dataDirectory() + QLatin1String(LocalCache::kFileName));
    cache->beginGroup(QLatin1String(LocalCache::kSupportDbOnlineGroup));
    OdbcConnection::writeParameters(*cache, parameters);
}

/// Chooses a new encrypted file in the dialog of the connection's options.
void openOfflineFile(SupportConnectionHandler &handler, const QString &folder)
{
    handler.setOfflineAllowed(true);
    QTimer::singleShot(0, &handler, [&handler, &folder] {
        handler.findChild<QComboBox *>(QStringLiteral("online_mode_combo"))->setCurrentIndex(1);
        handler.findChild<QLineEdit *>(QStringLiteral("offline_location_edit"))->setText(folder);
        handler.findChild<QPushButton *>(QStringLiteral("connect_button"))->click();
    });
    handler.connectionOptions();
}

void readAll(SupportConnectionHandler &handler)
{
    QMap<UuidString, QString> organizations;
    QMultiMap<UuidString, QString> departments;
    handler.getRoles();
    handler.getOperators();
    handler.getOrganizationInfo(organizations, departments);
}

void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// As many buttons as the tables of the view have, each with its signal, in one table.
double fillBareTable(int users, int others, bool shown)
{
    QTableWidget table;
    table.resize(1200, 800);
    table.setVisible(shown);
    const int rows = users + 1 + others / (kRoles + 1);
    return best([&] {
        table.clear();
        table.setRowCount(0);
        table.setRowCount(rows);
        table.setColumnCount(kRoles + 1);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column <= kRoles; ++column) {
                auto *button = new QPushButton(table.viewport());
                button->setCheckable(column > 0);
                QObject::connect(button, SIGNAL(clicked()), &table, SLOT(clearSelection()));
                table.setCellWidget(row, column, button);
            }
        }
        settle();
    });
}

struct Times
{
    double fill;
    double store;
    double bare;
    double hiddenBare;
    double offlineStore;
};

/// Milliseconds to read everything from the encrypted file.
double measureOffline(int users)
{
    const Workstation workstation;
    SupportConnectionHandler handler(workstation.dataDirectory(), nullptr);
    openOfflineFile(handler, workstation.path(QStringLiteral("offline")));
    if (!handler.isConnected())
        qFatal("The encrypted file is not open");
    makeRows(*handler.database(), users);
    return best([&handler] { readAll(handler); });
}

Times measure(int users)
{
    const Workstation workstation;
    SettingsHandler::getInstance()->changeSettingsFile(workstation.dataDirectory() +
                                                       QStringLiteral("corvane.ini"));
    const QString name = QStringLiteral("access_%1").arg(users);
    DatabaseServer server(DatabaseServer::Sqlite);
    if (!server.makeDatabase(name, {QStringLiteral("access")}))
        qFatal("%s", qPrintable(server.errorText()));
    writeParameters(workstation, server.parameters(name));
    SupportConnectionHandler handler(workstation.dataDirectory(), nullptr);
    if (!handler.connectOnline())
        qFatal("The database is not open");
    makeRows(*handler.database(), users);

    Times times{};
    AccesscontrolView view(&handler, nullptr);
    view.resize(1200, 800);
    view.show();
    settle();
    times.fill = best([&view] {
        view.resetTables();
        settle();
    });
    times.store = best([&handler] { readAll(handler); });
    const int widgets =
        view.findChildren<QAbstractButton *>().size() + view.findChildren<QLineEdit *>().size();
    const int others = widgets - users * (kRoles + 1);
    times.bare = users <= kMostShown ? fillBareTable(users, others, true) : 0;
    times.hiddenBare = fillBareTable(users, others, false);
    times.offlineStore = measureOffline(users);
    return times;
}

}  // namespace

int main(int argc, char *argv[])
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);  // the larger tables take their time
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Times former{};
    for (int users : kUsers) {
        const Times times = measure(users);
        std::printf("%d users: view %.0f ms, of that the database %.0f ms, the encrypted file %.0f ms; bare "
                    "table %.0f ms, hidden %.0f ms\n",
                    users, times.fill, times.store, times.offlineStore, times.bare, times.hiddenBare);
        const std::string name = std::to_string(users) + " users: ";
        Ratios::print(name + "view / bare table of as many buttons", times.fill, times.bare, "at most 1.5");
        Ratios::print(name + "view / bare table that is not shown", times.fill, times.hiddenBare, "");
        Ratios::print(name + "view / view of half as many", times.fill, former.fill, "at most 2.2");
        Ratios::print(name + "database / database of half as many", times.store, former.store, "");
        Ratios::print(name + "encrypted file / file of half as many", times.offlineStore, former.offlineStore,
                      "at most 2.2");
        former = times;
    }
    return 0;
}
