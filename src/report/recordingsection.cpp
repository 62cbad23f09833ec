// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingsection.h"

#include "clocktext.h"
#include "escaping.h"
#include "htmltext.h"
#include "restlessdrawing.h"
#include "stripdrawing.h"

#include <algorithm>

namespace {

QByteArray seconds(double time) {
    return QByteArray::number(time, 'f', 3);
}

/// On the clock, if it is known.
QString timeText(const MotionReport& report, double time) {
    if (!report.startTime.isValid())
        return elapsedText(time);
    return report.startTime.addMSecs(qint64(sensibleTime(time) * 1000.0))
        .toString(QStringLiteral("HH:mm:ss"));
}

/// What plays the clip in a browser: its own file, or the recording from there to there.
QByteArray playReference(const MotionReport& report, const ReportedRecording& recording,
                         const ReportedClip& clip) {
    if (!clip.exportFile.isEmpty())
        return fileReference(clip.exportFile, report.folder);
    const double start = std::max(clip.start + recording.offset, 0.0);
    const double end = std::max(clip.end + recording.offset, start);
    return fileReference(recording.path, report.folder) + "#t=" + seconds(start) + ',' +
           seconds(end);
}

/// The same for a player, to be typed.
QString playCommand(const ReportedRecording& recording, const ReportedClip& clip) {
    if (!clip.exportFile.isEmpty())
        return QStringLiteral("mpv -- ") + shellWord(clip.exportFile);
    const double start = std::max(clip.start + recording.offset, 0.0);
    const double end = std::max(clip.end + recording.offset, start);
    return QStringLiteral("mpv --start=%1 --end=%2 -- ")
               .arg(QString::fromLatin1(seconds(start)), QString::fromLatin1(seconds(end))) +
           shellWord(recording.path);
}

QByteArray picture(const MotionReport& report, const ReportedRecording& recording,
                   const ReportedClip& clip) {
    if (clip.pictureFile.isEmpty())
        return "<span class=\"nopicture\">No picture</span>";
    return "<img src=\"" + fileReference(report.folder + '/' + clip.pictureFile, report.folder) +
           "\" width=\"" + QByteArray::number(clip.pictureSize.width()) + "\" height=\"" +
           QByteArray::number(clip.pictureSize.height()) +
           "\" loading=\"lazy\" decoding=\"async\" alt=\"Clip " + QByteArray::number(clip.index) +
           " of " + htmlText(recording.name) + ", its strongest motion at " +
           htmlText(timeText(report, clip.snapshotTime)) + "\">";
}

QByteArray caption(const MotionReport& report, const ReportedRecording& recording,
                   const ReportedClip& clip) {
    return "<figcaption>" + isolatedText(recording.name, "source") + " <b>#" +
           QByteArray::number(clip.index) + "</b> " + htmlText(timeText(report, clip.start)) +
           " – " + htmlText(timeText(report, clip.end)) + " <span class=\"facts\">" +
           QByteArray::number(clip.end - clip.start, 'f', 1) + " s, strength " +
           QByteArray::number(double(shownMotion(clip.strength)), 'f', 2) + report.unit() +
           "</span></figcaption>";
}

QByteArray figure(const MotionReport& report, const ReportedRecording& recording,
                  const ReportedClip& clip) {
    return "<figure class=\"clip\" data-start=\"" + seconds(clip.start) + "\" data-end=\"" +
           seconds(clip.end) + "\" data-strength=\"" +
           QByteArray::number(double(shownMotion(clip.strength)), 'g', 6) + "\" data-command=\"" +
           htmlText(playCommand(recording, clip)) + "\">\n<a href=\"" +
           playReference(report, recording, clip) + "\">" + picture(report, recording, clip) +
           "</a>\n" + caption(report, recording, clip) + "\n</figure>\n";
}

/// The folder is less telling than the name in it.
QByteArray heading(const QString& name) {
    const int fileName = name.lastIndexOf('/') + 1;
    return isolatedText(name.left(fileName), "folder") + "<wbr>" + isolatedText(name.mid(fileName));
}

QByteArray lengthText(const MotionReport& report, const ReportedRecording& recording) {
    QString text = elapsedText(recording.seconds) + QStringLiteral(" long, ");
    const int clips = recording.clips.size();
    text += clips == 1 ? QStringLiteral("1 clip") : QStringLiteral("%1 clips").arg(clips);
    if (report.startTime.isValid())
        text += QStringLiteral(", from ") +
                report.startTime.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    return htmlText(text);
}

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

} // namespace

bool hasSection(const ReportedRecording& recording) {
    return !recording.clips.isEmpty();
}

QByteArray sectionId(int index) {
    return "recording" + QByteArray::number(index);
}

QByteArray recordingSection(const ReportedRecording& recording, const MotionReport& report,
                            int index, double top) {
    const QByteArray id = sectionId(index);
    QByteArray section = "<section class=\"recording\" id=\"" + id + "\" aria-labelledby=\"" + id +
                         "name\">\n<h2 id=\"" + id + "name\">" + heading(recording.name) +
                         "</h2>\n<p class=\"facts\">" + lengthText(report, recording) + "</p>\n" +
                         trouble(recording) + remark(recording) +
                         restlessDrawing(recording.restless) + "<div class=\"stripbox\">\n" +
                         stripDrawing(recording, report, top) + "</div>\n<div class=\"clips\">\n";
    for (const ReportedClip& clip : recording.clips)
        section += figure(report, recording, clip);
    return section + "</div>\n</section>\n";
}
