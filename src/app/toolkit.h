// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>

#include <memory>

/// The application object, connected to the display. `count` and `arguments` stay as long as it.
///
/// Where there is no display, this ends the program with status 1, and a line that says why and
/// what needs none. The toolkit would abort it.
std::unique_ptr<QApplication> connectToDisplay(int& count, char** arguments);

/// The toolkit converts larger pictures on threads of its global pool, and waits for ever for one
/// that the system does not give. From now on it uses a single one, which is made here and kept.
/// Call it once, before the first picture; the application must exist.
void keepToolkitThread();
