// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cliplist.h"

#include "editlists.h"
#include "escaping.h"
#include "playlists.h"

#include <QFile>
#include <QFileInfo>

namespace {

/// VLC counts from the beginning of most files. Of Matroska and MP4 it shows the times as they are
/// written.
bool hasClockOfStreamsInVlc(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(8);
    const QByteArray box = head.mid(4);
    return head.startsWith("\x1a\x45\xdf\xa3") || box == "ftyp" || box == "moov" || box == "mdat";
}

void take(const Ratio& ratio, int& numerator, int& denominator) {
    if (ratio.numerator <= 0 || ratio.denominator <= 0)
        return;
    numerator = ratio.numerator;
    denominator = ratio.denominator;
}

QByteArray lines(const QByteArray& head, QByteArray (*line)(const ListedClip&),
                 const QVector<ListedClip>& clips) {
    QByteArray text = head;
    for (const ListedClip& clip : clips)
        text += line(clip);
    return text;
}

} // namespace

ListedRecording listedRecording(const QString& path, const QString& name,
                                const PlayedRecording& played) {
    ListedRecording listed;
    listed.path = path;
    listed.name = printable(name);
    listed.offset = played.offset;
    listed.fileStart = played.stream.startTime;
    if (listed.fileStart != 0.0 && hasClockOfStreamsInVlc(listed.path))
        listed.vlcStart = listed.fileStart;
    listed.size = played.stream.size;
    take(played.stream.frameRate, listed.frameRateNumerator, listed.frameRateDenominator);
    take(played.stream.pixelAspect, listed.pixelAspectNumerator, listed.pixelAspectDenominator);
    return listed;
}

QByteArray clipListText(ClipList list, const QVector<ListedClip>& clips) {
    switch (list) {
    case ClipList::M3u:
        return lines(m3uHead(), m3uLines, clips);
    case ClipList::Mpv:
        return lines(mpvHead(), mpvLine, clips);
    case ClipList::Edl:
        return editDecisionList(clips);
    case ClipList::Mlt:
        return mltDocument(clips);
    case ClipList::Cuts:
        break;
    }
    return lines({}, cutLine, clips);
}

bool canName(ClipList list, const QString& path) {
    return list != ClipList::Mlt || canBeInXml(path);
}
