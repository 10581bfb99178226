#include "support/tracedfork.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <thread>

#include <csignal>

#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned kLongestLife = 120;  // seconds
constexpr int kSystemCall = SIGTRAP | 0x80;

/// The system calls by which a program changes files. Not every processor has all of them.
constexpr long kChanges[] = {
#ifdef SYS_rename
    SYS_rename,
#endif
#ifdef SYS_renameat
    SYS_renameat,
#endif
#ifdef SYS_unlink
    SYS_unlink,
#endif
#ifdef SYS_rmdir
    SYS_rmdir,
#endif
#ifdef SYS_mkdir
    SYS_mkdir,
#endif
#ifdef SYS_link
    SYS_link,
#endif
#ifdef SYS_open
    SYS_open,
#endif
#ifdef SYS_chmod
    SYS_chmod,
#endif
    SYS_renameat2, SYS_unlinkat, SYS_mkdirat,  SYS_linkat,    SYS_openat, SYS_fchmod,
    SYS_fchmodat,  SYS_write,    SYS_pwrite64, SYS_ftruncate, SYS_fsync,  SYS_fdatasync};

/// Whether the call that the process is about to make changes files.
bool isChange(pid_t process)
{
    struct __ptrace_syscall_info info
    {};
    void *const size = reinterpret_cast<void *>(sizeof info);
    if (ptrace(PTRACE_GET_SYSCALL_INFO, process, size, &info) <= 0 || info.op != PTRACE_SYSCALL_INFO_ENTRY)
        return false;
    return std::find(std::begin(kChanges), std::end(kChanges), static_cast<long>(info.entry.nr)) !=
           std::end(kChanges);
}

void takeEnd(int status, TracedFork::Result &result)
{
    result.wasKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class Tracer
{
public:
    Tracer(pid_t process, TracedFork::Moment moment)
        : m_process(process)
        , m_moment(moment)
    {}

    TracedFork::Result run()
    {
        int status = 0;
        while (waitpid(m_process, &status, 0) == m_process && WIFSTOPPED(status)) {
            int signal = WSTOPSIG(status);
            if (signal == kSystemCall) {
                signal = 0;
                takeStep();
            } else if (signal == SIGSTOP && !m_result.hasBegun) {
                signal = 0;
                m_result.hasBegun = true;
                ptrace(PTRACE_SETOPTIONS, m_process, nullptr,
                       reinterpret_cast<void *>(PTRACE_O_TRACESYSGOOD));
            }
            const auto request = m_result.hasBegun ? PTRACE_SYSCALL : PTRACE_CONT;
            // One that cannot be told to go on would be waited for without end.
            if (ptrace(request, m_process, nullptr, reinterpret_cast<void *>(static_cast<long>(signal))) != 0)
                kill(m_process, SIGKILL);
        }
        takeEnd(status, m_result);
        return m_result;
    }

private:
    void takeStep()
    {
        m_isInCall = !m_isInCall;
        if (!m_isInCall)
            return;
        ++m_result.steps;
        const bool change = isChange(m_process);
        m_result.changes += change ? 1 : 0;
        const bool isNow =
            (m_moment.kind == TracedFork::Moment::Step && m_result.steps == m_moment.number) ||
            (m_moment.kind == TracedFork::Moment::Change && change && m_result.changes == m_moment.number);
        if (isNow)
            kill(m_process, SIGKILL);
    }

    const pid_t m_process;
    const TracedFork::Moment m_moment;
    TracedFork::Result m_result;
    bool m_isInCall = false;
};

TracedFork::Result runByTheClock(pid_t process, TracedFork::Moment moment)
{
    using std::chrono::microseconds;
    using Clock = std::chrono::steady_clock;
    TracedFork::Result result;
    int status = 0;
    if (waitpid(process, &status, WUNTRACED) != process)
        return result;
    result.hasBegun = WIFSTOPPED(status);
    if (result.hasBegun) {
        const Clock::time_point start = Clock::now();
        kill(process, SIGCONT);
        if (moment.kind == TracedFork::Moment::Time) {
            std::this_thread::sleep_for(microseconds(moment.number));
            kill(process, SIGKILL);
        }
        waitpid(process, &status, 0);
        result.microseconds =
            static_cast<int>(std::chrono::duration_cast<microseconds>(Clock::now() - start).count());
    }
    takeEnd(status, result);
    return result;
}

}  // namespace

TracedFork::Way TracedFork::bestWay()
{
    const auto work = [] {
        begin();
        unlink("");
    };
    const Result result = run(work, Watched);
    return result.exitCode == 0 && result.changes > 0 ? Watched : Unwatched;
}

TracedFork::Result TracedFork::run(const std::function<void()> &work, Way way, Moment moment)
{
    const pid_t process = fork();
    if (process < 0)
        return Result();
    if (process == 0) {
        // One that stands still would outlive a test that is killed.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        alarm(kLongestLife);
        if (way == Watched && ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            giveUp();
        work();
        _exit(0);
    }
    return way == Watched ? Tracer(process, moment).run() : runByTheClock(process, moment);
}

void TracedFork::begin()
{
    raise(SIGSTOP);
}

void TracedFork::giveUp()
{
    _exit(1);
}
