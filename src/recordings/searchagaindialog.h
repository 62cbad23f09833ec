// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobrecord.h"

#include <QDialog>

#include <array>
#include <memory>

class Video;

namespace Ui {
class SearchAgainDialog;
}

/// With what other options a recording is to be searched again; shows those of its last search.
class SearchAgainDialog : public QDialog {
    Q_OBJECT

public:
    explicit SearchAgainDialog(const Video& job, QWidget* parent = nullptr);
    ~SearchAgainDialog() override;

    /// The job that is wanted: waiting, with the clip folder of the one that was shown.
    JobRecord record() const;

private Q_SLOTS:
    void changeDetector();
    void showState();

private:
    void load(const Video& job);
    void showThreshold();
    DecidingOptions deciding() const;
    Detector detector() const;

    std::unique_ptr<Ui::SearchAgainDialog> ui;
    JobRecord searched;
    CellOptions cells;
    std::array<double, 2> thresholds; ///< by `Detector`
    Detector shownDetector = Detector::Mean;
};
