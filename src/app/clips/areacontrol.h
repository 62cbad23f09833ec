// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "areasearch.h"
#include "areaverdicts.h"
#include "backgroundthread.h"

#include <QObject>
#include <QTimer>

class AreaBar;
class AreaOverlay;
class Clip;
class ClipListWidget;
class DetectionQueue;
class ListFilter;
class PlayerDock;
class QListWidgetItem;
class Video;

/// The area that is drawn on the player's picture, and which clips are listed because of it: of
/// the recording on which it was drawn, or of all whose pictures have the same size. Clips of other
/// recordings stay listed, and so do those that cannot be judged: of a recording that is still
/// searched, or of which no maps are kept.
class AreaControl : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    AreaControl(PlayerDock& player, ClipListWidget& list, ListFilter& filter,
                DetectionQueue& queue);
    ~AreaControl() override;

public Q_SLOTS:
    /// The recording whose pictures are shown; null: none.
    void setRecording(Video* video);

    void clear();

private Q_SLOTS:
    void showCurrent(QListWidgetItem* current);
    void draw(bool isDrawing);
    void setFreeShape(bool isFree);
    void placeOverlay();
    void changeArea();
    void watch(const QList<Video*>& jobs);
    void askLater();
    void ask();
    void take(const AreaAnswer& answer);
    void applyFilter();
    void endAnswers();
    void noteFilter();

private:
    void putBarBelowPicture();
    void takeStill();
    void showStill(Video* video, const QImage& picture);
    void showArea();
    bool isDrawnOn(const Video* video) const;
    bool isInScope(const Video* video) const;
    QVector<AreaRecording> unjudged() const;
    QString summary() const;

    PlayerDock& player;
    ClipListWidget& list;
    ListFilter& filter;
    DetectionQueue& queue;
    AreaBar* bar;
    AreaOverlay* overlay;
    Video* shown = nullptr;   ///< whose pictures are in the player
    Video* stillOf = nullptr; ///< whose first picture the overlay has, or is to have
    Area area;
    Video* drawnOn = nullptr; ///< the recording of the area
    AreaVerdicts verdicts;
    bool isSearching = false;
    QTimer later;    ///< until it is asked about new clips
    QTimer progress; ///< until what was found so far is shown
    AreaSearch search;
    BackgroundThread stills;
};
