// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motioncontrol.h"

#include "clip.h"
#include "clipplaces.h"
#include "detectionqueue.h"
#include "motiondock.h"
#include "video.h"

#include <QListWidget>
#include <QSet>

#include <algorithm>

MotionControl::MotionControl(MotionDock& dock, QListWidget& list, DetectionQueue& queue,
                             QObject* parent)
    : QObject(parent)
    , dock(dock)
    , list(list)
    , queue(queue)
    , clips(list, queue) {
    listTimer.setSingleShot(true);
    listTimer.setInterval(0);
    connect(&listTimer, SIGNAL(timeout()), SLOT(tellListed()));
    connect(&list, SIGNAL(itemSelectionChanged()), SLOT(showSelected()));
    connect(list.model(), SIGNAL(rowsInserted(QModelIndex, int, int)), &listTimer, SLOT(start()));
    connect(list.model(), SIGNAL(rowsRemoved(QModelIndex, int, int)), &listTimer, SLOT(start()));
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(showAny()));
    connect(&dock, SIGNAL(visibilityChanged(bool)), SLOT(showAny()));
    connect(&dock, SIGNAL(jobShown()), SLOT(tellListed()));
    connect(&dock, SIGNAL(useAsked(DecidingOptions, bool)), SLOT(use(DecidingOptions, bool)));
    connect(&dock, SIGNAL(undoAsked()), SLOT(undo()));
    connect(&clips, SIGNAL(changed()), SLOT(takeChange()));
}

/// The recording of the current clip, or else of the first one that is selected.
void MotionControl::showSelected() {
    const QList<QListWidgetItem*> selected = list.selectedItems();
    if (selected.isEmpty())
        return;
    QListWidgetItem* current = list.currentItem();
    const bool isSelected = current && current->isSelected();
    if (Video* video = static_cast<Clip*>(isSelected ? current : selected.first())->video)
        dock.showJob(video);
}

/// Where none has been chosen: the one that is being searched, or else the first. Where another job
/// stands for the one that is shown, that one.
void MotionControl::showAny() {
    const QList<Video*>& jobs = queue.jobs();
    if (const Video* shown = dock.shownJob(); shown && shown->isSuperseded)
        dock.showJob(*std::find_if(jobs.rbegin(), jobs.rend(), [shown](const Video* video) {
            return video->clipDirectory == shown->clipDirectory;
        }));
    if (dock.shownJob() || jobs.isEmpty() || !dock.isVisible())
        return;
    const auto running = std::find_if(jobs.cbegin(), jobs.cend(), [](const Video* video) {
        return video->state == Video::Running;
    });
    dock.showJob(running == jobs.cend() ? jobs.first() : *running);
}

void MotionControl::use(const DecidingOptions& options, bool isForAll) {
    clips.use(isForAll ? newestJobs() : QList<Video*>{dock.shownJob()}, options);
}

/// Of those that were searched again only the last ones.
QList<Video*> MotionControl::newestJobs() const {
    QSet<QString> folders;
    QList<Video*> jobs;
    for (int i = queue.jobs().size() - 1; i >= 0; --i) {
        Video* job = queue.jobs()[i];
        if (folders.contains(job->clipDirectory))
            continue;
        if (job->state == Video::Finished)
            folders.insert(job->clipDirectory);
        jobs.prepend(job);
    }
    return jobs;
}

void MotionControl::undo() {
    clips.undo();
    dock.showOptions();
}

void MotionControl::takeChange() {
    dock.setUndoable(clips.isUndoable());
    Q_EMIT listChanged();
}

void MotionControl::tellListed() {
    QVector<ListedSpan> spans;
    const QList<Clip*> listed = dock.isVisible() ? clipsIn(list) : QList<Clip*>();
    for (const Clip* clip : listed) {
        if (clip->video == dock.shownJob() && clip->video)
            spans.append({clip->index, clip->start, clip->end});
    }
    dock.setListed(spans);
}
