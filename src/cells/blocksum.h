// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>

/// Tells bytes that something has befallen from those that were written.
std::uint64_t sumOf(const std::uint8_t* bytes, std::size_t size);
