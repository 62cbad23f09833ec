// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "heldview.h"

#include "clip.h"

#include <QListWidget>
#include <QScrollBar>

#include <algorithm>

HeldView::HeldView(QListWidget& list, QPointer<Clip>& held)
    : list(list)
    , held(held) {
    if (held && held->listWidget() == &list && isSeen(list, *held))
        note(held);
    const std::size_t before = seen.size();
    for (int row = 0; row < list.count(); ++row) {
        QListWidgetItem* item = list.item(row);
        if (isSeen(list, *item))
            note(static_cast<Clip*>(item));
        else if (seen.size() > before && !item->isHidden())
            return;
    }
}

HeldView::~HeldView() {
    const auto stays = std::find_if(seen.begin(), seen.end(), [this](const Seen& before) {
        return before.clip->listWidget() == &list && !before.clip->isHidden();
    });
    if (stays == seen.end())
        return;
    held = stays->clip;
    const int moved = list.visualItemRect(held).top() - stays->top;
    list.verticalScrollBar()->setValue(list.verticalScrollBar()->value() + moved);
}

void HeldView::note(Clip* clip) {
    seen.push_back({clip, list.visualItemRect(clip).top()});
}

bool isSeen(const QListWidget& list, const QListWidgetItem& item) {
    return !item.isHidden() && list.viewport()->rect().intersects(list.visualItemRect(&item));
}
