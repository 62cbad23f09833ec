// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobstatus.h"

#include <QDockWidget>
#include <QHash>
#include <QTimer>

class DetectionQueue;
class JobFilter;
class JobModel;
class JobTable;
class RecordingsPanel;
class RecordingsWatch;
class Video;

/// A row for each job: how far it is, what it found, and what can be done with it.
class RecordingsDock : public QDockWidget {
    Q_OBJECT

public:
    /// `queue` must outlive it.
    explicit RecordingsDock(DetectionQueue& queue, QWidget* parent = nullptr);

    /// What the button of the status bar says: "Recordings: 62, 6 unreadable".
    QString summary() const;

    /// How many clips are listed of each job; those that are missing have none.
    void setClipCounts(const QHash<const Video*, int>& counts);

    /// Whose clips alone are listed; null: all are.
    void setAlone(const Video* job) { alone = job; }

    /// The recording that is chosen; null: none.
    Video* chosenJob() const { return current; }

    /// Chooses it as a person does, but for `entered`.
    void choose(Video* job);

public Q_SLOTS:
    /// Its file may be another one now: looks, soon.
    void lookAt(Video* job);

Q_SIGNALS:
    void summaryChanged(const QString& summary);

    /// A recording has been chosen; null: none.
    void chosen(Video* video);

    /// A person wants to go on with its clips.
    void entered(Video* video);

    /// Its clips alone are to be listed; null: all clips again.
    void onlyThisAsked(Video* video);
    void clipsRemovalAsked(Video* video);
    void folderAsked(Video* video); ///< its file is to be shown there

    /// A job that is to be searched besides the others; whoever takes it owns it.
    void searchAsked(Video* job);
    void restAsked(); ///< what was cancelled is to be searched after all
    void reportAsked();

    /// Whether the likeliest of those that wait is to be searched next.
    void likeliestFirstAsked(bool isOn);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private Q_SLOTS:
    void holdChoice();
    void takeCurrent();
    void showCurrent();
    void enter();
    void showMenu(const QPoint& globalPosition);
    void searchAgain();
    void cancelThis();
    void askForFolder();
    void copyName();
    void askForOnlyThis(bool isAlone);
    void askForRemoval();
    void showTotals();
    void refresh();
    void takePresence(Video* job, FilePresence presence);

private:
    DetectionQueue& queue;
    JobModel* model;
    JobFilter* filter;
    RecordingsPanel* panel;
    JobTable* table;
    RecordingsWatch* watch;
    QTimer timer; ///< while something is searched and this is seen
    Video* current = nullptr;
    const Video* alone = nullptr;
    bool isShowing = false; ///< the table is being told what is chosen
};
