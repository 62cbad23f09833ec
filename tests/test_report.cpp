// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The page that shows what was found: its numbers, its text, and what it refers to.

#include "filenamecodec.h"
#include "htmltext.h"
#include "reportpage.h"
#include "stripdrawing.h"
#include "timeaxis.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QXmlStreamReader>
#include <QtTest>

#include <cmath>
#include <random>

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
    clip.strength = strength;
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
        recording.add(i, motion);
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

    void stripHasTheGreatestValueOfEachColumn_data();
    void stripHasTheGreatestValueOfEachColumn();
    void stripsStaySmall();
    void columnsWithoutPicturesAreFilled();
    void timesThatMakeNoSense();
    void thresholdsAreRoundNumbers();
    void histogramKnowsTheTimeAboveEachThreshold();
    void histogramsAddUp();
    void marksAreRound_data();
    void marksAreRound();
    void marksTellTheClock();

    void namesAreText_data();
    void namesAreText();
    void shellWordsComeBack_data();
    void shellWordsComeBack();
    void referencesAreEncoded();

    void pageIsWellFormed();
    void pageRefersToNoNetwork();
    void clipsPlayTheirFile();
    void stripIsDrawnToScale();
    void dataHasTheHistograms();
    void othersAreListedAtTheEnd();
    void incompleteReportsSaySo();
    void clockIsTold();
    void writingEndsWhereItFails();
};

void TestReport::stripHasTheGreatestValueOfEachColumn_data() {
    QTest::addColumn<int>("pictures");
    QTest::addColumn<double>("perSecond");
    QTest::newRow("seconds") << 100 << 25.0;
    QTest::newRow("as many as there are columns") << 2048 << 64.0;
    QTest::newRow("one more") << 2049 << 64.0;
    QTest::newRow("minutes") << 7001 << 25.0;
    QTest::newRow("hours") << 300000 << 29.97;
}

void TestReport::stripHasTheGreatestValueOfEachColumn() {
    QFETCH(int, pictures);
    QFETCH(double, perSecond);
    std::mt19937 random(1);
    std::uniform_real_distribution<float> anyValue(0.0F, 9.0F);
    MotionStrip strip;
    QVector<double> times;
    QVector<float> values;
    for (int i = 1; i <= pictures; ++i) {
        times.append(i / perSecond);
        values.append(anyValue(random));
        strip.add(times.last(), values.last());
    }
    const double seconds = strip.columnSeconds();
    const QVector<float> columns = strip.columns();
    QVector<float> expected(int(std::floor(times.last() / seconds)) + 1, -1.0F);
    for (int i = 0; i < pictures; ++i) {
        float& column = expected[int(std::floor(times[i] / seconds))];
        column = std::max(column, values[i]);
    }
    QCOMPARE(columns.size(), expected.size());
    for (int i = 0; i < columns.size(); ++i) {
        if (expected[i] >= 0.0F)
            QCOMPARE(columns[i], expected[i]);
    }
    QCOMPARE(strip.greatest(), *std::max_element(values.cbegin(), values.cend()));
    const bool isLong = times.last() >= MotionStrip::mostColumns * MotionStrip::shortestColumn;
    QVERIFY(columns.size() <= MotionStrip::mostColumns);
    QVERIFY(!isLong || columns.size() > MotionStrip::mostColumns / 2 - 1);
}

void TestReport::stripsStaySmall() {
    ReportedRecording recording;
    for (int i = 1; i <= 1000000; ++i)
        recording.add(i / 25.0, float(i % 7));
    QVERIFY(recording.strip.columns().size() <= 2048);
    QCOMPARE(recording.histogram.seconds().size(), thresholdSteps().size());
    QCOMPARE(recording.seconds, 40000.0);
}

void TestReport::columnsWithoutPicturesAreFilled() {
    MotionStrip strip;
    strip.add(1.0, 2.0F);
    strip.add(2.0, 4.0F);
    const QVector<float> columns = strip.columns();
    QCOMPARE(columns.size(), 129); // 64 to the second, and one for the last picture
    QCOMPARE(columns.first(), 2.0F);
    QCOMPARE(columns[64], 2.0F);
    QCOMPARE(columns[65], 4.0F); // measured across the second between both
    QCOMPARE(columns.last(), 4.0F);
}

void TestReport::timesThatMakeNoSense() {
    MotionStrip strip;
    MotionHistogram histogram;
    for (const double time : {-5.0, std::nan(""), HUGE_VAL, -HUGE_VAL, 2.0, 1.0, 1e300}) {
        strip.add(time, 1.0F);
        histogram.add(time, 1.0F);
    }
    QVERIFY(strip.columns().size() <= MotionStrip::mostColumns);
    QCOMPARE(MotionStrip().columns().size(), 0);
    QCOMPARE(MotionStrip().greatest(), 0.0F);
}

void TestReport::thresholdsAreRoundNumbers() {
    const QVector<double>& steps = thresholdSteps();
    QCOMPARE(steps.first(), 0.0);
    QCOMPARE(steps.last(), 10.0); // the range of --threshold-motion
    QVERIFY(steps.contains(0.5));
    for (int i = 1; i < steps.size(); ++i) {
        QVERIFY(steps[i] > steps[i - 1]);
        QVERIFY(QByteArray::number(steps[i], 'g', 10).size() <= 5);
    }
}

void TestReport::histogramKnowsTheTimeAboveEachThreshold() {
    std::mt19937 random(1);
    std::exponential_distribution<double> anyValue(1.5);
    std::uniform_real_distribution<double> anyGap(0.01, 3.0);
    MotionHistogram histogram;
    QVector<double> gaps;
    QVector<float> values;
    double time = 0.0;
    for (int i = 0; i < 20000; ++i) {
        gaps.append(anyGap(random));
        values.append(i % 50 == 0 ? 0.5F : float(anyValue(random)));
        time += gaps.last();
        histogram.add(time, values.last());
    }
    // Exact, also for values that are the threshold itself.
    for (const int step : {0, 1, 50, 100, 180, 181, 280, 400, thresholdSteps().size() - 1}) {
        double expected = 0.0;
        for (int i = 0; i < values.size(); ++i)
            expected += values[i] >= float(thresholdSteps()[step]) ? gaps[i] : 0.0;
        double seconds = 0.0;
        for (int i = step; i < histogram.seconds().size(); ++i)
            seconds += histogram.seconds()[i];
        QVERIFY2(std::abs(seconds - expected) < 1e-6, QByteArray::number(step).constData());
    }
}

void TestReport::histogramsAddUp() {
    MotionHistogram one;
    one.add(2.0, 0.0F);
    MotionHistogram other;
    other.add(1.0, 0.0F);
    other.add(4.0, 99.0F);
    one.add(other);
    QCOMPARE(one.seconds().first(), 3.0);
    QCOMPARE(one.seconds().last(), 3.0);
    MotionHistogram none;
    none.add(MotionHistogram());
    QVERIFY(none.seconds().isEmpty());
}

void TestReport::marksAreRound_data() {
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("nothing") << 0.0 << QStringList();
    QTest::newRow("no number") << std::nan("") << QStringList();
    QTest::newRow("seconds") << 4.5
                             << QStringList{"0:00:00", "0:00:01", "0:00:02", "0:00:03", "0:00:04"};
    QTest::newRow("minutes") << 700.0 << QStringList{"0:00:00", "0:02:00", "0:04:00",
                                                     "0:06:00", "0:08:00", "0:10:00"};
    QTest::newRow("hours") << 3 * 3600.0 + 1
                           << QStringList{"0:00:00", "0:30:00", "1:00:00", "1:30:00",
                                          "2:00:00", "2:30:00", "3:00:00"};
    QTest::newRow("days") << 100 * 3600.0
                          << QStringList{"0:00:00", "24:00:00", "48:00:00", "72:00:00", "96:00:00"};
}

void TestReport::marksAreRound() {
    QFETCH(double, seconds);
    QStringList found;
    for (const TimeMark& mark : timeMarks(seconds, {}))
        found.append(mark.label);
    QTEST(found, "labels");
}

void TestReport::marksTellTheClock() {
    const QDateTime evening(QDate(2026, 11, 16), QTime(21, 40), Qt::UTC);
    const QVector<TimeMark> marks = timeMarks(4 * 3600.0, evening);
    QStringList labels;
    for (const TimeMark& mark : marks)
        labels.append(mark.label);
    QCOMPARE(labels, QStringList({"22:00", "22:30", "23:00", "23:30", "2026-11-17", "00:30",
                                  "01:00", "01:30"}));
    QCOMPARE(marks.first().seconds, 1200.0);
}

void TestReport::namesAreText_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("markup") << "<b>&\"'" << QByteArray("&lt;b&gt;&amp;&quot;&#39;");
    QTest::newRow("control") << "a\nb\tc\x1b" << QByteArray("a\\nb\\tc\\x1b");
    QTest::newRow("no UTF-8") << QFile::decodeName("a\xff\xc3") << QByteArray("a\\xff\\xc3");
    QTest::newRow("beyond 16 bits")
        << QString::fromUtf8("\xf0\x9f\x8e\xa5") << QByteArray("\xf0\x9f\x8e\xa5");
    QTest::newRow("line separator") << QString(QChar(0x2028)) << QByteArray("\\xe2\\x80\\xa8");
}

void TestReport::namesAreText() {
    QFETCH(QString, name);
    QTEST(htmlText(name), "text");
}

void TestReport::shellWordsComeBack_data() {
    QTest::addColumn<QByteArray>("bytes");
    for (const char* name : {"plain.mp4", "a b", "it's", "$(touch x) `y` \"z\" \\n", "-dash",
                             "line\nbreak\t's \\x", "no\xffUTF-8 '", "\xf0\x9f\x8e\xa5"})
        QTest::addRow("%s", QByteArray(name).toPercentEncoding(" ").constData())
            << QByteArray(name);
}

void TestReport::shellWordsComeBack() {
    QFETCH(QByteArray, bytes);
    const QString command = "printf %s " + shellWord(QFile::decodeName(bytes));
    QProcess shell;
    shell.start("bash", {"-c", command});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.readAll(), bytes);
}

void TestReport::referencesAreEncoded() {
    QCOMPARE(fileReference("/r/pictures/a b#1?.png", "/r"),
             QByteArray("pictures/a%20b%231%3F.png"));
    QCOMPARE(fileReference("/r/a:b", "/r"), QByteArray("a%3Ab"));
    QCOMPARE(fileReference("/rest/x.mp4", "/r"), QByteArray("file:///rest/x.mp4"));
    QCOMPARE(fileReference("/x", "/"), QByteArray("x"));
    QCOMPARE(fileReference(QFile::decodeName("/v/\xff\"<.mp4"), "/r"),
             QByteArray("file:///v/%FF%22%3C.mp4"));
}

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
    report.recordings[0].add(3601.0, 2.0F);
    const double top = stripTop(report);
    QCOMPARE(top, 2.0);
    QCOMPARE(stripHeight(0.5, top), 0.5); // of square roots
    QCOMPARE(stripHeight(99.0, top), 1.0);
    const QByteArray drawing = stripDrawing(report.recordings[0], report, top);
    // An hour takes 1800 columns of 2 s and one more; 0.3 of 2 lies at 1 - sqrt(0.15) from the top.
    QCOMPARE(report.recordings[0].strip.columnSeconds(), 2.0);
    QVERIFY(drawing.contains("d=\"M0 1000V613H1800V0H1801V1000Z\""));
    QVERIFY(drawing.contains("d=\"M5.00 0V1000H10.25V0Z\"")); // 10 to 20.5 s
    QVERIFY(drawing.contains("y1=\"48.00\" y2=\"48.00\""));   // the threshold, half of 96 pixels
    report.recordings[0].add(3602.0, 99.0F);
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
    QCOMPARE(data["recordings"].toObject()["recording0"].toArray(), expected);
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
    QCOMPARE(page.count("class=\"recording\""), 1);
    const QByteArray quiet = between(page, "<h2 id=\"quiet\">", "</section>");
    QVERIFY(quiet.contains("<li>quiet.mp4 <span class=\"facts\">1:00:00 long, greatest motion "
                           "value 0.20</span></li>"));
    QCOMPARE(quiet.count("<li>"), 1);
    const QByteArray unread = between(page, "<h2 id=\"failed\">", "</section>");
    QVERIFY(unread.contains("<li>" + htmlText(evil) + " "));
    QVERIFY(unread.contains("is &lt;broken&gt;"));
    QVERIFY(page.indexOf("id=\"failed\"") > page.indexOf("class=\"recording\""));
    QVERIFY(!page.contains("not complete"));
    QVERIFY(!page.contains("id=\"unsearched\""));
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
    QVERIFY(unsearched.contains("moving.mp4 <span class=\"facts\">searched up to 1:00:00"));
    QVERIFY(unsearched.contains("next.mp4 <span class=\"facts\">not begun"));
    QVERIFY(!page.contains("id=\"quiet\""));
}

void TestReport::clockIsTold() {
    MotionReport report = reportWithClip("moving.mp4");
    report.startTime = QDateTime(QDate(2026, 11, 16), QTime(23, 59, 55), Qt::UTC);
    const QByteArray page = pageOf(report);
    QVERIFY(page.contains("<b>#0</b> 00:00:05 – 00:00:15"));
    QVERIFY(page.contains("from 2026-11-16 23:59:55"));
    QVERIFY(page.contains(">2026-11-17</text>"));
}

void TestReport::writingEndsWhereItFails() {
    int pieces = 0;
    const MotionReport report = reportWithClip("moving.mp4");
    ReportPage(report).write([&](const QByteArray&) { return ++pieces < 2; });
    QCOMPARE(pieces, 2);
}

QTEST_GUILESS_MAIN(TestReport)
#include "test_report.moc"
