// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "openedrecording.h"

#include "containername.h"
#include "failuretexts.h"
#include "mediafile.h"

#include <QCoreApplication>
#include <QFile>

#include <cerrno>

namespace {

QString failureOf(const RecordingFile& file, const PlayedClip& clip) {
    if (file.error() == ENOENT)
        return QCoreApplication::translate("MpvPlayer", "The recording is no longer there.");
    if (!file.isOpen() && file.error() == 0)
        return QCoreApplication::translate("MpvPlayer", "This is no file that can be played.");
    if (!file.isOpen())
        return QCoreApplication::translate("MpvPlayer", "Cannot be read: %1")
            .arg(qt_error_string(file.error()));
    if ((clip.bytes >= 0 && clip.bytes != file.size()) || (clip.isChanged && clip.isChanged()))
        return QCoreApplication::translate("MpvPlayer",
                                           "The recording has changed since it was searched.");
    return {};
}

} // namespace

OpenedRecording openForPlaying(const PlayedClip& clip, const std::function<void()>& cut) {
    OpenedRecording opened;
    opened.file = std::make_shared<RecordingFile>(clip.file, cut);
    opened.error = failureOf(*opened.file, clip);
    if (!opened.error.isEmpty())
        return opened;
    // The demuxer that searches have, too: playlists and the like are refused as there.
    const ContainerName container = containerNameOf(clip.file, [] { return false; });
    if (!container.error.isEmpty())
        opened.error = QCoreApplication::translate("MpvPlayer", "Cannot be played: %1")
                           .arg(translatedFailure(container.error));
    opened.demuxer = container.name.toLatin1();
    return opened;
}

double editedStart(const QString& fileName) {
    const MediaFile media(QFile::encodeName(fileName));
    if (!media.hasTimes())
        return 0.0;
    const AVStream& stream = *media.stream();
    return double(stream.start_time) * av_q2d(stream.time_base) -
           media.facts().description.startTime;
}
