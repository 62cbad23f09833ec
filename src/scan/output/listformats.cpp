// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "listformats.h"

#include "cliplist.h"
#include "editlists.h"
#include "encodertimes.h"
#include "escaping.h"
#include "playlists.h"

#include <algorithm>
#include <map>
#include <mutex>

namespace {

/// What of a clip lies in each recording, as far as it can be cut.
QVector<ListedClip> listed(const ClipLine& line) {
    QVector<ListedClip> clips;
    for (const ClipPart& part : line.parts) {
        if (!canBeCut(part.start, part.end))
            continue;
        ListedClip clip{listedRecording(part.recording->path, part.recording->video, part.played),
                        line.clip.index, part.start, part.end};
        if (part.recording != &line.recording)
            clip.begunIn = printable(line.recording.video);
        clips.append(clip);
    }
    return clips;
}

class PlaylistFormat : public ClipFormat {
public:
    using Line = QByteArray (*)(const ListedClip&);

    PlaylistFormat(QByteArray head, Line line)
        : head(std::move(head))
        , line(line) {}

    QByteArray header() const override { return head; }

    QByteArray clip(const ClipLine& clip) override {
        QByteArray lines;
        for (const ListedClip& part : listed(clip))
            lines += line(part);
        return lines;
    }

private:
    QByteArray head;
    Line line;
};

class EditFormat : public ClipFormat {
public:
    using Document = QByteArray (*)(const QVector<ListedClip>&);

    EditFormat(Document document, ClipCalls calls)
        : document(document)
        , calls(calls) {}

    QByteArray clip(const ClipLine& line) override {
        if (isRefused(line))
            return {};
        const std::lock_guard<std::mutex> lock(mutex);
        clips[calls == ClipCalls::InOrder ? 0 : line.recording.place] += listed(line);
        return {};
    }

    QByteArray footer() override {
        QVector<ListedClip> all;
        for (const auto& recording : clips)
            all += recording.second;
        return document(all);
    }

private:
    bool isRefused(const ClipLine& line) const {
        return std::any_of(line.parts.begin(), line.parts.end(), [this](const ClipPart& part) {
            return !refusal(*part.recording).isEmpty();
        });
    }

    Document document;
    ClipCalls calls;
    std::mutex mutex;
    std::map<int, QVector<ListedClip>> clips; ///< by the recordings' places in the call, or as one
};

class MltFormat : public EditFormat {
public:
    explicit MltFormat(ClipCalls calls)
        : EditFormat(mltDocument, calls) {}

    QString refusal(const Recording& recording) const override {
        return canBeInXml(recording.path)
                   ? QString()
                   : QStringLiteral("its clips cannot be listed, since XML cannot hold its name");
    }
};

} // namespace

std::unique_ptr<ClipFormat> makeListFormat(ReportFormat format, ClipCalls calls) {
    if (format == ReportFormat::M3u)
        return std::make_unique<PlaylistFormat>(m3uHead(), m3uLines);
    if (format == ReportFormat::Mpv)
        return std::make_unique<PlaylistFormat>(mpvHead(), mpvLine);
    if (format == ReportFormat::Cuts)
        return std::make_unique<PlaylistFormat>(QByteArray(), cutLine);
    if (format == ReportFormat::Mlt)
        return std::make_unique<MltFormat>(calls);
    return std::make_unique<EditFormat>(editDecisionList, calls);
}
