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

/// The kept values of the recordings of one call: found, judged and written. Any thread may call
/// anything.
class ValuesStore {
public:
    /// Both must outlive this object.
    ValuesStore(const ScanOptions& options, Messages& messages);

    /// What there is of one recording.
    struct Found {
        std::optional<KeptValues> values; ///< to be used; nothing: it is to be measured
        bool isRefused = false;           ///< its values were named in its place and are of no use
        bool areJoined = false;           ///< from its parts; the whole is not kept yet
    };

    /// Looks for the values of a recording, as a whole or in parts, and notes its stamp. Warns of
    /// those that cannot be trusted.
    Found find(Recording& recording) const;

    /// The same for one of its parts; the whole will do, too.
    Found findPart(Recording& recording, RecordingPart part) const;

    /// Whether these values were measured as this call measures.
    bool areOfThisCall(const KeptValues& values) const { return values.settings == settings; }

    /// Keeps what was measured, where values are to be kept and these can be. False, after a
    /// complaint, if they could not be written.
    bool keep(const Recording& recording, const Measurement& measured,
              const MeasuringEnd& end) const;

    /// The same for one part of a recording.
    bool keepPart(const Recording& recording, const PartDetection& detection, RecordingPart part,
                  const MeasuringEnd& end) const;

    /// Keeps the whole that was joined from its parts, where it was. False, after a complaint, if
    /// it could not be written.
    bool keepJoined(const Found& found) const;

private:
    Found findNamed(const Recording& recording) const;
    std::optional<KeptValues> findKept(const QString& path, const RecordingStamp& stamp) const;
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
