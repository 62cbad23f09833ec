// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Preloaded into a program, makes one allocation on other threads than the main one fail:
// FAILING_LIBRARY is a part of the name of the library that asks for it, FAILING_AFTER how many it
// gets before. The sanitizers have allocations of their own and must not meet this.

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool isFailing(const void* caller) {
    static const char* const wanted = std::getenv("FAILING_LIBRARY");
    static const char* const after = std::getenv("FAILING_AFTER");
    static std::atomic<long> left{after ? std::atol(after) : 0};
    Dl_info library;
    if (!wanted || syscall(SYS_gettid) == getpid() || dladdr(caller, &library) == 0 ||
        !std::strstr(library.dli_fname, wanted))
        return false;
    return left-- == 0;
}

} // namespace

extern "C" {

// The names under which the C library has them beside the usual ones.
void* __libc_malloc(size_t size);
void* __libc_realloc(void* memory, size_t size);

void* malloc(size_t size) {
    return isFailing(__builtin_return_address(0)) ? nullptr : __libc_malloc(size);
}

void* realloc(void* memory, size_t size) {
    return isFailing(__builtin_return_address(0)) ? nullptr : __libc_realloc(memory, size);
}
}
