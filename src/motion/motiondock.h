// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "listedspan.h"
#include "newestwork.h"
#include "searchoptions.h"
#include "timerange.h"

#include <QDockWidget>
#include <QList>
#include <QPointer>
#include <QTimer>

#include <memory>

class DetectionQueue;
class LiveMotion;
class MotionPyramid;
class RecordingMotion;
class Video;

namespace Ui {
class MotionDock;
}

/// The motion of the chosen recording over time, and everything that is decided on it.
///
/// What other options would find is worked out off the GUI thread, and only while the dock is
/// visible.
class MotionDock : public QDockWidget {
    Q_OBJECT

public:
    /// `queue` must outlive it.
    explicit MotionDock(DetectionQueue& queue, QWidget* parent = nullptr);
    ~MotionDock() override;

    Video* shownJob() const;

    /// Which clips of the shown recording are listed.
    void setListed(const QVector<ListedSpan>& clips);

    void setUndoable(bool isUndoable);

public Q_SLOTS:
    /// Null: none.
    void showJob(Video* video);

    /// The options of the shown job may have changed.
    void showOptions();

Q_SIGNALS:
    /// Another recording is shown, or this one again: which of its clips are listed is not known.
    void jobShown();

    /// The clips of the shown recording, or of all, are to be replaced by what these options find.
    void useAsked(const DecidingOptions& options, bool isForAll);
    void undoAsked();
    void timeChosen(double seconds); ///< on the strip

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void followJobs(const QList<Video*>& jobs);
    void takeJobEnd();
    void decideAtLast();
    void showLive();
    void decide();
    void use();
    void useForAll();
    void sayNoThread();

private:
    /// What options find.
    struct Answer {
        std::shared_ptr<const MotionPyramid> motion; ///< null: not measured
        QVector<TimeRange> clips;
    };

    void connectParts();
    void forgetMotion();
    void takeAnswer(const Answer& newAnswer);
    void sayAnswer();
    void say(const QString& text);
    void enableUse(bool isEnabled);
    QString reasonForNothing() const;
    QString unit() const;

    DetectionQueue& queue;
    std::unique_ptr<Ui::MotionDock> ui;
    LiveMotion* live;
    QTimer liveTimer; ///< runs while the strip is to be drawn anew
    QPointer<Video> shown;
    Detector searchedWith = Detector::Mean;  ///< the shown job
    std::shared_ptr<RecordingMotion> motion; ///< of the shown job; the work's while that is busy
    Answer answer;
    int listedCount = 0;
    NewestWork work;
};
