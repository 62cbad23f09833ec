// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "motionpyramid.h"

#include <QObject>
#include <QVector>

#include <memory>

class Video;

/// Collects the motion of the recording that is being searched, while it is measured.
class LiveMotion : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    void follow(const QList<Video*>& jobs);

    /// What was measured of this job so far; null where another one is being searched.
    std::shared_ptr<const MotionPyramid> motionOf(const Video& video) const;

Q_SIGNALS:
    void grown();

private Q_SLOTS:
    void take(const QVector<float>& values, const QVector<double>& times);

private:
    const QObject* source = nullptr; ///< only compared
    std::shared_ptr<MotionPyramid> motion;
};
