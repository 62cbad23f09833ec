// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionqueue.h"
#include "video.h"

#include <QTemporaryDir>

/// Jobs that have ended as somebody says, without any recording.
class EndedJobs {
public:
    Video* make(const QString& name, int state, const JobFacts& facts = {}) {
        JobRecord record;
        record.fileName = folder.filePath(name);
        record.clipDirectory = folder.filePath(name + "_clips");
        record.state = state;
        record.facts = facts;
        return new Video(record);
    }

    Video* add(const QString& name, int state, const JobFacts& facts = {}) {
        Video* job = make(name, state, facts);
        queue.add({job});
        return job;
    }

    QTemporaryDir folder;
    DetectionQueue queue;
};

inline JobFacts factsOf(double seconds, float strongest, const QString& error = {}) {
    JobFacts facts;
    facts.seconds = seconds;
    facts.strongest = {strongest};
    facts.error = error;
    return facts;
}
