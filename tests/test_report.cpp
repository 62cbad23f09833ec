// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The page that shows what was found: its numbers, its text, and what it refers to.

#include "filenamecodec.h"
#include "htmltext.h"
#include "reportpage.h"
#include "stripdrawing.h"
#include "stripparts.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

const QString evil = QStringLiteral("</script><script>alert('1')</script>\"&\n.mp4");

QByteArray pageOf(const MotionReport& report) {
    QByteArray page;
    ReportPage(report).write([&](const QByteArray& piece) {
        page += piece;
        return true;
    });
    return page;
}

ReportedClip clipAt(int index, double start, double end, float strength) {
    ReportedClip clip;
    clip.index = index;
    clip.start = start;
    clip.end = end;
    clip.snapshotTime = start;
    clip.strength = {strength};
    clip.pictureFile = QStringLiteral("pictures/%1.png").arg(index);
    clip.pictureSize = {320, 180};
    return clip;
}

/// An hour in which every value is `motion`, one a second.
ReportedRecording hourOf(const QString& name, float motion) {
    ReportedRecording recording;
    recording.name = name;
    recording.path = "/videos/" + name;
    recording.state = SearchState::Done;
    for (int i = 1; i <= 3600; ++i)
        recording.add(i, {motion});
    return recording;
}

MotionReport reportOf(const ReportedRecording& recording) {
    MotionReport report;
    report.folder = "/reports/night";
    report.recordings = {recording};
    return report;
}

MotionReport reportWithClip(const QString& name) {
    ReportedRecording recording = hourOf(name, 0.3F);
    recording.clips = {clipAt(0, 10.0, 20.5, 2.0F)};
    return reportOf(recording);
}

/// What stands behind the first `begin`, up to `end`; empty if it is not there.
QByteArray between(const QByteArray& text, const QByteArray& begin, const QByteArray& end) {
    const int start = text.indexOf(begin);
    if (start < 0)
        return {};
    const int first = start + begin.size();
    return text.mid(first, text.indexOf(end, first) - first);
}

QJsonObject dataOf(const QByteArray& page) {
    return QJsonDocument::fromJson(
               between(page, "<script type=\"application/json\" id=\"data\">", "</script>"))
        .object();
}

} // namespace

class TestReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installFileNameCodec(); }

    void pageIsWellFormed();
    void pageRefersToNoNetwork();
    void clipsPlayTheirFile();
    void stripIsDrawnToScale();
    void dataHasTheHistograms();
    void othersAreListedAtTheEnd();
    void remarksStandWhereTheirRecordingDoes();
    void cellsHaveTheirOwnScale();
    void restlessCellsAreDrawn();
    void incompleteReportsSaySo();
    void clockIsTold();
    void eachRecordingHasItsOwnClock();
    void policyNamesTheScriptAndTheStyle();
    void marksAreKeptByPathAndTimes();
    void hostileNamesAreDataAlone();
    void boxesLieOnTheirPictures();
    void groupsHaveSixtyClips();
    void clipsThatGoOnAreShownInBoth();
    void writingEndsWhereItFails();
};

void TestReport::pageIsWellFormed() {
    // As XML, which is stricter, from the body to the first script.
    const QByteArray page = pageOf(reportWithClip(evil));
    QByteArray body = "<main" + between(page, "<main", "</main>") + "</main>";
    for (const char* tag : {"img", "input", "wbr"}) {
        const QRegularExpression open("(<" + QString(tag) + "\\b[^>]*)>");
        body = QString::fromUtf8(body).replace(open, "\\1/>").toUtf8();
    }
    body.replace("<section id=\"ranked\" aria-labelledby=\"rankedname\" hidden>", "<section>");
    QXmlStreamReader reader(body);
    QString text;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::Characters)
            text += reader.text();
        QVERIFY(reader.name() != "script");
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QVERIFY(text.contains(QString(evil).replace("\n", "\\n").section('/', -1)));
    QCOMPARE(page.count("<script"), 2);
    QCOMPARE(page.count("</script>"), 2);
    QVERIFY(!page.contains("{{"));
}

void TestReport::pageRefersToNoNetwork() {
    const QByteArray page = pageOf(reportWithClip("garden.mp4"));
    QVERIFY(!page.contains("http:"));
    QVERIFY(!page.contains("https:"));
    QVERIFY(!page.contains("url("));
    QVERIFY(page.contains("content=\"default-src 'none';"));
    const QRegularExpression reference("(?:src|href)=\"([^\"]*)\"");
    auto references = reference.globalMatch(QString::fromUtf8(page));
    QStringList found;
    while (references.hasNext())
        found.append(references.next().captured(1));
    QCOMPARE(found, QStringList({"#recordings", "file:///videos/garden.mp4#t=10.000,20.500",
                                 "pictures/0.png"}));
}

void TestReport::clipsPlayTheirFile() {
    MotionReport report = reportWithClip("a 'b'.mp4");
    report.recordings[0].offset = 1.5;
    report.recordings[0].clips[0].start = -2.0; // it begins with the file
    QByteArray page = pageOf(report);
    QVERIFY(page.contains("href=\"file:///videos/a%20%27b%27.mp4#t=0.000,22.000\""));
    QCOMPARE(between(page, "data-command=\"", "\""),
             htmlText("mpv --start=0.000 --end=22.000 -- '/videos/a '\\''b'\\''.mp4'"));
    report.recordings[0].clips[0].exportFile = "/reports/night/clips/0.avi";
    page = pageOf(report);
    QVERIFY(page.contains("href=\"clips/0.avi\""));
    QCOMPARE(between(page, "data-command=\"", "\""),
             htmlText("mpv -- '/reports/night/clips/0.avi'"));
}

void TestReport::stripIsDrawnToScale() {
    MotionReport report = reportWithClip("garden.mp4");
    report.recordings[0].add(3601.0, {2.0F});
    const double top = stripTop(report);
    QCOMPARE(top, 2.0);
    QCOMPARE(stripHeight(0.5, top), 0.5); // of square roots
    QCOMPARE(stripHeight(99.0, top), 1.0);
    const QByteArray drawing = stripDrawing(report.recordings[0], report, ReportStrips(report));
    // An hour takes 1800 columns of 2 s and one more; 0.3 of 2 lies at 1 - sqrt(0.15) from the top.
    QCOMPARE(report.recordings[0].strip.columnSeconds(), 2.0);
    QVERIFY(drawing.contains("d=\"M0 1000V613H1800V0H1801V1000Z\""));
    QVERIFY(drawing.contains("d=\"M5.00 0V1000H10.25V0Z\"")); // 10 to 20.5 s
    QVERIFY(drawing.contains("y1=\"48.00\" y2=\"48.00\""));   // the threshold, half of 96 pixels
    report.recordings[0].add(3602.0, {99.0F});
    QCOMPARE(stripTop(report), 10.0);
    report.threshold = 0.0;
    QVERIFY(stripTop(reportOf(ReportedRecording())) > 0.0);
}

void TestReport::dataHasTheHistograms() {
    const QJsonObject data = dataOf(pageOf(reportWithClip(evil)));
    QCOMPARE(data["threshold"].toDouble(), 0.5);
    QCOMPARE(data["steps"].toArray().size(), thresholdSteps().size());
    const QJsonArray expected = {QJsonArray{140, 3600}}; // 0.3 is step 100 + 0.2 / 0.005
    QCOMPARE(data["all"].toArray(), expected);
    QCOMPARE(data["strips"].toObject()["recording0"].toArray(), expected);
    QCOMPARE(data["steps"].toArray()[140].toDouble(), 0.3);
}

void TestReport::othersAreListedAtTheEnd() {
    MotionReport report = reportWithClip("moving.mp4");
    report.recordings.push_back(hourOf("quiet.mp4", 0.2F));
    ReportedRecording failed;
    failed.name = evil;
    failed.state = SearchState::Failed;
    failed.reason = "is <broken>";
    report.recordings.push_back(failed);
    const QByteArray page = pageOf(report);
    QCOMPARE(page.count("<section class=\"recording\""), 1);
    const QByteArray quiet = between(page, "<h2 id=\"quiet\">", "</section>");
    QVERIFY(quiet.contains("<bdi>quiet.mp4</bdi> <span class=\"facts\">1:00:00 long, greatest "
                           "motion value 0.20</span>"));
    QCOMPARE(quiet.count("<li "), 1);
    QCOMPARE(quiet.count("class=\"strip\""), 1); // near misses are seen there
    const QByteArray unread = between(page, "<h2 id=\"failed\">", "</section>");
    QVERIFY(unread.contains("<li><bdi>" + htmlText(evil) + "</bdi> "));
    QVERIFY(unread.contains("is &lt;broken&gt;"));
    QVERIFY(page.indexOf("id=\"failed\"") > page.indexOf("class=\"recording\""));
    QVERIFY(!page.contains("not complete"));
    QVERIFY(!page.contains("id=\"unsearched\""));
}

void TestReport::remarksStandWhereTheirRecordingDoes() {
    MotionReport report = reportWithClip("garden.mp4");
    report.recordings.push_back(hourOf("quiet.mp4", 0.1F));
    report.recordings[0].remark = "motion <throughout>";
    report.recordings[1].remark = "strongest motion 0.1 at 0:00:01, below 0.5";
    const QByteArray page = pageOf(report);
    QVERIFY(between(page, "<section class=\"recording\"", "</section>")
                .contains("<p class=\"facts\">motion &lt;throughout&gt;</p>"));
    const QByteArray quiet = between(page, "<section class=\"list\"", "</section>");
    QVERIFY(quiet.contains("long, strongest motion 0.1 at 0:00:01, below 0.5</span>"));
    QVERIFY(!quiet.contains("greatest motion value"));
}

void TestReport::cellsHaveTheirOwnScale() {
    MotionReport report = reportWithClip("garden.mp4");
    QVERIFY(pageOf(report).contains("with --threshold-motion 0.5<"));
    ReportedRecording lively;
    lively.name = "lively.mp4";
    lively.histogram = MotionHistogram(Detector::Cells);
    lively.add(1.0, {64.0F});
    lively.clips = {clipAt(0, 0.0, 1.0, 64.0F)};
    report.detector = Detector::Cells;
    report.threshold = 0.7;
    report.recordings = {lively};
    const QByteArray page = pageOf(report);
    QVERIFY(page.contains("with --detector cells --threshold-motion 0.7<"));
    QVERIFY(page.contains("strength 64.00 %<"));
    QVERIFY(page.contains("aria-label=\"Motion over time, at most 64.00 %;"));
    QCOMPARE(stripTop(report), 64.0); // that of the mean would end at 10
    const QJsonObject data = dataOf(page);
    QCOMPARE(data["steps"].toArray().last().toDouble(), 100.0);
    const QJsonArray pair = data["all"].toArray()[0].toArray();
    QCOMPARE(data["steps"].toArray()[pair[0].toInt()].toDouble(), 64.0);
}

void TestReport::restlessCellsAreDrawn() {
    MotionReport report = reportWithClip("garden.mp4");
    QVERIFY(!pageOf(report).contains("<svg class=\"restless\""));
    ReportedRestless restless{CellBits({160, 90}), {1920, 1080}, "left out: 4 cells"};
    for (const int column : {0, 1, 159})
        restless.cells.add(column, 2);
    restless.cells.add(63, 89);
    report.recordings[0].restless = restless;
    const QByteArray section =
        between(pageOf(report), "<section class=\"recording\"", "</section>");
    QVERIFY(section.contains("<p class=\"facts\">left out: 4 cells</p>"));
    const QByteArray drawing = between(section, "<svg class=\"restless\"", "</svg>");
    QVERIFY(drawing.contains("width=\"96\" height=\"54\" viewBox=\"0 0 160 90\""));
    QCOMPARE(between(drawing, "<path d=\"", "\""),
             QByteArray("M0 2H2v1H0ZM159 2H160v1H159ZM63 89H64v1H63Z"));
    report.recordings[0].restless = {CellBits(), {1920, 1080}, "nothing is restless"};
    const QByteArray calm = pageOf(report);
    QVERIFY(calm.contains("<p class=\"facts\">nothing is restless</p>"));
    QVERIFY(!calm.contains("<svg class=\"restless\""));
}

void TestReport::incompleteReportsSaySo() {
    MotionReport report = reportWithClip("moving.mp4");
    report.recordings[0].state = SearchState::CutShort;
    ReportedRecording next;
    next.name = "next.mp4";
    report.recordings.push_back(next);
    const QByteArray page = pageOf(report);
    QVERIFY(page.contains("not complete"));
    const QByteArray unsearched = between(page, "<h2 id=\"unsearched\">", "</section>");
    QVERIFY(unsearched.contains("moving.mp4</bdi> <span class=\"facts\">searched up to 1:00:00"));
    QVERIFY(unsearched.contains("next.mp4</bdi> <span class=\"facts\">not begun"));
    QVERIFY(!page.contains("id=\"quiet\""));
}

void TestReport::clockIsTold() {
    MotionReport report = reportWithClip("moving.mp4");
    report.recordings[0].start = {QDateTime(QDate(2026, 11, 16), QTime(23, 59, 55), Qt::UTC),
                                  StartSource::Given,
                                  StartCertainty::Sure,
                                  {}};
    const QByteArray page = pageOf(report);
    QVERIFY(page.contains("<b>#0</b> 00:00:05 – 00:00:15"));
    QVERIFY(page.contains("from 2026-11-16 23:59:55"));
    QVERIFY(page.contains(">2026-11-17</text>"));
}

void TestReport::eachRecordingHasItsOwnClock() {
    MotionReport report = reportWithClip("moving.mp4");
    report.recordings.push_back(report.recordings[0]);
    report.recordings.push_back(report.recordings[0]);
    report.recordings[0].start = {
        QDateTime(QDate(2026, 11, 16), QTime(8, 0), QTimeZone("Asia/Kolkata")),
        StartSource::Name,
        StartCertainty::Sure,
        {}};
    report.recordings[1].path = "/elsewhere/moving.mp4"; // another camera
    report.recordings[1].start = {QDateTime(QDate(2026, 11, 17), QTime(21, 30), Qt::UTC),
                                  StartSource::Given,
                                  StartCertainty::Sure,
                                  {}};
    report.recordings[2].start.doubts = {StartDoubt::AmbiguousDay};
    const QByteArray page = pageOf(report);
    QVERIFY(page.contains("began 2026-11-16 08:00:00 +05:30, by its name (sure)<"));
    QVERIFY(page.contains("<b>#0</b> 08:00:10"));
    QVERIFY(page.contains(">08:10</text>")); // though midnight there is not that of UTC
    QVERIFY(page.contains("from 2026-11-17 21:30:00"));
    QVERIFY(page.contains("<b>#0</b> 21:30:10"));
    QVERIFY(page.contains("<b>#0</b> 0:00:10"));
    QCOMPARE(page.count(", it is not known when it began; the day in its name"), 1);
}

void TestReport::policyNamesTheScriptAndTheStyle() {
    const QByteArray page = pageOf(reportWithClip(evil));
    const QByteArray policy = between(page, "Content-Security-Policy\" content=\"", "\"");
    QVERIFY(!policy.contains("unsafe"));
    const auto hash = [](const QByteArray& text) {
        return "'sha256-" + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toBase64() +
               "'";
    };
    QVERIFY(policy.contains("style-src " + hash(between(page, "<style>", "</style>")) + ";"));
    QVERIFY(policy.contains("script-src " + hash(between(page, "<script>", "</script>")) + ";"));
    QVERIFY(!page.contains(" style=\""));
}

void TestReport::marksAreKeptByPathAndTimes() {
    MotionReport report = reportWithClip("moving.mp4");
    report.recordings[0].bytes = 123456789012;
    report.recordings[0].modified = 1763330400123;
    report.recordings[0].clips[0].start = 0.1 + 0.2; // which three digits do not tell
    report.recordings.push_back(report.recordings[0]);
    report.recordings[1].path = "/videos/other.mp4";
    report.recordings[1].clips[0].index = 7;
    const QJsonObject data = dataOf(pageOf(report));
    const QJsonArray recordings = data["recordings"].toArray();
    QCOMPARE(recordings[0].toArray(),
             (QJsonArray{"/videos/moving.mp4", 123456789012.0, 1763330400123.0}));
    QCOMPARE(recordings[1].toArray()[0].toString(), QString("/videos/other.mp4"));
    QCOMPARE(data["clips"].toArray()[0].toArray(), (QJsonArray{0, 0, 0.1 + 0.2, 20.5}));
    QCOMPARE(data["clips"].toArray()[1].toArray(), (QJsonArray{1, 7, 0.1 + 0.2, 20.5}));
    const QString sum = data["report"].toString();
    QCOMPARE(sum.size(), 12);
    report.recordings[1].clips[0].end = 21.0;
    QVERIFY(dataOf(pageOf(report))["report"].toString() != sum);
}

void TestReport::hostileNamesAreDataAlone() {
    MotionReport report = reportWithClip("moving.mp4");
    const QString name = QFile::decodeName("/a</script><!--\xff\xe2\x80\xa8\xe2\x80\xae\"\\.mp4");
    report.recordings[0].name = report.recordings[0].path = name;
    report.recordings[0].start.time = QDateTime(QDate(2026, 11, 16), QTime(22, 0), Qt::UTC);
    const QByteArray page = pageOf(report);
    QCOMPARE(page.count("</script"), 2);
    QVERIFY(!page.contains("<!--"));
    const QByteArray data = between(page, "id=\"data\">", "</script>");
    QVERIFY(!data.contains('<'));
    QVERIFY(!data.contains("\xe2\x80\xa8"));
    QVERIFY(!data.contains("\xe2\x80\xae"));
    const QJsonArray recording = dataOf(page)["recordings"].toArray()[0].toArray();
    QCOMPARE(recording[0].toString(),
             QString::fromUtf8("/a</script><!--\xef\xbf\xbd\xe2\x80\xa8\xe2\x80\xae\"\\.mp4"));
    QCOMPARE(QByteArray::fromBase64(recording[3].toString().toLatin1()), QFile::encodeName(name));
}

void TestReport::boxesLieOnTheirPictures() {
    MotionReport report = reportWithClip("moving.mp4");
    QVERIFY(!pageOf(report).contains("class=\"box\""));
    QVERIFY(!pageOf(report).contains("<svg class=\"where\""));
    report.recordings[0].clips[0].box = {0.25, 0.5, 0.125, 0.25};
    CellBits moving(CellGrid{40, 20});
    moving.add(3, 2);
    moving.add(4, 2);
    report.recordings[0].map.add(moving, 10.0);
    const QByteArray page = pageOf(report);
    QVERIFY(page.contains(
        "<rect x=\"25.0%\" y=\"50.0%\" width=\"12.5%\" height=\"25.0%\"/></svg></a>"));
    const QByteArray map = between(page, "<svg class=\"where\"", "</svg>");
    QVERIFY(map.contains("width=\"240\" height=\"135\" viewBox=\"0 0 40 20\""));
    QVERIFY(map.contains("<image href=\"pictures/0.png\""));
    QVERIFY(map.contains("<path class=\"most\" d=\"M3 2H5v1H3Z\"/>"));
}

void TestReport::groupsHaveSixtyClips() {
    MotionReport report = reportWithClip("moving.mp4");
    for (int i = 1; i < 121; ++i)
        report.recordings[0].clips.append(clipAt(i, i * 10.0, i * 10.0 + 5.0, 1.0F));
    const QByteArray page = pageOf(report);
    QCOMPARE(page.count("<figure"), 121);
    QCOMPARE(page.count("<div class=\"clips\">"), 3);
    const QByteArray first = between(page, "<div class=\"clips\">", "<div class=\"clips\">");
    QCOMPARE(first.count("<figure"), 60);
}

void TestReport::clipsThatGoOnAreShownInBoth() {
    MotionReport report = reportWithClip("1.mp4");
    report.recordings.push_back(hourOf("2.mp4", 0.3F));
    report.recordings[0].clips = {clipAt(0, 3590.0, 3620.0, 2.0F)};
    report.recordings[0].clips[0].parts = {{0, 3590.0, 3600.0, 0.0}, {1, 0.0, 20.0, 3600.0}};
    const ReportStrips strips(report);
    const auto shade = [&](int place) {
        return between(stripDrawing(report.recordings[std::size_t(place)], report, strips),
                       "class=\"shade\" d=\"", "\"");
    };
    QCOMPARE(shade(0), QByteArray("M1795.00 0V1000H1800.00V0Z")); // columns of two seconds
    QCOMPARE(shade(1), QByteArray("M0.00 0V1000H10.00V0Z"));
    const QByteArray page = pageOf(report);
    QVERIFY(page.contains("#t=3590.000,3600.000\""));
    QCOMPARE(between(page, "data-command=\"", "\""),
             htmlText("mpv --{ --start=3590.000 --end=3600.000 '/videos/1.mp4' --} "
                      "--{ --start=0.000 --end=20.000 '/videos/2.mp4' --}"));
    QCOMPARE(between(page, "data-parts=\"", "\""),
             QByteArray("file:///videos/2.mp4#t=0.000,20.000"));
    QVERIFY(page.contains(", in 2 files</span>"));
    QCOMPARE(dataOf(page)["clips"].toArray()[0].toArray(),
             (QJsonArray{0, 0, 3590.0, 3620.0,
                         QJsonArray{QJsonArray{0, 3590.0, 3600.0, 0.0},
                                    QJsonArray{1, 0.0, 20.0, 3600.0}}}));
    QCOMPARE(dataOf(page)["recordings"].toArray().size(), 2);
}

void TestReport::writingEndsWhereItFails() {
    int pieces = 0;
    const MotionReport report = reportWithClip("moving.mp4");
    ReportPage(report).write([&](const QByteArray&) { return ++pieces < 2; });
    QCOMPARE(pieces, 2);
}

QTEST_GUILESS_MAIN(TestReport)
#include "test_report.moc"
