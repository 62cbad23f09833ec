// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settingsdialog.h"

#include "settingstable.h"
#include "ui_settingsdialog.h"

SettingsDialog::SettingsDialog(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::SettingsDialog>()) {
    ui->setupUi(this);
    load();
}

SettingsDialog::~SettingsDialog() = default;

void SettingsDialog::on_buttonBox_accepted() {
    save();
    accept();
}

void SettingsDialog::on_buttonBox_rejected() {
    reject();
}

void SettingsDialog::on_buttonBox_clicked(QAbstractButton* button) {
    if (ui->buttonBox->standardButton(button) == QDialogButtonBox::RestoreDefaults)
        restoreDefaults();
}

void SettingsDialog::load() {
    const QSettings store;
    settings::pixelThreshold.show(*ui->spinBoxThreshold, store);
    settings::motionThreshold.show(*ui->doubleSpinBoxMotion, store);
    settings::bitrate.show(*ui->doubleSpinBoxBitrate, store);
    ui->comboBoxFormat->setCurrentIndex(settings::container.read(store));
    ui->checkBoxTranscoding->setChecked(settings::transcoding.read(store));
    ui->checkBoxDisableAudio->setChecked(settings::audioDisabledProposal.read(store));
}

void SettingsDialog::save() const {
    QSettings store;
    settings::pixelThreshold.write(store, ui->spinBoxThreshold->value());
    settings::motionThreshold.write(store, ui->doubleSpinBoxMotion->value());
    settings::bitrate.write(store, ui->doubleSpinBoxBitrate->value());
    settings::container.write(store, ui->comboBoxFormat->currentIndex());
    settings::transcoding.write(store, ui->checkBoxTranscoding->isChecked());
    settings::audioDisabled.write(store, ui->checkBoxDisableAudio->isChecked());
}

void SettingsDialog::restoreDefaults() {
    ui->spinBoxThreshold->setValue(settings::pixelThreshold.fallback);
    ui->doubleSpinBoxMotion->setValue(settings::motionThreshold.fallback);
    ui->doubleSpinBoxBitrate->setValue(settings::bitrate.fallback);
    ui->comboBoxFormat->setCurrentIndex(settings::container.fallback);
    ui->checkBoxTranscoding->setChecked(settings::transcoding.fallback);
    ui->checkBoxDisableAudio->setChecked(settings::audioDisabled.fallback);
}
