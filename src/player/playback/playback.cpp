// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playback.h"

#include "playerthread.h"

#include <clocale>
#include <utility>

namespace {

constexpr int patienceMilliseconds = 10000;
constexpr int longestEndMilliseconds = 1000;

} // namespace

Playback::Playback(QObject* parent)
    : QObject(parent) {
    patience.setSingleShot(true);
    patience.setInterval(patienceMilliseconds);
    connect(&patience, SIGNAL(timeout()), SLOT(giveUp()));
}

Playback::~Playback() {
    stop();
    PlayerThread::waitForAll(longestEndMilliseconds);
}

bool Playback::isAnyAbandoned() {
    return !PlayerThread::waitForAll(0);
}

/// The wish is carried out on the player's thread, in its turn.
template<class Wish>
void Playback::tell(Wish wish) {
    if (!thread)
        return;
    MpvPlayer& player = thread->mpv();
    QMetaObject::invokeMethod(
        &player, [&player, wish] { wish(player); }, Qt::QueuedConnection);
}

bool Playback::start() {
    if (thread)
        return true;
    // The library refuses any other; the toolkit has set that of the person's language.
    std::setlocale(LC_NUMERIC, "C");
    thread = std::make_unique<PlayerThread>();
    MpvPlayer* player = &thread->mpv();
    connect(player, SIGNAL(shown(int, double)), SLOT(takeShown(int, double)));
    connect(player, SIGNAL(failed(int, QString)), SLOT(takeFailure(int, QString)));
    connect(player, SIGNAL(drawn()), SLOT(takePicture()));
    connect(player, SIGNAL(moved(double)), SIGNAL(moved(double)));
    connect(player, SIGNAL(paused(bool)), SIGNAL(paused(bool)));
    connect(player, SIGNAL(sized(QSize)), SIGNAL(sized(QSize)));
    thread->start();
    if (!thread->isRunning()) {
        thread.reset();
        return false;
    }
    setSize(size);
    return true;
}

void Playback::play(PlayRequest request) {
    if (!start()) {
        Q_EMIT failed(tr("There is no thread to play it on."));
        return;
    }
    request.number = ++number;
    patience.start();
    tell([request](MpvPlayer& player) { player.play(request); });
}

void Playback::stop() {
    patience.stop();
    if (!thread)
        return;
    disconnect(&thread->mpv(), nullptr, this, nullptr);
    PlayerThread::letEnd(std::move(thread));
}

void Playback::setPaused(bool isPaused) {
    tell([isPaused](MpvPlayer& player) { player.setPaused(isPaused); });
}

void Playback::seek(double seconds) {
    tell([seconds](MpvPlayer& player) { player.seek(seconds); });
}

void Playback::step(bool isBack) {
    tell([isBack](MpvPlayer& player) { player.step(isBack); });
}

void Playback::setSpeed(double speed) {
    tell([speed](MpvPlayer& player) { player.setSpeed(speed); });
}

void Playback::setMuted(bool isMuted) {
    tell([isMuted](MpvPlayer& player) { player.setMuted(isMuted); });
}

void Playback::setWhole(bool isWhole) {
    tell([isWhole](MpvPlayer& player) { player.setWhole(isWhole); });
}

void Playback::setSize(const QSize& pixels) {
    size = pixels;
    tell([pixels](MpvPlayer& player) { player.setSize(pixels); });
}

void Playback::takeShown(int shownNumber, double length) {
    if (shownNumber != number)
        return;
    patience.stop();
    Q_EMIT shown(length);
}

void Playback::takeFailure(int failedNumber, const QString& reason) {
    if (failedNumber != number)
        return;
    patience.stop();
    Q_EMIT failed(reason);
}

void Playback::takePicture() {
    const QImage picture = thread ? thread->pictures.take() : QImage();
    if (!picture.isNull())
        Q_EMIT drawn(picture);
}

void Playback::giveUp() {
    stop();
    Q_EMIT failed(tr("The recording does not answer."));
}
