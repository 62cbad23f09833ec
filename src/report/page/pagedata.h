// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cameras.h"

#include <QByteArray>

/// What the page's script works with, as JSON inside a script element: thresholds and how much of
/// each strip's time lies above them, up to `top`, and what marks of clips are kept by.
QByteArray pageData(const MotionReport& report, const std::vector<PagePart>& parts, double top);
