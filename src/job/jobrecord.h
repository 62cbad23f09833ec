// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobfacts.h"
#include "searchoptions.h"

#include <QDateTime>
#include <QImage>
#include <QRect>
#include <QString>

#include <optional>

/// A job as it can be kept and made again, in another run of the program too. The fields are those
/// of `Video`.
struct JobRecord {
    QString fileName;
    QString clipDirectory;
    int state = 0;
    qint64 fileSize = -1; ///< of one that has ended, when it was made; -1: not known
    double prerecord = 1.0;
    double postrecord = 1.0;
    double minimum = 5.0;
    int skip = 0;
    bool autoExport = false;
    QImage mask; ///< null: none
    std::optional<QRect> roiRect;
    bool intraCodec = false;
    bool exportTimestamps = false;
    QDateTime startDateTime;
    SearchOptions search;
    JobFacts facts;
    int firstClipNumber = 0;
    int nextClipNumber = 0;
};
