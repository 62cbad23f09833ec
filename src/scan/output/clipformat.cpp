// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipformat.h"

#include "clocktext.h"
#include "escaping.h"
#include "listformats.h"
#include "shortestdigits.h"

#include <QFile>

#include <nlohmann/json.hpp>

namespace {

class TextFormat : public ClipFormat {
public:
    QByteArray clip(const ClipLine& line) override {
        const DetectedClip& found = line.clip;
        // All at once: a file name may hold a "%2" of its own.
        QString text = QStringLiteral("%1  #%2  %3 - %4  %5 s")
                           .arg(printable(line.recording.video), QString::number(found.index),
                                preciseClockText(found.start), preciseClockText(found.end),
                                QString::number(found.end - found.start, 'f', 1));
        if (!line.snapshotFile.isEmpty())
            text += QStringLiteral("  ") + printable(line.snapshotFile);
        if (line.isExported)
            text += QStringLiteral("  ") + printable(line.exportFile);
        return QFile::encodeName(text) + '\n';
    }
};

class JsonLinesFormat : public ClipFormat {
public:
    explicit JsonLinesFormat(bool withExports)
        : withExports(withExports) {}

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
        if (withExports)
            addExport(object, line);
        if (line.isQuick)
            object["quick"] = true;
        return written(object);
    }

    QByteArray videoEnd(const VideoLine& line) const override {
        Json object;
        addName(object, "video", line.recording.video);
        object["state"] = stateName(line.outcome);
        object["frames"] = line.frames;
        object["clips"] = line.clips;
        object["seconds"] = line.seconds;
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

    bool withExports;
};

/// RFC 4180: lines end with CR LF, fields with separators or quotes in them are quoted.
class CsvFormat : public ClipFormat {
public:
    explicit CsvFormat(bool withExports)
        : withExports(withExports) {}

    QByteArray header() const override {
        const QByteArray exportColumns = withExports ? ",file,exported" : "";
        return "video,index,start,end,snapshotTime,snapshot" + exportColumns + "\r\n";
    }

    QByteArray clip(const ClipLine& line) override {
        const DetectedClip& found = line.clip;
        QByteArrayList fields = {
            quoted(line.recording.video),       QByteArray::number(found.index),
            shortestDigits(found.start),        shortestDigits(found.end),
            shortestDigits(found.snapshotTime), quoted(line.snapshotFile)};
        if (withExports)
            fields << quoted(line.exportFile) << (line.isExported ? "true" : "false");
        return fields.join(',') + "\r\n";
    }

private:
    static QByteArray quoted(const QString& text) {
        QByteArray field = QFile::encodeName(text);
        bool needsQuotes = false;
        for (const char special : {',', '"', '\r', '\n'})
            needsQuotes = needsQuotes || field.contains(special);
        return needsQuotes ? '"' + field.replace("\"", "\"\"") + '"' : field;
    }

    bool withExports;
};

} // namespace

std::unique_ptr<ClipFormat> makeClipFormat(ReportFormat format, bool withExports) {
    switch (format) {
    case ReportFormat::Text:
        return std::make_unique<TextFormat>();
    case ReportFormat::JsonLines:
        return std::make_unique<JsonLinesFormat>(withExports);
    case ReportFormat::Csv:
        return std::make_unique<CsvFormat>(withExports);
    default:
        return makeListFormat(format);
    }
}
