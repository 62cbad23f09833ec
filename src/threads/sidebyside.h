// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

/// Does `work`, which must throw nothing, on up to `count` threads, the caller's among them: on as
/// many as can be had. Comes back when all have done it.
void runSideBySide(int count, const std::function<void()>& work);
