// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// The path of the values file of the recording at the absolute path `recording`, in `folder`. No
/// two recordings share one, in whatever calls: it holds the recording's name and a digest of its
/// path.
QString valuesPath(const QString& folder, const QByteArray& recording);

/// The same for one of `count` parts of it, `index` from 1 on.
QString partPath(const QString& folder, const QByteArray& recording, int index, int count);

/// The path of the maps of cells that lie beside the values file at `path`.
QString cellsPath(const QString& path);

/// Whether files of this name can hold values. Others never do, whatever is in them.
bool isValuesName(const QString& path);
