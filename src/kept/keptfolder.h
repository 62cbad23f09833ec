// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

/// Folders that hold pairs of kept values and maps, and nothing else that counts: how large they
/// are, and what goes first. Others may write to them at the same time. Files that a crash has left
/// half written count as part of their pair.

/// Notes that the pair of the values file at `path` was used now.
void markUsed(const QString& path);

/// The bytes of all pairs.
qint64 bytesIn(const QStringList& folders);

/// Removes pairs, those first that were not used for longest, until no more than `bytes` are left.
void removeOldest(const QStringList& folders, qint64 bytes);
