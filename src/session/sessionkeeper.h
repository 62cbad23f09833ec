// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "backgroundthread.h"
#include "savedsession.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

struct LastSession;
class SessionStore;

/// Keeps the session in its folder: reads the last one, and writes this one a second after its last
/// change, at least every five seconds while it goes on changing. Files are read and written on a
/// thread of its own.
class SessionKeeper : public QObject {
    Q_OBJECT

public:
    /// `collect` answers what is listed. It is asked on the GUI thread, until `finish`.
    SessionKeeper(const QString& folder, std::function<SavedSession()> collect);
    ~SessionKeeper() override;

    /// Looks for the last session; `found` follows where there is one.
    void look();

    /// Reads the session that was found; `readBack` follows, with nothing where memory does not
    /// hold it. Nothing is written before `resume`. False if there is no thread to read it.
    bool read();
    void resume() { isHeld = false; }

    /// Writes what has changed, for the last time, and waits a second at the most. What cannot be
    /// written by then was written when it was a second old.
    void finish();

public Q_SLOTS:
    void change();

Q_SIGNALS:
    void found(int recordings, int clips);
    void readBack(const SavedSession& session);

    /// What a person has to know. A session that cannot be written is told once, until it could be
    /// written again.
    void told(const QString& notice);

private Q_SLOTS:
    void save();

private:
    void takeFound(const LastSession& last);
    void takeSaved(const QString& failure);

    std::function<SavedSession()> collect;
    std::shared_ptr<SessionStore> store; ///< on the thread, but for `giveUp`
    QTimer timer;
    QElapsedTimer sinceFirstChange; ///< that is not written yet
    bool isChanged = false;
    bool isSaving = false;
    bool isHeld = false;
    bool isFailureTold = false;
    BackgroundThread thread;
};
