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

/// As the search found it.
std::optional<RecordingStamp> stampIn(const Video& job) {
    const std::optional<SearchedFile>& file = job.news.facts().file;
    return file ? std::make_optional(file->stamp) : std::nullopt;
}

/// One that could not be read was nothing that could change.
bool isWatched(const Video& job) {
    return job.hasEnded() && job.state != Video::Failed;
}

} // namespace

/// What is to be looked at in one go.
struct RecordingsWatch::Look {
    struct File {
        Video* job; ///< a name here, and not looked at
        QString path;
        qint64 size;                       ///< so many bytes at least, when it was searched
        std::optional<RecordingStamp> was; ///< what it was then; nothing: not known
    };
    std::vector<File> files;
};

/// Which files there are, and what they were when they were searched, or else when they were looked
/// at for the first time.
class RecordingsWatch::Files {
public:
    FilePresence presence(const Look::File& file) {
        auto known = files.find(file.job);
        if (known == files.end()) {
            const auto stamp = file.was ? file.was : stampOf(file.path);
            if (!stamp)
                return FilePresence::Gone;
            if (!file.was && QFileInfo(file.path).size() < file.size)
                return FilePresence::Changed;
            const WatchedRecording watched(*stamp, WatchedRecording::Measured::Now);
            known = files.emplace(file.job, watched).first;
        }
        return presenceOf(known->second);
    }

private:
    std::map<const Video*, WatchedRecording> files;
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
            wanted->files.push_back({job, job->fileName, job->fileSize, stampIn(*job)});
    }
    if (wanted->files.empty())
        return;
    if (jobs.size() > 1)
        looking = wanted;
    thread.run(this, [this, wanted, files = files](const GuiCall& callBack) {
        for (const Look::File& file : wanted->files) {
            const FilePresence presence = files->presence(file);
            callBack([this, job = file.job, presence] { Q_EMIT found(job, presence); });
        }
    });
}
