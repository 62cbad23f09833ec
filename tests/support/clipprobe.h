// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QString>

/// What a clip's file turns out to be when it is played from end to end.
struct ClipProbe {
    bool isPlayable = false; ///< every picture decodes without an error
    int pictures = 0;
    double seconds = 0.0; ///< from the first picture to the end of the last one
    bool hasSound = false;
    QString videoCodec; ///< the decoder's name, "h264" or "mpeg4"
};

ClipProbe probeClip(const QString& fileName);

/// The first picture of a file; null if there is none.
QImage firstPicture(const QString& fileName);

/// Whether a box with white writing stands in the picture's top left corner.
bool hasOverlay(const QImage& picture);
