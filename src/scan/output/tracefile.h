// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFile>
#include <QString>

/// Opens `file` by its name, to be written as the search goes on: an older one is emptied, pipes
/// and devices are written to. A link is followed unless it is another user's (isForeignLink).
/// Answers why it cannot be opened, for a person; empty after a success.
QString openTraceFile(QFile& file);
