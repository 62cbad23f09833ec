// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QSlider;
class QToolButton;

/// The slider with its buttons, below the picture. Seconds from the recording's first picture.
class PlayerControls : public QWidget {
    Q_OBJECT

public:
    explicit PlayerControls(QWidget* parent = nullptr);

    /// What the slider spans.
    void setRange(double start, double end);
    void setTime(double seconds);
    void setPlaying(bool isPlaying);

    /// Whether there is something to play. Where the focus would be lost it is `used`.
    void setReady(bool isReady);
    bool isReady() const;

    double start() const { return from; }
    double end() const { return to; }
    double time() const { return now; }
    double speed() const;
    bool isPlaying() const { return playing; }
    bool isMuted() const;
    bool isWhole() const;
    void toggleMute();

Q_SIGNALS:
    void playAsked();
    void stepAsked(bool isBack);
    void timeAsked(double seconds);
    void speedAsked(double speed);
    void muteAsked(bool isMuted);
    void wholeAsked(bool isWhole);
    void fullScreenAsked();
    void nextAsked();
    void previousAsked();

    /// One was pressed, and has no more use for the keys.
    void used();

protected:
    void changeEvent(QEvent* event) override;

private Q_SLOTS:
    void askTime(int position);
    void askSpeed();
    void stepBack() { Q_EMIT stepAsked(true); }
    void stepForward() { Q_EMIT stepAsked(false); }
    void showMute();

private:
    QToolButton* addButton(const char* name, const QString& text);
    void addSpeeds();
    void layOut();
    void showIcons();
    void showTime();

    double from = 0.0;
    double to = 0.0;
    double now = 0.0;
    bool playing = false;
    QSlider* slider;
    QLabel* label;
    QToolButton* previousButton;
    QToolButton* stepBackButton;
    QToolButton* playButton;
    QToolButton* stepForwardButton;
    QToolButton* nextButton;
    QToolButton* wholeButton;
    QComboBox* speeds;
    QToolButton* muteButton;
    QToolButton* fullScreenButton;
};
