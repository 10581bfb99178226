#ifndef TESTS_SUPPORT_ORDINARYUSER_H
#define TESTS_SUPPORT_ORDINARYUSER_H

#include <QtGlobal>

#include <sys/types.h>

/// While it lives, the process has the rights of an ordinary user, also where root runs the test: file
/// permissions count for it, and it is no administrator. For POSIX systems.
class OrdinaryUser
{
public:
    static constexpr uid_t Nobody = 65534;

    /// \param user  whose rights root takes; by default those of nobody
    explicit OrdinaryUser(uid_t user = Nobody);
    ~OrdinaryUser();
    Q_DISABLE_COPY(OrdinaryUser)

private:
    const bool m_isRoot;
};

#endif
