// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "joboptions.h"

#include "datetimetyping.h"
#include "editmaskwindow.h"
#include "settingstable.h"
#include "ui_editmaskwindow.h"
#include "video.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

JobOptions::JobOptions(const Ui::EditMaskWindow& ui)
    : ui(ui)
    , startDirectory(QDir::currentPath()) {
    load();
    prepareStartTime();
}

void JobOptions::save() const {
    QSettings store;
    settings::exportDirectory.write(store, ui.lineEditDir->text());
    settings::skip.write(store, ui.spinBoxSkip->value());
    settings::prerecord.write(store, ui.doubleSpinBoxPrerecord->value());
    settings::postrecord.write(store, ui.doubleSpinBoxPostrecord->value());
    settings::minimum.write(store, ui.doubleSpinBoxMinimum->value());
    settings::automaticExport.write(store, ui.checkBoxExport->isChecked());
    settings::timestamps.write(store, ui.checkBoxExportTimestamp->isChecked());
}

bool JobOptions::isExportDirectoryGood() const {
    const QFileInfo directory(exportDirectory());
    if (directory.isDir() && directory.isWritable())
        return true;
    QMessageBox::critical(nullptr, EditMaskWindow::tr("Error"),
                          EditMaskWindow::tr("Please check export dir name and permissions"),
                          QMessageBox::Ok);
    return false;
}

Video* JobOptions::makeJob(const QString& path, ClipFolderNumbers* numbers) const {
    ui.maskEditor->dropStroke(); // it counts as a region already, and has none to show
    return new Video(path, exportDirectory(), ui.doubleSpinBoxPrerecord->value(),
                     ui.doubleSpinBoxPostrecord->value(), ui.doubleSpinBoxMinimum->value(),
                     ui.spinBoxSkip->value(), ui.checkBoxExport->isChecked(), ui.maskEditor->mask(),
                     ui.maskEditor->roiRect(), ui.checkBoxExportTimestamp->isChecked(),
                     ui.dateTimeEdit->dateTime(), numbers);
}

void JobOptions::load() const {
    const QSettings store;
    ui.lineEditDir->setText(settings::exportDirectory.read(store));
    settings::skip.show(*ui.spinBoxSkip, store);
    settings::prerecord.show(*ui.doubleSpinBoxPrerecord, store);
    settings::postrecord.show(*ui.doubleSpinBoxPostrecord, store);
    settings::minimum.show(*ui.doubleSpinBoxMinimum, store);
    ui.checkBoxExport->setChecked(settings::automaticExport.read(store));
    ui.checkBoxExportTimestamp->setChecked(settings::timestamps.read(store));
}

/// Not in the form: a later change of the time spec would shift the bounds by the local offset, and
/// designers sort properties as they like.
void JobOptions::prepareStartTime() const {
    ui.dateTimeEdit->setTimeSpec(Qt::UTC);
    ui.dateTimeEdit->setDateTimeRange(QDateTime(QDate(1899, 12, 31), QTime(0, 0, 0), Qt::UTC),
                                      QDateTime(QDate(2100, 12, 31), QTime(20, 59, 59), Qt::UTC));
    ui.dateTimeEdit->setTimeRange(QTime(0, 0, 0), QTime(20, 59, 59));
    ui.dateTimeEdit->setDateTime(QDateTime(QDate::currentDate(), QTime(0, 0, 0), Qt::UTC));
    new DateTimeTyping(*ui.dateTimeEdit);
}

/// Empty if none is named. What a person writes in short means the same before and after an export.
QString JobOptions::exportDirectory() const {
    const QString text = ui.lineEditDir->text();
    return text.isEmpty() ? text : QDir(startDirectory).filePath(text);
}
