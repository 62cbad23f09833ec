// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingsection.h"

#include "clipfigure.h"
#include "clocktext.h"
#include "htmltext.h"
#include "mapdrawing.h"
#include "restlessdrawing.h"
#include "starttext.h"
#include "stripdrawing.h"

namespace {

QByteArray trouble(const ReportedRecording& recording) {
    if (recording.state == SearchState::Failed || !recording.reason.isEmpty())
        return "<p class=\"trouble\">" + isolatedText(recording.reason) + "</p>\n";
    if (recording.state == SearchState::CutShort)
        return "<p class=\"trouble\">The scan ended here; the rest was not searched.</p>\n";
    return {};
}

QByteArray remark(const ReportedRecording& recording) {
    if (recording.remark.isEmpty())
        return {};
    return "<p class=\"facts\">" + htmlText(recording.remark) + "</p>\n";
}

std::vector<ShownClip> clipsOf(const ReportedRecording& recording) {
    std::vector<ShownClip> clips;
    for (const ReportedClip& clip : recording.clips)
        clips.push_back({&recording, &clip});
    return clips;
}

} // namespace

QByteArray recordingFacts(const ReportedRecording& recording) {
    const int clips = recording.clips.size();
    QString text = elapsedText(recording.seconds) + QStringLiteral(" long, ");
    text += clips == 1 ? QStringLiteral("1 clip") : QStringLiteral("%1 clips").arg(clips);
    const RecordingStart& start = recording.start;
    if (start.source == StartSource::Given && start.doubts.isEmpty())
        text +=
            QStringLiteral(", from ") + start.time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    else if (start.isKnown() || !start.doubts.isEmpty())
        text += QStringLiteral(", ") + startText(start);
    return htmlText(text);
}

QByteArray stripBox(const ReportedRecording& recording, const MotionReport& report,
                    const ReportStrips& strips) {
    return "<div class=\"stripbox\">\n" + stripDrawing(recording, report, strips) + "</div>\n";
}

QByteArray recordingSection(const ReportedRecording& recording, const MotionReport& report,
                            const QByteArray& id, const ReportStrips& strips) {
    return "<section class=\"recording\" id=\"" + id + "\" aria-labelledby=\"" + id +
           "name\">\n<h2 id=\"" + id + "name\">" + pathText(recording.name) +
           "</h2>\n<p class=\"facts\">" + recordingFacts(recording) + "</p>\n" +
           trouble(recording) + remark(recording) + restlessDrawing(recording.restless) +
           mapDrawing({&recording}, report) + stripBox(recording, report, strips) +
           clipFigures(clipsOf(recording), report) + "</section>\n";
}
