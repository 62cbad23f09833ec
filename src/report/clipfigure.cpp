// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipfigure.h"

#include "escaping.h"
#include "htmltext.h"

#include <algorithm>

namespace {

QByteArray seconds(double time) {
    return QByteArray::number(time, 'f', 3);
}

/// Where a player finds a part of a clip, in seconds from the file's beginning.
QPair<double, double> inFile(const ReportedRecording& recording, double start, double end) {
    const double first = std::max(start + recording.offset, 0.0);
    return {first, std::max(end + recording.offset, first)};
}

QByteArray rangeReference(const MotionReport& report, const ReportedRecording& recording,
                          double start, double end) {
    const auto range = inFile(recording, start, end);
    return fileReference(recording.path, report.folder) + "#t=" + seconds(range.first) + ',' +
           seconds(range.second);
}

/// What plays the clip in a browser: its own file, or the recording from there to there. Of one
/// that goes on in other recordings that is its first part.
QByteArray playReference(const MotionReport& report, const ReportedRecording& recording,
                         const ReportedClip& clip) {
    if (!clip.exportFile.isEmpty())
        return fileReference(clip.exportFile, report.folder);
    const double end = clip.parts.isEmpty() ? clip.end : clip.parts.first().end;
    return rangeReference(report, recording, clip.start, end);
}

/// The parts in other recordings, to be played behind the first one.
QByteArray laterParts(const MotionReport& report, const ReportedClip& clip) {
    if (clip.parts.isEmpty() || !clip.exportFile.isEmpty())
        return {};
    QByteArrayList references;
    for (const ReportedPart& part : clip.parts.mid(1))
        references += rangeReference(report, report.recordings[std::size_t(part.recording)],
                                     part.start, part.end);
    return " data-parts=\"" + references.join(' ') + '"';
}

QString rangeOptions(const QPair<double, double>& range) {
    return QStringLiteral("--start=%1 --end=%2 ")
        .arg(QString::fromLatin1(seconds(range.first)), QString::fromLatin1(seconds(range.second)));
}

/// The same for a player, to be typed; with all parts.
QString playCommand(const MotionReport& report, const ReportedRecording& recording,
                    const ReportedClip& clip) {
    if (!clip.exportFile.isEmpty())
        return QStringLiteral("mpv -- ") + shellWord(clip.exportFile);
    if (clip.parts.isEmpty())
        return QStringLiteral("mpv ") + rangeOptions(inFile(recording, clip.start, clip.end)) +
               QStringLiteral("-- ") + shellWord(recording.path);
    QString command = QStringLiteral("mpv");
    for (const ReportedPart& part : clip.parts) {
        const ReportedRecording& file = report.recordings[std::size_t(part.recording)];
        command += QStringLiteral(" --{ ") + rangeOptions(inFile(file, part.start, part.end)) +
                   shellWord(file.path) + QStringLiteral(" --}");
    }
    return command;
}

QByteArray percent(double share) {
    return QByteArray::number(100.0 * share, 'f', 1) + '%';
}

/// Drawn over the picture.
QByteArray box(const QRectF& box) {
    if (box.isEmpty())
        return {};
    return "<svg class=\"box\" aria-hidden=\"true\"><rect x=\"" + percent(box.x()) + "\" y=\"" +
           percent(box.y()) + "\" width=\"" + percent(box.width()) + "\" height=\"" +
           percent(box.height()) + "\"/></svg>";
}

QByteArray picture(const MotionReport& report, const ReportedRecording& recording,
                   const ReportedClip& clip) {
    if (clip.pictureFile.isEmpty())
        return "<span class=\"nopicture\">No picture</span>";
    return "<img src=\"" + pictureReference(clip, report) + "\" width=\"" +
           QByteArray::number(clip.pictureSize.width()) + "\" height=\"" +
           QByteArray::number(clip.pictureSize.height()) +
           "\" loading=\"lazy\" decoding=\"async\" alt=\"Clip " + QByteArray::number(clip.index) +
           " of " + htmlText(recording.name) + ", its strongest motion at " +
           htmlText(recording.timeText(clip.snapshotTime)) + "\">" + box(clip.box);
}

QByteArray day(const ReportedRecording& recording, const ReportedClip& clip) {
    if (!recording.start.isKnown())
        return {};
    const QDateTime start = recording.clockAt(clip.start);
    return "<span class=\"date\">" + htmlText(start.toString(QStringLiteral("yyyy-MM-dd"))) +
           "</span> ";
}

/// When it begins: seconds of its day by the clock, and those since 1970.
QByteArray clockData(const ReportedRecording& recording, const ReportedClip& clip) {
    if (!recording.start.isKnown())
        return {};
    const QDateTime start = recording.clockAt(clip.start);
    return " data-clock=\"" + QByteArray::number(start.time().msecsSinceStartOfDay() / 1000) +
           "\" data-at=\"" + QByteArray::number(start.toMSecsSinceEpoch() / 1000) + '"';
}

QByteArray inFiles(const ReportedClip& clip) {
    if (clip.parts.isEmpty())
        return {};
    return ", in " + QByteArray::number(clip.parts.size()) + " files";
}

QByteArray caption(const MotionReport& report, const ReportedRecording& recording,
                   const ReportedClip& clip) {
    return "<figcaption><span class=\"source\">" + pathText(recording.name) + "</span> " +
           day(recording, clip) + "<b>#" + QByteArray::number(clip.index) + "</b> " +
           htmlText(recording.timeText(clip.start)) + " – " +
           htmlText(recording.timeText(clip.end)) + " <span class=\"facts\">" +
           QByteArray::number(clip.end - clip.start, 'f', 1) + " s, strength " +
           QByteArray::number(double(shownMotion(clip.strength)), 'f', 2) + report.unit() +
           inFiles(clip) + "</span></figcaption>";
}

QByteArray figure(const MotionReport& report, const ReportedRecording& recording,
                  const ReportedClip& clip) {
    return "<figure class=\"clip\"" + clockData(recording, clip) + " data-start=\"" +
           seconds(clip.start) + "\" data-end=\"" + seconds(clip.end) + "\" data-strength=\"" +
           QByteArray::number(double(shownMotion(clip.strength)), 'g', 6) + "\" data-command=\"" +
           htmlText(playCommand(report, recording, clip)) + '"' + laterParts(report, clip) +
           ">\n<a href=\"" + playReference(report, recording, clip) + "\">" +
           picture(report, recording, clip) + "</a>\n" + caption(report, recording, clip) +
           "\n</figure>\n";
}

} // namespace

QByteArray pictureReference(const ReportedClip& clip, const MotionReport& report) {
    return fileReference(report.folder + '/' + clip.pictureFile, report.folder);
}

QByteArray clipFigures(const std::vector<ShownClip>& clips, const MotionReport& report) {
    QByteArray list = "<div class=\"cliplist\">\n";
    for (std::size_t i = 0; i < clips.size(); ++i) {
        if (i % clipsInGroup == 0)
            list += i == 0 ? "<div class=\"clips\">\n" : "</div>\n<div class=\"clips\">\n";
        list += figure(report, *clips[i].recording, *clips[i].clip);
    }
    return list + (clips.empty() ? "</div>\n" : "</div>\n</div>\n");
}
