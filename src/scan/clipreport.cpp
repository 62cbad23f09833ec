#include "clipreport.h"

#include <QFile>
#include <QLocale>

#include <nlohmann/json.hpp>

#include <cmath>

namespace {

class Report : public ClipReport {
public:
    Report(bool withExports, QIODevice& output)
        : withExports(withExports)
        , output(output) {}

protected:
    void write(const QByteArray& line) {
        output.write(line);
        if (auto* file = qobject_cast<QFileDevice*>(&output))
            file->flush();
    }

    const bool withExports;

private:
    QIODevice& output;
};

class TextReport : public Report {
public:
    using Report::Report;

    void addClip(const ClipLine& line) override {
        const DetectedClip& clip = line.clip;
        QString text = QStringLiteral("%1  #%2  %3 - %4  %5 s")
                           .arg(line.video)
                           .arg(clip.index)
                           .arg(clockText(clip.start), clockText(clip.end))
                           .arg(clip.end - clip.start, 0, 'f', 1);
        if (!line.snapshotFile.isEmpty())
            text += QStringLiteral("  ") + line.snapshotFile;
        if (line.isExported)
            text += QStringLiteral("  ") + line.exportFile;
        write(QFile::encodeName(text) + '\n');
    }
};

class JsonLinesReport : public Report {
public:
    using Report::Report;

    void addClip(const ClipLine& line) override {
        Json object;
        object["video"] = line.video.toStdString();
        object["index"] = line.clip.index;
        object["start"] = line.clip.start;
        object["end"] = line.clip.end;
        object["snapshotTime"] = line.clip.snapshotTime;
        object["snapshot"] = nullptr;
        if (!line.snapshotFile.isEmpty())
            object["snapshot"] = line.snapshotFile.toStdString();
        if (withExports)
            addExport(object, line);
        writeObject(object);
    }

    void endVideo(const VideoLine& line) override {
        Json object;
        object["video"] = line.video.toStdString();
        object["state"] = stateName(line.outcome);
        object["frames"] = line.frames;
        object["clips"] = line.clips;
        object["seconds"] = line.seconds;
        writeObject(object);
    }

private:
    using Json = nlohmann::ordered_json;

    static void addExport(Json& object, const ClipLine& line) {
        object["file"] = nullptr;
        if (!line.exportFile.isEmpty())
            object["file"] = line.exportFile.toStdString();
        object["exported"] = line.isExported;
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

    void writeObject(const Json& object) {
        const std::string text = object.dump(-1, ' ', false, Json::error_handler_t::replace);
        write(QByteArray::fromStdString(text) + '\n');
    }
};

/// RFC 4180: lines end with CR LF, fields with separators or quotes in them are quoted.
class CsvReport : public Report {
public:
    using Report::Report;

    void begin() override {
        const QByteArray exportColumns = withExports ? ",file,exported" : "";
        write("video,index,start,end,snapshotTime,snapshot" + exportColumns + "\r\n");
    }

    void addClip(const ClipLine& line) override {
        const DetectedClip& clip = line.clip;
        QByteArrayList fields = {quoted(line.video),        QByteArray::number(clip.index),
                                 number(clip.start),        number(clip.end),
                                 number(clip.snapshotTime), quoted(line.snapshotFile)};
        if (withExports)
            fields << quoted(line.exportFile) << (line.isExported ? "true" : "false");
        write(fields.join(',') + "\r\n");
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

std::unique_ptr<ClipReport> makeClipReport(ReportFormat format, bool withExports,
                                           QIODevice& output) {
    switch (format) {
    case ReportFormat::JsonLines:
        return std::make_unique<JsonLinesReport>(withExports, output);
    case ReportFormat::Csv:
        return std::make_unique<CsvReport>(withExports, output);
    case ReportFormat::Text:
        break;
    }
    return std::make_unique<TextReport>(withExports, output);
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
