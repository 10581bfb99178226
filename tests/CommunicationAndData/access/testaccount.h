#ifndef TESTS_TESTACCOUNT_H
#define TESTS_TESTACCOUNT_H

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

/// An account of this computer with a random name and a group of its own, removed with the object, and also
/// when the test's process ends in any other way.
class TestAccount
{
public:
    /// \param groups  further groups
    explicit TestAccount(const QStringList &groups = {});
    ~TestAccount();
    Q_DISABLE_COPY(TestAccount)

    /// Why accounts can't be made here; empty when they can.
    static QString obstacle();

    bool exists() const;
    QString name() const;
    QString password() const;
    quint32 user() const;

    /// Runs a program that changes the account, with the account's name as last argument.
    bool change(const QString &program, const QStringList &arguments);
    bool setPassword(const QString &password);

private:
    void startGuardian();

    QString m_name;
    QString m_password;
    int m_guardianInput = -1;
    int m_guardian = -1;
};

/// Runs `body` in a process of its own, which can give up its rights, and returns what the body returned.
QByteArray inOwnProcess(const std::function<QByteArray()> &body);

/// Gives the process the user's rights alone, with these groups. There is no way back.
bool becomeUser(quint32 user, const QVector<quint32> &groups);

/// Runs `body` in a thread of its own, which can change what belongs to a thread.
void inOwnThread(const std::function<void()> &body);

#endif
