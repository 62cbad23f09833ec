// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "groupmotion.h"

#include "cellmap.h"
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

/// Every other column, for groups of which one half becomes brighter and the other one darker.
CellBits bothWays(CellGrid of = grid) {
    CellBits cells(of);
    for (int row = 0; row < of.rows; ++row) {
        for (int column = 0; column < of.columns; column += 2)
            cells.add(column, row);
    }
    return cells;
}

/// The next count, of groups of which these cells become brighter.
int count(GroupMotion& motion, double time, const CellBits& changed, const CellBits& brighter) {
    CellBits both = changed;
    both.keep(brighter);
    return motion.add(time, GroupFinder().find({changed, changed, both}));
}

/// The same for groups that change both ways.
int count(GroupMotion& motion, double time, const CellBits& changed) {
    return count(motion, time, changed, bothWays(changed.grid));
}

/// The cells that each of two seconds' pictures counts, of a box whose corner `at` tells.
QVector<int> counts(const std::function<QPoint(int picture)>& at, QSize size = {4, 5}) {
    GroupMotion motion;
    QVector<int> all;
    for (int picture = 0; picture < 50; ++picture)
        all.append(count(motion, 100.0 + picture * interval, boxOf({at(picture), size})));
    return all;
}

const std::function<QPoint(int)> walking = [](int picture) { return QPoint(20 + picture / 3, 30); };

} // namespace

class TestGroupMotion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theLargestGroupCounts();
    void nothingChanged();
    void fewCellsCountNothing();
    void whatStaysCountsTwiceAfterAWhile();
    void whatMovesAlongCountsMoreFromThenOn();
    void whatSwaysCountsOnce();
    void whatCreepsCountsOnce();
    void aShortGapIsBridged();
    void aLongGapBeginsAnew();
    void timesThatRunBackwardsBeginAnew();
    void anotherGridBeginsAnew();
    void aSmallOneThatMovesBesideALargeOneThatStays();
    void twoThatMeetAreTakenForNoOther();
    void whatGoesOneWayForLongCountsNothing();
    void aFewCellsTheOtherWayAreNoise();
    void partsOfWhatGoesOneWayCountNothing();
    void lightThatMovesAlongCountsNothing();
    void whatIsAroundAGroupTellsWhichWayItGoes();
    void aQuickThingOfOneBrightnessIsNoLight();
    void partnersAreNearAndAsLarge_data();
    void partnersAreNearAndAsLarge();
    void whatTurnsRoundIsNoLight();
    void ofManyGroupsNoneCountsMore();
    void rareMapsFollowOneAnother();
    void manyGroupsAreBounded();
};

void TestGroupMotion::theLargestGroupCounts() {
    CellBits cells = boxOf({0, 0, 3, 3});
    add(cells, {100, 50, 4, 3});
    GroupMotion motion;
    QCOMPARE(count(motion, 0.0, cells), 12);
    QCOMPARE(count(motion, 1.0, boxOf({0, 0, 3, 3})), 9);
}

void TestGroupMotion::nothingChanged() {
    GroupMotion motion;
    QCOMPARE(count(motion, 0.0, CellBits(grid)), 0);
    QCOMPARE(count(motion, 1.0, CellBits(grid)), 0);
}

void TestGroupMotion::fewCellsCountNothing() {
    GroupMotion motion;
    QCOMPARE(count(motion, 0.0, boxOf({5, 5, leastGroup - 1, 1})), 0);
    QCOMPARE(count(motion, 1.0, boxOf({5, 5, leastGroup, 1})), leastGroup);
}

void TestGroupMotion::whatStaysCountsTwiceAfterAWhile() {
    const QVector<int> all = counts([](int) { return QPoint(20, 30); });
    for (int picture = 0; picture < 50; ++picture) {
        if (qAbs(picture * interval - stayingAge) > interval) // times are not exact
            QCOMPARE(all[picture], picture * interval < stayingAge ? 20 : 20 * stayingWeight);
    }
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
    QCOMPARE(counts(swaying).mid(0, 37), QVector<int>(37, 20)); // until it is taken for somebody
}

void TestGroupMotion::whatCreepsCountsOnce() {
    const auto creeping = [](int picture) { return QPoint(20 + picture / 25, 30); };
    QCOMPARE(counts(creeping).mid(0, 37), QVector<int>(37, 20));
}

void TestGroupMotion::aShortGapIsBridged() {
    GroupMotion motion;
    int last = 0;
    for (int picture = 0; picture < 50; ++picture) {
        const bool isSeen = picture < 30 || picture >= 36; // 0.28 s from one to the next
        last = count(motion, picture * interval,
                     isSeen ? boxOf({walking(picture), QSize(4, 5)}) : CellBits(grid));
        QCOMPARE(last > 0, isSeen);
    }
    QCOMPARE(last, 20 * alongWeight);
}

void TestGroupMotion::aLongGapBeginsAnew() {
    GroupMotion motion;
    for (int picture = 0; picture < 30; ++picture)
        count(motion, picture * interval, boxOf({walking(picture), QSize(4, 5)}));
    for (int picture = 30; picture < 40; ++picture)
        QCOMPARE(count(motion, picture * interval, CellBits(grid)), 0);
    QCOMPARE(count(motion, 40 * interval, boxOf({walking(40), QSize(4, 5)})), 20);
}

void TestGroupMotion::timesThatRunBackwardsBeginAnew() {
    for (const double next : {-1.0, std::numeric_limits<double>::quiet_NaN()}) {
        GroupMotion motion;
        for (int picture = 0; picture < 30; ++picture)
            count(motion, picture * interval, boxOf({walking(picture), QSize(4, 5)}));
        QCOMPARE(count(motion, next, boxOf({walking(30), QSize(4, 5)})), 20);
        QCOMPARE(count(motion, next + interval, boxOf({walking(31), QSize(4, 5)})), 20);
    }
}

void TestGroupMotion::anotherGridBeginsAnew() {
    GroupMotion motion;
    for (int picture = 0; picture < 30; ++picture)
        count(motion, picture * interval, boxOf({walking(picture), QSize(4, 5)}));
    CellBits other({160, 120});
    add(other, {walking(30), QSize(4, 5)});
    QCOMPARE(count(motion, 30 * interval, other), 20);
}

void TestGroupMotion::aSmallOneThatMovesBesideALargeOneThatStays() {
    GroupMotion motion;
    int last = 0;
    for (int picture = 0; picture < 50; ++picture) {
        CellBits cells = boxOf({walking(picture), QSize(4, 5)});
        add(cells, {100, 60, 7, 7}); // of which the small one is a quarter and more
        last = count(motion, picture * interval, cells);
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
        const int counted = count(motion, picture * interval, cells);
        if (picture >= 25)
            QCOMPARE(counted, 20 * alongWeight);
    }
}

void TestGroupMotion::whatGoesOneWayForLongCountsNothing() {
    for (const bool isBrighter : {false, true}) {
        GroupMotion motion;
        const CellBits lamp = boxOf({20, 30, 10, 10});
        const CellBits brighter = isBrighter ? lamp : CellBits(grid);
        for (int picture = 0; picture < 50; ++picture) {
            const int counted = count(motion, picture * interval, lamp, brighter);
            if (qAbs(picture * interval - oneWayTime) > interval) // times are not exact
                QCOMPARE(counted, picture * interval < oneWayTime ? 100 : 0);
        }
        QCOMPARE(count(motion, 50 * interval, lamp, bothWays()), 100 * stayingWeight);
        QCOMPARE(count(motion, 51 * interval, lamp, brighter), 100 * stayingWeight);
    }
}

void TestGroupMotion::aFewCellsTheOtherWayAreNoise() {
    const CellBits lamp = boxOf({20, 30, 10, 10});
    for (const int others : {3, 4}) { // of a hundred
        GroupMotion motion;
        int last = 0;
        for (int picture = 0; picture < 50; ++picture)
            last = count(motion, picture * interval, lamp, boxOf({20, 30, 1, others}));
        QCOMPARE(last, others > bothWaysPercent ? 100 * stayingWeight : 0);
    }
}

void TestGroupMotion::partsOfWhatGoesOneWayCountNothing() {
    GroupMotion motion;
    for (int picture = 0; picture < 30; ++picture)
        count(motion, picture * interval, boxOf({20, 30, 20, 10}), CellBits(grid));
    CellBits parts = boxOf({24, 30, 12, 10}); // its middle stays
    add(parts, {20, 30, 3, 10});
    add(parts, {37, 30, 3, 10});
    QCOMPARE(count(motion, 30 * interval, parts, CellBits(grid)), 0);
    add(parts, {100, 30, 5, 5}); // apart, and new
    QCOMPARE(count(motion, 31 * interval, parts, CellBits(grid)), 25);
}

void TestGroupMotion::lightThatMovesAlongCountsNothing() {
    GroupMotion motion;
    int last = 0;
    for (int picture = 0; picture < 50; ++picture)
        last = count(motion, picture * interval, boxOf({walking(picture), QSize(4, 5)}),
                     CellBits(grid));
    QCOMPARE(last, 0);
}

void TestGroupMotion::whatIsAroundAGroupTellsWhichWayItGoes() {
    GroupMotion motion;
    int last = 0;
    for (int picture = 0; picture < 50; ++picture) { // brighter, with a darker edge that is weak
        const QRect box(walking(picture), QSize(4, 5));
        const CellBits all = boxOf(box.adjusted(-1, 0, 0, 0));
        last = motion.add(picture * interval, GroupFinder().find({boxOf(box), all, boxOf(box)}));
    }
    QCOMPARE(last, 20 * alongWeight);
}

void TestGroupMotion::aQuickThingOfOneBrightnessIsNoLight() {
    // It is 24 x 32 cells and moves 16 cells a second: 9 columns where it arrives become brighter,
    // and 9 where it was darker. 6 columns lie between them.
    GroupMotion motion;
    int last = 0;
    for (int picture = 0; picture < 50; ++picture) {
        const int left = 10 + picture * 16 / 25;
        const CellBits arriving = boxOf({left + 15, 30, 9, 32});
        CellBits cells = arriving;
        add(cells, {left, 30, 9, 32});
        last = count(motion, picture * interval, cells, arriving);
        QVERIFY2(last >= 9 * 32, qPrintable(QString::number(picture)));
    }
    QCOMPARE(last, 9 * 32 * alongWeight);
}

void TestGroupMotion::partnersAreNearAndAsLarge_data() {
    QTest::addColumn<QRect>("other");
    QTest::addColumn<bool>("isBrighter");
    QTest::addColumn<bool>("isPartner");
    QTest::newRow("as large") << QRect(40, 30, 10, 10) << true << true;
    QTest::newRow("the same way") << QRect(40, 30, 10, 10) << false << false;
    QTest::newRow("as far as it is long") << QRect(40, 40, 10, 10) << true << true;
    QTest::newRow("farther") << QRect(41, 30, 10, 10) << true << false;
    QTest::newRow("farther below") << QRect(30, 51, 10, 10) << true << false;
    QTest::newRow("a third") << QRect(33, 30, 4, 9) << true << true;
    QTest::newRow("less than a third") << QRect(33, 30, 4, 8) << true << false;
}

void TestGroupMotion::partnersAreNearAndAsLarge() {
    QFETCH(QRect, other);
    QFETCH(bool, isBrighter);
    QFETCH(bool, isPartner);
    GroupMotion motion;
    CellBits cells = boxOf({20, 30, 10, 10});
    add(cells, other);
    int last = 0;
    for (int picture = 0; picture < 30; ++picture)
        last = count(motion, picture * interval, cells, isBrighter ? boxOf(other) : CellBits(grid));
    QCOMPARE(last, isPartner ? 100 : 0);
}

void TestGroupMotion::whatTurnsRoundIsNoLight() {
    GroupMotion motion;
    for (int picture = 0; picture < 60; ++picture) {
        const CellBits box = boxOf({20, 30, 10, 10});
        const bool isBrighter = picture / 15 % 2 == 0; // for 0.6 s
        QCOMPARE(count(motion, picture * interval, box, isBrighter ? box : CellBits(grid)), 100);
    }
}

void TestGroupMotion::ofManyGroupsNoneCountsMore() {
    GroupMotion motion;
    int last = 0;
    for (int picture = 0; picture < 50; ++picture) {
        CellBits cells(grid);
        for (int i = 0; i < 5; ++i)
            add(cells, {walking(picture) + QPoint(0, 10 * i - 25), QSize(4, 5)});
        last = count(motion, picture * interval, cells);
    }
    QCOMPARE(last, 20);
}

void TestGroupMotion::rareMapsFollowOneAnother() {
    GroupMotion motion;
    for (int picture = 0; picture < 3; ++picture)
        QCOMPARE(count(motion, picture * 0.5, boxOf({20 + 3 * picture, 30, 4, 5})),
                 picture < 2 ? 20 : 20 * alongWeight);
    GroupMotion rarer;
    for (int picture = 0; picture < 4; ++picture)
        QCOMPARE(count(rarer, picture * 1.1, boxOf({20 + 3 * picture, 30, 4, 5})), 20);
}

void TestGroupMotion::manyGroupsAreBounded() {
    GroupMotion motion;
    for (int picture = 0; picture < 2000; ++picture) { // more than are remembered, in no time
        CellBits cells(grid);
        for (int i = 0; i < 12; ++i)
            add(cells, {(picture * 7 + i * 13) % 150, (picture * 5 + i * 7) % 86, 3, 3});
        const int counted = count(motion, picture * 1e-6, cells);
        QVERIFY(counted >= 9);
    }
}

QTEST_APPLESS_MAIN(TestGroupMotion)
#include "test_groupmotion.moc"
