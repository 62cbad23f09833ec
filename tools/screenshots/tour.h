// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDir>

/// Does a whole job in the main window and writes pictures of its stages into `images`.
///
/// Makes its recording in the current directory. False if a stage does not come or a picture cannot
/// be written.
bool takeTour(const QDir& images);
