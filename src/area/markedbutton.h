// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QToolButton>

/// Underlined while it is checked: that a button is pressed is hardly seen in a dark palette.
class MarkedButton : public QToolButton {
    Q_OBJECT

public:
    using QToolButton::QToolButton;

protected:
    void paintEvent(QPaintEvent* event) override;
};
