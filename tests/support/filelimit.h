// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <csignal>
#include <sys/resource.h>

/// While it lives, files cannot become longer than that.
class FileLimit {
public:
    explicit FileLimit(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const struct rlimit limit { bytes, before.rlim_max };
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLimit() { setrlimit(RLIMIT_FSIZE, &before); }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;

private:
    struct rlimit before {};
};
