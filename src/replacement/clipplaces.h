// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>

class Clip;
class QListWidget;
class Video;

/// The items of a list of nothing but clips, in their order.
QList<Clip*> clipsIn(const QListWidget& list);

/// Puts a clip into the list where the clips of its recording stand in the order of their times,
/// or, where there are none, where its recording stands among `jobs`.
void listInPlace(QListWidget& list, const QList<Video*>& jobs, Clip& clip);

/// Whether these times are those of the clip, to the microsecond.
bool hasTimes(const Clip& clip, double start, double end);
