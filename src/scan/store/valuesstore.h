// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "keptvalues.h"
#include "measuringend.h"
#include "messages.h"
#include "partdetection.h"
#include "partfiles.h"
#include "recording.h"
#include "scanoptions.h"

#include <optional>

/// The kept values of the recordings of one call, and the maps of cells beside them: found, judged
/// and written. Any thread may call anything.
///
/// Where maps decide (Detector::Cells), values count whose maps are there, whatever the region and
/// the threshold were that they were measured with.
class ValuesStore {
public:
    /// Both must outlive this object.
    ValuesStore(const ScanOptions& options, Messages& messages);

    /// What there is of one recording.
    struct Found {
        /// To be used, with their maps where these decide; nothing: it is to be measured.
        std::optional<KeptValues> values;
        QString file;           ///< that holds them; empty where they are joined
        QByteArray digest;      ///< of that file
        bool isRefused = false; ///< its values were named in its place and are of no use
        bool areJoined = false; ///< from its parts; the whole is not kept yet
    };

    /// Looks for the values of a recording, as a whole or in parts, and notes its stamp. Warns of
    /// those that cannot be trusted.
    Found find(Recording& recording) const;

    /// The same for one of its parts; the whole will do, too.
    Found findPart(Recording& recording, RecordingPart part) const;

    /// The same for a part that nobody else measures while this call does, and without the whole.
    /// The recording has its stamp.
    Found findOwnPart(const Recording& recording, RecordingPart part) const;

    /// Whether any file is named like one that keeps values of the recording, or of all its parts.
    /// Reads none of them.
    bool mayBeKept(const Recording& recording) const;

    /// The maps of what was found, also where they do not decide. Nothing where there are none that
    /// can be used; says nothing of it.
    static std::optional<CellMaps> mapsOf(const Found& found);

    /// Whether these values were measured as this call measures.
    bool areOfThisCall(const KeptValues& values) const { return values.settings == settings; }

    /// Keeps what was measured, where values are to be kept and these can be. False, after a
    /// complaint, if they could not be written.
    bool keep(const Recording& recording, const Measurement& measured,
              const MeasuringEnd& end) const;

    /// The same for one part of a recording.
    bool keepPart(const Recording& recording, const PartDetection& detection, RecordingPart part,
                  const MeasuringEnd& end) const;

    /// What was measured of a part of a recording that has a stamp.
    KeptValues valuesOfPart(const Recording& recording, const PartDetection& detection,
                            RecordingPart part) const;

    /// Keeps that, where values are to be kept. False, after a complaint, if it could not be
    /// written.
    bool keepOwnPart(const KeptValues& part) const;

    /// Removes the files of so many parts of a recording of which the whole is kept.
    void removeParts(const Recording& recording, int count) const;

    /// Keeps the whole that was joined from its parts, where it was. False, after a complaint, if
    /// it could not be written.
    bool keepJoined(const Found& found) const;

private:
    Found findNamed(const Recording& recording) const;
    Found findKept(const QString& path, const RecordingStamp& stamp) const;
    MeasureSettings deciding(const MeasureSettings& all) const;
    bool areMapsNeeded(const Found& found) const;
    bool addNamedMaps(Found& found) const;
    bool addMaps(Found& found) const;
    std::optional<KeptValues> findParts(const RecordingStamp& stamp) const;
    std::optional<KeptValues> joined(const RecordingStamp& stamp, int count) const;
    KeptValues valuesOf(const Recording& recording, const Measurement& measured,
                        const MeasuringEnd& end) const;
    bool write(const KeptValues& values, const QString& path) const;

    const ScanOptions& options;
    Messages& messages;
    MeasureSettings settings;
    PartFiles parts;
};
