// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "callfilter.h"
#include "filerules.h"

#include <QString>

/// Which protections the kernel offers.
struct Protections {
    bool files = false; ///< Landlock
    bool calls = false; ///< seccomp
};
Protections offeredProtections();

/// Takes from a process, for ever, what it has no need of: files other than those it was given, the
/// network, other processes, mounts, new privileges, core files. Programs that it starts inherit
/// this. What is open already stays open.
///
/// Made at leisure, applied by a few system calls: also between fork and exec of a program with
/// threads. What the kernel does not offer is left out without a word.
class Confinement {
public:
    explicit Confinement(const Grants& grants);

    /// Why a part that the kernel offers could not be made, for a person; empty if all was.
    const QString& failure() const { return reason; }

    /// Confines the calling thread and whatever it starts from now on; other threads stay as they
    /// are. Safe in a signal handler. Answers 0, or the error number of the first part that was
    /// refused; the others are in force all the same.
    int apply() const noexcept;

private:
    FileRules files;
    CallFilter calls;
    QString reason;
};
