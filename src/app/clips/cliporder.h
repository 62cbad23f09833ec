// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>

class Clip;
class ClipListWidget;
class Video;

enum class ClipOrder {
    Found,    ///< by recording, and in it by start
    Strength, ///< the strongest first
    Length,   ///< the longest first
    TimeOfDay ///< as the list shows it
};

/// The clips in another order; those that are equal in it stay as they stand. `jobs` are the
/// recordings as they were accepted.
QList<Clip*> ordered(QList<Clip*> clips, ClipOrder order, const QList<Video*>& jobs);

/// Takes the clips out of the list and puts them back in another order: all of the list, each once.
/// What was selected stays so, the list stays where it was scrolled to, and what was hidden is
/// shown. Nothing is told of clips that come and go meanwhile.
void reorder(ClipListWidget& list, const QList<Clip*>& clips);
