#ifndef TESTS_OFFLINEFIXTURE_H
#define TESTS_OFFLINEFIXTURE_H

#include "CommunicationAndData/sqlcipher/databasekey.h"
#include "Corvane/accesscontrol/accesscontroloffline.h"
#include "support/qtwarnings.h"
#include "support/workstation.h"

#include <QSqlDatabase>
#include <QTest>

#include <memory>

extern const QString kConnection;
extern const QStringList kTables;
extern const QStringList kDefaultRoles;

extern const QString kTableFailure;
extern const QString kRolesFailure;
extern const QString kLocationFailure;
extern const QString kOpenFailure;

/// The tables, in the order of their names.
QStringList tables(QSqlDatabase &database);
/// The rows of a query, their columns joined by "|".
QStringList rows(const QSqlDatabase &database, const QString &statement);
/// Runs statements on an encrypted file, as another program of the suite would.
bool prepare(const QString &file, const QStringList &statements,
             const QStringList &keys = databaseKeyStatements());

/// The offline access database of a workstation of its own. Each test has a folder of its own.
class OfflineFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    QString folder(const QString &name = QStringLiteral("access"))
    {
        return m_workstation.path(QStringLiteral("%1_%2").arg(name).arg(m_count));
    }
    static QString fileIn(const QString &folder)
    {
        return folder + QStringLiteral("/offline.access.db");
    }
    bool open(const QString &location);

    Workstation m_workstation;
    std::unique_ptr<QtWarnings> m_warnings;
    std::unique_ptr<AccessControlOffline> m_offline;
    QString m_error;
    int m_count = 0;
};

#endif
