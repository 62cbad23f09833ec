// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editmaskwindow.h"

#include "applicationicon.h"
#include "datetimetyping.h"
#include "leftoutfiles.h"
#include "screenfit.h"
#include "settingstable.h"
#include "ui_editmaskwindow.h"
#include "video.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMessageBox>

#include <initializer_list>
#include <utility>

EditMaskWindow::EditMaskWindow(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::EditMaskWindow>())
    , startDirectory(QDir::currentPath())
    , leftOutFiles(std::make_unique<LeftOutFiles>()) {
    ui->setupUi(this);
    setWindowIcon(applicationIcon());
    new ScreenFit(*this);
    loadSettings();
    on_checkBoxExportTimestamp_clicked();
    prepareStartTime();
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

void EditMaskWindow::addFile(const QString& path) {
    addFiles({path});
}

void EditMaskWindow::addFiles(const QStringList& paths) {
    const bool isSearching = pendingFiles.isSearching();
    if (isVisible() && !isSearching)
        leftOutFiles->add(pendingFiles.current());
    leftOutFiles->remove(paths);
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

void EditMaskWindow::closeEvent(QCloseEvent*) {
    discardAll();
}

void EditMaskWindow::on_pushButtonAdd_clicked() {
    if (!isExportDirectoryGood())
        return;
    saveSettings();
    createJob(pendingFiles.current());
    pendingFiles.showNext();
    Q_EMIT newVideo();
}

void EditMaskWindow::on_pushButtonAddAll_clicked() {
    if (!isExportDirectoryGood())
        return;
    saveSettings();
    ClipFolderNumbers numbers;
    const QStringList files = QStringList{pendingFiles.current()} + pendingFiles.takeAll();
    for (const QString& file : files)
        createJob(file, &numbers);
    pendingFiles.showNext();
    Q_EMIT newVideo();
}

/// Drops two on purpose: the file that is shown and the one behind it.
void EditMaskWindow::on_pushButtonCancel_clicked() {
    pendingFiles.dropFirst();
    pendingFiles.showNext();
}

void EditMaskWindow::on_pushButtonCancelAll_clicked() {
    discardAll();
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
}

void EditMaskWindow::roiUpdated() {
    regionFile = pendingFiles.current();
    ui->labelOldRegion->hide();
    ui->pushButtonClear->setEnabled(ui->maskEditor->hasRoi());
}

/// Not in the form: a later change of the time spec would shift the bounds by the local offset, and
/// designers sort properties as they like.
void EditMaskWindow::prepareStartTime() {
    ui->dateTimeEdit->setTimeSpec(Qt::UTC);
    ui->dateTimeEdit->setDateTimeRange(QDateTime(QDate(1899, 12, 31), QTime(0, 0, 0), Qt::UTC),
                                       QDateTime(QDate(2100, 12, 31), QTime(20, 59, 59), Qt::UTC));
    ui->dateTimeEdit->setTimeRange(QTime(0, 0, 0), QTime(20, 59, 59));
    ui->dateTimeEdit->setDateTime(QDateTime(QDate::currentDate(), QTime(0, 0, 0), Qt::UTC));
    new DateTimeTyping(*ui->dateTimeEdit);
}

void EditMaskWindow::loadSettings() {
    const QSettings store;
    ui->lineEditDir->setText(settings::exportDirectory.read(store));
    ui->spinBoxSkip->setValue(settings::skip.read(store));
    ui->doubleSpinBoxPrerecord->setValue(settings::prerecord.read(store));
    ui->doubleSpinBoxPostrecord->setValue(settings::postrecord.read(store));
    ui->doubleSpinBoxMinimum->setValue(settings::minimum.read(store));
    ui->checkBoxExport->setChecked(settings::automaticExport.read(store));
    ui->checkBoxExportTimestamp->setChecked(settings::timestamps.read(store));
}

void EditMaskWindow::saveSettings() const {
    QSettings store;
    settings::exportDirectory.write(store, ui->lineEditDir->text());
    settings::skip.write(store, ui->spinBoxSkip->value());
    settings::prerecord.write(store, ui->doubleSpinBoxPrerecord->value());
    settings::postrecord.write(store, ui->doubleSpinBoxPostrecord->value());
    settings::minimum.write(store, ui->doubleSpinBoxMinimum->value());
    settings::automaticExport.write(store, ui->checkBoxExport->isChecked());
    settings::timestamps.write(store, ui->checkBoxExportTimestamp->isChecked());
}

void EditMaskWindow::showPicture(const QImage& picture) {
    ui->maskEditor->setImage(picture);
    ui->labelInfo->setText(pendingFiles.current());
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
    if (isSearching)
        ui->maskEditor->setImage(QImage());
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

/// Empty if none is named. What a person writes in short means the same before and after an export.
QString EditMaskWindow::exportDirectory() const {
    const QString text = ui->lineEditDir->text();
    return text.isEmpty() ? text : QDir(startDirectory).filePath(text);
}

bool EditMaskWindow::isExportDirectoryGood() const {
    const QFileInfo directory(exportDirectory());
    if (directory.isDir() && directory.isWritable())
        return true;
    QMessageBox::critical(nullptr, tr("Error"), tr("Please check export dir name and permissions"),
                          QMessageBox::Ok);
    return false;
}

void EditMaskWindow::createJob(const QString& path, ClipFolderNumbers* numbers) {
    ui->maskEditor->dropStroke(); // it counts as a region already, and has none to show
    readyVideos.append(
        new Video(path, exportDirectory(), ui->doubleSpinBoxPrerecord->value(),
                  ui->doubleSpinBoxPostrecord->value(), ui->doubleSpinBoxMinimum->value(),
                  ui->spinBoxSkip->value(), ui->checkBoxExport->isChecked(), ui->maskEditor->mask(),
                  ui->maskEditor->roiRect(), ui->checkBoxExportTimestamp->isChecked(),
                  ui->dateTimeEdit->dateTime(), numbers));
}
