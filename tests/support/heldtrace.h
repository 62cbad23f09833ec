// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// A trace that the scanner writes into and nobody reads, so that a scan stands still in the middle
/// of its recording until it is let go, however fast the machine is.
class HeldTrace {
public:
    /// Makes a FIFO at `path`.
    explicit HeldTrace(const QString& path);
    ~HeldTrace();
    HeldTrace(const HeldTrace&) = delete;
    HeldTrace& operator=(const HeldTrace&) = delete;

    QString path() const { return fileName; }

    /// About 150 pictures are done, and the scan waits for a reader.
    bool isHolding() const;

    /// Reads what comes from now on.
    void letGo();

private:
    QString fileName;
    int descriptor;
};
