// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetindex.h"
#include "partpromise.h"
#include "placedpart.h"
#include "promisecurve.h"
#include "runup.h"

#include <QString>

#include <functional>
#include <optional>

/// All that is known of a recording once its packets were read and nothing but its first picture
/// was decoded.
struct ScoutedRecording {
    double seconds = 0.0; ///< from the first packet to the last; 0 if unknown

    // Of those that can be measured in parts that are reached by a seek, else empty.
    PacketIndexPointer packets;
    qint64 delay = 0;       ///< the packet that completed the first picture
    double firstTime = 0.0; ///< seconds, of that picture
    QVector<PlacedPart> parts;
    QVector<double> partSeconds; ///< how long each of them is

    /// Of each part; empty: the sizes of the packets promise nothing.
    QVector<PartPromise> promises;
};

/// What parts are wanted.
struct PartWish {
    double shortest = 10.0; ///< seconds; each part costs a picture more or two
    int fewest = 10;        ///< with fewer there is nothing to choose from: no promises
    PartLead lead;          ///< what is wanted before each of them
};

/// Reads the packets of the file at `fileName` once. Whatever it holds, there is an answer.
/// `isInterrupted` is as for `MediaFile`.
ScoutedRecording scout(const QString& fileName, const PartWish& wish,
                       const std::function<bool()>& isInterrupted);
