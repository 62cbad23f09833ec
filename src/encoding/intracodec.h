// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

/// Whether the recording's codec, by the media libraries' name for it, is one of those whose every
/// picture stands alone and that are therefore never cut by stream copy: MJPEG, MJPEG-B, Lagarith.
bool isIntraCodec(const QByteArray& codecName);
