#include "addedfiles.h"

#include "mainwindow.h"

#include <QDirIterator>
#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>

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
    QSettings settings;
    QStringList files =
        QFileDialog::getOpenFileNames(parent, MainWindow::tr("Select one or more files to open"),
                                      settings.value(QStringLiteral("last_files")).toString());
    if (!files.isEmpty())
        settings.setValue(QStringLiteral("last_files"), QFileInfo(files.first()).absolutePath());
    return files;
}

std::optional<QStringList> askForDirectoryFiles(QWidget* parent) {
    QSettings settings;
    const QString directory = QFileDialog::getExistingDirectory(
        parent, MainWindow::tr("Select folder to add"),
        settings.value(QStringLiteral("last_dir")).toString(), QFileDialog::ShowDirsOnly);
    if (directory.isEmpty())
        return std::nullopt;
    settings.setValue(QStringLiteral("last_dir"), directory);
    return filesBelow(directory);
}
