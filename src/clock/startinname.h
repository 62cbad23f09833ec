// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "namepattern.h"
#include "recordingstart.h"

#include <QTimeZone>

/// When the recording at the absolute `path` began, by its name and its folders' alone. In `zone`,
/// in which names are read that tell none themselves. `pattern`: how recordings are named; null:
/// as cameras are known to name them (knownNames).
RecordingStart startInName(const QString& path, const QTimeZone& zone,
                           const NamePattern* pattern = nullptr);
