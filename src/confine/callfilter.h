// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <linux/filter.h>
#include <vector>

/// A filter of seccomp that refuses system calls which neither the programs nor their encoder have
/// a use for: network, other processes, mounts, namespaces, privileges, rights of files by their
/// names, and the kernel's own affairs. A refused call fails with EACCES, nothing is killed.
class CallFilter {
public:
    CallFilter();

    static bool isOffered();

    /// As those of `Confinement`.
    const QString& failure() const { return reason; }
    int apply() const noexcept;

private:
    std::vector<sock_filter> program; ///< empty: there is none, nothing is applied
    QString reason;
};
