#pragma once

#include <QStringList>

#include <optional>

class QWidget;

/// Asks for video files, starting where the last ones were. Empty if the person chose none.
QStringList askForFiles(QWidget* parent);

/// Asks for a directory, starting at the last one, and answers all files in it and below it, hidden
/// ones left out. Nothing if the person chose none.
std::optional<QStringList> askForDirectoryFiles(QWidget* parent);
