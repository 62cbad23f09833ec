// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What packets promise: the curve over time, the parts' scores and their order.

#include "media.h"
#include "partpromise.h"
#include "pieceoutlook.h"
#include "promisecurve.h"

#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int perSecond = 25;

/// The curve of a recording of so many seconds whose packets are as `cost` says, a function of the
/// number.
template<class Cost>
QVector<float> curveOf(int seconds, const Cost& cost) {
    std::deque<PacketFeature> packets;
    std::deque<double> times;
    for (int i = 0; i < seconds * perSecond; ++i) {
        const bool isKey = i % (2 * perSecond) == 0;
        packets.push_back({cost(i) + (isKey ? 2.0F : 0.0F), quint8(isKey ? 1 : 0), isKey});
        times.push_back(1000.0 + double(i) / perSecond);
    }
    return promiseCurve(packets, times);
}

bool isBetween(int packet, int from, int to) {
    return packet >= from * perSecond && packet < to * perSecond;
}

} // namespace

class TestPromise : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void costTakesTheQuantiserOut();
    void keyFramesAreNothingSpecial();
    void whatLiesBehindThemIsNothingSpecial();
    void oddPlacesAreThoseOfTheirKind();
    void whatStandsOutIsSeen();
    void whatIsUsualAroundIsTakenAway();
    void outliersAreBounded();
    void emptySecondsAreNothing();
    void timesThatMakeNoSenseGiveNothing();
    void nothingGivesNothing();
    void partsAreScoredFromBothSides();
    void shortVisitsAreSeenInLongParts();
    void ordersTakeTurns();
    void flatPromisesAreSeen();
    void piecesPromiseWhatLiesInThem();
    void whatIsNoRecordingPromisesNothing();
};

/// Six more halve the bits.
void TestPromise::costTakesTheQuantiserOut() {
    QVERIFY(std::abs(packetCost(20000, 24) - packetCost(10000, 30)) < 0.01F);
    QVERIFY(packetCost(20000, 24) > packetCost(20000, 23));
}

void TestPromise::keyFramesAreNothingSpecial() {
    for (const float value : curveOf(200, [](int) { return 5.0F; }))
        QCOMPARE(value, 0.0F);
}

/// The second of a key frame costs less than the next one, by more than a visit does.
void TestPromise::whatLiesBehindThemIsNothingSpecial() {
    const auto curve = curveOf(300, [](int i) {
        const float visit = isBetween(i, 100, 104) ? 0.1F : 0.0F;
        return (i % (2 * perSecond) < perSecond ? 4.8F : 5.2F) + visit;
    });
    for (int second = 0; second < 300; ++second) {
        const float expected = second >= 100 && second < 104 ? 0.1F : 0.0F;
        QVERIFY2(std::abs(curve[second] - expected) < 0.001F, qPrintable(QString::number(second)));
    }
}

/// Places that are as rare as what happens at them would call it usual.
void TestPromise::oddPlacesAreThoseOfTheirKind() {
    std::deque<PacketFeature> packets;
    std::deque<double> times;
    for (int i = 0; i < 300 * perSecond; ++i) {
        const bool isKey = i % (150 * perSecond) == 0;
        packets.push_back({isBetween(i, 153, 157) ? 5.5F : 5.0F, 0, isKey});
        times.push_back(double(i) / perSecond);
    }
    const auto curve = promiseCurve(packets, times);
    for (int second = 153; second < 157; ++second)
        QVERIFY(std::abs(curve[second] - 0.5F) < 0.001F);
}

void TestPromise::whatStandsOutIsSeen() {
    const auto curve = curveOf(300, [](int i) {
        return isBetween(i, 100, 110) ? 6.0F : isBetween(i, 200, 205) ? 4.5F : 5.0F;
    });
    QCOMPARE(curve.size(), 300);
    for (int second = 0; second < 300; ++second) {
        const float expected = second >= 100 && second < 110   ? 1.0F
                               : second >= 200 && second < 205 ? -0.5F
                                                               : 0.0F;
        QVERIFY2(std::abs(curve[second] - expected) < 0.001F, qPrintable(QString::number(second)));
    }
}

/// From dusk on all costs more: that is no motion.
void TestPromise::whatIsUsualAroundIsTakenAway() {
    const auto curve = curveOf(600, [](int i) { return isBetween(i, 300, 600) ? 6.0F : 5.0F; });
    QVERIFY(std::abs(curve[500]) < 0.001F);
    QVERIFY(std::abs(curve[100]) < 0.001F);
}

void TestPromise::outliersAreBounded() {
    const auto curve = curveOf(200, [](int i) {
        return isBetween(i, 50, 51) ? 99.0F : isBetween(i, 60, 61) ? -99.0F : 5.0F;
    });
    QCOMPARE(curve[50], 3.0F);
    QCOMPARE(curve[60], -2.0F);
}

void TestPromise::emptySecondsAreNothing() {
    const auto curve = promiseCurve({{5.0F, 0}, {5.0F, 0}}, {0.0, 9.5});
    QCOMPARE(curve.size(), 10);
    QCOMPARE(curve[4], 0.0F);
}

/// A table with an entry for each second would not fit any memory.
void TestPromise::timesThatMakeNoSenseGiveNothing() {
    for (const double far : {1e8, 1e12, 1e300, std::numeric_limits<double>::quiet_NaN()})
        QVERIFY(promiseCurve({{5.0F, 0}, {5.0F, 0}}, {0.0, far}).isEmpty());
}

void TestPromise::nothingGivesNothing() {
    QVERIFY(promiseCurve({}, {}).isEmpty());
    const PartPromise none = promiseOf({}, 0.0, 10.0);
    QCOMPARE(none.either, 0.0F);
    QCOMPARE(none.more, 0.0F);
    QCOMPARE(promiseOf({1.0F}, 1e300, 2e300).either, 0.0F);
    QVERIFY(promisingOrder({}).isEmpty());
}

/// Two of ten seconds stand out, so that a tenth exceeds what they have.
void TestPromise::partsAreScoredFromBothSides() {
    QVector<float> curve(30, 0.0F);
    curve[3] = curve[4] = 1.0F;
    curve[13] = curve[14] = -1.0F;
    QCOMPARE(promiseOf(curve, 0.0, 10.0).either, 1.0F);
    QCOMPARE(promiseOf(curve, 0.0, 10.0).more, 1.0F);
    QCOMPARE(promiseOf(curve, 10.0, 20.0).either, 1.0F);
    QCOMPARE(promiseOf(curve, 10.0, 20.0).more, 0.0F);
    QCOMPARE(promiseOf(curve, 20.0, 99.0).either, 0.0F);
}

/// Wherever they lie: where two of the stretches meet, too.
void TestPromise::shortVisitsAreSeenInLongParts() {
    for (int second = 0; second + 4 <= 65; ++second) {
        QVector<float> curve(200, 0.0F);
        std::fill_n(curve.begin() + 60 + second, 4, second % 2 == 0 ? 1.0F : -1.0F);
        const PartPromise promise = promiseOf(curve, 60.0, 125.0);
        QCOMPARE(promise.either, 1.0F);
        QCOMPARE(promise.more, second % 2 == 0 ? 1.0F : 0.0F);
        QCOMPARE(promiseOf(curve, 125.0, 190.0).either, 0.0F);
    }
}

void TestPromise::ordersTakeTurns() {
    // By either: 2, 0, 1, 3; by more: 1, 3, 0, 2.
    const QVector<PartPromise> parts = {{3.0F, 0.1F}, {2.0F, 2.0F}, {4.0F, -1.0F}, {1.0F, 1.0F}};
    QCOMPARE(promisingOrder(parts), (QVector<int>{2, 1, 0, 3}));
    QCOMPARE(promisingOrder(QVector<PartPromise>(3)), (QVector<int>{0, 1, 2}));
}

void TestPromise::flatPromisesAreSeen() {
    QVERIFY(areFlat(QVector<PartPromise>(12)));
    QVector<PartPromise> parts(12);
    parts[7].either = 0.5F;
    QVERIFY(!areFlat(parts));
}

/// What happens at the end of a recording lies in its last piece.
void TestPromise::piecesPromiseWhatLiesInThem() {
    QTemporaryDir folder;
    const QString path = folder.filePath("visit.avi");
    const QStringList codec = {"-c:v", "mpeg4", "-q:v", "5", path};
    QVERIFY(media::encode(media::crossingBox(60, 50, 56, "160x120") + codec));
    const PieceOutlook four = lookAtPieces(path, 15.0, {});
    QCOMPARE(four.pieces, 4);
    QCOMPARE(four.promises.size(), 4);
    QVERIFY(four.promises[3].either > 3 * four.promises[0].either);
    QVERIFY(four.promises[3].more > 3 * four.promises[0].more);
    const PieceOutlook whole = lookAtPieces(path, 1e9, {});
    QCOMPARE(whole.pieces, 1);
    QCOMPARE(whole.promises[0].either, four.promises[3].either);
    QCOMPARE(lookAtPieces(path, 0.001, {}).pieces, 9999);
    QVERIFY(lookAtPieces(path, 15.0, [] { return true; }).promises.isEmpty());
}

void TestPromise::whatIsNoRecordingPromisesNothing() {
    const QString program = QCoreApplication::applicationFilePath();
    for (const QString& path : {QString("missing.avi"), program}) {
        const PieceOutlook outlook = lookAtPieces(path, 10.0, {});
        QCOMPARE(outlook.pieces, 1);
        QVERIFY(outlook.promises.isEmpty());
    }
}

QTEST_GUILESS_MAIN(TestPromise)
#include "test_promise.moc"
