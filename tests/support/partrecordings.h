// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Writes recordings of 16 seconds of 25 pictures, in which a box crosses, into `folder`: one for
/// each way in which streams can, or cannot, be cut into parts. Answers the name of the one that
/// failed; empty if none did.
QString makePartRecordings(const QString& folder);
