// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playerdock.h"

PlayerDock::PlayerDock(QWidget* parent)
    : QDockWidget(tr("Player"), parent)
    , pictureWidget(new QWidget(this)) {
    setObjectName(QStringLiteral("dockPlayer"));
    setWidget(pictureWidget);
}

void PlayerDock::setClip(const PlayedClip&, bool) {}

QRect PlayerDock::pictureRectangle() const {
    return {};
}
