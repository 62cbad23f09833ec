// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <memory>

class AreaControl;
class ClipListWidget;
class ClipMenu;
class DetectionQueue;
class ListFilter;
class MotionDock;
class PlayerDock;
class QDockWidget;
class QMainWindow;
class RecordingsDock;
class ResumedSearches;

/// Everything that stands beside what the main window has always had: the docks with their buttons
/// at the right end of the status bar, and what goes between them, the list and the queue. All
/// docks are hidden until a person asks for them; their places are remembered.
class WindowDocks : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    WindowDocks(QMainWindow& window, DetectionQueue& queue, ClipListWidget& list);
    ~WindowDocks() override;

    ResumedSearches& resumed() { return *resumedSearches; }

private:
    void add(QDockWidget& dock, Qt::DockWidgetArea area, const char* button, Qt::Key shortcut);

    QMainWindow& window;
    DetectionQueue& queue;
    ClipListWidget& list;
    ListFilter* filter;
    ResumedSearches* resumedSearches;
    RecordingsDock* recordings;
    MotionDock* motion;
    PlayerDock* player;
    std::unique_ptr<AreaControl> area;
    std::unique_ptr<ClipMenu> clipMenu;
};
