// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "keptvalues.h"

/// `values` as the whole text of a values file.
QByteArray valuesText(const KeptValues& values);

/// Writes them to `path`, over an older file there, as a whole or not at all; its folder is made
/// where it is missing. Answers why they could not be written, for a person; empty after a success.
QString writeValues(const KeptValues& values, const QString& path);
