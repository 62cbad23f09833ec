// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingswatch.h"

#include "detectionqueue.h"
#include "video.h"
#include "watchedrecording.h"

#include <QFileInfo>

#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr int intervalMilliseconds = 60000;

FilePresence presenceOf(WatchedRecording& file) {
    switch (file.state()) {
    case WatchedRecording::State::Same:
        return FilePresence::Same;
    case WatchedRecording::State::Gone:
        return FilePresence::Gone;
    default:
        return FilePresence::Changed;
    }
}

/// One that could not be read was nothing that could change.
bool isWatched(const Video& job) {
    return job.hasEnded() && job.state != Video::Failed;
}

} // namespace

/// Which files there are, and what they were when they were looked at for the first time.
class RecordingsWatch::Files {
public:
    /// `size`: at least so many bytes, as when it was searched, maybe in an earlier run.
    FilePresence presence(const Video* job, const QString& path, qint64 size) {
        auto known = files.find(job);
        if (known != files.end())
            return presenceOf(known->second);
        const auto stamp = stampOf(path);
        if (!stamp)
            return FilePresence::Gone;
        if (QFileInfo(path).size() < size)
            return FilePresence::Changed;
        files.emplace(job, WatchedRecording(*stamp, WatchedRecording::Measured::Now));
        return FilePresence::Same;
    }

private:
    std::map<const Video*, WatchedRecording> files; ///< the jobs are names, and not looked at
};

/// What is to be looked at in one go.
struct RecordingsWatch::Look {
    struct File {
        Video* job;
        QString path;
        qint64 size;
    };
    std::vector<File> files;
};

RecordingsWatch::RecordingsWatch(DetectionQueue& queue, QObject* parent)
    : QObject(parent)
    , queue(queue)
    , files(std::make_shared<Files>()) {
    timer.setInterval(intervalMilliseconds);
    connect(&timer, SIGNAL(timeout()), SLOT(checkAll()));
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(watch(QList<Video*>)));
}

RecordingsWatch::~RecordingsWatch() = default;

void RecordingsWatch::check(Video* job) {
    if (job && isWatched(*job))
        look({job});
}

void RecordingsWatch::setWanted(bool isWanted) {
    if (!isWanted) {
        timer.stop();
        return;
    }
    timer.start();
    checkAll();
}

void RecordingsWatch::watch(const QList<Video*>& jobs) {
    for (Video* job : jobs)
        connect(job, SIGNAL(resultReady()), SLOT(stampEnded()));
}

/// One look at all of them at a time: a disk may be slow.
void RecordingsWatch::checkAll() {
    if (looking.expired())
        look(queue.jobs());
}

/// What a recording is at the end of its search is what it was searched as.
void RecordingsWatch::stampEnded() {
    if (auto* job = qobject_cast<Video*>(sender()))
        check(job);
}

void RecordingsWatch::look(const QList<Video*>& jobs) {
    const auto wanted = std::make_shared<Look>();
    for (Video* job : jobs) {
        if (isWatched(*job))
            wanted->files.push_back({job, job->fileName, job->fileSize});
    }
    if (wanted->files.empty())
        return;
    if (jobs.size() > 1)
        looking = wanted;
    thread.run(this, [this, wanted, files = files](const GuiCall& callBack) {
        for (const Look::File& file : wanted->files) {
            const FilePresence presence = files->presence(file.job, file.path, file.size);
            callBack([this, job = file.job, presence] { Q_EMIT found(job, presence); });
        }
    });
}
