// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes a report of recordings that were never made: makereport FOLDER CLIPS [clock]. For
// scripts/test-report.
//
// The clips are spread over nights of eight hours, and their strengths grow from 1 in the order of
// a shuffle, so that each is there once. Nights are on no clock, with 500 clips at the most; with
// "clock" they are 30, one behind the other, each in eight files of an hour but for the third one.

#include "filenamecodec.h"
#include "foldercheck.h"
#include "reportfolder.h"
#include "scanreport.h"

#include <QCoreApplication>
#include <QDir>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>

namespace {

constexpr double picturesPerSecond = 5.0;
constexpr int mostClips = 500; ///< of a night
constexpr int clockDays = 30;
constexpr int clockHours = 8; ///< of each, from 22:00 on

/// From 1 on, in steps so that the last one is about 9.
std::vector<float> shuffledStrengths(int count) {
    std::vector<float> strengths(std::size_t(count), 1.0F);
    for (int i = 0; i < count; ++i)
        strengths[std::size_t(i)] += 8.0F * float(i) / float(count);
    std::shuffle(strengths.begin(), strengths.end(), std::mt19937(1));
    return strengths;
}

QImage picture(int number) {
    QImage image(320, 180, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(number * 37 % 360, 90, 150));
    QPainter painter(&image);
    painter.fillRect(number * 13 % 280, 40 + number * 7 % 100, 40, 30, Qt::white);
    return image;
}

/// Clips of `count` times in a recording, evenly spread; the first begins a step into it.
class Night {
public:
    Night(const ScanReport& report, Recording& recording, double seconds)
        : report(report)
        , recording(recording)
        , nightSeconds(seconds) {}

    void tell(const std::vector<float>& strengths) {
        const double step = nightSeconds / double(strengths.size() + 1);
        for (int i = 0; i < int(nightSeconds * picturesPerSecond); ++i) {
            const double time = i / picturesPerSecond;
            const int clip = int(time / step) - 1;
            const bool isMoving = clip >= 0 && std::fmod(time, step) < lengthOf(clip);
            const float noise = 0.1F + 0.05F * float(std::sin(time * 3.0));
            recording.reported->add(time, {isMoving ? strengths[std::size_t(clip)] : noise});
        }
        for (int i = 0; i < int(strengths.size()); ++i)
            add(i, step * (i + 1), strengths[std::size_t(i)]);
        recording.reported->state = SearchState::Done;
    }

private:
    static double lengthOf(int clip) { return 5.0 + clip % 30; }

    void add(int index, double start, float strength) {
        ClipLine line{recording, {}, {}};
        line.clip = {index,       picture(recording.place * mostClips + index),
                     start,       start + lengthOf(index),
                     start + 2.0, {strength}};
        const QString failure = report.addClip(line);
        if (!failure.isEmpty())
            std::fprintf(stderr, "%s\n", qPrintable(failure));
        ReportedClip& shown = recording.reported->clips.last();
        const int number = recording.place * mostClips + index;
        shown.box = {number * 13 % 280 / 320.0, (40 + number * 7 % 100) / 180.0, 0.125, 0.17};
        CellBits moving(cellGridOf(1280, 720));
        for (int row = int(shown.box.top() * 90); row < int(shown.box.bottom() * 90); ++row) {
            for (int column = int(shown.box.left() * 160); column < int(shown.box.right() * 160);
                 ++column)
                moving.add(column, row);
        }
        recording.reported->map.add(moving, lengthOf(index));
    }

    const ScanReport& report;
    Recording& recording;
    double nightSeconds;
};

ScanOptions optionsFor(const QString& folder, const QStringList& nights) {
    ScanOptions options;
    options.reportDirectory = folder;
    options.inputs.videos = nights;
    options.inputs.videos += QStringLiteral("camera/quiet.mp4");
    options.inputs.videos += QFile::decodeName("camera/unread\xff</script>.mp4");
    return options;
}

QStringList nightNames(int nights) {
    QStringList names;
    for (int i = 0; i < nights; ++i)
        names += QStringLiteral("camera %1/<b>night &\"day\".mp4").arg(i);
    return names;
}

/// The hour that a file on the clock begins with; in the third of each night nothing is recorded.
QDateTime startOf(int file) {
    const int hour = file % (clockHours - 1);
    const QDateTime night(QDate(2026, 11, 1).addDays(file / (clockHours - 1)), QTime(22, 0),
                          Qt::UTC);
    return night.addSecs(3600 * (hour < 2 ? hour : hour + 1));
}

QStringList hourNames() {
    QStringList names;
    for (int i = 0; i < clockDays * (clockHours - 1); ++i)
        names += QStringLiteral("camera </script>/%1.mp4")
                     .arg(startOf(i).toString(QStringLiteral("yyyyMMdd-HHmmss")));
    return names;
}

} // namespace

int main(int argc, char* argv[]) {
    installFileNameCodec();
    const QCoreApplication application(argc, argv);
    const bool isOnClock = argc == 4 && QByteArray(argv[3]) == "clock";
    if (argc != 3 && !isOnClock)
        return 2;
    const int clips = QByteArray(argv[2]).toInt();
    const QStringList names =
        isOnClock ? hourNames() : nightNames((clips + mostClips - 1) / mostClips);
    const int nights = names.size();
    const ScanOptions options = optionsFor(QString::fromLocal8Bit(argv[1]), names);
    if (!prepareFolder(reportPictureFolder(options.reportDirectory)).isEmpty())
        return 1;
    std::vector<Recording> recordings = recordingsOf(options.inputs.videos);
    const ScanReport report(options, recordings);
    const std::vector<float> strengths = shuffledStrengths(clips);
    for (int i = 0; i < nights; ++i) {
        const auto placeOf = [&](int night) {
            return strengths.begin() + (isOnClock ? std::ptrdiff_t(clips) * night / nights
                                                  : std::min(clips, night * mostClips));
        };
        Recording& recording = recordings[std::size_t(i)];
        if (isOnClock)
            recording.reported->start = {startOf(i), StartSource::Name, StartCertainty::Sure, {}};
        Night(report, recording, isOnClock ? 3600.0 : 8 * 3600.0)
            .tell(std::vector<float>(placeOf(i), placeOf(i + 1)));
    }
    ReportedRecording& quiet = *recordings[std::size_t(nights)].reported;
    quiet.add(60.0, {0.2F});
    quiet.state = SearchState::Done;
    ReportedRecording& unread = *recordings.back().reported;
    unread.state = SearchState::Failed;
    unread.reason = QStringLiteral("no recording <at all>");
    return report.write().isEmpty() ? 0 : 1;
}
