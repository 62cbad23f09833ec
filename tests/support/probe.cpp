// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "probe.h"

#include "media.h"
#include "process.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

namespace {

/// The prober comes in the encoder's package and lies beside it.
QString proberPath() {
    const QFileInfo encoder(media::programDirectory() + "/ffmpeg");
    return QFileInfo(encoder.canonicalFilePath()).absolutePath() + "/ffprobe";
}

int rotationOf(const QJsonObject& stream) {
    for (const auto& data : stream["side_data_list"].toArray()) {
        if (data.toObject().contains("rotation"))
            return data.toObject()["rotation"].toInt();
    }
    return 0;
}

} // namespace

namespace media {

ProbedVideo probe(const QString& fileName) {
    const ProcessResult result =
        runProgram(proberPath(), {"-v", "error", "-select_streams", "v:0", "-show_streams",
                                  "-show_packets", "-of", "json", fileName});
    const QJsonObject answer = QJsonDocument::fromJson(result.output).object();
    const QJsonObject stream = answer["streams"].toArray().at(0).toObject();
    ProbedVideo video;
    video.codec = stream["codec_name"].toString();
    if (video.codec.isEmpty())
        return video;
    video.index = stream["index"].toInt();
    video.width = stream["width"].toInt();
    video.height = stream["height"].toInt();
    video.reorderDepth = stream["has_b_frames"].toInt();
    video.rotation = rotationOf(stream);
    const QStringList timeBase = stream["time_base"].toString().split('/');
    video.timeBase = timeBase.value(0).toDouble() / timeBase.value(1).toDouble();
    for (const auto& value : answer["packets"].toArray()) {
        const QJsonValue dts = value.toObject()["dts"];
        video.packetTimes.append(dts.isUndefined() ? std::numeric_limits<qint64>::min()
                                                   : qint64(dts.toDouble()));
    }
    return video;
}

} // namespace media
