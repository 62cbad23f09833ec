// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "measurementcache.h"

#include "keptfolder.h"
#include "keptpair.h"
#include "measuresettings.h"
#include "privatefolder.h"
#include "settingstable.h"
#include "valuesname.h"
#include "valuesreader.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>

namespace {

constexpr qint64 megabyte = 1000 * 1000;
constexpr qint64 temporaryLimit = 256 * megabyte; // where it may be memory that it lies in

qint64 limit() {
    const QSettings store;
    return std::max(settings::keptValues.read(store), 0) * megabyte;
}

/// The folder itself, and inside it that of quick looks.
QStringList foldersIn(const QString& folder) {
    return {folder, folder + QStringLiteral("/quick")};
}

/// Those that are ours: what lies in another's folder, or behind a link, is neither believed nor
/// removed.
QStringList ownFoldersIn(const QString& folder) {
    const QStringList folders = foldersIn(folder);
    const bool isOurs = std::all_of(folders.begin(), folders.end(), [](const QString& path) {
        return privateFolderFlaw(path).isEmpty();
    });
    return isOurs ? folders : QStringList();
}

/// Why the folders cannot be had for their owner alone, for a person; empty if they can.
QString makeFolders(const QStringList& folders) {
    for (const QString& folder : folders) {
        QString failure = makePrivateFolder(folder);
        if (!failure.isEmpty())
            return failure;
    }
    return {};
}

void closeToOthers(const QString& path) {
    for (const QString& file : {path, cellsPath(path)})
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
}

QString pathIn(const QStringList& folders, bool isQuick, const RecordingStamp& stamp) {
    return valuesPath(folders[isQuick ? 1 : 0], stamp.path);
}

/// A rectangle in the coordinates of pictures that have the recording's own size is one without.
MeasureSettings settingsFor(DetectionOptions options, const Measurement& measured) {
    if (options.measure.region.space == measured.stream.description.size)
        options.measure.region.space = QSize();
    return measureSettings(options);
}

bool isFitting(const KeptValues& values, const DetectionOptions& options) {
    const MeasureSettings wanted = settingsFor(options, values.measurement);
    if (options.detector == Detector::Cells)
        return cellsSettings(values.settings) == cellsSettings(wanted);
    return values.settings == wanted;
}

bool isOf(const KeptValues& values, const RecordingStamp& stamp) {
    return !values.part && values.recording == stamp && !stamp.digest.isEmpty();
}

std::optional<KeptValues> readPair(const QString& path, const RecordingStamp& stamp,
                                   const DetectionOptions& options) {
    ValuesReading reading = readValues(path);
    KeptValues& values = reading.values;
    if (reading.state != ValuesReading::State::Good || !isOf(values, stamp) ||
        !isFitting(values, options))
        return std::nullopt;
    if (!values.measurement.series.times.isEmpty()) {
        CellsReading maps = readMapsBeside(path, values, reading.digest);
        if (maps.state != CellsReading::State::Good)
            return std::nullopt;
        values.measurement.maps = std::move(maps.maps);
    }
    markUsed(path);
    return std::move(values);
}

} // namespace

/// Never destroyed itself: a thread that was given up may still call it while the program ends.
MeasurementCache& MeasurementCache::instance() {
    static auto* const cache = [] {
        qAddPostRoutine([] { instance().endRun(); });
        return new MeasurementCache;
    }();
    return *cache;
}

bool MeasurementCache::isOn() {
    return limit() > 0;
}

std::optional<KeptValues> MeasurementCache::find(const RecordingStamp& stamp,
                                                 const DetectionOptions& options) const {
    QVector<QStringList> places;
    const QStringList kept = isOn() ? ownFoldersIn(folder()) : QStringList();
    if (!kept.isEmpty())
        places.append(kept);
    const QStringList ofThisRun = temporaryFolders();
    if (!ofThisRun.isEmpty())
        places.append(ofThisRun);
    for (const QStringList& folders : qAsConst(places)) {
        const QString path = pathIn(folders, options.isKeyframesOnly, stamp);
        if (auto values = readPair(path, stamp, options))
            return values;
    }
    return std::nullopt;
}

void MeasurementCache::keep(const RecordingStamp& stamp, const DetectionOptions& options,
                            const Measurement& measured, const MeasuringEnd& end) {
    if (stamp.digest.isEmpty() || !canBeKept(measured, end))
        return;
    KeptValues values;
    values.recording = stamp;
    values.settings = settingsFor(options, measured);
    values.measurement = measured;
    values.outcome = end.outcome;
    values.reason = end.error;
    QString failure;
    if (isOn()) {
        failure = keepIn(foldersIn(folder()), limit(), values);
        if (failure.isEmpty())
            return;
        tellOnce(tr("What was measured cannot be kept in %1: %2").arg(folder(), failure));
    }
    const QStringList ofThisRun = makeTemporaryFolders();
    if (!ofThisRun.isEmpty())
        failure = keepIn(ofThisRun, temporaryLimit, values);
    else
        failure = tr("there is no temporary folder");
    if (!failure.isEmpty())
        tellOnce(tr("What was measured cannot be kept: %1").arg(failure));
}

/// Answers why it could not be done, for a person; empty if it could. Of a pair that failed nothing
/// is left.
QString MeasurementCache::keepIn(const QStringList& folders, qint64 limit,
                                 const KeptValues& values) const {
    QString refusal = makeFolders(folders);
    if (!refusal.isEmpty())
        return refusal;
    const QString path = pathIn(folders, areOfKeyFrames(values.settings), values.recording);
    const PairFailure failure = writePair(values, path);
    if (failure.values.isEmpty() && failure.maps.isEmpty()) {
        closeToOthers(path);
        removeOldest(folders, limit);
        return {};
    }
    QFile::remove(path);
    return failure.values.isEmpty() ? failure.maps : failure.values;
}

QString MeasurementCache::folder() {
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) +
           QStringLiteral("/values");
}

qint64 MeasurementCache::size() {
    return bytesIn(ownFoldersIn(folder()));
}

void MeasurementCache::clear() {
    removeOldest(ownFoldersIn(folder()), 0);
}

void MeasurementCache::fit() {
    removeOldest(ownFoldersIn(folder()), limit());
}

void MeasurementCache::endRun() {
    // Who holds it is a thread that was given up.
    if (!mutex.tryLock())
        return;
    temporary.reset();
    mutex.unlock();
}

QStringList MeasurementCache::temporaryFolders() const {
    const QMutexLocker lock(&mutex);
    return temporary ? foldersIn(temporary->path()) : QStringList();
}

QStringList MeasurementCache::makeTemporaryFolders() {
    {
        const QMutexLocker lock(&mutex);
        if (!temporary)
            temporary = std::make_unique<QTemporaryDir>();
        if (!temporary->isValid())
            temporary.reset();
    }
    return temporaryFolders();
}

void MeasurementCache::tellOnce(const QString& notice) {
    {
        const QMutexLocker lock(&mutex);
        if (std::exchange(hasTold, true))
            return;
    }
    Q_EMIT told(notice);
}
