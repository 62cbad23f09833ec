// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "listfilter.h"

#include "clip.h"
#include "cliplistwidget.h"

#include <algorithm>

ListFilter::ListFilter(ClipListWidget& list)
    : list(list) {
    connect(list.model(), SIGNAL(rowsInserted(QModelIndex, int, int)),
            SLOT(judgeNew(QModelIndex, int, int)));
}

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
    for (Clip* clip : clips)
        judge(*clip);
}

void ListFilter::judgeNew(const QModelIndex&, int first, int last) {
    for (int row = first; isActive() && row <= last; ++row)
        judge(static_cast<Clip&>(*list.item(row)));
}

void ListFilter::judge(Clip& clip) {
    const bool isShown = std::all_of(tests.begin(), tests.end(),
                                     [&clip](const auto& test) { return test.second(clip); });
    if (clip.isHidden() == isShown)
        clip.setHidden(!isShown);
    if (!isShown)
        clip.setSelected(false); // nobody sees it, so nothing must be done with it
}
