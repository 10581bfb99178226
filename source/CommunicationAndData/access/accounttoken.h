#ifndef ACCOUNTTOKEN_H
#define ACCOUNTTOKEN_H

#include <QtGlobal>

#ifdef Q_OS_WIN

using HANDLE = void *;

#else

#include <QVector>

/// What an access token says about an account: who it is, the groups it works with, and whether it is held
/// back from its rights.
struct AccountToken
{
    quint32 user = 0;
    QVector<quint32> groups;
    bool restricted = false;
};

/// A borrowed token; null for none.
using HANDLE = const AccountToken *;

#endif

#endif
