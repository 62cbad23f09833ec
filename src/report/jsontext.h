// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// `text` as a JSON string, with its quotes, inside a script element: nothing of it is markup or
/// steers, and it is ASCII up to letters of other scripts. A byte that is no text (see
/// installFileNameCodec) becomes "\ufffd".
QByteArray jsonText(const QString& text);

/// The seconds as JSON, from which the same number is read; 0 where they are none.
QByteArray jsonSeconds(double seconds);
