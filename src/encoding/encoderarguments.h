// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "container.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

/// The stretch of a video that is cut out.
struct EncodedClip {
    int index = 0;       ///< number within its video, 0 or more
    double start = 0.0;  ///< seconds from the video's first frame
    double end = 0.0;    ///< seconds from the video's first frame
    int secondOfDay = 0; ///< at its start, for the overlay
};

/// The video that it is cut from.
struct EncodedVideo {
    QString fileName;
    QString clipDirectory;         ///< the folder that its clips go to
    bool isIntraCodec = false;     ///< every picture stands alone: always re-encoded
    bool exportTimestamps = false; ///< write date and time into the picture, which re-encodes
    QDateTime startDateTime;       ///< wall-clock time of the first frame

    /// Pictures per second, where it has no times of its own, which re-encodes; else 0.
    double frameRate = 0.0;

    /// The encoder reads it as this (ContainerName) and by nothing but its path; empty: as it
    /// finds.
    QString inputFormat{};

    /// It is a list (concatList) of recordings of this format; empty: it is a recording itself.
    QString listedFormat{};

    /// The encoder decodes up to the clip's start, where stored times cannot lead it there.
    bool isCutByPictures() const { return isIntraCodec || frameRate > 0.0; }
};

/// Whether the recording's codec, by the media libraries' name for it, is one of those whose every
/// picture stands alone and that are therefore never cut by stream copy: MJPEG, MJPEG-B, Lagarith.
bool isIntraCodec(const QByteArray& codecName);

/// The person's choices. The defaults are those of an empty settings store.
struct EncodingSettings {
    Container container = Container::Avi;
    bool doTranscoding = false; ///< re-encode where a stream copy would do
    bool disableAudio = false;
    double bitrateOutput = 2.0; ///< megabits per second, where the picture is re-encoded
};

/// Bits per second for a bitrate in megabits per second, a megabit being 1,048,576 bits.
///
/// 10240 at the least, 104857600 at the most. What does not fit 32 bits, and what is not a number,
/// counts as too small.
int bitsPerSecond(double megabits);

/// The encoder beside the running program. Needs an application object.
QString encoderPath();

/// What the encoder is run with.
struct EncoderCall {
    QStringList arguments;
    QString outputPath; ///< the last of them; an older file of this name is overwritten
};

/// From when the overlay's clock counts in intra-coded videos, whose pictures keep the times of the
/// whole video while they are cut out.
enum class OverlayClock {
    ClipStart, ///< the clip's second of the day; its offset, which the times hold as well, counts
               ///< twice
    VideoStart ///< the second of the day at which the video began: the offset counts once
};

/// How the encoder cuts `clip` out of `video`.
///
/// Start and length are handed on in whole seconds, their fractions dropped. The window's overlay
/// counts from the clip's start in every video.
EncoderCall encoderCall(const EncodedClip& clip, const EncodedVideo& video,
                        const EncodingSettings& settings,
                        OverlayClock clock = OverlayClock::ClipStart);
