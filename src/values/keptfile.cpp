// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keptfile.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

QString writeKeptFile(const QString& path, const PieceWriter& writePieces) {
    std::error_code error;
    std::filesystem::create_directories(
        QFile::encodeName(QFileInfo(path).absolutePath()).toStdString(), error);
    if (error)
        return QString::fromStdString(error.message());
    return writeWholeFile(path, writePieces);
}
