// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decidingform.h"

#include "celldefaults.h"
#include "settingstable.h"
#include "ui_decidingform.h"

#include <QSignalBlocker>

namespace {

constexpr double notJoined = -1.0;
constexpr double longestGap = 86400.0;    ///< seconds
constexpr double highestOfCells = 100.0;  ///< percent
constexpr double thresholdStepping = 0.1; ///< as the settings dialog has it

/// Without telling anybody.
template<class SpinBox, class Value>
void showIn(SpinBox& box, Value lowest, Value highest, Value value) {
    const QSignalBlocker blocker(box);
    box.setRange(lowest, highest);
    box.setValue(value);
}

void showIn(QDoubleSpinBox& box, const Setting<double>& setting, double value) {
    showIn(box, setting.lowest, setting.highest, value);
}

} // namespace

DecidingForm::DecidingForm(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::DecidingForm>()) {
    ui->setupUi(this);
    ui->spinBoxThreshold->setSingleStep(thresholdStepping);
    setOptions({});
}

DecidingForm::~DecidingForm() = default;

void DecidingForm::setOptions(const DecidingOptions& options) {
    chosen = options;
    ofDetector[std::size_t(Detector::Mean)] = {float(settings::motionThreshold.fallback),
                                               settings::minimum.fallback};
    ofDetector[std::size_t(Detector::Cells)] = {float(cellsThreshold), cellsMinimum};
    own() = {chosen.segmentation.motionThreshold.value, chosen.segmentation.minimum};
    showOptions();
}

double DecidingForm::highestThreshold() const {
    return chosen.detector == Detector::Cells ? highestOfCells : settings::motionThreshold.highest;
}

double DecidingForm::thresholdStep() const {
    return ui->spinBoxThreshold->singleStep();
}

void DecidingForm::setThreshold(double value) {
    ui->spinBoxThreshold->setValue(value);
}

void DecidingForm::on_comboBoxDetector_activated(int index) {
    if (index == int(chosen.detector))
        return;
    own() = {chosen.segmentation.motionThreshold.value, chosen.segmentation.minimum};
    chosen.detector = Detector(index);
    chosen.segmentation.motionThreshold.value = own().threshold;
    chosen.segmentation.minimum = own().minimum;
    showOptions();
    Q_EMIT changed();
}

void DecidingForm::on_spinBoxThreshold_valueChanged(double value) {
    chosen.segmentation.motionThreshold.value = float(value);
    Q_EMIT changed();
}

void DecidingForm::on_spinBoxMinimum_valueChanged(double seconds) {
    chosen.segmentation.minimum = seconds;
    Q_EMIT changed();
}

void DecidingForm::on_spinBoxBefore_valueChanged(double seconds) {
    chosen.segmentation.prerecord = seconds;
    Q_EMIT changed();
}

void DecidingForm::on_spinBoxAfter_valueChanged(double seconds) {
    chosen.segmentation.postrecord = seconds;
    Q_EMIT changed();
}

void DecidingForm::on_spinBoxMerge_valueChanged(double seconds) {
    chosen.joiningGap = seconds < 0.0 ? std::nullopt : std::optional<double>(seconds);
    Q_EMIT changed();
}

void DecidingForm::on_spinBoxSensitivity_valueChanged(int sensitivity) {
    chosen.cells.step = stepOf(sensitivity);
    Q_EMIT changed();
}

void DecidingForm::on_checkBoxRestless_toggled(bool isIgnored) {
    chosen.cells.isRestlessIgnored = isIgnored;
    Q_EMIT changed();
}

void DecidingForm::showOptions() {
    const SegmentationOptions& segmentation = chosen.segmentation;
    const bool areCells = chosen.detector == Detector::Cells;
    ui->comboBoxDetector->setCurrentIndex(int(chosen.detector));
    ui->spinBoxThreshold->setSuffix(areCells ? QStringLiteral(" %") : QString());
    showIn(*ui->spinBoxThreshold, 0.0, highestThreshold(),
           double(segmentation.motionThreshold.value));
    showIn(*ui->spinBoxMinimum, settings::minimum, segmentation.minimum);
    showIn(*ui->spinBoxBefore, settings::prerecord, segmentation.prerecord);
    showIn(*ui->spinBoxAfter, settings::postrecord, segmentation.postrecord);
    showIn(*ui->spinBoxMerge, notJoined, longestGap, chosen.joiningGap.value_or(notJoined));
    showIn(*ui->spinBoxSensitivity, 1, int(cellSteps.size()), sensitivityOf(chosen.cells.step));
    const QSignalBlocker blocker(ui->checkBoxRestless);
    ui->checkBoxRestless->setChecked(chosen.cells.isRestlessIgnored);
    ui->spinBoxSensitivity->setEnabled(areCells);
    ui->checkBoxRestless->setEnabled(areCells);
}
