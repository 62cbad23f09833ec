// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipexchange.h"

#include "clip.h"
#include "clipplaces.h"
#include "discardedclips.h"
#include "video.h"

#include <QDeadlineTimer>
#include <QListWidget>

#include <algorithm>
#include <functional>
#include <iterator>

ClipExchange::ClipExchange(QListWidget& list, DiscardedClips& discarded)
    : list(list)
    , discarded(discarded) {}

ClipExchange::~ClipExchange() {
    discarded.add(out);
}

void ClipExchange::setOptions(Video& video, const DecidingOptions& options) {
    decidings.push_back({&video, video.search.deciding});
    video.search.deciding = options;
}

void ClipExchange::takeOut(const QList<Clip*>& clips) {
    for (Clip* clip : clips)
        removeFromList(*clip);
    out.append(clips);
}

void ClipExchange::putIn(Clip& clip, const QList<Video*>& jobs) {
    in.append(&clip);
    listInPlace(list, jobs, clip);
}

/// Which recordings there were is still to be known while their clips change back.
void ClipExchange::undo() {
    for (const Before& before : decidings) {
        if (before.video)
            before.video->search.deciding = before.options;
    }
}

void ClipExchange::forgetSuperseded() {
    const auto isOver = [](const Video* video) { return !video || video->isSuperseded; };
    const auto stays = [&isOver](const Clip* clip) { return !isOver(clip->video); };
    const auto gone = std::stable_partition(out.begin(), out.end(), stays);
    QList<Clip*> forgotten;
    std::copy(gone, out.end(), std::back_inserter(forgotten));
    out.erase(gone, out.end());
    discarded.add(forgotten);
    decidings.erase(
        std::remove_if(decidings.begin(), decidings.end(),
                       [&isOver](const Before& before) { return isOver(before.video); }),
        decidings.end());
    // Those that were listed belong to the jobs that stand for theirs.
    const auto isListed = [this](const QPointer<Clip>& clip) {
        return clip && std::any_of(decidings.begin(), decidings.end(), [&](const Before& before) {
                   return before.video == clip->video;
               });
    };
    in.erase(std::remove_if(in.begin(), in.end(), std::not_fn(isListed)), in.end());
}

bool ClipExchange::putBackSome(const QList<Video*>& jobs, int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    while (!in.isEmpty() && !deadline.hasExpired())
        discard(in.takeLast());
    while (in.isEmpty() && !out.isEmpty() && !deadline.hasExpired())
        listInPlace(list, jobs, *out.takeFirst());
    return !in.isEmpty() || !out.isEmpty();
}

void ClipExchange::discard(Clip* clip) {
    if (!clip || !clip->listWidget() || clip->isExportedOrWill())
        return;
    removeFromList(*clip);
    discarded.add({clip});
}

void ClipExchange::removeFromList(Clip& clip) {
    list.setItemWidget(&clip, nullptr);
    list.takeItem(list.row(&clip));
}
