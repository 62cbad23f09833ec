// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "listedclip.h"

#include <QByteArray>

/// Lists that players and cutting programs read clip by clip. Each function answers whole lines;
/// names of any bytes are kept.

/// Extended M3U with the start and stop times of VLC, as its clock shows them: the head, and the
/// lines of one clip. Files are named by their URLs.
QByteArray m3uHead();
QByteArray m3uLines(const ListedClip& clip);

/// mpv's edit list, version 0: the head, and the line of one clip. Its times are those of the
/// recording's streams, which mpv does not count from the file's beginning here.
QByteArray mpvHead();
QByteArray mpvLine(const ListedClip& clip);

/// Start, end and label of one clip, between them tabs.
QByteArray cutLine(const ListedClip& clip);
