#include "support/ordinaryuser.h"

#include <unistd.h>

OrdinaryUser::OrdinaryUser(uid_t user)
    : m_isRoot(geteuid() == 0)
{
    if (m_isRoot && seteuid(user) != 0)
        qFatal("root can't become another user");
}

OrdinaryUser::~OrdinaryUser()
{
    if (m_isRoot && seteuid(0) != 0)
        qFatal("root doesn't come back");
}
