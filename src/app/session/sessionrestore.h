// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "resumedsearches.h"
#include "savedsession.h"

#include <QBasicTimer>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

class Clip;
class ClipListWidget;
class Video;

/// Lists what was saved, a little at a time, so that the windows answer. Jobs that wait, and those
/// that had been running, are searched when all is listed; exports that waited or had been running
/// are asked for again. What is exported already is never asked for.
class SessionRestore : public QObject {
    Q_OBJECT

public:
    /// Begins at once. `list` and `resumed` must outlive it.
    SessionRestore(const SavedSession& session, ClipListWidget& list, ResumedSearches& resumed);
    ~SessionRestore() override;

Q_SIGNALS:
    void done();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    bool step();
    void addClip(const SavedClip& saved);

    const SavedSession session;
    ClipListWidget& list;
    ResumedSearches& resumed;
    QBasicTimer timer;
    QList<Video*> jobs; ///< of the session's jobs, in their order; owned until all are handed over
    int listedClips = 0;
    ResumedSearches::ListedClips clipsOf;
    QList<QPointer<Clip>> toBeExported;
};
