// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "likelysnapshots.h"

#include "frames.h"
#include "snapshotimage.h"

#include <QtTest>

namespace {

using Values = std::vector<float>;

FramePointer frameOf(int width = 64, int height = 48) {
    return media::libraryFrame(AV_PIX_FMT_GRAY8, width, height);
}

/// The places of the pictures that are kept of a chunk that begins with picture `number` and in
/// which picture 1 has the first of these values.
std::vector<int> placesOf(const Values& values, int skip = 0, qint64 number = 0) {
    LikelySnapshots snapshots({0.5F}, skip);
    snapshots.begin(number);
    PictureKeeper::Picture previous = frameOf();
    for (std::size_t i = 0; i < values.size(); ++i) {
        PictureKeeper::Picture current = frameOf();
        snapshots.take(int(i) + 1, previous, current, MotionScore{values[i]});
        previous = current;
    }
    std::vector<int> places;
    for (const auto& kept : snapshots.end())
        places.push_back(kept.first);
    return places;
}

/// `count` values, quiet but for these.
Values quietBut(int count, const std::map<int, float>& others) {
    Values values(std::size_t(count), 0.1F);
    for (const auto& [place, value] : others)
        values[std::size_t(place) - 1] = value;
    return values;
}

using Places = std::vector<int>;

} // namespace

class TestLikelySnapshots : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void strongestAndThePictureBeforeIt();
    void quietPicturesAreNotKept();
    void strongerOneSoonAfterTakesItsPlace();
    void weakerOneLaterIsKeptToo();
    void ofEqualsTheOldestAndTheOneBeforeTheNewest();
    void skippedPicturesKeepTheirValue();
    void firstPictureOfAChunk();
    void picturesAreSmall();
    void weakestGoWhereThereAreTooMany();
    void chunksDoNotMix();
};

void TestLikelySnapshots::strongestAndThePictureBeforeIt() {
    QCOMPARE(placesOf(quietBut(12, {{4, 1.0F}, {7, 3.0F}, {9, 2.0F}})), (Places{6, 7}));
    QCOMPARE(placesOf(quietBut(5, {{1, 1.0F}})), (Places{0, 1}));
}

void TestLikelySnapshots::quietPicturesAreNotKept() {
    QCOMPARE(placesOf(quietBut(60, {{20, 0.49F}})), Places());
    QCOMPARE(placesOf(quietBut(60, {{20, 0.5F}})), (Places{19, 20}));
    QCOMPARE(placesOf({}), Places());
}

void TestLikelySnapshots::strongerOneSoonAfterTakesItsPlace() {
    QCOMPARE(placesOf(quietBut(36, {{4, 1.0F}, {15, 2.0F}})), (Places{14, 15}));
    QCOMPARE(placesOf(quietBut(36, {{4, 1.0F}, {30, 2.0F}})), (Places{3, 4, 29, 30}));
}

void TestLikelySnapshots::weakerOneLaterIsKeptToo() {
    QCOMPARE(placesOf(quietBut(36, {{4, 2.0F}, {15, 1.0F}})), (Places{3, 4, 14, 15}));
}

void TestLikelySnapshots::ofEqualsTheOldestAndTheOneBeforeTheNewest() {
    QCOMPARE(placesOf(quietBut(12, {{3, 2.0F}, {8, 2.0F}})), (Places{3, 7}));
}

void TestLikelySnapshots::skippedPicturesKeepTheirValue() {
    // Of pictures 20, 21 and so on every fourth is measured: places 4 and 8.
    QCOMPARE(placesOf(quietBut(12, {{3, 9.0F}, {4, 2.0F}}), 3, 20), (Places{4, 6}));
    QCOMPARE(placesOf(quietBut(12, {{3, 9.0F}, {4, 2.0F}}), 3, 21), (Places{3, 5}));
}

void TestLikelySnapshots::firstPictureOfAChunk() {
    const LikelySnapshots snapshots({0.5F}, 0);
    const auto placesWith = [&snapshots](float value, KeptPictures kept) {
        snapshots.takeFirst(50, *frameOf(), *frameOf(), MotionScore{value}, kept);
        Places places;
        for (const auto& picture : kept)
            places.push_back(picture.first);
        return places;
    };
    const QImage image(320, 240, QImage::Format_RGB32);
    QCOMPARE(placesWith(0.4F, {}), Places());
    QCOMPARE(placesWith(1.0F, {}), (Places{-1, 0}));
    QCOMPARE(placesWith(1.0F, {{5, {2.0F, image}}}), (Places{5}));
    QCOMPARE(placesWith(3.0F, {{5, {2.0F, image}}}), (Places{-1, 0, 5}));
    QCOMPARE(placesWith(1.0F, {{30, {2.0F, image}}}), (Places{-1, 0, 30}));
}

void TestLikelySnapshots::picturesAreSmall() {
    LikelySnapshots snapshots({0.5F}, 0);
    snapshots.begin(0);
    PictureKeeper::Picture first = frameOf();
    PictureKeeper::Picture second = frameOf(128, 48);
    const std::weak_ptr<const DecodedFrame> watched = first;
    const QImage expected = snapshotImage(*second);
    snapshots.take(1, first, second, MotionScore{1.0F});
    first.reset();
    second.reset();
    const KeptPictures kept = snapshots.end();
    QVERIFY(watched.expired());
    QCOMPARE(kept.at(1).picture, expected);
    QCOMPARE(kept.at(0).picture.size(), QSize(320, 240));
}

void TestLikelySnapshots::weakestGoWhereThereAreTooMany() {
    // Ever weaker, so that each dozen has one to be kept; two take 600 KB.
    Values values;
    for (int i = 0; i < 240; ++i)
        values.push_back(300.0F - float(i));
    const Places places = placesOf(values);
    QVERIFY(places.size() >= 4 && places.size() <= 10);
    QCOMPARE(places.front(), 0);
    QCOMPARE(places[1], 1);
}

void TestLikelySnapshots::chunksDoNotMix() {
    LikelySnapshots snapshots({0.5F}, 0);
    snapshots.begin(0);
    snapshots.take(1, frameOf(), frameOf(), MotionScore{9.0F});
    QCOMPARE(int(snapshots.end().size()), 2);
    snapshots.begin(50);
    snapshots.take(1, frameOf(), frameOf(), MotionScore{0.1F});
    QVERIFY(snapshots.end().empty());
}

QTEST_GUILESS_MAIN(TestLikelySnapshots)
#include "test_likelysnapshots.moc"
