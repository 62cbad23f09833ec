// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "progressline.h"

#include <QString>

#include <mutex>

/// Everything that goes to standard error: progress, complaints and summaries. Any thread may call
/// anything; lines are never torn, and nothing in them steers a terminal.
class Messages {
public:
    /// `isQuiet`: complaints only.
    explicit Messages(bool isQuiet);

    /// How far the scan as a whole is.
    void showProgress(const Progress& progress);

    /// Makes room for a line on standard output, where both are the same terminal.
    void makeRoom();

    /// What is wrong with `subject`. `reason` may have several lines.
    void complain(const QString& subject, const QString& reason);

    void summarise(const QString& text);

private:
    void write(const QString& text);

    std::mutex mutex;
    ProgressLine line;
    bool isQuiet;
};
