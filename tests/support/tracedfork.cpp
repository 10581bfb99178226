#include "support/tracedfork.h"

#include <algorithm>
#include <iterator>

#include <csignal>

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
            ptrace(m_result.hasBegun ? PTRACE_SYSCALL : PTRACE_CONT, m_process, nullptr,
                   reinterpret_cast<void *>(static_cast<long>(signal)));
        }
        m_result.wasKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        m_result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
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

}  // namespace

TracedFork::Result TracedFork::run(const std::function<void()> &work, Moment moment)
{
    const pid_t process = fork();
    if (process == 0) {
        alarm(kLongestLife);
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            giveUp();
        work();
        _exit(0);
    }
    return process > 0 ? Tracer(process, moment).run() : Result();
}

void TracedFork::begin()
{
    raise(SIGSTOP);
}

void TracedFork::giveUp()
{
    _exit(1);
}
