// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Recordings of one camera on one axis: days, nights, gaps, and what overlaps.

#include "daydrawing.h"
#include "dayhours.h"
#include "dayrows.h"
#include "hoursdrawing.h"

#include <QTimeZone>
#include <QtTest>

namespace {

const QTimeZone berlin("Europe/Berlin");

QDateTime at(const char* time) {
    return QDateTime::fromString(QString::fromLatin1(time) + "Z", Qt::ISODate);
}

ReportedRecording recordingAt(const QDateTime& start, double seconds,
                              const QString& path = "/cameras/gate/1.mp4") {
    ReportedRecording recording;
    recording.name = recording.path = path;
    recording.start.time = start;
    recording.state = SearchState::Done;
    for (double time = 10.0; time <= seconds; time += 10.0)
        recording.add(time, {0.25F});
    recording.seconds = seconds;
    return recording;
}

ReportedClip clipAt(double start, double end) {
    ReportedClip clip;
    clip.start = start;
    clip.end = end;
    return clip;
}

/// A report that keeps its recordings where they are.
MotionReport reportOf(const std::vector<ReportedRecording>& recordings) {
    MotionReport report;
    report.recordings = recordings;
    return report;
}

Camera cameraOf(const MotionReport& report) {
    return pageParts(report).front().camera;
}

/// Where the spans of a row lie, in hours.
QVector<QPair<double, double>> hoursOf(const DayRow& row) {
    QVector<QPair<double, double>> hours;
    for (const RowSpan& span : row.spans)
        hours.append({span.at / 3600.0, (span.at + span.to - span.from) / 3600.0});
    return hours;
}

using Hours = QVector<QPair<double, double>>;

} // namespace

class TestReportDays : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void foldersAreCameras();
    void unlikelyClocksAreNone();
    void oneNightIsOneAxis();
    void daysLieBelowEachOther();
    void nightsAreNotCutAtMidnight();
    void longRecordingsGoOnBelow();
    void whatOverlapsHasARowOfItsOwn();
    void daysOfOtherLengths();
    void clipsGoByTheClock();
    void gapsAreLeftOpen();
    void hoursCountClips();
};

void TestReportDays::foldersAreCameras() {
    const MotionReport report = reportOf({
        recordingAt(at("2026-11-16T09:00:00"), 60, "/cameras/gate/b.mp4"),
        recordingAt(at("2026-11-16T09:00:00"), 60, "/cameras/yard/a.mp4"),
        recordingAt(at("2026-11-16T08:00:00"), 60, "/cameras/gate/a.mp4"),
        recordingAt({}, 60, "/cameras/gate/c.mp4"), // on no clock and without clips
    });
    const std::vector<PagePart> parts = pageParts(report);
    QCOMPARE(parts.size(), std::size_t(2));
    QCOMPARE(parts[0].camera.name, QString("/cameras/gate"));
    QCOMPARE(parts[0].camera.recordings.size(), std::size_t(2));
    QCOMPARE(parts[0].camera.recordings[0]->path,
             QString("/cameras/gate/a.mp4")); // the earlier one
    QCOMPARE(parts[1].camera.name, QString("/cameras/yard"));
    QVERIFY(parts[0].id != parts[1].id);
}

void TestReportDays::unlikelyClocksAreNone() {
    QVERIFY(isOnClock(recordingAt(at("2026-11-16T09:00:00"), 60)));
    QVERIFY(!isOnClock(recordingAt(at("2026-11-16T09:00:00"), 0)));
    QVERIFY(!isOnClock(recordingAt(QDateTime(QDate(9999, 1, 1), QTime(), Qt::UTC), 60)));
    QVERIFY(!isOnClock(recordingAt({}, 60)));
    ReportedRecording endless = recordingAt(at("2026-11-16T09:00:00"), 60);
    endless.seconds = 1e12; // which would be rows for ever
    QVERIFY(!isOnClock(endless));
    endless.seconds = std::nan("");
    QVERIFY(!isOnClock(endless));
}

void TestReportDays::oneNightIsOneAxis() {
    const MotionReport report = reportOf({recordingAt(at("2026-11-16T22:30:00"), 3600),
                                          recordingAt(at("2026-11-17T04:30:00"), 3600)});
    const std::vector<DayRow> rows = dayRows(cameraOf(report));
    QCOMPARE(rows.size(), std::size_t(1));
    QCOMPARE(rows[0].begin, at("2026-11-16T22:30:00"));
    QCOMPARE(rows[0].seconds, 7 * 3600.0);
    QCOMPARE(hoursOf(rows[0]), Hours({{0.0, 1.0}, {6.0, 7.0}}));
}

void TestReportDays::daysLieBelowEachOther() {
    const MotionReport report = reportOf({recordingAt(at("2026-11-16T08:30:00"), 3600),
                                          recordingAt(at("2026-11-18T09:00:00"), 3600),
                                          recordingAt(at("2026-11-18T16:00:00"), 3600)});
    const std::vector<DayRow> rows = dayRows(cameraOf(report));
    QCOMPARE(rows.size(), std::size_t(2)); // nothing was recorded on the day between
    QCOMPARE(rows[0].begin, at("2026-11-16T08:00:00"));
    QCOMPARE(rows[1].begin, at("2026-11-18T08:00:00"));
    for (const DayRow& row : rows)
        QCOMPARE(row.seconds, 9 * 3600.0); // the hours of all, so that they can be compared
    QCOMPARE(hoursOf(rows[0]), Hours({{0.5, 1.5}}));
    QCOMPARE(hoursOf(rows[1]), Hours({{1.0, 2.0}, {8.0, 9.0}}));
}

void TestReportDays::nightsAreNotCutAtMidnight() {
    std::vector<ReportedRecording> nights;
    for (int night = 0; night < 3; ++night)
        nights.push_back(recordingAt(at("2026-11-16T22:00:00").addDays(night), 8 * 3600));
    const MotionReport report = reportOf(nights);
    const DayHours hours = dayHours(cameraOf(report));
    QCOMPARE(hours.first, 22);
    QCOMPARE(hours.count, 8);
    QVERIFY(hours.isNight());
    QCOMPARE(hours.dayOf(at("2026-11-17T05:00:00")), at("2026-11-16T22:00:00"));
    QCOMPARE(hours.dayOf(at("2026-11-17T22:00:00")), at("2026-11-17T22:00:00"));
    const std::vector<DayRow> rows = dayRows(cameraOf(report));
    QCOMPARE(rows.size(), std::size_t(3));
    for (const DayRow& row : rows)
        QCOMPARE(hoursOf(row), Hours({{0.0, 8.0}}));
}

/// All day long: cut at midnight.
void TestReportDays::longRecordingsGoOnBelow() {
    const MotionReport report = reportOf({recordingAt(at("2026-11-16T18:00:00"), 36 * 3600)});
    QVERIFY(!dayHours(cameraOf(report)).isNight());
    const std::vector<DayRow> rows = dayRows(cameraOf(report));
    QCOMPARE(rows.size(), std::size_t(3));
    QCOMPARE(hoursOf(rows[0]), Hours({{18.0, 24.0}}));
    QCOMPARE(hoursOf(rows[1]), Hours({{0.0, 24.0}}));
    QCOMPARE(hoursOf(rows[2]), Hours({{0.0, 6.0}}));
    QCOMPARE(rows[1].spans[0].from, 6 * 3600.0);
}

void TestReportDays::whatOverlapsHasARowOfItsOwn() {
    const MotionReport report = reportOf(
        {recordingAt(at("2026-11-16T08:00:00"), 61), recordingAt(at("2026-11-16T08:01:00"), 60),
         recordingAt(at("2026-11-16T08:01:30"), 60), recordingAt(at("2026-11-16T08:02:00"), 60)});
    const std::vector<DayRow> rows = dayRows(cameraOf(report));
    QCOMPARE(rows.size(), std::size_t(2)); // a second too long is a clock's doing
    QCOMPARE(rows[0].spans.size(), std::size_t(3));
    QVERIFY(!rows[0].isOver);
    QCOMPARE(rows[1].spans.size(), std::size_t(1));
    QVERIFY(rows[1].isOver);
    QCOMPARE(rows[1].begin, rows[0].begin);
}

/// Clocks are put back on 2026-10-25 and forward on 2026-03-29.
void TestReportDays::daysOfOtherLengths() {
    const auto rowsFrom = [](QDate date) {
        const MotionReport report =
            reportOf({recordingAt(QDateTime(date, QTime(0, 0), berlin), 71 * 3600)});
        return dayRows(cameraOf(report));
    };
    const auto longer = rowsFrom({2026, 10, 24});
    QCOMPARE(longer.size(), std::size_t(3));
    QCOMPARE(hoursOf(longer[1]), Hours({{0.0, 25.0}}));
    QCOMPARE(longer[2].begin.time(), QTime(0, 0));
    const auto shorter = rowsFrom({2026, 3, 28});
    QCOMPARE(hoursOf(shorter[1]), Hours({{0.0, 23.0}}));
    QCOMPARE(shorter[2].begin.time(), QTime(0, 0));
    // Nights go on over the change as well.
    DayHours night{22, 8};
    const QDateTime before(QDate(2026, 3, 29), QTime(21, 30), berlin);
    QCOMPARE(night.dayOf(before), QDateTime(QDate(2026, 3, 28), QTime(22, 0), berlin));
    QVERIFY(night.dayAfter(night.dayOf(before)) > before);
}

void TestReportDays::clipsGoByTheClock() {
    MotionReport report = reportOf({recordingAt(at("2026-11-16T09:00:00"), 60, "/c/b.mp4"),
                                    recordingAt(at("2026-11-16T08:00:00"), 60, "/c/a.mp4")});
    report.recordings[0].clips = {clipAt(5, 10), clipAt(20, 30)};
    report.recordings[1].clips = {clipAt(40, 50)};
    const auto parts = pageParts(report);
    const std::vector<ShownClip> clips = clipsOf(parts[0], report);
    QCOMPARE(clips.size(), std::size_t(3));
    QCOMPARE(clips[0].recording->path, QString("/c/a.mp4"));
    QCOMPARE(clips[1].clip->start, 5.0);
    QCOMPARE(clips[2].clip->start, 20.0);
}

void TestReportDays::gapsAreLeftOpen() {
    MotionReport report = reportOf({recordingAt(at("2026-11-16T08:00:00"), 3600),
                                    recordingAt(at("2026-11-16T10:00:00"), 3600)});
    report.recordings[1].clips = {clipAt(1800, 3600)};
    const auto rows = dayRows(cameraOf(report));
    const QByteArray drawing = dayDrawing(rows[0], report, ReportStrips(report));
    // Three hours are 1440 columns; motion of a quarter reaches half of the plot.
    QVERIFY(drawing.contains(
        "class=\"recorded\" d=\"M0.00 0V1000H480.00V0ZM960.00 0V1000H1440.00V0Z\""));
    QVERIFY(
        drawing.contains("class=\"motion\" d=\"M0 1000V500H480V1000ZM960 1000V500H1440V1000Z\""));
    QVERIFY(drawing.contains("class=\"shade\" d=\"M1200.00 0V1000H1440.00V0Z\""));
    QVERIFY(drawing.contains(">08:30</text>"));
}

void TestReportDays::hoursCountClips() {
    MotionReport report = reportOf({recordingAt(at("2026-11-16T08:30:00"), 3600),
                                    recordingAt(at("2026-11-17T09:00:00"), 600)});
    report.recordings[0].clips = {clipAt(60, 70), clipAt(1800, 1810)};
    report.recordings[1].clips = {clipAt(0, 10)};
    const auto parts = pageParts(report);
    const QByteArray drawing = hoursDrawing(parts[0].camera, clipsOf(parts[0], report));
    QVERIFY(drawing.contains("<title>08:00 - 09:00: 1</title>"));
    QVERIFY(drawing.contains("<title>09:00 - 10:00: 2</title>"));
    QCOMPARE(drawing.count("class=\"hour\""), 2);
    QVERIFY(drawing.contains("most of them, 2, from 09:00 to 10:00"));
    QVERIFY(drawing.contains("d=\"M8.00 0V1000H9.00V0ZM9.00 0V1000H10.00V0Z\""));
}

QTEST_GUILESS_MAIN(TestReportDays)
#include "test_reportdays.moc"
