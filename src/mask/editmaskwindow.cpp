// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editmaskwindow.h"

#include "applicationicon.h"
#include "joboptions.h"
#include "screenfit.h"
#include "startoffer.h"
#include "ui_editmaskwindow.h"
#include "video.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>

#include <initializer_list>
#include <utility>

namespace {

// The same for all, so that what stands below each other begins at the same place.
constexpr int marginLabelWidth = 150;
constexpr int smallestButtonWidth = 104;

} // namespace

EditMaskWindow::EditMaskWindow(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::EditMaskWindow>()) {
    ui->setupUi(this);
    for (QLabel* label : {ui->label_4, ui->label_5, ui->label_6})
        label->setFixedWidth(marginLabelWidth);
    for (QPushButton* button :
         {ui->pushButtonAdd, ui->pushButtonAddAll, ui->pushButtonCancel, ui->pushButtonCancelAll})
        button->setMinimumWidth(smallestButtonWidth);
    setWindowIcon(applicationIcon());
    new ScreenFit(*this);
    options = std::make_unique<JobOptions>(*ui);
    startOffer = new StartOffer(*ui->dateTimeEdit, *ui->layoutTimestamps);
    // Before the field, so that whoever has typed a time comes to the buttons with the next key.
    setTabOrder(ui->checkBoxExportTimestamp, startOffer);
    setTabOrder(startOffer, ui->dateTimeEdit);
    on_checkBoxExportTimestamp_clicked();
    connect(ui->maskEditor, SIGNAL(roiUpdated()), this, SLOT(roiUpdated()));
    ui->pushButtonClear->setEnabled(ui->maskEditor->hasRoi());
    connect(&pendingFiles, &PendingFiles::searching, this, &EditMaskWindow::setSearching);
    connect(&pendingFiles, &PendingFiles::found, this, &EditMaskWindow::showPicture);
    connect(&pendingFiles, SIGNAL(exhausted()), SLOT(hide()));
    ui->labelOldRegion->hide();
    ui->pushButtonAdd->setFocus();
}

EditMaskWindow::~EditMaskWindow() {
    qDeleteAll(readyVideos);
}

void EditMaskWindow::addFiles(const QStringList& paths) {
    const bool isSearching = pendingFiles.isSearching();
    if (isVisible() && !isSearching)
        leftOutFiles.add(pendingFiles.current());
    leftOutFiles.remove(paths);
    pendingFiles.append(paths);
    if (!isSearching)
        pendingFiles.showNext();
}

void EditMaskWindow::queueFiles(const QStringList& paths) {
    if (!isVisible() || pendingFiles.isSearching()) {
        addFiles(paths);
        return;
    }
    pendingFiles.append(paths);
    showPosition();
    bringToFront();
}

void EditMaskWindow::bringToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void EditMaskWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) {
        event->ignore();
        return;
    }
    event->accept();
    discardAll();
}

void EditMaskWindow::on_pushButtonAdd_clicked() {
    if (!options->isExportDirectoryGood())
        return;
    options->save();
    readyVideos.append(options->makeJob(pendingFiles.current(), nullptr));
    pendingFiles.showNext();
    Q_EMIT newVideo();
}

void EditMaskWindow::on_pushButtonAddAll_clicked() {
    if (!options->isExportDirectoryGood())
        return;
    options->save();
    ClipFolderNumbers numbers;
    const QStringList files = QStringList{pendingFiles.current()} + pendingFiles.takeAll();
    for (const QString& file : files)
        readyVideos.append(options->makeJob(file, &numbers));
    pendingFiles.showNext();
    Q_EMIT newVideo();
}

/// Drops two on purpose: the file that is shown and the one behind it.
void EditMaskWindow::on_pushButtonCancel_clicked() {
    pendingFiles.dropFirst();
    pendingFiles.showNext();
}

void EditMaskWindow::on_pushButtonClear_clicked() {
    ui->maskEditor->clear();
}

void EditMaskWindow::on_pushButtonInvert_clicked() {
    ui->maskEditor->invert();
}

void EditMaskWindow::on_pushButtonDir_clicked() {
    const QString directory = QFileDialog::getExistingDirectory(
        this, tr("Select folder to save"), QString(), QFileDialog::ShowDirsOnly);
    if (!directory.isEmpty())
        ui->lineEditDir->setText(directory);
}

void EditMaskWindow::on_comboBoxSelectionMode_currentIndexChanged(int index) {
    ui->maskEditor->setRectangleMode(index == 0);
    ui->pushButtonInvert->setEnabled(index == 1);
}

void EditMaskWindow::on_checkBoxExportTimestamp_clicked() {
    const bool isExporting = ui->checkBoxExportTimestamp->isChecked();
    ui->labelExportTimestamps->setEnabled(isExporting);
    ui->dateTimeEdit->setEnabled(isExporting);
    startOffer->setEnabled(isExporting);
}

void EditMaskWindow::roiUpdated() {
    regionFile = pendingFiles.current();
    ui->labelOldRegion->hide();
    ui->pushButtonClear->setEnabled(ui->maskEditor->hasRoi());
}

void EditMaskWindow::showPicture(const QImage& picture) {
    ui->maskEditor->setImage(picture);
    ui->labelInfo->setText(pendingFiles.current());
    startOffer->lookAt(pendingFiles.current());
    showPosition();
    showOldRegion();
    bringToFront();
}

void EditMaskWindow::showPosition() {
    const QString position =
        tr("File %1 of %2").arg(pendingFiles.place()).arg(pendingFiles.count());
    ui->labelPosition->setText(pendingFiles.count() > 1 ? position : QString());
}

/// The rectangle is the old one; free shapes are gone, and nothing is selected in their place.
void EditMaskWindow::showOldRegion() {
    const QString text =
        ui->maskEditor->roiRect()
            ? tr("The region of %1 still applies. Draw a new one, or Clear.")
            : tr("The shapes drawn on %1 are gone, but not cleared: nothing would be found here. "
                 "Draw new ones, or Clear.");
    ui->labelOldRegion->setText(text.arg(QFileInfo(regionFile).fileName()));
    ui->labelOldRegion->setVisible(ui->maskEditor->hasRoi());
}

/// While a search goes on nothing is on show: what would act on it is disabled.
void EditMaskWindow::setSearching(bool isSearching) {
    if (isSearching) {
        ui->maskEditor->setImage(QImage());
        startOffer->forget();
    }
    const std::initializer_list<QWidget*> parts = {ui->labelInfo, ui->maskEditor, ui->pushButtonAdd,
                                                   ui->pushButtonAddAll, ui->pushButtonCancel};
    for (QWidget* part : parts)
        setUsable(*part, !isSearching);
}

/// A part that is disabled keeps the focus from its neighbours: who presses Add's key once more
/// must not press Cancel ALL. It has it again as soon as it is usable, if nobody else has.
void EditMaskWindow::setUsable(QWidget& part, bool isUsable) {
    if (!isUsable && &part == focusWidget()) {
        focusBefore = &part;
        part.clearFocus();
    }
    part.setEnabled(isUsable);
    if (isUsable && &part == focusBefore && !focusWidget())
        part.setFocus();
}

void EditMaskWindow::discardAll() {
    pendingFiles.takeAll();
    pendingFiles.showNext();
}
