// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "playedclip.h"

#include <QDockWidget>
#include <QImage>

class FullScreen;
class PlayerView;
class QVBoxLayout;

/// Plays a clip from its recording. The library that does it is looked for with the first clip.
///
/// Lets go of everything while it is hidden, and must be told again what to play.
class PlayerDock : public QDockWidget {
    Q_OBJECT

public:
    explicit PlayerDock(QWidget* parent = nullptr);
    ~PlayerDock() override;

    /// Shows the clip's first picture, and plays it where `isPlaying`. An empty file: nothing.
    void setClip(const PlayedClip& clip, bool isPlaying);

    /// Whether what it shows is playing.
    bool isPlaying() const;

    /// What is shown while it has no clip; null: nothing.
    void setStill(const QImage& picture);

    /// Where the picture is drawn, for what lies over it.
    QWidget* picture() const;

    /// The rectangle of `picture` in which the recording's pictures lie, not rotated; empty where
    /// there is none.
    QRect pictureRectangle() const;

    /// Gives the keys to the player.
    void focusPicture();

    /// Some player did not end with what it belonged to, and may still be at work.
    static bool isAnyAbandoned();

Q_SIGNALS:
    void nextAsked();
    void previousAsked();
    void pictureMoved(); ///< `pictureRectangle` is another

private Q_SLOTS:
    void takeVisibility(bool isVisible);
    void toggleFullScreen();
    void leaveFullScreen();

private:
    PlayerView* view;
    QVBoxLayout* place; ///< of the view
    FullScreen* fullScreen;
};
