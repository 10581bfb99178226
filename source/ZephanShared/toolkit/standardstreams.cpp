#include "ZephanShared/toolkit/standardstreams.h"

#include <QtGlobal>

#ifndef Q_OS_WIN
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

void secureStandardStreams()
{
#ifndef Q_OS_WIN
    std::signal(SIGPIPE, SIG_IGN);
    // Each takes the lowest free number. None can be written, so that none is taken for an output.
    int number = 0;
    while (number >= 0 && number <= STDERR_FILENO)
        number = ::open("/dev/null", O_RDONLY);
    if (number >= 0)
        ::close(number);
#endif
}
