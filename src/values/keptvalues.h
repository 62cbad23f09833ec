// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionoutcome.h"
#include "measurement.h"
#include "recordingpart.h"
#include "recordingstamp.h"

#include <QByteArray>
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

struct KeptValues {
    RecordingStamp recording;
    MeasureSettings settings;
    std::optional<RecordingPart> part; ///< nothing: the whole recording
    PartFacts partFacts;               ///< of that part
    Measurement measurement;           ///< without the stream's duration, once it was read back
    /// How the measuring ended, as far as that is the recording's own doing: one of those that have
    /// a word in `endWords`.
    DetectionOutcome outcome = DetectionOutcome::Finished;
    QString reason; ///< why it could not be read, for a person; empty with Finished
};

/// More than any recording has; a file that says more is none.
constexpr int mostKeptPictures = 100 * 1000 * 1000;
