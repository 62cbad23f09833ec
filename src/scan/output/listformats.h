// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipformat.h"

/// The formats for other programs, which name stretches of the recordings themselves: M3u, Mpv and
/// Cuts, which are written clip by clip, Edl and Mlt, which are written as a whole when all is
/// known. Clips that end before they start are left out.
std::unique_ptr<ClipFormat> makeListFormat(ReportFormat format, ClipCalls calls);
