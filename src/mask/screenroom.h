// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSize>

class QWidget;

/// The largest size of a top-level window that its screen has room for, its frame left out. The
/// frame is guessed until the window manager has made it. Without bounds where nobody looks at the
/// screen.
QSize screenRoom(const QWidget& window);
