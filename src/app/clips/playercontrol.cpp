// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playercontrol.h"

#include "cliplistwidget.h"
#include "playerdock.h"
#include "recordingcheck.h"
#include "video.h"

#include <utility>

namespace {

constexpr int pauseMilliseconds = 50;

PlayedClip played(const Video& video, const QString& label, double start, double end) {
    const RecordingCheck check(video);
    return {video.fileName, label,
            start,          end,
            video.fileSize, [check] { return check.presence() == FilePresence::Changed; }};
}

/// Nothing where the job is gone, and with it what tells of the recording.
PlayedClip playedClip(const Clip* clip) {
    if (!clip || !clip->video)
        return {};
    const QString label =
        clip->video->shortFileName() + QStringLiteral(" #") + QString::number(clip->index);
    return played(*clip->video, label, clip->start, clip->end);
}

} // namespace

PlayerControl::PlayerControl(ClipListWidget& list, PlayerDock& dock)
    : list(list)
    , dock(dock)
    , isDockSeen(dock.isVisible()) {
    timer.setSingleShot(true);
    timer.setInterval(pauseMilliseconds);
    connect(&timer, SIGNAL(timeout()), SLOT(showChosen()));
    connect(&list, SIGNAL(itemSelectionChanged()), SLOT(showSoon()));
    connect(&list, SIGNAL(currentItemChanged(QListWidgetItem*, QListWidgetItem*)),
            SLOT(showSoon()));
    connect(&list, SIGNAL(itemClicked(QListWidgetItem*)), SLOT(showSoon()));
    connect(&dock, SIGNAL(visibilityChanged(bool)), SLOT(takeVisibility(bool)));
    connect(&dock, SIGNAL(nextAsked()), SLOT(next()));
    connect(&dock, SIGNAL(previousAsked()), SLOT(previous()));
}

void PlayerControl::play(Clip* clip) {
    showDock();
    choose(*clip);
    showSoon();
    shown.clear();
    isPlaying = true;
}

void PlayerControl::showTime(const Video& video, double seconds) {
    showDock();
    place = played(video, video.shortFileName(), seconds, seconds);
    timer.start();
}

void PlayerControl::showDock() {
    dock.show();
    dock.raise();
    dock.focusPicture();
}

void PlayerControl::takeVisibility(bool isVisible) {
    isDockSeen = isVisible;
    shown.clear();
    timer.start();
}

void PlayerControl::showSoon() {
    place.reset();
    if (!timer.isActive())
        isPlaying = false;
    timer.start();
}

void PlayerControl::showChosen() {
    const bool plays = std::exchange(isPlaying, false);
    if (place && isDockSeen) {
        shown.clear();
        dock.setClip(*place, plays);
        return;
    }
    Clip* clip = chosen();
    if (!isDockSeen || (clip && clip == shown))
        return;
    shown = clip;
    dock.setClip(playedClip(clip), plays);
}

/// Null where none is, or none can be told from among several.
Clip* PlayerControl::chosen() const {
    auto* current = static_cast<Clip*>(list.currentItem());
    if (current && current->isSelected())
        return current;
    const QList<Clip*> selected = list.selectedClips();
    return selected.size() == 1 ? selected.first() : nullptr;
}

void PlayerControl::choose(Clip& clip) {
    list.setCurrentItem(&clip, QItemSelectionModel::ClearAndSelect);
    list.scrollToItem(&clip);
}

/// The next one that is shown. What plays goes on to play.
void PlayerControl::chooseBeside(int step) {
    const bool wasPlaying = dock.isPlaying();
    for (int row = list.currentRow() + step; row >= 0 && row < list.count(); row += step) {
        if (list.item(row)->isHidden())
            continue;
        choose(static_cast<Clip&>(*list.item(row)));
        isPlaying = wasPlaying;
        return;
    }
}
