// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "searchagaindialog.h"

#include "celldefaults.h"
#include "detectionoptions.h"
#include "excludedtext.h"
#include "settingstable.h"
#include "ui_searchagaindialog.h"
#include "video.h"

#include <QPushButton>

#include <algorithm>

namespace {

constexpr double highestCells = 100.0; // percent

/// Those of the last search.
DecidingOptions decidingOptions(const Video& job) {
    if (job.search.deciding)
        return *job.search.deciding;
    DecidingOptions options;
    options.segmentation = job.detectionOptions().segmentation;
    return options;
}

} // namespace

SearchAgainDialog::SearchAgainDialog(const Video& job, QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::SearchAgainDialog>())
    , searched(job.record())
    , thresholds{settings::motionThreshold.read(QSettings()), cellsThreshold} {
    ui->setupUi(this);
    setWindowTitle(tr("Search again: %1").arg(job.shortFileName()));
    load(job);
    connect(ui->comboBoxAgainDetector, SIGNAL(currentIndexChanged(int)), SLOT(changeDetector()));
    connect(ui->checkBoxJoin, SIGNAL(toggled(bool)), SLOT(showState()));
    connect(ui->lineEditExcluded, SIGNAL(textChanged(QString)), SLOT(showState()));
    connect(ui->buttonBox, SIGNAL(accepted()), SLOT(accept()));
    connect(ui->buttonBox, SIGNAL(rejected()), SLOT(reject()));
    showState();
}

SearchAgainDialog::~SearchAgainDialog() = default;

JobRecord SearchAgainDialog::record() const {
    JobRecord record = searched;
    record.state = Video::Waiting;
    record.facts = {};
    record.search.deciding = deciding();
    record.search.isQuick = ui->checkBoxQuick->isChecked();
    record.search.excluded = rectanglesOf(ui->lineEditExcluded->text()).value_or(QVector<QRect>());
    return record;
}

/// Each detector has thresholds of its own.
void SearchAgainDialog::changeDetector() {
    thresholds[std::size_t(shownDetector)] = ui->spinBoxAgainThreshold->value();
    shownDetector = detector();
    showThreshold();
    showState();
}

/// Who stores more than is offered means it.
void SearchAgainDialog::showThreshold() {
    const bool isCells = shownDetector == Detector::Cells;
    const double threshold = thresholds[std::size_t(shownDetector)];
    ui->spinBoxAgainThreshold->setMaximum(
        std::max(threshold, isCells ? highestCells : settings::motionThreshold.highest));
    ui->spinBoxAgainThreshold->setSuffix(isCells ? QStringLiteral(" %") : QString());
    ui->spinBoxAgainThreshold->setValue(threshold);
}

void SearchAgainDialog::showState() {
    const bool isGood = rectanglesOf(ui->lineEditExcluded->text()).has_value();
    ui->labelFlaw->setVisible(!isGood);
    ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(isGood);
    ui->spinBoxAgainJoin->setEnabled(ui->checkBoxJoin->isChecked());
    ui->checkBoxRestless->setEnabled(detector() == Detector::Cells);
}

void SearchAgainDialog::load(const Video& job) {
    const DecidingOptions options = decidingOptions(job);
    cells = options.cells;
    shownDetector = options.detector;
    thresholds[std::size_t(shownDetector)] = double(options.segmentation.motionThreshold.value);
    ui->comboBoxAgainDetector->setCurrentIndex(int(shownDetector));
    showThreshold();
    ui->spinBoxAgainMinimum->setValue(options.segmentation.minimum);
    ui->spinBoxAgainBefore->setValue(options.segmentation.prerecord);
    ui->spinBoxAgainAfter->setValue(options.segmentation.postrecord);
    ui->checkBoxJoin->setChecked(options.joiningGap.has_value());
    ui->spinBoxAgainJoin->setValue(options.joiningGap.value_or(0.0));
    ui->checkBoxRestless->setChecked(options.cells.isRestlessIgnored);
    ui->checkBoxQuick->setChecked(job.search.isQuick);
    ui->lineEditExcluded->setText(rectanglesText(job.search.excluded));
}

DecidingOptions SearchAgainDialog::deciding() const {
    DecidingOptions options;
    options.detector = detector();
    options.segmentation.prerecord = ui->spinBoxAgainBefore->value();
    options.segmentation.postrecord = ui->spinBoxAgainAfter->value();
    options.segmentation.minimum = ui->spinBoxAgainMinimum->value();
    options.segmentation.motionThreshold.value = float(ui->spinBoxAgainThreshold->value());
    options.cells = cells;
    options.cells.isRestlessIgnored =
        options.detector == Detector::Cells && ui->checkBoxRestless->isChecked();
    if (ui->checkBoxJoin->isChecked())
        options.joiningGap = ui->spinBoxAgainJoin->value();
    return options;
}

Detector SearchAgainDialog::detector() const {
    return Detector(ui->comboBoxAgainDetector->currentIndex());
}
