// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QFileDevice>

/// Writes all of `bytes` to `output`, which is open without a buffer. False if that failed;
/// `output.errorString()` then says why.
bool writeAll(QIODevice& output, const QByteArray& bytes);

/// Waits until what was written to the open file is on its disk. Answers why it is not, for a
/// person; empty after a success, and where there is no disk behind the file.
QString syncToDisk(const QFileDevice& file);
