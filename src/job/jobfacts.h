// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "measurement.h"
#include "searchedfile.h"

#include <QMetaType>
#include <QSize>
#include <QString>

#include <optional>

/// What is known of a job's recording; grows while it is searched.
struct JobFacts {
    double seconds = 0.0; ///< how long it is: as its header says, once it was read as it was read
    QSize pictures;       ///< pixels; empty: not known
    StreamFacts stream;   ///< no codec's name: not known
    MotionScore strongest;
    double strongestTime = 0.0; ///< seconds from the first picture
    QString error;              ///< in English, why it could not be read; empty: it could
    bool isReadToItsEnd = true;
    Damage damage;
    std::optional<SearchedFile> file; ///< nothing: not known
};
Q_DECLARE_METATYPE(JobFacts)
