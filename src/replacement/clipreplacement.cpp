// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipreplacement.h"

#include "clip.h"
#include "clipexchange.h"
#include "clipplaces.h"
#include "detectionqueue.h"
#include "heldview.h"
#include "recordingdecision.h"
#include "video.h"

#include <QListWidget>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

constexpr int sliceMilliseconds = 20;
constexpr std::size_t mostExchanges = 20;
constexpr int mostKeptClips = 200; ///< of all but the newest one, half a megabyte each

} // namespace

ClipReplacement::ClipReplacement(QListWidget& list, DetectionQueue& queue, QObject* parent)
    : QObject(parent)
    , list(list)
    , queue(queue) {
    undoTimer.setInterval(0);
    connect(&undoTimer, SIGNAL(timeout()), SLOT(putBack()));
    connect(&work, SIGNAL(failed()), SLOT(giveUp()));
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(forgetSuperseded()));
}

ClipReplacement::~ClipReplacement() {
    drop([](const Task&) { return true; });
}

void ClipReplacement::use(const QList<Video*>& jobs, const DecidingOptions& options) {
    drop([&jobs](const Task& task) { return jobs.contains(task.video); });
    const auto exchange = std::make_shared<ClipExchange>(list, discarded);
    std::deque<Task> added;
    for (Video* video : jobs) {
        if (queue.isOver(*video) && video->state != Video::Failed && !video->isSuperseded)
            added.push_back({video, options, exchange, nullptr, {}});
    }
    if (added.empty())
        return;
    // Behind the one that is at work.
    const auto place = tasks.empty() ? tasks.begin() : std::next(tasks.begin());
    tasks.insert(place, added.begin(), added.end());
    exchanges.push_back(exchange);
    report.expect(int(added.size()));
    forgetOldest();
    Q_EMIT changed();
    goOn();
}

void ClipReplacement::undo() {
    if (exchanges.empty())
        return;
    if (isBusy())
        Q_EMIT told({}); // what was told of its progress
    undone.push_back(exchanges.back());
    exchanges.pop_back();
    drop([this](const Task& task) { return task.exchange == undone.back(); });
    report = {};
    {
        const HeldView view(list, heldClip);
        undone.back()->undo();
    }
    undoTimer.start();
    putBack();
}

/// Thousands of clips take longer than a person should wait for the window.
void ClipReplacement::putBack() {
    {
        const HeldView view(list, heldClip);
        if (!undone.front()->putBackSome(queue.jobs(), sliceMilliseconds))
            undone.pop_front();
    }
    if (undone.empty())
        undoTimer.stop();
    Q_EMIT changed();
    goOn();
}

/// Does the next step of the first recording that is not done yet, once the list is as it was
/// before what is taken back.
void ClipReplacement::goOn() {
    if (work.isBusy() || !undone.empty())
        return;
    while (!tasks.empty() && tasks.front().isDecided && tasks.front().missing.empty())
        endTask();
    if (tasks.empty())
        return tell(report.end());
    if (tasks.front().isDecided)
        findPicture(tasks.front());
    else
        decide(tasks.front());
}

void ClipReplacement::giveUp() {
    if (tasks.empty())
        return;
    leave(tr("%1: there is no thread or no memory to replace its clips")
              .arg(tasks.front().video->shortFileName()));
    endTask();
    goOn();
}

void ClipReplacement::leave(const QString& reason) {
    report.takeLeft(reason);
    Q_EMIT told(reason);
}

void ClipReplacement::decide(Task& task) {
    tell(report.progress());
    task.decision = std::make_shared<RecordingDecision>(*task.video, task.options);
    work.start([this, decision = task.decision](const NewestWork::IsInterrupted&) {
        decision->decide();
        return [this] { takeDecision(); };
    });
}

void ClipReplacement::takeDecision() {
    Task& task = tasks.front();
    task.isDecided = true;
    const QString hindrance = hindranceOf(task);
    if (hindrance.isEmpty())
        exchangeClips(task);
    else
        leave(tr("%1: %2, and its clips stay as they are")
                  .arg(task.video->shortFileName(), hindrance));
    goOn();
}

/// Why the clips of a recording cannot be replaced, for a person; empty if they can.
QString ClipReplacement::hindranceOf(const Task& task) const {
    const QList<Video*> sharers = queue.sharersOf(*task.video);
    if (!std::all_of(sharers.begin(), sharers.end(),
                     [this](const Video* video) { return queue.isOver(*video); }))
        return tr("it is being searched again"); // and the numbers to come are taken
    if (!task.decision->flaw().isEmpty())
        return task.decision->flaw();
    return task.decision->clips() ? QString() : tr("nothing is kept to decide on");
}

void ClipReplacement::exchangeClips(Task& task) {
    QVector<DetectedClip> missing = *task.decision->clips();
    QList<Clip*> leaving;
    const QList<Clip*> listed = clipsOf(*task.video);
    for (Clip* clip : listed) {
        const auto same =
            std::find_if(missing.begin(), missing.end(), [clip](const DetectedClip& other) {
                return hasTimes(*clip, other.start, other.end);
            });
        if (same != missing.end())
            missing.erase(same);
        else if (!clip->isExportedOrWill())
            leaving.append(clip);
    }
    task.exchange->setOptions(*task.video, task.options);
    task.isSeen = std::any_of(listed.begin(), listed.end(),
                              [this](const Clip* clip) { return ::isSeen(list, *clip); });
    {
        const auto view = viewBeside(task);
        task.exchange->takeOut(leaving);
    }
    report.takeReplaced();
    for (DetectedClip& clip : missing) {
        clip.index = queue.takeClipNumber(*task.video);
        task.missing.push_back(clip);
    }
    Q_EMIT changed();
}

QList<Clip*> ClipReplacement::clipsOf(const Video& video) const {
    QList<Clip*> clips = clipsIn(list);
    clips.erase(std::remove_if(clips.begin(), clips.end(),
                               [&video](const Clip* clip) { return clip->video != &video; }),
                clips.end());
    return clips;
}

void ClipReplacement::findPicture(Task& task) {
    work.start([this, decision = task.decision,
                clip = task.missing.front()](const NewestWork::IsInterrupted&) {
        const QImage picture = decision->picture(clip);
        return [this, picture] { listNext(picture); };
    });
}

void ClipReplacement::listNext(const QImage& picture) {
    Task& task = tasks.front();
    const DetectedClip found = task.missing.front();
    task.missing.pop_front();
    const QScopedValueRollback<bool> notByItself(task.video->autoExport, false);
    auto* clip =
        new Clip(task.video, found.index, picture, found.start, found.end, found.snapshotTime);
    {
        const auto view = viewBeside(task);
        task.exchange->putIn(*clip, queue.jobs());
    }
    Q_EMIT changed();
    goOn();
}

/// Clips of a job that another one stands for would be listed beside those that it finds.
void ClipReplacement::forgetSuperseded() {
    drop([](const Task& task) { return task.video->isSuperseded; });
    for (const auto& exchange : exchanges)
        exchange->forgetSuperseded();
    for (const auto& exchange : undone)
        exchange->forgetSuperseded();
    forgetEmpty();
    goOn();
}

/// A use that has changed nothing cannot be taken back.
void ClipReplacement::endTask() {
    tasks.pop_front();
    forgetEmpty();
}

/// Null for those clips that a person looks at: the new ones are to be seen.
std::unique_ptr<HeldView> ClipReplacement::viewBeside(const Task& task) {
    return task.isSeen ? nullptr : std::make_unique<HeldView>(list, heldClip);
}

void ClipReplacement::tell(const QString& notice) {
    if (!notice.isEmpty())
        Q_EMIT told(notice);
}

void ClipReplacement::forgetEmpty() {
    const auto isVain = [this](const std::shared_ptr<ClipExchange>& exchange) {
        return exchange->isEmpty() &&
               std::none_of(tasks.begin(), tasks.end(),
                            [&](const Task& task) { return task.exchange == exchange; });
    };
    const auto vain = std::remove_if(exchanges.begin(), exchanges.end(), isVain);
    if (vain == exchanges.end())
        return;
    exchanges.erase(vain, exchanges.end());
    Q_EMIT changed();
}

template<class IsDropped>
void ClipReplacement::drop(const IsDropped& isDropped) {
    for (const Task& task : tasks) {
        if (isDropped(task) && task.decision)
            task.decision->cancel();
    }
    if (!tasks.empty() && isDropped(tasks.front()))
        work.cancel();
    const auto dropped = std::remove_if(tasks.begin(), tasks.end(), isDropped);
    report.expect(-int(std::distance(dropped, tasks.end())));
    tasks.erase(dropped, tasks.end());
}

/// So that what can be taken back takes so much memory at the most, but always the newest.
void ClipReplacement::forgetOldest() {
    int kept = 0;
    for (auto exchange = exchanges.rbegin(); exchange != exchanges.rend(); ++exchange)
        kept += (*exchange)->keptClips();
    while (exchanges.size() > 1 && (exchanges.size() > mostExchanges || kept > mostKeptClips)) {
        kept -= exchanges.front()->keptClips();
        exchanges.pop_front();
    }
}
