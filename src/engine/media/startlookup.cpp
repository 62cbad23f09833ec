// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "startlookup.h"

#include "demuxer.h"

#include <QFile>

#include <algorithm>
#include <sys/stat.h>

namespace {

void addTag(const AVDictionary* tags, const char* key, QStringList& times) {
    const AVDictionaryEntry* tag = av_dict_get(tags, key, nullptr, 0);
    if (tag)
        times += QString::fromUtf8(tag->value);
}

/// Cameras that write their zone do so in the first two of these.
QStringList timesOf(const AVFormatContext& format, const AVStream& stream) {
    QStringList times;
    for (const char* key : {"com.apple.quicktime.creationdate", "date", "creation_time"})
        addTag(format.metadata, key, times);
    addTag(stream.metadata, "creation_time", times);
    return times;
}

/// A length that was reckoned from the size and the bitrate is a guess.
double secondsOf(const AVFormatContext& format) {
    const bool isGuessed = format.duration_estimation_method == AVFMT_DURATION_FROM_BITRATE;
    return format.duration > 0 && !isGuessed ? double(format.duration) / AV_TIME_BASE : 0.0;
}

/// Nothing of what is no recording.
FileHead readHead(const QString& path, const std::function<bool()>& isInterrupted) {
    Demuxer demuxer(QFile::encodeName(path), isInterrupted);
    if (!demuxer.open() || !demuxer.stream())
        return {};
    return {timesOf(*demuxer.context(), *demuxer.stream()), secondsOf(*demuxer.context())};
}

/// Invalid where it is no regular file.
QDateTime modifiedTime(const QString& path) {
    struct stat status {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    constexpr qint64 longest = 100000000000; // seconds: a file system may have any number
    const qint64 seconds = std::clamp(qint64(status.st_mtim.tv_sec), -longest, longest);
    return QDateTime::fromMSecsSinceEpoch(seconds * 1000 + status.st_mtim.tv_nsec / 1000000,
                                          Qt::UTC);
}

} // namespace

RecordingStart lookUpStart(const QString& path, const StartSearch& search,
                           const std::function<bool()>& isInterrupted) {
    const QDateTime modified = modifiedTime(path);
    StartSearch today = search;
    today.now = QDateTime::currentDateTimeUtc();
    return findStart(path, modified, today, [&] {
        return modified.isValid() ? readHead(path, isInterrupted) : FileHead();
    });
}
