// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "keptvalues.h"

/// `values` as the whole text of a values file.
QByteArray valuesText(const KeptValues& values);

/// The digest in the last line of such a text.
QByteArray digestIn(const QByteArray& text);

/// Writes such a text to `path` as `writeKeptFile` does.
QString writeValues(const QByteArray& text, const QString& path);
