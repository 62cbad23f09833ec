// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "listformats.h"

#include "cliplist.h"
#include "editlists.h"
#include "encodertimes.h"
#include "playlists.h"

#include <map>
#include <mutex>

namespace {

ListedClip listed(const ClipLine& line) {
    return {listedRecording(line.recording.path, line.recording.video, line.played),
            line.clip.index, line.clip.start, line.clip.end};
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
