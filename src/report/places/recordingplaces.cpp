// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingplaces.h"

#include "cellregion.h"
#include "cellsmeasurement.h"
#include "motionplaces.h"
#include "motionreport.h"

namespace {

bool tellsPlaces(const Measurement& measured) {
    return measured.maps.count() > 0 && measured.maps.count() == measured.series.times.size();
}

} // namespace

void addPlaces(const Measurement& measured, const DetectionOptions& options,
               ReportedRecording& reported) {
    if (!tellsPlaces(measured))
        return;
    const CellBits restless = restlessOf(measured, options);
    const QSize pictures = measured.stream.description.size;
    PlaceSearch search;
    search.firstTime = measured.firstTime;
    search.times = measured.series.times;
    search.step = options.cells.step;
    search.region = [&](CellGrid grid) {
        CellBits region = cellsOf(options.measure.region, pictures, grid);
        if (restless.grid == grid)
            region.remove(restless);
        return region;
    };
    QVector<double> shown;
    for (const ReportedClip& clip : reported.clips)
        shown.append(clip.snapshotTime + measured.stream.origin);
    const MotionPlaces places = motionPlaces(measured.maps, search, shown);
    reported.map.add(places.map);
    for (int i = 0; i < shown.size(); ++i) {
        if (!places.boxes[i].isEmpty())
            reported.clips[i].box = places.boxes[i];
    }
}

void enterPlaces(const Measurement& measured, const DetectionOptions& options,
                 ReportedRecording& reported) {
    if (!tellsPlaces(measured))
        return;
    reported.map = MotionMap();
    for (ReportedClip& clip : reported.clips)
        clip.box = QRectF();
    addPlaces(measured, options, reported);
}
