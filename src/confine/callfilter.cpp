// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "callfilter.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <linux/seccomp.h>
#include <memory>
#include <sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <type_traits>
#include <unistd.h>

namespace {

using Context = std::remove_pointer_t<scmp_filter_ctx>;

struct ContextDeleter {
    void operator()(Context* context) const { seccomp_release(context); }
};

/// By name, since not every machine and not every version of the library has all of them.
constexpr const char* refusedCalls[] = {
    // the network, and programs that wait behind sockets
    "socket", "socketpair", "socketcall", "connect", "bind", "listen", "accept", "accept4",
    // other processes
    "process_vm_readv", "process_vm_writev", "pidfd_getfd", "kcmp", "shmget", "msgget", "semget",
    "mq_open",
    // mounts and namespaces
    "mount", "umount", "umount2", "pivot_root", "chroot", "fsopen", "fsmount", "fspick",
    "move_mount", "open_tree", "mount_setattr", "unshare", "setns",
    // privileges
    "setuid", "setgid", "setreuid", "setregid", "setresuid", "setresgid", "setfsuid", "setfsgid",
    "setgroups", "capset", "add_key", "request_key", "keyctl",
    // files by their names, past the rules for opening them
    "chmod", "fchmodat", "fchmodat2", "chown", "lchown", "fchownat", "setxattr", "lsetxattr",
    "setxattrat", "removexattr", "lremovexattr", "removexattrat", "truncate", "truncate64",
    "name_to_handle_at", "open_by_handle_at", "mknod", "mknodat",
    // the kernel's own affairs
    "bpf", "perf_event_open", "userfaultfd", "io_uring_setup", "kexec_load", "kexec_file_load",
    "init_module", "finit_module", "delete_module", "reboot", "swapon", "swapoff", "acct",
    "quotactl", "quotactl_fd", "syslog", "settimeofday", "clock_settime", "clock_adjtime",
    "adjtimex", "sethostname", "setdomainname", "iopl", "ioperm"};

/// Types what the person at the terminal would seem to have typed.
constexpr unsigned long typingCalls[] = {TIOCSTI, TIOCLINUX};

constexpr unsigned long newNamespaces[] = {CLONE_NEWNS,  CLONE_NEWCGROUP, CLONE_NEWUTS,
                                           CLONE_NEWIPC, CLONE_NEWUSER,   CLONE_NEWPID,
                                           CLONE_NEWNET};

#if defined(__s390x__)
constexpr unsigned cloneFlags = 1;
#else
constexpr unsigned cloneFlags = 0;
#endif

bool refuse(Context* context, const char* name) {
    const int call = seccomp_syscall_resolve_name(name);
    return call == __NR_SCMP_ERROR ||
           seccomp_rule_add(context, SCMP_ACT_ERRNO(EACCES), call, 0) == 0;
}

/// The call that traces. The leak sanitizer is built upon it.
bool refuseTracing(Context* context) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return context != nullptr;
#else
    return refuse(context, "ptrace");
#endif
}

bool refuseTyping(Context* context) {
    constexpr scmp_datum_t all = 0xffffffff; // the kernel looks at 32 bits
    bool isAdded = true;
    for (const unsigned long call : typingCalls)
        isAdded = isAdded && seccomp_rule_add(context, SCMP_ACT_ERRNO(EACCES), SCMP_SYS(ioctl), 1,
                                              SCMP_A1(SCMP_CMP_MASKED_EQ, all, call)) == 0;
    return isAdded;
}

/// A new user's namespace has all privileges within. What the newer call asks for a filter cannot
/// see; where the system has none, the C library takes the older one.
bool refuseNamespaces(Context* context) {
    bool isAdded = true;
    for (const unsigned long flag : newNamespaces) {
        const scmp_arg_cmp hasFlag = {cloneFlags, SCMP_CMP_MASKED_EQ, flag, flag};
        isAdded = isAdded && seccomp_rule_add_array(context, SCMP_ACT_ERRNO(EACCES),
                                                    SCMP_SYS(clone), 1, &hasFlag) == 0;
    }
    return isAdded && seccomp_rule_add(context, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0) == 0;
}

/// Opening to read and emptying at once, of which older versions of Landlock see the first alone.
/// Nor can a filter see what the newest call to open asks for.
bool refuseEmptying(Context* context) {
    constexpr scmp_datum_t looked = O_ACCMODE | O_TRUNC;
    constexpr scmp_datum_t refused = O_RDONLY | O_TRUNC;
    return seccomp_rule_add(context, SCMP_ACT_ERRNO(EACCES), SCMP_SYS(open), 1,
                            SCMP_A1(SCMP_CMP_MASKED_EQ, looked, refused)) == 0 &&
           seccomp_rule_add(context, SCMP_ACT_ERRNO(EACCES), SCMP_SYS(openat), 1,
                            SCMP_A2(SCMP_CMP_MASKED_EQ, looked, refused)) == 0 &&
           seccomp_rule_add(context, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(openat2), 0) == 0;
}

/// Calls in the manner of another machine than that of the program are refused, too.
bool addRules(Context* context) {
    bool isAdded =
        context && seccomp_attr_set(context, SCMP_FLTATR_ACT_BADARCH, SCMP_ACT_ERRNO(EACCES)) == 0;
    for (const char* name : refusedCalls)
        isAdded = isAdded && refuse(context, name);
    return isAdded && refuseTracing(context) && refuseTyping(context) &&
           refuseNamespaces(context) && refuseEmptying(context);
}

/// What the library writes into a descriptor. It fits into a pipe many times over.
std::vector<sock_filter> writtenOut(Context* context) {
    int ends[2] = {};
    if (pipe(ends) != 0)
        return {};
    std::vector<sock_filter> program(BPF_MAXINSNS);
    const bool isWritten = seccomp_export_bpf(context, ends[1]) == 0;
    close(ends[1]);
    const ssize_t size =
        isWritten ? read(ends[0], program.data(), program.size() * sizeof(sock_filter)) : 0;
    close(ends[0]);
    program.resize(size > 0 ? std::size_t(size) / sizeof(sock_filter) : 0);
    return program;
}

} // namespace

CallFilter::CallFilter() {
    if (!isOffered())
        return;
    const std::unique_ptr<Context, ContextDeleter> context(seccomp_init(SCMP_ACT_ALLOW));
    if (addRules(context.get()))
        program = writtenOut(context.get());
    if (program.empty())
        reason = QStringLiteral("seccomp: its filter cannot be made");
}

bool CallFilter::isOffered() {
    const std::uint32_t action = SECCOMP_RET_ERRNO;
    return syscall(SYS_seccomp, SECCOMP_GET_ACTION_AVAIL, 0, &action) == 0;
}

int CallFilter::apply() const noexcept {
    if (program.empty())
        return 0;
    // The kernel only reads it.
    const sock_fprog filter = {static_cast<unsigned short>(program.size()),
                               const_cast<sock_filter*>(program.data())};
    return prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0 ? 0 : errno;
}
