// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sessionstore.h"

#include "regularfile.h"
#include "video.h"
#include "writing.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

namespace {

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

/// Why the last call has failed; never empty.
QString lastReason() {
    return qt_error_string(errno == 0 ? EACCES : errno);
}

bool isThere(const QString& path) {
    const QFileInfo file(path);
    return file.isFile() && file.size() > 0;
}

} // namespace

SessionStore::SessionStore(const QString& folder)
    : folder(folder)
    , lock(folder + QStringLiteral(".lock"))
    , pictures(folder + QStringLiteral("/pictures")) {
    lock.setStaleLockTime(0); // only the end of its program ends it
}

LastSession SessionStore::look() {
    LastSession found;
    takeHold();
    found.isOthers = isOthers;
    if (!lock.isLocked())
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
    found.recordings = last.session.jobs.size();
    found.clips = last.session.clips.size();
    return found;
}

SavedSession SessionStore::read() {
    SavedSession session = last.session;
    for (int i = 0; i < session.jobs.size(); ++i) {
        session.jobs[i].mask = pictures.take(last.masks[i]);
        if (session.jobs[i].mask.isNull() && !last.masks[i].isEmpty())
            withdraw(session.jobs[i]);
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
    if (!QDir().mkpath(folder + QStringLiteral("/pictures")))
        return lastReason();
    SessionIndex index{session, {}, {}};
    failure = putPictures(index);
    return failure.isEmpty() && !isGivenUp ? write(index) : failure;
}

QString SessionStore::putPictures(SessionIndex& index) {
    QString failure;
    for (const JobRecord& job : qAsConst(index.session.jobs))
        index.masks.append(pictures.put(job.mask, failure));
    for (const SavedClip& clip : qAsConst(index.session.clips)) {
        if (isGivenUp)
            break;
        index.snapshots.append(pictures.put(clip.snapshot, failure));
    }
    return failure;
}

/// Why there is no folder to write into; empty also where another program has it.
QString SessionStore::takeHold() {
    if (isOthers || lock.isLocked())
        return {};
    if (!QDir().mkpath(QFileInfo(folder).path()))
        return lastReason();
    errno = 0;
    if (lock.tryLock(0))
        return {};
    isOthers = lock.error() == QLockFile::LockFailedError;
    return isOthers ? QString() : lastReason();
}

QString SessionStore::write(const SessionIndex& index) {
    const QByteArray bytes = sessionBytes(index);
    if (bytes == written)
        return {};
    const QString failure = writeWholeFile(indexPath(), bytes);
    if (!failure.isEmpty())
        return failure;
    written = bytes;
    // Only now that nothing names them any more.
    const QStringList names = index.masks + index.snapshots;
    pictures.keepOnly(QSet<QString>(names.cbegin(), names.cend()));
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
