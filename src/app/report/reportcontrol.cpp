// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reportcontrol.h"

#include "failuretexts.h"
#include "listedreport.h"
#include "reportfolder.h"
#include "settingstable.h"
#include "windowreport.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>

#include <memory>

ReportControl::ReportControl(QMainWindow& window, DetectionQueue& queue, ClipListWidget& list)
    : window(window)
    , queue(queue)
    , list(list) {}

void ReportControl::save() {
    // The current directory is the program's own, once something was exported.
    const QString folder = QFileDialog::getExistingDirectory(
        &window, tr("Select a folder for the report"), settings::exportDirectory.read(QSettings()));
    if (!folder.isEmpty() && mayReplace(reportPage(folder)))
        write(QFileInfo(folder).absoluteFilePath());
}

bool ReportControl::mayReplace(const QString& page) const {
    if (!QFileInfo::exists(page))
        return true;
    // All of it is text: a folder's name may be anything.
    QMessageBox question(QMessageBox::Question, tr("Save report"),
                         tr("There is a page already: %1").arg(QDir::toNativeSeparators(page)),
                         QMessageBox::Cancel, &window);
    question.setTextFormat(Qt::PlainText);
    question.setDefaultButton(QMessageBox::Cancel);
    const QPushButton* replace = question.addButton(tr("Replace"), QMessageBox::AcceptRole);
    question.exec();
    return question.clickedButton() == replace;
}

void ReportControl::write(const QString& folder) {
    const auto listed = std::make_shared<const ListedReport>(listedReport(queue, list, folder));
    window.statusBar()->showMessage(tr("Saving the report..."));
    const bool isBegun = thread.run(this, [this, listed](const GuiCall& callBack) {
        const QString failure = writeReport(*listed);
        callBack([this, listed, failure] { tellEnd(listed->folder, failure); });
    });
    if (!isBegun)
        tellEnd(folder, tr("no thread to do it on"));
}

void ReportControl::tellEnd(const QString& folder, const QString& failure) {
    if (failure.isEmpty()) {
        window.statusBar()->showMessage(
            tr("Report saved: %1").arg(QDir::toNativeSeparators(reportPage(folder))));
        return;
    }
    window.statusBar()->clearMessage();
    auto* box =
        new QMessageBox(QMessageBox::Critical, tr("Save report"),
                        tr("The report could not be saved: %1").arg(translatedFailure(failure)),
                        QMessageBox::Ok, &window);
    box->setObjectName(QStringLiteral("reportFailure"));
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
