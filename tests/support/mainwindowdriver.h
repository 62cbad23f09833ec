// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clip.h"
#include "dialogs.h"
#include "editmaskwindow.h"
#include "mainwindow.h"
#include "video.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>

/// A main window, driven through what a person sees of it.
class MainWindowDriver {
public:
    MainWindowDriver()
        : setup(*findSetup()) {}

    /// A part of the main window, by its object name.
    template<class T>
    T& part(const char* name) {
        return *window.findChild<T*>(name);
    }

    /// A part of the job setup window.
    template<class T>
    T& setupPart(const char* name) {
        return *setup.findChild<T*>(name);
    }

    QAction& action(const char* name) { return part<QAction>(name); }
    void trigger(const char* name) { action(name).trigger(); }
    void click(const char* name) { part<QPushButton>(name).click(); }
    void clickSetup(const char* name) { setupPart<QPushButton>(name).click(); }

    QListWidget& list() { return part<QListWidget>("files"); }
    Clip& clip(int row) { return *static_cast<Clip*>(list().item(row)); }

    /// The captions' second lines.
    QStringList captions() {
        QStringList lines;
        for (int row = 0; row < list().count(); ++row)
            lines.append(clip(row).text().section('\n', 1));
        return lines;
    }

    /// Adds files with the button and its dialog.
    void addFiles(const QStringList& files) {
        DialogAnswer<QFileDialog> answer([&files](QFileDialog& dialog) {
            const QString names = '"' + files.join("\" \"") + '"';
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(names);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        click("pushButtonAddFiles");
    }

    /// Adds a directory with the button and its dialog.
    void addDirectory(const QString& directory) {
        DialogAnswer<QFileDialog> answer([&directory](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(directory);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        click("pushButtonDirrectory");
    }

    /// Hands a job over as job setup does; the window owns it from then on.
    void accept(Video* job) {
        setup.readyVideos.append(job);
        QMetaObject::invokeMethod(&setup, "newVideo");
    }

    MainWindow window;
    EditMaskWindow& setup;

private:
    static EditMaskWindow* findSetup() {
        EditMaskWindow* found = nullptr;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* setup = qobject_cast<EditMaskWindow*>(widget))
                found = setup;
        }
        return found;
    }
};
