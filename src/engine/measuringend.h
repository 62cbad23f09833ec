// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionoutcome.h"

#include <QString>

#include <new>

/// How a detection ended, with all that can be said of it.
struct MeasuringEnd {
    DetectionOutcome outcome = DetectionOutcome::Finished;

    /// Why the file could not be read, for a person; empty unless the outcome is a failure.
    QString error = {};

    /// After a failure: whether the same bytes would fail anywhere and at any time. False where the
    /// disk, the memory or what is installed may be to blame.
    bool isLasting = false;
};

/// What `run` answers, be it an end or perhaps one, unless there is no memory for it.
template<typename Run>
auto endOfRun(const Run& run) -> decltype(run()) {
    try {
        return run();
    } catch (const std::bad_alloc&) {
        return MeasuringEnd{DetectionOutcome::OutOfMemory, QStringLiteral("out of memory"), false};
    }
}
