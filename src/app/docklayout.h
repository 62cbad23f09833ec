// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QTimer>

class QMainWindow;

/// Where a window's docks are and which of them are shown, from one run of the program to the next.
/// What an older or newer version has stored, or nobody, is left alone.
class DockLayout : public QObject {
    Q_OBJECT

public:
    /// The window must outlive it.
    explicit DockLayout(QMainWindow& window);

    /// Stores what has changed.
    ~DockLayout() override;

    /// As they were at the end of the last run. For all docks, once they are in the window.
    void restore();

private Q_SLOTS:
    void noteChange();
    void shareHeight();
    void save();

private:
    QMainWindow& window;
    QTimer timer;         ///< until what has changed is stored
    bool isFirst = false; ///< nobody has sized the docks yet
    bool isChanged = false;
};
