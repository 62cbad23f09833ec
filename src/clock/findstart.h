// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "filehead.h"
#include "namepattern.h"
#include "recordingstart.h"

#include <QTimeZone>

#include <functional>
#include <optional>

/// How the starts of recordings are found.
struct StartSearch {
    QTimeZone zone;                     ///< in which clocks are read that tell none
    std::optional<NamePattern> pattern; ///< how recordings are named; nothing: as cameras do
    QDateTime now = {};                 ///< by this machine's clock; invalid: nobody knows
};

/// When the recording at the absolute `path` began: by its name; else by its head, which is asked
/// for then alone; else by the time at which it was `modified` last, invalid if it is no file. All
/// doubts on the way are in the answer, also where it is unknown.
RecordingStart findStart(const QString& path, const QDateTime& modified, const StartSearch& search,
                         const std::function<FileHead()>& readHead);
