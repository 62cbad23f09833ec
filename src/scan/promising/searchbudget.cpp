// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "searchbudget.h"

SearchBudget::SearchBudget(const std::optional<SearchLimit>& limit)
    : limit(limit) {
    sinceBegin.start();
}

void SearchBudget::setLength(double seconds) {
    const std::lock_guard<std::mutex> lock(mutex);
    length = seconds;
}

void SearchBudget::add(double seconds) {
    const std::lock_guard<std::mutex> lock(mutex);
    looked += seconds;
}

bool SearchBudget::isSpent() const {
    const std::lock_guard<std::mutex> lock(mutex);
    if (!limit)
        return false;
    const bool isShareSpent = length > 0.0 && limit->share < 1.0 && looked >= limit->share * length;
    return isShareSpent || double(sinceBegin.elapsed()) / 1000.0 >= limit->seconds;
}
