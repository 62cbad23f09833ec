#include "editmaskwindow.h"

#include "applicationicon.h"
#include "firstframe.h"
#include "settingstable.h"
#include "ui_editmaskwindow.h"
#include "video.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMessageBox>

namespace {

/// Whether `image` got the first picture of the file. Pipes, devices and the like are never opened:
/// that could wait for ever.
bool grabPicture(const QString& path, QImage* image) {
    return QFileInfo(path).isFile() && grabFirstFrame(path, image);
}

} // namespace

EditMaskWindow::EditMaskWindow(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::EditMaskWindow>()) {
    ui->setupUi(this);
    setWindowIcon(applicationIcon());
    loadSettings();
    on_checkBoxExportTimestamp_clicked();
    prepareStartTime();
    connect(ui->maskEditor, SIGNAL(roiUpdated()), this, SLOT(roiUpdated()));
    ui->pushButtonClear->setEnabled(ui->maskEditor->hasRoi());
    ui->pushButtonAdd->setFocus();
}

EditMaskWindow::~EditMaskWindow() {
    qDeleteAll(readyVideos);
}

void EditMaskWindow::addFile(const QString& path) {
    pendingFiles.append(path);
    showNext();
}

void EditMaskWindow::addFiles(const QStringList& paths) {
    pendingFiles.append(paths);
    showNext();
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
    createJob(currentFile);
    showNext();
    Q_EMIT newVideo();
}

void EditMaskWindow::on_pushButtonAddAll_clicked() {
    if (!isExportDirectoryGood())
        return;
    saveSettings();
    createJob(currentFile);
    while (!pendingFiles.isEmpty())
        createJob(pendingFiles.takeFirst());
    showNext();
    Q_EMIT newVideo();
}

/// Drops two on purpose: the file that is shown and the one behind it.
void EditMaskWindow::on_pushButtonCancel_clicked() {
    if (!pendingFiles.isEmpty())
        pendingFiles.removeFirst();
    showNext();
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

/// Shows the first pending file that has a picture. Without one the window hides and `currentFile`
/// keeps its old text.
void EditMaskWindow::showNext() {
    while (!pendingFiles.isEmpty()) {
        currentFile = pendingFiles.takeFirst();
        QImage picture;
        if (!grabPicture(currentFile, &picture))
            continue;
        ui->maskEditor->setImage(picture);
        ui->labelInfo->setText(currentFile);
        show();
        return;
    }
    hide();
}

void EditMaskWindow::discardAll() {
    pendingFiles.clear();
    showNext();
}

bool EditMaskWindow::isExportDirectoryGood() const {
    const QFileInfo directory(ui->lineEditDir->text());
    if (directory.isDir() && directory.isWritable())
        return true;
    QMessageBox::critical(nullptr, tr("Error"), tr("Please check export dir name and permissions"),
                          QMessageBox::Ok);
    return false;
}

void EditMaskWindow::createJob(const QString& path) {
    readyVideos.append(
        new Video(path, ui->lineEditDir->text(), ui->doubleSpinBoxPrerecord->value(),
                  ui->doubleSpinBoxPostrecord->value(), ui->doubleSpinBoxMinimum->value(),
                  ui->spinBoxSkip->value(), ui->checkBoxExport->isChecked(), ui->maskEditor->mask(),
                  ui->maskEditor->roiRect(), ui->checkBoxExportTimestamp->isChecked(),
                  ui->dateTimeEdit->dateTime()));
}
