// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Preloaded into the scanner, tries what a recording that has taken it over might: at the first
// file that the scanner finishes, when it has long confined itself. Says on standard error what
// came of it.
//
// TRESPASSED_FILE names a file that is no business of the scanner, TRESPASSED_FOLDER a folder,
// TRESPASSED_RECORDING what it may read, but not write.

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string setting(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

void tell(const char* what, bool hasWorked) {
    std::fprintf(stderr, "trespasser: %s: %s\n", what, hasWorked ? "done" : std::strerror(errno));
}

/// By a process of its own, which a success stops.
void tellTracing() {
    const pid_t child = fork();
    if (child == 0)
        _exit(ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 ? 0 : errno);
    int status = 0;
    waitpid(child, &status, 0);
    errno = WEXITSTATUS(status);
    tell("trace", errno == 0);
}

void tellNamespace() {
    const pid_t child = fork();
    if (child == 0)
        _exit(unshare(CLONE_NEWUSER) == 0 ? 0 : errno);
    int status = 0;
    waitpid(child, &status, 0);
    errno = WEXITSTATUS(status);
    tell("namespace", errno == 0);
}

void trespass() {
    const std::string file = setting("TRESPASSED_FILE");
    const std::string folder = setting("TRESPASSED_FOLDER");
    tell("read", open(file.c_str(), O_RDONLY | O_CLOEXEC) >= 0);
    tell("overwrite", open(file.c_str(), O_WRONLY | O_CLOEXEC) >= 0);
    tell("shorten", truncate(file.c_str(), 0) == 0);
    tell("open up", chmod(file.c_str(), 0777) == 0);
    const std::string recording = setting("TRESPASSED_RECORDING");
    tell("empty", open(recording.c_str(), O_RDONLY | O_TRUNC | O_CLOEXEC) >= 0);
    tell("remove", unlink(file.c_str()) == 0);
    tell("make", open((folder + "/new").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600) >= 0);
    tell("list", open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC) >= 0);
    tell("network", socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0) >= 0);
    tell("local socket", socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0) >= 0);
    tell("mount", mount("none", (folder + "/missing").c_str(), "tmpfs", 0, nullptr) == 0);
    tell("privileges", setuid(geteuid()) == 0);
    tellTracing();
    tellNamespace();
    rlimit core = {1, 1};
    getrlimit(RLIMIT_CORE, &core);
    std::fprintf(stderr, "trespasser: core files: %ld\n", long(core.rlim_max));
}

} // namespace

extern "C" {

int fsync(int descriptor) {
    static const bool isDone = (trespass(), true);
    const auto next = reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "fsync"));
    return isDone ? next(descriptor) : -1;
}

/// The first call of a confinement is of this kind: what has begun before that would go free.
/// Sanitizers call it before any memory can be had.
int setrlimit(__rlimit_resource_t resource, const rlimit* limit) noexcept {
    struct stat threads = {};
    stat("/proc/self/task", &threads);
    dprintf(STDERR_FILENO, "trespasser: threads: %ld\n", long(threads.st_nlink) - 2);
    return int(syscall(SYS_prlimit64, 0, resource, limit, nullptr));
}
}
