// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipplaces.h"

#include "clip.h"
#include "video.h"

#include <QHash>
#include <QListWidget>

#include <cmath>
#include <utility>

namespace {

constexpr double rounding = 1e-6; ///< seconds

bool isLater(const Clip& left, const Clip& right) {
    return std::make_pair(left.start, left.end) > std::make_pair(right.start, right.end);
}

QHash<const Video*, int> numbersOf(const QList<Video*>& jobs) {
    QHash<const Video*, int> numbers;
    for (int i = 0; i < jobs.size(); ++i)
        numbers.insert(jobs[i], i);
    return numbers;
}

/// Behind the last one of its recording that is not later; -1 where there is none of it.
int rowAmongItsOwn(const QListWidget& list, const Clip& clip) {
    int row = -1;
    for (int i = 0; i < list.count(); ++i) {
        const auto& other = *static_cast<const Clip*>(list.item(i));
        if (other.video != clip.video)
            continue;
        if (isLater(other, clip))
            return i;
        row = i + 1;
    }
    return row;
}

int rowAmongOthers(const QListWidget& list, const QList<Video*>& jobs, const Clip& clip) {
    const QHash<const Video*, int> numbers = numbersOf(jobs);
    const int own = numbers.value(clip.video, jobs.size());
    int row = 0;
    while (row < list.count() &&
           numbers.value(static_cast<const Clip*>(list.item(row))->video, jobs.size()) <= own)
        ++row;
    return row;
}

} // namespace

QList<Clip*> clipsIn(const QListWidget& list) {
    QList<Clip*> clips;
    for (int row = 0; row < list.count(); ++row)
        clips.append(static_cast<Clip*>(list.item(row)));
    return clips;
}

void listInPlace(QListWidget& list, const QList<Video*>& jobs, Clip& clip) {
    const int row = rowAmongItsOwn(list, clip);
    list.insertItem(row < 0 ? rowAmongOthers(list, jobs, clip) : row, &clip);
}

bool hasTimes(const Clip& clip, double start, double end) {
    return std::abs(clip.start - start) < rounding && std::abs(clip.end - end) < rounding;
}
