// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// What stands for one letter of a pattern in a regular expression, without groups; empty: it has
/// no such letter.
QString expressionOf(QChar letter);

/// All letters, for a person: "%Y %y %m ...".
QString patternLetters();

/// `text` with the letters that are short for others written out: %F, %T and %R.
QString withoutShortForms(QString text);
