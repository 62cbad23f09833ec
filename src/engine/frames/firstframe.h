// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDeadlineTimer>
#include <QImage>
#include <QString>

/// The first picture of a video file, for drawing a region of interest on it.
///
/// It has the geometry of the decoded pictures, whatever the file's header says: rotation metadata
/// is not applied. False, with `image` untouched, if no picture can be read, and for all that is
/// not a regular file: a pipe or device has nothing to give twice.
///
/// Reads on until a picture comes or `deadline` (by default 10 s from now) has passed, since a file
/// without pictures can be as large as any. Takes `ffmpegMutex` for moments.
bool grabFirstFrame(const QString& fileName, QImage* image,
                    QDeadlineTimer deadline = QDeadlineTimer(10000));
