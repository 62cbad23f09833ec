// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QListWidget>

/// The list of clips. While it is empty it says what to do.
class ClipListWidget : public QListWidget {
    Q_OBJECT

public:
    using QListWidget::QListWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};
