// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFile>

/// Standard output without a buffer. A file or a pipe gets every byte as it is; a terminal is not
/// steered by what is written (printableLines), whole lines at a time.
class StandardOutput : public QFile {
public:
    bool openStandard();

protected:
    qint64 writeData(const char* bytes, qint64 size) override;

private:
    bool isTerminal = false;
};

/// Has what Qt and the media libraries say written to standard error in the same way.
void installMessageHandler();
