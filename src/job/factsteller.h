// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionfindings.h"
#include "jobnews.h"
#include "measuringend.h"

#include <QElapsedTimer>

/// Gathers what is known of a job's recording while it is searched, and tells it: facts twice a
/// second, values ten times a second at the most. On the thread that searches.
class FactsTeller {
public:
    /// `news` must outlive it.
    explicit FactsTeller(JobNews& news);

    /// The file that is searched; told with what follows.
    void setFile(const SearchedFile& file) { facts.file = file; }

    void open(const StreamFacts& stream);
    void add(const FrameReport& frame); ///< the next picture

    double seconds() const { return readSeconds; } ///< up to the last picture

    /// How it ended. Everything that was not told yet is told now.
    void end(const MeasuringEnd& end, const Damage& damage);

private:
    void tellFacts();
    void tellValues();

    JobNews& news;
    JobFacts facts;
    double readSeconds = 0.0; ///< up to the last picture
    QVector<float> values;    ///< not told yet
    QVector<double> times;
    QElapsedTimer sinceFacts;
    QElapsedTimer sinceValues;
};
