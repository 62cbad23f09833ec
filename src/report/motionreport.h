// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cellbits.h"
#include "motionhistogram.h"
#include "motionmap.h"
#include "motionscore.h"
#include "motionstrip.h"
#include "recordingstart.h"

#include <QRectF>
#include <QSize>
#include <QString>
#include <QVector>

#include <vector>

/// What the report shows of a score.
inline float shownMotion(MotionScore motion) {
    return motion.value;
}

/// What of a clip lies in one of several recordings. Times in seconds from its first picture.
struct ReportedPart {
    int recording = 0; ///< its place in the report
    double start = 0.0;
    double end = 0.0;
    double offset = 0.0; ///< seconds from the clip's own recording's first picture to this one's
};

/// A clip as the report shows it. Times in seconds from the recording's first picture.
struct ReportedClip {
    int index = 0; ///< 0 for the first clip of its recording
    double start = 0.0;
    double end = 0.0;
    double snapshotTime = 0.0;
    MotionScore strength;        ///< of its strongest motion
    QString pictureFile;         ///< in the report's folder, with `/` between; empty: none
    QSize pictureSize;           ///< pixels
    QString exportFile;          ///< absolute; empty: not exported
    QVector<ReportedPart> parts; ///< of one that goes on, its own recording first; empty: none
    QRectF box;                  ///< of its motion, in shares of the picture; empty: not known
};

/// How the search of a recording went.
enum class SearchState {
    NotBegun, ///< the scan ended before
    CutShort, ///< the scan ended in the middle of it
    Failed,   ///< it cannot be read, or not to its end
    Done
};

/// What of a recording was left out, since it moves through most of it.
struct ReportedRestless {
    CellBits cells; ///< of no grid: nothing was asked for
    QSize pictures; ///< pixels
    QString text;   ///< for a person
};

/// A recording as the report shows it. Its memory does not grow with its length.
struct ReportedRecording {
    QString name;        ///< as it was named
    QString path;        ///< absolute
    qint64 bytes = 0;    ///< its size; 0: it is no file
    qint64 modified = 0; ///< when it was, in milliseconds since 1970
    RecordingStart start;
    double offset = 0.0; ///< seconds from the file's beginning to its first picture
    double seconds = 0.0;
    bool isQuick = false; ///< found out by its key frames alone
    SearchState state = SearchState::NotBegun;
    QString reason; ///< of a failure, or what is missing of it, for a person
    QString remark; ///< on the motion of one without clips, or with nothing else; for a person
    ReportedRestless restless;
    MotionStrip strip;
    MotionHistogram histogram;
    MotionMap map; ///< without places: no maps of cells were kept
    QVector<ReportedClip> clips;

    /// What the clock shows at `time`; invalid where its start is not known.
    QDateTime clockAt(double time) const;

    /// What a person reads of `time`: of the clock, if its start is known.
    QString timeText(double time) const;

    void add(double time, MotionScore motion); ///< of a picture (MotionStrip::add)
    void leaveOut(double time); ///< from its newest picture on that was not looked at
};

/// Everything that a report shows.
struct MotionReport {
    QString folder; ///< absolute; files in it are named from there
    Detector detector = Detector::Mean;
    double threshold = 0.5;
    std::vector<ReportedRecording> recordings;

    /// What stands behind motion values: of the mean nothing, of cells that they are percent.
    QByteArray unit() const;

    bool isQuick() const;    ///< key frames alone were looked at in some recording
    bool isComplete() const; ///< every recording was searched as far as it could be read
};
