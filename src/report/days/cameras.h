// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipfigure.h"
#include "motionreport.h"

#include <QString>

#include <vector>

/// Recordings of one camera of which it is known when they began: those of one folder.
struct Camera {
    QString name;                                     ///< of the folder, as it was named
    std::vector<const ReportedRecording*> recordings; ///< by their starts
};

/// What a page shows one below the other: a camera, or a recording that is on no clock.
struct PagePart {
    Camera camera;     ///< without recordings: it is none
    int recording = 0; ///< its first one's place in the report
    QByteArray id;     ///< in the page

    bool isCamera() const { return !camera.recordings.empty(); }
};

/// The cameras, and the recordings with clips that are on no clock, in the order of the report.
std::vector<PagePart> pageParts(const MotionReport& report);

/// Whether the recording is shown on the axis of a camera. Clocks that make no sense are none.
bool isOnClock(const ReportedRecording& recording);

/// When its last picture was.
QDateTime endOf(const ReportedRecording& recording);

/// The clips of a part as they are shown: those of a camera by the clock.
std::vector<ShownClip> clipsOf(const PagePart& part, const MotionReport& report);
