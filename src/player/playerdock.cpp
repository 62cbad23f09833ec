// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playerdock.h"

#include "escaping.h"
#include "fullscreen.h"
#include "picturewidget.h"
#include "playback.h"
#include "playerview.h"

#include <QAction>
#include <QVBoxLayout>

PlayerDock::PlayerDock(QWidget* parent)
    : QDockWidget(tr("Player"), parent)
    , view(new PlayerView)
    , place(new QVBoxLayout)
    , fullScreen(new FullScreen(this)) {
    setObjectName(QStringLiteral("dockPlayer"));
    auto* contents = new QWidget(this);
    contents->setLayout(place);
    place->setContentsMargins(0, 0, 0, 0);
    place->addWidget(view);
    setWidget(contents);
    connect(view, SIGNAL(nextAsked()), SIGNAL(nextAsked()));
    connect(view, SIGNAL(previousAsked()), SIGNAL(previousAsked()));
    connect(view, SIGNAL(fullScreenAsked()), SLOT(toggleFullScreen()));
    connect(&view->picture(), SIGNAL(pictureMoved()), SIGNAL(pictureMoved()));
    connect(fullScreen, SIGNAL(left()), SLOT(leaveFullScreen()));
    connect(this, SIGNAL(visibilityChanged(bool)), SLOT(takeVisibility(bool)));
}

PlayerDock::~PlayerDock() = default;

void PlayerDock::setClip(const PlayedClip& clip, bool isPlaying) {
    const QString name = tr("Player");
    setWindowTitle(clip.label.isEmpty() ? name
                                        : tr("Player: %1").arg(withoutMnemonics(clip.label)));
    toggleViewAction()->setText(name); // it takes the title otherwise
    view->setClip(clip, isPlaying);
}

bool PlayerDock::isPlaying() const {
    return view->isPlaying();
}

void PlayerDock::setStill(const QImage& picture) {
    view->picture().setStill(picture);
}

QWidget* PlayerDock::picture() const {
    return &view->picture();
}

QRect PlayerDock::pictureRectangle() const {
    return view->picture().pictureRectangle();
}

void PlayerDock::focusPicture() {
    view->picture().setFocus();
}

bool PlayerDock::isAnyAbandoned() {
    return Playback::isAnyAbandoned();
}

void PlayerDock::takeVisibility(bool isVisible) {
    if (!isVisible)
        setClip({}, false);
}

void PlayerDock::toggleFullScreen() {
    if (fullScreen->isVisible())
        fullScreen->close();
    else
        fullScreen->hold(view);
    focusPicture();
}

void PlayerDock::leaveFullScreen() {
    place->insertWidget(0, view);
    focusPicture();
}
