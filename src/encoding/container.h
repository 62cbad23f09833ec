// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// The file formats that clips are exported in.
enum class Container { Avi, Mp4, Mkv };

/// Its name, which is also the extension by which the encoder chooses it: "avi", "mp4" or "mkv".
QString containerName(Container container);

/// The container of that name; nothing if there is none.
std::optional<Container> containerNamed(const QString& name);

/// The container that the settings store means by `number`: 1 MP4, 2 MKV, everything else AVI.
Container containerStoredAs(int number);
