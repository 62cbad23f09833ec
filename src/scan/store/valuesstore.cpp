// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "valuesstore.h"

#include "disagreement.h"
#include "keptpair.h"
#include "measuresettings.h"
#include "valuesname.h"
#include "valuesparts.h"
#include "valuesreader.h"

#include <QFile>
#include <QFileInfo>

namespace {

/// As far as can be told.
bool isOtherRecording(const RecordingStamp& found, const RecordingStamp& kept) {
    const bool isComparable = !found.digest.isEmpty() && !kept.digest.isEmpty();
    return found.bytes != kept.bytes || found.modified != kept.modified ||
           (isComparable && found.digest != kept.digest);
}

/// What is asked for that files of an older format do not hold, for a person; empty: nothing.
QString lackIn(const KeptValues& kept, const RecordingStamp& found) {
    // Where nothing but the content can tell the recordings apart.
    if (kept.recording.digest.isEmpty() && !isOtherRecording(found, kept.recording))
        return QStringLiteral("no digest of the recording");
    return {};
}

CellsReading readMaps(const ValuesStore::Found& found) {
    return readMapsBeside(found.file, *found.values, found.digest);
}

} // namespace

ValuesStore::ValuesStore(const ScanOptions& options, Messages& messages)
    : options(options)
    , messages(messages)
    , settings(::measureSettings(options.detection))
    , parts(options.valuesDirectory) {}

ValuesStore::Found ValuesStore::find(Recording& recording) const {
    if (!recording.valuesFile.isEmpty())
        return findNamed(recording);
    Found found;
    recording.stamp = stampOf(recording.video);
    if (!recording.stamp || options.valuesDirectory.isEmpty())
        return found;
    const RecordingStamp& stamp = *recording.stamp;
    found = findKept(valuesPath(options.valuesDirectory, stamp.path), stamp);
    if (found.values)
        return found;
    found.values = findParts(stamp);
    found.areJoined = found.values.has_value();
    return found;
}

/// A part that was measured in another region than this call's is measured anew: parts of one
/// recording have the same settings.
ValuesStore::Found ValuesStore::findPart(Recording& recording, RecordingPart part) const {
    recording.stamp = stampOf(recording.video);
    if (!recording.stamp)
        return {};
    const RecordingStamp& stamp = *recording.stamp;
    const QString& folder = options.valuesDirectory;
    Found found = findKept(valuesPath(folder, stamp.path), stamp);
    if (found.values)
        return found;
    return findOwnPart(recording, part);
}

ValuesStore::Found ValuesStore::findOwnPart(const Recording& recording, RecordingPart part) const {
    const RecordingStamp& stamp = *recording.stamp;
    const QString path = partPath(options.valuesDirectory, stamp.path, part.index, part.count);
    Found found = findKept(path, stamp);
    return found.values && areOfThisCall(*found.values) ? found : Found();
}

bool ValuesStore::mayBeKept(const Recording& recording) const {
    const QByteArray path = QFile::encodeName(recording.path);
    return !recording.valuesFile.isEmpty() ||
           QFileInfo::exists(valuesPath(options.valuesDirectory, path)) ||
           !parts.counts(path).isEmpty();
}

ValuesStore::Found ValuesStore::findNamed(const Recording& recording) const {
    const QString& path = recording.valuesFile;
    ValuesReading reading = readValues(path);
    Found found;
    QString flaw = reading.flaw;
    if (reading.state == ValuesReading::State::Good &&
        QFile::decodeName(reading.values.recording.path) != recording.video)
        flaw = QStringLiteral("it is of another recording now");
    else if (reading.state == ValuesReading::State::Good)
        flaw = disagreement(options.givenOptions, deciding(settings),
                            deciding(reading.values.settings));
    found.isRefused = reading.state != ValuesReading::State::Good || !flaw.isEmpty();
    if (found.isRefused) {
        messages.complain(path, flaw.isEmpty() ? QStringLiteral("it is gone") : flaw);
        return found;
    }
    found.values = std::move(reading.values);
    found.file = path;
    found.digest = reading.digest;
    if (!addNamedMaps(found)) {
        found.values.reset();
        found.isRefused = true;
        return found;
    }
    const RecordingStamp& kept = found.values->recording;
    const auto stamp = stampOf(QFile::decodeName(kept.path));
    if (stamp && isOtherRecording(*stamp, kept))
        messages.warn(
            path,
            QStringLiteral("warning: the recording has changed since its values were measured"));
    return found;
}

bool ValuesStore::areMapsNeeded(const Found& found) const {
    return options.detection.detector == Detector::Cells &&
           !found.values->measurement.series.times.isEmpty();
}

/// Adds the maps, where these decide. False, after a complaint, where there are none that can be
/// used.
bool ValuesStore::addNamedMaps(Found& found) const {
    if (!areMapsNeeded(found))
        return true;
    CellsReading reading = readMaps(found);
    found.values->measurement.maps = std::move(reading.maps);
    if (reading.state == CellsReading::State::Missing)
        messages.complain(found.file,
                          QStringLiteral("no maps of cells are kept beside it, on which "
                                         "--detector cells decides"));
    if (reading.state == CellsReading::State::Flawed)
        messages.complain(cellsPath(found.file), reading.flaw);
    return reading.state == CellsReading::State::Good;
}

/// The same with values that can be measured anew.
bool ValuesStore::addMaps(Found& found) const {
    if (!areMapsNeeded(found))
        return true;
    CellsReading reading = readMaps(found);
    found.values->measurement.maps = std::move(reading.maps);
    if (reading.state == CellsReading::State::Missing)
        messages.note(found.file + QStringLiteral(": kept without maps of cells; measured anew"));
    if (reading.state == CellsReading::State::Flawed)
        messages.warn(cellsPath(found.file),
                      QStringLiteral("not used, measured anew: ") + reading.flaw);
    return reading.state == CellsReading::State::Good;
}

MeasureSettings ValuesStore::deciding(const MeasureSettings& all) const {
    return options.detection.detector == Detector::Cells ? cellsSettings(all) : all;
}

/// Values that were measured otherwise, or of the recording as it was, are replaced without a word.
ValuesStore::Found ValuesStore::findKept(const QString& path, const RecordingStamp& stamp) const {
    ValuesReading reading = readValues(path);
    QString flaw = reading.flaw;
    const bool isGood = reading.state == ValuesReading::State::Good;
    if (isGood && reading.values.recording.path != stamp.path)
        flaw = QStringLiteral("it is of another recording");
    if (!flaw.isEmpty())
        messages.warn(path, QStringLiteral("not used, measured anew: ") + flaw);
    if (!isGood || !flaw.isEmpty() || deciding(reading.values.settings) != deciding(settings))
        return {};
    const QString lack = lackIn(reading.values, stamp);
    if (!lack.isEmpty())
        messages.note(
            path + QStringLiteral(": of an older version, which kept %1; measured anew").arg(lack));
    const bool isProved =
        lack.isEmpty() && reading.values.recording == stamp && !stamp.digest.isEmpty();
    Found found;
    if (!isProved)
        return found;
    found.values = std::move(reading.values);
    found.file = path;
    found.digest = reading.digest;
    return addMaps(found) ? found : Found();
}

std::optional<CellMaps> ValuesStore::mapsOf(const Found& found) {
    if (!found.values)
        return std::nullopt;
    const Measurement& measured = found.values->measurement;
    if (measured.maps.count() == measured.series.times.size())
        return measured.maps;
    if (found.file.isEmpty())
        return std::nullopt;
    CellsReading reading = readMaps(found);
    const bool isGood = reading.state == CellsReading::State::Good;
    return isGood ? std::make_optional(std::move(reading.maps)) : std::nullopt;
}

std::optional<KeptValues> ValuesStore::findParts(const RecordingStamp& stamp) const {
    for (const int count : parts.counts(stamp.path)) {
        if (auto values = joined(stamp, count))
            return values;
    }
    return std::nullopt;
}

std::optional<KeptValues> ValuesStore::joined(const RecordingStamp& stamp, int count) const {
    QVector<KeptValues> all;
    for (int i = 1; i <= count; ++i) {
        Found found = findKept(partPath(options.valuesDirectory, stamp.path, i, count), stamp);
        if (!found.values)
            return std::nullopt;
        found.values->measurement.maps = mapsOf(found).value_or(CellMaps());
        all.append(std::move(*found.values));
    }
    JoinedParts whole = joinParts(all);
    if (!whole.values)
        messages.warn(QFile::decodeName(stamp.path),
                      QStringLiteral("its %1 parts are not used, measured anew: %2")
                          .arg(count)
                          .arg(whole.flaw));
    return std::move(whole.values);
}

/// Of a whole recording that can be kept (canBeKept).
KeptValues ValuesStore::valuesOf(const Recording& recording, const Measurement& measured,
                                 const MeasuringEnd& end) const {
    KeptValues values;
    values.recording = *recording.stamp;
    values.settings = settings;
    values.measurement = measured;
    values.outcome = end.outcome;
    values.reason = end.error;
    return values;
}

bool ValuesStore::keep(const Recording& recording, const Measurement& measured,
                       const MeasuringEnd& end) const {
    if (options.valuesDirectory.isEmpty() || !recording.stamp || !canBeKept(measured, end))
        return true;
    return write(valuesOf(recording, measured, end),
                 valuesPath(options.valuesDirectory, recording.stamp->path));
}

bool ValuesStore::keepPart(const Recording& recording, const PartDetection& detection,
                           RecordingPart part, const MeasuringEnd& end) const {
    if (!recording.stamp || !canBeKept(detection.measurement(), end))
        return true;
    KeptValues values = valuesOfPart(recording, detection, part);
    values.outcome = end.outcome;
    values.reason = end.error;
    return keepOwnPart(values);
}

KeptValues ValuesStore::valuesOfPart(const Recording& recording, const PartDetection& detection,
                                     RecordingPart part) const {
    KeptValues values = valuesOf(recording, detection.measurement(), {});
    values.part = part;
    values.partFacts = detection.facts();
    return values;
}

bool ValuesStore::keepOwnPart(const KeptValues& part) const {
    const QString& folder = options.valuesDirectory;
    return folder.isEmpty() ||
           write(part, partPath(folder, part.recording.path, part.part->index, part.part->count));
}

void ValuesStore::removeParts(const Recording& recording, int count) const {
    for (int i = 1; i <= count; ++i) {
        const QString path = partPath(options.valuesDirectory, recording.stamp->path, i, count);
        QFile::remove(path);
        QFile::remove(cellsPath(path));
    }
}

bool ValuesStore::keepJoined(const Found& found) const {
    const QString& folder = options.valuesDirectory;
    return !found.areJoined || folder.isEmpty() ||
           write(*found.values, valuesPath(folder, found.values->recording.path));
}

/// What keeps the values from being written is told once.
bool ValuesStore::write(const KeptValues& values, const QString& path) const {
    const PairFailure failure = writePair(values, path);
    if (!failure.values.isEmpty())
        messages.complain(path, QStringLiteral("cannot keep the values: ") + failure.values);
    else if (!failure.maps.isEmpty())
        messages.complain(cellsPath(path),
                          QStringLiteral("cannot keep the maps of cells: ") + failure.maps);
    return failure.values.isEmpty() && failure.maps.isEmpty();
}
