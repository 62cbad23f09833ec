// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// How the table of media names the file at this absolute path: relative to `folder`, absolute,
/// where it lies below that, else by its "file:" URL. The standard wants no name to begin with a
/// full stop, a slash or a tilde, and none to have two full stops side by side; a name that has is
/// told by its URL, in which they are encoded.
QString mediaPath(const QString& file, const QString& folder);

/// The media type of a picture or video by its name's ending, as in "video/mp4" or "video/x-nut",
/// since the standard takes no others than those of pictures, videos and sound.
QString mediaType(const QString& file);
