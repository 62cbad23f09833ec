// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class QPushButton;

/// The line of the main window that offers the last session, until a person takes it, does without
/// it, or begins another one.
class SessionOffer : public QWidget {
    Q_OBJECT

public:
    explicit SessionOffer(QWidget* parent = nullptr);

    /// Return then takes it.
    void offer(int recordings, int clips);

    /// It was taken, and is being read.
    void showReading();

Q_SIGNALS:
    void taken();

private:
    QPushButton* button;
};
