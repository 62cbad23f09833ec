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
class DockLayout;
class LikeliestFirst;
class ListFilter;
class MotionControl;
class MotionDock;
class PlayerControl;
class PlayerDock;
class QDockWidget;
class QMainWindow;
class RecordingsControl;
class RecordingsDock;
class ResumedSearches;
class ReportControl;
class SearchNotice;
class Video;

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

    /// Lists the clips again that are hidden for whatever reason.
    void showAllClips();

public Q_SLOTS:
    /// Searches a job besides the others, and lists its clips.
    void accept(Video* job);

private Q_SLOTS:
    void showSummary(const QString& summary);
    void focusShown(bool isShown);
    void applyFilter();
    void showTime(double seconds);

private:
    void connectMotion();
    void add(QDockWidget& dock, Qt::DockWidgetArea area, const char* button, Qt::Key shortcut);
    bool isAnyDockShown() const;
    void addShownBar();
    void wireRecordings();

    QMainWindow& window;
    DetectionQueue& queue;
    ClipListWidget& list;
    ListFilter* filter;
    ResumedSearches* resumedSearches;
    RecordingsDock* recordings;
    MotionDock* motion;
    MotionControl* motionControl;
    PlayerDock* player;
    std::unique_ptr<AreaControl> area;
    std::unique_ptr<ClipMenu> clipMenu;
    std::unique_ptr<RecordingsControl> recordingsControl;
    std::unique_ptr<ReportControl> reportControl;
    std::unique_ptr<SearchNotice> searchNotice;
    std::unique_ptr<LikeliestFirst> likeliest;
    std::unique_ptr<DockLayout> layout;
    PlayerControl* playing;
};
