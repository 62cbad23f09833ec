// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointer>

#include <vector>

class Clip;
class QListWidget;
class QListWidgetItem;

/// Keeps what a person looks at where it is while clips come to a list and leave it: at its end the
/// first clip that was seen and is still listed stands where it stood.
class HeldView {
public:
    /// `list` must outlive it, and so must its clips, listed or not. `held` is the clip that stands
    /// where it stood, and is held on to by the next one while it is seen.
    HeldView(QListWidget& list, QPointer<Clip>& held);
    ~HeldView();
    HeldView(const HeldView&) = delete;
    HeldView& operator=(const HeldView&) = delete;

private:
    struct Seen {
        Clip* clip;
        int top; ///< in the viewport
    };

    void note(Clip* clip);

    QListWidget& list;
    QPointer<Clip>& held;
    std::vector<Seen> seen;
};

/// Whether any of it is in the list's viewport.
bool isSeen(const QListWidget& list, const QListWidgetItem& item);
