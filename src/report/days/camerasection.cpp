// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camerasection.h"

#include "clocktext.h"
#include "daydrawing.h"
#include "dayhours.h"
#include "hoursdrawing.h"
#include "htmltext.h"
#include "mapdrawing.h"
#include "recordingsection.h"
#include "restlessdrawing.h"

#include <QLocale>

namespace {

QByteArray counted(std::size_t count, const QByteArray& one) {
    return QByteArray::number(qulonglong(count)) + ' ' + one + (count == 1 ? "" : "s");
}

QString dateText(const QDateTime& time) {
    return time.toString(QStringLiteral("yyyy-MM-dd"));
}

QByteArray dayId(const PagePart& part, const QString& date) {
    return part.id + "day" + date.toLatin1();
}

QByteArray facts(const Camera& camera, std::size_t clips) {
    double seconds = 0.0;
    for (const ReportedRecording* recording : camera.recordings)
        seconds += recording->seconds;
    return "<p class=\"facts\">" + counted(camera.recordings.size(), "recording") + ", " +
           htmlText(elapsedText(seconds)) + " long, " + counted(clips, "clip") + "</p>\n";
}

/// With a link to its clips, if it has any.
QByteArray rowLabel(const DayRow& row, const PagePart& part, const QStringList& datesWithClips) {
    const QString date = dateText(row.begin);
    if (row.isOver)
        return "<p class=\"over\">at the same time</p>\n";
    if (!datesWithClips.contains(date))
        return "<p>" + htmlText(date) + "</p>\n";
    return "<p><a class=\"today\" href=\"#" + dayId(part, date) + "\">" + htmlText(date) +
           "</a></p>\n";
}

QByteArray rows(const PagePart& part, const QStringList& datesWithClips, const MotionReport& report,
                const ReportStrips& strips) {
    QByteArray all = "<div class=\"days\">\n";
    for (const DayRow& row : dayRows(part.camera))
        all += "<div class=\"dayrow\">\n" + rowLabel(row, part, datesWithClips) +
               "<div class=\"stripbox\" data-at=\"" +
               QByteArray::number(row.begin.toMSecsSinceEpoch() / 1000) + "\" data-seconds=\"" +
               QByteArray::number(row.seconds, 'f', 0) + "\">\n" + dayDrawing(row, report, strips) +
               "</div>\n</div>\n";
    return all + "</div>\n";
}

QString dayText(const QString& date, bool isNight) {
    const int weekday = QDate::fromString(date, Qt::ISODate).dayOfWeek();
    return (isNight ? QStringLiteral("Night of ") : QString()) +
           QLocale::c().dayName(weekday, QLocale::LongFormat) + ' ' + date;
}

QByteArray dayOfClips(const QByteArray& id, const QString& day, const std::vector<ShownClip>& clips,
                      const MotionReport& report) {
    return "<section class=\"dayclips\" aria-labelledby=\"" + id + "\">\n<h3 id=\"" + id + "\">" +
           htmlText(day) + " <span class=\"facts\">" + counted(clips.size(), "clip") +
           "</span></h3>\n" + clipFigures(clips, report) + "</section>\n";
}

/// Pairs of a day's date and its clips, in order.
std::vector<std::pair<QString, std::vector<ShownClip>>> byDate(const std::vector<ShownClip>& clips,
                                                               DayHours hours) {
    std::vector<std::pair<QString, std::vector<ShownClip>>> days;
    for (const ShownClip& shown : clips) {
        const QDateTime start = shown.recording->clockAt(shown.clip->start);
        const QString date = dateText(hours.dayOf(start));
        if (days.empty() || days.back().first != date)
            days.push_back({date, {}});
        days.back().second.push_back(shown);
    }
    return days;
}

QByteArray troubleOf(const ReportedRecording& recording) {
    if (!recording.reason.isEmpty())
        return " <span class=\"trouble\">" + isolatedText(recording.reason) + "</span>";
    if (recording.state == SearchState::CutShort)
        return " <span class=\"trouble\">The scan ended here; the rest was not searched.</span>";
    return {};
}

QByteArray line(const ReportedRecording& recording) {
    QByteArray text = "<li>" + isolatedText(recording.name) + " <span class=\"facts\">" +
                      recordingFacts(recording);
    if (!recording.remark.isEmpty())
        text += "; " + htmlText(recording.remark);
    return text + "</span>" + troubleOf(recording) + restlessDrawing(recording.restless) +
           "</li>\n";
}

QByteArray recordingList(const Camera& camera) {
    QByteArray list = "<details class=\"list\">\n<summary>" +
                      counted(camera.recordings.size(), "recording") + "</summary>\n<ul>\n";
    for (const ReportedRecording* recording : camera.recordings)
        list += line(*recording);
    return list + "</ul>\n</details>\n";
}

} // namespace

QByteArray cameraSection(const PagePart& part, const MotionReport& report,
                         const ReportStrips& strips) {
    const std::vector<ShownClip> clips = clipsOf(part, report);
    const DayHours hours = dayHours(part.camera);
    const auto days = byDate(clips, hours);
    QStringList dates;
    for (const auto& one : days)
        dates.append(one.first);
    QByteArray section = "<section class=\"recording camera\" id=\"" + part.id +
                         "\" aria-labelledby=\"" + part.id + "name\">\n<h2 id=\"" + part.id +
                         "name\">" + isolatedText(part.camera.name) + "</h2>\n" +
                         facts(part.camera, clips.size()) + "<div class=\"overview\">\n" +
                         "<div class=\"hoursbox\">" + hoursDrawing(part.camera, clips) +
                         "</div>\n" + mapDrawing(part.camera.recordings, report) + "</div>\n" +
                         rows(part, dates, report, strips) + recordingList(part.camera);
    for (const auto& one : days)
        section += dayOfClips(dayId(part, one.first), dayText(one.first, hours.isNight()),
                              one.second, report);
    return section + "</section>\n";
}
