// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "listfilter.h"

#include "clip.h"
#include "cliplistwidget.h"

#include <algorithm>

ListFilter::ListFilter(ClipListWidget& list)
    : list(list) {}

void ListFilter::set(const QString& reason, const Test& test) {
    if (test)
        tests[reason] = test;
    else
        tests.erase(reason);
    apply();
    Q_EMIT changed();
}

void ListFilter::clear() {
    tests.clear();
    apply();
    Q_EMIT changed();
}

void ListFilter::apply() {
    const QList<Clip*> clips = list.clips();
    for (Clip* clip : clips) {
        const bool isShown = std::all_of(tests.begin(), tests.end(),
                                         [clip](const auto& test) { return test.second(*clip); });
        if (clip->isHidden() == isShown)
            clip->setHidden(!isShown);
        if (!isShown)
            clip->setSelected(false); // nobody sees it, so nothing must be done with it
    }
}
