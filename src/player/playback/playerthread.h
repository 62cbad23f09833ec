// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "mpvplayer.h"

#include <QThread>

#include <memory>

/// The thread on which a player lives, and what both must outlive.
class PlayerThread : public QThread {
public:
    PlayerThread();
    ~PlayerThread() override;

    /// To connect to, and to send for; valid until the thread is asked to end.
    MpvPlayer& mpv() { return *player; }

    PictureSlot pictures;

    /// Asks it to end, and keeps it until it has; at the latest the process's end is its own.
    static void letEnd(std::unique_ptr<PlayerThread> thread);

    /// Waits for those that were asked to end. False where some have not.
    static bool waitForAll(int milliseconds);

protected:
    void run() override;

private:
    std::unique_ptr<MpvPlayer> player;
};
