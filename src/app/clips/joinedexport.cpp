// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "joinedexport.h"

#include "captiondelegate.h"
#include "clip.h"
#include "clipnames.h"
#include "detectionqueue.h"
#include "video.h"

#include <QFileInfo>

#include <algorithm>
#include <functional>

namespace {

bool isBefore(const Clip* left, const Clip* right) {
    if (left->video != right->video)
        return std::less<const Video*>()(left->video, right->video);
    return left->start < right->start;
}

double endOf(const QList<Clip*>& group) {
    return (*std::max_element(
                group.begin(), group.end(),
                [](const Clip* left, const Clip* right) { return left->end < right->end; }))
        ->end;
}

/// The file that it becomes, whatever the container: no other group of clips has it.
QString joinedFileOf(const Clip& joined) {
    return joined.video->clipDirectory + '/' + clipNumber(joined.index);
}

} // namespace

QList<QList<Clip*>> overlappingGroups(QList<Clip*> clips) {
    std::stable_sort(clips.begin(), clips.end(), isBefore);
    QList<QList<Clip*>> groups;
    for (Clip* clip : clips) {
        const bool isNext = !groups.isEmpty() && groups.last().first()->video == clip->video &&
                            clip->start <= endOf(groups.last());
        if (isNext)
            groups.last().append(clip);
        else
            groups.append({clip});
    }
    return groups;
}

JoinedExport::JoinedExport(const DetectionQueue& queue)
    : queue(queue) {
    connect(&joinedClips, SIGNAL(itemChanged(QListWidgetItem*)), SLOT(follow(QListWidgetItem*)));
}

JoinedExport::~JoinedExport() {
    joinedClips.disconnect(this);
    QList<Clip*> clips;
    for (int row = 0; row < joinedClips.count(); ++row)
        clips.append(static_cast<Clip*>(joinedClips.item(row)));
    Clip::leaveQueue(clips);
}

QString JoinedExport::exportJoined(const QList<Clip*>& clips) {
    QString refused;
    for (const QList<Clip*>& group : overlappingGroups(clips)) {
        if (!exportGroup(group))
            refused = group.first()->video->shortFileName();
    }
    return refused.isEmpty()
               ? QString()
               : tr("Clips of %1 can be joined when its search has ended").arg(refused);
}

void JoinedExport::follow(QListWidgetItem* item) {
    const auto& joined = *static_cast<Clip*>(item);
    const bool isExported = joined.status == Clip::Exported;
    for (const QPointer<Clip>& part : partsOf.value(item)) {
        if (!part || !part->outputPath.isEmpty())
            continue; // gone, or exported by itself meanwhile
        part->status = joined.status;
        part->setToolTip(
            isExported ? tr("Joined with others: %1").arg(QFileInfo(joined.outputPath).fileName())
                       : joined.toolTip());
        if (isExported)
            part->outputPath = joined.outputPath;
        part->updateText();
    }
}

/// False while clips may still come that would get the number, too.
bool JoinedExport::exportGroup(const QList<Clip*>& group) {
    Video* video = group.first()->video;
    if (group.size() == 1) {
        group.first()->exportClip(false);
        return true;
    }
    const QList<Video*> jobs = queue.sharersOf(*video);
    if (std::any_of(jobs.begin(), jobs.end(),
                    [this](const Video* job) { return queue.isHeld(*job); }))
        return false;
    auto* joined = new Clip(video, queue.takeClipNumber(*video), QImage(), group.first()->start,
                            endOf(group), group.first()->snapshotTime);
    begin(*joined, group);
    return true;
}

void JoinedExport::begin(Clip& joined, const QList<Clip*>& group) {
    Parts parts;
    for (Clip* clip : group) {
        clip->setData(joinedRole, joinedFileOf(joined));
        if (clip->isExportedOrWill()) // by itself
            continue;
        clip->outputPath.clear(); // of an export that has failed
        parts.append(clip);
    }
    partsOf.insert(&joined, parts);
    joinedClips.addItem(&joined);
    if (joined.status == Clip::NotExported) // else its job exports by itself
        joined.exportClip(false);
    follow(&joined);
}
