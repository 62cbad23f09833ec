// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "areasearch.h"
#include "detection.h"
#include "files.h"
#include "measurementcache.h"
#include "media.h"
#include "process.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const QSize pictures(320, 240);
const QRect leftHalf(0, 60, 150, 120);
const QRect rightHalf(170, 60, 150, 120);
const ClipSpan atTheLeft{2.0, 8.0};
const ClipSpan atTheRight{11.0, 17.0};

QString text(const QRect& r) {
    return QStringLiteral("%1,%2,%3,%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

Area areaOf(const QRect& rectangle) {
    return rectangularArea(pictures, rectangle.topLeft(),
                           rectangle.topLeft() + QPoint(rectangle.width(), rectangle.height()));
}

} // namespace

class TestAreaSearch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void clipsAreToldApartByWhere();
    void freeShapeTellsThemApart();
    void equalsTheScanner_data();
    void equalsTheScanner();
    void answersComeOneByOne();
    void newestQuestionWins();
    void otherSizeIsNotThisCamera();
    void unreadableRecordingHasNoMaps();

private:
    AreaRecording question(int number) const;

    QTemporaryDir folder;
    QString video;
    Measurement measurement;
};

void TestAreaSearch::initTestCase() {
    class Nobody : public DetectionProgress {
        bool isCancelled() override { return false; }
        void positionChanged(qint64, bool) override {}
    } nobody;
    video = folder.filePath("visits.mkv");
    QVERIFY(media::encode(media::twoVisits() + QStringList{"-c:v", "ffv1", video}));
    DetectionOptions options;
    options.areMapsKept = true;
    Detection detection(options, nobody);
    const MeasuringEnd end = detection.run(video);
    QCOMPARE(int(end.outcome), int(DetectionOutcome::Finished));
    measurement = detection.measurement();
    const auto stamp = stampOf(video);
    QVERIFY(stamp);
    MeasurementCache::clear();
    MeasurementCache::instance().keep(*stamp, options, measurement, end);
}

void TestAreaSearch::clipsAreToldApartByWhere() {
    const QVector<ClipSpan> clips{atTheLeft, atTheRight};
    const auto inside = [&](const QRect& area) {
        return motionInArea(measurement, regionOf(areaOf(area), {}), {}, clips);
    };
    QCOMPARE(inside(leftHalf), QVector<bool>({true, false}));
    QCOMPARE(inside(rightHalf), QVector<bool>({false, true}));
    QCOMPARE(inside({{}, pictures}), QVector<bool>({true, true}));
    QCOMPARE(inside({0, 200, 320, 40}), QVector<bool>({false, false}));
    QCOMPARE(motionInArea(measurement, regionOf(areaOf(leftHalf), {leftHalf}), {}, clips),
             QVector<bool>({false, false}));
    QCOMPARE(motionInArea(measurement, regionOf(areaOf(leftHalf), {}), {}, {}), QVector<bool>());
}

void TestAreaSearch::freeShapeTellsThemApart() {
    const Area shape = shapedArea(pictures, QPolygonF({{0, 40}, {155, 110}, {0, 200}}));
    QCOMPARE(motionInArea(measurement, regionOf(shape, {}), {}, {atTheLeft, atTheRight}),
             QVector<bool>({true, false}));
}

void TestAreaSearch::equalsTheScanner_data() {
    QTest::addColumn<QRect>("area");
    QTest::newRow("left") << leftHalf;
    QTest::newRow("right") << rightHalf;
    QTest::newRow("whole") << QRect({}, pictures);
    QTest::newRow("touched") << QRect(80, 100, 60, 20);
    QTest::newRow("hardly touched") << QRect(120, 70, 90, 14);
    QTest::newRow("quiet") << QRect(0, 0, 320, 40);
}

/// Second by second, so that each of the scanner's values counts somewhere.
void TestAreaSearch::equalsTheScanner() {
    QFETCH(QRect, area);
    const QString trace = folder.filePath("trace");
    QCOMPARE(runProgram("kestrova-scan", {"--quiet", "--detector", "cells", "--roi", text(area),
                                          "--trace", trace, video})
                 .status,
             0);
    QVector<ClipSpan> seconds;
    QVector<bool> expected;
    for (int second = 0; second < 20; ++second) {
        seconds.append({second + 0.01, second + 0.99});
        expected.append(false);
    }
    for (const QByteArray& line : readFile(trace).split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        const double time = fields.size() == 3 ? fields[1].toDouble() : -1.0;
        if (time >= 0.0 && time < 20.0 && time - int(time) > 0.01)
            expected[int(time)] = expected[int(time)] || fields[2].toDouble() >= 0.7;
    }
    QCOMPARE(motionInArea(measurement, regionOf(areaOf(area), {}), {}, seconds), expected);
}

AreaRecording TestAreaSearch::question(int number) const {
    AreaRecording recording;
    recording.job = reinterpret_cast<Video*>(quintptr(number)); // told back, never looked into
    recording.video = video;
    recording.options.detector = Detector::Cells;
    recording.clips = {atTheLeft, atTheRight};
    return recording;
}

namespace {

/// Notes what is told.
class Listener : public QObject {
    Q_OBJECT

public:
    explicit Listener(AreaSearch& search) {
        connect(&search, SIGNAL(answered(AreaAnswer)), SLOT(take(AreaAnswer)));
        connect(&search, SIGNAL(ended()), SLOT(end()));
    }

    QVector<AreaAnswer> answers;
    int ends = 0;

private Q_SLOTS:
    void take(const AreaAnswer& answer) { answers.append(answer); }
    void end() { ++ends; }
};

} // namespace

void TestAreaSearch::answersComeOneByOne() {
    AreaSearch search;
    const Listener listener(search);
    QVERIFY(search.ask(areaOf(leftHalf), {question(1), question(2)}));
    QTRY_COMPARE_WITH_TIMEOUT(listener.ends, 1, 60000);
    QCOMPARE(listener.answers.size(), 2);
    for (const AreaAnswer& answer : listener.answers) {
        QVERIFY(answer.hasMaps && answer.isSameSize);
        QCOMPARE(answer.isMoving, QVector<bool>({true, false}));
    }
    QCOMPARE(listener.answers[1].job, question(2).job);
}

void TestAreaSearch::newestQuestionWins() {
    AreaSearch search;
    const Listener listener(search);
    QVERIFY(search.ask(areaOf(leftHalf), {question(1), question(2), question(3)}));
    QVERIFY(search.ask(areaOf(rightHalf), {question(1)}));
    QTRY_COMPARE_WITH_TIMEOUT(listener.ends, 1, 60000);
    QCOMPARE(listener.answers.size(), 1);
    QCOMPARE(listener.answers[0].isMoving, QVector<bool>({false, true}));
    QVERIFY(search.ask(areaOf(leftHalf), {question(1)}));
    search.forget();
    QTest::qWait(500);
    QCOMPARE(listener.ends, 1);
}

void TestAreaSearch::otherSizeIsNotThisCamera() {
    AreaSearch search;
    const Listener listener(search);
    QVERIFY(search.ask(rectangularArea({640, 480}, {0, 0}, {100, 100}), {question(1)}));
    QTRY_COMPARE_WITH_TIMEOUT(listener.ends, 1, 60000);
    QVERIFY(listener.answers[0].hasMaps && !listener.answers[0].isSameSize);
    QVERIFY(listener.answers[0].isMoving.isEmpty());
}

void TestAreaSearch::unreadableRecordingHasNoMaps() {
    AreaSearch search;
    const Listener listener(search);
    AreaRecording gone = question(1);
    gone.video = folder.filePath("gone.mkv");
    QVERIFY(search.ask(areaOf(leftHalf), {gone, question(2)}));
    QTRY_COMPARE_WITH_TIMEOUT(listener.ends, 1, 60000);
    QVERIFY(!listener.answers[0].hasMaps);
    QVERIFY(listener.answers[1].hasMaps);
    MeasurementCache::clear();
    QVERIFY(search.ask(areaOf(leftHalf), {question(2)})); // still known
    QTRY_COMPARE_WITH_TIMEOUT(listener.ends, 2, 60000);
    QVERIFY(listener.answers[2].hasMaps);
    search.forget();
    QVERIFY(search.ask(areaOf(leftHalf), {question(2)}));
    QTRY_COMPARE_WITH_TIMEOUT(listener.ends, 3, 60000);
    QVERIFY(!listener.answers[3].hasMaps);
}

QTEST_MAIN(TestAreaSearch)
#include "test_areasearch.moc"
