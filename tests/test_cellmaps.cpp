// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Maps of cells that are packed: what comes out is what went in, whatever the maps are, and bytes
// that nobody packed do no harm.

#include "cellcoding.h"
#include "cellmaps.h"
#include "cellthinning.h"
#include "celltiles.h"

#include <QtTest>

#include <algorithm>
#include <random>

namespace {

using Maps = std::vector<CellMap>;

CellMap emptyMap(CellGrid grid) {
    CellMap map(grid);
    map.brighter = CellBits(grid);
    return map;
}

/// Maps of patches of up to 6 x 6 cells, of any step: `share` of the cells begin one each time.
Maps randomMaps(CellGrid grid, int count, double share, unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&random](int end) { return int(random() % unsigned(std::max(end, 1))); };
    Maps maps;
    CellMap map = emptyMap(grid);
    for (int i = 0; i < count; ++i) {
        map.isCarried = i > 0 && below(3) == 0;
        for (int patch = 0; !map.isCarried && patch < grid.count() * share; ++patch) {
            const int left = below(grid.columns);
            const int top = below(grid.rows);
            const int step = below(int(cellSteps.size()) + 2);
            for (int row = top; row < std::min(grid.rows, top + 1 + below(6)); ++row) {
                for (int column = left; column < std::min(grid.columns, left + 6); ++column) {
                    const int chosen = step > int(cellSteps.size()) ? 0 : step;
                    map.steps[grid.placeOf(column, row)] = std::uint8_t(chosen);
                    map.brighter.remove(column, row);
                    if (chosen > 0 && below(2) == 0)
                        map.brighter.add(column, row);
                }
            }
        }
        maps.push_back(map);
    }
    return maps;
}

/// The cells that touch one of `step` and more, and all that these touch, by going from each to its
/// neighbours.
std::vector<std::size_t> groupAt(const CellMap& map, int step, std::size_t first,
                                 std::vector<bool>& isSeen) {
    std::vector<std::size_t> found{first};
    isSeen[first] = true;
    const int columns = map.grid.columns;
    for (std::size_t i = 0; i < found.size(); ++i) {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                const int x = int(found[i]) % columns + dx;
                const int y = int(found[i]) / columns + dy;
                if (x < 0 || y < 0 || x >= columns || y >= map.grid.rows)
                    continue;
                const std::size_t cell = map.grid.placeOf(x, y);
                if (map.steps[cell] >= step && !isSeen[cell]) {
                    isSeen[cell] = true;
                    found.push_back(cell);
                }
            }
        }
    }
    return found;
}

/// Without small groups: their cells are of the step below.
CellMap thinned(const CellMap& map) {
    CellMap left = emptyMap(map.grid);
    for (int step = 1; step <= int(cellSteps.size()); ++step) {
        std::vector<bool> isSeen(map.steps.size(), false);
        for (std::size_t cell = 0; cell < map.steps.size(); ++cell) {
            if (map.steps[cell] < step || isSeen[cell])
                continue;
            const auto group = groupAt(map, step, cell, isSeen);
            for (const std::size_t one : group)
                left.steps[one] = std::uint8_t(left.steps[one] + (int(group.size()) >= leastGroup));
        }
    }
    return left;
}

/// As it is kept: where nothing has changed nothing became brighter.
CellMap kept(const CellMap& map) {
    CellMap left = map;
    left.brighter = CellBits(map.grid);
    for (int cell = 0; cell < map.grid.count(); ++cell) {
        const int column = cell % map.grid.columns;
        const int row = cell / map.grid.columns;
        if (map.steps[std::size_t(cell)] > 0 && map.brighter.has(column, row))
            left.brighter.add(column, row);
    }
    return left;
}

Maps kept(const Maps& maps) {
    Maps all;
    for (const CellMap& map : maps)
        all.push_back(kept(map));
    return all;
}

CellMaps packed(const Maps& maps) {
    CellMaps all;
    for (const CellMap& map : maps)
        all.append(map);
    return all;
}

bool isSame(const CellMap& left, const CellMap& right) {
    return left.grid == right.grid && left.steps == right.steps &&
           left.brighter.words == right.brighter.words && left.isCarried == right.isCarried;
}

/// Whether they give back what is `kept` of what went in.
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
    int count = 0;
    for (const CellMap& map : maps) {
        const CellBits* bits = reader.next(step);
        if (!bits || !isSame(*bits, reader.isQuiet(), map, step) ||
            reader.isCarried() != map.isCarried)
            return false;
        // Whoever asks now and then gets the same.
        if (++count % 3 == 0 && reader.brighter().words != map.brighter.words)
            return false;
    }
    return !reader.next(step);
}

std::size_t bytesOf(const CellMaps& maps) {
    std::size_t bytes = 0;
    for (const StoredBlock& block : maps.blocks())
        bytes += block.size();
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
            if (one.isQuiet() != (bits->count() == 0) || one.brighter().grid != bits->grid)
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
    void smallGroupsAreLeftOut();
    void smallGroupsOfAnyMapAreLeftOut();
    void carriedMapsAreCounted();
    void partsMayBeginWithACarriedOne();
    void lastIsTheLast();
    void gridsMayChange();
    void joinsOthersBehind();
    void joinsNoneToNone();
    void isReadWhileItGrows();
    void copiesAreByThemselves();
    void givesTheSameBytesEachTime();
    void quietHoursAreSmall();
    void foreignBytesDoNoHarm();
    void absurdLengthsDoNoHarm();
    void mapsWithoutPicturesAreNotUnpacked();
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
    QTest::newRow("one cell") << 1 << 1 << 700 << 0.3;
    QTest::newRow("one row") << 160 << 1 << 300 << 0.1;
    QTest::newRow("one column") << 1 << 640 << 300 << 0.1;
    QTest::newRow("odd sides") << 37 << 23 << 300 << 0.1;
    QTest::newRow("two words and a bit") << 129 << 3 << 300 << 0.1;
    QTest::newRow("the largest grid") << mostCellColumns << mostCellRows << 30 << 0.001;
    QTest::newRow("no cells") << 0 << 0 << 300 << 0.0;
}

void TestCellMaps::givesBackWhatWentIn() {
    QFETCH(int, columns);
    QFETCH(int, rows);
    QFETCH(int, count);
    QFETCH(double, share);
    const Maps maps = randomMaps({columns, rows}, count, share, 1);
    const CellMaps all = packed(maps);
    const Maps expected = kept(maps);
    QVERIFY(areSame(all, expected));
    for (int step = 1; step <= int(cellSteps.size()); ++step)
        QVERIFY2(isSameStep(all, expected, step), qPrintable(QString::number(step)));
}

/// A group of seven cells, and one of a single cell inside a large one.
void TestCellMaps::smallGroupsAreLeftOut() {
    const CellGrid grid{10, 5};
    CellMap map(grid);
    const char* rows[] = {"22222     ", //
                          "2   2 1   ", //
                          "2 2 2  1  ", //
                          "    2   1 ", //
                          "2222   111"};
    CellMap expected(grid);
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const std::size_t cell = grid.placeOf(column, row);
            map.steps[cell] = std::uint8_t(rows[row][column] == ' ' ? 0 : rows[row][column] - '0');
            const bool isLarge = rows[row][column] == '2' && !(row == 2 && column == 2);
            expected.steps[cell] = isLarge ? 2 : 0;
        }
    }
    CellGroups groups;
    removeSmallGroups(map, groups);
    QVERIFY(map.steps == expected.steps);
}

void TestCellMaps::smallGroupsOfAnyMapAreLeftOut() {
    CellGroups groups;
    for (const CellGrid grid : {CellGrid{160, 90}, CellGrid{37, 23}, CellGrid{1, 50}}) {
        for (const double share : {0.001, 0.01, 0.05}) {
            for (CellMap map : randomMaps(grid, 20, share, 11)) {
                const CellMap expected = thinned(map);
                removeSmallGroups(map, groups);
                QVERIFY(map.steps == expected.steps);
            }
        }
    }
}

void TestCellMaps::carriedMapsAreCounted() {
    CellMap map = randomMaps({160, 90}, 1, 0.01, 1).front();
    Maps maps{map};
    map.isCarried = true;
    maps.resize(100000, map);
    const CellMaps all = packed(maps);
    QCOMPARE(all.count(), 100000);
    QCOMPARE(int(all.blocks().size()), 1);
    CellMapsReader reader(all);
    const CellMap expected = kept(map);
    for (int i = 0; i < 100000; ++i) {
        const CellMap* found = reader.next();
        QVERIFY(found && found->isCarried == (i > 0));
        QVERIFY(i % 1000 > 0 || found->steps == expected.steps);
    }
    QVERIFY(!reader.next());
}

void TestCellMaps::partsMayBeginWithACarriedOne() {
    Maps maps = randomMaps({160, 90}, 20, 0.01, 1);
    CellMaps all = packed(maps);
    CellMap carried = maps.back();
    carried.isCarried = true;
    const Maps others{carried, carried, randomMaps({160, 90}, 1, 0.02, 3).front()};
    all.append(packed(others));
    maps.insert(maps.end(), others.begin(), others.end());
    const Maps expected = kept(maps);
    QVERIFY(areSame(all, expected));
    QVERIFY(isSameStep(all, expected, changedStep));
}

void TestCellMaps::lastIsTheLast() {
    QVERIFY(isSame(CellMaps().last(), CellMap()));
    for (const int count : {1, 2, 300}) {
        const Maps maps = randomMaps({160, 90}, count, 0.01, 1);
        QVERIFY(isSame(packed(maps).last(), kept(maps.back())));
    }
}

void TestCellMaps::gridsMayChange() {
    Maps maps = randomMaps({160, 90}, 10, 0.1, 1);
    for (const CellGrid grid : {CellGrid{160, 120}, CellGrid{0, 0}, CellGrid{7, 3}}) {
        const Maps others = randomMaps(grid, 300, 0.1, 2);
        maps.insert(maps.end(), others.begin(), others.end());
    }
    const CellMaps all = packed(maps);
    const Maps expected = kept(maps);
    QVERIFY(areSame(all, expected));
    QVERIFY(isSameStep(all, expected, changedStep));
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
    const Maps expected = kept(maps);
    QVERIFY(areSame(all, expected));
    QVERIFY(isSameStep(all, expected, changedStep));
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
    for (const CellMap& map : kept(maps))
        QVERIFY(isSame(*reader.next(), map));
    QVERIFY(!reader.next());
    QCOMPARE(all.count(), 11);
}

void TestCellMaps::copiesAreByThemselves() {
    const Maps maps = randomMaps({160, 90}, 300, 0.1, 1);
    CellMaps one = packed(maps);
    const CellMaps other = one;
    one.append(maps.front());
    QVERIFY(areSame(other, kept(maps)));
}

void TestCellMaps::givesTheSameBytesEachTime() {
    const Maps maps = randomMaps({160, 90}, 600, 0.01, 1);
    const auto left = packed(maps).blocks();
    const auto right = packed(maps).blocks();
    QCOMPARE(left.size(), right.size());
    for (std::size_t i = 0; i < left.size(); ++i)
        QVERIFY(left[i].read()->bytes == right[i].read()->bytes);
}

/// What is said of an hour at 25 pictures a second: hardly anything where nothing moves.
void TestCellMaps::quietHoursAreSmall() {
    CellMap still = emptyMap({160, 90});
    CellMaps all;
    for (int i = 0; i < 90000; ++i) {
        still.isCarried = i % 2 == 1;
        all.append(still);
    }
    QVERIFY(bytesOf(all) < 100 * 1000);
}

/// Each block of good maps with some of its bytes changed, cut or lengthened.
void TestCellMaps::foreignBytesDoNoHarm() {
    const auto blocks = packed(randomMaps({37, 23}, 400, 0.02, 1)).blocks();
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i) {
        CellBlock block = *blocks[std::size_t(i) % blocks.size()].read();
        for (unsigned flaw = 0; flaw < 1 + random() % 4; ++flaw)
            block.bytes[random() % block.bytes.size()] = std::uint8_t(random());
        if (random() % 4 == 0)
            block.bytes.resize(random() % (2 * block.bytes.size()));
        if (random() % 4 == 0)
            block.grid = {int(random() % 161), int(random() % 641)};
        if (random() % 4 == 0)
            block.count = int(1 + random() % 1000);
        CellMaps maps;
        maps.append(StoredBlock(std::make_shared<const CellBlock>(block)));
        QVERIFY(isReadable(maps));
    }
}

void TestCellMaps::absurdLengthsDoNoHarm() {
    for (const std::size_t size : {0, 1, 27, 28, 29, 51, 52, 100}) {
        CellBlock block{{160, 640}, mostBlockMaps, std::vector<std::uint8_t>(size, 0xFF)};
        CellMaps maps;
        maps.append(StoredBlock(std::make_shared<const CellBlock>(block)));
        QVERIFY(isReadable(maps));
    }
}

/// Few bytes can say that all cells change in each of many maps, which is much to unpack for the
/// one picture that they are for.
void TestCellMaps::mapsWithoutPicturesAreNotUnpacked() {
    Maps maps;
    for (int i = 0; i < mostBlockMaps; ++i) {
        maps.push_back(emptyMap({160, 640}));
        std::fill(maps.back().steps.begin(), maps.back().steps.end(), std::uint8_t(i % 2));
    }
    CellBlock block = *packed(maps).blocks().front().read();
    QCOMPARE(int(unpackedPlane(block, 0).begins.size()), mostBlockMaps + 1);
    block.count = 2;
    const UnpackedPlane few = unpackedPlane(block, 0);
    QCOMPARE(int(few.begins.size()), block.count + 1);
    QVERIFY(few.changes.size() <= 2 * std::size_t(TileGrid(block.grid).count()));
}

QTEST_APPLESS_MAIN(TestCellMaps)
#include "test_cellmaps.moc"
