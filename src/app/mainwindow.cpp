// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mainwindow.h"

#include "aboutbox.h"
#include "addedfiles.h"
#include "applicationicon.h"
#include "busycursor.h"
#include "captiondelegate.h"
#include "clip.h"
#include "exportnotices.h"
#include "filenames.h"
#include "leftoutbar.h"
#include "resumedsearches.h"
#include "screenfit.h"
#include "sessioncontrol.h"
#include "sessionoffer.h"
#include "settingsdialog.h"
#include "ui_mainwindow.h"
#include "unopenedfiles.h"
#include "video.h"
#include "windowdocks.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QDir>
#include <QDragEnterEvent>
#include <QMessageBox>
#include <QMimeData>

#include <utility>

namespace {

constexpr int statusIntervalMilliseconds = 1000;
constexpr int backlogShownMilliseconds = 3000;
constexpr int longestStartMilliseconds = 500; // with no window yet that could answer
constexpr int sliceMilliseconds = 40;         // with one more file it stays below 100
constexpr int pauseMilliseconds = 100;

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui::MainWindow>())
    , startDirectory(QDir::currentPath())
    , commandLineFiles(QCoreApplication::arguments().mid(1)) {
    ui->setupUi(this);
    setWindowIcon(applicationIcon());
    new ScreenFit(*this);
    ui->files->setAccessibleName(tr("Clips"));
    ui->files->setItemDelegate(new CaptionDelegate(ui->files));
    ui->gridLayout->addWidget(new LeftOutBar(editMaskWindow), 1, 0);
    installEventFilter(ui->files);
    setAcceptDrops(true);
    connect(&statusTimer, SIGNAL(timeout()), SLOT(updateStatus()));
    connect(&editMaskWindow, SIGNAL(newVideo()), SLOT(newVideo()));
    connect(&queue, SIGNAL(told(QString)), ui->statusBar, SLOT(showMessage(QString)));
    connect(&ExportNotices::instance(), SIGNAL(told(QString)), ui->statusBar,
            SLOT(showMessage(QString)));
    // Clips come and go by other ways, too.
    connect(ui->files->model(), SIGNAL(rowsInserted(QModelIndex, int, int)),
            SLOT(on_files_itemSelectionChanged()));
    connect(ui->files->model(), SIGNAL(rowsRemoved(QModelIndex, int, int)),
            SLOT(on_files_itemSelectionChanged()));
    editMaskWindow.installEventFilter(this);
    docks = std::make_unique<WindowDocks>(*this, queue, *ui->files);
    unopened = std::make_unique<UnopenedFiles>(editMaskWindow.pending(), queue);
    statusTimer.start(statusIntervalMilliseconds);
    updateActions();
    addCommandLineFiles(longestStartMilliseconds);
    updateStatus();
}

MainWindow::~MainWindow() {
    // A job that is given up lives on, and its clips could still be exported.
    Clip::leaveQueue(ui->files->clips());
    // The list outlives this part of the window, and its selection ends with its items.
    disconnect(ui->files, nullptr, this, nullptr);
    disconnect(ui->files->model(), nullptr, this, nullptr);
}

void MainWindow::keepSession() {
    auto* offer = new SessionOffer(this);
    ui->gridLayout->addWidget(offer, ui->gridLayout->rowCount(), 0);
    session = std::make_unique<SessionControl>(queue, *ui->files, docks->resumed(), *offer);
    connect(session.get(), SIGNAL(told(QString)), ui->statusBar, SLOT(showMessage(QString)));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->accept();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &editMaskWindow && event->type() == QEvent::Close)
        isSetupClosing = editMaskWindow.isVisible();
    // Only once everything is done that comes with it: accepted jobs arrive after the window hides.
    if (watched == &editMaskWindow && event->type() == QEvent::Hide) {
        const bool wasClosed = std::exchange(isSetupClosing, false);
        QTimer::singleShot(0, this, [this, wasClosed] { endUnseen(wasClosed); });
    }
    return QMainWindow::eventFilter(watched, event);
}

/// What takes longer goes on from the event loop, so that the windows answer.
void MainWindow::addCommandLineFiles(int milliseconds) {
    // What comes to the front now would cover the dialog that has to be answered first.
    const bool isBlocked = QApplication::activeModalWidget();
    const QDeadlineTimer deadline(milliseconds);
    while (!isBlocked && !commandLineFiles.isEmpty() && !deadline.hasExpired())
        editMaskWindow.addFile(commandLineFiles.takeFirst());
    if (commandLineFiles.isEmpty()) {
        busyCursor.reset();
        return;
    }
    if (!busyCursor)
        busyCursor = std::make_unique<BusyCursor>();
    QTimer::singleShot(isBlocked ? pauseMilliseconds : 0, this,
                       [this] { addCommandLineFiles(sliceMilliseconds); });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!canBeDropped(*event->mimeData()))
        return;
    // What is dropped stays where it is, whatever the other program proposes.
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const QStringList files = droppedFiles(*event->mimeData());
    // The other program waits for the end of the drop, and must not wait for first pictures.
    QTimer::singleShot(0, this, [this, files] { editMaskWindow.addFiles(files); });
}

/// Job setup hides itself when it has no more files. Where this window has been closed before, the
/// program would then live on without a window: it ends, or, with jobs to do, shows itself again.
/// A person who closes both windows wants the end.
void MainWindow::endUnseen(bool wasSetupClosed) {
    const bool wasClosed = testAttribute(Qt::WA_WState_ExplicitShowHide) && isHidden();
    if (!wasClosed || editMaskWindow.isVisible())
        return;
    if (queue.isActive() && !wasSetupClosed)
        show();
    else
        QCoreApplication::quit();
}

void MainWindow::newVideo() {
    for (Video* video : qAsConst(editMaskWindow.readyVideos))
        connect(video, SIGNAL(newClip(int, QImage, double, double, double)),
                SLOT(newClip(int, QImage, double, double, double)));
    queue.add(std::exchange(editMaskWindow.readyVideos, {}));
}

void MainWindow::newClip(int index, const QImage& snapshot, double start, double end,
                         double snapshotTime) {
    auto* video = qobject_cast<Video*>(sender());
    if (!video)
        return;
    const std::optional<int> number = docks->resumed().numberOf(*video, index, start, end);
    if (!number)
        return;
    video->nextClipNumber = qMax(video->nextClipNumber, *number + 1);
    auto* clip = new Clip(video, *number, snapshot, start, end, snapshotTime);
    ui->files->insertItem(ui->files->count(), clip);
    updateActions();
    // Meant to be asked for a second time, after the clip's constructor: a clip that is exported
    // automatically reads "queued..." while its encoder runs.
    if (video->autoExport)
        clip->exportClip(false);
}

void MainWindow::updateStatus() {
    queue.startNext(); // where there was no thread before
    showProgress();
    showBacklog();
}

void MainWindow::showProgress() {
    const BatchProgress progress = queue.progress();
    if (progress.isActive && progress.fileSize > 0)
        ui->progressBar->setValue(progress.percent());
    ui->progressBar->setVisible(progress.isActive);
    ui->pushButtonCancel->setVisible(progress.isActive);
    ui->actionCancel->setEnabled(progress.isActive);
}

void MainWindow::showBacklog() {
    const int waiting = Clip::exportQueueLength();
    if (waiting > 0) {
        ui->statusBar->showMessage(tr("%1 clips queued to export...").arg(waiting),
                                   backlogShownMilliseconds);
        return;
    }
    // The messages about the queue may have covered it.
    const QString notice = ExportNotices::instance().takeLatest();
    if (!notice.isEmpty())
        ui->statusBar->showMessage(notice);
}

void MainWindow::updateActions() {
    const bool isSelected = ui->files->selectionModel()->hasSelection();
    ui->actionOpen_selected->setEnabled(isSelected);
    ui->actionExport_selected->setEnabled(isSelected);
    ui->actionRemoveSelected->setEnabled(isSelected);
    ui->actionRemoveAll->setEnabled(ui->files->count() > 0);
}

void MainWindow::on_actionAddFiles_triggered() {
    const QStringList files = askForFiles(this, startDirectory);
    if (!files.isEmpty())
        editMaskWindow.addFiles(files);
}

void MainWindow::on_actionAddDirectory_triggered() {
    if (const auto files = askForDirectoryFiles(this, startDirectory))
        editMaskWindow.addFiles(*files);
}

// Connected by its name, and empty on purpose: a click only selects.
void MainWindow::on_files_clicked(const QModelIndex&) {}

// Empty, too: a double-click and the menu's Return open, each in a slot of its own.
void MainWindow::on_files_activated(const QModelIndex&) {}

void MainWindow::on_actionRemoveSelected_triggered() {
    ui->files->removeSelected();
    updateActions();
}

void MainWindow::on_actionRemoveAll_triggered() {
    docks->showAllClips();
    ui->files->selectAll();
    on_actionRemoveSelected_triggered();
}

void MainWindow::on_actionSettings_triggered() {
    SettingsDialog().exec();
}

void MainWindow::on_actionHelp_triggered() {
    const QString manual = QCoreApplication::applicationDirPath() + "/help/manual.pdf";
    if (!QDesktopServices::openUrl(fileUrl(manual)))
        QMessageBox::critical(this, tr("Error"), tr("Can't open manual.pdf"));
}

void MainWindow::on_actionAbout_triggered() {
    showAbout(this);
}

void MainWindow::on_files_itemDoubleClicked(QListWidgetItem* item) {
    static_cast<Clip*>(item)->openClip();
}

void MainWindow::on_actionExport_selected_triggered() {
    const QList<Clip*> clips = ui->files->selectedClips();
    for (Clip* clip : clips)
        clip->exportClip(false);
}

void MainWindow::on_actionOpen_selected_triggered() {
    const QList<Clip*> clips = ui->files->selectedClips();
    for (Clip* clip : clips)
        clip->openClip();
}
