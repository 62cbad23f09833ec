// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTimer>
#include <QWidget>

class ClipListWidget;
class ListFilter;
class QLabel;

/// The line of the main window that says that not all clips are listed, as long as that is so, with
/// a button that lists all.
class ShownBar : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive it, but for its own end.
    ShownBar(ListFilter& filter, ClipListWidget& list, QWidget* parent = nullptr);

private Q_SLOTS:
    void showCount();
    void countLater();
    void showAll();

private:
    ListFilter& filter;
    ClipListWidget& list;
    QLabel* label;
    QTimer timer; ///< until clips that come or go together are counted
};
