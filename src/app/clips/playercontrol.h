// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clip.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class ClipListWidget;
class PlayerDock;

/// What the player shows: the clip that is chosen in the list, for as long as the dock is visible.
class PlayerControl : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it.
    PlayerControl(ClipListWidget& list, PlayerDock& dock);

public Q_SLOTS:
    /// Shows the dock, and plays a clip of the list there.
    void play(Clip* clip);

private Q_SLOTS:
    void takeVisibility(bool isVisible);
    void showSoon();
    void showChosen();
    void next() { chooseBeside(1); }
    void previous() { chooseBeside(-1); }

private:
    Clip* chosen() const;
    void choose(Clip& clip);
    void chooseBeside(int step);

    ClipListWidget& list;
    PlayerDock& dock;
    QTimer timer;           ///< so that what is gone over quickly is not opened
    QPointer<Clip> shown;   ///< stays as it is while it is chosen
    bool isDockSeen;        ///< and not behind another one
    bool isPlaying = false; ///< what is shown next
};
