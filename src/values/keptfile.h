// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "writing.h"

#include <QString>

/// Writes what is kept of a recording to `path`, over an older file there, as a whole or not at
/// all; its folder is made where it is missing. Answers why it could not be written, for a person;
/// empty after a success.
QString writeKeptFile(const QString& path, const PieceWriter& writePieces);
