// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sessionstore.h"

#include "clipnames.h"
#include "jobjson.h"
#include "privatefolder.h"
#include "regularfile.h"
#include "video.h"
#include "writing.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cerrno>

namespace {

constexpr int longestPicturesMilliseconds = 500;
constexpr qint64 mostIndexBytes = qint64(1) << 30;

/// Left over by a program that was killed while it wrote.
void removeUnfinished(const QString& folder) {
    QDir directory(folder);
    const QStringList names = directory.entryList({QStringLiteral("index.*")}, QDir::Files);
    for (const QString& name : names)
        directory.remove(name);
}

/// Such a job is searched only when a person asks for it, with a region that the person sees.
void withdraw(JobRecord& job) {
    if (job.state <= Video::Running)
        job.state = Video::CancelRequested;
    job.roiRect.reset();
}

/// Above those of the files in a clip folder: a program that was killed may have exported clips
/// that it could not note any more, and their files must not be replaced.
int numberBehindFiles(const QString& clipFolder) {
    int behind = 0;
    QDirIterator files(clipFolder, QDir::Files | QDir::Hidden | QDir::System);
    while (files.hasNext()) {
        files.next();
        const QString name = files.fileInfo().completeBaseName();
        const int number = name.toInt();
        if (number >= 0 && number < mostClipNumber && name == clipNumber(number))
            behind = std::max(behind, number + 1);
    }
    return behind;
}

/// Why the last call has failed; never empty.
QString lastReason() {
    return qt_error_string(errno == 0 ? EACCES : errno);
}

/// As a person counts them: those that were searched again with other options count once.
int recordingsAmong(const QVector<JobRecord>& jobs) {
    QSet<QString> searchedLater; // their clip folders
    int recordings = 0;
    for (auto job = jobs.crbegin(); job != jobs.crend(); ++job) {
        const bool hasEnded = job->state >= Video::CancelRequested;
        if (!hasEnded || !searchedLater.contains(job->clipDirectory))
            ++recordings;
        if (job->state == Video::Finished)
            searchedLater.insert(job->clipDirectory);
    }
    return recordings;
}

bool isThere(const QString& path) {
    const QFileInfo file(path);
    return file.isFile() && file.size() > 0;
}

} // namespace

SessionStore::SessionStore(const QString& folder)
    : folder(folder)
    , lock(folder + QStringLiteral(".lock"))
    , pictures(folder + QStringLiteral("/pictures")) {}

LastSession SessionStore::look() {
    LastSession found;
    takeHold();
    found.isOthers = isOthers;
    if (!lock.isHeld())
        return found;
    found.failure = whyNotKept = privateFolderFlaw(folder);
    if (!found.failure.isEmpty())
        return found;
    removeUnfinished(folder);
    if (!QFileInfo::exists(indexPath()))
        return found;
    QFile file;
    QString flaw;
    const bool canBeRead =
        openRegularFile(indexPath(), file, flaw) && file.size() <= mostIndexBytes;
    found.state = canBeRead ? readSession(file.readAll(), last) : IndexState::Damaged;
    if (found.state != IndexState::Good)
        putAside(found);
    found.recordings = recordingsAmong(last.session.jobs);
    found.clips = last.session.clips.size();
    return found;
}

SavedSession SessionStore::read() {
    SavedSession session = last.session;
    for (int i = 0; i < session.jobs.size() && !isGivenUp; ++i) {
        session.jobs[i].mask = pictures.take(last.masks[i]);
        if (session.jobs[i].mask.isNull() && !last.masks[i].isEmpty())
            withdraw(session.jobs[i]);
        session.jobs[i].nextClipNumber = std::max(session.jobs[i].nextClipNumber,
                                                  numberBehindFiles(session.jobs[i].clipDirectory));
    }
    for (int i = 0; i < session.clips.size() && !isGivenUp; ++i) {
        SavedClip& clip = session.clips[i];
        clip.snapshot = pictures.take(last.snapshots[i]);
        clip.isFileMissing = !clip.outputPath.isEmpty() && !isThere(clip.outputPath);
    }
    return session;
}

QString SessionStore::save(const SavedSession& session) {
    QString failure = takeHold();
    if (isOthers || !failure.isEmpty())
        return failure;
    if (!whyNotKept.isEmpty())
        return whyNotKept;
    // It names what a person has recorded, and shows it: nobody else's business.
    for (const QString& place : {folder, folder + QStringLiteral("/pictures")}) {
        failure = makePrivateFolder(place);
        if (!failure.isEmpty())
            return failure;
    }
    const SessionIndex index = indexOf(session);
    failure = putPictures(index);
    return failure.isEmpty() && !isGivenUp ? write(index) : failure;
}

/// Not whole where it is given up.
SessionIndex SessionStore::indexOf(const SavedSession& session) {
    SessionIndex index{session, {}, {}};
    for (const JobRecord& job : session.jobs)
        index.masks.append(pictures.nameOf(job.mask));
    for (int i = 0; i < session.clips.size() && !isGivenUp; ++i)
        index.snapshots.append(pictures.nameOf(session.clips[i].snapshot));
    return index;
}

/// Thousands of clips can come at once, and their pictures take a while. A program that is killed
/// meanwhile loses pictures then, but no clip.
QString SessionStore::putPictures(const SessionIndex& index) {
    QString failure;
    for (const JobRecord& job : index.session.jobs)
        failure = failure.isEmpty() ? pictures.put(job.mask) : failure;
    QDeadlineTimer patience(longestPicturesMilliseconds);
    for (const SavedClip& clip : index.session.clips) {
        if (!failure.isEmpty() || isGivenUp)
            break;
        failure = pictures.put(clip.snapshot);
        if (failure.isEmpty() && patience.hasExpired()) {
            failure = write(index);
            patience = QDeadlineTimer(QDeadlineTimer::Forever);
        }
    }
    return failure;
}

/// Why there is no folder to write into; empty also where another program has it.
QString SessionStore::takeHold() {
    if (isOthers || lock.isHeld())
        return {};
    if (!QDir().mkpath(QFileInfo(folder).path()))
        return lastReason();
    const FolderLock::Outcome outcome = lock.tryHold();
    isOthers = outcome == FolderLock::Outcome::Others;
    return outcome == FolderLock::Outcome::Failed ? lastReason() : QString();
}

QString SessionStore::write(const SessionIndex& index) {
    const QByteArray bytes = sessionBytes(index);
    if (bytes == written)
        return {};
    QString failure =
        writeWholeFile(indexPath(), bytes, FolderLink::Refused, FileAccess::OwnersAlone);
    if (!failure.isEmpty())
        return failure;
    written = bytes;
    // Only now that nothing names them any more.
    const QStringList names = index.masks + index.snapshots;
    pictures.keepOnly(QSet<QString>(names.cbegin(), names.cend()), isGivenUp);
    return {};
}

void SessionStore::putAside(LastSession& found) {
    int number = 1;
    const auto path = [&] { return QStringLiteral("%1.damaged-%2").arg(folder).arg(number); };
    while (QFileInfo::exists(path()))
        ++number;
    errno = 0;
    if (QDir().rename(folder, path()))
        found.putAside = path();
    else
        found.failure = whyNotKept = lastReason();
}
