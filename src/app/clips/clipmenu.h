// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cliplist.h"
#include "cliplistexport.h"
#include "cliporder.h"
#include "clipstrengths.h"
#include "joinedexport.h"

#include <QMenu>
#include <QObject>

class ListFilter;
class QMainWindow;

/// The context menu of the clip list: what the window does with the selected clips, and what it
/// has no other place for.
class ClipMenu : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    ClipMenu(QMainWindow& window, ClipListWidget& list, DetectionQueue& queue, ListFilter& filter);

Q_SIGNALS:
    void playAsked(Clip* clip);
    void onlyRecordingAsked(Video* video); ///< its clips alone are to be listed
    void told(const QString& notice);

private Q_SLOTS:
    void show(const QPoint& position);
    void play();
    void showFile();
    void copyName();
    void showRecordingAlone();
    void exportJoined();
    void exportList();
    void sort();

private:
    QAction* add(QMenu& to, const char* name, const QString& text, const char* slot);
    void addListMenu();
    void addOrderMenu();
    Clip* chosen() const;
    QList<Clip*> listed() const;
    bool isUsable(const Video* video);

    QMainWindow& window;
    ClipListWidget& list;
    DetectionQueue& queue;
    ListFilter& filter;
    QMenu menu;
    QList<QAction*> forSelection; ///< of ours: disabled without one
    ClipListExport lists;
    JoinedExport joined;
    ClipStrengths strengths;
};
