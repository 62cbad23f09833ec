// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

struct ListedReport;

/// Writes the page and its pictures. What could not be written whole is taken away again, but for
/// an older report's files. Answers why not, for a person; empty after a success. Not for the GUI
/// thread.
QString writeReport(const ListedReport& listed);
