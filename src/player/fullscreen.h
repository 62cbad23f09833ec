// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

/// A window that fills the screen with a widget that has its place elsewhere. The shortcuts of
/// other windows do not work in it.
class FullScreen : public QWidget {
    Q_OBJECT

public:
    explicit FullScreen(QWidget* parent);

    /// Takes the widget out of its layout, and shows itself.
    void hold(QWidget* content);

Q_SIGNALS:
    /// It is about to be closed, and whom the content belongs to must take it back.
    void left();

protected:
    void closeEvent(QCloseEvent* event) override;
};
