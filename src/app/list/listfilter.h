// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <functional>
#include <map>

class Clip;
class ClipListWidget;
class QModelIndex;

/// Which clips are shown. Each reason to hide some has a name of its own, so that they add up.
class ListFilter : public QObject {
    Q_OBJECT

public:
    using Test = std::function<bool(const Clip&)>;

    /// `list` must outlive it.
    explicit ListFilter(ClipListWidget& list);

    /// Shows those alone that pass; an empty test lets all pass.
    void set(const QString& reason, const Test& test);

    /// Shows all, whatever the reasons; for Remove all.
    void clear();

    bool isActive() const { return !tests.empty(); }

    /// Judges them anew. Those that come are judged without being asked.
    void apply();

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void judgeNew(const QModelIndex& parent, int first, int last);

private:
    void judge(Clip& clip);
    void deselectHidden();

    ClipListWidget& list;
    std::map<QString, Test> tests;
};
