// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <optional>

/// `bytes` in one line: control characters and the percent sign become "%0A" and the like.
QByteArray escapedBytes(const QByteArray& bytes);

/// The bytes that `escapedBytes` makes `text` of; nothing if it makes it of none.
std::optional<QByteArray> unescapedBytes(const QByteArray& text);
