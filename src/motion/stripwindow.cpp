// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stripwindow.h"

#include <algorithm>

void StripWindow::setLength(double seconds) {
    const bool isAll = shown >= length;
    length = seconds > 0.0 ? seconds : shortest;
    shown = isAll ? length : std::min(shown, length);
    scrollTo(from);
}

void StripWindow::zoom(double factor, double time) {
    const double before = shown;
    shown = std::clamp(shown * factor, std::min(shortest, length), length);
    scrollTo(time - (time - from) * shown / before);
}

void StripWindow::scrollTo(double seconds) {
    from = std::clamp(seconds, 0.0, length - shown);
}
