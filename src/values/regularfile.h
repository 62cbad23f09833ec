// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFile>
#include <QString>

/// Opens the regular file at `path` to be read without a buffer, and nothing else that may have its
/// name: whoever writes to a pipe would take this for its reader. False if it cannot be opened;
/// `flaw` then says why, for a person, and is empty where there is none.
bool openRegularFile(const QString& path, QFile& file, QString& flaw);
