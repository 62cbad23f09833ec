#pragma once

#include <QStringList>

#include <optional>

class QWidget;

/// Asks for video files, starting where the last ones were, for the first time in `startDirectory`.
/// Empty if the person chose none.
QStringList askForFiles(QWidget* parent, const QString& startDirectory);

/// Asks for a directory, starting at the last one or in `startDirectory`, and answers all files in
/// it and below it, hidden ones left out. Nothing if the person chose none.
std::optional<QStringList> askForDirectoryFiles(QWidget* parent, const QString& startDirectory);
