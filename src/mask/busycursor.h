// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCursor>
#include <QGuiApplication>

/// As long as it exists, the program shows that it is at work while its windows answer.
class BusyCursor {
public:
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::BusyCursor); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};
