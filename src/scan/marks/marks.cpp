// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "marks.h"

#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPair>
#include <QSet>

#include <cmath>
#include <limits>

namespace {

constexpr double mostSeconds = 1e9;
constexpr double mostExact = 9007199254740992.0; // whole numbers are exact up to here

/// Reads the clips one after another, and ends with the first that is none.
class ClipReader {
public:
    explicit ClipReader(Marks& marks)
        : marks(marks) {}

    void read(const QJsonValue& value, int place) {
        clip = value.toObject();
        flaw = value.isObject() ? QString() : QStringLiteral("it is no object");
        const QString mark = text("mark");
        const MarkedRecording recording = recordingOf();
        MarkedClip found;
        found.number = int(whole("number", 0.0, std::numeric_limits<int>::max()));
        found.start = seconds("start");
        found.end = seconds("end");
        const QJsonValue parts = clip.value(QLatin1String("parts"));
        if (mark != QLatin1String("keep") && mark != QLatin1String("seen"))
            blame("mark", "is neither \"keep\" nor \"seen\"");
        if (flaw.isEmpty() && mark == QLatin1String("keep"))
            keep(recording, parts, found);
        if (!flaw.isEmpty())
            marks.error = QStringLiteral("clip %1 of it: %2").arg(place + 1).arg(flaw);
    }

private:
    void keep(const MarkedRecording& recording, const QJsonValue& parts, MarkedClip& found) {
        found.recording = placeOf(recording);
        if (!parts.isUndefined())
            readParts(parts.toArray(), found);
        const QPair<int, int> name(found.recording, found.number);
        const auto same = numbers.constFind(name);
        if (same == numbers.constEnd())
            marks.clips.append(found);
        else if (*same != times(found))
            flaw = QStringLiteral("another clip has its number");
        numbers[name] = times(found);
    }

    static QPair<double, double> times(const MarkedClip& clip) { return {clip.start, clip.end}; }

    /// Bytes that are no text stand beside it in base 64.
    QString videoOf() {
        QString video = text("recording");
        if (clip.contains(QLatin1String("recordingBytes"))) {
            const QByteArray bytes = QByteArray::fromBase64(text("recordingBytes").toLatin1());
            video = bytes.contains('\0') ? QString() : QFile::decodeName(bytes);
        }
        if (video.isEmpty() || video.contains(QChar()))
            blame("recording", "is no name of a file");
        return video;
    }

    QString text(const char* key) {
        const QJsonValue value = clip.value(QLatin1String(key));
        if (!value.isString())
            blame(key, "is no text");
        return value.toString();
    }

    qint64 whole(const char* key, double lowest, double highest) {
        const double number = clip.value(QLatin1String(key)).toDouble(std::nan(""));
        if (number >= lowest && number <= highest && std::floor(number) == number)
            return qint64(number);
        blame(key, "is no whole number, or out of its range");
        return 0;
    }

    double seconds(const char* key) {
        const double number = clip.value(QLatin1String(key)).toDouble(std::nan(""));
        if (std::abs(number) <= mostSeconds)
            return number;
        blame(key, "is no number, or out of its range");
        return 0.0;
    }

    int placeOf(const MarkedRecording& recording) {
        const auto known = places.constFind(recording.video);
        if (known == places.constEnd()) {
            places[recording.video] = marks.recordings.size();
            marks.recordings.append(recording);
            return marks.recordings.size() - 1;
        }
        if (!(marks.recordings[*known] == recording) && flaw.isEmpty())
            flaw = QStringLiteral("its recording has another size or time than before");
        return *known;
    }

    MarkedRecording recordingOf() {
        return {videoOf(), whole("size", 0.0, mostExact), whole("modified", -mostExact, mostExact)};
    }

    /// Each begins where the one before it has begun, or behind that.
    void readParts(const QJsonArray& all, MarkedClip& found) {
        double last = 0.0;
        QSet<int> files;
        for (const QJsonValue& one : all) {
            clip = one.toObject();
            const MarkedPart part{placeOf(recordingOf()), seconds("start"), seconds("end"),
                                  seconds("offset")};
            if (part.offset < last)
                blame("offset", "of a part is before that of the one before it");
            if (files.contains(part.recording))
                blame("parts", "names a recording twice");
            files.insert(part.recording);
            last = part.offset;
            found.parts.append(part);
        }
        const bool isOwnFirst = !found.parts.isEmpty() && found.parts[0].offset == 0.0 &&
                                found.parts[0].recording == found.recording;
        if (found.parts.size() < 2 || !isOwnFirst)
            blame("parts", "is no list of parts");
    }

    void blame(const char* key, const char* what) {
        if (flaw.isEmpty())
            flaw = QStringLiteral("\"%1\" %2").arg(QLatin1String(key), QLatin1String(what));
    }

    Marks& marks;
    QJsonObject clip;           ///< or what is read of it
    QString flaw;               ///< the first one of this clip
    QHash<QString, int> places; ///< of recordings, by their names

    /// Start and end of those that are kept, by their recordings and numbers. A recording that was
    /// searched twice in one call has each clip twice.
    QHash<QPair<int, int>, QPair<double, double>> numbers;
};

/// Why this is no file of marks that can be read here; empty if it is one.
QString flawOf(const QJsonObject& root) {
    if (root.value(QLatin1String("kestrova")).toString() != QLatin1String("marks"))
        return QStringLiteral("it is no file of marks");
    if (root.value(QLatin1String("version")).toDouble() != 1.0)
        return QStringLiteral("it is of a version that cannot be read here");
    if (!root.value(QLatin1String("clips")).isArray())
        return QStringLiteral("it has no list of clips");
    if (root.value(QLatin1String("clips")).toArray().size() > mostMarks)
        return QStringLiteral("it has more than %1 clips").arg(mostMarks);
    return {};
}

} // namespace

Marks marksOf(const QByteArray& json) {
    Marks marks;
    QJsonParseError broken;
    const QJsonObject root = QJsonDocument::fromJson(json, &broken).object();
    if (broken.error != QJsonParseError::NoError)
        marks.error = QStringLiteral("it is no file of marks: %1 at byte %2")
                          .arg(broken.errorString(), QString::number(broken.offset));
    else
        marks.error = flawOf(root);
    const QJsonArray clips = root.value(QLatin1String("clips")).toArray();
    ClipReader reader(marks);
    for (int i = 0; i < clips.size() && marks.error.isEmpty(); ++i)
        reader.read(clips[i], i);
    if (!marks.error.isEmpty())
        return {{}, {}, marks.error};
    return marks;
}

Marks readMarks(const QString& fileName) {
    QFile file(fileName);
    QByteArray json;
    if (file.open(QIODevice::ReadOnly))
        json = file.read(mostMarksBytes + 1);
    if (file.error() != QFileDevice::NoError)
        return {{}, {}, file.errorString()};
    if (json.size() > mostMarksBytes)
        return {{}, {}, QStringLiteral("it is larger than a file of marks can be")};
    return marksOf(json);
}
