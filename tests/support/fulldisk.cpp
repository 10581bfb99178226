#include "support/fulldisk.h"

#include <QtGlobal>

#include <csignal>

FullDisk::FullDisk(unsigned long room)
{
    // Without it, the process would be ended by the first write.
    signal(SIGXFSZ, SIG_IGN);
    if (getrlimit(RLIMIT_FSIZE, &m_former) != 0)
        qFatal("The limit of files is not known");
    rlimit limit = m_former;
    limit.rlim_cur = room;
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
        qFatal("Files cannot be limited");
}

FullDisk::~FullDisk()
{
    if (setrlimit(RLIMIT_FSIZE, &m_former) != 0)
        qFatal("Files stay limited");
}
