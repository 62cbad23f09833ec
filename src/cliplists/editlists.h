// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "listedclip.h"

#include <QByteArray>
#include <QVector>

/// Lists that editing programs read, written as a whole.

/// The clips as an edit decision list after CMX 3600: pictures only, one event each, one behind the
/// other.
///
/// All timecodes are non-drop and count from the first picture, at the rate (Timecode) of the first
/// clip's recording. Where a recording's rate varies, its times are kept and not its numbers of
/// pictures. A reel is named by the first eight letters and digits of its recording's name, made
/// different where two are alike; comments name the file, shown as in messages.
QByteArray editDecisionList(const QVector<ListedClip>& clips);

/// The clips as a document of the MLT framework: a producer for each recording and one playlist.
///
/// Its profile has size and frame rate of the first clip's recording; all positions are frames at
/// that rate, from each recording's first picture on. Where a recording's rate varies, times are
/// kept and not numbers of pictures.
QByteArray mltDocument(const QVector<ListedClip>& clips);

/// Whether XML can hold that name: it has no place for bytes that are no UTF-8, nor for most
/// control characters.
bool canBeInXml(const QString& name);
