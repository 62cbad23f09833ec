// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// A clip that is listed, as the strip shades it. Seconds from the recording's first picture.
struct ListedSpan {
    int index = 0;
    double start = 0.0;
    double end = 0.0;
};
