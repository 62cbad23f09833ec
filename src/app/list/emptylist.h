// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class DetectionQueue;

/// Why no clip is to be seen, for a person; empty before anything was added. `isAnyHidden`: there
/// are clips that are not shown.
QString emptyListText(const DetectionQueue& queue, bool isAnyHidden);
