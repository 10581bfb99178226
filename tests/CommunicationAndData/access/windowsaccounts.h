#ifndef TESTS_WINDOWSACCOUNTS_H
#define TESTS_WINDOWSACCOUNTS_H

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

/// The accounts of a Windows that the test makes up: it answers the system calls of the account services as
/// the test tells it, keeps a record of them, and knows what was handed out and not given back.
///
/// There is one at a time, which the calls find by themselves.
class WindowsAccounts
{
public:
    struct Name
    {
        QString domain;
        QString name;
    };

    WindowsAccounts();
    ~WindowsAccounts();
    Q_DISABLE_COPY(WindowsAccounts)

    static WindowsAccounts &present();

    /// A failure to come: the number that the call leaves behind or returns. The calls go by their names, and
    /// those for a token's data as "size of TokenUser", "TokenUser", "size of TokenGroups" and "TokenGroups",
    /// and a listing of users that was begun already as "page at <index>".
    void fail(const QString &call, uint number);

    /// Notes a call. False when it is to fail, with the last error set.
    bool begin(const QString &call, const QStringList &arguments = {});
    uint failureOf(const QString &call) const;
    void handOut(const void *what);
    /// Counts what nobody handed out, or what is given back twice.
    bool takeBack(const void *what);

    QString computer = QStringLiteral("WARD3");
    QString user;        ///< security identifier of whom every token stands for
    QStringList groups;  ///< security identifiers of the token's groups
    bool restricted = false;
    QMap<QString, Name> names;  ///< by security identifier

    QString langroup;
    QStringList servers;
    QStringList localGroups;
    QStringList globalGroups;
    QStringList users;
    int usersAtOnce = 100;
    bool moreWithoutEnd = false;  ///< says that there are more users even after the last one

    QStringList calls;  ///< with their arguments
    uint lastError = 0;
    int handedOut() const;
    int wrongReturns = 0;

private:
    QMap<QString, uint> m_failures;
    QSet<const void *> m_handedOut;
};

#endif
