// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pagedata.h"

#include "endlists.h"
#include "jsontext.h"

#include <QCryptographicHash>
#include <QFile>
#include <QHash>

namespace {

constexpr int fingerprintDigits = 12;

QByteArray number(double value) {
    return QByteArray::number(value, 'g', 7);
}

/// Pairs of a step's place and its seconds, without those that have none.
QByteArray pairs(const MotionHistogram& histogram) {
    QByteArrayList all;
    const QVector<double>& seconds = histogram.seconds();
    for (int i = 0; i < seconds.size(); ++i) {
        if (seconds[i] > 0.0)
            all.append('[' + QByteArray::number(i) + ',' + number(seconds[i]) + ']');
    }
    return '[' + all.join(',') + ']';
}

QByteArray steps(Detector detector) {
    QByteArrayList all;
    for (const double step : thresholdSteps(detector))
        all.append(number(step));
    return '[' + all.join(',') + ']';
}

MotionHistogram histogramOf(const PagePart& part, const MotionReport& report) {
    if (!part.isCamera())
        return report.recordings[std::size_t(part.recording)].histogram;
    MotionHistogram all(report.detector);
    for (const ReportedRecording* recording : part.camera.recordings)
        all.add(recording->histogram);
    return all;
}

QByteArray strips(const MotionReport& report, const std::vector<PagePart>& parts) {
    QByteArrayList all;
    for (const PagePart& part : parts)
        all.append('"' + part.id + "\":" + pairs(histogramOf(part, report)));
    int place = 0;
    for (const ReportedRecording& recording : report.recordings) {
        if (isQuiet(recording))
            all.append('"' + quietId(place) + "\":" + pairs(recording.histogram));
        ++place;
    }
    return '{' + all.join(",\n") + '}';
}

/// What a file of marks says of a recording: its path, size and time; the bytes of a path that is
/// no text in base 64.
QByteArray recordingData(const ReportedRecording& recording) {
    QByteArray data = '[' + jsonText(recording.path) + ',' + QByteArray::number(recording.bytes) +
                      ',' + QByteArray::number(recording.modified);
    if (!recording.path.isValidUtf16())
        data += ",\"" + QFile::encodeName(recording.path).toBase64() + '"';
    return data + ']';
}

/// Recordings with clips, clips in the page's order, and a sum by which marks of another report are
/// told apart.
class ClipData {
public:
    explicit ClipData(const MotionReport& report)
        : report(report) {}

    void add(const ShownClip& shown) {
        QByteArray clip = '[' + QByteArray::number(placeOf(*shown.recording)) + ',' +
                          QByteArray::number(shown.clip->index) + ',' +
                          range(shown.clip->start, shown.clip->end);
        if (!shown.clip->parts.isEmpty())
            clip += ",[" + partsOf(*shown.clip) + ']';
        clips.append(clip + ']');
    }

    QByteArray json() const {
        const QByteArray all =
            "\"recordings\":[" + recordings.join(",\n") + "],\n\"clips\":[" + clips.join(',') + ']';
        const QByteArray sum = QCryptographicHash::hash(all, QCryptographicHash::Sha256).toHex();
        return "\"report\":\"" + sum.left(fingerprintDigits) + "\",\n" + all;
    }

private:
    static QByteArray range(double start, double end) {
        return jsonSeconds(start) + ',' + jsonSeconds(end);
    }

    QByteArray partsOf(const ReportedClip& clip) {
        QByteArrayList parts;
        for (const ReportedPart& part : clip.parts)
            parts.append(
                '[' + QByteArray::number(placeOf(report.recordings[std::size_t(part.recording)])) +
                ',' + range(part.start, part.end) + ',' + jsonSeconds(part.offset) + ']');
        return parts.join(',');
    }

    int placeOf(const ReportedRecording& recording) {
        const auto known = places.constFind(&recording);
        if (known != places.constEnd())
            return *known;
        places.insert(&recording, recordings.size());
        recordings.append(recordingData(recording));
        return recordings.size() - 1;
    }

    const MotionReport& report;
    QHash<const ReportedRecording*, int> places;
    QByteArrayList recordings;
    QByteArrayList clips;
};

} // namespace

QByteArray pageData(const MotionReport& report, const std::vector<PagePart>& parts, double top) {
    MotionHistogram all(report.detector);
    for (const ReportedRecording& recording : report.recordings)
        all.add(recording.histogram);
    ClipData clips(report);
    for (const PagePart& part : parts) {
        for (const ShownClip& shown : clipsOf(part, report))
            clips.add(shown);
    }
    return "{\"threshold\":" + number(report.threshold) + ",\"top\":" + number(top) +
           ",\"steps\":" + steps(report.detector) + ",\n\"all\":" + pairs(all) +
           ",\n\"strips\":" + strips(report, parts) + ",\n" + clips.json() + '}';
}
