// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipformat.h"

#include "clocktext.h"
#include "escaping.h"
#include "listformats.h"
#include "shortestdigits.h"
#include "starttext.h"

#include <QFile>

#include <nlohmann/json.hpp>

namespace {

/// Empty where it is not known.
QString clockTime(const ClipLine& line, double seconds) {
    const RecordingStart& start = line.recording.start;
    return start.isKnown() ? isoText(start.timeAt(seconds)) : QString();
}

class TextFormat : public ClipFormat {
public:
    QByteArray clip(const ClipLine& line) override {
        const DetectedClip& found = line.clip;
        // All at once: a file name may hold a "%2" of its own.
        QString text = QStringLiteral("%1  #%2  %3 - %4  %5 s")
                           .arg(printable(line.recording.video), QString::number(found.index),
                                preciseClockText(found.start), endText(line),
                                QString::number(found.end - found.start, 'f', 1));
        if (!line.snapshotFile.isEmpty())
            text += QStringLiteral("  ") + printable(line.snapshotFile);
        if (line.isExported)
            text += QStringLiteral("  ") + printable(line.exportFile);
        return QFile::encodeName(text) + '\n';
    }

private:
    static QString endText(const ClipLine& line) {
        if (!line.goesOn())
            return preciseClockText(line.clip.end);
        const ClipPart& last = line.parts.last();
        return preciseClockText(last.end) + QStringLiteral(" in ") +
               printable(last.recording->video);
    }
};

class JsonLinesFormat : public ClipFormat {
public:
    explicit JsonLinesFormat(ClipFields fields)
        : fields(fields) {}

    QByteArray clip(const ClipLine& line) override {
        Json object;
        addName(object, "video", line.recording.video);
        object["index"] = line.clip.index;
        object["start"] = line.clip.start;
        object["end"] = line.clip.end;
        object["snapshotTime"] = line.clip.snapshotTime;
        object["snapshot"] = nullptr;
        if (!line.snapshotFile.isEmpty())
            addName(object, "snapshot", line.snapshotFile);
        if (fields.exports)
            addExport(object, line);
        if (fields.clocks)
            addClock(object, line);
        if (fields.parts)
            object["parts"] = partsOf(line);
        if (line.isQuick)
            object["quick"] = true;
        return written(object);
    }

    QByteArray provisional(const ClipLine& line, double looked) const override {
        Json object;
        addName(object, "video", line.recording.video);
        object["start"] = line.clip.start;
        object["end"] = line.clip.end;
        object["snapshotTime"] = line.clip.snapshotTime;
        object["provisional"] = true;
        object["looked"] = looked;
        return written(object);
    }

    QByteArray videoEnd(const VideoLine& line) override {
        Json object;
        addName(object, "video", line.recording.video);
        object["state"] = line.isPartly ? "partly" : stateName(line.outcome);
        if (line.looked)
            object["looked"] = *line.looked;
        object["frames"] = line.frames;
        object["clips"] = line.clips;
        object["seconds"] = line.seconds;
        if (fields.clocks)
            addStart(object, line.recording.start);
        if (line.strongest)
            addStrongest(object, *line.strongest);
        if (line.damage.isThere())
            object["damaged"] = damageOf(line.damage);
        if (line.isQuick)
            object["quick"] = true;
        return written(object);
    }

private:
    using Json = nlohmann::ordered_json;

    /// Bytes that are no UTF-8 are replaced, since JSON has no place for them; the bytes of the
    /// whole name then follow in base 64.
    static void addName(Json& object, const char* key, const QString& name) {
        const QByteArray bytes = QFile::encodeName(name);
        object[key] = bytes.toStdString();
        if (!name.isValidUtf16())
            object[std::string(key) + "Bytes"] = bytes.toBase64().toStdString();
    }

    static void addExport(Json& object, const ClipLine& line) {
        object["file"] = nullptr;
        if (!line.exportFile.isEmpty())
            addName(object, "file", line.exportFile);
        object["exported"] = line.isExported;
    }

    static void addTime(Json& object, const char* key, const QString& time) {
        object[key] = nullptr;
        if (!time.isEmpty())
            object[key] = time.toStdString();
    }

    static void addClock(Json& object, const ClipLine& line) {
        addTime(object, "startClock", clockTime(line, line.clip.start));
        addTime(object, "endClock", clockTime(line, line.clip.end));
    }

    static void addStart(Json& object, const RecordingStart& start) {
        addTime(object, "began", start.isKnown() ? isoText(start.time) : QString());
        object["beganBy"] = sourceWord(start.source).toStdString();
        object["beganCertainty"] = certaintyWord(start.certainty).toStdString();
        object["beganDoubts"] = Json::array();
        for (const StartDoubt doubt : start.doubts)
            object["beganDoubts"].push_back(doubtText(doubt).toStdString());
    }

    static Json partsOf(const ClipLine& line) {
        Json parts = Json::array();
        for (const ClipPart& part : line.parts) {
            Json object;
            addName(object, "recording", part.recording->video);
            object["start"] = part.start;
            object["end"] = part.end;
            parts.push_back(object);
        }
        return parts;
    }

    static void addStrongest(Json& object, const StrongestMotion& strongest) {
        object["strongest"] = shortestDigits(strongest.motion.value).toDouble();
        object["strongestTime"] = strongest.time;
    }

    static Json damageOf(const Damage& damage) {
        Json object;
        object["packets"] = damage.packets;
        if (damage.promised > 0.0) {
            object["promised"] = damage.promised;
            object["read"] = damage.read;
        }
        return object;
    }

    static const char* stateName(DetectionOutcome outcome) {
        switch (outcome) {
        case DetectionOutcome::Finished:
            return "finished";
        case DetectionOutcome::Cancelled:
            return "cancelled";
        default:
            return "failed";
        }
    }

    static QString numberEscape(const QString& text, int place) {
        if (!isSteering(text[place]))
            return {};
        return QStringLiteral("\\u%1").arg(text[place].unicode(), 4, 16, QLatin1Char('0'));
    }

    static QByteArray written(const Json& object) {
        const std::string text = object.dump(-1, ' ', false, Json::error_handler_t::replace);
        return escaped(QString::fromStdString(text), numberEscape).toUtf8() + '\n';
    }

    ClipFields fields;
};

/// RFC 4180: lines end with CR LF, fields with separators or quotes in them are quoted.
class CsvFormat : public ClipFormat {
public:
    explicit CsvFormat(ClipFields fields)
        : fields(fields) {}

    QByteArray header() const override {
        const QByteArray exportColumns = fields.exports ? ",file,exported" : "";
        const QByteArray clockColumns = fields.clocks ? ",startClock,endClock" : "";
        const QByteArray partColumns = fields.parts ? ",lastVideo,lastEnd" : "";
        return "video,index,start,end,snapshotTime,snapshot" + exportColumns + clockColumns +
               partColumns + "\r\n";
    }

    QByteArray clip(const ClipLine& line) override {
        const DetectedClip& found = line.clip;
        QByteArrayList row = {quoted(line.recording.video),       QByteArray::number(found.index),
                              shortestDigits(found.start),        shortestDigits(found.end),
                              shortestDigits(found.snapshotTime), quoted(line.snapshotFile)};
        if (fields.exports)
            row << quoted(line.exportFile) << (line.isExported ? "true" : "false");
        if (fields.clocks)
            row << clockTime(line, found.start).toLatin1() << clockTime(line, found.end).toLatin1();
        if (fields.parts)
            row << quoted(line.parts.last().recording->video)
                << shortestDigits(line.parts.last().end);
        return row.join(',') + "\r\n";
    }

private:
    static QByteArray quoted(const QString& text) { return csvField(QFile::encodeName(text)); }

    ClipFields fields;
};

} // namespace

std::unique_ptr<ClipFormat> makeClipFormat(ReportFormat format, ClipFields fields,
                                           ClipCalls calls) {
    switch (format) {
    case ReportFormat::Text:
        return std::make_unique<TextFormat>();
    case ReportFormat::JsonLines:
        return std::make_unique<JsonLinesFormat>(fields);
    case ReportFormat::Csv:
        return std::make_unique<CsvFormat>(fields);
    default:
        return makeListFormat(format, calls);
    }
}
