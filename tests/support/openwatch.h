// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

/// Counts how often files are opened, by whomever.
class OpenWatch {
public:
    /// The files must be there.
    explicit OpenWatch(const QStringList& files);
    ~OpenWatch();
    OpenWatch(const OpenWatch&) = delete;
    OpenWatch& operator=(const OpenWatch&) = delete;

    /// Openings since the last call; -1 if the files cannot be watched.
    int count();

private:
    int descriptor;
    bool isWatching = true;
};
