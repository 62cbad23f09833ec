// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Preloaded into a program, makes system calls on some files fail, or the start of threads.
//
// FAILING_CALL names the call, FAILING_ERROR the number of the error that it gives, FAILING_FILE a
// part of the paths of the files concerned. With FAILING_AFTER, writes take that many bytes in all
// before the first one fails, as a disk does that fills up; reads fail from that place in the file
// on, as a disk does with bad blocks; that many threads start before the first one does not, and
// none while the file is there, if one is named.

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char* setting(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool isConcerned(const char* call, const char* path) {
    return std::strcmp(setting("FAILING_CALL"), call) == 0 &&
           std::strstr(path, setting("FAILING_FILE"));
}

/// Empty where it has none.
std::string pathOf(int descriptor) {
    char path[4096] = {};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    return readlink(link.c_str(), path, sizeof path - 1) > 0 ? path : "";
}

bool isConcerned(const char* call, int descriptor) {
    const std::string path = pathOf(descriptor);
    return !path.empty() && isConcerned(call, path.c_str());
}

int fail() {
    errno = std::atoi(setting("FAILING_ERROR"));
    return -1;
}

template<typename Call>
Call next(const char* name, Call) {
    return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

ssize_t write(int descriptor, const void* bytes, size_t size) {
    static std::atomic<long> room{std::atol(setting("FAILING_AFTER"))};
    if (size == 0 || !isConcerned("write", descriptor))
        return next("write", write)(descriptor, bytes, size);
    const long part = std::min(long(size), room.load());
    if (part == 0)
        return fail();
    room -= part;
    return next("write", write)(descriptor, bytes, size_t(part));
}

ssize_t read(int descriptor, void* bytes, size_t size) {
    if (!isConcerned("read", descriptor))
        return next("read", read)(descriptor, bytes, size);
    const long left = std::atol(setting("FAILING_AFTER")) - lseek(descriptor, 0, SEEK_CUR);
    if (left <= 0)
        return fail();
    return next("read", read)(descriptor, bytes, std::min(size, size_t(left)));
}

ssize_t pwrite(int descriptor, const void* bytes, size_t size, off_t place) {
    return isConcerned("pwrite", descriptor)
               ? fail()
               : next("pwrite", pwrite)(descriptor, bytes, size, place);
}

ssize_t pread(int descriptor, void* bytes, size_t size, off_t place) {
    return isConcerned("pread", descriptor) ? fail()
                                            : next("pread", pread)(descriptor, bytes, size, place);
}

/// Fails where a file without a name is asked for, with the call "unnamed".
int open(const char* path, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE) {
        va_list more;
        va_start(more, flags);
        mode = va_arg(more, mode_t);
        va_end(more);
    }
    if ((flags & O_TMPFILE) == O_TMPFILE && isConcerned("unnamed", path))
        return fail();
    return next("open", open)(path, flags, mode);
}

int mkostemp(char* name, int flags) {
    return isConcerned("unnamed", name) ? fail() : next("mkostemp", mkostemp)(name, flags);
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*routine)(void*),
                   void* argument) noexcept {
    static std::atomic<long> left{std::atol(setting("FAILING_AFTER"))};
    const bool isConcerned = std::strcmp(setting("FAILING_CALL"), "pthread_create") == 0;
    const char* file = setting("FAILING_FILE");
    if (isConcerned && (*file == '\0' || access(file, F_OK) == 0) && left-- <= 0)
        return std::atoi(setting("FAILING_ERROR"));
    return next("pthread_create", pthread_create)(thread, attributes, routine, argument);
}

int fsync(int descriptor) {
    return isConcerned("fsync", descriptor) ? fail() : next("fsync", fsync)(descriptor);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
    const std::string path = pathOf(toFolder) + '/' + to;
    return isConcerned("rename", path.c_str())
               ? fail()
               : next("renameat", renameat)(fromFolder, from, toFolder, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    return isConcerned("rename", to)
               ? fail()
               : next("renameat2", renameat2)(fromFolder, from, toFolder, to, flags);
}

/// Fails where a lock is asked for, with the call "lock".
int fcntl(int descriptor, int command, ...) {
    va_list more;
    va_start(more, command);
    void* argument = va_arg(more, void*);
    va_end(more);
    if (command == F_SETLK && isConcerned("lock", descriptor))
        return fail();
    return next("fcntl", fcntl)(descriptor, command, argument);
}

int mkdir(const char* path, mode_t mode) {
    return isConcerned("mkdir", path) ? fail() : next("mkdir", mkdir)(path, mode);
}
}
