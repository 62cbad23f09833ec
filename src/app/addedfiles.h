// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

#include <optional>

class QMimeData;
class QWidget;

/// Asks for video files, starting where the last ones were, for the first time in `startDirectory`.
/// Empty if the person chose none.
QStringList askForFiles(QWidget* parent, const QString& startDirectory);

/// Asks for a directory, starting at the last one or in `startDirectory`, and answers all files in
/// it and below it, hidden ones left out. Nothing if the person chose none.
std::optional<QStringList> askForDirectoryFiles(QWidget* parent, const QString& startDirectory);

/// Whether anything that was dragged here can be added: files or directories of this machine.
bool canBeDropped(const QMimeData& data);

/// The files of a drop in its order, each directory's in its place, as the two dialogs above answer
/// them. The next dialogs start where these lie.
QStringList droppedFiles(const QMimeData& data);
