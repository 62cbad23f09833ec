// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cameras.h"

#include <QHash>

#include <algorithm>

namespace {

constexpr double longestOnClock = 400.0 * 86400; ///< seconds that an axis is drawn for
constexpr int firstYear = 1900;
constexpr int lastYear = 2999;

QString folderOf(const QString& path) {
    return path.left(path.lastIndexOf('/'));
}

/// As it was named; of a name alone the folder in which that is.
QString cameraName(const ReportedRecording& recording) {
    const int slash = recording.name.lastIndexOf('/');
    if (slash > 0)
        return recording.name.left(slash);
    const QString folder = folderOf(recording.path);
    return folder.mid(folder.lastIndexOf('/') + 1);
}

QDateTime startOf(const ShownClip& shown) {
    return shown.recording->clockAt(shown.clip->start);
}

} // namespace

bool isOnClock(const ReportedRecording& recording) {
    const int year = recording.start.time.date().year();
    return recording.start.isKnown() && year >= firstYear && year <= lastYear &&
           recording.seconds > 0.0 && recording.seconds < longestOnClock;
}

QDateTime endOf(const ReportedRecording& recording) {
    return recording.clockAt(recording.seconds);
}

std::vector<PagePart> pageParts(const MotionReport& report) {
    std::vector<PagePart> parts;
    QHash<QString, int> cameras; // their places among the parts
    for (std::size_t i = 0; i < report.recordings.size(); ++i) {
        const ReportedRecording& recording = report.recordings[i];
        const QString folder = folderOf(recording.path);
        const bool isShownOnClock = isOnClock(recording);
        if (isShownOnClock && cameras.contains(folder)) {
            parts[std::size_t(cameras[folder])].camera.recordings.push_back(&recording);
            continue;
        }
        PagePart part;
        part.recording = int(i);
        part.id = (isShownOnClock ? "camera" : "recording") + QByteArray::number(int(i));
        if (isShownOnClock) {
            part.camera = {cameraName(recording), {&recording}};
            cameras.insert(folder, int(parts.size()));
        }
        if (isShownOnClock || !recording.clips.isEmpty())
            parts.push_back(part);
    }
    for (PagePart& part : parts)
        std::stable_sort(part.camera.recordings.begin(), part.camera.recordings.end(),
                         [](const ReportedRecording* left, const ReportedRecording* right) {
                             return left->start.time < right->start.time;
                         });
    return parts;
}

std::vector<ShownClip> clipsOf(const PagePart& part, const MotionReport& report) {
    std::vector<ShownClip> clips;
    if (!part.isCamera()) {
        const ReportedRecording& recording = report.recordings[std::size_t(part.recording)];
        for (const ReportedClip& clip : recording.clips)
            clips.push_back({&recording, &clip});
        return clips;
    }
    for (const ReportedRecording* recording : part.camera.recordings) {
        for (const ReportedClip& clip : recording->clips)
            clips.push_back({recording, &clip});
    }
    std::stable_sort(clips.begin(), clips.end(), [](const ShownClip& left, const ShownClip& right) {
        return startOf(left) < startOf(right);
    });
    return clips;
}
