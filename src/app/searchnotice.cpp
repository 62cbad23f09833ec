// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "searchnotice.h"

#include "detectionqueue.h"
#include "video.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace {

constexpr int untilTheDesktopDecides = -1;

} // namespace

SearchNotice::SearchNotice(DetectionQueue& queue, int leastMilliseconds)
    : queue(queue)
    , leastMilliseconds(leastMilliseconds) {
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(begin(QList<Video*>)));
}

void SearchNotice::begin(const QList<Video*>& jobs) {
    for (Video* job : jobs) {
        if (job->hasEnded())
            continue; // of an earlier run
        searched.append(job);
        connect(job, SIGNAL(resultReady()), SLOT(takeEnd()));
    }
    if (!searched.isEmpty() && !sinceBegin.isValid())
        sinceBegin.start();
}

void SearchNotice::takeEnd() {
    if (queue.isActive() || !sinceBegin.isValid())
        return;
    if (sinceBegin.elapsed() >= leastMilliseconds && !QApplication::activeWindow())
        tell();
    sinceBegin.invalidate();
    searched.clear();
}

void SearchNotice::tell() const {
    int clips = 0;
    for (const Video* job : searched)
        clips += job->nextClipNumber - job->firstClipNumber;
    const QString text = QStringLiteral("%1, %2").arg(tr("%n recordings", nullptr, searched.size()),
                                                      tr("%n clips", nullptr, clips));
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"),
        QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    call << QCoreApplication::applicationName() << 0U << QStringLiteral("kestrova")
         << tr("Search finished") << text << QStringList() << QVariantMap()
         << untilTheDesktopDecides;
    QDBusConnection::sessionBus().send(call);
}
