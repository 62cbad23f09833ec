// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sessioncontrol.h"

#include "cliplistwidget.h"
#include "detectionqueue.h"
#include "listedsession.h"
#include "sessionoffer.h"
#include "sessionrestore.h"
#include "video.h"

#include <QStandardPaths>

namespace {

QString sessionFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/session");
}

} // namespace

SessionControl::SessionControl(DetectionQueue& queue, ClipListWidget& list,
                               ResumedSearches& resumed, SessionOffer& offer)
    : queue(queue)
    , list(list)
    , resumed(resumed)
    , offer(offer)
    , keeper(sessionFolder(), [this] { return listedSession(this->queue, this->list); }) {
    connect(&keeper, SIGNAL(told(QString)), SIGNAL(told(QString)));
    connect(&keeper, SIGNAL(found(int, int)), SLOT(offerLast(int, int)));
    connect(&keeper, SIGNAL(readBack(SavedSession)), SLOT(restore(SavedSession)));
    connect(&offer, SIGNAL(taken()), SLOT(goOn()));
    connect(&queue, SIGNAL(cancelled()), &keeper, SLOT(change()));
    connect(&queue, SIGNAL(added(QList<Video*>)), SLOT(watch(QList<Video*>)));
    watch(queue.jobs());
    keeper.look();
}

SessionControl::~SessionControl() {
    keeper.finish();
}

void SessionControl::offerLast(int recordings, int clips) {
    offeredRecordings = recordings;
    offeredClips = clips;
    if (queue.jobs().isEmpty())
        offer.offer(recordings, clips);
}

void SessionControl::goOn() {
    offer.showReading();
    if (keeper.read())
        return;
    offer.offer(offeredRecordings, offeredClips);
    Q_EMIT told(tr("No thread to read the last session on"));
}

void SessionControl::restore(const SavedSession& session) {
    if (session.jobs.isEmpty()) {
        keeper.resume();
        offer.offer(offeredRecordings, offeredClips);
        Q_EMIT told(tr("Out of memory while the last session was read"));
        return;
    }
    offer.hide();
    list.setFocus();
    restoring = std::make_unique<SessionRestore>(session, list, resumed);
    connect(restoring.get(), SIGNAL(done()), SLOT(endRestoring()));
}

void SessionControl::endRestoring() {
    restoring.release()->deleteLater();
    keeper.resume();
    keeper.change();
}

/// From the first jobs on.
void SessionControl::watch(const QList<Video*>& jobs) {
    if (jobs.isEmpty())
        return;
    for (const Video* job : jobs)
        connect(job, SIGNAL(resultReady()), &keeper, SLOT(change()));
    if (jobs.size() == queue.jobs().size())
        watchList();
    keeper.change();
}

void SessionControl::watchList() {
    offer.hide();
    const QAbstractItemModel* clips = list.model();
    for (const char* change :
         {SIGNAL(rowsInserted(QModelIndex, int, int)), SIGNAL(rowsRemoved(QModelIndex, int, int)),
          SIGNAL(rowsMoved(QModelIndex, int, int, QModelIndex, int)), SIGNAL(layoutChanged()),
          SIGNAL(dataChanged(QModelIndex, QModelIndex, QVector<int>))})
        connect(clips, change, &keeper, SLOT(change()));
}
