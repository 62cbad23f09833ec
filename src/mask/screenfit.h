// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSize>
#include <QWidget>

/// Fits a top-level window into its screen when it appears, and once more when its frame is known.
/// From then on its size is the person's.
///
/// A minimum size of the window yields as far as its layout allows. Nothing is done where nobody
/// looks at the screen.
class ScreenFit : public QObject {
public:
    /// For `window`, which owns it.
    explicit ScreenFit(QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();

    QWidget& window;
    const QSize fullMinimumSize; ///< on screens that have the room
    bool isFitted = false;
};
