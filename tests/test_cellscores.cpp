// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellseries.h"

#include "cellregion.h"

#include <QtTest>

#include <random>

namespace {

constexpr QSize size(1600, 1000);
constexpr CellGrid grid{160, 100};
constexpr double interval = 0.04; // seconds

/// A map in which the cells of a box have reached a step.
CellMap mapOf(const QRect& box, int step = changedStep, CellGrid grid = ::grid) {
    CellMap map(grid);
    for (int row = box.top(); row <= box.bottom(); ++row) {
        for (int column = box.left(); column <= box.right(); ++column)
            map.steps[grid.placeOf(column, row)] = std::uint8_t(step);
    }
    return map;
}

RegionOfInterest rectangle(const QRect& rectangle) {
    RegionOfInterest region;
    region.kind = RegionOfInterest::Kind::Rectangle;
    region.rectangle = rectangle;
    return region;
}

float valueOf(CellScores scores, const CellMap& map) {
    return scores.add(interval, map).value;
}

/// A box that walks on and changes its strength, of which a part becomes brighter, and now and then
/// another size. Every other map is carried on.
std::vector<CellMap> randomMaps(std::mt19937& random) {
    std::vector<CellMap> maps;
    for (int i = 0; i < 400; ++i) {
        if (i % 2 == 1) {
            maps.push_back(maps.back());
            maps.back().isCarried = true;
            continue;
        }
        const QRect box(i % 130, int(random() % 3) + 30, 10 + int(random() % 3),
                        15 + int(random() % 9));
        CellMap map = mapOf(box, int(random() % (cellSteps.size() + 1)),
                            i % 140 < 100 ? grid : CellGrid{160, 120});
        map.brighter = CellBits(map.grid);
        for (int row = box.top(); row <= box.bottom() && i % 60 < 40; ++row)
            map.brighter.add(box.left() + row % 5, row);
        map.brighter.keep(cellsFrom(map, 1));
        maps.push_back(map);
    }
    return maps;
}

} // namespace

class TestCellScores : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void groupsOutsideTheRegionDoNotCount();
    void groupsAreCutAtTheRegion();
    void shareOfASmallRegion();
    void sensitivityChoosesTheStep();
    void restlessCellsAreLeftOut();
    void nothingSelectedIsQuiet();
    void otherSizesHaveARegionOfTheirOwn();
    void keptMapsHaveTheSameValues();
};

void TestCellScores::groupsOutsideTheRegionDoNotCount() {
    CellScores scores(rectangle({0, 0, 800, 1000}), size, {});
    QCOMPARE(scores.add(0.0, mapOf({80, 0, 80, 100})).value, 0.0F);
    QVERIFY(scores.add(interval, mapOf({0, 0, 80, 100})).value > 0.0F);
}

void TestCellScores::groupsAreCutAtTheRegion() {
    const CellMap map = mapOf({60, 10, 40, 20});
    QCOMPARE(valueOf({rectangle({0, 0, 800, 1000}), size, {}}, map),
             valueOf({{}, size, {}}, mapOf({60, 10, 20, 20})));
}

void TestCellScores::shareOfASmallRegion() {
    const CellMap map = mapOf({0, 0, 20, 20});
    const float ofPicture = valueOf({{}, size, {}}, map);
    QCOMPARE(ofPicture, 2.5F); // 400 of 16000 cells
    QCOMPARE(valueOf({rectangle({0, 0, 800, 500}), size, {}}, map), ofPicture);
    QCOMPARE(valueOf({rectangle({0, 0, 400, 500}), size, {}}, map), 2 * ofPicture);
    QCOMPARE(valueOf({rectangle({0, 0, 200, 200}), size, {}}, map), 25.0F);
}

void TestCellScores::sensitivityChoosesTheStep() {
    for (int step = 1; step <= int(cellSteps.size()); ++step) {
        const CellScores scores({}, size, {step});
        QVERIFY(valueOf(scores, mapOf({0, 0, 20, 20}, step)) > 0.0F);
        QCOMPARE(valueOf(scores, mapOf({0, 0, 20, 20}, step - 1)), 0.0F);
    }
}

void TestCellScores::restlessCellsAreLeftOut() {
    CellBits restless(grid);
    for (int column = 0; column < grid.columns; ++column)
        restless.add(column, 0);
    QCOMPARE(valueOf({{}, size, {}, restless}, mapOf({0, 0, 160, 1})), 0.0F);
    QVERIFY(valueOf({{}, size, {}}, mapOf({0, 0, 160, 1})) > 0.0F);
    const CellMap otherGrid = mapOf({0, 0, 160, 1}, changedStep, {160, 120});
    QVERIFY(valueOf({{}, size, {}, restless}, otherGrid) > 0.0F);
}

void TestCellScores::nothingSelectedIsQuiet() {
    QCOMPARE(valueOf({rectangle({1600, 0, 10, 10}), size, {}}, mapOf({0, 0, 160, 100})), 0.0F);
    QCOMPARE(valueOf({{}, size, {}}, CellMap()), 0.0F);
}

void TestCellScores::otherSizesHaveARegionOfTheirOwn() {
    CellScores scores(rectangle({0, 0, 800, 1000}), size, {});
    scores.add(0.0, mapOf({0, 0, 10, 10}));
    const CellGrid other{160, 120};
    QCOMPARE(scores.add(interval, mapOf({80, 0, 80, 120}, changedStep, other)).value, 0.0F);
    QVERIFY(scores.add(2 * interval, mapOf({0, 0, 80, 120}, changedStep, other)).value > 0.0F);
}

void TestCellScores::keptMapsHaveTheSameValues() {
    std::mt19937 random(1);
    const std::vector<CellMap> maps = randomMaps(random);
    const RegionOfInterest region = rectangle({300, 200, 500, 400});
    CellScores streaming(region, size, {2});
    CellMaps kept;
    CellMaps rest; // begins with a map that is carried on
    MotionSeries measured;
    for (std::size_t i = 0; i < maps.size(); ++i) {
        (i < 333 ? kept : rest).append(maps[i]);
        measured.times.append(double(i) * interval);
        measured.scores.append(streaming.add(measured.times.last(), maps[i]));
    }
    kept.append(rest);
    for (const int threads : {1, 2, 8, 0}) {
        const MotionSeries asked = seriesOf(kept, measured.times, {region, size, {2}}, threads);
        QCOMPARE(asked.times, measured.times);
        QCOMPARE(asked.scores, measured.scores);
    }
    QSet<int> values;
    for (const MotionScore score : measured.scores)
        values.insert(int(score.value * 1000.0F));
    QVERIFY(values.contains(0));
    QVERIFY(values.size() > 20);
}

QTEST_APPLESS_MAIN(TestCellScores)
#include "test_cellscores.moc"
