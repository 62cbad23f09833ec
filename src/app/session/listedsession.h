// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "savedsession.h"

class ClipListWidget;
class DetectionQueue;

/// All jobs and clips as they are at the moment.
SavedSession listedSession(const DetectionQueue& queue, const ClipListWidget& list);
