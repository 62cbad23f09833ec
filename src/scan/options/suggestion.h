// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

/// The word of `words` that somebody meant who wrote `written`: the nearest one, if few letters
/// have to be changed, added or left out, whatever their case. Empty if there is none.
QString nearestWord(const QString& written, const QStringList& words);

/// " (did you mean csv?)" with `prefix` in front of that word; empty if there is none.
QString suggestion(const QString& written, const QStringList& words, const QString& prefix = {});

/// The names of all options.
QStringList optionNames();
