#include "settingsdialog.h"

#include "ui_settingsdialog.h"

#include <QSettings>

namespace {

constexpr int defaultThreshold = 35;
constexpr double defaultMotion = 0.5;
constexpr double defaultBitrate = 2.0;
constexpr int defaultFormat = 0;
constexpr bool defaultTranscoding = false;

// A first visit proposes recordings without sound; who restores the defaults, and who never opens
// the dialog, keeps it.
constexpr bool firstDisableAudio = true;
constexpr bool defaultDisableAudio = false;

} // namespace

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
    const QSettings settings;
    ui->spinBoxThreshold->setValue(settings.value("threshold_value", defaultThreshold).toInt());
    ui->doubleSpinBoxMotion->setValue(settings.value("threshold_motion", defaultMotion).toDouble());
    ui->doubleSpinBoxBitrate->setValue(settings.value("bitrate_output", defaultBitrate).toDouble());
    ui->comboBoxFormat->setCurrentIndex(settings.value("output_format", defaultFormat).toInt());
    ui->checkBoxTranscoding->setChecked(
        settings.value("do_transcoding", defaultTranscoding).toBool());
    ui->checkBoxDisableAudio->setChecked(
        settings.value("disable_audio", firstDisableAudio).toBool());
}

void SettingsDialog::save() const {
    QSettings settings;
    settings.setValue("threshold_value", ui->spinBoxThreshold->value());
    settings.setValue("threshold_motion", ui->doubleSpinBoxMotion->value());
    settings.setValue("bitrate_output", ui->doubleSpinBoxBitrate->value());
    settings.setValue("output_format", ui->comboBoxFormat->currentIndex());
    settings.setValue("do_transcoding", ui->checkBoxTranscoding->isChecked());
    settings.setValue("disable_audio", ui->checkBoxDisableAudio->isChecked());
}

void SettingsDialog::restoreDefaults() {
    ui->spinBoxThreshold->setValue(defaultThreshold);
    ui->doubleSpinBoxMotion->setValue(defaultMotion);
    ui->doubleSpinBoxBitrate->setValue(defaultBitrate);
    ui->comboBoxFormat->setCurrentIndex(defaultFormat);
    ui->checkBoxTranscoding->setChecked(defaultTranscoding);
    ui->checkBoxDisableAudio->setChecked(defaultDisableAudio);
}
