// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <optional>
#include <string_view>

/// Reads a file line by line with a buffer that never grows, whatever the file is.
class LineReader {
public:
    /// Opens a regular file (openRegularFile). False if it cannot be opened; `flaw` is empty where
    /// there is none.
    bool open(const QString& path);

    /// The next line without its end, valid until the next call; nothing once there is none.
    std::optional<std::string_view> next();

    /// Once `next` has answered nothing: what is wrong, for a person; empty at the file's end.
    const QString& flaw() const { return error; }

private:
    bool fill();

    QFile file;
    QByteArray buffer;
    int begin = 0; ///< of what was not handed out yet
    int end = 0;
    QString error;
};
