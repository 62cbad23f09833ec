// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

struct AVFormatContext;

/// Whether the headers of a stream of H.264 or HEVC have more than `mostHeaderUnits` units. The
/// decoder takes 4 KB for each, whatever it holds.
bool hasTooManyUnits(const AVFormatContext& format);
