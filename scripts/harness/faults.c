/* Preloaded into a program, makes calls fail that cannot be made to fail from outside.
 *
 * FAULT_FULL=FOLDER       writing to files below it fails as on a full disk, once FAULT_ROOM bytes
 *                         (0) are written
 * FAULT_UNREADABLE=FILE   reading it fails from byte FAULT_AT on as on a broken disk
 * FAULT_THREADS=COUNT     no more threads than these can be started
 * FAULT_CHILDREN=FILE     what the programs that this one starts get preloaded; nothing if empty
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <limits.h>
#include <pthread.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/uio.h>
#include <unistd.h>

static atomic_long written;
static atomic_long threads;

__attribute__((constructor)) static void prepare(void) {
    const char* children = getenv("FAULT_CHILDREN");
    if (children && *children)
        setenv("LD_PRELOAD", children, 1);
    else
        unsetenv("LD_PRELOAD");
}

static long number(const char* name) {
    const char* text = getenv(name);
    return text ? atol(text) : 0;
}

/* Whether the open file lies in, or is, what the variable names. */
static int is_meant(int file, const char* name) {
    char link[64], path[PATH_MAX];
    const char* wanted = getenv(name);
    if (!wanted)
        return 0;
    snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, sizeof path - 1);
    if (length < 0)
        return 0;
    path[length] = '\0';
    return strncmp(path, wanted, strlen(wanted)) == 0;
}

/* How many of these bytes still fit; -1 with the error set if none does. */
static ssize_t room(int file, size_t size) {
    if (size == 0 || !is_meant(file, "FAULT_FULL"))
        return (ssize_t)size;
    const long left = number("FAULT_ROOM") - atomic_fetch_add(&written, (long)size);
    if (left <= 0) {
        errno = ENOSPC;
        return -1;
    }
    return left < (long)size ? left : (ssize_t)size;
}

ssize_t write(int file, const void* bytes, size_t size) {
    ssize_t (*next)(int, const void*, size_t) = dlsym(RTLD_NEXT, "write");
    const ssize_t fitting = room(file, size);
    return fitting < 0 ? -1 : next(file, bytes, (size_t)fitting);
}

ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t at) {
    ssize_t (*next)(int, const void*, size_t, off64_t) = dlsym(RTLD_NEXT, "pwrite64");
    const ssize_t fitting = room(file, size);
    return fitting < 0 ? -1 : next(file, bytes, (size_t)fitting, at);
}

ssize_t writev(int file, const struct iovec* parts, int count) {
    ssize_t (*next)(int, const struct iovec*, int) = dlsym(RTLD_NEXT, "writev");
    return count > 0 && room(file, parts[0].iov_len) < 0 ? -1 : next(file, parts, count);
}

ssize_t read(int file, void* bytes, size_t size) {
    ssize_t (*next)(int, void*, size_t) = dlsym(RTLD_NEXT, "read");
    if (is_meant(file, "FAULT_UNREADABLE")) {
        const long left = number("FAULT_AT") - lseek(file, 0, SEEK_CUR);
        if (left <= 0) {
            errno = EIO;
            return -1;
        }
        if ((long)size > left)
            size = (size_t)left;
    }
    return next(file, bytes, size);
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                   void* argument) {
    int (*next)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*) =
        dlsym(RTLD_NEXT, "pthread_create");
    if (getenv("FAULT_THREADS") && atomic_fetch_add(&threads, 1) >= number("FAULT_THREADS"))
        return EAGAIN;
    return next(thread, attributes, run, argument);
}
