// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// What tells motion from quiet.
enum class Detector {
    Mean, ///< the mean of what differs between two pictures
    Cells ///< the largest group of cells that have changed
};
