// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "leftoutfiles.h"
#include "pendingfiles.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

class JobOptions;
class StartOffer;
class Video;

namespace Ui {
class EditMaskWindow;
}

/// The window in which every new video file is set up before detection.
///
/// Files wait in a queue and are shown one at a time on their first picture; files without one are
/// dropped, and nothing is said here. The window comes to the front for a file and hides when none
/// is left.
///
/// A region that was drawn on an earlier file goes on applying until another one is drawn; a line
/// says so.
///
/// While a longer search for the next picture goes on no file is on show that could be added or
/// cancelled.
class EditMaskWindow : public QWidget {
    Q_OBJECT

public:
    explicit EditMaskWindow(QWidget* parent = nullptr);
    ~EditMaskWindow() override;

    /// Queues a file and shows the next one; the file shown until now is dropped. While a search
    /// goes on no file is shown, and the new one joins it.
    void addFile(const QString& path) { addFiles({path}); }

    /// Queues files and shows the next one, as `addFile`; also with an empty list.
    void addFiles(const QStringList& paths);

    /// Queues files behind those that wait; the file shown stays.
    void queueFiles(const QStringList& paths);

    /// The files that `addFile` and `addFiles` have dropped.
    LeftOutFiles& leftOut() { return leftOutFiles; }

    /// Where those are heard of that wait, and those that are dropped without a picture.
    const PendingFiles& pending() const { return pendingFiles; }

    /// In front of the other windows, with the focus, also where it was minimised.
    void bringToFront();

    /// Accepted jobs in the order of their acceptance. Who takes a job out of the list owns it.
    QList<Video*> readyVideos;

Q_SIGNALS:
    /// Jobs were added to `readyVideos`.
    void newVideo();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent*) override { discardAll(); }

private Q_SLOTS:
    void on_pushButtonAdd_clicked();
    void on_pushButtonAddAll_clicked();
    void on_pushButtonCancel_clicked();
    void on_pushButtonCancelAll_clicked() { discardAll(); }
    void on_pushButtonClear_clicked();
    void on_pushButtonInvert_clicked();
    void on_pushButtonDir_clicked();
    void on_comboBoxSelectionMode_currentIndexChanged(int index);
    void on_checkBoxExportTimestamp_clicked();
    void roiUpdated();

private:
    void showPicture(const QImage& picture);
    void showPosition();
    void showOldRegion();
    void setSearching(bool isSearching);
    void setUsable(QWidget& part, bool isUsable);
    void discardAll();

    std::unique_ptr<Ui::EditMaskWindow> ui;
    std::unique_ptr<JobOptions> options;
    StartOffer* startOffer; ///< beside the field for the start
    PendingFiles pendingFiles;
    QString regionFile; ///< on which the region was drawn last
    LeftOutFiles leftOutFiles;
    QPointer<QWidget> focusBefore; ///< the part that had the focus when a search disabled it
};
