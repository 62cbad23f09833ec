// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "partreader.h"

#include <QFile>

#include <utility>

class PartReader::Progress : public DetectionProgress {
public:
    explicit Progress(std::function<bool()> isCancelled)
        : isAsked(std::move(isCancelled)) {}

    bool isCancelled() override { return isAsked(); }
    void positionChanged(qint64 /*bytePosition*/, bool /*isAtEnd*/) override {}

private:
    std::function<bool()> isAsked;
};

PartReader::PartReader(const DetectionOptions& wanted, std::function<bool()> isCancelled)
    : options(wanted)
    , progress(std::make_unique<Progress>(std::move(isCancelled))) {}

PartReader::~PartReader() = default;

std::unique_ptr<PartDetection> PartReader::measure(const QString& path,
                                                   const ScoutedRecording& scouted,
                                                   RecordingPart part, int threads) {
    if (path != opened || threads != options.threads) {
        options.threads = threads;
        FramePlan plan;
        plan.times = options.times;
        plan.threads = options.threads;
        frames.emplace(QFile::encodeName(path), plan, [this] { return progress->isCancelled(); });
        opened = path;
    }
    const bool isThere =
        frames->isOpen() && frames->goToPart(scouted.parts[part.index - 1], scouted.packets,
                                             scouted.delay, scouted.firstTime);
    if (!isThere) {
        opened.clear();
        return nullptr;
    }
    auto detection = std::make_unique<PartDetection>(options, part, *progress);
    lastEnd = detection->run(*frames);
    return detection;
}
