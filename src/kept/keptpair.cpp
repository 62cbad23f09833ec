// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keptpair.h"

#include "measuredefinition.h"
#include "valuesname.h"
#include "valueswriter.h"

#include <QFile>

namespace {

CellsOrigin originOf(const KeptValues& values, const QByteArray& digest) {
    return {cellsDefinition, digest, values.measurement.series.times.size()};
}

QString writeMaps(const KeptValues& values, const QByteArray& digest, const QString& path) {
    const CellMaps& maps = values.measurement.maps;
    const CellsOrigin origin = originOf(values, digest);
    if (maps.count() > 0 && maps.count() == origin.count)
        return writeCells(maps, origin, path);
    QFile::remove(path); // older ones are of other values
    return {};
}

} // namespace

bool canBeKept(const Measurement& measured, const MeasuringEnd& end) {
    if (measured.series.times.size() >= mostKeptPictures)
        return false;
    return end.outcome == DetectionOutcome::Finished || end.isLasting;
}

CellsReading readMapsBeside(const QString& path, const KeptValues& values,
                            const QByteArray& digest) {
    return readCells(cellsPath(path), originOf(values, digest));
}

PairFailure writePair(const KeptValues& values, const QString& path) {
    const QByteArray text = valuesText(values);
    const QString maps = writeMaps(values, digestIn(text), cellsPath(path));
    const QString failure = writeValues(text, path);
    if (!failure.isEmpty())
        QFile::remove(cellsPath(path));
    return {failure, maps};
}
