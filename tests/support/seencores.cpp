// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Preloaded into a program, has it see as many processor cores as SEEN_CORES says, and nothing of
// how they share memory, as where /sys is not mounted. More of them than there are run no faster.

#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <pthread.h>
#include <sched.h>
#include <sys/sysinfo.h>
#include <unistd.h>

namespace {

int cores() {
    const char* text = std::getenv("SEEN_CORES");
    return text ? std::atoi(text) : 1;
}

int fill(std::size_t size, cpu_set_t* set) {
    CPU_ZERO_S(size, set);
    for (int i = 0; i < cores(); ++i)
        CPU_SET_S(std::size_t(i), size, set);
    return 0;
}

} // namespace

extern "C" {

int sched_getaffinity(pid_t /*process*/, std::size_t size, cpu_set_t* set) noexcept {
    return fill(size, set);
}

int pthread_getaffinity_np(pthread_t /*thread*/, std::size_t size, cpu_set_t* set) noexcept {
    return fill(size, set);
}

int pthread_setaffinity_np(pthread_t /*thread*/, std::size_t /*size*/,
                           const cpu_set_t* /*set*/) noexcept {
    return 0; // some of the cores may not be there
}

int get_nprocs() noexcept {
    return cores();
}

long sysconf(int name) noexcept {
    if (name == _SC_NPROCESSORS_ONLN || name == _SC_NPROCESSORS_CONF)
        return cores();
    static const auto next = reinterpret_cast<long (*)(int)>(dlsym(RTLD_NEXT, "sysconf"));
    return next(name);
}

/// Of libnuma, which the HEVC encoder asks first.
int numa_available() {
    return -1;
}

} // extern "C"
