// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// Writes `bytes` to `path`, over an older file there: beside it, to the disk, and then in its
/// place. Whoever reads `path` meanwhile, or after a power cut, finds the old file or the new one;
/// of several that write it at once the last one counts. The folder is made where it is missing.
///
/// Answers why it could not be written, for a person; empty after a success.
QString writeWholeFile(const QString& path, const QByteArray& bytes);
