// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "unopenedfiles.h"

#include "detectionqueue.h"
#include "pendingfiles.h"
#include "unopenedfile.h"
#include "video.h"

#include <utility>

UnopenedFiles::UnopenedFiles(const PendingFiles& files, DetectionQueue& queue)
    : queue(queue) {
    connect(&files, SIGNAL(dropped(QString)), SLOT(take(QString)));
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(look()));
}

void UnopenedFiles::take(const QString& path) {
    waiting.append(path);
    look();
}

void UnopenedFiles::look() {
    if (waiting.isEmpty() || queue.jobs().isEmpty())
        return;
    const QStringList paths = std::exchange(waiting, {});
    const bool isBegun = thread.run(this, [this, paths](const GuiCall& callBack) {
        for (const QString& path : paths) {
            const JobRecord record = recordOfUnopened(path);
            callBack([this, record] { queue.add({new Video(record)}); });
        }
    });
    if (!isBegun)
        waiting = paths;
}
