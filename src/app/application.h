// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// The program: the application object, the main window and its event loop.
///
/// Every argument is the path of a video file. A lone --help or --version is answered on standard
/// output, without a display, unless there is a file of that name. Returns the event loop's exit
/// code, 0 after an answer.
int runApplication(int argc, char* argv[]);
