// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipformat.h"

/// The formats for other programs, which name stretches of the recordings themselves. Clips that
/// end before they start are left out.

/// Those that are written clip by clip: M3u, Mpv, Cuts.
std::unique_ptr<ClipFormat> makePlaylistFormat(ReportFormat format);

/// Those that are written as a whole when all is known: Edl, Mlt.
std::unique_ptr<ClipFormat> makeEditFormat(ReportFormat format);
