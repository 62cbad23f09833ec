// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "likeliestfirst.h"

#include "detectionqueue.h"
#include "pieceoutlook.h"
#include "video.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>
#include <limits>

namespace {

constexpr int longestLookMilliseconds = 60000;

PieceOutlook outlookOf(const QString& fileName, const NewestWork::IsInterrupted& isInterrupted) {
    if (!QFileInfo(fileName).isFile())
        return {};
    QElapsedTimer timer;
    timer.start();
    return lookAtPieces(fileName, std::numeric_limits<double>::infinity(), [&] {
        return isInterrupted() || timer.elapsed() > longestLookMilliseconds;
    });
}

} // namespace

LikeliestFirst::LikeliestFirst(DetectionQueue& queue, QObject* parent)
    : QObject(parent)
    , queue(queue) {
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(lookSoon()));
    connect(&reading, SIGNAL(failed()), SLOT(lookOn()));
}

LikeliestFirst::~LikeliestFirst() {
    queue.setChooser({});
}

void LikeliestFirst::setOn(bool isWanted) {
    isOn = isWanted;
    if (isOn) {
        queue.setChooser([this](const QList<Video*>& jobs) { return likeliestOf(jobs, known); });
        lookOn();
        return;
    }
    queue.setChooser({});
    if (reading.isBusy())
        seen.remove(inHand);
    reading.cancel();
}

/// Once the first of those that were added is started, which is not to be looked at.
void LikeliestFirst::lookSoon() {
    QMetaObject::invokeMethod(this, "lookOn", Qt::QueuedConnection);
}

void LikeliestFirst::lookOn() {
    Video* job = isOn && !reading.isBusy() ? nextUnseen() : nullptr;
    if (!job)
        return;
    inHand = job;
    seen.insert(job);
    reading.start([this, fileName = job->fileName](const auto& isInterrupted) {
        const PieceOutlook outlook = outlookOf(fileName, isInterrupted);
        return NewestWork::Ending([this, outlook] { take(outlook); });
    });
}

Video* LikeliestFirst::nextUnseen() const {
    const QList<Video*>& jobs = queue.jobs();
    const auto next = std::find_if(jobs.cbegin(), jobs.cend(), [this](const Video* job) {
        return job->state == Video::Waiting && !queue.isHeld(*job) && !seen.contains(job);
    });
    return next == jobs.cend() ? nullptr : *next;
}

void LikeliestFirst::take(const PieceOutlook& outlook) {
    if (!outlook.promises.isEmpty())
        known.insert(inHand, outlook.promises.first());
    lookOn();
}
