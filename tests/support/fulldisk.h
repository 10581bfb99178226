#ifndef TESTS_SUPPORT_FULLDISK_H
#define TESTS_SUPPORT_FULLDISK_H

#include <sys/resource.h>

/// For as long as it lives this process can write no file beyond a size, as on a disk without room.
class FullDisk
{
public:
    explicit FullDisk(unsigned long room = 0);
    ~FullDisk();

private:
    rlimit m_former;
};

#endif
