// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "quicklook.h"

#include "refinement.h"

#include <algorithm>

QString quickNote(const Measurement& measurement, double minimum, Detector detector) {
    double pair = 0.0;
    double before = measurement.firstTime;
    double beforeThat = measurement.firstTime;
    for (const double time : measurement.series.times) {
        pair = std::max(pair, time - beforeThat);
        beforeThat = before;
        before = time;
    }
    QString note =
        QStringLiteral("quick look: its %1 key frames lie up to %2 s apart, motion between two of "
                       "them is missed")
            .arg(QString::number(measurement.series.times.size() + 1),
                 QString::number(largestGap(measurement), 'f', 3));
    if (detector == Detector::Cells)
        note += QStringLiteral("; each is compared with the one before it, however long ago");
    if (pair >= minimum)
        note += QStringLiteral("; --minimum is widened to two comparisons, up to %1 s")
                    .arg(QString::number(pair, 'f', 3));
    return note;
}
