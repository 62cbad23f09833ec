// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

/// How far a detection is: told on the thread that runs it.
class DetectionProgress {
public:
    virtual ~DetectionProgress() = default;

    /// Asked at least once per frame, on any thread; the detection ends when it answers true.
    virtual bool isCancelled() = 0;

    /// After every read: the demuxer's position in bytes, -1 if unknown. `isAtEnd`: no further
    /// picture comes, be it the end of the file or an error of what the file lies on.
    virtual void positionChanged(qint64 bytePosition, bool isAtEnd) = 0;
};
