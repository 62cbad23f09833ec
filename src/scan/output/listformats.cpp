// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "listformats.h"

#include "editlists.h"
#include "encodertimes.h"
#include "escaping.h"
#include "playlists.h"

#include <QFile>
#include <QFileInfo>

#include <map>
#include <mutex>

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

ListedRecording listed(const Recording& recording, const PlayedRecording& played) {
    ListedRecording listed;
    listed.path = recording.path;
    listed.name = printable(recording.video);
    listed.offset = played.offset;
    listed.fileStart = played.stream.startTime;
    if (listed.fileStart != 0.0 && hasClockOfStreamsInVlc(listed.path))
        listed.vlcStart = listed.fileStart;
    listed.size = played.stream.size;
    const auto take = [](const Ratio& ratio, int& numerator, int& denominator) {
        if (ratio.numerator <= 0 || ratio.denominator <= 0)
            return;
        numerator = ratio.numerator;
        denominator = ratio.denominator;
    };
    take(played.stream.frameRate, listed.frameRateNumerator, listed.frameRateDenominator);
    take(played.stream.pixelAspect, listed.pixelAspectNumerator, listed.pixelAspectDenominator);
    return listed;
}

ListedClip listed(const ClipLine& line) {
    return {listed(line.recording, line.played), line.clip.index, line.clip.start, line.clip.end};
}

class PlaylistFormat : public ClipFormat {
public:
    using Line = QByteArray (*)(const ListedClip&);

    PlaylistFormat(QByteArray head, Line line)
        : head(std::move(head))
        , line(line) {}

    QByteArray header() const override { return head; }

    QByteArray clip(const ClipLine& clip) override {
        return canBeCut(clip.clip.start, clip.clip.end) ? line(listed(clip)) : QByteArray();
    }

private:
    QByteArray head;
    Line line;
};

class EditFormat : public ClipFormat {
public:
    using Document = QByteArray (*)(const QVector<ListedClip>&);

    explicit EditFormat(Document document)
        : document(document) {}

    QByteArray clip(const ClipLine& line) override {
        if (!canBeCut(line.clip.start, line.clip.end) || !refusal(line.recording).isEmpty())
            return {};
        const std::lock_guard<std::mutex> lock(mutex);
        clips[line.recording.place].append(listed(line));
        return {};
    }

    QByteArray footer() override {
        QVector<ListedClip> all;
        for (const auto& recording : clips)
            all += recording.second;
        return document(all);
    }

private:
    Document document;
    std::mutex mutex;
    std::map<int, QVector<ListedClip>> clips; ///< by the recordings' places in the call
};

class MltFormat : public EditFormat {
public:
    MltFormat()
        : EditFormat(mltDocument) {}

    QString refusal(const Recording& recording) const override {
        return canBeInXml(recording.path)
                   ? QString()
                   : QStringLiteral("its clips cannot be listed, since XML cannot hold its name");
    }
};

} // namespace

std::unique_ptr<ClipFormat> makeListFormat(ReportFormat format) {
    if (format == ReportFormat::M3u)
        return std::make_unique<PlaylistFormat>(m3uHead(), m3uLines);
    if (format == ReportFormat::Mpv)
        return std::make_unique<PlaylistFormat>(mpvHead(), mpvLine);
    if (format == ReportFormat::Cuts)
        return std::make_unique<PlaylistFormat>(QByteArray(), cutLine);
    if (format == ReportFormat::Mlt)
        return std::make_unique<MltFormat>();
    return std::make_unique<EditFormat>(editDecisionList);
}
