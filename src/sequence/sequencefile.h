// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "recordingstart.h"

#include <QByteArray>
#include <QSize>
#include <QString>

/// A recording as far as it tells which others it goes on in. Times in seconds, as its stream
/// counts them.
struct SequenceFile {
    QString path; ///< absolute
    QByteArray codec;
    QSize size; ///< pixels
    RecordingStart start;
    bool hasOwnTimes = true; ///< false: its pictures are numbered, and its times tell nothing
    bool isQuick = false;    ///< of its key frames alone

    double begin = 0.0;    ///< of the file, which is no more than a second before its first picture
    double first = 0.0;    ///< of its first picture
    double last = 0.0;     ///< of its last picture
    double interval = 0.0; ///< from one picture to the next, on average

    /// From the file's beginning to behind its last picture.
    double length() const { return last + interval - begin; }
};
