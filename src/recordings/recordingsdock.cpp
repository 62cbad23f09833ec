// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingsdock.h"

#include "detectionqueue.h"

RecordingsDock::RecordingsDock(DetectionQueue& queue, QWidget* parent)
    : QDockWidget(tr("Recordings"), parent)
    , queue(queue) {
    setObjectName(QStringLiteral("dockRecordings"));
}

QString RecordingsDock::summary() const {
    return tr("Recordings: %1").arg(queue.jobs().size());
}
