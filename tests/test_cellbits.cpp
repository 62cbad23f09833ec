// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellmap.h"

#include <QtTest>

#include <random>

class TestCellBits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bitsBehindTheLastColumnStayClear();
    void keepsAndRemoves();
    void cellsThatHaveReachedAStep();
};

void TestCellBits::bitsBehindTheLastColumnStayClear() {
    const CellBits all({70, 3}, true);
    QCOMPARE(all.wordsPerRow, 2);
    QCOMPARE(all.count(), 210);
    for (const std::size_t word : {1U, 3U, 5U})
        QCOMPARE(quint64(all.words[word]), quint64(63));
}

void TestCellBits::keepsAndRemoves() {
    CellBits left({130, 2});
    CellBits right({130, 2});
    left.add(0, 0);
    left.add(129, 1);
    right.add(129, 1);
    right.add(1, 0);

    CellBits both = left;
    both.keep(right);
    QCOMPARE(both.count(), 1);
    QVERIFY(both.has(129, 1));

    left.remove(right);
    QCOMPARE(left.count(), 1);
    QVERIFY(left.has(0, 0));
    QVERIFY(!left.isEmpty());
    left.remove(0, 0);
    QVERIFY(left.isEmpty());
}

void TestCellBits::cellsThatHaveReachedAStep() {
    std::mt19937 random(1);
    for (int columns = 1; columns <= 160; ++columns) {
        CellMap map;
        map.grid = {columns, 3};
        for (int i = 0; i < map.grid.count(); ++i)
            map.steps.push_back(std::uint8_t(random() % (cellSteps.size() + 1)));
        for (int step = 1; step <= int(cellSteps.size()); ++step) {
            const CellBits cells = cellsFrom(map, step);
            for (int i = 0; i < map.grid.count(); ++i)
                QCOMPARE(cells.has(i % columns, i / columns), map.steps[std::size_t(i)] >= step);
            const auto isReached = [step](std::uint8_t of) { return of >= step; };
            QCOMPARE(cells.count(),
                     int(std::count_if(map.steps.begin(), map.steps.end(), isReached)));
        }
    }
}

QTEST_APPLESS_MAIN(TestCellBits)
#include "test_cellbits.moc"
