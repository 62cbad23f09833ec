// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valuesstore.h"

#include "keptmeasurement.h"
#include "measuresettings.h"
#include "valuesname.h"
#include "valuesreader.h"
#include "valueswriter.h"

#include <QFile>

ScanOptions withNamedValues(ScanOptions options) {
    for (QString& video : options.videos) {
        const auto recording = recordingNamedIn(video);
        options.valuesFiles.append(recording ? video : QString());
        if (recording && !recording->isEmpty())
            video = QFile::decodeName(*recording);
    }
    return options;
}

ValuesStore::ValuesStore(const ScanOptions& options, Messages& messages)
    : options(options)
    , messages(messages)
    , settings(::measureSettings(options.detection)) {}

ValuesStore::Found ValuesStore::find(int index) const {
    const QString& named = options.valuesFiles[index];
    if (!named.isEmpty())
        return findNamed(named);
    Found found;
    if (options.valuesDirectory.isEmpty())
        return found;
    found.stamp = stampOf(options.videos[index]);
    if (found.stamp)
        found.values = findKept(*found.stamp);
    return found;
}

ValuesStore::Found ValuesStore::findNamed(const QString& path) const {
    ValuesReading reading = readValues(path);
    Found found;
    QString flaw = reading.flaw;
    if (reading.state == ValuesReading::State::Good)
        flaw = disagreement(options.givenMeasureOptions, settings, reading.values.settings);
    found.isRefused = reading.state != ValuesReading::State::Good || !flaw.isEmpty();
    if (found.isRefused) {
        messages.complain(path, flaw.isEmpty() ? QStringLiteral("it is gone") : flaw);
        return found;
    }
    const auto stamp = stampOf(QFile::decodeName(reading.values.recording.path));
    if (stamp && !(*stamp == reading.values.recording))
        messages.complain(
            path,
            QStringLiteral("warning: the recording has changed since its values were measured"));
    found.values = std::move(reading.values);
    return found;
}

/// Values that were measured otherwise, or of the recording as it was, are replaced without a word.
std::optional<KeptValues> ValuesStore::findKept(const RecordingStamp& stamp) const {
    const QString path = valuesPath(options.valuesDirectory, stamp.path);
    ValuesReading reading = readValues(path);
    QString flaw = reading.flaw;
    const bool isGood = reading.state == ValuesReading::State::Good;
    if (isGood && reading.values.recording.path != stamp.path)
        flaw = QStringLiteral("it is of another recording");
    if (!flaw.isEmpty())
        messages.complain(path, QStringLiteral("not used, measured anew: ") + flaw);
    const bool doesFit = isGood && flaw.isEmpty() && reading.values.recording == stamp &&
                         reading.values.settings == settings;
    return doesFit ? std::make_optional(std::move(reading.values)) : std::nullopt;
}

bool ValuesStore::keep(const Found& found, const Detection& detection,
                       DetectionOutcome outcome) const {
    if (!found.stamp || !canBeKept(detection, outcome))
        return true;
    const QString path = valuesPath(options.valuesDirectory, found.stamp->path);
    const QString failure =
        writeValues(keptValues(*found.stamp, settings, detection, outcome), path);
    if (!failure.isEmpty())
        messages.complain(path, QStringLiteral("cannot keep the values: ") + failure);
    return failure.isEmpty();
}
