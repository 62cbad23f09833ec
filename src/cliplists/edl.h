// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "listedclip.h"

#include <QByteArray>
#include <QVector>

/// The clips as an edit decision list after CMX 3600: pictures only, one event each, one behind the
/// other.
///
/// All timecodes are non-drop and count from the first picture, at the rate (Timecode) of the first
/// clip's recording. Where a recording's rate varies, its times are kept and not its numbers of
/// pictures. A reel is named by the first eight letters and digits of its recording's name, made
/// different where two are alike; comments name the file, shown as in messages.
QByteArray editDecisionList(const QVector<ListedClip>& clips);
