// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "playback.h"
#include "playedclip.h"

#include <QWidget>

class PictureWidget;
class PlayerControls;
class QPushButton;

/// The picture and what it is played with, by mouse and keyboard.
class PlayerView : public QWidget {
    Q_OBJECT

public:
    explicit PlayerView(QWidget* parent = nullptr);

    /// Shows the clip's first picture, and plays it where `isPlaying`. An empty file: nothing.
    void setClip(const PlayedClip& wanted, bool isPlaying);

    bool isPlaying() const;
    PictureWidget& picture() const { return *pictureWidget; }

Q_SIGNALS:
    void nextAsked();
    void previousAsked();
    void fullScreenAsked(); ///< or to leave it

protected:
    void keyPressEvent(QKeyEvent* event) override;

private Q_SLOTS:
    void takeShown(double length);
    void takeFailure(const QString& reason);
    void takePicture(const QImage& picture);
    void takePause(bool isPaused);
    void takeTime(double seconds);
    void togglePlay();
    void goTo(double seconds);
    void changeWhole();
    void sendSize();
    void openOutside();
    void focusPicture();

private:
    bool takeKey(int key);
    bool takeKeyOfPlaying(int key);
    bool isWhole() const;
    void setRange();
    void layOut();

    PictureWidget* pictureWidget;
    QPushButton* outsideButton;
    PlayerControls* controls;
    Playback player;
    PlayedClip clip;
    double length = 0.0; ///< seconds of the recording; 0: not known
};
