// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellgroups.h"

#include <QtTest>

#include <array>
#include <random>

namespace {

/// A set of cells drawn as text: '#' is in it.
CellBits drawn(const QList<QByteArray>& rows) {
    CellBits cells({rows.first().size(), rows.size()});
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < rows[row].size(); ++column) {
            if (rows[row][column] == '#')
                cells.add(column, row);
        }
    }
    return cells;
}

QVector<int> numbersOf(const CellGroup& group) {
    return {group.area,   group.left,    group.right, group.top,
            group.bottom, group.columns, group.rows};
}

QVector<QVector<int>> found(const CellBits& cells, int leastArea) {
    CellGroups groups;
    QVector<QVector<int>> all;
    for (const CellGroup& group : groups.find(cells, leastArea))
        all.append(numbersOf(group));
    return all;
}

/// The same by another road: every cell has a number, and the lowest of those that touch spreads
/// until nothing changes any more.
class SlowGroups {
public:
    explicit SlowGroups(const CellBits& cells)
        : grid(cells.grid)
        , numbers(grid.count(), none) {
        for (int i = 0; i < grid.count(); ++i) {
            if (cells.has(i % grid.columns, i / grid.columns))
                numbers[i] = i;
        }
        while (spread())
            ;
    }

    QVector<QVector<int>> groups(int leastArea) const {
        QMap<int, CellGroup> groups; // in the order of first cells, whose number it is
        for (int i = 0; i < numbers.size(); ++i) {
            if (numbers[i] != none)
                widen(groups, i);
        }
        QVector<QVector<int>> large;
        for (const CellGroup& group : groups) {
            if (group.area >= leastArea)
                large.append(numbersOf(group));
        }
        return large;
    }

private:
    static constexpr int none = -1;

    bool spread() {
        bool isChanged = false;
        for (int i = 0; i < numbers.size(); ++i)
            isChanged |= numbers[i] != none && takeLowest(i);
        for (int i = numbers.size() - 1; i >= 0; --i)
            isChanged |= numbers[i] != none && takeLowest(i);
        return isChanged;
    }

    bool takeLowest(int i) {
        const int before = numbers[i];
        for (int other = 0; other < 9; ++other) {
            const int column = i % grid.columns + other % 3 - 1;
            const int row = i / grid.columns + other / 3 - 1;
            if (column < 0 || column >= grid.columns || row < 0 || row >= grid.rows)
                continue;
            const int number = numbers[row * grid.columns + column];
            if (number != none)
                numbers[i] = qMin(numbers[i], number);
        }
        return numbers[i] != before;
    }

    void widen(QMap<int, CellGroup>& groups, int i) const {
        const int column = i % grid.columns;
        const int row = i / grid.columns;
        if (!groups.contains(numbers[i]))
            groups.insert(numbers[i], {0, column, column, row, row, 0, 0, 0});
        CellGroup& group = groups[numbers[i]];
        ++group.area;
        group.left = qMin(group.left, column);
        group.right = qMax(group.right, column);
        group.top = qMin(group.top, row);
        group.bottom = qMax(group.bottom, row);
        group.columns += column;
        group.rows += row;
    }

    CellGrid grid;
    QVector<int> numbers;
};

CellBits randomCells(CellGrid grid, double density, std::mt19937& random) {
    CellBits cells(grid);
    std::bernoulli_distribution isIn(density);
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            if (isIn(random))
                cells.add(column, row);
        }
    }
    return cells;
}

constexpr std::array<double, 9> densities{0.0, 0.01, 0.1, 0.25, 0.4, 0.5, 0.75, 0.99, 1.0};

} // namespace

class TestCellGroups : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void areaBoxAndSumsOfAGroup();
    void cornersTouch();
    void edgesOfThePictureDoNotTouch();
    void armsThatMeetBelowAreOneGroup();
    void marksAreCountedInTheirGroups();
    void smallGroupsAreLeftOut();
    void noCellsAreNoGroups();
    void likeTheSlowWayOnEveryGrid();
    void likeTheSlowWayWhereGroupsWind();
};

void TestCellGroups::areaBoxAndSumsOfAGroup() {
    const CellBits cells = drawn({"......", //
                                  "..##..", //
                                  "...#..", //
                                  "......"});
    QCOMPARE(found(cells, 1), QVector<QVector<int>>({{3, 2, 3, 1, 2, 8, 4}}));
}

void TestCellGroups::cornersTouch() {
    QCOMPARE(found(drawn({"#..", //
                          ".#.", //
                          "#.."}),
                   1)
                 .size(),
             1);
    QCOMPARE(found(drawn({"#.#", //
                          "...", //
                          "#.#"}),
                   1)
                 .size(),
             4);
}

void TestCellGroups::edgesOfThePictureDoNotTouch() {
    CellBits cells({128, 2}); // rows that end where words end
    cells.add(127, 0);
    cells.add(0, 1);
    QCOMPARE(found(cells, 1).size(), 2);
}

void TestCellGroups::armsThatMeetBelowAreOneGroup() {
    const CellBits cells = drawn({"#.#.#.#", //
                                  "#.#.#.#", //
                                  "#.#.###", //
                                  "####...", //
                                  "...#..."});
    QCOMPARE(found(cells, 1), QVector<QVector<int>>({{18, 0, 6, 0, 4, 50, 30}}));
}

void TestCellGroups::marksAreCountedInTheirGroups() {
    CellBits cells({160, 3});
    CellBits marks({160, 3});
    for (int column = 10; column < 150; ++column) {
        if (column != 140)
            cells.add(column, 0); // 130 of them, then nine
    }
    cells.add(20, 1);
    for (int column = 0; column < 160; column += 10)
        marks.add(column, 0);
    for (int column = 0; column < 160; ++column)
        marks.add(column, 1);
    CellGroups groups;
    const std::vector<CellGroup>& found = groups.find(cells, 1, marks);
    QCOMPARE(int(found.size()), 2);
    QCOMPARE(found[0].area, 131);
    QCOMPARE(found[0].marked, 14); // 10, 20 ... 130, and the one below
    QCOMPARE(found[1].marked, 0);
    QCOMPARE(groups.find(cells, 1).front().marked, 0);
}

void TestCellGroups::smallGroupsAreLeftOut() {
    const CellBits cells = drawn({"##..#", //
                                  "....#", //
                                  "#...#"});
    QCOMPARE(found(cells, 1).size(), 3);
    QCOMPARE(found(cells, 2).size(), 2);
    QCOMPARE(found(cells, 3), QVector<QVector<int>>({{3, 4, 4, 0, 2, 12, 3}}));
    QCOMPARE(found(cells, 4).size(), 0);
}

void TestCellGroups::noCellsAreNoGroups() {
    QCOMPARE(found(CellBits(), 0).size(), 0);
    QCOMPARE(found(CellBits({160, 90}), 0).size(), 0);
}

void TestCellGroups::likeTheSlowWayOnEveryGrid() {
    std::mt19937 random(1);
    CellGroups groups; // the same for all: what it keeps must not show
    for (int columns = 1; columns <= 160; ++columns) {
        for (int rows = 1; rows <= 120; rows += rows < 4 ? 1 : 1 + int(random() % 40)) {
            const double density = densities[random() % densities.size()];
            const CellBits cells = randomCells({columns, rows}, density, random);
            const int leastArea = 1 + int(random() % 4);
            QVector<QVector<int>> quick;
            for (const CellGroup& group : groups.find(cells, leastArea))
                quick.append(numbersOf(group));
            QCOMPARE(quick, SlowGroups(cells).groups(leastArea));
        }
    }
}

void TestCellGroups::likeTheSlowWayWhereGroupsWind() {
    std::mt19937 random(2);
    for (int i = 0; i < 40; ++i) { // about the density at which groups are most winding
        const CellBits cells = randomCells({160, 90}, 0.35 + 0.005 * i, random);
        QCOMPARE(found(cells, 1), SlowGroups(cells).groups(1));
    }
}

QTEST_APPLESS_MAIN(TestCellGroups)
#include "test_cellgroups.moc"
