// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "listedclip.h"
#include "playedrecording.h"

#include <QByteArray>
#include <QVector>

/// Lists of clips for other programs: playlists of VLC and mpv, edit decision lists, documents of
/// the MLT framework, and cut lists.
enum class ClipList { M3u, Mpv, Edl, Mlt, Cuts };

/// A recording as lists name it, by its absolute path and by a name for a person. Reads the
/// beginning of the file.
ListedRecording listedRecording(const QString& path, const QString& name,
                                const PlayedRecording& played);

/// The whole list, its clips in their order.
QByteArray clipListText(ClipList list, const QVector<ListedClip>& clips);

/// Whether such a list can name the file.
bool canName(ClipList list, const QString& path);
