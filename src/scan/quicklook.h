// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionclient.h"
#include "measurement.h"

#include <QString>

/// What a detection tells while all key frames are measured, before anything is decided on them:
/// how far it is, and nothing else.
class QuickLook : public DetectionClient {
public:
    /// `client` must outlive this object.
    explicit QuickLook(DetectionClient& client)
        : client(client) {}

    bool isCancelled() override { return client.isCancelled(); }
    void positionChanged(qint64 bytePosition) override { client.positionChanged(bytePosition); }
    void opened(const QByteArray&, double) override {}
    void frameProcessed(const FrameReport&) override {}
    void endReached() override {}
    void clipFound(const DetectedClip&) override {}

private:
    DetectionClient& client;
};

/// How many comparisons the voting window holds at least where key frames are far apart.
constexpr int fewestQuickComparisons = 2;

/// What a person is told of the gaps between the pictures of a quick look; `minimum` is the length
/// of the voting window in seconds.
QString quickNote(const Measurement& measurement, double minimum);
