// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// The recording whose values are in the file `name`, or `name` itself where they do not say it;
/// nothing where that is no file of values.
std::optional<QString> recordingOfValues(const QString& name);
