// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "toolkitthread.h"

#include <QThreadPool>

void keepToolkitThread() {
    constexpr int forEver = -1;
    QThreadPool* pool = QThreadPool::globalInstance();
    pool->setMaxThreadCount(1);
    pool->setExpiryTimeout(forEver);
    pool->start([] {});
}
