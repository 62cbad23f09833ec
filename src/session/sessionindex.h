// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "savedsession.h"

#include <QByteArray>
#include <QStringList>

/// A session without its pictures, which are files of their own.
struct SessionIndex {
    SavedSession session;  ///< with no picture in it
    QStringList masks;     ///< of each job; empty: none
    QStringList snapshots; ///< of each clip
};

/// The file that holds an index. Its first line names the format, its version and the SHA-256 of
/// all behind it, which is JSON.
QByteArray sessionBytes(const SessionIndex& index);

/// What came of reading one.
enum class IndexState {
    Good,
    Damaged,     ///< cut off, altered, or not such a file
    OtherVersion ///< which this program cannot read
};

/// The same back. The index is whole or empty.
IndexState readSession(const QByteArray& bytes, SessionIndex& index);
