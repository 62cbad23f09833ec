// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class ClipListWidget;
class DetectionQueue;
class Video;

/// Tells clips how strong their motion is, when the search that found them has ended.
class ClipStrengths : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it.
    ClipStrengths(DetectionQueue& queue, ClipListWidget& list);

private Q_SLOTS:
    void watch(const QList<Video*>& jobs);
    void tell();

private:
    ClipListWidget& list;
};
