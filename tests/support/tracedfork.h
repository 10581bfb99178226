#ifndef TESTS_SUPPORT_TRACEDFORK_H
#define TESTS_SUPPORT_TRACEDFORK_H

#include <functional>

/// A copy of the test process that does some work and can be killed at any step of it, as by a power failure.
/// Steps are the system calls of its main thread, since between two of them nothing outside changes.
namespace TracedFork {

/// Whether the copy's steps are watched, or it is left to the clock alone.
enum Way { Watched, Unwatched };

/// When the copy is to be killed: before its n-th system call, before the n-th of those that change files, or
/// after n microseconds. The first two are for a watched copy, the last is for one that is not.
struct Moment
{
    enum Kind { Never, Step, Change, Time };

    Kind kind = Never;
    int number = 0;
};

struct Result
{
    bool hasBegun = false;  ///< the work came to `begin`
    bool wasKilled = false;
    int exitCode = -1;
    int steps = 0;         ///< of a watched copy
    int changes = 0;       ///< of a watched copy
    int microseconds = 0;  ///< from `begin` to the end of one that is not watched
};

/// Watched, unless the system lets no process watch another's system calls.
Way bestWay();

/// Does the work in a copy and waits for its end. The copy ends with the exit code 0 when the work is done.
Result run(const std::function<void()> &work, Way way, Moment moment = {});

/// Called by the work: from here on steps and time are counted.
void begin();

/// Called by the work when it cannot be done: ends the copy with the exit code 1.
[[noreturn]] void giveUp();

}  // namespace TracedFork

#endif
