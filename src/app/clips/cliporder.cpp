// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cliporder.h"

#include "clip.h"
#include "cliplistwidget.h"
#include "video.h"

#include <QHash>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <functional>

namespace {

using Before = std::function<bool(const Clip*, const Clip*)>;

Before foundBefore(const QList<Video*>& jobs) {
    QHash<const Video*, int> places;
    for (const Video* job : jobs)
        places.insert(job, places.size());
    return [places, last = jobs.size()](const Clip* left, const Clip* right) {
        const int leftPlace = places.value(left->video, last);
        const int rightPlace = places.value(right->video, last);
        return leftPlace == rightPlace ? left->start < right->start : leftPlace < rightPlace;
    };
}

Before before(ClipOrder order, const QList<Video*>& jobs) {
    switch (order) {
    case ClipOrder::Strength:
        return [](const Clip* left, const Clip* right) { return left->strength > right->strength; };
    case ClipOrder::Length:
        return [](const Clip* left, const Clip* right) {
            return left->end - left->start > right->end - right->start;
        };
    case ClipOrder::TimeOfDay:
        return [](const Clip* left, const Clip* right) {
            return left->timeOfDay() < right->timeOfDay();
        };
    case ClipOrder::Found:
        break;
    }
    return foundBefore(jobs);
}

void select(ClipListWidget& list, const QList<Clip*>& clips) {
    QItemSelection selection;
    for (Clip* clip : clips) {
        const QModelIndex index = list.model()->index(list.row(clip), 0);
        selection.append(QItemSelectionRange(index));
    }
    list.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

} // namespace

QList<Clip*> ordered(QList<Clip*> clips, ClipOrder order, const QList<Video*>& jobs) {
    std::stable_sort(clips.begin(), clips.end(), before(order, jobs));
    return clips;
}

void reorder(ClipListWidget& list, const QList<Clip*>& clips) {
    const QSignalBlocker blocker(list);
    const QList<Clip*> selected = list.selectedClips();
    QListWidgetItem* current = list.currentItem();
    const int scrolled = list.verticalScrollBar()->value();
    list.setOrder(clips);
    list.setCurrentItem(current, QItemSelectionModel::NoUpdate);
    select(list, selected);
    list.doItemsLayout();
    list.verticalScrollBar()->setValue(scrolled);
}
