// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reportpage.h"

#include "clocktext.h"
#include "htmltext.h"
#include "recordingsection.h"
#include "stripdrawing.h"

#include <QFile>

// Outside any namespace and called from here: a static library's resources are linked only if
// something names them.
static void initResources() {
    Q_INIT_RESOURCE(reportpage);
}

namespace {

QByteArray resource(const char* name) {
    QFile file(QStringLiteral(":/kestrova/report/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray script() {
    return resource("page.js") + resource("clips.js") + resource("player.js") +
           resource("threshold.js");
}

/// The text between the places of the page's frame, which names each of them once.
QByteArrayList frameParts() {
    QByteArray rest = resource("page.html");
    QByteArrayList parts;
    for (const char* place :
         {"{{style}}", "{{summary}}", "{{recordings}}", "{{lists}}", "{{data}}", "{{script}}"}) {
        const int found = rest.indexOf(place);
        parts.append(rest.left(found));
        rest.remove(0, found + int(qstrlen(place)));
    }
    parts.append(rest);
    return parts;
}

QString counted(int count, const char* one, const char* many) {
    return QString::number(count) + QLatin1String(count == 1 ? one : many);
}

/// A list under a heading, of those recordings for which `line` is not empty.
QByteArray list(const MotionReport& report, const QByteArray& id, const QByteArray& heading,
                const std::function<QByteArray(const ReportedRecording&)>& line) {
    QByteArray items;
    for (const ReportedRecording& recording : report.recordings) {
        const QByteArray text = line(recording);
        if (!text.isEmpty())
            items += "<li>" + isolatedText(recording.name) + text + "</li>\n";
    }
    if (items.isEmpty())
        return {};
    return "<section class=\"list\" aria-labelledby=\"" + id + "\">\n<h2 id=\"" + id + "\">" +
           heading + "</h2>\n<ul>\n" + items + "</ul>\n</section>\n";
}

QString decidedBy(const MotionReport& report) {
    const QString threshold =
        QStringLiteral("--threshold-motion ") + QString::number(report.threshold);
    return report.detector == Detector::Cells ? QStringLiteral("--detector cells ") + threshold
                                              : threshold;
}

QByteArray strongest(const ReportedRecording& recording) {
    if (!recording.remark.isEmpty())
        return htmlText(recording.remark);
    return "greatest motion value " +
           QByteArray::number(double(recording.strip.greatest()), 'f', 2);
}

QByteArray quietLine(const ReportedRecording& recording) {
    if (recording.state != SearchState::Done || hasSection(recording))
        return {};
    return " <span class=\"facts\">" + htmlText(elapsedText(recording.seconds)) + " long, " +
           strongest(recording) +
           (recording.restless.text.isEmpty() ? QByteArray()
                                              : "; " + htmlText(recording.restless.text)) +
           (recording.reason.isEmpty() ? QByteArray() : "; " + htmlText(recording.reason)) +
           "</span>";
}

QByteArray failedLine(const ReportedRecording& recording) {
    if (recording.state != SearchState::Failed)
        return {};
    return " <span class=\"facts\">" + isolatedText(recording.reason) + "</span>";
}

QByteArray unsearchedLine(const ReportedRecording& recording) {
    if (recording.state == SearchState::NotBegun)
        return " <span class=\"facts\">not begun</span>";
    if (recording.state != SearchState::CutShort)
        return {};
    return " <span class=\"facts\">searched up to " + htmlText(elapsedText(recording.seconds)) +
           "</span>";
}

QByteArray number(double value) {
    return QByteArray::number(value, 'g', 7);
}

/// Pairs of a step's place and its seconds, without those that have none.
QByteArray pairs(const MotionHistogram& histogram) {
    QByteArrayList all;
    const QVector<double>& seconds = histogram.seconds();
    for (int i = 0; i < seconds.size(); ++i) {
        if (seconds[i] > 0.0)
            all.append('[' + QByteArray::number(i) + ',' + number(seconds[i]) + ']');
    }
    return '[' + all.join(',') + ']';
}

QByteArray steps(Detector detector) {
    QByteArrayList all;
    for (const double step : thresholdSteps(detector))
        all.append(number(step));
    return '[' + all.join(',') + ']';
}

} // namespace

ReportPage::ReportPage(const MotionReport& report)
    : report(report)
    , top(stripTop(report)) {}

void ReportPage::write(const Sink& sink) const {
    initResources();
    const QByteArrayList parts = frameParts();
    if (!sink(parts[0] + resource("page.css") + parts[1] + summary() + parts[2]))
        return;
    int index = 0;
    for (const ReportedRecording& recording : report.recordings) {
        if (hasSection(recording) && !sink(recordingSection(recording, report, index, top)))
            return;
        ++index;
    }
    sink(parts[3] + endLists() + parts[4] + data() + parts[5] + script() + parts[6]);
}

QByteArray ReportPage::summary() const {
    double seconds = 0.0;
    int clips = 0;
    for (const ReportedRecording& recording : report.recordings) {
        seconds += recording.seconds;
        clips += recording.clips.size();
    }
    const QString text = counted(int(report.recordings.size()), " recording", " recordings") +
                         QStringLiteral(", %1 searched, ").arg(elapsedText(seconds)) +
                         counted(clips, " clip", " clips") + QStringLiteral(" with ") +
                         decidedBy(report);
    QByteArray lines = "<p>" + htmlText(text) + "</p>\n";
    if (report.isQuick())
        lines +=
            "<p class=\"trouble\">Only key frames were looked at: motion between two of them is "
            "missed.</p>\n";
    if (!report.isComplete())
        lines += "<p class=\"trouble\">The scan ended early, so this report is not complete.</p>\n";
    return lines;
}

QByteArray ReportPage::endLists() const {
    return list(report, "quiet", "Without motion", quietLine) +
           list(report, "failed", "Could not be read", failedLine) +
           list(report, "unsearched", "Not searched to the end", unsearchedLine);
}

QByteArray ReportPage::data() const {
    MotionHistogram all(report.detector);
    QByteArrayList recordings;
    int index = 0;
    for (const ReportedRecording& recording : report.recordings) {
        all.add(recording.histogram);
        if (hasSection(recording))
            recordings.append('"' + sectionId(index) + "\":" + pairs(recording.histogram));
        ++index;
    }
    return "{\"threshold\":" + number(report.threshold) + ",\"top\":" + number(top) +
           ",\"steps\":" + steps(report.detector) + ",\n\"all\":" + pairs(all) +
           ",\n\"recordings\":{" + recordings.join(",\n") + "}}";
}
