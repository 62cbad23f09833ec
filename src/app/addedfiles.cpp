#include "addedfiles.h"

#include "mainwindow.h"
#include "settingstable.h"

#include <QDirIterator>
#include <QFileDialog>
#include <QFileInfo>

namespace {

QStringList filesBelow(const QString& directory) {
    QStringList files;
    QDirIterator iterator(directory, QDir::Files, QDirIterator::Subdirectories);
    while (iterator.hasNext())
        files.append(iterator.next());
    return files;
}

} // namespace

QStringList askForFiles(QWidget* parent) {
    QSettings store;
    QStringList files =
        QFileDialog::getOpenFileNames(parent, MainWindow::tr("Select one or more files to open"),
                                      settings::lastFiles.read(store));
    if (!files.isEmpty())
        settings::lastFiles.write(store, QFileInfo(files.first()).absolutePath());
    return files;
}

std::optional<QStringList> askForDirectoryFiles(QWidget* parent) {
    QSettings store;
    const QString directory = QFileDialog::getExistingDirectory(
        parent, MainWindow::tr("Select folder to add"), settings::lastDirectory.read(store),
        QFileDialog::ShowDirsOnly);
    if (directory.isEmpty())
        return std::nullopt;
    settings::lastDirectory.write(store, directory);
    return filesBelow(directory);
}
