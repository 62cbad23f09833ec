// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "detectionqueue.h"
#include "editmaskwindow.h"

#include <QCoreApplication>
#include <QImage>
#include <QMainWindow>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <memory>

class BusyCursor;
class QListWidgetItem;
class QModelIndex;
class SessionControl;
class UnopenedFiles;
class WindowDocks;

namespace Ui {
class MainWindow;
}

/// The main window: the progress of the detection queue, and the list of clips with its actions.
///
/// Owns the queue and the job setup window, and hands the jobs that are accepted there over to the
/// queue. The command line's files go to job setup when it is built.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Keeps what is listed in the program's data folder from now on, and offers what was listed
    /// last.
    void keepSession();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private Q_SLOTS:
    void newVideo();
    void newClip(int index, const QImage& snapshot, double start, double end, double snapshotTime);
    void processQueue() { queue.startNext(); }
    void updateStatus();
    void on_actionQuit_triggered() { QCoreApplication::quit(); }
    void on_actionAddFiles_triggered();
    void on_actionAddDirectory_triggered();
    void on_files_clicked(const QModelIndex& index);
    void on_files_itemSelectionChanged() { updateActions(); }
    void on_files_activated(const QModelIndex& index);
    void on_actionRemoveSelected_triggered();
    void on_actionRemoveAll_triggered();
    void on_actionSettings_triggered();
    void on_pushButtonAddFiles_clicked() { on_actionAddFiles_triggered(); }
    void on_pushButtonDirrectory_clicked() { on_actionAddDirectory_triggered(); }
    void on_actionHelp_triggered();
    void on_actionAbout_triggered();
    void on_files_itemDoubleClicked(QListWidgetItem* item);
    void on_pushButtonCancel_clicked() { queue.cancel(); }
    void on_actionCancel_triggered() { on_pushButtonCancel_clicked(); }
    void on_actionExport_selected_triggered();
    void on_actionOpen_selected_triggered();

private:
    void addCommandLineFiles(int milliseconds);
    void updateActions();
    void endUnseen(bool wasSetupClosed);
    void showProgress();
    void showBacklog();

    std::unique_ptr<Ui::MainWindow> ui;
    EditMaskWindow editMaskWindow;
    QTimer statusTimer;
    QString startDirectory;       ///< the current directory, before any export changes it
    QStringList commandLineFiles; ///< still to be handed to job setup
    std::unique_ptr<BusyCursor> busyCursor;
    bool isSetupClosing = false;
    DetectionQueue queue; ///< its worker ends before all else
    std::unique_ptr<UnopenedFiles> unopened;
    std::unique_ptr<WindowDocks> docks;
    std::unique_ptr<SessionControl> session; ///< null: none is kept; ends before all that it keeps
};
