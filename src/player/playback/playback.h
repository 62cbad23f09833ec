// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "mpvplayer.h"

#include <QTimer>

#include <memory>

class PlayerThread;

/// The player as the window has it: nothing here waits. The thread that plays begins with the first
/// recording; one that hangs, as on a disk that does not answer, is given up, to the end of the
/// process at the latest, and the next recording has another one.
///
/// Times are seconds from the recording's first picture.
class Playback : public QObject {
    Q_OBJECT

public:
    explicit Playback(QObject* parent = nullptr);
    ~Playback() override;

    /// Shows the clip's first picture, and plays from there if asked to. `shown` or `failed`
    /// follows, unless something else is asked for before.
    void play(PlayRequest request);

    /// Lets go of everything. No signal comes before the next `play`.
    void stop();

    /// Milliseconds after which a recording that shows nothing is given up.
    void setPatience(int milliseconds) { patience.setInterval(milliseconds); }

    /// Some thread did not end with what it belonged to.
    static bool isAnyAbandoned();

public Q_SLOTS:
    void setPaused(bool isPaused);
    void seek(double seconds);
    void step(bool isBack);
    void setSpeed(double speed);
    void setMuted(bool isMuted);
    void setWhole(bool isWhole);
    void setSize(const QSize& pixels);

Q_SIGNALS:
    void shown(double length); ///< of the recording, 0 where that is not known
    void failed(const QString& reason);
    void moved(double seconds);
    void paused(bool isPaused);
    void sized(const QSize& size); ///< the shape of its pictures
    void drawn(const QImage& picture);

private Q_SLOTS:
    void takeShown(int number, double length);
    void takeFailure(int number, const QString& reason);
    void takePicture();
    void giveUp();

private:
    bool start();
    template<class Wish>
    void tell(Wish wish);

    std::unique_ptr<PlayerThread> thread; ///< null: nothing is played
    QTimer patience;
    int number = 0; ///< of the last request
    QSize size;     ///< pixels
};
