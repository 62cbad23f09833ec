// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "groupmotion.h"

#include "grouprules.h"

#include <QPoint>
#include <QRect>
#include <QtTest>

#include <functional>

namespace {

constexpr CellGrid grid{160, 90};
constexpr double interval = 0.04; // seconds

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

/// The cells that each of two seconds' pictures counts, of a box whose corner `at` tells.
QVector<int> counts(const std::function<QPoint(int picture)>& at, QSize size = {4, 5}) {
    GroupMotion motion;
    QVector<int> all;
    for (int picture = 0; picture < 50; ++picture)
        all.append(motion.add(100.0 + picture * interval, boxOf({at(picture), size})));
    return all;
}

const std::function<QPoint(int)> walking = [](int picture) { return QPoint(20 + picture / 3, 30); };

} // namespace

class TestGroupMotion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theLargestGroupCounts();
    void nothingChanged();
    void whatStaysCountsOnce();
    void whatMovesAlongCountsMoreFromThenOn();
    void whatSwaysCountsOnce();
    void whatCreepsCountsOnce();
    void aShortGapIsBridged();
    void aLongGapBeginsAnew();
    void timesThatRunBackwardsBeginAnew();
    void anotherGridBeginsAnew();
    void aSmallOneThatMovesBesideALargeOneThatStays();
    void twoThatMeetAreTakenForNoOther();
    void manyGroupsAreBounded();
};

void TestGroupMotion::theLargestGroupCounts() {
    CellBits cells = boxOf({0, 0, 3, 3});
    add(cells, {100, 50, 4, 3});
    QCOMPARE(GroupMotion().add(0.0, cells), 12);
    QCOMPARE(GroupMotion().add(0.0, boxOf({5, 5, 1, 1})), 1);
}

void TestGroupMotion::nothingChanged() {
    GroupMotion motion;
    QCOMPARE(motion.add(0.0, CellBits(grid)), 0);
    QCOMPARE(motion.add(1.0, CellBits()), 0);
}

void TestGroupMotion::whatStaysCountsOnce() {
    QCOMPARE(counts([](int) { return QPoint(20, 30); }), QVector<int>(50, 20));
}

void TestGroupMotion::whatMovesAlongCountsMoreFromThenOn() {
    const QVector<int> all = counts(walking);
    const int first = qRound(alongTime / interval) + 1;
    for (int picture = 0; picture < 50; ++picture) {
        if (qAbs(picture - first) > 1) // times are not exact
            QCOMPARE(all[picture], picture < first ? 20 : 20 * alongWeight);
    }
}

void TestGroupMotion::whatSwaysCountsOnce() {
    const auto swaying = [](int picture) { return QPoint(20 + qAbs(picture % 12 - 6), 30); };
    QCOMPARE(counts(swaying), QVector<int>(50, 20));
}

void TestGroupMotion::whatCreepsCountsOnce() {
    QCOMPARE(counts([](int picture) { return QPoint(20 + picture / 25, 30); }),
             QVector<int>(50, 20));
}

void TestGroupMotion::aShortGapIsBridged() {
    GroupMotion motion;
    int last = 0;
    for (int picture = 0; picture < 50; ++picture) {
        const bool isSeen = picture < 30 || picture >= 36; // 0.28 s from one to the next
        last = motion.add(picture * interval,
                          isSeen ? boxOf({walking(picture), QSize(4, 5)}) : CellBits(grid));
        QCOMPARE(last > 0, isSeen);
    }
    QCOMPARE(last, 20 * alongWeight);
}

void TestGroupMotion::aLongGapBeginsAnew() {
    GroupMotion motion;
    for (int picture = 0; picture < 30; ++picture)
        motion.add(picture * interval, boxOf({walking(picture), QSize(4, 5)}));
    QCOMPARE(motion.add(40 * interval, boxOf({walking(40), QSize(4, 5)})), 20);
}

void TestGroupMotion::timesThatRunBackwardsBeginAnew() {
    for (const double next : {-1.0, std::numeric_limits<double>::quiet_NaN()}) {
        GroupMotion motion;
        for (int picture = 0; picture < 30; ++picture)
            motion.add(picture * interval, boxOf({walking(picture), QSize(4, 5)}));
        QCOMPARE(motion.add(next, boxOf({walking(30), QSize(4, 5)})), 20);
        QCOMPARE(motion.add(next + interval, boxOf({walking(31), QSize(4, 5)})), 20);
    }
}

void TestGroupMotion::anotherGridBeginsAnew() {
    GroupMotion motion;
    for (int picture = 0; picture < 30; ++picture)
        motion.add(picture * interval, boxOf({walking(picture), QSize(4, 5)}));
    CellBits other({160, 120});
    add(other, {walking(30), QSize(4, 5)});
    QCOMPARE(motion.add(30 * interval, other), 20);
}

void TestGroupMotion::aSmallOneThatMovesBesideALargeOneThatStays() {
    GroupMotion motion;
    int last = 0;
    for (int picture = 0; picture < 50; ++picture) {
        CellBits cells = boxOf({walking(picture), QSize(4, 5)});
        add(cells, {100, 60, 9, 9});
        last = motion.add(picture * interval, cells);
    }
    QCOMPARE(last, 20 * alongWeight);
}

void TestGroupMotion::twoThatMeetAreTakenForNoOther() {
    // One that stays appears beside the place that the one walking has left long ago.
    GroupMotion motion;
    for (int picture = 0; picture < 50; ++picture) {
        CellBits cells = boxOf({walking(picture), QSize(4, 5)});
        if (picture >= 40)
            add(cells, {15, 30, 3, 5});
        const int count = motion.add(picture * interval, cells);
        if (picture >= 25)
            QCOMPARE(count, 20 * alongWeight);
    }
}

void TestGroupMotion::manyGroupsAreBounded() {
    GroupMotion motion;
    for (int picture = 0; picture < 2000; ++picture) { // more than are remembered, in no time
        CellBits cells(grid);
        for (int i = 0; i < 12; ++i)
            add(cells, {(picture * 7 + i * 13) % 150, (picture * 5 + i * 7) % 88, 2, 2});
        const int count = motion.add(picture * 1e-6, cells);
        QVERIFY(count >= 4);
    }
}

QTEST_APPLESS_MAIN(TestGroupMotion)
#include "test_groupmotion.moc"
