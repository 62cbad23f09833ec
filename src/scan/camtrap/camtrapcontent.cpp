// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camtrapcontent.h"

#include "clocktext.h"
#include "escaping.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

QString digestOfPath(const QString& path, int digits) {
    const QByteArray digest =
        QCryptographicHash::hash(QFile::encodeName(path), QCryptographicHash::Sha256);
    return QString::fromLatin1(digest.toHex().left(digits));
}

/// Of the folder of a camera, or where there is none, of all.
QString nameOf(const QString& folder) {
    const QString name = QFileInfo(folder).fileName();
    return name.isEmpty() ? QStringLiteral("recordings") : name;
}

/// Nothing was recorded before the first picture.
QDateTime timeAt(const RecordingStart& start, double seconds) {
    return start.time.addMSecs(qRound64(std::max(0.0, seconds) * 1000.0));
}

/// To the millisecond.
QString rounded(double seconds) {
    return plainSeconds(double(qRound64(seconds * 1000.0)) / 1000.0);
}

/// Where an event lies in its recording.
QString whereIs(const CamtrapClip& clip, const QString& path) {
    return QStringLiteral("%1, %2 s to %3 s")
        .arg(printable(QFileInfo(path).fileName()), rounded(clip.start), rounded(clip.end));
}

void enclose(CamtrapDeployment& deployment, const QDateTime& start, const QDateTime& end) {
    deployment.start = std::min(deployment.start, start);
    deployment.end = std::max(deployment.end, end);
}

} // namespace

void CamtrapContent::add(const CamtrapRecording& recording, const CamtrapSite& site) {
    if (recordings.contains(recording.path))
        return;
    recordings[recording.path] = true;
    const RecordingStart& start = recording.start;
    double end = recording.seconds;
    for (const CamtrapClip& clip : recording.clips)
        end = std::max(end, clip.end);
    CamtrapDeployment& deployment = deploymentAt(site, start);
    enclose(deployment, start.time, timeAt(start, end));
    deploymentId = deployment.id;
    recordingId = digestOfPath(recording.path, 16);
    package.media.append(
        {recordingId, deploymentId, start.time, recording.path, false, recording.remark});
    for (const CamtrapClip& clip : recording.clips)
        addClip(recording, clip);
}

/// The site's, made with its first recording.
CamtrapDeployment& CamtrapContent::deploymentAt(const CamtrapSite& site,
                                                const RecordingStart& start) {
    auto known = deployments.find(site.folder);
    if (known == deployments.end()) {
        const QString name = nameOf(site.folder);
        const QString id = name + '-' + digestOfPath(site.folder, 8);
        known = deployments.insert(site.folder, package.deployments.size());
        package.deployments.append(
            {id, name, site.latitude, site.longitude, start.time, start.time, false});
    }
    CamtrapDeployment& deployment = package.deployments[known.value()];
    if (start.certainty != StartCertainty::Sure || !start.doubts.isEmpty())
        deployment.areTimesDoubtful = true;
    return deployment;
}

void CamtrapContent::addClip(const CamtrapRecording& recording, const CamtrapClip& clip) {
    const RecordingStart& start = recording.start;
    const QString id = recordingId + '-' + QString::number(clip.index);
    const QString where = whereIs(clip, recording.path);
    const auto addMedia = [&](const char* kind, const QString& file, double seconds) {
        if (!file.isEmpty())
            package.media.append({id + QLatin1String(kind), deploymentId, timeAt(start, seconds),
                                  QFileInfo(file).absoluteFilePath(), true, where});
    };
    package.observations.append(
        {id, deploymentId, timeAt(start, clip.start), timeAt(start, clip.end), where});
    addMedia("-clip", clip.exportFile, clip.start);
    addMedia("-picture", clip.snapshotFile, clip.snapshotTime);
}
