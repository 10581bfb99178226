#ifndef TESTS_SUPPORT_TRACEDFORK_H
#define TESTS_SUPPORT_TRACEDFORK_H

#include <functional>

/// A copy of the test process that does some work and can be killed at any step of it, as by a power failure.
/// Steps are the system calls of its main thread, since between two of them nothing outside changes.
namespace TracedFork {

/// When the copy is to be killed: before its n-th system call, or before the n-th of those that change files.
struct Moment
{
    enum Kind { Never, Step, Change };

    Kind kind = Never;
    int number = 0;
};

struct Result
{
    bool hasBegun = false;  ///< the work came to `begin`
    bool wasKilled = false;
    int exitCode = -1;
    int steps = 0;
    int changes = 0;
};

/// Does the work in a copy and waits for its end. The copy ends with the exit code 0 when the work is done.
Result run(const std::function<void()> &work, Moment moment = {});

/// Called by the work: from here on steps are counted.
void begin();

/// Called by the work when it cannot be done: ends the copy with the exit code 1.
[[noreturn]] void giveUp();

}  // namespace TracedFork

#endif
