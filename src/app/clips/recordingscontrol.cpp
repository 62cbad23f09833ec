// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingscontrol.h"

#include "clip.h"
#include "cliplistwidget.h"
#include "detectionqueue.h"
#include "exportnotices.h"
#include "listfilter.h"
#include "recordingsdock.h"
#include "showinfolder.h"
#include "video.h"

#include <QMainWindow>

namespace {

constexpr int countMilliseconds = 200;

QString recordingReason() {
    return QStringLiteral("recording");
}

} // namespace

RecordingsControl::RecordingsControl(QMainWindow& window, DetectionQueue& queue,
                                     ClipListWidget& list, ListFilter& filter, RecordingsDock& dock)
    : window(window)
    , list(list)
    , filter(filter)
    , dock(dock) {
    counting.setSingleShot(true);
    counting.setInterval(countMilliseconds);
    connect(&counting, SIGNAL(timeout()), SLOT(countClips()));
    connect(list.model(), SIGNAL(rowsInserted(QModelIndex, int, int)), &counting, SLOT(start()));
    connect(list.model(), SIGNAL(rowsRemoved(QModelIndex, int, int)), &counting, SLOT(start()));
    connect(&list, SIGNAL(itemSelectionChanged()), SLOT(followClips()));
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(watch(QList<Video*>)));
    connect(&filter, SIGNAL(changed()), SLOT(noteFilter()));
    connect(&ExportNotices::instance(), SIGNAL(failed(Video*)), &dock, SLOT(lookAt(Video*)));
    connect(&dock, SIGNAL(chosen(Video*)), SLOT(showClips(Video*)));
    connect(&dock, SIGNAL(entered(Video*)), SLOT(enterClips(Video*)));
    connect(&dock, SIGNAL(onlyThisAsked(Video*)), SLOT(showOnly(Video*)));
    connect(&dock, SIGNAL(clipsRemovalAsked(Video*)), SLOT(removeClips(Video*)));
    connect(&dock, SIGNAL(folderAsked(Video*)), SLOT(showFolder(Video*)));
}

void RecordingsControl::followClips() {
    const auto* clip = static_cast<Clip*>(list.currentItem());
    if (!clip || !clip->isSelected() || !clip->video)
        return;
    isFollowing = true;
    dock.choose(clip->video);
    isFollowing = false;
}

void RecordingsControl::showClips(Video* video) {
    Clip* clip = isFollowing ? nullptr : firstClip(video);
    if (clip && !list.viewport()->rect().contains(list.visualItemRect(clip)))
        list.scrollToItem(clip, QAbstractItemView::PositionAtTop);
}

void RecordingsControl::enterClips(Video* video) {
    Clip* clip = firstClip(video);
    if (!clip)
        return;
    list.setCurrentItem(clip);
    list.scrollToItem(clip, QAbstractItemView::PositionAtTop);
    list.setFocus();
}

void RecordingsControl::showOnly(Video* video) {
    // Searches of one recording that take each other's place have one folder.
    const QString folder = video ? video->clipDirectory : QString();
    if (video)
        filter.set(recordingReason(), [folder](const Clip& clip) {
            return clip.video && clip.video->clipDirectory == folder;
        });
    else
        filter.set(recordingReason(), {});
    dock.setAlone(video);
}

void RecordingsControl::noteFilter() {
    if (!filter.isActive())
        dock.setAlone(nullptr);
}

void RecordingsControl::removeClips(Video* video) {
    QList<Clip*> clips;
    for (Clip* clip : list.clips()) {
        if (clip->video == video)
            clips.append(clip);
    }
    remove(clips);
}

void RecordingsControl::showFolder(Video* video) {
    showInFolder(video->fileName);
}

void RecordingsControl::watch(const QList<Video*>& jobs) {
    for (Video* job : jobs) {
        if (job->sharesFolder())
            connect(job, SIGNAL(resultReady()), SLOT(takeEnd()));
    }
}

/// What a recording has been searched for anew takes the place of what was found before, but for
/// that which is a file by now, or will be.
void RecordingsControl::takeEnd() {
    const auto* job = qobject_cast<Video*>(sender());
    if (!job || job->state != Video::Finished)
        return;
    QList<Clip*> clips;
    for (Clip* clip : list.clips()) {
        const bool isOfOther =
            clip->video && clip->video != job && clip->video->clipDirectory == job->clipDirectory;
        if (isOfOther && !clip->isExportedOrWill())
            clips.append(clip);
    }
    remove(clips);
}

void RecordingsControl::countClips() {
    QHash<const Video*, int> counts;
    for (int row = 0; row < list.count(); ++row)
        ++counts[static_cast<Clip*>(list.item(row))->video];
    dock.setClipCounts(counts);
}

/// Null where it has none that is shown.
Clip* RecordingsControl::firstClip(const Video* video) const {
    for (int row = 0; video && row < list.count(); ++row) {
        auto* clip = static_cast<Clip*>(list.item(row));
        if (clip->video == video && !list.isRowHidden(row))
            return clip;
    }
    return nullptr;
}

void RecordingsControl::remove(const QList<Clip*>& clips) {
    list.takeOut(clips);
    discarded.add(clips);
    QMetaObject::invokeMethod(&window, "on_files_itemSelectionChanged"); // what it offers
}
