// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "encoderlog.h"

#include <QProcess>

#include <functional>

/// An encoder that ends with the program, whatever way that ends. It gets no input and its output
/// is dropped, unless somebody wants it otherwise before it begins.
class EncoderChild : public QProcess {
public:
    EncoderChild();

    /// Answers why it cannot be started, empty if it was.
    QString begin(const QStringList& arguments);

    /// Takes in what it says, so that it is never held as a whole, until it has ended or `isOver`
    /// says so.
    void hear(const std::function<bool()>& isOver);

    /// Waits for its end, however long it takes, but not past the end of the scan.
    void waitForEnd(const std::function<bool()>& isEnding);

    /// Asks it to end, and has it end.
    void endIt();

    /// Takes in what it has said by now.
    void listen() { log.append(readAllStandardError()); }

    /// Once it has ended: why its file is none, or not whole; empty if it is there and holds
    /// something.
    QString failureOf(const QString& path, bool isCutShort) const;

    /// Once it has ended: why it failed, whatever became of its file; empty after a success.
    QString failure(bool isCutShort) const;

protected:
    void setupChildProcess() override;

private:
    QString withReason(const QString& failure) const;

    EncoderLog log;
};
