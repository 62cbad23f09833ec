// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

using Action = std::function<void()>;
using Condition = std::function<bool()>;

inline bool always() {
    return true;
}

/// How long the thread was away from its events, milliseconds.
struct Wait {
    double busy = 0.0;  ///< of its own processor time, so that other programs do not count
    double clock = 0.0; ///< with what it has waited for

    void include(const Wait& other);
};

Wait waitFor(const Action& action);

/// The longest pass through the event loop until `isDone` holds and nothing has happened for a
/// while.
Wait longestPass(const Condition& isDone = always);

void print(const char* what, const Wait& wait);

/// Does it and prints the longest wait, with all that it leaves to the event loop.
void measure(const char* what, const Action& action, const Condition& isDone = always);
