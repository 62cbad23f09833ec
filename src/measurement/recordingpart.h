// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// One of several parts of a recording.
struct RecordingPart {
    int index = 1; ///< 1..count
    int count = 1;
};
