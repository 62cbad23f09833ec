// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clip.h"
#include "playedclip.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <optional>

class ClipListWidget;
class PlayerDock;

/// What the player shows: the clip that is chosen in the list, for as long as the dock is visible.
class PlayerControl : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it.
    PlayerControl(ClipListWidget& list, PlayerDock& dock);

    /// Shows the dock, and there the recording at that time, in seconds from its first picture,
    /// until a clip is chosen.
    void showTime(const Video& video, double seconds);

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
    void showDock();
    Clip* chosen() const;
    void choose(Clip& clip);
    void chooseBeside(int step);

    ClipListWidget& list;
    PlayerDock& dock;
    QTimer timer;                    ///< so that what is gone over quickly is not opened
    std::optional<PlayedClip> place; ///< shown in place of the chosen clip
    QPointer<Clip> shown;            ///< stays as it is while it is chosen
    bool isDockSeen;                 ///< and not behind another one
    bool isPlaying = false;          ///< what is shown next
};
