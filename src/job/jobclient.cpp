// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jobclient.h"

#include "encoderarguments.h"
#include "video.h"

JobClient::JobClient(Video& job)
    : job(job)
    , firstIndex(job.nextClipNumber)
    , teller(job.news) {
    if (job.search.deciding && job.search.deciding->joiningGap)
        merger.emplace(*job.search.deciding->joiningGap);
}

void JobClient::decideOn(int count, qint64 bytePosition) {
    awaited = count;
    awaitedPosition = bytePosition;
}

void JobClient::endClips() {
    if (merger)
        announce(merger->finish());
}

bool JobClient::isCancelled() {
    return job.state != Video::Running;
}

void JobClient::positionChanged(qint64 bytePosition, bool isAtEnd) {
    if (isAtEnd && !isEndHeld)
        finish(bytePosition);
    else
        job.bytesRead = bytePosition;
}

void JobClient::opened(const StreamFacts& stream) {
    job.intraCodec = isIntraCodec(stream.codecName);
    if (!timer.isValid())
        timer.start();
    teller.open(stream);
}

void JobClient::frameProcessed(const FrameReport& frame) {
    job.elapsedSeconds = int(timer.elapsed() / 1000);
    ++pictures;
    teller.add(frame);
    if (merger)
        announce(merger->passBy(frame.earliestStart));
    if (pictures == awaited && !isCancelled())
        finish(awaitedPosition);
}

void JobClient::clipFound(const DetectedClip& clip) {
    announce(merger ? merger->add(clip) : clip);
}

void JobClient::announce(const std::optional<DetectedClip>& clip) {
    if (clip)
        Q_EMIT job.newClip(firstIndex + clip->index, clip->snapshot, clip->start, clip->end,
                           clip->snapshotTime);
}

void JobClient::finish(qint64 bytePosition) {
    job.state = Video::Finished;
    job.bytesRead = bytePosition;
}
