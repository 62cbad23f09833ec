// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mediafile.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/parseutils.h>
}

#include <algorithm>
#include <cstring>

namespace {

Ratio ratioOf(const AVRational& first, const AVRational& second) {
    const AVRational& known = first.num > 0 && first.den > 0 ? first : second;
    return {known.num, known.den};
}

/// Matroska has it in a tag.
double taggedSeconds(const AVStream& stream) {
    const AVDictionaryEntry* tag = av_dict_get(stream.metadata, "DURATION", nullptr, 0);
    std::int64_t microseconds = 0;
    const bool isKnown = tag && av_parse_time(&microseconds, tag->value, 1) >= 0;
    return isKnown ? double(microseconds) / AV_TIME_BASE : 0.0;
}

/// What a length in the headers counts from; seconds, as the stream counts them. Most containers
/// tell where the stream ends, and a camera may go on counting from file to file.
double lengthOrigin(const AVFormatContext& format, const AVStream& stream) {
    const bool isOwn =
        std::strstr(format.iformat->name, "mp4") || std::strcmp(format.iformat->name, "ogg") == 0;
    const bool isLater = stream.start_time != AV_NOPTS_VALUE && stream.start_time > 0;
    return isLater && !isOwn ? double(stream.start_time) * av_q2d(stream.time_base) : 0.0;
}

} // namespace

MediaFile::MediaFile(const QByteArray& fileName, std::function<bool()> isInterrupted)
    : demuxer(fileName, std::move(isInterrupted)) {
    routeLibavLog();
    demuxer.open();
}

bool MediaFile::reopen() {
    reader.restart();
    return demuxer.reopen();
}

AVCodecID MediaFile::codec() const {
    return isOpen() ? stream()->codecpar->codec_id : AV_CODEC_ID_NONE;
}

StreamFacts MediaFile::facts() const {
    StreamFacts facts;
    if (!isOpen())
        return facts;
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(codec());
    facts.codecName = avcodec_get_name(codec());
    facts.isIntraOnly = descriptor && (descriptor->props & AV_CODEC_PROP_INTRA_ONLY) != 0;
    facts.duration = duration();
    facts.description = description();
    return facts;
}

double MediaFile::duration() const {
    const std::int64_t duration = demuxer.context()->duration;
    return duration > 0 ? double(duration) / AV_TIME_BASE : 0.0;
}

StreamDescription MediaFile::description() const {
    const AVStream& chosen = *stream();
    const AVCodecParameters& parameters = *chosen.codecpar;
    const std::int64_t start = demuxer.context()->start_time;
    return {QSize(parameters.width, parameters.height),
            ratioOf(chosen.sample_aspect_ratio, parameters.sample_aspect_ratio),
            ratioOf(chosen.avg_frame_rate, chosen.r_frame_rate),
            start == AV_NOPTS_VALUE ? 0.0 : double(start) / AV_TIME_BASE};
}

qint64 MediaFile::bytes() const {
    const AVFormatContext* format = demuxer.context();
    return format && format->pb ? avio_size(format->pb) : -1;
}

/// The file's own length is that of its video where there is nothing else in it. What was reckoned
/// from the size or looked for at the end of the file is no promise.
double MediaFile::promisedLength() const {
    const AVFormatContext* format = demuxer.context();
    if (!isOpen() || format->duration_estimation_method != AVFMT_DURATION_FROM_STREAM)
        return 0.0;
    const AVStream& chosen = *stream();
    // Of an AVI file that is cut off the demuxer takes the length down, but not the pictures.
    if (std::strcmp(format->iformat->name, "avi") == 0 && chosen.nb_frames > 0)
        return double(chosen.nb_frames) * av_q2d(chosen.time_base);
    const double origin = lengthOrigin(*format, chosen);
    if (chosen.duration != AV_NOPTS_VALUE && chosen.duration > 0)
        return std::max(double(chosen.duration) * av_q2d(chosen.time_base) - origin, 0.0);
    const double tagged = taggedSeconds(chosen);
    const bool isTheFiles = tagged <= 0.0 && format->nb_streams == 1;
    return std::max((isTheFiles ? duration() : tagged) - origin, 0.0);
}
