// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "searchoptions.h"

#include <QDockWidget>
#include <QList>

class Video;

/// A clip that is listed, as the strip shades it. Seconds from the recording's first picture.
struct ListedSpan {
    int index = 0;
    double start = 0.0;
    double end = 0.0;
};

/// The motion of the chosen recording over time, and everything that is decided on it.
class MotionDock : public QDockWidget {
    Q_OBJECT

public:
    explicit MotionDock(QWidget* parent = nullptr);

    /// Null: none.
    void showJob(Video* video);

    /// Which clips of the shown recording are listed.
    void setListed(const QVector<ListedSpan>& clips);

Q_SIGNALS:
    /// The clips of the shown recording, or of all, are to be replaced by what these options find.
    void useAsked(const DecidingOptions& options, bool isForAll);
    void timeChosen(double seconds); ///< on the strip
};
