// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellmaps.h"
#include "damage.h"
#include "motionseries.h"
#include "streamdescription.h"

#include <QByteArray>

/// What is known of a recording's stream besides its motion values.
struct StreamFacts {
    QByteArray codecName; ///< the media libraries' name
    bool isIntraOnly = false;
    StreamDescription description;
    double duration = 0.0;      ///< seconds as the header says, 0 if unknown
    double frameRate = 0.0;     ///< pictures per second at which they are numbered; 0: own times
    double origin = 0.0;        ///< seconds, of the recording's first picture
    bool isRegionEmpty = false; ///< the region of interest selects none of its pixels
};

/// What one part of a recording is that is measured by itself. Packets are counted from the
/// stream's first, which is 0.
struct PartFacts {
    enum class Kind {
        Cut,   ///< these packets, and the pictures that they show
        Whole, ///< the first part of a recording that cannot be cut: all of it
        Empty  ///< any other part of that
    };

    Kind kind = Kind::Cut;
    qint64 begin = 0;      ///< its first packet, and the number of its own first picture
    qint64 end = 0;        ///< the packet behind its last one
    qint64 delay = 0;      ///< the packet that completed the recording's first picture
    int held = 0;          ///< so many of its own first values are the last one before it
    bool isRegular = true; ///< together with the other parts it is what one pass gives
};

/// All that is decided on: the stream and the values of its pictures.
struct Measurement {
    StreamFacts stream;
    qint64 firstNumber = 0; ///< of the first picture, which is compared with nothing
    double firstTime = 0.0; ///< seconds, of that picture, as the stream counts them
    MotionSeries series;
    CellMaps maps;            ///< empty, or one for each entry of the series
    bool hasPictures = false; ///< false: the recording could not be begun with
    Damage damage;
};
