// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>

#include <memory>

class QAbstractButton;

namespace Ui {
class SettingsDialog;
}

/// The global settings of detection and export.
///
/// Shows what the settings store holds when it is built and writes all of it on OK. Nothing that
/// runs is affected: the readers ask the store each time they need a value.
class SettingsDialog : public QDialog {
    Q_OBJECT

public:
    explicit SettingsDialog(QWidget* parent = nullptr);
    ~SettingsDialog() override;

private Q_SLOTS:
    void on_buttonBox_accepted();
    void on_buttonBox_rejected();
    void on_buttonBox_clicked(QAbstractButton* button);

private:
    void load();
    void save() const;
    void restoreDefaults();

    std::unique_ptr<Ui::SettingsDialog> ui;
};
