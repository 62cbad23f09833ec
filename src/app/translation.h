// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

/// The languages that the window speaks beside English, by their two letters.
QStringList translatedLanguages();

/// The first of a person's languages that the window speaks: two letters of translatedLanguages().
/// Empty for English, and where none of them is spoken.
///
/// `wanted` are names as QLocale::uiLanguages() gives them, "de-AT", the most wanted first.
QString spokenLanguage(const QStringList& wanted);

/// From now on the program's texts, and those of the toolkit where its own translation is
/// installed, appear in this language; an empty one is English, which then says "1 clip". The
/// application must exist, and owns what is loaded. GUI thread only.
void speak(const QString& language);
