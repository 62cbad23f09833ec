// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

struct AVInputFormat;

/// What the media libraries' own programs are to read a recording as.
struct ContainerName {
    QString name;  ///< as they are told it; empty: see `error`
    QString error; ///< why it is no recording that can be read again, for a person
};

/// That of the file at the path `fileName`, by what it holds, as for reading it. `isInterrupted` is
/// asked while one waits.
ContainerName containerNameOf(const QString& fileName, std::function<bool()> isInterrupted);

/// The name under which `demuxer`, and no other, is found: the first one of several.
QString programName(const AVInputFormat& demuxer);
