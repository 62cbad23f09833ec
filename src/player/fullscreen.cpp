// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fullscreen.h"

#include <QCloseEvent>
#include <QVBoxLayout>

FullScreen::FullScreen(QWidget* parent)
    : QWidget(parent, Qt::Window) {
    setObjectName(QStringLiteral("playerFullScreen"));
    (new QVBoxLayout(this))->setContentsMargins(0, 0, 0, 0);
}

void FullScreen::hold(QWidget* content) {
    layout()->addWidget(content);
    setWindowTitle(content->windowTitle());
    showFullScreen();
    activateWindow();
}

void FullScreen::closeEvent(QCloseEvent* event) {
    Q_EMIT left();
    QWidget::closeEvent(event);
}
