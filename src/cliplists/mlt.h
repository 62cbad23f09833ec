// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "listedclip.h"

#include <QByteArray>
#include <QVector>

/// The clips as a document of the MLT framework: a producer for each recording and one playlist.
///
/// Its profile has size and frame rate of the first clip's recording; all positions are frames at
/// that rate, from each recording's first picture on. Where a recording's rate varies, times are
/// kept and not numbers of pictures.
QByteArray mltDocument(const QVector<ListedClip>& clips);

/// Whether XML can hold that name: it has no place for bytes that are no UTF-8, nor for most
/// control characters.
bool canBeInXml(const QString& name);
