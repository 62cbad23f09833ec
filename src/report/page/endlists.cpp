// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "endlists.h"

#include "cameras.h"
#include "clocktext.h"
#include "htmltext.h"
#include "recordingsection.h"

#include <functional>

namespace {

/// A list under a heading, of those recordings for which `item` is not empty.
QByteArray list(const MotionReport& report, const QByteArray& id, const QByteArray& heading,
                const std::function<QByteArray(const ReportedRecording&, int place)>& item) {
    QByteArray items;
    int place = 0;
    for (const ReportedRecording& recording : report.recordings)
        items += item(recording, place++);
    if (items.isEmpty())
        return {};
    return "<section class=\"list\" aria-labelledby=\"" + id + "\">\n<h2 id=\"" + id + "\">" +
           heading + "</h2>\n<ul>\n" + items + "</ul>\n</section>\n";
}

QByteArray line(const ReportedRecording& recording, const QByteArray& facts) {
    return isolatedText(recording.name) + " <span class=\"facts\">" + facts + "</span>";
}

QByteArray strongest(const ReportedRecording& recording) {
    if (!recording.remark.isEmpty())
        return htmlText(recording.remark);
    return "greatest motion value " +
           QByteArray::number(double(recording.strip.greatest()), 'f', 2);
}

QByteArray quietFacts(const ReportedRecording& recording) {
    QByteArray facts = htmlText(elapsedText(recording.seconds)) + " long, " + strongest(recording);
    for (const QString& more : {recording.restless.text, recording.reason}) {
        if (!more.isEmpty())
            facts += "; " + htmlText(more);
    }
    return facts;
}

QByteArray failedItem(const ReportedRecording& recording) {
    if (recording.state != SearchState::Failed)
        return {};
    return "<li>" + line(recording, isolatedText(recording.reason)) + "</li>\n";
}

QByteArray unsearchedItem(const ReportedRecording& recording) {
    if (recording.state == SearchState::NotBegun)
        return "<li>" + line(recording, "not begun") + "</li>\n";
    if (recording.state != SearchState::CutShort)
        return {};
    if (!recording.reason.isEmpty())
        return "<li>" + line(recording, isolatedText(recording.reason)) + "</li>\n";
    return "<li>" + line(recording, "searched up to " + htmlText(elapsedText(recording.seconds))) +
           "</li>\n";
}

} // namespace

bool isQuiet(const ReportedRecording& recording) {
    return recording.state == SearchState::Done && recording.clips.isEmpty() &&
           !isOnClock(recording);
}

QByteArray quietId(int place) {
    return "recording" + QByteArray::number(place);
}

QByteArray endLists(const MotionReport& report, const ReportStrips& strips) {
    const auto quiet = [&](const ReportedRecording& recording, int place) {
        if (!isQuiet(recording))
            return QByteArray();
        const QByteArray strip =
            recording.seconds > 0.0 ? stripBox(recording, report, strips) : QByteArray();
        return "<li class=\"recording\" id=\"" + quietId(place) + "\">" +
               line(recording, quietFacts(recording)) + '\n' + strip + "</li>\n";
    };
    return list(report, "quiet", "Without motion", quiet) +
           list(report, "failed", "Could not be read",
                [](const ReportedRecording& recording, int) { return failedItem(recording); }) +
           list(report, "unsearched", "Not searched to the end",
                [](const ReportedRecording& recording, int) { return unsearchedItem(recording); });
}
