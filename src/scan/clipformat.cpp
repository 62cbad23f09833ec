#include "clipformat.h"

#include <QFile>
#include <QLocale>

#include <nlohmann/json.hpp>

#include <cmath>

namespace {

class TextFormat : public ClipFormat {
public:
    QByteArray clip(const ClipLine& line) const override {
        const DetectedClip& found = line.clip;
        QString text = QStringLiteral("%1  #%2  %3 - %4  %5 s")
                           .arg(line.video)
                           .arg(found.index)
                           .arg(clockText(found.start), clockText(found.end))
                           .arg(found.end - found.start, 0, 'f', 1);
        if (!line.snapshotFile.isEmpty())
            text += QStringLiteral("  ") + line.snapshotFile;
        return QFile::encodeName(text) + '\n';
    }
};

class JsonLinesFormat : public ClipFormat {
public:
    QByteArray clip(const ClipLine& line) const override {
        Json object;
        object["video"] = line.video.toStdString();
        object["index"] = line.clip.index;
        object["start"] = line.clip.start;
        object["end"] = line.clip.end;
        object["snapshotTime"] = line.clip.snapshotTime;
        object["snapshot"] = nullptr;
        if (!line.snapshotFile.isEmpty())
            object["snapshot"] = line.snapshotFile.toStdString();
        return written(object);
    }

    QByteArray videoEnd(const VideoLine& line) const override {
        Json object;
        object["video"] = line.video.toStdString();
        object["state"] = stateName(line.outcome);
        object["frames"] = line.frames;
        object["clips"] = line.clips;
        object["seconds"] = line.seconds;
        return written(object);
    }

private:
    using Json = nlohmann::ordered_json;

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

    static QByteArray written(const Json& object) {
        const std::string text = object.dump(-1, ' ', false, Json::error_handler_t::replace);
        return QByteArray::fromStdString(text) + '\n';
    }
};

/// RFC 4180: lines end with CR LF, fields with separators or quotes in them are quoted.
class CsvFormat : public ClipFormat {
public:
    QByteArray header() const override { return "video,index,start,end,snapshotTime,snapshot\r\n"; }

    QByteArray clip(const ClipLine& line) const override {
        const DetectedClip& found = line.clip;
        const QByteArrayList fields = {quoted(line.video),         QByteArray::number(found.index),
                                       number(found.start),        number(found.end),
                                       number(found.snapshotTime), quoted(line.snapshotFile)};
        return fields.join(',') + "\r\n";
    }

private:
    static QByteArray number(double value) {
        return QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
    }

    static QByteArray quoted(const QString& text) {
        QByteArray field = text.toUtf8();
        bool needsQuotes = false;
        for (const char special : {',', '"', '\r', '\n'})
            needsQuotes = needsQuotes || field.contains(special);
        return needsQuotes ? '"' + field.replace("\"", "\"\"") + '"' : field;
    }
};

} // namespace

const ClipFormat& clipFormat(ReportFormat format) {
    static const TextFormat text;
    static const JsonLinesFormat jsonLines;
    static const CsvFormat csv;
    switch (format) {
    case ReportFormat::JsonLines:
        return jsonLines;
    case ReportFormat::Csv:
        return csv;
    case ReportFormat::Text:
        break;
    }
    return text;
}

QString clockText(double seconds) {
    const qint64 milliseconds = std::llround(std::abs(seconds) * 1000.0);
    return QStringLiteral("%1%2:%3:%4.%5")
        .arg(seconds < 0 && milliseconds > 0 ? QStringLiteral("-") : QString())
        .arg(milliseconds / 3600000)
        .arg(milliseconds / 60000 % 60, 2, 10, QLatin1Char('0'))
        .arg(milliseconds / 1000 % 60, 2, 10, QLatin1Char('0'))
        .arg(milliseconds % 1000, 3, 10, QLatin1Char('0'));
}
