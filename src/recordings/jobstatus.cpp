// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jobstatus.h"

#include "failuretexts.h"
#include "video.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace {

/// What is said of jobs, in the window's language.
class Words {
    Q_DECLARE_TR_FUNCTIONS(JobStatus)
};

int percentRead(const Video& job) {
    const qint64 read = std::clamp<qint64>(job.bytesRead, 0, job.fileSize);
    return job.fileSize > 0 ? int(double(read) * 100.0 / double(job.fileSize)) : 0;
}

JobStatus::Kind endOf(const Video& job, int clips) {
    if (job.state == Video::Failed)
        return JobStatus::Unreadable;
    if (job.state == Video::CancelRequested)
        return JobStatus::Cancelled;
    if (clips > 0)
        return JobStatus::WithClips;
    return job.nextClipNumber > job.firstClipNumber ? JobStatus::Found : JobStatus::NoMotion;
}

JobStatus::Kind kindOf(const Video& job, int clips) {
    switch (job.state) {
    case Video::Waiting:
        return JobStatus::Waiting;
    case Video::Running:
        return JobStatus::Searching;
    default:
        return endOf(job, clips);
    }
}

QString clipsText(int clips) {
    return clips == 1 ? Words::tr("1 clip") : Words::tr("%1 clips").arg(clips);
}

QString unreadableText(const QString& reason) {
    return reason.isEmpty() ? Words::tr("unreadable") : Words::tr("unreadable: %1").arg(reason);
}

QString kindText(const JobStatus& status) {
    switch (status.kind) {
    case JobStatus::WithClips:
        return clipsText(status.clips);
    case JobStatus::Found:
        return Words::tr("clips removed");
    case JobStatus::NoMotion:
        return Words::tr("no motion");
    case JobStatus::Searching:
        return Words::tr("searching %1 %").arg(status.percent);
    case JobStatus::Waiting:
        return Words::tr("waiting");
    case JobStatus::Cancelled:
        return Words::tr("cancelled");
    case JobStatus::Unreadable:
        return unreadableText(status.reason);
    case JobStatus::SearchedAgain:
        return Words::tr("searched again");
    }
    return {};
}

} // namespace

bool JobStatus::operator==(const JobStatus& other) const {
    return kind == other.kind && percent == other.percent && clips == other.clips &&
           isReadToItsEnd == other.isReadToItsEnd && file == other.file && reason == other.reason;
}

JobStatus statusOf(const Video& job, int clips, FilePresence file, bool isReplaced) {
    JobStatus status;
    const JobFacts& facts = job.news.facts();
    status.kind = isReplaced ? JobStatus::SearchedAgain : kindOf(job, clips);
    status.percent = status.kind == JobStatus::Searching ? percentRead(job) : 0;
    status.clips = clips;
    if (status.kind <= JobStatus::NoMotion)
        status.isReadToItsEnd = facts.isReadToItsEnd && !facts.damage.isThere();
    status.file = file;
    status.hasClipFolder = !job.clipDirectory.isEmpty();
    if (status.kind == JobStatus::Unreadable)
        status.reason = translatedFailure(facts.error);
    return status;
}

/// What is wrong with the file comes first, since the end is often not seen.
QString statusText(const JobStatus& status) {
    QStringList parts;
    if (status.file == FilePresence::Gone)
        parts += Words::tr("file is gone");
    if (status.file == FilePresence::Changed)
        parts += Words::tr("file has changed since");
    parts += kindText(status);
    if (!status.isReadToItsEnd)
        parts += Words::tr("not read to its end");
    return parts.join(QStringLiteral(", "));
}

void JobTotals::add(const JobStatus& status) {
    if (status.kind == JobStatus::SearchedAgain)
        return;
    ++all;
    withClips += status.kind == JobStatus::WithClips ? 1 : 0;
    without += status.kind == JobStatus::Found || status.kind == JobStatus::NoMotion ? 1 : 0;
    unreadable += status.kind == JobStatus::Unreadable ? 1 : 0;
    cancelled += status.kind == JobStatus::Cancelled ? 1 : 0;
    unfinished += status.hasEnded() ? 0 : 1;
}

QString JobTotals::text() const {
    QStringList parts;
    const auto append = [&parts](int count, const QString& text) {
        if (count > 0)
            parts += text.arg(count);
    };
    append(withClips, Words::tr("%1 with clips"));
    append(without, Words::tr("%1 without"));
    append(unreadable, Words::tr("%1 unreadable"));
    append(cancelled, Words::tr("%1 cancelled"));
    append(unfinished, Words::tr("%1 to go"));
    if (parts.isEmpty())
        return {};
    return Words::tr("%1: %2").arg(QString::number(all), parts.join(QStringLiteral(", ")));
}
