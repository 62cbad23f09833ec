// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The table of options, written out for those who read it. Each is a whole text with its line
/// ends.

/// What `--help` prints: what the program does, its options group by group, exit statuses.
QString helpText();

/// What `--list-options` prints: a line for each option, its fields separated by tabs. Programs
/// read it: new fields are put behind the others.
QString optionList();

/// The man page, in the macros of man(7). `version` and `date` ("2026-11-21") stand in its footer.
QString manPage(const QString& version, const QString& date);

/// Completions for bash, zsh and fish.
QString bashCompletion();
QString zshCompletion();
QString fishCompletion();

/// Tables without what stands around them: options and exit statuses, fields of the JSON lines,
/// known names of recordings, and the options beside the window's controls.
QString markdownOptions();
QString markdownFields();
QString markdownNames();
QString htmlOptionTables();
