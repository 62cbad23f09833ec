// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sessionrestore.h"

#include "captiondelegate.h"
#include "clip.h"
#include "cliplistwidget.h"
#include "clipnames.h"
#include "video.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

constexpr int sliceMilliseconds = 20;

bool isUnfinished(int status) {
    return status == Clip::Exporting || status == Clip::Queued;
}

/// Whether an encoder that outlives its program may still write to the clip's file. One whose
/// recording is gone is the last that there will be.
bool isInTheWay(const SavedClip& saved, const Video& job) {
    const QFileInfo file(saved.outputPath);
    return saved.status == Clip::Exporting && file.path() == job.clipDirectory &&
           file.completeBaseName() == clipNumber(saved.index) && QFileInfo(job.fileName).isFile();
}

/// What is shown of an export until it goes on.
Clip::ExportState stateOf(const SavedClip& saved) {
    if (isUnfinished(saved.status))
        return {Clip::NotExported, saved.outputPath, {}};
    if (saved.status == Clip::Exported && saved.isFileMissing)
        return {Clip::NotExported, saved.outputPath,
                SessionRestore::tr("It was exported, but its file is no longer there")};
    return {saved.status, saved.outputPath, saved.note};
}

} // namespace

SessionRestore::SessionRestore(const SavedSession& session, ClipListWidget& list,
                               ResumedSearches& resumed)
    : session(session)
    , list(list)
    , resumed(resumed) {
    timer.start(0, this);
}

SessionRestore::~SessionRestore() {
    qDeleteAll(jobs);
}

void SessionRestore::timerEvent(QTimerEvent*) {
    const QDeadlineTimer deadline(sliceMilliseconds);
    bool isMore = true;
    while (isMore && !deadline.hasExpired())
        isMore = step();
    Q_EMIT list.itemSelectionChanged(); // which of the window's actions are possible
    if (isMore)
        return;
    timer.stop();
    resumed.add(std::exchange(jobs, {}), clipsOf);
    Q_EMIT done();
}

/// False when there is nothing left to be listed and exported.
bool SessionRestore::step() {
    if (jobs.size() < session.jobs.size())
        jobs.append(new Video(session.jobs[jobs.size()]));
    else if (listedClips < session.clips.size())
        addClip(session.clips[listedClips++]);
    else if (!toBeExported.isEmpty()) {
        if (Clip* clip = toBeExported.takeFirst())
            clip->exportClip(false);
    } else
        return false;
    return true;
}

void SessionRestore::addClip(const SavedClip& saved) {
    Video* job = jobs[saved.job];
    auto* clip = new Clip(job, saved.index, saved.snapshot, saved.start, saved.end,
                          saved.snapshotTime, stateOf(saved));
    clip->strength = saved.strength;
    if (!saved.joinedFile.isEmpty() && !isUnfinished(saved.status)) // else it gets its own file
        clip->setData(joinedRole, saved.joinedFile);
    list.insertItem(list.count(), clip);
    clipsOf[job].append(clip);
    if (!isUnfinished(saved.status))
        return;
    if (isInTheWay(saved, *job))
        QFile::remove(saved.outputPath);
    toBeExported.append(clip);
}
