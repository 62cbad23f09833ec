// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Which part of which recording is measured next, and when no more is.

#include "partqueue.h"
#include "searchbudget.h"

#include <QtTest>

namespace {

QVector<QPair<int, int>> restOf(PartQueue& queue) {
    QVector<QPair<int, int>> rest;
    while (const auto place = queue.next())
        rest.append({place->recording, place->part});
    return rest;
}

using Places = QVector<QPair<int, int>>;

} // namespace

class TestPartQueue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theLikeliestOfAllComesFirst();
    void preferredOnesComeBefore();
    void whatIsThereIsNotMeasuredAgain();
    void sharesAreSpent();
    void timesAreSpent();
    void withoutALimitNothingIs();
};

void TestPartQueue::theLikeliestOfAllComesFirst() {
    PartQueue queue;
    queue.add(2, {{1.0F, 1.0F}, {3.0F, 3.0F}});
    queue.add(2, {}); // promises nothing
    queue.add(2, {{4.0F, 4.0F}, {2.0F, 2.0F}});
    queue.arrange();
    QCOMPARE(restOf(queue), (Places{{2, 0}, {0, 1}, {2, 1}, {0, 0}, {1, 0}, {1, 1}}));
}

void TestPartQueue::preferredOnesComeBefore() {
    PartQueue queue;
    queue.add(4, {});
    queue.arrange();
    QVERIFY(queue.next() == (PartPlace{0, 0}));
    queue.prefer({0, 3});
    queue.prefer({0, 0}); // has been taken
    QCOMPARE(restOf(queue), (Places{{0, 3}, {0, 1}, {0, 2}}));
}

void TestPartQueue::whatIsThereIsNotMeasuredAgain() {
    PartQueue queue;
    queue.add(3, {});
    queue.add(2, {});
    queue.arrange();
    QCOMPARE(queue.left(), 5);
    queue.remove({0, 1});
    queue.remove({0, 1});
    QCOMPARE(queue.left(), 4);
    queue.removeAll(1);
    QCOMPARE(queue.left(), 2);
    queue.prefer({1, 0});
    QCOMPARE(restOf(queue), (Places{{0, 0}, {0, 2}}));
    QVERIFY(!queue.next());
    QCOMPARE(queue.left(), 0);
}

void TestPartQueue::sharesAreSpent() {
    SearchLimit quarter;
    quarter.share = 0.25;
    SearchBudget budget(quarter);
    QVERIFY(!budget.isSpent());
    budget.setLength(100.0);
    QVERIFY(!budget.isSpent());
    budget.add(24.9);
    QVERIFY(!budget.isSpent());
    budget.add(0.1);
    QVERIFY(budget.isSpent());
}

void TestPartQueue::timesAreSpent() {
    SearchLimit soon;
    soon.seconds = 0.05;
    const SearchBudget budget(soon);
    QTRY_VERIFY(budget.isSpent());
}

void TestPartQueue::withoutALimitNothingIs() {
    SearchBudget budget(std::nullopt);
    budget.setLength(1.0);
    budget.add(1e9);
    QVERIFY(!budget.isSpent());
}

QTEST_GUILESS_MAIN(TestPartQueue)
#include "test_partqueue.moc"
