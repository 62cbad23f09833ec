// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>

class QWidget;

enum class PlayerSign { Play, Pause, Previous, Next, StepBack, StepForward, Sound, Mute, Full };

/// The sign of a button, in the colour of its text, which those of desktops do not follow.
QIcon playerIcon(PlayerSign sign, const QWidget& button);
