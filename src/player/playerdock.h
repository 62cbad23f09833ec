// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDockWidget>

/// What is to be played: a stretch of a recording. Seconds from its first picture.
struct PlayedClip {
    QString file;
    QString label; ///< for a person: "garden.mp4 #3"
    double start = 0.0;
    double end = 0.0;
};

/// Plays a clip from its recording.
class PlayerDock : public QDockWidget {
    Q_OBJECT

public:
    explicit PlayerDock(QWidget* parent = nullptr);

    /// Shows the clip's first picture, and plays it where `isPlaying`. An empty file: nothing.
    void setClip(const PlayedClip& clip, bool isPlaying);

    /// Where the picture is drawn, for what lies over it.
    QWidget* picture() const { return pictureWidget; }

    /// The rectangle of `picture` in which the recording's pictures lie; empty where there is none.
    QRect pictureRectangle() const;

Q_SIGNALS:
    void nextAsked();
    void previousAsked();
    void pictureMoved(); ///< `pictureRectangle` is another

private:
    QWidget* pictureWidget;
};
