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
    deselectHidden();
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
}

/// Nobody sees them, so nothing must be done with them. All at once: each change of the selection
/// is told to many.
void ListFilter::deselectHidden() {
    QItemSelection hidden;
    for (int row = 0; isActive() && row < list.count(); ++row) {
        const QModelIndex index = list.model()->index(row, 0);
        if (!list.isRowHidden(row))
            continue;
        if (!hidden.isEmpty() && hidden.last().bottom() == row - 1)
            hidden.last() = QItemSelectionRange(hidden.last().topLeft(), index);
        else
            hidden.append(QItemSelectionRange(index));
    }
    if (list.selectionModel()->hasSelection())
        list.selectionModel()->select(hidden, QItemSelectionModel::Deselect);
}
