// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes a report of recordings that were never made: makereport FOLDER CLIPS. For
// scripts/test-report.
//
// The clips are spread over nights of eight hours, each with 500 at the most, and their strengths
// grow from 1 in the order of a shuffle, so that each is there once.

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

constexpr double nightSeconds = 8 * 3600.0;
constexpr double picturesPerSecond = 5.0;
constexpr int mostClips = 500; ///< of a night

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

/// Clips of `count` times in a night, evenly spread; the first begins a step into it.
class Night {
public:
    Night(const ScanReport& report, Recording& recording)
        : report(report)
        , recording(recording) {}

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
    }

    const ScanReport& report;
    Recording& recording;
};

ScanOptions optionsFor(const QString& folder, int nights) {
    ScanOptions options;
    options.reportDirectory = folder;
    for (int i = 0; i < nights; ++i)
        options.inputs.videos += QStringLiteral("camera %1/<b>night &\"day\".mp4").arg(i);
    options.inputs.videos += QStringLiteral("camera/quiet.mp4");
    options.inputs.videos += QFile::decodeName("camera/unread\xff</script>.mp4");
    return options;
}

} // namespace

int main(int argc, char* argv[]) {
    installFileNameCodec();
    const QCoreApplication application(argc, argv);
    if (argc != 3)
        return 2;
    const int clips = QByteArray(argv[2]).toInt();
    const int nights = (clips + mostClips - 1) / mostClips;
    const ScanOptions options = optionsFor(QString::fromLocal8Bit(argv[1]), nights);
    if (!prepareFolder(reportPictureFolder(options.reportDirectory)).isEmpty())
        return 1;
    std::vector<Recording> recordings = recordingsOf(options.inputs.videos);
    const ScanReport report(options, recordings);
    const std::vector<float> strengths = shuffledStrengths(clips);
    for (int i = 0; i < nights; ++i) {
        const auto first = strengths.begin() + std::ptrdiff_t(i) * mostClips;
        const auto end = strengths.begin() + std::min(clips, (i + 1) * mostClips);
        Night(report, recordings[std::size_t(i)]).tell(std::vector<float>(first, end));
    }
    ReportedRecording& quiet = *recordings[std::size_t(nights)].reported;
    quiet.add(60.0, {0.2F});
    quiet.state = SearchState::Done;
    ReportedRecording& unread = *recordings.back().reported;
    unread.state = SearchState::Failed;
    unread.reason = QStringLiteral("no recording <at all>");
    return report.write().isEmpty() ? 0 : 1;
}
