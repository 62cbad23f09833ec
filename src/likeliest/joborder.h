// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "partpromise.h"

#include <QHash>
#include <QList>

class Video;

/// What is known of the recordings of jobs.
using JobPromises = QHash<const Video*, PartPromise>;

/// Which of `jobs` comes next, of which none runs: the one that waits and promises the most. One of
/// which nothing is known keeps its place: it comes when as many have begun or were cancelled as
/// stand before it. Null: none waits.
Video* likeliestOf(const QList<Video*>& jobs, const JobPromises& promises);
