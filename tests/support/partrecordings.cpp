// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partrecordings.h"

#include "media.h"

#include <QDir>
#include <QVector>

#include <utility>

QString makePartRecordings(const QString& folder) {
    const QStringList x264 = {"-c:v", "libx264", "-preset", "veryfast"};
    const QStringList short264 = x264 + QStringList{"-g", "40", "-bf", "3"};
    const QVector<std::pair<const char*, QStringList>> recordings = {
        {"closed.mp4", short264},
        {"pyramid.mkv",
         x264 + QStringList{"-g", "24", "-bf", "3", "-x264-params", "b-pyramid=normal:ref=5"}},
        {"transport.ts", short264},
        {"recovery.mp4", x264 + QStringList{"-g", "40", "-bf", "3", "-x264-params", "open-gop=1"}},
        {"single.mp4", x264 + QStringList{"-g", "1000"}},
        {"intra.mp4", x264 + QStringList{"-g", "1"}},
        {"elementary.264", short264},
        {"high.mp4",
         {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
          "keyint=30:bframes=3:log-level=error"}},
        {"closed265.mkv",
         {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
          "keyint=30:bframes=3:open-gop=0:log-level=error"}},
        {"program.mpg", {"-c:v", "mpeg2video", "-bf", "2", "-g", "15"}},
        {"strict.ts",
         {"-c:v", "mpeg2video", "-bf", "2", "-g", "15", "-flags", "+cgop", "-sc_threshold",
          "1000000000"}},
        {"simple.avi", {"-c:v", "mpeg4", "-g", "30"}},
        {"both.mp4", {"-c:v", "mpeg4", "-bf", "2", "-g", "30"}},
        {"stills.avi", {"-c:v", "mjpeg"}},
        {"web.webm", {"-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8", "-g", "50"}},
        {"old.webm", {"-c:v", "libvpx", "-deadline", "realtime", "-cpu-used", "8", "-g", "25"}},
        {"lossless.mkv", {"-c:v", "ffv1", "-g", "25"}},
    };
    for (const auto& recording : recordings) {
        const QString name = QDir(folder).filePath(recording.first);
        if (!media::encode(media::crossingBox(16, 6, 10) + recording.second + QStringList{name}))
            return recording.first;
    }
    return {};
}
