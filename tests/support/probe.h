// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QVector>

/// What the encoder's companion says about a file: a second opinion on what the engine reads.
namespace media {

/// The first video stream of a file.
struct ProbedVideo {
    QString codec;         ///< "h264"; empty if the file has no video stream
    int index = -1;        ///< of the stream in the file
    int width = 0;         ///< pixels
    int height = 0;        ///< pixels
    int reorderDepth = 0;  ///< pictures that the decoder holds back
    int rotation = 0;      ///< degrees of the display matrix, 0 if it has none
    double timeBase = 0.0; ///< seconds

    /// The decoding times of its packets in the order of the file, in time bases. A packet that has
    /// none has the smallest 64-bit number.
    QVector<qint64> packetTimes;
};

ProbedVideo probe(const QString& fileName);

} // namespace media
