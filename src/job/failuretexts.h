// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Why a recording could not be read (JobFacts::error), in the language of the window. What the
/// system or the media libraries say beyond the common stays as they say it.
QString translatedFailure(const QString& failure);
