// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "restlesscells.h"

#include <QRect>
#include <QtTest>

#include <functional>

namespace {

constexpr CellGrid grid{160, 90};
constexpr int rate = 5; // pictures a second

void add(CellBits& cells, const QRect& box) {
    for (int row = box.top(); row <= box.bottom(); ++row) {
        for (int column = box.left(); column <= box.right(); ++column)
            cells.add(column, row);
    }
}

CellBits boxOf(const QRect& box) {
    CellBits cells(grid);
    add(cells, box);
    return cells;
}

/// What is restless of a recording of `seconds`, of which `changedIn` draws the changed cells of
/// each second. They change in its third picture alone.
CellBits restlessOf(int seconds, const std::function<void(int second, CellBits&)>& changedIn) {
    RestlessCells restless;
    for (int picture = 0; picture <= seconds * rate; ++picture) {
        CellBits changed(grid);
        if (picture % rate == 2)
            changedIn(picture / rate, changed);
        restless.add(10.0 + double(picture) / rate, changed);
    }
    return restless.found();
}

constexpr QRect digits(10, 4, 12, 3);

void clockTicks(int, CellBits& changed) {
    add(changed, digits);
}

} // namespace

class TestRestlessCells : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aClockWithItsNeighbours();
    void aClockInTheCorner();
    void shortRecordingsTellNothing();
    void whatChangesInHalfOfTheSecondsStays();
    void whatSurroundsARestlessCellGoesWithIt();
    void aRoadStays();
    void aClockBesideARoad();
    void gapsBetweenPicturesAreNoStretches();
    void timesThatRunBackwards();
    void anotherGridBeginsAnew();
};

void TestRestlessCells::aClockWithItsNeighbours() {
    QCOMPARE(restlessOf(60, clockTicks).words, boxOf(digits.adjusted(-1, -1, 1, 1)).words);
}

void TestRestlessCells::aClockInTheCorner() {
    const auto ticks = [](int, CellBits& changed) { add(changed, {150, 88, 10, 2}); };
    QCOMPARE(restlessOf(60, ticks).words, boxOf({149, 87, 11, 3}).words);
}

void TestRestlessCells::shortRecordingsTellNothing() {
    QCOMPARE(RestlessCells().found().count(), 0);
    QVERIFY(restlessOf(49, clockTicks).grid == CellGrid());
    QVERIFY(restlessOf(50, [](int, CellBits&) {}).grid == grid); // nothing is restless
}

void TestRestlessCells::whatChangesInHalfOfTheSecondsStays() {
    const auto until = [](int end) {
        return [end](int second, CellBits& changed) {
            if (second < end)
                add(changed, digits);
        };
    };
    QCOMPARE(restlessOf(100, until(50)).count(), 0);
    QVERIFY(restlessOf(100, until(51)).count() > 0);
}

void TestRestlessCells::whatSurroundsARestlessCellGoesWithIt() {
    const auto leaf = [](int second, CellBits& changed) {
        if (second % 5 < 3)
            add(changed, {50, 50, 2, 2});
        if (second % 5 < 2) // in 40 %
            add(changed, {52, 50, 2, 2});
        if (second % 5 < 1)
            add(changed, {54, 50, 2, 2});
        if (second % 5 < 2) // apart from it
            add(changed, {70, 50, 2, 2});
    };
    QCOMPARE(restlessOf(100, leaf).words, boxOf({49, 49, 6, 4}).words);
}

void TestRestlessCells::aRoadStays() {
    const auto cars = [](int second, CellBits& changed) {
        add(changed, {second % 2 * 80, 40, 80, 8}); // half of the lane in each second
        if (second % 10 == 0)
            add(changed, {0, 40, 160, 8});
    };
    QCOMPARE(restlessOf(200, cars).count(), 0);
}

void TestRestlessCells::aClockBesideARoad() {
    const auto both = [](int, CellBits& changed) {
        add(changed, digits);
        add(changed, {0, 40, 160, 8});
    };
    QCOMPARE(restlessOf(200, both).words, boxOf(digits.adjusted(-1, -1, 1, 1)).words);
}

void TestRestlessCells::gapsBetweenPicturesAreNoStretches() {
    RestlessCells restless;
    for (int picture = 0; picture <= 60; ++picture)
        restless.add(picture * 10.0, boxOf(digits));
    QCOMPARE(restless.found().words, boxOf(digits.adjusted(-1, -1, 1, 1)).words);
}

void TestRestlessCells::timesThatRunBackwards() {
    RestlessCells restless;
    for (int picture = 0; picture <= 60; ++picture)
        restless.add(-double(picture), boxOf(digits));
    restless.add(std::numeric_limits<double>::quiet_NaN(), boxOf(digits));
    QCOMPARE(restless.found().words, boxOf(digits.adjusted(-1, -1, 1, 1)).words);
}

void TestRestlessCells::anotherGridBeginsAnew() {
    RestlessCells restless;
    for (int picture = 0; picture <= 60; ++picture)
        restless.add(double(picture), boxOf(digits));
    restless.add(61.0, CellBits({160, 120}));
    QCOMPARE(restless.found().count(), 0);
    QVERIFY(restless.found().grid == CellGrid());
}

QTEST_APPLESS_MAIN(TestRestlessCells)
#include "test_restlesscells.moc"
