// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Maps of cells that are packed: what comes out is what went in, whatever the maps are, and bytes
// that nobody packed do no harm.

#include "cellmaps.h"

#include <QtTest>

#include <random>

namespace {

using Maps = std::vector<CellMap>;

/// Maps in which `share` of the cells are set to any step, and as much of them changes each time.
Maps randomMaps(CellGrid grid, int count, double share, unsigned seed) {
    std::mt19937 random(seed);
    std::bernoulli_distribution isSet(share);
    std::uniform_int_distribution<int> step(0, int(cellSteps.size()));
    Maps maps;
    CellMap map(grid);
    for (int i = 0; i < count; ++i) {
        for (std::uint8_t& cell : map.steps)
            cell = isSet(random) ? std::uint8_t(step(random)) : cell;
        maps.push_back(map);
    }
    return maps;
}

CellMaps packed(const Maps& maps) {
    CellMaps all;
    for (const CellMap& map : maps)
        all.append(map);
    return all;
}

bool isSame(const CellMap& left, const CellMap& right) {
    return left.grid == right.grid && left.steps == right.steps;
}

bool areSame(const CellMaps& packed, const Maps& maps) {
    CellMapsReader reader(packed);
    for (const CellMap& map : maps) {
        const CellMap* found = reader.next();
        if (!found || !isSame(*found, map))
            return false;
    }
    return packed.count() == int(maps.size()) && !reader.next() && !reader.next();
}

/// Cell by cell, and whether one without any says so.
bool isSame(const CellBits& bits, bool isQuiet, const CellMap& map, int step) {
    bool isEmpty = true;
    std::size_t cell = 0;
    for (int row = 0; row < map.grid.rows; ++row) {
        for (int column = 0; column < map.grid.columns; ++column) {
            const bool isSet = map.steps[cell++] >= step;
            isEmpty = isEmpty && !isSet;
            if (bits.has(column, row) != isSet)
                return false;
        }
    }
    // Nothing stands behind the last column.
    return bits.grid == map.grid && isQuiet == isEmpty && bits.words == cellsFrom(map, step).words;
}

bool isSameStep(const CellMaps& packed, const Maps& maps, int step) {
    CellMapsReader reader(packed);
    for (const CellMap& map : maps) {
        const CellBits* bits = reader.next(step);
        if (!bits || !isSame(*bits, reader.isQuiet(), map, step))
            return false;
    }
    return !reader.next(step);
}

std::size_t bytesOf(const CellMaps& maps) {
    std::size_t bytes = 0;
    for (const CellBlockPointer& block : maps.blocks())
        bytes += block->bytes.size();
    return bytes;
}

/// All that can be read of maps, whatever they are. False if that is not what they promise.
bool isReadable(const CellMaps& maps) {
    CellMapsReader reader(maps);
    int count = 0;
    for (const CellMap* map = reader.next(); map; map = reader.next(), ++count) {
        const bool isInRange = std::all_of(map->steps.begin(), map->steps.end(),
                                           [](int step) { return step <= int(cellSteps.size()); });
        if (!isInRange || int(map->steps.size()) != map->grid.count())
            return false;
    }
    for (int step = 1; step <= int(cellSteps.size()); ++step) {
        CellMapsReader one(maps);
        while (const CellBits* bits = one.next(step)) {
            if (one.isQuiet() != (bits->count() == 0))
                return false;
        }
    }
    return count == maps.count();
}

} // namespace

class TestCellMaps : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void givesBackWhatWentIn_data();
    void givesBackWhatWentIn();
    void gridsMayChange();
    void joinsOthersBehind();
    void joinsNoneToNone();
    void isReadWhileItGrows();
    void copiesAreByThemselves();
    void givesTheSameBytesEachTime();
    void quietHoursAreSmall();
    void foreignBytesDoNoHarm();
    void absurdLengthsDoNoHarm();
};

void TestCellMaps::givesBackWhatWentIn_data() {
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("share");
    QTest::newRow("no maps") << 160 << 90 << 0 << 0.0;
    QTest::newRow("one") << 160 << 90 << 1 << 0.1;
    QTest::newRow("nothing changes") << 160 << 90 << 600 << 0.0;
    QTest::newRow("little changes") << 160 << 90 << 600 << 0.001;
    QTest::newRow("much changes") << 160 << 90 << 300 << 0.2;
    QTest::newRow("all changes") << 160 << 120 << 100 << 1.0;
    QTest::newRow("a block to the last map") << 160 << 90 << mostBlockMaps << 0.01;
    QTest::newRow("a block and a map") << 160 << 90 << mostBlockMaps + 1 << 0.01;
    QTest::newRow("one cell") << 1 << 1 << 700 << 0.3;
    QTest::newRow("one row") << 160 << 1 << 300 << 0.1;
    QTest::newRow("one column") << 1 << 640 << 300 << 0.1;
    QTest::newRow("odd sides") << 37 << 23 << 300 << 0.1;
    QTest::newRow("two words and a bit") << 129 << 3 << 300 << 0.1;
    QTest::newRow("the largest grid") << mostCellColumns << mostCellRows << 260 << 0.01;
    QTest::newRow("no cells") << 0 << 0 << 300 << 0.0;
}

void TestCellMaps::givesBackWhatWentIn() {
    QFETCH(int, columns);
    QFETCH(int, rows);
    QFETCH(int, count);
    QFETCH(double, share);
    const Maps maps = randomMaps({columns, rows}, count, share, 1);
    const CellMaps all = packed(maps);
    QVERIFY(areSame(all, maps));
    for (int step = 1; step <= int(cellSteps.size()); ++step)
        QVERIFY2(isSameStep(all, maps, step), qPrintable(QString::number(step)));
}

void TestCellMaps::gridsMayChange() {
    Maps maps = randomMaps({160, 90}, 10, 0.1, 1);
    for (const CellGrid grid : {CellGrid{160, 120}, CellGrid{0, 0}, CellGrid{7, 3}}) {
        const Maps others = randomMaps(grid, 300, 0.1, 2);
        maps.insert(maps.end(), others.begin(), others.end());
    }
    const CellMaps all = packed(maps);
    QVERIFY(areSame(all, maps));
    QVERIFY(isSameStep(all, maps, changedStep));
}

void TestCellMaps::joinsOthersBehind() {
    Maps maps;
    CellMaps all;
    for (const int count : {0, 300, 1, 0, 249, 251}) {
        const Maps others = randomMaps({160, 90}, count, 0.01, unsigned(count));
        maps.insert(maps.end(), others.begin(), others.end());
        all.append(packed(others));
        const CellMap one = randomMaps({160, 90}, 1, 0.1, 7).front();
        maps.push_back(one);
        all.append(one);
    }
    QVERIFY(areSame(all, maps));
    QVERIFY(isSameStep(all, maps, changedStep));
}

void TestCellMaps::joinsNoneToNone() {
    CellMaps all;
    all.append(CellMaps());
    QCOMPARE(all.count(), 0);
    QVERIFY(all.blocks().empty());
}

void TestCellMaps::isReadWhileItGrows() {
    const Maps maps = randomMaps({160, 90}, 10, 0.1, 1);
    CellMaps all = packed(maps);
    CellMapsReader reader(all);
    all.append(maps.front());
    for (const CellMap& map : maps)
        QVERIFY(isSame(*reader.next(), map));
    QVERIFY(!reader.next());
    QCOMPARE(all.count(), 11);
}

void TestCellMaps::copiesAreByThemselves() {
    const Maps maps = randomMaps({160, 90}, 300, 0.1, 1);
    CellMaps one = packed(maps);
    const CellMaps other = one;
    one.append(maps.front());
    QVERIFY(areSame(other, maps));
}

void TestCellMaps::givesTheSameBytesEachTime() {
    const Maps maps = randomMaps({160, 90}, 600, 0.01, 1);
    const auto left = packed(maps).blocks();
    const auto right = packed(maps).blocks();
    QCOMPARE(left.size(), right.size());
    for (std::size_t i = 0; i < left.size(); ++i)
        QVERIFY(left[i]->bytes == right[i]->bytes);
}

/// What is said of an hour at 25 pictures a second: hardly anything where nothing moves.
void TestCellMaps::quietHoursAreSmall() {
    const CellMap still(CellGrid{160, 90});
    CellMaps all;
    for (int i = 0; i < 90000; ++i)
        all.append(still);
    QVERIFY(bytesOf(all) < 100 * 1000);
}

/// Each block of good maps with some of its bytes changed, cut or lengthened.
void TestCellMaps::foreignBytesDoNoHarm() {
    const auto blocks = packed(randomMaps({37, 23}, 400, 0.02, 1)).blocks();
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i) {
        CellBlock block = *blocks[std::size_t(i) % blocks.size()];
        for (unsigned flaw = 0; flaw < 1 + random() % 4; ++flaw)
            block.bytes[random() % block.bytes.size()] = std::uint8_t(random());
        if (random() % 4 == 0)
            block.bytes.resize(random() % (2 * block.bytes.size()));
        if (random() % 4 == 0)
            block.grid = {int(random() % 161), int(random() % 641)};
        if (random() % 4 == 0)
            block.count = int(1 + random() % mostBlockMaps);
        CellMaps maps;
        maps.append(std::make_shared<const CellBlock>(block));
        QVERIFY(isReadable(maps));
    }
}

void TestCellMaps::absurdLengthsDoNoHarm() {
    for (const std::size_t size : {0, 1, 23, 24, 25, 47, 48, 100}) {
        CellBlock block{{160, 640}, mostBlockMaps, std::vector<std::uint8_t>(size, 0xFF)};
        CellMaps maps;
        maps.append(std::make_shared<const CellBlock>(block));
        QVERIFY(isReadable(maps));
    }
}

QTEST_APPLESS_MAIN(TestCellMaps)
#include "test_cellmaps.moc"
