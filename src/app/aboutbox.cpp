// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "aboutbox.h"

#include "mainwindow.h"

#include <QMessageBox>

namespace {

QString aboutText() {
    const QString links =
        QStringLiteral("<a href=\"https://ffmpeg.org/legal.html\">FFmpeg</a><br>"
                       "<a href=\"https://opencv.org/license/\">OpenCV</a><br>"
                       "<a href=\"https://doc.qt.io/qt-5/licensing.html\">Qt</a>");
    return QStringLiteral("<p><b>Kestrova</b><br>%1</p><p>%2<br>%3</p>")
        .arg(MainWindow::tr("Finds the moving stretches in recordings of fixed cameras."),
             MainWindow::tr("Credits:"), links);
}

} // namespace

void showAbout(QWidget* parent) {
    QMessageBox::about(parent, MainWindow::tr("About Kestrova"), aboutText());
}
