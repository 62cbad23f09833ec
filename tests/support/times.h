// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSet>
#include <QString>

#include <functional>

/// Recordings whose times are not as they should be, made of good ones.
namespace media {

/// Takes their times away from some packets of the video stream of an MPEG-TS file, counted from 0.
/// False if there are no such packets.
bool removeTimes(const QString& fileName, const QSet<int>& packets);

/// Gives every packet of an FLV file the time (milliseconds) that `newTime` makes of its own.
bool changeTimes(const QString& fileName, const std::function<quint32(quint32)>& newTime);

} // namespace media
