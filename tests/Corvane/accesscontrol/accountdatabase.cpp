#include "Corvane/accesscontrol/accountdatabase.h"

#include <QByteArray>
#include <QList>

#include <grp.h>
#include <pwd.h>

namespace {

constexpr uint kFirstNumber = 2000;  // that of an ordinary account

struct Listing
{
    QList<QByteArray> names;
    int next = 0;
};

Listing users;
Listing groups;
std::function<void()> action;

void set(Listing &listing, const QStringList &names)
{
    listing = Listing();
    for (const QString &name : names)
        listing.names.append(name.toLocal8Bit());
}

void begin(Listing &listing)
{
    listing.next = 0;
    if (action)
        action();
}

}  // namespace

// The linker takes these for the functions of the C library.
extern "C" {

void setpwent()
{
    begin(users);
}

passwd *getpwent()
{
    static passwd entry;
    if (users.next >= users.names.size())
        return nullptr;
    entry.pw_uid = kFirstNumber + uint(users.next);
    entry.pw_name = users.names[users.next++].data();
    return &entry;
}

void endpwent() {}

void setgrent()
{
    begin(groups);
}

group *getgrent()
{
    static group entry;
    if (groups.next >= groups.names.size())
        return nullptr;
    entry.gr_gid = kFirstNumber + uint(groups.next);
    entry.gr_name = groups.names[groups.next++].data();
    return &entry;
}

void endgrent() {}

}  // extern "C"

void AccountDatabase::setUsers(const QStringList &names)
{
    set(users, names);
}

void AccountDatabase::setGroups(const QStringList &names)
{
    set(groups, names);
}

QStringList AccountDatabase::numbered(int count)
{
    QStringList names;
    for (int number = 1; number <= count; ++number)
        names.append(QStringLiteral("account%1").arg(number));
    return names;
}

void AccountDatabase::whenListed(std::function<void()> whenListed)
{
    action = std::move(whenListed);
}
