// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "samefile.h"

#include <QFile>

#include <filesystem>
#include <system_error>

bool isSameFile(const QString& left, const QString& right) {
    std::error_code none;
    return std::filesystem::equivalent(QFile::encodeName(left).toStdString(),
                                       QFile::encodeName(right).toStdString(), none);
}
