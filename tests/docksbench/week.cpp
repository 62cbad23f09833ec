// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "week.h"

#include "measurementcache.h"
#include "recordingstamp.h"
#include "video.h"

#include <QFile>

#include <algorithm>
#include <cmath>

namespace {

constexpr double secondsOfRecording = 8 * 3600.0;
constexpr double secondsOfClip = 7.0;
constexpr double picturesASecond = 25.0;
constexpr int wholeRecordings = 3; // of which every picture is kept
constexpr int keptRecordings = 60; // all would take minutes and gigabytes
const QSize pictureSize(320, 240);

/// No two are the same.
QImage picture() {
    static QRgb number = 0;
    QImage image(pictureSize, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(int(number % 360), 200, 200));
    image.setPixel(0, 0, number++);
    return image;
}

/// A visit every so many seconds.
Measurement madeUp(double secondsBetween, double rate) {
    Measurement measured;
    measured.hasPictures = true;
    measured.stream.codecName = "h264";
    measured.stream.description.size = pictureSize;
    const CellMap map(cellGridOf(pictureSize.width(), pictureSize.height()));
    for (int i = 1; i <= int(secondsOfRecording * rate); ++i) {
        const double time = i / rate;
        const bool isVisit = std::fmod(time, secondsBetween) < secondsOfClip;
        measured.series.scores.append(MotionScore{isVisit ? 3.0F : float(i % 40) / 100.0F});
        measured.series.times.append(time);
        measured.maps.append(map);
    }
    return measured;
}

} // namespace

Week::Week(const QString& folder, const QString& file, int recordings, int clips)
    : folder(folder)
    , clipsOfEach(std::max(clips / recordings, 1)) {
    for (int i = 0; i < recordings; ++i) {
        const QString path = QStringLiteral("%1/camera-%2.mp4").arg(folder).arg(i);
        QFile::copy(file, path); // where it is not there yet
        files.append(path);
    }
}

QList<Video*> Week::makeJobs() const {
    QList<Video*> jobs;
    for (const QString& path : files) {
        JobRecord record;
        record.fileName = path;
        record.clipDirectory = folder + "/clips/" + QString::number(jobs.size());
        record.state = Video::Finished;
        record.facts.seconds = secondsOfRecording;
        record.facts.pictures = pictureSize;
        record.facts.strongest = MotionScore{float(jobs.size() * 7 % 100) / 10.0F};
        jobs.append(new Video(record));
    }
    return jobs;
}

void Week::keep(const QList<Video*>& jobs) const {
    const Measurement whole = madeUp(secondsBetween(), picturesASecond);
    const Measurement sparse = madeUp(secondsBetween(), 1.0);
    for (int i = 0; i < std::min(jobs.size(), keptRecordings); ++i)
        MeasurementCache::instance().keep(*stampOf(jobs[i]->fileName), jobs[i]->detectionOptions(),
                                          i < wholeRecordings ? whole : sparse, {});
}

void Week::announceClips(Video& job) const {
    for (int number = 0; number < clipsOfEach; ++number) {
        const double start = number * secondsBetween();
        Q_EMIT job.newClip(number, picture(), start, start + secondsOfClip, start);
    }
}

double Week::secondsBetween() const {
    return secondsOfRecording / clipsOfEach;
}
