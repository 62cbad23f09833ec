#include "addedfiles.h"

#include "mainwindow.h"
#include "settingstable.h"

#include <QDirIterator>
#include <QFileDialog>
#include <QFileInfo>

namespace {

/// Never empty: a dialog takes that for the current directory, which the first export changes.
QString oneOf(const QString& stored, const QString& startDirectory) {
    return stored.isEmpty() ? startDirectory : stored;
}

QStringList filesBelow(const QString& directory) {
    QStringList files;
    QDirIterator iterator(directory, QDir::Files, QDirIterator::Subdirectories);
    while (iterator.hasNext())
        files.append(iterator.next());
    return files;
}

} // namespace

QStringList askForFiles(QWidget* parent, const QString& startDirectory) {
    QSettings store;
    QStringList files =
        QFileDialog::getOpenFileNames(parent, MainWindow::tr("Select one or more files to open"),
                                      oneOf(settings::lastFiles.read(store), startDirectory));
    if (!files.isEmpty())
        settings::lastFiles.write(store, QFileInfo(files.first()).absolutePath());
    return files;
}

std::optional<QStringList> askForDirectoryFiles(QWidget* parent, const QString& startDirectory) {
    QSettings store;
    const QString directory = QFileDialog::getExistingDirectory(
        parent, MainWindow::tr("Select folder to add"),
        oneOf(settings::lastDirectory.read(store), startDirectory), QFileDialog::ShowDirsOnly);
    if (directory.isEmpty())
        return std::nullopt;
    settings::lastDirectory.write(store, directory);
    return filesBelow(directory);
}
