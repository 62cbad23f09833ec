// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipprobe.h"

#include "process.h"

#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

namespace {

/// The lines of the encoder's frame list: stream, dts, pts, duration, size, checksum.
void readFrameList(const QString& list, ClipProbe& probe) {
    static const QRegularExpression timeBase(QStringLiteral("#tb 0: (\\d+)/(\\d+)"));
    const auto base = timeBase.match(list);
    const double tick = base.captured(1).toDouble() / qMax(1.0, base.captured(2).toDouble());
    qint64 first = 0;
    qint64 end = 0;
    for (const QString& line : list.split('\n', Qt::SkipEmptyParts)) {
        const QStringList fields = line.split(',');
        if (line.startsWith('#') || fields.size() < 6)
            continue;
        const qint64 time = fields[2].toLongLong();
        first = probe.pictures == 0 ? time : std::min(first, time);
        end = std::max(end, time + fields[3].toLongLong());
        ++probe.pictures;
    }
    probe.seconds = double(end - first) * tick;
}

} // namespace

ClipProbe probeClip(const QString& fileName) {
    ClipProbe probe;
    const ProcessResult result =
        runProgram("ffmpeg", {"-nostdin", "-hide_banner", "-nostats", "-xerror", "-i", fileName,
                              "-map", "0:v:0", "-f", "framecrc", "-"});
    readFrameList(QString::fromUtf8(result.output), probe);
    probe.isPlayable = result.status == 0 && probe.pictures > 0;
    const QString input = QString::fromUtf8(result.errors).section("Stream mapping:", 0, 0);
    static const QRegularExpression codec(QStringLiteral("Video: (\\w+)"));
    probe.videoCodec = codec.match(input).captured(1);
    probe.hasSound = input.contains("Audio: ");
    return probe;
}

QImage firstPicture(const QString& fileName) {
    const QTemporaryDir folder;
    const QString picture = folder.filePath("picture.png");
    runProgram("ffmpeg", {"-nostdin", "-v", "error", "-i", fileName, "-frames:v", "1", picture});
    return QImage(picture);
}

bool hasOverlay(const QImage& picture) {
    // The writing is 16 pixels high; the box around it is opaque and black.
    int black = 0;
    int white = 0;
    for (int y = 8; y < 24 && y < picture.height(); ++y) {
        for (int x = 8; x < 100 && x < picture.width(); ++x) {
            const int grey = qGray(picture.pixel(x, y));
            black += grey < 40 ? 1 : 0;
            white += grey > 200 ? 1 : 0;
        }
    }
    return black > 300 && white > 50;
}
