// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "scanoptions.h"

#include <QElapsedTimer>

#include <mutex>

/// How much may still be looked at. Any thread may call anything.
class SearchBudget {
public:
    /// No limit: it is never spent. The time counts from here.
    explicit SearchBudget(const std::optional<SearchLimit>& limit);

    /// How long all recordings are, in seconds. Until then, and where it is 0 since nobody knows,
    /// no share is spent.
    void setLength(double seconds);

    /// So many seconds of recordings are looked at.
    void add(double seconds);

    bool isSpent() const;

private:
    mutable std::mutex mutex;
    std::optional<SearchLimit> limit;
    QElapsedTimer sinceBegin;
    double length = 0.0;
    double looked = 0.0;
};
