// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playlists.h"

#include "filenames.h"

#include <QFile>

#include <cmath>

namespace {

/// With as many digits as tell pictures apart at any rate: "2.400000".
QByteArray secondsText(double seconds) {
    return QByteArray::number(seconds, 'f', 6);
}

} // namespace

QByteArray m3uHead() {
    return "#EXTM3U\n";
}

QByteArray m3uLines(const ListedClip& clip) {
    const auto length = QByteArray::number(std::ceil(clip.end - clip.start), 'f', 0);
    return "#EXTINF:" + length + ',' + QFile::encodeName(clip.label()) + '\n' +
           "#EXTVLCOPT:start-time=" + secondsText(clip.recording.vlcStart + clip.startInFile()) +
           '\n' +
           "#EXTVLCOPT:stop-time=" + secondsText(clip.recording.vlcStart + clip.endInFile()) +
           '\n' + encodedFileUrl(clip.recording.path) + '\n';
}

QByteArray mpvHead() {
    return "# mpv EDL v0\n";
}

// The length in front of the name lets it hold whatever separates the fields.
QByteArray mpvLine(const ListedClip& clip) {
    const QByteArray path = QFile::encodeName(clip.recording.path);
    return '%' + QByteArray::number(path.size()) + '%' + path + ',' +
           secondsText(clip.recording.fileStart + clip.startInFile()) + ',' +
           secondsText(clip.endInFile() - clip.startInFile()) + '\n';
}

QByteArray cutLine(const ListedClip& clip) {
    return secondsText(clip.startInFile()) + '\t' + secondsText(clip.endInFile()) + '\t' +
           QFile::encodeName(clip.label()) + '\n';
}
