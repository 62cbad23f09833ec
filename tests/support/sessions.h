// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "savedsession.h"

#include <QColor>
#include <QtTest>

/// Sessions with something in every field, and their comparison.
namespace sessions {

inline QImage picture(int number, QSize size = {32, 18}) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 7 + number, y * 11, number * 53));
    return image;
}

inline QImage mask() {
    QImage image(64, 48, QImage::Format_ARGB32);
    image.fill(0);
    for (int x = 10; x < 40; ++x)
        image.setPixel(x, x / 2, 0xff00ff00);
    return image;
}

inline JobRecord plainJob(const QString& fileName, int state) {
    JobRecord job;
    job.fileName = fileName;
    job.clipDirectory = "/clips/garden_mp4_0";
    job.state = state;
    return job;
}

inline JobRecord fullJob() {
    JobRecord job = plainJob(QFile::decodeName("/videos/g\303\244rten \"%2\" \n.mp4"), 1);
    job.fileSize = 4711;
    job.prerecord = 1.1;
    job.postrecord = 0.1 + 0.2; // no short decimal number
    job.minimum = 2.5;
    job.skip = 3;
    job.autoExport = true;
    job.mask = mask();
    job.roiRect = QRect(1, 2, 30, 40);
    job.intraCodec = true;
    job.exportTimestamps = true;
    job.startDateTime = QDateTime(QDate(2026, 2, 3), QTime(4, 5, 6, 789));
    DecidingOptions deciding;
    deciding.detector = Detector::Cells;
    deciding.segmentation = {1.5, 2.5, 3.5, {0.7F}, 4};
    deciding.cells = {3, true};
    deciding.joiningGap = 12.25;
    job.search.deciding = deciding;
    job.search.isQuick = true;
    job.search.excluded = {{-1, 0, 5, 6}, {7, 8, 9, 10}};
    job.facts.seconds = 3600.04;
    job.facts.pictures = {1920, 1080};
    job.facts.strongest = {1.2345F};
    job.facts.strongestTime = 17.32;
    job.facts.error = "Invalid data found";
    job.facts.isReadToItsEnd = false;
    job.facts.damage = {4711, 100.0, 90.5};
    job.facts.stream = {"h264", true, {{1440, 1080}, {4, 3}, {30000, 1001}, -0.5}, 3599.5, 29.97,
                        0.08,   true};
    // Nanoseconds are more digits than a double has.
    job.facts.file = SearchedFile{{"/videos/g\303\244rten.mp4", 4711, 1700000000123456789, "0a1b"},
                                  1700000000987654321};
    job.firstClipNumber = 2;
    job.nextClipNumber = 7;
    return job;
}

inline SavedClip clip(int job, int index, int status) {
    SavedClip clip;
    clip.job = job;
    clip.index = index;
    clip.start = index * 10.0 + 1.0 / 3.0;
    clip.end = clip.start + 5.1;
    clip.snapshotTime = clip.start + 0.7;
    clip.snapshot = picture(index);
    clip.status = status;
    return clip;
}

inline SavedSession full() {
    SavedSession session;
    session.jobs = {fullJob(), plainJob("/videos/plain.avi", 4)};
    session.clips = {clip(1, 0, 0), clip(0, 5, 4), clip(0, 6, 2)};
    session.clips[1].outputPath = "/clips/garden_mp4_0/0005.mp4";
    session.clips[1].note = "<b>No space</b> left: \"&\" \342\202\254";
    session.clips[1].strength = 1.7F;
    session.clips[1].joinedFile = "/clips/garden_mp4_0/0009";
    session.clips[2].snapshot = {};
    return session;
}

inline void compareDeciding(const SearchOptions& found, const SearchOptions& wanted) {
    QCOMPARE(found.deciding.has_value(), wanted.deciding.has_value());
    if (!wanted.deciding)
        return;
    QCOMPARE(int(found.deciding->detector), int(wanted.deciding->detector));
    const SegmentationOptions& a = found.deciding->segmentation;
    const SegmentationOptions& b = wanted.deciding->segmentation;
    QVERIFY(a.prerecord == b.prerecord && a.postrecord == b.postrecord && a.minimum == b.minimum);
    QVERIFY(a.motionThreshold.value == b.motionThreshold.value);
    QCOMPARE(a.fewestCompared, b.fewestCompared);
    QCOMPARE(found.deciding->cells.step, wanted.deciding->cells.step);
    QCOMPARE(found.deciding->cells.isRestlessIgnored, wanted.deciding->cells.isRestlessIgnored);
    QVERIFY(found.deciding->joiningGap == wanted.deciding->joiningGap);
}

inline bool isSame(Ratio left, Ratio right) {
    return left.numerator == right.numerator && left.denominator == right.denominator;
}

inline void compareStreams(const StreamFacts& found, const StreamFacts& wanted) {
    QCOMPARE(found.codecName, wanted.codecName);
    QCOMPARE(found.isIntraOnly, wanted.isIntraOnly);
    QCOMPARE(found.description.size, wanted.description.size);
    QVERIFY(isSame(found.description.pixelAspect, wanted.description.pixelAspect));
    QVERIFY(isSame(found.description.frameRate, wanted.description.frameRate));
    QVERIFY(found.description.startTime == wanted.description.startTime &&
            found.duration == wanted.duration && found.frameRate == wanted.frameRate &&
            found.origin == wanted.origin);
    QCOMPARE(found.isRegionEmpty, wanted.isRegionEmpty);
}

inline void compareFacts(const JobFacts& found, const JobFacts& wanted) {
    QVERIFY(found.seconds == wanted.seconds && found.strongest == wanted.strongest &&
            found.strongestTime == wanted.strongestTime);
    QCOMPARE(found.pictures, wanted.pictures);
    compareStreams(found.stream, wanted.stream);
    QCOMPARE(found.error, wanted.error);
    QCOMPARE(found.isReadToItsEnd, wanted.isReadToItsEnd);
    QCOMPARE(found.damage.packets, wanted.damage.packets);
    QVERIFY(found.damage.promised == wanted.damage.promised &&
            found.damage.read == wanted.damage.read);
    QCOMPARE(found.file.has_value(), wanted.file.has_value());
    if (wanted.file)
        QVERIFY(found.file->stamp == wanted.file->stamp &&
                found.file->changed == wanted.file->changed);
}

inline void compareJob(const JobRecord& found, const JobRecord& wanted) {
    QCOMPARE(found.fileName, wanted.fileName);
    QCOMPARE(found.clipDirectory, wanted.clipDirectory);
    QCOMPARE(found.state, wanted.state);
    QCOMPARE(found.fileSize, wanted.fileSize);
    QVERIFY(found.prerecord == wanted.prerecord && found.postrecord == wanted.postrecord &&
            found.minimum == wanted.minimum);
    QCOMPARE(found.skip, wanted.skip);
    QCOMPARE(found.autoExport, wanted.autoExport);
    QCOMPARE(found.mask, wanted.mask);
    QCOMPARE(found.mask.format(), wanted.mask.format());
    QVERIFY(found.roiRect == wanted.roiRect);
    QCOMPARE(found.intraCodec, wanted.intraCodec);
    QCOMPARE(found.exportTimestamps, wanted.exportTimestamps);
    QCOMPARE(found.startDateTime, wanted.startDateTime);
    compareDeciding(found.search, wanted.search);
    QCOMPARE(found.search.isQuick, wanted.search.isQuick);
    QCOMPARE(found.search.excluded, wanted.search.excluded);
    compareFacts(found.facts, wanted.facts);
    QCOMPARE(found.firstClipNumber, wanted.firstClipNumber);
    QCOMPARE(found.nextClipNumber, wanted.nextClipNumber);
}

inline void compareClip(const SavedClip& found, const SavedClip& wanted) {
    QCOMPARE(found.job, wanted.job);
    QCOMPARE(found.index, wanted.index);
    QVERIFY(found.start == wanted.start && found.end == wanted.end &&
            found.snapshotTime == wanted.snapshotTime);
    QCOMPARE(found.snapshot, wanted.snapshot);
    QCOMPARE(found.status, wanted.status);
    QCOMPARE(found.outputPath, wanted.outputPath);
    QCOMPARE(found.note, wanted.note);
    QCOMPARE(found.strength, wanted.strength);
    QCOMPARE(found.joinedFile, wanted.joinedFile);
}

inline void compare(const SavedSession& found, const SavedSession& wanted) {
    QCOMPARE(found.jobs.size(), wanted.jobs.size());
    for (int i = 0; i < wanted.jobs.size(); ++i)
        compareJob(found.jobs[i], wanted.jobs[i]);
    QCOMPARE(found.clips.size(), wanted.clips.size());
    for (int i = 0; i < wanted.clips.size(); ++i)
        compareClip(found.clips[i], wanted.clips[i]);
}

} // namespace sessions
