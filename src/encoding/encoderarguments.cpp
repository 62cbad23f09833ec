// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderarguments.h"

#include "clipnames.h"
#include "encodertimes.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <limits>

namespace {

constexpr int lowestBitrate = 10240;
constexpr int highestBitrate = 104857600;

bool fitsInt(double value) {
    return value > double(std::numeric_limits<int>::min()) - 1.0 &&
           value < double(std::numeric_limits<int>::max()) + 1.0;
}

QString wholeSeconds(double seconds) {
    return QString::number(truncatedToInt(seconds));
}

/// What the encoder may open, and as what.
QStringList openingArguments(const EncodedVideo& video) {
    const QStringList files = {QStringLiteral("-protocol_whitelist"), QStringLiteral("file")};
    const QString demuxer = QStringLiteral("-f");
    if (!video.listedFormat.isEmpty()) // which takes names of ours alone for unsafe
        return files + QStringList{QStringLiteral("-format_whitelist"),
                                   QStringLiteral("concat,") + video.listedFormat,
                                   QStringLiteral("-safe"),
                                   QStringLiteral("0"),
                                   demuxer,
                                   QStringLiteral("concat")};
    if (!video.inputFormat.isEmpty())
        return files + QStringList{demuxer, video.inputFormat};
    return {};
}

/// In front of the input the seek jumps to a key frame; behind it, it counts decoded pictures.
QStringList inputArguments(const EncodedClip& clip, const EncodedVideo& video) {
    const QStringList seek = {QStringLiteral("-ss"), wholeSeconds(clip.start)};
    QStringList input = openingArguments(video) + QStringList{QStringLiteral("-i"), video.fileName};
    if (video.frameRate > 0.0)
        input =
            QStringList{QStringLiteral("-r"), QString::number(video.frameRate, 'g', 15)} + input;
    return video.isCutByPictures() ? input + seek : seek + input;
}

/// What the overlay adds to the pictures' times. Not folded into one day, since their sum is meant
/// to be.
int overlayOffset(const EncodedClip& clip, const EncodedVideo& video, OverlayClock clock) {
    const bool isCounted = video.isCutByPictures() && clock == OverlayClock::VideoStart;
    return isCounted ? clip.secondOfDay - truncatedToInt(clip.start) : clip.secondOfDay;
}

QStringList pictureArguments(const EncodedClip& clip, const EncodedVideo& video,
                             const EncodingSettings& settings, OverlayClock clock) {
    const bool isEncoded =
        settings.doTranscoding || video.isCutByPictures() || video.exportTimestamps;
    if (!isEncoded)
        return {QStringLiteral("-vcodec"), QStringLiteral("copy")};
    QStringList arguments;
    if (video.exportTimestamps)
        arguments << QStringLiteral("-vf")
                  << overlayFilter(video.startDateTime.date(), overlayOffset(clip, video, clock));
    return arguments << QStringLiteral("-b:v")
                     << QString::number(bitsPerSecond(settings.bitrateOutput));
}

QStringList soundArguments(const EncodingSettings& settings) {
    if (settings.disableAudio)
        return {QStringLiteral("-an")};
    return {QStringLiteral("-acodec"), QStringLiteral("copy")};
}

QString outputPath(const EncodedClip& clip, const EncodedVideo& video,
                   const EncodingSettings& settings) {
    return video.clipDirectory + '/' + clipNumber(clip.index) + '.' +
           containerName(settings.container);
}

} // namespace

bool isIntraCodec(const QByteArray& codecName) {
    return codecName == "mjpeg" || codecName == "mjpegb" || codecName == "lagarith";
}

int bitsPerSecond(double megabits) {
    const double bits = 1024.0 * (megabits * 1024.0);
    return fitsInt(bits) ? std::clamp(int(bits), lowestBitrate, highestBitrate) : lowestBitrate;
}

QString encoderPath() {
    const QDir programDirectory(QCoreApplication::applicationDirPath());
    return programDirectory.absoluteFilePath(QStringLiteral("ffmpeg"));
}

EncoderCall encoderCall(const EncodedClip& clip, const EncodedVideo& video,
                        const EncodingSettings& settings, OverlayClock clock) {
    EncoderCall call;
    call.outputPath = outputPath(clip, video, settings);
    call.arguments = QStringList{QStringLiteral("-nostats"), QStringLiteral("-y")} +
                     inputArguments(clip, video) +
                     QStringList{QStringLiteral("-t"), wholeSeconds(clip.end - clip.start)} +
                     pictureArguments(clip, video, settings, clock) + soundArguments(settings) +
                     QStringList{QStringLiteral("-avoid_negative_ts"), QStringLiteral("disabled"),
                                 call.outputPath};
    return call;
}
