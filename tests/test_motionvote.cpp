// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionvote.h"

#include <QtTest>

#include <random>

namespace {

/// The vote as it is defined, counting everything anew.
bool literalVote(const QVector<MotionScore>& scores, const QVector<double>& times, double window,
                 float threshold) {
    const int size = scores.size();
    if (size < 4 || times.size() < 2)
        return false;
    if (!(times[size - 2] + window > times[size - 1]))
        return false;
    int counted = 0;
    int hits = 0;
    for (int i = size - 2; i >= 0 && times[i] + window > times[size - 1]; --i) {
        ++counted;
        if (scores[i].value >= threshold)
            ++hits;
    }
    return float(hits) / float(counted) >= 0.5F;
}

/// Lists that grow together with their vote.
struct Recording {
    Recording(double window, float threshold)
        : window(window)
        , threshold(threshold)
        , vote(series, window, {threshold}) {}

    void add(float value, double time) {
        series.scores.append(MotionScore{value});
        series.times.append(time);
        vote.advance();
    }

    bool literal() const { return literalVote(series.scores, series.times, window, threshold); }

    double window;
    float threshold;
    MotionSeries series;
    MotionVote vote;
};

} // namespace

class TestMotionVote : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void needsFourEntries();
    void newestEntryIsNotCounted();
    void tieWins();
    void valueAtTheThresholdCounts();
    void windowEndsStrictly();
    void emptyWindowIsNeverWon();
    void windowIsWidenedWhereItHoldsTooFew();
    void countsTheLastSecondOnly();
    void equalsTheLiteralVote_data();
    void equalsTheLiteralVote();
};

void TestMotionVote::needsFourEntries() {
    Recording recording(10.0, 0.5F);
    for (int i = 0; i < 3; ++i) {
        recording.add(1.0F, i);
        QVERIFY(!recording.vote.isWon());
    }
    recording.add(1.0F, 3.0);
    QVERIFY(recording.vote.isWon());
}

void TestMotionVote::newestEntryIsNotCounted() {
    Recording recording(10.0, 0.5F);
    for (int i = 0; i < 3; ++i)
        recording.add(0.0F, i);
    recording.add(9.0F, 3.0);
    QVERIFY(!recording.vote.isWon());

    Recording other(10.0, 0.5F);
    for (int i = 0; i < 3; ++i)
        other.add(9.0F, i);
    other.add(0.0F, 3.0);
    QVERIFY(other.vote.isWon());
}

void TestMotionVote::tieWins() {
    Recording recording(10.0, 0.5F);
    for (const float value : {1.0F, 0.0F, 1.0F, 0.0F})
        recording.add(value, recording.series.times.size());
    recording.add(0.0F, 4.0); // 2 of 4
    QVERIFY(recording.vote.isWon());
    recording.add(0.0F, 5.0); // 2 of 5
    QVERIFY(!recording.vote.isWon());
}

void TestMotionVote::valueAtTheThresholdCounts() {
    Recording at(10.0, 0.5F);
    Recording below(10.0, 0.5F);
    for (int i = 0; i < 4; ++i) {
        at.add(0.5F, i);
        below.add(std::nextafter(0.5F, 0.0F), i);
    }
    QVERIFY(at.vote.isWon());
    QVERIFY(!below.vote.isWon());
}

void TestMotionVote::windowEndsStrictly() {
    // The entry at 1.0 lies exactly one window before the reference time and is not counted.
    Recording recording(2.0, 0.5F);
    recording.add(9.0F, 0.0);
    recording.add(9.0F, 1.0);
    recording.add(0.0F, 2.0);
    recording.add(0.0F, 3.0);
    QVERIFY(!recording.vote.isWon());
}

void TestMotionVote::emptyWindowIsNeverWon() {
    Recording recording(0.0, 0.5F);
    for (int i = 0; i < 20; ++i) {
        recording.add(9.0F, i * 0.04);
        QVERIFY(!recording.vote.isWon());
    }
}

/// The pictures lie 10 s apart, the window is 5 s long.
void TestMotionVote::windowIsWidenedWhereItHoldsTooFew() {
    MotionSeries series;
    MotionVote vote(series, 5.0, {0.5F}, 2);
    QVector<bool> won;
    for (const float value : {1.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F}) {
        series.scores.append(MotionScore{value});
        series.times.append(series.times.size() * 10.0);
        vote.advance();
        won.append(vote.isWon());
    }
    // Counted are the two before the newest: one hit of two wins.
    QCOMPARE(won, QVector<bool>({false, false, false, false, false, true, true, false}));
    // After a step back the window is counted anew: all of it lies later, two of eight are hits.
    series.scores.append(MotionScore{1.0F});
    series.times.append(2.0);
    vote.advance();
    QVERIFY(!vote.isWon());
    // None lies within 5 s; the two before, over the step, are a hit and none.
    series.scores.append(MotionScore());
    series.times.append(90.0);
    vote.advance();
    QVERIFY(vote.isWon());
}

void TestMotionVote::countsTheLastSecondOnly() {
    // 25 frames per second, a window of 1 s: the 24 or 25 entries before the newest. Quiet for two
    // seconds, then motion: won when 12 of 24 or 13 of 25 entries are motion.
    Recording recording(1.0, 0.5F);
    int frame = 0;
    for (; frame < 50; ++frame)
        recording.add(0.0F, frame / 25.0);
    int motion = 0;
    while (!recording.vote.isWon() && motion < 50) {
        recording.add(1.0F, frame++ / 25.0);
        ++motion;
    }
    QVERIFY2(motion == 13 || motion == 14, qPrintable(QString::number(motion)));
}

void TestMotionVote::equalsTheLiteralVote_data() {
    QTest::addColumn<double>("window");
    QTest::addColumn<double>("backwards"); // share of frames whose time steps back
    for (const double window : {0.0, 0.2, 1.0, 5.0, 1000.0}) {
        for (const double backwards : {0.0, 0.01, 0.2})
            QTest::addRow("window %g, %g backwards", window, backwards) << window << backwards;
    }
}

void TestMotionVote::equalsTheLiteralVote() {
    QFETCH(double, window);
    QFETCH(double, backwards);
    std::mt19937 random(20);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    for (int run = 0; run < 20; ++run) {
        Recording recording(window, 0.5F);
        double time = 100.0 * share(random);
        for (int frame = 0; frame < 300; ++frame) {
            time +=
                share(random) < backwards ? -3.0 * share(random) : 0.04 * int(3 * share(random));
            recording.add(share(random) < 0.5 ? 0.0F : float(share(random)), time);
            QCOMPARE(recording.vote.isWon(), recording.literal());
        }
    }
}

QTEST_GUILESS_MAIN(TestMotionVote)
#include "test_motionvote.moc"
