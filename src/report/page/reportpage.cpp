// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reportpage.h"

#include "camerasection.h"
#include "clocktext.h"
#include "endlists.h"
#include "htmltext.h"
#include "pagedata.h"
#include "recordingsection.h"
#include "stripdrawing.h"

#include <QCryptographicHash>
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
    QByteArray all = "(() => {\n\"use strict\";\n";
    for (const char* name :
         {"page.js", "clips.js", "groups.js", "marks.js", "filters.js", "order.js", "address.js",
          "marksfile.js", "days.js", "player.js", "threshold.js"})
        all += resource(name);
    return all + "})();\n";
}

/// By which the page's policy knows what stands in it.
QByteArray policyHash(const QByteArray& text) {
    return "'sha256-" + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toBase64() +
           '\'';
}

/// The text between the places of the page's frame, which names each of them once.
QByteArrayList frameParts() {
    QByteArray rest = resource("page.html");
    QByteArrayList parts;
    for (const char* place : {"{{stylehash}}", "{{scripthash}}", "{{style}}", "{{summary}}",
                              "{{recordings}}", "{{lists}}", "{{data}}", "{{script}}"}) {
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

QString decidedBy(const MotionReport& report) {
    const QString threshold =
        QStringLiteral("--threshold-motion ") + QString::number(report.threshold);
    return report.detector == Detector::Cells ? QStringLiteral("--detector cells ") + threshold
                                              : threshold;
}

} // namespace

ReportPage::ReportPage(const MotionReport& report)
    : report(report)
    , strips(report) {}

void ReportPage::write(const Sink& sink) const {
    initResources();
    const QByteArrayList frame = frameParts();
    const QByteArray style = resource("page.css");
    const QByteArray program = script();
    const std::vector<PagePart> parts = pageParts(report);
    if (!sink(frame[0] + policyHash(style) + frame[1] + policyHash(program) + frame[2] + style +
              frame[3] + summary() + frame[4]))
        return;
    for (const PagePart& part : parts) {
        if (!sink(sectionOf(part)))
            return;
    }
    sink(frame[5] + endLists(report, strips) + frame[6] + pageData(report, parts, strips.top()) +
         frame[7] + program + frame[8]);
}

QByteArray ReportPage::sectionOf(const PagePart& part) const {
    if (part.isCamera())
        return cameraSection(part, report, strips);
    return recordingSection(report.recordings[std::size_t(part.recording)], report, part.id,
                            strips);
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
