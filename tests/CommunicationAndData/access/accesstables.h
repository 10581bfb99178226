#ifndef TESTS_ACCESSTABLES_H
#define TESTS_ACCESSTABLES_H

#include "CommunicationAndData/access/accesscontrol.h"
#include "support/workstation.h"

#include <QSignalSpy>
#include <QSqlDatabase>

extern const QString kNone;
extern const QString kInternal;
extern const QString kGroups;
extern const QString kUsers;
extern const QString kSalt;

/// An operator's id of this number.
QString id(int number);

/// An access control with its answers.
class SignIn
{
public:
    SignIn(const QString &method, QSqlDatabase *database);

    /// Signs in. \return the code of the result
    uint login(const QString &user = QString(), const QString &password = QString());

    AccessControl control;
    QSignalSpy results;
};

/// The access tables, empty at the beginning of each test, behind each driver in turn.
class AccessTables : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();
    void cleanupTestCase();

protected:
    void run(const QString &statement, const QVariantList &values = {});
    void addOperator(int number, int type, const QString &name, const QVariant &deleted = 0);
    void addInternalUser(int number, const QString &name, const QString &password,
                         const QVariant &deleted = 0);
    void addRole(int operatorNumber, int role, const QVariant &rights, const QVariant &deleted = 0);

    Workstation m_workstation;
    QSqlDatabase m_database;

private:
    int m_run = 0;
};

#endif
