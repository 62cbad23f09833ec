// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

/// One of the parts of a recording whose places are known before it is read. Packets and pictures
/// are counted as for `PartReading`, in which packet P of a regular stream shows picture P - delay.
struct PlacedPart {
    qint64 runUp = 0;     ///< the packet with which decoding begins: an access point, or the first
    qint64 firstSure = 0; ///< the first picture from there on that is what one pass gives
    bool isClosed = true; ///< all pictures from there on come out
    qint64 begin = 0;     ///< its first picture
    qint64 end = 0;       ///< the picture behind its last
    bool isToTheEnd = false; ///< it ends with the file
};
