// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "livemotion.h"

#include "video.h"

#include <algorithm>

void LiveMotion::follow(const QList<Video*>& jobs) {
    for (Video* video : jobs)
        connect(&video->news, SIGNAL(measured(QVector<float>, QVector<double>)),
                SLOT(take(QVector<float>, QVector<double>)));
}

std::shared_ptr<const MotionPyramid> LiveMotion::motionOf(const Video& video) const {
    return source == &video.news ? motion : nullptr;
}

void LiveMotion::take(const QVector<float>& values, const QVector<double>& times) {
    if (sender() != source || !motion) {
        source = sender();
        motion = std::make_shared<MotionPyramid>();
    }
    for (int i = 0; i < std::min(values.size(), times.size()); ++i)
        motion->add(times[i], values[i]);
    Q_EMIT grown();
}
