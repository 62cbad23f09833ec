// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingstamp.h"

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QVector>

#include <optional>

/// The motion values of one recording and everything that they depend on: what a values file holds.

/// One line of a file's head, "# key: value".
struct HeadLine {
    QByteArray key;   ///< lower-case letters and dashes
    QByteArray value; ///< without line ends

    bool operator==(const HeadLine& other) const {
        return key == other.key && value == other.value;
    }
};

/// What the values were measured with, in a fixed order. Values fit where these are the same.
using MeasureSettings = QVector<HeadLine>;

/// A fraction, numerator and denominator.
struct KeptRatio {
    int above = 0;
    int below = 1;
};

/// What is known of the recording's stream. All empty where it could not be opened.
struct KeptStream {
    QByteArray codec;      ///< the media libraries' name
    QSize size{0, 0};      ///< pixels, as the header says
    KeptRatio pixelAspect; ///< width of a pixel by its height; 0/1 if unknown
    KeptRatio pace;        ///< pictures per second on average, as the header says; 0/1 if unknown
    double start = 0.0;    ///< seconds at which the file begins, as its streams count them
    bool isIntraOnly = false;
    double frameRate = 0.0; ///< pictures per second at which they are numbered; 0: own times
    double origin = 0.0; ///< seconds, of the recording's first picture, as the stream counts them
    bool isRegionEmpty = false; ///< the region selects none of its pixels
};

/// How the measuring ended, as far as that is the recording's own doing.
enum class KeptEnd { Finished, CannotOpen, TooFewPictures, NoUsableTimes };

/// One part of a recording that is measured in several. Packets are counted from the stream's
/// first, which is 0.
struct KeptPart {
    enum class Kind {
        Cut,   ///< those packets, and the pictures that they show
        Whole, ///< the first part of a recording that cannot be cut: all of it
        Empty  ///< any other part of that
    };

    int index = 1; ///< from 1 on
    int count = 1;
    Kind kind = Kind::Cut;
    // Of a cut one.
    qint64 begin = 0;      ///< its first packet; its own pictures are counted from there, too
    qint64 end = 0;        ///< the packet behind its last one
    qint64 delay = 0;      ///< the packet that completed the recording's first picture
    int held = 0;          ///< so many of its own first values are the last one before it
    bool isRegular = true; ///< each packet completed one picture, of the stream's size, undamaged
};

/// What is missing of a recording that was read to its end.
struct KeptDamage {
    qint64 packets = 0;    ///< that could not be decoded
    double promised = 0.0; ///< seconds by its headers, where noticeably fewer were read; else 0
    double read = 0.0;     ///< of them; else 0
};

struct KeptValues {
    RecordingStamp recording;
    KeptStream stream;
    MeasureSettings settings;
    std::optional<KeptPart> part; ///< nothing: the whole recording
    KeptEnd end = KeptEnd::Finished;
    QString reason; ///< why it could not be read, for a person; empty with Finished

    bool hasPictures = false; ///< false: the rest is empty
    /// Of the first picture measured, as the recording counts them; of a part from its second on,
    /// that is the last picture of the part before.
    qint64 firstNumber = 0;
    double firstTime = 0.0; ///< seconds, of that picture, as the stream counts them
    QVector<double> times;  ///< seconds as the stream counts them, of each picture after it
    QVector<float> values;  ///< their motion values, as many, 0 or more
    std::optional<KeptDamage> damage; ///< nothing: undamaged
};

/// More than any recording has; a file that says more is none.
constexpr int mostKeptPictures = 100 * 1000 * 1000;
