// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingstamp.h"

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QVector>

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
    double length = 0.0;    ///< seconds as the header says, 0 if unknown
    double frameRate = 0.0; ///< pictures per second at which they are numbered; 0: own times
    double origin = 0.0; ///< seconds, of the recording's first picture, as the stream counts them
    bool isRegionEmpty = false; ///< the region selects none of its pixels
};

/// How the measuring ended, as far as that is the recording's own doing.
enum class KeptEnd { Finished, CannotOpen, TooFewPictures, NoUsableTimes };

struct KeptValues {
    RecordingStamp recording;
    KeptStream stream;
    MeasureSettings settings;
    KeptEnd end = KeptEnd::Finished;
    QString reason; ///< why it could not be read, for a person; empty with Finished

    bool hasPictures = false; ///< false: the rest is empty
    qint64 firstNumber = 0;   ///< of the first picture measured, as the recording counts them
    double firstTime = 0.0;   ///< seconds, of that picture, as the stream counts them
    QVector<double> times;    ///< seconds as the stream counts them, of each picture after it
    QVector<float> values;    ///< their motion values, as many, 0 or more
};

/// More than any recording has; a file that says more is none.
constexpr int mostKeptPictures = 100 * 1000 * 1000;
