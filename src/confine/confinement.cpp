// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "confinement.h"

#include <cerrno>
#include <sys/prctl.h>
#include <sys/resource.h>

namespace {

/// Without the errors of what was fine.
int firstOf(int error, int next) {
    return error != 0 ? error : next;
}

int refuseCoreFiles() noexcept {
    const rlimit none = {0, 0};
    return setrlimit(RLIMIT_CORE, &none) == 0 ? 0 : errno;
}

int refuseNewPrivileges() noexcept {
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 ? 0 : errno;
}

} // namespace

Protections offeredProtections() {
    return {FileRules::offeredVersion() > 0, CallFilter::isOffered()};
}

Confinement::Confinement(const Grants& grants)
    : files(grants)
    , reason(files.failure()) {
    if (reason.isEmpty())
        reason = calls.failure();
}

int Confinement::apply() const noexcept {
    int error = refuseCoreFiles();
    error = firstOf(error, refuseNewPrivileges());
    error = firstOf(error, files.apply());
    return firstOf(error, calls.apply());
}
