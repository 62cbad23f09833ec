// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "progressline.h"
#include "scanoptions.h"

#include <QVector>

#include <mutex>

/// The sums over all recordings of one call, for the progress line. Any thread may call anything.
class Totals {
public:
    /// Looks up the sizes of `videos`.
    explicit Totals(const QStringList& videos);

    void setPosition(int recording, qint64 bytePosition); ///< bytes; -1 if unknown
    void finish(int recording);                           ///< nothing more is read of it
    void addSeconds(double seconds);
    void addClip();

    Progress progress() const;

private:
    mutable std::mutex mutex;
    QVector<qint64> sizes; ///< bytes
    QVector<qint64> positions;
    qint64 bytes = 0; ///< of all recordings
    qint64 read = 0;  ///< of these, the sum of the positions
    double seconds = 0.0;
    int clips = 0;
};
