// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class EditMaskWindow;
class QLabel;

/// The line of the main window that names the files which job setup has left out, as long as there
/// are any, with a button that hands all of them to job setup.
class LeftOutBar : public QWidget {
    Q_OBJECT

public:
    /// `setup` must outlive it.
    explicit LeftOutBar(EditMaskWindow& setup, QWidget* parent = nullptr);

private Q_SLOTS:
    void showFiles();
    void addAll();
    void forget();

private:
    QString summary() const;

    EditMaskWindow& setup;
    QLabel* label;
};
