// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Where motion was, from maps of cells: for each place of the picture, and around each clip's
// motion.

#include "motionbox.h"
#include "motionplaces.h"

#include <QtTest>

namespace {

constexpr CellGrid grid{160, 90};

/// The cells of a rectangle have changed, at the strongest step.
CellMap mapOf(const QRect& cells, CellGrid of = grid) {
    CellMap map(of);
    for (int row = cells.top(); row <= cells.bottom(); ++row) {
        for (int column = cells.left(); column <= cells.right(); ++column)
            map.steps[of.placeOf(column, row)] = 4;
    }
    return map;
}

CellBits bitsOf(const QVector<QRect>& rectangles) {
    CellBits bits(grid);
    for (const QRect& cells : rectangles) {
        for (int row = cells.top(); row <= cells.bottom(); ++row) {
            for (int column = cells.left(); column <= cells.right(); ++column)
                bits.add(column, row);
        }
    }
    return bits;
}

PlaceSearch searchAt(const QVector<double>& times, double firstTime = 0.0) {
    PlaceSearch search;
    search.firstTime = firstTime;
    search.times = times;
    search.region = [](CellGrid of) { return CellBits(of, true); };
    return search;
}

} // namespace

class TestMotionPlaces : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void boxIsAroundWhatMoves();
    void boxLeavesOutWhatIsSmall();
    void placesHaveTheirSeconds();
    void mapsOfOtherGridsFallOnTheSamePlaces();
    void clipsHaveTheBoxOfTheirPicture();
    void bothMapsOfAPictureCount();
    void boxesStayInsideTheRegion();
    void farMapsTellNothing();
};

void TestMotionPlaces::boxIsAroundWhatMoves() {
    const MotionBox found = motionBox(bitsOf({{16, 9, 32, 18}}));
    QCOMPARE(found.box, QRectF(0.1, 0.1, 0.2, 0.2));
    QCOMPARE(found.area, 32 * 18);
    QVERIFY(motionBox(CellBits(grid)).box.isEmpty());
    QVERIFY(motionBox(CellBits()).box.isEmpty());
}

/// One is large, one a quarter of it, one less than that.
void TestMotionPlaces::boxLeavesOutWhatIsSmall() {
    const MotionBox found = motionBox(bitsOf({{16, 9, 16, 9}, {64, 9, 4, 9}, {128, 72, 7, 5}}));
    QCOMPARE(found.box.left(), 16 / 160.0);
    QCOMPARE(found.box.right(), 68 / 160.0);
    QCOMPARE(found.box.bottom(), 18 / 90.0);
    QVERIFY(motionBox(bitsOf({{0, 0, 7, 1}})).box.isEmpty()); // counts nothing anywhere
}

void TestMotionPlaces::placesHaveTheirSeconds() {
    MotionMap map;
    QCOMPARE(map.grid().count(), 0);
    QCOMPARE(map.longest(), 0.0);
    map.add(bitsOf({{0, 0, 4, 4}}), 2.0);
    map.add(bitsOf({{0, 0, 1, 1}}), 0.5);
    map.add(bitsOf({{159, 89, 1, 1}}), 0.25);
    map.add(CellBits(grid), 7.0);
    map.add(bitsOf({{40, 40, 4, 4}}), -1.0); // a clock that runs backwards
    QCOMPARE(map.grid(), (CellGrid{40, 23}));
    QCOMPARE(map.seconds(0, 0), 2.5);
    QCOMPARE(map.seconds(39, 22), 0.25);
    QCOMPARE(map.longest(), 2.5);
    double all = 0.0;
    for (int row = 0; row < 23; ++row) {
        for (int column = 0; column < 40; ++column)
            all += map.seconds(column, row);
    }
    QCOMPARE(all, 2.75);
}

void TestMotionPlaces::mapsOfOtherGridsFallOnTheSamePlaces() {
    MotionMap map;
    map.add(bitsOf({{80, 45, 1, 1}}), 1.0);
    CellBits few(CellGrid{4, 2});
    few.add(2, 1);
    MotionMap other;
    other.add(few, 1.0);
    QCOMPARE(other.grid(), (CellGrid{4, 2}));
    map.add(other);
    QCOMPARE(map.grid(), (CellGrid{40, 23}));
    QCOMPARE(map.seconds(20, 11), 1.0);
    QCOMPARE(map.seconds(25, 17), 1.0); // the middle of the third column and the second row
}

void TestMotionPlaces::clipsHaveTheBoxOfTheirPicture() {
    CellMaps maps;
    for (int i = 0; i < 100; ++i)
        maps.append(mapOf(i < 50 ? QRect(0, 0, 16, 9) : QRect(80, 45, 16, 9)));
    QVector<double> times;
    for (int i = 0; i < 100; ++i)
        times.append(10.0 + 0.1 * (i + 1));
    const MotionPlaces found = motionPlaces(maps, searchAt(times, 10.0), {18.0, 12.0, 99.0, 10.0});
    QCOMPARE(found.boxes.size(), 4);
    QCOMPARE(found.boxes[0], QRectF(0.5, 0.5, 0.1, 0.1));
    QCOMPARE(found.boxes[1], QRectF(0.0, 0.0, 0.1, 0.1));
    QVERIFY(found.boxes[2].isEmpty());
    QCOMPARE(found.boxes[3], QRectF(0.0, 0.0, 0.1, 0.1)); // the first picture of all
    QVERIFY(qAbs(found.map.seconds(0, 0) - 5.0) < 0.01);
    QVERIFY(qAbs(found.map.seconds(20, 11) - 5.0) < 0.01);
}

/// The strongest motion may have led to the picture, or have come of it.
void TestMotionPlaces::bothMapsOfAPictureCount() {
    CellMaps maps;
    maps.append(mapOf({0, 0, 4, 4}));
    maps.append(mapOf({80, 45, 16, 9}));
    maps.append(mapOf({0, 0, 0, 0}));
    const MotionPlaces found = motionPlaces(maps, searchAt({0.1, 0.2, 0.3}), {0.1, 0.2});
    QCOMPARE(found.boxes[0], QRectF(0.5, 0.5, 0.1, 0.1));
    QCOMPARE(found.boxes[1], QRectF(0.5, 0.5, 0.1, 0.1));
}

void TestMotionPlaces::boxesStayInsideTheRegion() {
    CellMaps maps;
    maps.append(mapOf({0, 0, 160, 90}));
    maps.append(mapOf({0, 0, 80, 45}, {80, 45})); // of smaller pictures from now on
    PlaceSearch search = searchAt({0.1, 0.2});
    search.region = [](CellGrid of) {
        CellBits left(of);
        for (int row = 0; row < of.rows; ++row) {
            for (int column = 0; column < of.columns / 2; ++column)
                left.add(column, row);
        }
        return left;
    };
    const MotionPlaces found = motionPlaces(maps, search, {0.0, 0.2});
    QCOMPARE(found.boxes[0], QRectF(0.0, 0.0, 0.5, 1.0));
    QCOMPARE(found.boxes[1], QRectF(0.0, 0.0, 0.5, 1.0));
    QVERIFY(qAbs(found.map.seconds(19, 0) - 0.2) < 0.001);
    QCOMPARE(found.map.seconds(20, 0), 0.0);
}

/// Those of key frames, between which the picture of a clip lies.
void TestMotionPlaces::farMapsTellNothing() {
    CellMaps maps;
    maps.append(mapOf({0, 0, 16, 9}));
    maps.append(mapOf({80, 45, 16, 9}));
    const MotionPlaces found = motionPlaces(maps, searchAt({10.0, 20.0}), {15.0, 19.5});
    QVERIFY(found.boxes[0].isEmpty());
    QCOMPARE(found.boxes[1], QRectF(0.5, 0.5, 0.1, 0.1));
    QCOMPARE(found.map.longest(), 1.0); // nobody knows what was between them
}

QTEST_GUILESS_MAIN(TestMotionPlaces)
#include "test_motionplaces.moc"
