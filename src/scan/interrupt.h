// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// From now on the first SIGINT, SIGTERM or SIGHUP only sets the flag.
///
/// Repeats within two seconds are the same request: some senders signal a program and then its
/// whole group. A later one ends the program at once. A SIGHUP that is ignored stays so. Writing
/// where nobody reads, or past a limit on file sizes, becomes an ordinary error.
void catchInterrupts();

/// Whether such a signal has come.
bool isInterrupted();

/// Ends the scan as such a signal does, but is none.
void endScan();

/// Whether the scan is to end: after such a signal or `endScan`. Any thread may ask.
bool isEnding();
