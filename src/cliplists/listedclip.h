// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSize>
#include <QString>

#include <algorithm>

/// A recording as other programs see it.
struct ListedRecording {
    QString path;                 ///< absolute; its bytes are those of QFile::encodeName
    QString name;                 ///< for a person, in one line
    double offset = 0.0;          ///< seconds from the file's beginning to its first picture
    double fileStart = 0.0;       ///< what its streams' clock says at the file's beginning, seconds
    double vlcStart = 0.0;        ///< what VLC's clock says there
    QSize size;                   ///< pixels
    int frameRateNumerator = 25;  ///< pictures per second; on average where they vary
    int frameRateDenominator = 1; ///< 1 or more
    int pixelAspectNumerator = 1; ///< width of a pixel by its height
    int pixelAspectDenominator = 1;

    double frameRate() const { return double(frameRateNumerator) / frameRateDenominator; }
};

/// A clip in a list for other programs. Its end lies behind its start.
struct ListedClip {
    ListedRecording recording;
    int index = 0;      ///< 0 for the first clip of its recording
    double start = 0.0; ///< seconds from the first picture; can be negative
    double end = 0.0;

    /// In which recording it begins, for a person, where this is what of it lies in another one;
    /// else empty.
    QString begunIn{};

    /// "garden.mp4 #0", and where that goes on "garden.mp4 #0 in garden-2.mp4"
    QString label() const {
        const QString number = QStringLiteral(" #") + QString::number(index);
        return begunIn.isEmpty() ? recording.name + number
                                 : begunIn + number + QStringLiteral(" in ") + recording.name;
    }

    /// Seconds from the file's beginning, as players count them, 0 or more.
    double startInFile() const { return std::max(0.0, start + recording.offset); }
    double endInFile() const { return std::max(0.0, end + recording.offset); }
};
