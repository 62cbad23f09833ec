// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editmaskwindow.h"

#include <QImage>
#include <QList>
#include <QMainWindow>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <memory>

class BusyCursor;
class QKeyEvent;
class QListWidgetItem;
class QModelIndex;
class Video;
class WorkerThread;

namespace Ui {
class MainWindow;
}

/// The main window: the detection queue, its progress, and the list of clips with its actions.
///
/// Owns every job ever accepted, the job setup window, and the thread that detection runs on. The
/// command line's files go to job setup when it is built. It ends detection when it is destroyed.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private Q_SLOTS:
    void newVideo();
    void newClip(int index, const QImage& snapshot, double start, double end, double snapshotTime);
    void processQueue();
    void updateStatus();
    void on_actionQuit_triggered();
    void on_actionAddFiles_triggered();
    void on_actionAddDirectory_triggered();
    void on_files_clicked(const QModelIndex& index);
    void on_files_itemSelectionChanged();
    void on_files_activated(const QModelIndex& index);
    void on_actionRemoveSelected_triggered();
    void on_actionRemoveAll_triggered();
    void on_actionSettings_triggered();
    void on_pushButtonAddFiles_clicked();
    void on_pushButtonDirrectory_clicked();
    void on_actionHelp_triggered();
    void on_actionAbout_triggered();
    void on_files_itemDoubleClicked(QListWidgetItem* item);
    void on_pushButtonCancel_clicked();
    void on_actionCancel_triggered();
    void on_actionExport_selected_triggered();
    void on_actionOpen_selected_triggered();

private:
    void recognizeHeldReturn(QKeyEvent& event);
    void addCommandLineFiles(int milliseconds);
    void updateActions();
    void endUnseen(bool wasSetupClosed);
    void showProgress();
    void showBacklog();
    bool isDetecting() const;
    bool hasWorker();
    void startDetection(Video* video);

    std::unique_ptr<Ui::MainWindow> ui;
    EditMaskWindow editMaskWindow;
    QTimer statusTimer;
    QString startDirectory;       ///< the current directory, before any export changes it
    QStringList commandLineFiles; ///< still to be handed to job setup
    std::unique_ptr<BusyCursor> busyCursor;
    bool isSetupClosing = false;
    ulong returnReleased = 0;     ///< when, in the window system's milliseconds
    QList<Video*> videos;         ///< every job, in the order of acceptance; owned
    QList<Video*> progressVideos; ///< the jobs that the progress bar counts
    std::unique_ptr<WorkerThread> workerThread;
    Video* heldVideo = nullptr; ///< by the worker: handed over, its end not yet heard
};
