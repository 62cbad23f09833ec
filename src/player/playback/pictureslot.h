// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QMutex>

#include <utility>

/// The newest picture on its way from the thread that draws it to the one that shows it. Those that
/// nobody has taken are replaced.
class PictureSlot {
public:
    /// Whether the one before had been taken, so that word must be sent of this one.
    bool put(const QImage& picture) {
        const QMutexLocker lock(&mutex);
        const bool wasTaken = newest.isNull();
        newest = picture;
        return wasTaken;
    }

    /// Null if there is none.
    QImage take() {
        const QMutexLocker lock(&mutex);
        return std::exchange(newest, QImage());
    }

private:
    QMutex mutex;
    QImage newest;
};
