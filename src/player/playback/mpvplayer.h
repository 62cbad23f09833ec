// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "mpvhandle.h"
#include "mpvpicture.h"
#include "mpvproperties.h"
#include "picturesearch.h"
#include "pictureslot.h"
#include "playedclip.h"
#include "recordingstream.h"

#include <QObject>
#include <QSize>

#include <atomic>
#include <memory>
#include <optional>

/// What the player is asked for.
struct PlayRequest {
    int number = 0; ///< comes back with what becomes of it
    PlayedClip clip;
    bool isWhole = false; ///< the recording from its beginning to its end, not the clip in a loop
    bool isPlaying = false;
    double speed = 1.0;
    bool isMuted = false;
};

/// Plays one recording after the other. Lives on a thread of its own, whose event loop it needs:
/// opening and reading may wait for a disk, and drawing takes its time.
///
/// Times are seconds from the recording's first picture, wherever the library's own begin.
class MpvPlayer : public QObject {
    Q_OBJECT

public:
    /// `pictures` takes what is drawn, and must outlive it.
    explicit MpvPlayer(PictureSlot& pictures);
    ~MpvPlayer() override;

    /// Shows the clip's first picture; `shown` or `failed` follows, unless another request does.
    void play(const PlayRequest& wanted);

    void setPaused(bool isPaused);
    void seek(double seconds);
    void step(bool isBack);
    void setSpeed(double speed);
    void setMuted(bool isMuted);
    void setWhole(bool isWhole);

    /// Pixels of the pictures that are drawn.
    void setSize(const QSize& size);

Q_SIGNALS:
    /// The first picture is drawn; the recording has so many seconds, 0 where that is not known.
    void shown(int number, double length);
    void failed(int number, const QString& reason);
    void moved(double seconds);
    void paused(bool isPaused);
    void sized(const QSize& size); ///< of the recording's pictures, as they are to be seen
    void drawn();                  ///< there is a picture to take

private Q_SLOTS:
    void takeEvents();
    void drawNewest();
    void tellCut();

private:
    enum class Stage { Nothing, Loading, Seeking, Shown };

    QString start();
    QString load();
    quint64 tagged(quint64 purpose) const;
    void fail(const QString& reason);
    void unload();
    void showClip();
    void setLoop();
    void seekTo(double seconds, quint64 id);
    void take(const mpv_event& event);
    void takeReply(const mpv_event& event);
    void takeProperty(const mpv_event_property& property);
    void takeRestart();
    void takeFirstTime(double seconds);
    void takeClipTime(double seconds);
    bool searchFromEarlier(quint64 id);
    void takeEnd();
    void show();
    void draw();

    PictureSlot& pictures;
    std::atomic<bool> isWoken{false};
    std::atomic<bool> isUpdated{false};
    RecordingStream stream; ///< outlives the player
    std::unique_ptr<MpvHandle> player;
    MpvPicture picture;
    std::shared_ptr<RecordingFile> file;
    PlayRequest request;
    Stage stage = Stage::Nothing;
    quint64 loads = 0;             ///< recordings so far
    std::int64_t entry = 0;        ///< the library's number of what was asked for; 0: not known yet
    std::int64_t startedEntry = 0; ///< of what it is at
    PictureSearch search;
    MpvProperties told;
};
