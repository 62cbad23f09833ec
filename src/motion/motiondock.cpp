// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motiondock.h"

MotionDock::MotionDock(QWidget* parent)
    : QDockWidget(tr("Motion"), parent) {
    setObjectName(QStringLiteral("dockMotion"));
}

void MotionDock::showJob(Video*) {}

void MotionDock::setListed(const QVector<ListedSpan>&) {}
