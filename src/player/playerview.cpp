// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playerview.h"

#include "filenames.h"
#include "picturewidget.h"
#include "playercontrols.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

PlayerView::PlayerView(QWidget* parent)
    : QWidget(parent)
    , pictureWidget(new PictureWidget(this))
    , outsideButton(new QPushButton(tr("Open in another program"), this))
    , controls(new PlayerControls(this)) {
    pictureWidget->setObjectName(QStringLiteral("playerPicture"));
    outsideButton->setObjectName(QStringLiteral("buttonOpenOutside"));
    outsideButton->hide();
    layOut();
    connect(&player, SIGNAL(shown(double)), SLOT(takeShown(double)));
    connect(&player, SIGNAL(failed(QString)), SLOT(takeFailure(QString)));
    connect(&player, SIGNAL(drawn(QImage)), SLOT(takePicture(QImage)));
    connect(&player, SIGNAL(moved(double)), SLOT(takeTime(double)));
    connect(&player, SIGNAL(paused(bool)), SLOT(takePause(bool)));
    connect(controls, SIGNAL(playAsked()), SLOT(togglePlay()));
    connect(controls, SIGNAL(timeAsked(double)), SLOT(goTo(double)));
    connect(controls, SIGNAL(wholeAsked(bool)), SLOT(changeWhole()));
    connect(controls, SIGNAL(used()), SLOT(focusPicture()));
    connect(controls, SIGNAL(nextAsked()), SIGNAL(nextAsked()));
    connect(controls, SIGNAL(previousAsked()), SIGNAL(previousAsked()));
    connect(controls, SIGNAL(fullScreenAsked()), SIGNAL(fullScreenAsked()));
    connect(controls, SIGNAL(stepAsked(bool)), &player, SLOT(step(bool)));
    connect(controls, SIGNAL(speedAsked(double)), &player, SLOT(setSpeed(double)));
    connect(controls, SIGNAL(muteAsked(bool)), &player, SLOT(setMuted(bool)));
    connect(&player, SIGNAL(sized(QSize)), pictureWidget, SLOT(setShape(QSize)));
    connect(pictureWidget, SIGNAL(pixelsChanged()), SLOT(sendSize()));
    connect(outsideButton, SIGNAL(clicked()), SLOT(openOutside()));
}

void PlayerView::layOut() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(pictureWidget, 1);
    layout->addWidget(outsideButton, 0, Qt::AlignHCenter);
    layout->addWidget(controls);
}

void PlayerView::setClip(const PlayedClip& wanted, bool isPlaying) {
    if (wanted.file != clip.file)
        length = 0.0;
    clip = wanted;
    outsideButton->hide();
    pictureWidget->setText({});
    setRange();
    if (clip.file.isEmpty()) {
        player.stop();
        pictureWidget->endPlay();
        controls->setPlaying(false);
        controls->setReady(false);
        return;
    }
    PlayRequest request;
    request.clip = clip;
    request.isWhole = isWhole();
    request.isPlaying = isPlaying;
    request.speed = controls->speed();
    request.isMuted = controls->isMuted();
    player.play(request);
}

bool PlayerView::isPlaying() const {
    return controls->isPlaying();
}

bool PlayerView::isWhole() const {
    return controls->isWhole() || clip.end <= clip.start;
}

void PlayerView::setRange() {
    if (isWhole() && length > 0.0)
        controls->setRange(0.0, length);
    else
        controls->setRange(clip.start, clip.end);
}

void PlayerView::takeShown(double seconds) {
    length = seconds;
    controls->setReady(true);
    setRange();
}

void PlayerView::takeFailure(const QString& reason) {
    pictureWidget->endPlay();
    pictureWidget->setText(reason);
    controls->setReady(false);
    controls->setPlaying(false);
    outsideButton->show();
}

void PlayerView::takePicture(const QImage& picture) {
    pictureWidget->setPlayed(picture);
}

void PlayerView::takePause(bool isPaused) {
    controls->setPlaying(!isPaused);
}

void PlayerView::takeTime(double seconds) {
    controls->setTime(seconds);
}

void PlayerView::togglePlay() {
    player.setPaused(controls->isPlaying());
}

void PlayerView::goTo(double seconds) {
    player.seek(std::clamp(seconds, controls->start(), controls->end()));
}

/// The picture stays where it is, unless it would lie outside the clip.
void PlayerView::changeWhole() {
    const double time = controls->time();
    setRange();
    controls->setTime(time);
    player.setWhole(isWhole());
}

void PlayerView::sendSize() {
    player.setSize(pictureWidget->playedPixels());
}

void PlayerView::openOutside() {
    QDesktopServices::openUrl(fileUrl(QFileInfo(clip.file).absoluteFilePath()));
}

void PlayerView::focusPicture() {
    pictureWidget->setFocus();
}

void PlayerView::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (!isPlain || !takeKey(event->key()))
        QWidget::keyPressEvent(event);
}

/// False where the key means nothing here.
bool PlayerView::takeKey(int key) {
    const bool isLeaving = key == Qt::Key_Escape && window()->isFullScreen();
    if (key == Qt::Key_N)
        Q_EMIT nextAsked();
    else if (key == Qt::Key_P)
        Q_EMIT previousAsked();
    else if (key == Qt::Key_M)
        controls->toggleMute();
    else if (key == Qt::Key_F || key == Qt::Key_F11 || isLeaving)
        Q_EMIT fullScreenAsked();
    else
        return controls->isReady() && takeKeyOfPlaying(key);
    return true;
}

bool PlayerView::takeKeyOfPlaying(int key) {
    constexpr double second = 1.0;
    if (key == Qt::Key_Space)
        togglePlay();
    else if (key == Qt::Key_Left)
        goTo(controls->time() - second);
    else if (key == Qt::Key_Right)
        goTo(controls->time() + second);
    else if (key == Qt::Key_Comma)
        player.step(true);
    else if (key == Qt::Key_Period)
        player.step(false);
    else
        return false;
    return true;
}
