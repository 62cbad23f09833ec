// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QUrl>

/// The URL of a file, given by its absolute path: "file:///" and the path as it stands.
///
/// Only the characters that would end the path or mean others are encoded, "#", "?" and "%", and
/// bytes that are no text (see installFileNameCodec).
QUrl fileUrl(const QString& path);
