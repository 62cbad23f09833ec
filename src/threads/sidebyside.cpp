// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sidebyside.h"

#include <thread>
#include <vector>

void runSideBySide(int count, const std::function<void()>& work) {
    std::vector<std::thread> threads;
    try {
        while (int(threads.size()) < count - 1)
            threads.emplace_back(work);
    } catch (const std::exception&) {
        // No thread or no memory for one. The others and this one do all of it.
    }
    work();
    for (std::thread& thread : threads)
        thread.join();
}
