// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Parts of recordings that are reached by a seek, in any order: joined, they are what one pass
// gives.

#include "footage.h"
#include "measuresettings.h"
#include "media.h"
#include "partdetection.h"
#include "partrecordings.h"
#include "sample.h"
#include "scouting.h"
#include "valuesparts.h"
#include "valueswriter.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

class Progress : public DetectionProgress {
public:
    bool isCancelled() override { return false; }
    void positionChanged(qint64 /*bytePosition*/, bool /*isAtEnd*/) override {}
};

DetectionOptions optionsWith(bool areMapsKept, int skip, int threads = 1) {
    DetectionOptions options;
    options.times.mustBeUsable = true;
    options.areMapsKept = areMapsKept;
    options.measure.skip = skip;
    options.threads = threads;
    return options;
}

/// So many parts of so short a recording as can be.
PartWish manyParts(const DetectionOptions& options) {
    PartWish wish;
    wish.shortest = 0.5;
    wish.fewest = 2;
    wish.lead = PartDetection::lead(options);
    return wish;
}

KeptValues keptValues(const Measurement& measured, const DetectionOptions& options) {
    KeptValues values;
    values.recording.path = "/recording";
    values.settings = measureSettings(options);
    values.measurement = measured;
    return values;
}

/// The steps of all maps, with a mark on those that are carried.
std::vector<std::vector<std::uint8_t>> stepsOf(const CellMaps& maps) {
    std::vector<std::vector<std::uint8_t>> all;
    CellMapsReader reader(maps);
    while (const CellMap* map = reader.next()) {
        all.emplace_back(map->steps.begin(), map->steps.end());
        all.back().push_back(map->isCarried ? 1 : 0);
    }
    return all;
}

} // namespace

class TestPlacedParts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void partsAreOnePass_data();
    void partsAreOnePass();
    void otherBytesAreSeen();
    void aGroupOfPicturesIsAPart();

private:
    void compareWithOnePass(const QString& file, const DetectionOptions& options, int fewest);

    QTemporaryDir recordings;
};

void TestPlacedParts::initTestCase() {
    const QString failed = makePartRecordings(recordings.path());
    QVERIFY2(failed.isEmpty(), qPrintable(failed));
}

void TestPlacedParts::compareWithOnePass(const QString& file, const DetectionOptions& options,
                                         int fewest) {
    const ScoutedRecording scouted = scout(file, manyParts(options), {});
    QVERIFY2(scouted.parts.size() >= fewest,
             qPrintable(QString("%1 parts").arg(scouted.parts.size())));
    if (scouted.parts.isEmpty())
        return;
    Progress progress;
    Detection whole(options, progress);
    QCOMPARE(whole.run(file).outcome, DetectionOutcome::Finished);
    FramePlan plan;
    plan.times = options.times;
    plan.threads = options.threads;
    FrameStream frames(QFile::encodeName(file), plan);
    const int count = scouted.parts.size();
    QVector<KeptValues> parts(count);
    for (int i = count - 1; i >= 0; --i) {
        QVERIFY(
            frames.goToPart(scouted.parts[i], scouted.packets, scouted.delay, scouted.firstTime));
        PartDetection detection(options, {i + 1, count}, progress);
        QCOMPARE(detection.run(frames).outcome, DetectionOutcome::Finished);
        parts[i] = keptValues(detection.measurement(), options);
        parts[i].part = RecordingPart{i + 1, count};
        parts[i].partFacts = detection.facts();
        // In those that cannot be joined that is told by a part.
        QVERIFY2(detection.facts().isRegular || fewest == 0, qPrintable(QString::number(i)));
        if (!detection.facts().isRegular)
            return;
    }
    const JoinedParts joined = joinParts(parts);
    QVERIFY2(joined.values, qPrintable(joined.flaw));
    QCOMPARE(valuesText(*joined.values), valuesText(keptValues(whole.measurement(), options)));
    QVERIFY(stepsOf(joined.values->measurement.maps) == stepsOf(whole.measurement().maps));
}

void TestPlacedParts::partsAreOnePass_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("fewest");
    // One key frame, recovery points in place of further ones, no times, packets that nobody looks
    // into.
    const QStringList uncut = {"single.mp4", "recovery.mp4", "elementary.264", "lossless.mkv"};
    for (const QString& name : QDir(recordings.path()).entryList(QDir::Files))
        QTest::newRow(qPrintable(name))
            << recordings.filePath(name) << (uncut.contains(name) ? 0 : 3);
    for (const char* name : {"garden.mp4", "gate.avi", "night.mkv"})
        QTest::newRow(name) << recordingsDirectory() + '/' + name << 2;
    for (const QFileInfo& file : footageFiles())
        QTest::newRow(qPrintable(file.fileName())) << file.absoluteFilePath() << 0;
}

void TestPlacedParts::partsAreOnePass() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, file);
    QFETCH(int, fewest);
    compareWithOnePass(file, optionsWith(false, 0), fewest);
    compareWithOnePass(file, optionsWith(false, 6, 3), fewest);
    compareWithOnePass(file, optionsWith(true, 0), fewest == 0 ? 0 : 2);
    compareWithOnePass(file, optionsWith(true, 2, 2), fewest == 0 ? 0 : 2);
}

void TestPlacedParts::otherBytesAreSeen() {
    const DetectionOptions options = optionsWith(false, 0);
    const ScoutedRecording scouted =
        scout(recordings.filePath("closed.mp4"), manyParts(options), {});
    QVERIFY(scouted.parts.size() > 2);
    // A packet in the middle of the second part is another one now.
    auto packets = std::make_shared<PacketIndex>(*scouted.packets);
    ++(*packets)[std::size_t(scouted.parts[1].begin + 5)].bytes;
    FramePlan plan;
    plan.threads = 1;
    FrameStream frames(QFile::encodeName(recordings.filePath("closed.mp4")), plan);
    QVERIFY(frames.goToPart(scouted.parts[1], packets, scouted.delay, scouted.firstTime));
    Progress progress;
    PartDetection detection(options, {2, int(scouted.parts.size())}, progress);
    QCOMPARE(detection.run(frames).outcome, DetectionOutcome::Finished);
    QVERIFY(!detection.facts().isRegular);
    // A place that is not there.
    ++(*packets)[std::size_t(scouted.parts[2].runUp)].position;
    QVERIFY(!frames.goToPart(scouted.parts[2], packets, scouted.delay, scouted.firstTime));
}

/// However far its key frames lie apart: no part decodes more than a picture or two of another.
void TestPlacedParts::aGroupOfPicturesIsAPart() {
    const QString file = recordings.filePath("far.mp4");
    constexpr int groups = 12;
    constexpr int seconds = 20; // a picture each
    const QString number = QString::number(seconds);
    const QString input = QString("testsrc=s=64x48:r=1:d=%1").arg(groups * seconds);
    QVERIFY(media::encode({"-f", "lavfi", "-i", input, "-c:v", "libx264", "-g", number,
                           "-keyint_min", number, "-sc_threshold", "0", file}));
    const ScoutedRecording scouted = scout(file, PartWish(), {});
    QCOMPARE(scouted.parts.size(), groups);
    for (int i = 1; i < groups; ++i)
        QVERIFY2(scouted.parts[i].begin - scouted.parts[i].runUp <= 2,
                 qPrintable(QString::number(i)));
}

QTEST_GUILESS_MAIN(TestPlacedParts)
#include "test_placedparts.moc"
