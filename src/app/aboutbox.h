// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

/// Says what the program is and what it is built on.
void showAbout(QWidget* parent);
