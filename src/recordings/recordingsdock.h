// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDockWidget>

class DetectionQueue;
class Video;

/// A row for each job: how far it is, what it found, and what can be done with it.
class RecordingsDock : public QDockWidget {
    Q_OBJECT

public:
    /// `queue` must outlive it.
    explicit RecordingsDock(DetectionQueue& queue, QWidget* parent = nullptr);

    /// What the button of the status bar says: "Recordings: 62, 6 unreadable".
    QString summary() const;

Q_SIGNALS:
    void summaryChanged(const QString& summary);

    /// A person has chosen a recording; null: none.
    void chosen(Video* video);

    /// Its clips alone are to be listed; null: all clips again.
    void onlyThisAsked(Video* video);
    void clipsRemovalAsked(Video* video);

    /// A job that is to be searched besides the others; whoever takes it owns it.
    void searchAsked(Video* job);
    void restAsked(); ///< what was cancelled is to be searched after all
    void reportAsked();

private:
    DetectionQueue& queue;
};
