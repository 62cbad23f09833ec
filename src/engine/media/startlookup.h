// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "findstart.h"

#include <QString>

#include <functional>

/// When the recording at the absolute `path` began (findStart). Its head is read where its name
/// tells nothing, but nothing of a pipe, which would be missing later. `isInterrupted` is asked
/// while one waits.
RecordingStart lookUpStart(const QString& path, const StartSearch& search,
                           const std::function<bool()>& isInterrupted);
